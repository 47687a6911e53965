// ---- Numbers: how they are written, and the figures of a stretch of points ----

// Two decimals as in the CSV files, up to where nobody reads them.
const LARGE = 10000;
function valueText(value) {
  if (!Number.isFinite(value)) return '–';
  return Math.abs(value) >= LARGE ? String(Math.round(value)) : value.toFixed(2);
}

// Labels of a value axis from 0 to `top`, {value, text}: round steps, all in one unit.
function valueTicks(top, pixels) {
  const most = Math.max(1, Math.floor(pixels / 38));
  const least = top / most;
  const power = 10 ** Math.floor(Math.log10(least));
  const step = power * [1, 2, 5, 10].find((factor) => factor * power >= least * (1 - 1e-9));
  const [size, letter] = [[1e9, 'G'], [1e6, 'M'], [1e3, 'k'], [1, '']].find(([unit]) =>
    unit === 1 || top >= (unit === 1e3 ? LARGE : unit));
  const ticks = [];
  for (let i = 0; i * step <= top * (1 + 1e-9); ++i) {
    const value = i * step;
    ticks.push({value, text: value === 0 ? '0' : Number((value / size).toPrecision(6)) + letter});
  }
  return ticks;
}

const PERCENTILE = 0.95;
const BLOCK = 64;

const countUpTo = (sorted, value) => {
  let low = 0;
  let high = sorted.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if (sorted[middle] <= value) low = middle + 1;
    else high = middle;
  }
  return low;
};

// The sorted values of a stretch, without the points that have none.
function sortedValues(values, from, to) {
  return values.slice(from, to + 1).filter((value) => !Number.isNaN(value)).sort();
}

// The points that have a value, the highest first, and of equal ones the earliest first.
function pointsByRank(values) {
  const sorted = sortedValues(values, 0, values.length - 1);
  const order = new Uint32Array(sorted.length);
  const equals = new Uint32Array(sorted.length + 1);  // how many of a value are placed
  for (let point = 0; point < values.length; ++point) {
    if (Number.isNaN(values[point])) continue;
    const place = countUpTo(sorted, values[point]);
    order[sorted.length - place + equals[place]++] = point;
  }
  return order;
}

// Figures of any stretch of one trace, in microseconds for a month: sums and counts are kept up to each block, and the
// points by rank, of which a stretch has its share of high ones early.
class Figures {
  constructor(values) {
    this.values = values;
    this.order = pointsByRank(values);
    const blocks = Math.floor(values.length / BLOCK) + 1;
    this.sums = new Float64Array(blocks);
    this.counts = new Uint32Array(blocks);
    for (let block = 1; block < blocks; ++block) {
      [this.sums[block], this.counts[block]] = this.before(block * BLOCK, block - 1);
    }
  }

  // [sum, count] of all points before `end`, from those of an earlier block on.
  before(end, block = Math.floor(end / BLOCK)) {
    let sum = this.sums[block];
    let count = this.counts[block];
    for (let point = block * BLOCK; point < end; ++point) {
      if (Number.isNaN(this.values[point])) continue;
      sum += this.values[point];
      ++count;
    }
    return [sum, count];
  }

  // Mean, 95th percentile (the smallest value that 95 of 100 points don't exceed), peak and its first point. A page of
  // one minute has a second point, so that there is a line, but no figures of it.
  of(from, last) {
    const {values, order} = this;
    const to = Math.min(last, report.last);
    const [sumBefore, countBefore] = this.before(from);
    const [sum, countUpToEnd] = this.before(to + 1);
    const count = countUpToEnd - countBefore;
    if (count === 0) return {mean: NaN, high: NaN, peak: NaN, at: from};
    let place = 0;
    const next = () => {
      while (order[place] < from || order[place] > to) ++place;
      return order[place++];
    };
    const at = next();
    let point = at;
    for (let higher = count - Math.ceil(count * PERCENTILE); higher > 0; --higher) point = next();
    return {mean: (sum - sumBefore) / count, high: values[point], peak: values[at], at};
  }
}

// The clock's hour with the greatest mean, {point, mean}; null where the file covers less than two hours. A point is named
// by the end of its minute: the hour from 13:00 has the points 13:01 to 14:00.
function busiestHour(values) {
  let best = null;
  const lead = (60 - Math.floor(clockAt(FIRST).getTime() / POINT_MS) % 60) % 60;
  // An hour of which the file has a part counts from three quarters on.
  for (let hour = FIRST + lead - 60; hour <= LAST; hour += 60) {
    const from = Math.max(hour + 1, FIRST);
    const to = Math.min(hour + 60, LAST);
    let sum = 0;
    let count = 0;
    for (let point = from; point <= to; ++point) {
      if (Number.isNaN(values[point])) continue;
      sum += values[point];
      ++count;
    }
    if (count >= 45 && (!best || sum / count > best.mean)) best = {point: hour, mean: sum / count};
  }
  return LAST - FIRST < 119 ? null : best;
}
