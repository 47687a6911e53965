// ---- The baseline: its graphs and traces beside those of the report ----

const TOP_RANK = /^(#\d+|\d+\.)\s+/;  // in front of what a trace of a Top list names
const graphName = (title) => title.toLowerCase().replace(/\s+/g, ' ');

// Names of traces, told apart by a number where one is there twice.
function traceNames(traces) {
  const uses = new Map();
  return traces.map((trace) => {
    const name = trace.label.replace(TOP_RANK, '').trim();
    const number = uses.get(name) || 0;
    uses.set(name, number + 1);
    return number === 0 ? name : name + '\n' + number;
  });
}

const baselineGraphs = new Map();
for (const section of report.baseline ? report.baseline.sections : []) {
  for (const graph of section.graphs) {
    if (!baselineGraphs.has(graphName(graph.title))) baselineGraphs.set(graphName(graph.title), graph);
  }
}

// Of a graph of the report: {graph, places}, the place of each of its traces among those of the baseline's graph,
// -1 for none; null where the baseline hasn't got the graph.
function beforeOf(graph) {
  if (graph.before !== undefined) return graph.before;
  const found = baselineGraphs.get(graphName(graph.data.title));
  graph.before = null;
  if (found) {
    const names = traceNames(found.traces);
    graph.before = {graph: found, places: traceNames(graph.data.traces).map((name) => names.indexOf(name))};
  }
  return graph.before;
}

function beforeText(graph, set) {
  const before = beforeOf(graph);
  const place = before ? before.places[set] : -1;
  return place < 0 ? 'none' : valueText(before.graph.traces[place].mean);
}

// What only one of both has, as a line of a card.
function beforeHint(graph) {
  if (!report.baseline) return '';
  const before = beforeOf(graph);
  if (!before) return 'The baseline hasn’t got this graph.';
  const missing = before.graph.traces.filter((_, place) => !before.places.includes(place));
  if (missing.length === 0) return '';
  return 'Only the baseline has ' + missing.map((trace) =>
    trace.label.replace(TOP_RANK, '') + ' (mean ' + valueText(trace.mean) + ')').join(', ') + '.';
}

// Seconds by the clock from the begin of a span to one of its points.
const clockSeconds = (point, span) => 60 * point + offsetAt(point, span) - span.offsets[0][1];

// For each point of the report the baseline's at the same time of day; NaN where the baseline has none, as in an hour
// that its clock leaves out.
let samePoints = null;
function pointsBefore() {
  const {baseline} = report;
  samePoints = samePoints || Array.from({length: report.points}, (_, point) => {
    const clock = clockSeconds(point, report);
    const found = (2 * clock - clockSeconds(clock / 60, baseline)) / 60;
    const isThere = found >= baseline.first && found <= baseline.last && clockSeconds(found, baseline) === clock;
    return isThere ? found : NaN;
  });
  return samePoints;
}

// The baseline's lines of a chart, {values, colour}: of a stack the sum, or of what is picked; of lines each.
function beforeLines(graph) {
  const before = report.baseline && beforeOf(graph);
  if (!before || !before.graph.chart) return [];
  const kind = graph.lines + ' ' + graph.shown;
  if (graph.beforeKind === kind) return graph.beforeDrawn;
  const own = valuesOf(before.graph, report.baseline);
  const picked = before.places.filter((place, set) => graph.shown[set] && place >= 0);
  const fitted = (values) => Float64Array.from(pointsBefore(), (point) => (Number.isNaN(point) ? NaN : values[point]));
  let lines;
  if (graph.lines) {
    lines = before.places.flatMap((place, set) => (graph.shown[set] && place >= 0
      ? [{values: fitted(own[place]), colour: graph.data.traces[set].colour}] : []));
  } else {
    const all = graph.shown.every((shown) => shown);
    const parts = all ? own : picked.map((place) => own[place]);
    lines = parts.length > 0 ? [{values: fitted(levelOf(parts, false, report.baseline.points))}] : [];
  }
  graph.beforeKind = kind;
  graph.beforeDrawn = lines;
  return lines;
}

// ---- How far two distributions lie apart ----

const QUANTILES = 200;

// The mean distance of the quantiles of both, in the unit of the values.
function distance(a, b) {
  let sum = 0;
  for (let i = 0; i < QUANTILES; ++i) {
    const share = (i + 0.5) / QUANTILES;
    sum += Math.abs(a[Math.floor(share * a.length)] - b[Math.floor(share * b.length)]);
  }
  return sum / QUANTILES;
}

const meanOf = (values) => values.reduce((sum, value) => sum + value, 0) / values.length;
const ZEROS = new Float64Array(1);

// Ranks the traces of one graph: `here` and `there` give the values of each, or null. The scale has no unit: it is the
// distance as a share of what the graph's level reaches (its 95th percentile) where it reaches more.
function rankGraph(graph, here, there) {
  const sets = graph.data.traces.map((trace, set) => ({set, a: here[set], b: there[set]}))
      .filter(({a, b}) => (a && a.length > 0) || (b && b.length > 0));
  const height = (values) => {
    const known = values.filter((own) => own && own.length > 0);
    if (known.length === 0) return 0;
    const level = levelOf(known, graph.linesAtFirst, Math.min(...known.map((own) => own.length)));
    const sorted = sortedValues(level, 0, level.length - 1);
    return sorted.length > 0 ? sorted[Math.ceil(sorted.length * PERCENTILE) - 1] : 0;
  };
  const reached = Math.max(height(here), height(there));
  if (!(reached > 0)) return [];
  return sets.map(({set, a, b}) => {
    const [one, other] = [a, b].map((values) => (values ? sortedValues(values, 0, values.length - 1) : ZEROS));
    if (one.length === 0 || other.length === 0) return null;
    return {graph, set, scale: distance(one, other) / reached, mean: a ? meanOf(one) : NaN, before: b ? meanOf(other) : NaN};
  }).filter((entry) => entry !== null);
}
