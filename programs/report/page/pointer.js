// ---- Pointer, wheel, touch and keyboard on a chart ----

const DRAG_PIXELS = 5;
const WHEEL_ZOOM = 0.0025;  // of the window's length a pixel of the wheel

const within = (point) => Math.min(Math.max(point, view.from), view.to);

function listen(graph) {
  const {plot} = graph;
  let start = null;    // of a drag, in client coordinates
  let panned = null;   // of a drag with Shift: the window at its begin
  const touches = new Map();  // fingers, by their pointer
  let pinch = null;    // two fingers: the points under them at the begin

  const pointsPerPixel = () => (view.to - view.from) / graph.chart.getArea().w;
  const showBrush = (x) => {
    const left = plot.getBoundingClientRect().left;
    graph.brush.style.display = Math.abs(x - start) < DRAG_PIXELS ? 'none' : 'block';
    graph.brush.style.left = Math.min(start, x) - left + 'px';
    graph.brush.style.width = Math.abs(x - start) + 'px';
  };
  const stop = () => {
    start = null;
    panned = null;
    graph.brush.style.display = 'none';
  };
  // Both fingers keep the points that they came down on.
  const movePinch = () => {
    const [a, b] = [...touches.values()].sort((one, other) => one - other);
    if (b - a < 2 * DRAG_PIXELS) return;
    const {x, w} = graph.chart.getArea();
    const left = plot.getBoundingClientRect().left + x;
    const scale = (pinch[1] - pinch[0]) / (b - a);
    const from = pinch[0] - (a - left) * scale;
    setView(from, from + w * scale);
  };

  plot.addEventListener('pointermove', (event) => {
    if (!graph.chart) return;
    if (touches.has(event.pointerId)) touches.set(event.pointerId, event.clientX);
    if (pinch && touches.size === 2) {
      movePinch();
    } else if (panned) {
      const by = (start - event.clientX) * panned.perPixel;
      setView(panned.from + by, panned.to + by);
    } else {
      inspect(within(graph.pointAt(event.clientX)));
      if (start !== null) showBrush(event.clientX);
    }
  });
  plot.addEventListener('pointerleave', () => {
    if (start === null && document.activeElement !== plot) inspect(null);
  });
  plot.addEventListener('pointerdown', (event) => {
    if (!graph.chart || event.button !== 0) return;
    if (event.pointerType === 'touch') {
      touches.set(event.pointerId, event.clientX);
      if (touches.size === 2) pinch = [...touches.values()].map((x) => graph.pointAt(x)).sort((a, b) => a - b);
      return;
    }
    start = event.clientX;
    if (event.shiftKey) panned = {from: view.from, to: view.to, perPixel: pointsPerPixel()};
    plot.setPointerCapture(event.pointerId);
  });
  plot.addEventListener('pointerup', (event) => {
    touches.delete(event.pointerId);
    pinch = null;
    if (start === null) return;
    if (!panned && Math.abs(event.clientX - start) >= DRAG_PIXELS) {
      const points = [graph.pointAt(start), graph.pointAt(event.clientX)].sort((a, b) => a - b);
      setView(points[0], points[1]);
    }
    stop();
  });
  plot.addEventListener('pointercancel', (event) => {
    touches.delete(event.pointerId);
    pinch = null;
    stop();
  });
  plot.addEventListener('wheel', (event) => {
    if (!event.ctrlKey || !graph.chart) return;  // the page scrolls
    event.preventDefault();
    zoom(Math.exp(event.deltaY * WHEEL_ZOOM), within(graph.pointAt(event.clientX)));
  }, {passive: false});
  plot.addEventListener('dblclick', () => setView(FIRST, LAST));
  plot.addEventListener('blur', () => inspect(null));
  plot.addEventListener('keydown', (event) => takeKey(graph, event));
}

const POINT_KEYS = {
  ArrowLeft: (step) => inspected - step,
  ArrowRight: (step) => inspected + step,
  PageDown: () => inspected - 60,
  PageUp: () => inspected + 60,
  Home: () => view.from,
  End: () => view.to,
};
const VIEW_KEYS = {
  '+': () => zoom(0.5, inspected),
  '=': () => zoom(0.5, inspected),
  '-': () => zoom(2, inspected),
  '0': () => setView(FIRST, LAST),
};

function takeKey(graph, event) {
  if (event.ctrlKey || event.metaKey || event.altKey || !graph.chart) return;
  if (event.key === 'Escape') {
    inspect(null);
    return;
  }
  if (event.key in POINT_KEYS) {
    if (inspected === null) inspected = Math.round((view.from + view.to) / 2);
    const point = Math.min(Math.max(POINT_KEYS[event.key](event.shiftKey ? 15 : 1), FIRST), LAST);
    if (point < view.from) shift((point - view.from) / (view.to - view.from));
    if (point > view.to) shift((point - view.to) / (view.to - view.from));
    inspect(point);
    graph.speak();
  } else if (event.key in VIEW_KEYS) {
    VIEW_KEYS[event.key]();
  } else {
    return;
  }
  event.preventDefault();
}
