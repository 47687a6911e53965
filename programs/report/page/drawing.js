// ---- A chart as SVG: on paper, in files ----

const SVG = 'http://www.w3.org/2000/svg';

function svg(tag, attributes, text) {
  const element = document.createElementNS(SVG, tag);
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
  if (text !== undefined) element.textContent = text;
  return element;
}

// The points that a line of `columns` pixels needs: of each column the lowest and the highest, in their order.
function thinned(values, from, to, columns) {
  const points = [];
  if (to - from <= 2 * columns) {
    for (let point = from; point <= to; ++point) points.push(point);
    return points;
  }
  for (let column = 0; column < columns; ++column) {
    const begin = from + Math.floor((to - from + 1) * column / columns);
    const end = from + Math.floor((to - from + 1) * (column + 1) / columns);
    let low = begin;
    let high = begin;
    for (let point = begin + 1; point < end; ++point) {
      if (!(values[point] >= values[low])) low = point;
      if (!(values[point] <= values[high])) high = point;
    }
    points.push(Math.min(low, high));
    if (low !== high) points.push(Math.max(low, high));
  }
  return points;
}

// Where points and values lie within a frame.
class Frame {
  constructor(area, from, to, top) {
    Object.assign(this, {area, from, to, top});
  }
  x(point) {
    return Math.round((this.area.x + this.area.w * (point - this.from) / (this.to - this.from)) * 10) / 10;
  }
  y(value) {
    const share = Math.min(Math.max(value / this.top, 0), 1);
    return Math.round((this.area.y + this.area.h * (1 - share)) * 10) / 10;
  }
  // A path along the values; broken where there are none.
  path(values) {
    let text = '';
    let open = false;
    for (const point of thinned(values, this.from, this.to, Math.round(this.area.w))) {
      if (Number.isNaN(values[point])) {
        open = false;
        continue;
      }
      text += (open ? 'L' : 'M') + this.x(point) + ' ' + this.y(values[point]);
      open = true;
    }
    return text;
  }
  areaPath(values) {
    const filled = values.map((value) => (Number.isNaN(value) ? 0 : value));
    const line = this.path(filled);
    return line && line.replace(/^M/, 'M' + this.x(this.from) + ' ' + this.y(0) + 'L') + 'L' + this.x(this.to) + ' ' +
        this.y(0) + 'Z';
  }
}

function drawAxes(target, frame) {
  const {area} = frame;
  const right = area.x + area.w;
  const bottom = area.y + area.h;
  for (const {value, text} of valueTicks(frame.top, area.h)) {
    const y = frame.y(value);
    target.append(svg('path', {d: `M${area.x} ${y}H${right}`, stroke: value === 0 ? '#888' : '#ddd', fill: 'none'}),
        svg('text', {x: area.x - 6, y: y + 4, 'text-anchor': 'end'}, text));
  }
  for (const {point, text} of timeTicks(frame.from, frame.to, area.w)) {
    const x = frame.x(point);
    target.append(svg('path', {d: `M${x} ${bottom}v4`, stroke: '#888', fill: 'none'}),
        svg('text', {x, y: bottom + 16, 'text-anchor': 'middle'}, text));
  }
}

// The traces of `graph` that are shown, as bands or lines.
function drawTraces(target, frame, graph, values) {
  const shown = graph.data.traces.map((_, set) => set).filter((set) => graph.shown[set]);
  if (graph.lines) {
    for (const set of shown) {
      target.append(svg('path', {d: frame.path(values[set]), fill: 'none', 'stroke-width': 1.3,
        stroke: paperEdge(graph.data.traces[set].colour)}));
    }
    return;
  }
  // From the top of the stack down: each area covers what lies under it.
  shown.forEach((set, place) => {
    const sums = levelOf(shown.slice(place).map((other) => values[other]), false, report.points);
    const {colour} = graph.data.traces[set];
    target.append(svg('path', {d: frame.areaPath(sums), fill: paperBand(colour)}),
        svg('path', {d: frame.path(sums), fill: 'none', stroke: paperEdge(colour), 'stroke-width': 0.9}));
  });
}

// The chart of the window at hand. What lies over and under it comes from `graph` too.
function drawChart(graph, values, width, height) {
  const area = {x: 46, y: 8, w: width - 46 - 22, h: height - 8 - 24};
  const frame = new Frame(area, view.from, view.to, graph.topOf(values, view.from, view.to));
  const chart = svg('svg', {xmlns: SVG, viewBox: `0 0 ${width} ${height}`, width, height, fill: '#444',
    'font-size': 11, 'font-family': 'sans-serif', role: 'img', 'aria-label': graph.data.title});
  drawAxes(chart, frame);
  drawTraces(chart, frame, graph, values);
  return {chart, frame};
}
