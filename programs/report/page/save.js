// ---- Files of a chart: PNG, SVG, CSV ----

// "forge_memory_utilization_2012-02-22T0800_2012-02-22T1200.svg"
function fileName(graph, ending) {
  const span = [view.from, view.to].map((point) => clockText(point).replace(':', ''));
  return [slugOf(report.node), graph.key, ...span].join('_') + '.' + ending;
}

function saveAs(name, blob) {
  const link = make('a');
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 10000);
}

const FILE_WIDTH = 960;
const CHART_HEIGHT = 360;
const HEAD_HEIGHT = 56;
const KEY_HEIGHT = 20;
const LETTER_WIDTH = 6.6;  // of the key's font, on the safe side

// The chart with its baseline and marks.
function drawWhole(graph, values, width, height) {
  const drawn = drawChart(graph, values, width, height);
  drawOver(drawn.chart, drawn.frame, graph);
  return drawn;
}

// Places of the key's entries, row after row.
function drawKey(target, graph, width, top) {
  let x = 46;
  let y = top;
  graph.data.traces.forEach((trace, set) => {
    if (!graph.shown[set]) return;
    const label = trace.label || 'no label';
    const room = 18 + label.length * LETTER_WIDTH + 16;
    if (x > 46 && x + room > width) {
      x = 46;
      y += KEY_HEIGHT;
    }
    target.append(svg('rect', {x, y: y - 10, width: 11, height: 11, rx: 2, fill: paperBand(trace.colour),
      stroke: paperEdge(trace.colour)}), svg('text', {x: x + 17, y}, label));
    x += room;
  });
  return y + 12;
}

// A drawing that says by itself what it shows.
function drawingOf(graph) {
  const values = graph.ownValues();
  const {chart} = drawWhole(graph, values, FILE_WIDTH, CHART_HEIGHT);
  const whole = svg('svg', {xmlns: SVG, width: FILE_WIDTH, fill: '#444', 'font-size': 12, 'font-family': 'sans-serif'});
  const ground = svg('rect', {width: '100%', height: '100%', fill: '#fff'});
  chart.setAttribute('y', HEAD_HEIGHT);
  whole.append(ground,
      svg('text', {x: 12, y: 24, 'font-size': 16, 'font-weight': 600, fill: '#111'}, graph.data.title),
      svg('text', {x: 12, y: 44}, [report.node, windowText(view.from, view.to), graph.data.unit].join(' · ')), chart);
  const height = drawKey(whole, graph, FILE_WIDTH, HEAD_HEIGHT + CHART_HEIGHT + 16);
  whole.setAttribute('height', height);
  whole.setAttribute('viewBox', `0 0 ${FILE_WIDTH} ${height}`);
  return {text: new XMLSerializer().serializeToString(whole), width: FILE_WIDTH, height};
}

function saveSvg(graph) {
  saveAs(fileName(graph, 'svg'), new Blob([drawingOf(graph).text], {type: 'image/svg+xml'}));
}

const PNG_SCALE = 2;

function savePng(graph) {
  const {text, width, height} = drawingOf(graph);
  const image = new Image();
  image.addEventListener('load', () => {
    const canvas = make('canvas');
    canvas.width = width * PNG_SCALE;
    canvas.height = height * PNG_SCALE;
    canvas.getContext('2d').drawImage(image, 0, 0, canvas.width, canvas.height);
    canvas.toBlob((blob) => saveAs(fileName(graph, 'png'), blob), 'image/png');
  });
  image.src = 'data:image/svg+xml;charset=utf-8,' + encodeURIComponent(text);
}

// A line of a table of the window, times as in the tool's CSV files.
function saveCsv(graph) {
  const values = graph.ownValues();
  const quoted = (text) => (/[",\n]/.test(text) ? '"' + text.replace(/"/g, '""') + '"' : text);
  const lines = [['Time', ...graph.data.traces.map((trace) => quoted(trace.label))].join()];
  for (let point = view.from; point <= view.to; ++point) {
    const clock = clockAt(point);
    const day = [two(clock.getUTCMonth() + 1), two(clock.getUTCDate()), clock.getUTCFullYear()].join('/');
    const time = [clock.getUTCHours(), clock.getUTCMinutes(), clock.getUTCSeconds()].map(two).join(':');
    lines.push([day + ' ' + time, ...values.map((own) => (Number.isNaN(own[point]) ? '' : own[point].toFixed(2)))].join());
  }
  saveAs(fileName(graph, 'csv'), new Blob([lines.join('\n') + '\n'], {type: 'text/csv'}));
}
