// ---- The overview: a row a graph ----

const LEAST_GRAPHS = 4;  // fewer need no overview
const MOST_AT_REST = 500;  // rows; of more, as of a thousand disks, those that come into sight are filled in alone
const SPARK_WIDTH = 120;
const SPARK_HEIGHT = 22;

// Columns by which the overview is sorted: a name, how a row's figures are compared, and their text.
const OVERVIEW_COLUMNS = [
  {head: 'Graph', key: (entry) => entry.graph.data.title.toLowerCase(), rising: true},
  {head: 'Course'},
  {head: 'Unit', key: (entry) => entry.graph.data.unit.toLowerCase(), rising: true},
  {head: 'Mean', key: (entry) => entry.figures.mean, text: (entry) => valueText(entry.figures.mean)},
  {head: '95th', key: (entry) => entry.figures.high, text: (entry) => valueText(entry.figures.high)},
  {head: 'Peak', key: (entry) => entry.figures.peak, text: (entry) => valueText(entry.figures.peak)},
  {head: 'At', key: (entry) => entry.figures.at, text: (entry) => stampText(entry.figures.at), rising: true},
  {head: 'Busiest hour', key: (entry) => (entry.hour ? entry.hour.point : NaN), rising: true,
    text: (entry) => (entry.hour ? stampText(entry.hour.point) : '–')},
];

const overview = {entries: [], body: null, heads: [], sorted: null};

class OverviewEntry {
  constructor(graph) {
    this.graph = graph;
    this.figures = {mean: NaN, high: NaN, peak: NaN, at: FIRST};
    const name = make('th');
    name.scope = 'row';
    name.append(makeButton('lead', graph.data.title, () => leadTo(graph)));
    this.cells = OVERVIEW_COLUMNS.slice(1).map(() => make('td'));
    this.cells[1].textContent = graph.data.unit;
    this.element = row('td', [name, ...this.cells]);
    this.element.className = 'entry';
  }

  // The work that a first look at a graph takes.
  prepare() {
    if (this.ready) return;
    this.ready = true;
    const level = this.graph.level();
    this.hour = busiestHour(level.values);
    this.figures = level.of(view.from, view.to);
    this.late = true;
    if (this.visible) this.show();
  }

  showLate() {
    if (this.late) this.show();
  }

  show() {
    this.late = false;
    this.figures = this.graph.level().of(view.from, view.to);
    OVERVIEW_COLUMNS.forEach(({text}, place) => {
      if (text) this.cells[place - 1].textContent = text(this);
    });
    if (this.visible) this.showSpark();
  }

  // All of the row, seen or not.
  finish() {
    this.prepare();
    this.showLate();
    this.showSpark();
  }

  // The line is drawn when it comes into sight.
  showSpark() {
    const {values} = this.graph.level();
    const top = highestOf(values, view.from, view.to) || 1;
    const frame = new Frame({x: 0, y: 1, w: SPARK_WIDTH, h: SPARK_HEIGHT - 2}, view.from, view.to, top);
    const spark = svg('svg', {viewBox: `0 0 ${SPARK_WIDTH} ${SPARK_HEIGHT}`, class: 'spark', 'aria-hidden': true});
    spark.append(svg('path', {d: frame.path(values)}));
    this.cells[0].replaceChildren(spark);
  }
}

function sortOverview(column) {
  const {key, rising} = OVERVIEW_COLUMNS[column];
  const turned = overview.sorted === column && !overview.turned;
  const direction = Boolean(rising) !== turned ? 1 : -1;
  Object.assign(overview, {sorted: column, turned});
  for (const entry of overview.entries) entry.showLate();
  const withoutValue = (value) => typeof value === 'number' && Number.isNaN(value);
  overview.entries.sort((a, b) => {
    const [one, other] = [key(a), key(b)];
    if (withoutValue(one) || withoutValue(other)) return withoutValue(one) - withoutValue(other);
    return one < other ? -direction : one > other ? direction : 0;
  });
  overview.body.append(...overview.entries.map((entry) => entry.element));
  overview.heads.forEach((head, place) => {
    if (place === column) head.setAttribute('aria-sort', direction > 0 ? 'ascending' : 'descending');
    else head.removeAttribute('aria-sort');
  });
}

const sparkWatcher = new IntersectionObserver((changes) => {
  for (const change of changes) {
    const {entry} = change.target;
    entry.visible = change.isIntersecting;
    if (entry.visible && entry.ready) {
      entry.showLate();
      entry.showSpark();
    }
  }
}, {rootMargin: '200px 0px'});

// Rows in sight follow the window at once, the others when it rests, or when they are asked for.
function showOverview() {
  for (const entry of overview.entries) {
    entry.late = entry.ready;
    if (entry.visible) entry.showLate();
  }
  showLateRows();
}

const showLateRows = afterRest(150, () => {
  if (overview.entries.length > MOST_AT_REST) return;
  const {from, to} = view;
  inPieces([...overview.entries], (entry) => entry.showLate(), () => {}, () => from !== view.from || to !== view.to);
});

function filterOverview() {
  for (const entry of overview.entries) entry.element.hidden = !matchesSearch(entry.graph);
}

function buildOverview() {
  const charted = graphs.filter((graph) => graph.data.chart);
  if (charted.length < LEAST_GRAPHS) return;
  overview.entries = charted.map((graph) => new OverviewEntry(graph));
  overview.heads = OVERVIEW_COLUMNS.map(({head, key}, place) => {
    const cell = make('th');
    if (key) cell.append(makeButton('sort', head, () => sortOverview(place)));
    else cell.textContent = head;
    return cell;
  });
  const head = make('thead');
  head.append(row('th', overview.heads));
  overview.body = make('tbody');
  const table = make('table');
  table.append(head, overview.body);
  const box = make('div', 'scroll');
  box.tabIndex = 0;
  box.setAttribute('role', 'region');
  box.setAttribute('aria-label', 'Overview of all graphs');
  box.append(table);
  const section = make('section', 'group');
  section.id = 'overview';
  section.append(make('h2', '', 'Overview'), make('p', 'hint', 'Of the window that is seen: the sum of a stack, the ' +
      'highest of traces that are no parts of a whole. The busiest hour is that of the whole span.'), box);
  byId('sections').append(section);
  addLink('Overview', section, '');
  for (const entry of overview.entries) {
    entry.element.entry = entry;
    overview.body.append(entry.element);
    sparkWatcher.observe(entry.element);
  }
  viewListeners.push(showOverview);
  // Rows are worked out one after the other, while the page is there already.
  inPieces([...overview.entries], (entry) => entry.prepare(), () => {
    document.body.dataset.overview = 'ready';
    showLateRows();
  });
}
