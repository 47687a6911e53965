// ---- The chart of a graph, drawn by the library ----

// Labels and values are this page's own; of the library's parts it needs the two that draw.
Dygraph.PLUGINS = [Dygraph.Plugins.Axes, Dygraph.Plugins.Grid];

// The rows of the window: one a pixel, since of each two pixels they are the lowest and the highest.
function rowsOf(graph) {
  const {values} = graph;
  const width = graph.chart ? graph.chart.getArea().w : graph.plot.clientWidth;  // the latter has the page laid out
  const columns = Math.max(200, Math.ceil(width / 2));
  return thinned(graph.shownLevel(values), view.from, view.to, columns).map((point) =>
    [xOf(point), ...values.map((own) => (Number.isNaN(own[point]) ? null : own[point]))]);
}

// What depends on the window and on the traces that are shown.
function windowOptions(graph) {
  return {
    file: rowsOf(graph),
    visibility: graph.shown,
    dateWindow: [xOf(view.from), xOf(view.to)],
    valueRange: [0, graph.topOf(graph.values, view.from, view.to)],
  };
}

function makeChart(graph) {
  const {traces} = graph.data;
  const {file, ...options} = windowOptions(graph);
  const drawEdge = (stroke) => {
    stroke.color = edgeColour(traces[Number(stroke.setName)].colour);
    Dygraph.Plotters.linePlotter(stroke);
  };
  return new Dygraph(graph.canvas, file, {
    ...options,
    labels: ['time', ...traces.map((_, set) => String(set))],
    colors: traces.map((trace) => bandColour(trace.colour)),
    plotter: graph.lines ? drawEdge : [Dygraph.Plotters.fillPlotter, drawEdge],
    stackedGraph: !graph.lines,
    stackedGraphNaNFill: 'none',
    fillAlpha: darkTheme.matches ? 0.74 : 0.6,
    strokeWidth: graph.lines ? 1.5 : 0.9,
    highlightCircleSize: 0,
    includeZero: true,
    interactionModel: {},
    labelsUTC: true,
    axisLineColor: colourOf('--line'),
    gridLineColor: colourOf('--grid'),
    gridLineWidth: 1,
    underlayCallback: (context, area, chart) => drawUnder(context, area, chart, graph),
    axes: {
      x: {ticker: (from, to, pixels) => timeTicks(pointOf(from), pointOf(to), pixels)
        .map(({point, text}) => ({v: xOf(point), label: text})), drawGrid: false},
      y: {ticker: (from, to, pixels) => valueTicks(to, pixels).map(({value, text}) => ({v: value, label: text})),
        axisLabelWidth: 46},
    },
  });
}

// ---- Following the window: once a frame, what is in sight, and the others when it rests ----

const FRAME_MS = 12;     // after so much of a frame the next chart has to wait for the next one
const late = new Set();  // graphs whose charts show an earlier window, the longest waiting first
let frameAsked = 0;

const sight = new IntersectionObserver((entries) => {
  for (const {target, isIntersecting} of entries) target.graph.inSight = isIntersecting;
  askFrame();
});

function drawLate() {
  frameAsked = 0;
  const began = performance.now();
  const seen = [...late].filter((graph) => graph.inSight);
  for (const graph of seen) graph.followFigures();
  while (seen.length > 0 && performance.now() - began < FRAME_MS) seen.shift().showChart();
  if (seen.length > 0) askFrame();
}

function askFrame() {
  frameAsked = frameAsked || requestAnimationFrame(drawLate);
}

const drawUnseen = afterRest(150, () => inPieces([...late], (graph) => graph.showChart(), () => {}));

function showCharts() {
  for (const graph of live) late.add(graph);
  askFrame();
  drawUnseen();
}

// ---- Drawing what comes into view, and dropping what is far from it ----

const watcher = new IntersectionObserver((entries) => {
  for (const entry of entries) {
    if (entry.isIntersecting) entry.target.graph.draw();
    else entry.target.graph.erase();
  }
}, {rootMargin: '400px 0px'});

// Colours of grid and axes are drawn, so a change of theme draws anew.
darkTheme.addEventListener('change', () => {
  for (const graph of [...live]) graph.redraw();
});
window.addEventListener('resize', () => inspect(inspected));
