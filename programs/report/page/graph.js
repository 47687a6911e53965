// ---- A graph: its card, its figures, and its chart while it is in view ----

// What a reader of a graph asks, by the words of its title.
const HINTS = [
  [/by resident memory$/i, 'The sum of what the processes hold; memory that several share counts for each of them.'],
  [/workload classes/i, 'Classes of processes, by their users and commands. Without a class file of your own ' +
      '(--classes FILE, see docs/classes.md) they are five that few hosts of today fill.'],
];
const VIEW = 'A view of this page: ozmo_graph hasn’t got this graph, so it is here and in --csv only.';
const UNNAMED = 'ozmo_graph -item finds an earlier graph of this title, so this one is here and in --csv only.';

const graphs = [];  // all of the report, in its order

class Graph {
  constructor(data, section) {
    this.data = data;
    this.section = section;
    this.title = (data.title + ' ' + section.label).toLowerCase();
    this.traceWords = data.traces.map((trace) => trace.label.toLowerCase());
    this.shown = data.traces.map(() => true);
    this.lines = linesFirst(data);
    this.linesAtFirst = this.lines;
    this.chart = null;
    this.card = null;
    this.key = uniqueKey(slugOf(data.title));
    graphs.push(this);
  }

  // One value a point for the whole graph, and its figures.
  level() {
    if (!this.levelFigures) {
      this.levelFigures = new Figures(levelOf(this.values || valuesOf(this.data), this.linesAtFirst, report.points));
    }
    return this.levelFigures;
  }

  // The card, made when it is first asked for.
  element() {
    if (this.card) return this.card;
    const card = make('article', 'graph');
    card.id = this.key;
    const head = make('header');
    head.append(make('h4', '', this.data.title), make('span', 'unit', this.data.unit));
    if (this.data.chart) head.append(toolsOf(this));
    this.foundLine = make('p', 'hint');
    this.foundLine.hidden = true;
    const body = make('div', 'body');
    if (this.data.chart) {
      body.append(this.plotElement());
      watcher.observe(card);
      sight.observe(card);
    } else {
      body.append(make('p', 'without', 'No chart: the page has no room for its points.'));
    }
    body.append(this.figuresElement());
    card.append(head, this.foundLine, body, ...this.hints());
    card.graph = this;
    this.card = card;
    return card;
  }

  hints() {
    const texts = HINTS.filter(([words]) => words.test(this.data.title)).map(([, text]) => text);
    if (this.data.view) texts.push(VIEW);
    if (this.data.unnamed) texts.push(UNNAMED);
    if (beforeHint(this)) texts.push(beforeHint(this));
    return texts.map((text) => make('p', 'hint', text));
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
    this.timeHead = make('th', '', 'Value');
    const heads = [make('th', '', 'Trace'), this.timeHead, 'Mean', '95th', 'Peak', make('th', 'at', 'At')];
    if (report.baseline) heads.push('Before');
    const head = make('thead');
    head.append(row('th', heads));
    const body = make('tbody');
    this.rows = this.data.traces.map((trace, set) => this.traceRow(trace, set));
    body.append(...this.rows.map((cells) => cells.element));
    const table = make('table');
    table.append(head, body);
    this.hourLine = make('p', 'hour');
    const figures = make('div', 'figures');
    figures.append(table, this.hourLine);
    if (!this.data.chart) {
      this.rows.forEach((cells, set) => {
        const {mean, peak, at} = this.data.traces[set];
        cells.show({mean, high: NaN, peak, at});
      });
    }
    return figures;
  }

  traceRow(trace, set) {
    const element = make('tr');
    const name = make('th');
    name.scope = 'row';
    const button = makeButton('trace', undefined, (event) => this.toggle(set, event.shiftKey));
    button.setAttribute('aria-pressed', 'true');
    const swatch = make('i');
    swatch.style.background = bandColour(trace.colour);
    button.append(swatch, make('span', '', trace.label || 'no label'));
    button.disabled = !this.data.chart;
    name.append(button);
    const [value, mean, high, peak, at] = ['value', '', '', '', 'at'].map((kind) => make('td', kind, '–'));
    element.append(name, value, mean, high, peak, at);
    if (report.baseline) element.append(make('td', '', beforeText(this, set)));
    const show = (figures) => {
      mean.textContent = valueText(figures.mean);
      high.textContent = valueText(figures.high);
      peak.textContent = valueText(figures.peak);
      at.textContent = SEVERAL_DAYS ? dayText(figures.at) + ' ' + timeText(figures.at) : timeText(figures.at);
      peak.title = 'at ' + stampText(figures.at);
    };
    return {element, button, value, show};
  }

