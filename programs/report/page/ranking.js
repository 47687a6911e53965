// ---- Lists of what differs most: from the baseline, or in the window at hand ----

const FIRST_ROWS = 12;
const MORE_ROWS = 50;
const LEAST_SCALE = 0.005;

// A section with a list that `ranked` fills, graph by graph: it gives the entries of one graph.
class Ranking {
  constructor(id, title, heads) {
    this.section = make('section', 'group');
    this.section.id = id;
    this.head = make('header', 'head');
    this.head.append(make('h2', '', title));
    this.hint = make('p', 'hint');
    const head = make('thead');
    head.append(row('th', ['Graph', 'Trace', 'Apart', ...heads]));
    this.body = make('tbody');
    const table = make('table', 'ranking');
    table.append(head, this.body);
    this.box = make('div', 'scroll');
    this.box.append(table);
    this.more = makeButton('more', 'Show more', () => this.show(MORE_ROWS));
    this.section.append(this.head, this.hint, this.box, this.more);
    this.run = 0;
  }

  // Works through all graphs in pieces, so that the page stays at hand.
  start(ranked) {
    const run = ++this.run;
    const entries = [];
    this.section.setAttribute('aria-busy', 'true');
    this.say('Working …');
    this.more.hidden = true;
    inPieces(graphs.filter((graph) => graph.data.chart), (graph) => entries.push(...ranked(graph)), () => {
      this.entries = entries.filter((entry) => entry.scale >= LEAST_SCALE).sort((a, b) => b.scale - a.scale);
      this.section.removeAttribute('aria-busy');
      this.show(FIRST_ROWS);
    }, () => run !== this.run);
  }

  show(count) {
    this.body.replaceChildren(...this.entries.slice(0, count).map((entry) => this.entryRow(entry)));
    this.more.hidden = this.entries.length <= count;
    if (this.entries.length === 0) this.say('Nothing lies apart.');
  }

  say(text) {
    const cell = make('td', '', text);
    cell.colSpan = 5;
    this.body.replaceChildren(row('td', [cell]));
  }

  entryRow({graph, set, scale, mean, before}) {
    const name = make('th');
    name.scope = 'row';
    name.append(makeButton('lead', graph.data.title, () => leadTo(graph, set)));
    const bar = make('td', 'scale');
    const fill = make('i');
    fill.style.width = Math.round(Math.min(scale, 1) * 60) + 'px';
    bar.append(fill, scale.toFixed(2));
    const figure = (value) => (Number.isNaN(value) ? 'none' : valueText(value));
    return row('td', [name, graph.data.traces[set].label || 'no label', bar, figure(mean), figure(before)]);
  }
}

// ---- What differs ----

function buildDiffers() {
  if (!report.baseline) return;
  const ranking = new Ranking('differs', 'What differs', ['Mean', 'Before']);
  const {baseline} = report;
  ranking.hint.textContent = 'From the baseline, ' + baseline.what + ': the dashed lines. “Apart” is the distance of both ' +
      'distributions as a share of the graph’s height.';
  if (baseline.only.length > 0) ranking.section.append(onlyThere(baseline.only));
  byId('sections').append(ranking.section);
  addLink('What differs', ranking.section, '');
  ranking.start((graph) => {
    const before = beforeOf(graph);
    if (!before || !before.graph.chart) return [];
    const theirs = valuesOf(before.graph, baseline).map((values) => values.slice(baseline.first, baseline.last + 1));
    const here = valuesOf(graph.data).map((values) => values.slice(FIRST, LAST + 1));
    return rankGraph(graph, here, before.places.map((place) => (place < 0 ? null : theirs[place])));
  });
}

function onlyThere(missing) {
  const details = make('details');
  details.append(make('summary', '', 'Graphs that only the baseline has: ' + missing.length),
      make('p', 'hint', missing.join(', ')));
  return details;
}

// ---- What happened here ----

const REST = 'the rest of the span';
const WINDOW_BEFORE = 'the window before it';

function buildHappened() {
  const ranking = new Ranking('happened', 'What happened here', ['Mean here', 'Mean there']);
  const choice = make('select');
  choice.setAttribute('aria-label', 'The window is compared with');
  for (const text of [REST, WINDOW_BEFORE]) choice.append(make('option', '', text));
  ranking.head.append(choice, makeButton('', 'Close', () => show(false)));
  ranking.section.hidden = true;
  byId('sections').append(ranking.section);

  const compare = () => {
    if (ranking.section.hidden) return;
    const {from, to} = view;
    const rest = choice.value === REST;
    ranking.hint.textContent = windowText(from, to) + ' beside ' + choice.value + '.';
    const begin = Math.max(FIRST, from - (to - from + 1));
    const possible = rest ? !isWhole() : begin < from;
    if (!possible) {
      ranking.hint.textContent = rest ? 'The window is the whole span: zoom into a part of it first.'
        : 'There is nothing before the window.';
      ranking.start(() => []);
      return;
    }
    const there = (values) => {
      if (!rest) return values.slice(begin, from);
      const others = new Float64Array(LAST - FIRST + 1 - (to - from + 1));
      others.set(values.subarray(FIRST, from));
      others.set(values.subarray(to + 1, LAST + 1), from - FIRST);
      return others;
    };
    ranking.start((graph) => {
      const values = valuesOf(graph.data);
      return rankGraph(graph, values.map((own) => own.slice(from, to + 1)), values.map(there));
    });
  };
  const show = (shown) => {
    ranking.section.hidden = !shown;
    byId('what').setAttribute('aria-expanded', String(shown));
    compare();
    if (shown) ranking.section.scrollIntoView({block: 'start'});
  };
  choice.addEventListener('change', compare);
  byId('what').addEventListener('click', () => show(ranking.section.hidden));
  viewListeners.push(afterRest(250, compare));
}
