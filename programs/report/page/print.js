// ---- Print: what is drawn on a canvas doesn't reach the paper, so each chart is drawn as SVG before ----

const PRINT_WIDTH = 440;
const PRINT_HEIGHT = 230;

function forPrint(graph) {
  const values = graph.ownValues();
  const {chart} = drawWhole(graph, values, PRINT_WIDTH, PRINT_HEIGHT);
  chart.classList.add('print');
  graph.plot.after(chart);
  graph.rows.forEach((cells, set) => cells.show(new Figures(values[set]).of(view.from, view.to)));
}

// Whether a card is on the paper: not folded, not hidden by a search.
const isOnPaper = (graph) => graph.card && graph.data.chart && graph.card.checkVisibility();

// The overview has the graphs that are on the paper, and no heading is printed above nothing.
function leaveOut() {
  for (const entry of overview.entries) {
    entry.element.classList.toggle('off-paper', !isOnPaper(entry.graph));
    if (isOnPaper(entry.graph)) entry.finish();
  }
  for (const section of document.querySelectorAll('section.group, section.sub')) {
    const empty = !section.querySelector('table') || !section.checkVisibility();
    section.classList.toggle('off-paper', empty || ![...section.querySelectorAll('table')].some((one) => one.checkVisibility()));
  }
}

window.addEventListener('beforeprint', () => {
  inspect(null);
  for (const graph of graphs) if (isOnPaper(graph)) forPrint(graph);
  leaveOut();
});
window.addEventListener('afterprint', () => {
  for (const chart of document.querySelectorAll('svg.print')) chart.remove();
  document.body.classList.remove('pinned-only');
});
