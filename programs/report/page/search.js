// ---- Search: words in titles, sections and names of traces ----

// A search that is found in few sections unfolds them.
const MOST_UNFOLDED_BY_SEARCH = 12;
const nothing = make('p', 'nothing', 'No graph has these words in its title or its traces.');
nothing.hidden = true;

let searchWords = [];
const matchesSearch = (graph) => searchWords.every((word) =>
  graph.title.includes(word) || graph.traceWords.some((label) => label.includes(word)));

// Marks the traces that a search found, and says so where the title doesn't.
function showFound(graph) {
  const words = searchWords.filter((word) => !graph.title.includes(word));
  const found = graph.traceWords.map((label) => words.some((word) => label.includes(word)));
  graph.rows.forEach((cells, set) => cells.element.classList.toggle('hit', found[set]));
  const labels = graph.data.traces.filter((_, set) => found[set]).map((trace) => trace.label);
  graph.foundLine.hidden = labels.length === 0;
  graph.foundLine.textContent = 'Found in its traces: ' + labels.join(', ');
}

function search() {
  searchWords = byId('search').value.toLowerCase().split(/\s+/).filter((word) => word !== '');
  const searching = searchWords.length > 0;
  const sectionsHit = (sections) => sections.reduce((sum, section) =>
    sum + (section.folded && section.graphs.some(matchesSearch) ? 1 : 0) + sectionsHit(section.below), 0);
  const unfold = searching && sectionsHit(groups) <= MOST_UNFOLDED_BY_SEARCH;
  const found = groups.reduce((sum, group) => sum + group.filter(matchesSearch, unfold, searching), 0);
  for (const graph of graphs) if (graph.card) showFound(graph);
  nothing.hidden = found > 0;
  byId('found').textContent = searching ? found + ' of ' + graphs.length : '';
  filterOverview();
  // What is found begins below the bar, however far down the page was.
  const top = byId('sections').getBoundingClientRect().top - byId('bar').offsetHeight;
  if (top < 0) window.scrollBy({top, behavior: 'instant'});
}

byId('search').addEventListener('input', () => {
  search();
  addressChanged();
});
document.addEventListener('keydown', (event) => {
  if (event.key !== '/' || event.ctrlKey || event.metaKey || event.target instanceof HTMLInputElement) return;
  byId('search').focus();
  event.preventDefault();
});
