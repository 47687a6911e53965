// ---- Data: the report's JSON, and the values of its traces ----

const report = JSON.parse(document.getElementById('data').textContent);

// The part of the span that the file covers, in points. A point is a minute after the start.
const FIRST = report.first;
const LAST = Math.max(report.last, FIRST + 1);

const DIGITS = new Uint8Array(128);
[...'ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/'].forEach((letter, digit) => {
  DIGITS[letter.charCodeAt(0)] = digit;
});
const WITHOUT_VALUE = '!'.charCodeAt(0);

// Values of a trace from its text: differences of whole parts, of which `scale` make 1, after a difference of 0 how many
// more follow.
function decode(text, count, scale) {
  const values = new Float64Array(count);
  let place = 0;
  const number = () => {
    let result = 0;
    let factor = 1;
    for (;;) {
      const digit = DIGITS[text.charCodeAt(place++)];
      result += (digit & 31) * factor;
      if (digit < 32) return result;
      factor *= 32;
    }
  };
  let parts = 0;
  for (let i = 0; i < count && place < text.length;) {
    if (text.charCodeAt(place) === WITHOUT_VALUE) {
      ++place;
      values[i++] = NaN;
      continue;
    }
    const code = number();
    parts += code % 2 === 1 ? -(code + 1) / 2 : code / 2;
    for (let more = code === 0 ? number() : 0; more >= 0 && i < count; --more) values[i++] = parts / scale;
  }
  return values;
}

// The values of all traces of a graph, whose points are of `span`: the report, or what it is compared with.
const valuesOf = (graph, span = report) => graph.traces.map((trace) =>
  decode(trace.points, span.points, graph.scale || 100));

// One value a point for a whole graph: the sum of a stack, the highest of lines, in hundredths as the traces.
function levelOf(values, lines, count) {
  const level = new Float64Array(count);
  for (let point = 0; point < count; ++point) {
    let sum = 0;
    let highest = -Infinity;
    let found = 0;
    for (const own of values) {
      const value = own[point];
      if (Number.isNaN(value)) continue;
      ++found;
      sum += value;
      if (value > highest) highest = value;
    }
    if (found === 0) level[point] = NaN;
    else level[point] = lines ? highest : Math.round(sum * 100) / 100;
  }
  return level;
}

// Traces that are no parts of a whole: their sum says nothing, so they begin as lines.
const LINES_FIRST = [/^top 10 disks by (queue|util|space)/i, /^response time of/i, /by adapter$/i,
  /^top ten file systems/i];
const linesFirst = (graph) => graph.traces.length > 1 && LINES_FIRST.some((form) => form.test(graph.title));

// A name for addresses and files: letters and digits of ASCII in small letters, "_" for the rest.
function slugOf(text) {
  return text.toLowerCase().replace(/[^a-z0-9]+/g, '_').replace(/^_|_$/g, '').slice(0, 120) || 'graph';
}
