// ---- The chart of a graph, drawn by the library ----

// Labels and values are this page's own; of the library's parts it needs the two that draw.
Dygraph.PLUGINS = [Dygraph.Plugins.Axes, Dygraph.Plugins.Grid];

// The rows of the window: no more than the pixels can show.
function rowsOf(graph) {
  const {values} = graph;
  const columns = Math.max(200, graph.plot.clientWidth);
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
