// The page of a report. All texts of the data reach the document by textContent.
'use strict';
(() => {

const report = JSON.parse(document.getElementById('data').textContent);
const POINT_MS = 60000;
const DAYS = ['Sun', 'Mon', 'Tue', 'Wed', 'Thu', 'Fri', 'Sat'];
const MONTHS = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'];

// ---- Data ----

const DIGITS = new Map([...'ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/']
    .map((letter, digit) => [letter.charCodeAt(0), digit]));

// Values of a trace from its text: differences of hundredths, behind a difference of 0 how many more follow.
function decode(text, count) {
  const values = new Float64Array(count);
  let place = 0;
  const number = () => {
    let result = 0;
    let factor = 1;
    for (;;) {
      const digit = DIGITS.get(text.charCodeAt(place++));
      result += (digit & 31) * factor;
      if (digit < 32) return result;
      factor *= 32;
    }
  };
  let hundredths = 0;
  for (let i = 0; i < count && place < text.length;) {
    if (text[place] === '!') {
      ++place;
      values[i++] = NaN;
      continue;
    }
    const code = number();
    hundredths += code % 2 === 1 ? -(code + 1) / 2 : code / 2;
    for (let more = code === 0 ? number() : 0; more >= 0 && i < count; --more) values[i++] = hundredths / 100;
  }
  return values;
}

const valueText = (value) => (Number.isFinite(value) ? value.toFixed(2) : '–');

// ---- Times: a point is a minute, shown by the clock of the report's zone ----

const FIRST = report.first;
const LAST = Math.max(report.last, FIRST + 1);

function offsetAt(point) {
  let offset = report.offsets[0][1];
  for (const [from, seconds] of report.offsets) {
    if (from <= point) offset = seconds;
  }
  return offset;
}

// The clock's reading as a Date whose UTC fields hold it.
const clockAt = (point) => new Date((report.start + 60 * point + offsetAt(point)) * 1000);
const two = (number) => String(number).padStart(2, '0');

function timeText(point) {
  const clock = clockAt(point);
  const seconds = clock.getUTCSeconds();
  return two(clock.getUTCHours()) + ':' + two(clock.getUTCMinutes()) + (seconds ? ':' + two(seconds) : '');
}

function dayText(point) {
  const clock = clockAt(point);
  return clock.getUTCDate() + ' ' + MONTHS[clock.getUTCMonth()];
}

const SEVERAL_DAYS = LAST - FIRST > 1441;
const stampText = (point) => {
  if (!SEVERAL_DAYS) return timeText(point);
  return DAYS[clockAt(point).getUTCDay()] + ' ' + dayText(point) + ' ' + timeText(point);
};

// The chart's x: the clock at the first point, running on evenly.
const X_OF_START = (report.start + report.offsets[0][1]) * 1000;
const xOf = (point) => X_OF_START + point * POINT_MS;
const pointOf = (x) => Math.round((x - X_OF_START) / POINT_MS);

function tickText(x) {
  const point = (x - X_OF_START) / POINT_MS;
  const text = timeText(point);
  return text === '00:00' ? dayText(point) : text;
}

// ---- State that all charts share ----

const view = {from: FIRST, to: LAST};  // points
let inspected = null;                  // point, or null
const live = new Set();                // charts that are drawn now

const SMALLEST_WINDOW = 4;

function setView(from, to) {
  const length = Math.min(Math.max(to - from, SMALLEST_WINDOW), LAST - FIRST);
  view.from = Math.round(Math.min(Math.max(from, FIRST), LAST - length));
  view.to = Math.round(view.from + length);
  for (const chart of live) chart.showView();
  showWindow();
}

function zoom(factor, centre) {
  const length = (view.to - view.from) * factor;
  const middle = centre === null || centre < view.from || centre > view.to ? (view.from + view.to) / 2 : centre;
  const share = (middle - view.from) / (view.to - view.from);
  setView(middle - length * share, middle + length * (1 - share));
}

function shift(share) {
  const step = (view.to - view.from) * share;
  setView(view.from + step, view.to + step);
}

function inspect(point) {
  inspected = point === null ? null : Math.min(Math.max(point, FIRST), LAST);
  for (const chart of live) chart.showPoint();
}

// ---- Small helpers for elements ----

function make(tag, className, text) {
  const element = document.createElement(tag);
  if (className) element.className = className;
  if (text !== undefined) element.textContent = text;
  return element;
}

function colourOf(name) {
  return getComputedStyle(document.documentElement).getPropertyValue(name).trim();
}

// ---- Colours: those of the tool's plots, set off from the ground they stand on ----

const darkTheme = matchMedia('(prefers-color-scheme: dark)');
const DIMMEST = 0.1;  // luminance that a dark ground leaves visible

const channelsOf = (colour) => [1, 3, 5].map((place) => parseInt(colour.slice(place, place + 2), 16));
const mixed = (colour, other, share) =>
  'rgb(' + channelsOf(colour).map((channel) => Math.round(channel + (other - channel) * share)).join() + ')';

function luminance(colour) {
  const [red, green, blue] = channelsOf(colour).map((channel) => (channel / 255) ** 2.2);
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

const bandColour = (colour) =>
  (darkTheme.matches && luminance(colour) < DIMMEST ? mixed(colour, 255, 0.35) : colour);
const edgeColour = (colour) => (darkTheme.matches ? mixed(colour, 255, 0.25) : mixed(colour, 0, 0.25));

// ---- A graph: its card, and its chart while it is in view ----

class Graph {
  constructor(data, section) {
    this.data = data;
    this.words = (data.title + ' ' + section.label).toLowerCase();
    this.shown = data.traces.map(() => true);
    this.chart = null;
    this.card = null;
  }

  // The card, made when it is first asked for.
  element() {
    if (this.card) return this.card;
    const card = make('article', 'graph');
    const head = make('header');
    head.append(make('h4', '', this.data.title), make('span', 'unit', this.data.unit));
    const body = make('div', 'body');
    if (this.data.chart) {
      body.append(this.plotElement());
      watcher.observe(card);
    } else {
      body.append(make('p', 'without', 'No chart: the page has no room for its points.'));
    }
    body.append(this.figuresElement());
    card.append(head, body);
    card.graph = this;
    this.card = card;
    return card;
  }

  plotElement() {
    this.plot = make('div', 'plot');
    this.plot.tabIndex = 0;
    this.plot.setAttribute('role', 'slider');
    this.plot.setAttribute('aria-label', this.data.title + ', point under inspection');
    this.plot.setAttribute('aria-valuemin', FIRST);
    this.plot.setAttribute('aria-valuemax', LAST);
    this.plot.setAttribute('aria-valuenow', FIRST);
    this.plot.setAttribute('aria-valuetext', 'none');
    this.canvas = make('div', 'canvas');
    this.brush = make('div', 'brush');
    this.cursor = make('div', 'cursor');
    this.stamp = make('div', 'stamp');
    this.plot.append(this.canvas, this.brush, this.cursor, this.stamp);
    listen(this);
    return this.plot;
  }

  figuresElement() {
    const table = make('table');
    const headRow = make('tr');
    this.timeHead = make('th', '', 'Value');
    headRow.append(make('th', '', 'Trace'), this.timeHead, make('th', '', 'Mean'), make('th', '', 'Peak'));
    for (const cell of headRow.children) cell.scope = 'col';
    const head = make('thead');
    head.append(headRow);
    const rows = make('tbody');
    this.rows = this.data.traces.map((trace, set) => this.traceRow(trace, set));
    rows.append(...this.rows.map((row) => row.element));
    table.append(head, rows);
    if (this.data.traces.some((trace) => trace.peak >= 1e6)) table.className = 'wide';
    const figures = make('div', 'figures');
    figures.append(table);
    return figures;
  }

  traceRow(trace, set) {
    const element = make('tr');
    const name = make('th');
    name.scope = 'row';
    const button = make('button', 'trace');
    button.type = 'button';
    button.title = trace.label || 'no label';
    button.setAttribute('aria-pressed', 'true');
    const swatch = make('i');
    swatch.style.background = bandColour(trace.colour);
    button.append(swatch, make('span', '', trace.label || 'no label'));
    button.disabled = !this.data.chart;
    button.addEventListener('click', (event) => this.toggle(set, event.shiftKey));
    name.append(button);
    const value = make('td', 'value', '–');
    const peak = make('td', '', valueText(trace.peak));
    peak.title = 'at ' + stampText(trace.at);
    element.append(name, value, make('td', '', valueText(trace.mean)), peak);
    return {element, button, value};
  }

  toggle(set, alone) {
    if (alone) {
      const only = this.shown.every((shown, other) => shown === (other === set));
      this.shown = this.shown.map((_, other) => only || other === set);
    } else {
      this.shown[set] = !this.shown[set];
    }
    this.rows.forEach((row, other) => {
      row.button.setAttribute('aria-pressed', String(this.shown[other]));
      row.element.className = this.shown[other] ? '' : 'off';
    });
    if (this.chart) {
      this.chart.updateOptions({visibility: this.shown, valueRange: this.valueRange()});
      this.showPoint();
    }
  }

  // The axis of the tool's plots, as long as all traces are shown; else it follows what is.
  valueRange() {
    if (this.data.top > 0 && this.shown.every((shown) => shown)) return [0, this.data.top];
    if (this.values.every((values) => values.every((value) => !(value > 0)))) return [0, 1];
    return [0, null];
  }

  draw() {
    if (this.chart) return;
    this.values = this.data.traces.map((trace) => decode(trace.points, report.points));
    const rows = [];
    for (let point = FIRST; point <= LAST; ++point) {
      rows.push([xOf(point), ...this.values.map((values) => (Number.isNaN(values[point]) ? null : values[point]))]);
    }
    this.chart = new Dygraph(this.canvas, rows, {
      labels: ['time', ...this.data.traces.map((_, set) => String(set))],
      colors: this.data.traces.map((trace) => bandColour(trace.colour)),
      plotter: [Dygraph.Plotters.fillPlotter, (stroke) => this.drawEdge(stroke)],
      visibility: this.shown,
      stackedGraph: true,
      stackedGraphNaNFill: 'none',
      fillAlpha: darkTheme.matches ? 0.74 : 0.6,
      strokeWidth: 0.9,
      highlightCircleSize: 0,
      includeZero: true,
      valueRange: this.valueRange(),
      dateWindow: [xOf(view.from), xOf(view.to)],
      interactionModel: {},
      labelsUTC: true,
      axisLineColor: colourOf('--line'),
      gridLineColor: colourOf('--grid'),
      gridLineWidth: 1,
      axes: {
        x: {ticker: Dygraph.dateTicker, axisLabelFormatter: tickText, drawGrid: false, pixelsPerLabel: 54},
        y: {axisLabelFormatter: axisText, axisLabelWidth: 46, pixelsPerLabel: 38},
      },
    });
    live.add(this);
    this.showPoint();
  }

  drawEdge(stroke) {
    stroke.color = edgeColour(this.data.traces[Number(stroke.setName)].colour);
    Dygraph.Plotters.linePlotter(stroke);
  }

  erase() {
    if (!this.chart) return;
    live.delete(this);
    this.chart.destroy();
    this.chart = null;
    this.values = null;
  }

  showView() {
    this.chart.updateOptions({dateWindow: [xOf(view.from), xOf(view.to)]});
    this.showPoint();
  }

  showPoint() {
    const visible = inspected !== null && inspected >= view.from && inspected <= view.to;
    this.cursor.style.display = visible ? 'block' : 'none';
    this.stamp.style.display = visible ? 'block' : 'none';
    this.timeHead.textContent = inspected === null ? 'Value' : timeText(inspected);
    this.rows.forEach((row, set) => {
      row.value.textContent = inspected === null ? '–' : valueText(this.values[set][inspected]);
    });
    if (inspected !== null) this.plot.setAttribute('aria-valuenow', inspected);
    if (!visible) return;
    const x = this.chart.toDomXCoord(xOf(inspected));
    this.cursor.style.left = x + 'px';
    this.stamp.textContent = stampText(inspected);
    const room = this.plot.clientWidth - this.stamp.offsetWidth;
    this.stamp.style.left = Math.min(Math.max(x - this.stamp.offsetWidth / 2, 0), room) + 'px';
  }

  // What a screen reader says of the point; only of the chart that has the keyboard.
  speak() {
    const values = this.data.traces.filter((_, set) => this.shown[set]).slice(0, 12)
        .map((trace, i) => trace.label + ' ' + this.rows[this.data.traces.indexOf(trace)].value.textContent);
    this.plot.setAttribute('aria-valuetext', stampText(inspected) + ': ' + values.join(', '));
  }

  pointAt(clientX) {
    return pointOf(this.chart.toDataXCoord(clientX - this.plot.getBoundingClientRect().left));
  }
}

function axisText(value) {
  for (const [size, letter] of [[1e9, 'G'], [1e6, 'M'], [1e4, 'k']]) {
    if (Math.abs(value) >= size) {
      const unit = letter === 'k' ? 1e3 : size;
      return String(Math.round(value / unit * 100) / 100) + letter;
    }
  }
  return String(Math.round(value * 1000) / 1000);
}

// Labels and values are this page's own; of the library's parts it needs the two that draw.
Dygraph.PLUGINS = [Dygraph.Plugins.Axes, Dygraph.Plugins.Grid];

// ---- Pointer and keyboard on a chart ----

const DRAG_PIXELS = 5;

function listen(graph) {
  const plot = graph.plot;
  let start = null;  // of a drag, in client coordinates

  const showBrush = (x) => {
    const left = plot.getBoundingClientRect().left;
    graph.brush.style.display = Math.abs(x - start) < DRAG_PIXELS ? 'none' : 'block';
    graph.brush.style.left = Math.min(start, x) - left + 'px';
    graph.brush.style.width = Math.abs(x - start) + 'px';
  };

  plot.addEventListener('pointermove', (event) => {
    if (!graph.chart) return;
    inspect(Math.min(Math.max(graph.pointAt(event.clientX), view.from), view.to));
    if (start !== null) showBrush(event.clientX);
  });
  plot.addEventListener('pointerleave', () => {
    if (start === null && document.activeElement !== plot) inspect(null);
  });
  plot.addEventListener('pointerdown', (event) => {
    if (!graph.chart || event.button !== 0 || event.pointerType === 'touch') return;
    start = event.clientX;
    plot.setPointerCapture(event.pointerId);
  });
  plot.addEventListener('pointerup', (event) => {
    if (start === null) return;
    graph.brush.style.display = 'none';
    const points = [graph.pointAt(start), graph.pointAt(event.clientX)].sort((a, b) => a - b);
    if (Math.abs(event.clientX - start) >= DRAG_PIXELS) setView(points[0], points[1]);
    start = null;
  });
  plot.addEventListener('pointercancel', () => {
    start = null;
    graph.brush.style.display = 'none';
  });
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

// ---- The bar ----

const byId = (id) => document.getElementById(id);

function showWindow() {
  const from = dayText(view.from) + ' ' + timeText(view.from);
  const sameDay = dayText(view.from) === dayText(view.to);
  byId('window').textContent = from + ' – ' + (sameDay ? '' : dayText(view.to) + ' ') + timeText(view.to);
  const whole = view.from === FIRST && view.to === LAST;
  byId('whole').disabled = whole;
  byId('out').disabled = whole;
  byId('earlier').disabled = view.from === FIRST;
  byId('later').disabled = view.to === LAST;
  byId('in').disabled = view.to - view.from <= SMALLEST_WINDOW;
}

byId('earlier').addEventListener('click', () => shift(-0.5));
byId('later').addEventListener('click', () => shift(0.5));
byId('in').addEventListener('click', () => zoom(0.5, null));
byId('out').addEventListener('click', () => zoom(2, null));
byId('whole').addEventListener('click', () => setView(FIRST, LAST));

// ---- Drawing what comes into view, and dropping what is far from it ----

const watcher = new IntersectionObserver((entries) => {
  for (const entry of entries) {
    if (entry.isIntersecting) entry.target.graph.draw();
    else entry.target.graph.erase();
  }
}, {rootMargin: '400px 0px'});

// ---- Sections ----

// More disks, adapters or processors than this are folded up.
const MOST_UNFOLDED = 2;

class Section {
  constructor(data) {
    this.data = data;
    this.graphs = data.graphs.map((graph) => new Graph(graph, data));
    this.below = [];
    this.element = null;
  }

  count() {
    return this.graphs.length + this.below.reduce((sum, section) => sum + section.count(), 0);
  }

  build(folded) {
    const level = this.data.level;
    if (folded) {
      this.element = make('details');
      const summary = make('summary');
      summary.append(make('span', 'name', this.data.label), make('span', 'brief', this.brief()));
      this.element.append(summary);
      this.element.addEventListener('toggle', () => {
        if (this.element.open) this.fill();
      });
    } else {
      this.element = make('section', level === 1 ? 'group' : 'sub');
      this.element.append(make(level === 1 ? 'h2' : 'h3', '', this.data.label));
      this.fill();
    }
    this.folded = folded;
    const members = this.below.filter((section) => section.data.own).length;
    for (const section of this.below) {
      this.element.append(section.build(section.data.own && members > MOST_UNFOLDED));
    }
    return this.element;
  }

  // The cards of a folded section are made when it is first unfolded.
  fill() {
    if (this.filled) return;
    this.filled = true;
    for (const graph of this.graphs) this.element.append(graph.element());
  }

  brief() {
    const first = this.data.graphs[0];
    const mean = first.traces.reduce((sum, trace) => sum + trace.mean, 0);
    return 'mean ' + valueText(mean) + ' ' + first.unit;
  }

  // Shows what `matches`; answers how many graphs do.
  filter(matches, unfold) {
    let found = 0;
    const hits = this.graphs.map(matches);
    const own = hits.filter((hit) => hit).length;
    if (this.folded && own > 0 && unfold) this.element.open = true;
    if (this.folded && this.element.open) this.fill();
    this.graphs.forEach((graph, i) => {
      if (graph.card) graph.card.hidden = !hits[i];
    });
    found += own;
    for (const section of this.below) found += section.filter(matches, unfold);
    this.element.hidden = found === 0;
    if (this.link) this.link.hidden = found === 0;
    return found;
  }
}

// Sections stand in the data one behind the other, each with its level.
function sectionTree() {
  const root = new Section({label: '', level: 0, graphs: []});
  const path = [root];
  for (const data of report.sections) {
    while (path[path.length - 1].data.level >= data.level) path.pop();
    const section = new Section(data);
    path[path.length - 1].below.push(section);
    path.push(section);
  }
  return root.below;
}

const groups = sectionTree();
const total = groups.reduce((sum, group) => sum + group.count(), 0);

groups.forEach((group, i) => {
  byId('sections').append(group.build(false));
  group.element.id = 'group' + i;
  group.link = make('a', '', group.data.label);
  group.link.href = '#group' + i;
  group.link.append(make('span', '', String(group.count())));
  byId('groups').append(group.link);
});

// The group that the page is scrolled to.
const scrollSpy = new IntersectionObserver(() => {
  const tops = groups.filter((group) => !group.element.hidden);
  const here = tops.filter((group) => group.element.getBoundingClientRect().top < 160).pop() || tops[0];
  for (const group of groups) group.link.classList.toggle('here', group === here);
}, {threshold: [0, 0.05, 0.25, 0.5, 0.75, 1], rootMargin: '-80px 0px 0px 0px'});
for (const group of groups) scrollSpy.observe(group.element);

// ---- Search ----

// A search that few sections answer unfolds them.
const MOST_UNFOLDED_BY_SEARCH = 12;
const nothing = make('p', 'nothing', 'No graph has these words in its title.');
nothing.hidden = true;
byId('sections').append(nothing);

function search() {
  const words = byId('search').value.toLowerCase().split(/\s+/).filter((word) => word !== '');
  const matches = (graph) => words.every((word) => graph.words.includes(word));
  const sectionsHit = (sections) => sections.reduce((sum, section) =>
    sum + (section.folded && section.graphs.some(matches) ? 1 : 0) + sectionsHit(section.below), 0);
  const unfold = words.length > 0 && sectionsHit(groups) <= MOST_UNFOLDED_BY_SEARCH;
  const found = groups.reduce((sum, group) => sum + group.filter(matches, unfold), 0);
  nothing.hidden = found > 0;
  byId('found').textContent = words.length > 0 ? found + ' of ' + total : '';
  // What is found begins below the bar, however far down the page was.
  const top = byId('sections').getBoundingClientRect().top - byId('sections').parentElement.previousElementSibling.offsetHeight;
  if (top < 0) window.scrollBy({top, behavior: 'instant'});
}
byId('search').addEventListener('input', search);
document.addEventListener('keydown', (event) => {
  if (event.key !== '/' || event.ctrlKey || event.metaKey || event.target instanceof HTMLInputElement) return;
  byId('search').focus();
  event.preventDefault();
});

// ---- Start ----

// Colours of grid and axes are drawn, so a change of theme draws anew.
darkTheme.addEventListener('change', () => {
  for (const graph of [...live]) {
    graph.erase();
    graph.draw();
  }
});
window.addEventListener('resize', () => inspect(inspected));
window.addEventListener('beforeprint', () => {
  for (const card of document.querySelectorAll('article.graph')) card.graph.data.chart && card.graph.draw();
});

byId('report').hidden = false;
showWindow();
})();