  toggle(set, alone) {
    if (alone) {
      const only = this.shown.every((shown, other) => shown === (other === set));
      this.shown = this.shown.map((_, other) => only || other === set);
    } else {
      this.shown[set] = !this.shown[set];
    }
    this.rows.forEach((cells, other) => {
      cells.button.setAttribute('aria-pressed', String(this.shown[other]));
      cells.element.classList.toggle('off', !this.shown[other]);
    });
    this.showChart();
  }

  setLines(lines) {
    this.lines = lines;
    if (this.tools) this.tools.showLines();
    if (this.chart) this.redraw();
  }

  showChart() {
    late.delete(this);
    if (!this.chart) return;
    this.chart.updateOptions(windowOptions(this));
    this.followFigures();
    this.showPoint();
  }

  followFigures() {
    if (this.chart && this.figuresAt !== view.changes) this.showFigures();
  }

  // Figures of the window that is seen.
  showFigures() {
    this.figuresAt = view.changes;
    this.rows.forEach((cells, set) => {
      this.figures[set] = this.figures[set] || new Figures(this.values[set]);
      cells.show(this.figures[set].of(view.from, view.to));
    });
    const hour = isWhole() ? busiestHour(this.level().values) : null;
    this.hourLine.textContent = hour ? 'Busiest hour: ' + stampText(hour.point) + ', mean ' + valueText(hour.mean) : '';
  }

  showPoint() {
    const visible = inspected !== null && inspected >= view.from && inspected <= view.to;
    this.cursor.style.display = visible ? 'block' : 'none';
    this.stamp.style.display = visible ? 'block' : 'none';
    this.timeHead.textContent = inspected === null ? 'Value' : timeText(inspected);
    this.rows.forEach((cells, set) => {
      cells.value.textContent = inspected === null ? '–' : valueText(this.values[set][inspected]);
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
    const values = this.rows.filter((_, set) => this.shown[set]).slice(0, 12)
        .map((cells) => cells.button.textContent + ' ' + cells.value.textContent);
    this.plot.setAttribute('aria-valuetext', stampText(inspected) + ': ' + values.join(', '));
  }

  pointAt(clientX) {
    return pointOf(this.chart.toDataXCoord(clientX - this.plot.getBoundingClientRect().left));
  }

  // The values, whether the chart is drawn or not.
  ownValues() {
    return this.values || valuesOf(this.data);
  }

  // One value a point of what is shown.
  shownLevel(values) {
    const kind = this.lines + ' ' + this.shown;
    if (this.levelKind !== kind) {
      this.levelShown = levelOf(values.filter((_, set) => this.shown[set]), this.lines, report.points);
      this.levelKind = kind;
    }
    return this.levelShown;
  }

  // The top of the axis. It is that of the tool's plots as long as the whole stack is shown, else it follows what is.
  topOf(values, from, to) {
    const before = beforeLines(this).reduce((most, line) => Math.max(most, highestOf(line.values, from, to)), 0);
    if (this.data.top > 0 && !this.lines && this.shown.every((shown) => shown)) return Math.max(this.data.top, before);
    const highest = Math.max(before, highestOf(this.shownLevel(values), from, to));
    return highest > 0 ? highest * 1.05 : 1;
  }

  draw() {
    if (this.chart || !this.data.chart) return;
    this.values = valuesOf(this.data);
    this.figures = [];
    this.chart = makeChart(this);
    live.add(this);
    this.showFigures();
    this.showPoint();
  }

  erase() {
    if (!this.chart) return;
    live.delete(this);
    late.delete(this);
    this.chart.destroy();
    this.chart = null;
    this.values = null;
    this.figures = null;
    this.levelKind = this.levelShown = null;
  }

  redraw() {
    this.erase();
    this.draw();
  }
}

const takenKeys = new Set();
function uniqueKey(slug) {
  let key = slug;
  for (let number = 2; takenKeys.has(key); ++number) key = slug + '_' + number;
  takenKeys.add(key);
  return key;
}

function highestOf(values, from, to) {
  let highest = 0;
  for (let point = from; point <= to; ++point) if (values[point] > highest) highest = values[point];
  return highest;
}
