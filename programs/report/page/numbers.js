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
const BLOCK = 512;
const SMALL = 4096;  // so many points are sorted as they are

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

// Figures of any stretch of one trace, within a fraction of a millisecond whatever its length: sums, peaks and sorted
// values of blocks are kept, so only the points at both ends are looked at.
class Figures {
  constructor(values) {
    this.values = values;
    this.blocks = [];
  }

  block(number) {
    if (this.blocks[number]) return this.blocks[number];
    const from = number * BLOCK;
    const to = Math.min(from + BLOCK, this.values.length) - 1;
    return (this.blocks[number] = this.plain(from, to));
  }

  // {sum, peak, at, sorted} of a short stretch.
  plain(from, to) {
    let sum = 0;
    let peak = -Infinity;
    let at = from;
    for (let point = from; point <= to; ++point) {
      const value = this.values[point];
      if (Number.isNaN(value)) continue;
      sum += value;
      if (value > peak) {
        peak = value;
        at = point;
      }
    }
    return {sum, peak, at, sorted: sortedValues(this.values, from, to)};
  }

  parts(from, to) {
    if (to - from < SMALL) return [this.plain(from, to)];
    const first = Math.ceil(from / BLOCK);
    const last = Math.floor((to + 1) / BLOCK);
    const parts = [];
    if (from < first * BLOCK) parts.push(this.plain(from, first * BLOCK - 1));
    for (let number = first; number < last; ++number) parts.push(this.block(number));
    if (last * BLOCK <= to) parts.push(this.plain(last * BLOCK, to));
    return parts;
  }

  // Mean, 95th percentile (the smallest value that 95 of 100 points don't exceed), peak and its first point.
  of(from, to) {
    const parts = this.parts(from, to);
    let count = 0;
    let sum = 0;
    let peak = -Infinity;
    let at = from;
    for (const part of parts) {
      count += part.sorted.length;
      sum += part.sum;
      if (part.peak > peak) {
        peak = part.peak;
        at = part.at;
      }
    }
    if (count === 0) return {mean: NaN, high: NaN, peak: NaN, at};
    return {mean: sum / count, high: this.percentile(parts, Math.ceil(count * PERCENTILE)), peak, at};
  }

  // The value at `rank`, from 1, of all parts together: bisected in hundredths, which is what values are made of.
  percentile(parts, rank) {
    if (parts.length === 1) return parts[0].sorted[rank - 1];
    let low = Math.min(...parts.map((part) => (part.sorted.length > 0 ? Math.round(part.sorted[0] * 100) : Infinity)));
    let high = Math.max(...parts.map((part) => Math.round(part.peak * 100)));
    while (low < high) {
      const middle = Math.floor((low + high) / 2);
      let count = 0;
      for (const part of parts) count += countUpTo(part.sorted, middle / 100);
      if (count >= rank) high = middle;
      else low = middle + 1;
    }
    return low / 100;
  }
}

// The clock's hour with the greatest mean, {point, mean}; null where the file covers less than two hours.
function busiestHour(values) {
  let best = null;
  const lead = (60 - Math.floor(clockAt(FIRST).getTime() / POINT_MS) % 60) % 60;
  // An hour of which the file has a part counts from three quarters on.
  for (let hour = FIRST + lead - 60; hour <= LAST; hour += 60) {
    const from = Math.max(hour, FIRST);
    const to = Math.min(hour + 59, LAST);
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
