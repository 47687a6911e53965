// ---- The map of hosts by hours, in the order of the table ----

const SHARE_OF_WINDOW = 0.5;  // that the map takes at most, so that the table is in sight
const LEAST_MAP = 240;     // pixels; with more rows than the map has, several share one
const HIGHEST_MAP = 720;
const HIGHEST_CELL = 18;
const NAMED_CELL = 11;     // from this height on a row has its host's name beside it
const NAME_WIDTH = 120;
const CLOCK_HEIGHT = 16;
const TOP_SHARE = 0.99;    // of a figure without an upper end, this share of the means is below the darkest colour

const map = {figure: 0, hours: 1, bins: [], height: 0, left: 0, step: 0, top: 100, at: null, frame: 0, timer: 0};

// From nothing to the top: what is busy stands out from the page.
const LIGHT = [[244, 238, 226], [240, 160, 60], [176, 28, 20]];
const DARK = [[38, 36, 33], [176, 96, 24], [255, 176, 120]];
const darkPage = matchMedia('(prefers-color-scheme: dark)');

function colourOf(share) {
  const [cold, warm, hot] = darkPage.matches ? DARK : LIGHT;
  const [from, to, part] = share < 0.5 ? [cold, warm, share * 2] : [warm, hot, share * 2 - 1];
  return `rgb(${from.map((value, i) => Math.round(value + (to[i] - value) * part)).join(',')})`;
}

function topOf(figure) {
  if (DATA.figures[figure].unit === '%') return 100;
  const means = DATA.rows.flatMap((row) => hoursOf(row, figure)).filter((mean) => mean > 0).sort((a, b) => a - b);
  return means.length ? means[Math.floor((means.length - 1) * TOP_SHARE)] : 1;
}

// What a bin of rows shows at an hour of the clock: its highest mean and whose it is, or null. A row has two hours there
// where the clock was set back.
function cellAt(bin, hour) {
  let best = null;
  for (const row of bin) {
    const means = hoursOf(row, map.figure);
    row.clock.forEach(([from, shift], part) => {
      const end = part + 1 < row.clock.length ? row.clock[part + 1][0] : means.length;
      const mean = hour - shift >= from && hour - shift < end ? means[hour - shift] : NaN;
      if (mean >= 0 && !(best && best.mean >= mean)) best = {row, mean};
    });
  }
  return best;
}

const highest = () => Math.max(LEAST_MAP, Math.min(HIGHEST_MAP, Math.floor(innerHeight * SHARE_OF_WINDOW)));

// Rows cut into as many bins as the map has lines for.
function binsOf(rows) {
  const count = Math.min(rows.length, highest());
  return Array.from({length: count}, (_, i) =>
    rows.slice(Math.floor(rows.length * i / count), Math.floor(rows.length * (i + 1) / count)));
}

// Names of hosts and hours of the clock.
function drawLabels(ink) {
  ink.fillStyle = getComputedStyle(document.body).color;
  ink.font = '11px ' + getComputedStyle(document.body).fontFamily;
  ink.textBaseline = 'middle';
  for (let hour = 0; hour < map.hours; hour += Math.max(1, Math.ceil(40 / map.step))) {
    ink.fillText(two(hour % 24) + ':00', xOf(hour), CLOCK_HEIGHT / 2);
  }
  if (!map.left) return;
  map.bins.forEach(([row], line) => ink.fillText(row.cells[HOST], 0, yOf(line) + map.height / 2, NAME_WIDTH - 8));
}

const xOf = (hour) => map.left + hour * map.step;
const yOf = (line) => CLOCK_HEIGHT + line * map.height;

function drawMap() {
  const canvas = byId('heat');
  map.bins = binsOf(view.rows);
  map.height = Math.max(1, Math.min(HIGHEST_CELL, Math.floor(highest() / Math.max(1, map.bins.length))));
  map.left = map.height >= NAMED_CELL ? NAME_WIDTH : 0;
  const width = canvas.clientWidth;
  const height = yOf(map.bins.length);
  map.step = (width - map.left) / map.hours;
  const ratio = window.devicePixelRatio || 1;
  canvas.style.height = height + 'px';
  canvas.width = Math.round(width * ratio);
  canvas.height = Math.round(height * ratio);
  const ink = canvas.getContext('2d');
  ink.scale(ratio, ratio);
  const gap = map.height > 4 ? 1 : 0;
  map.bins.forEach((bin, line) => {
    for (let hour = 0; hour < map.hours; ++hour) {
      const cell = cellAt(bin, hour);
      if (!cell) continue;
      ink.fillStyle = colourOf(Math.min(cell.mean / map.top, 1));
      const left = Math.round(xOf(hour));  // no seam in the middle of a pixel
      ink.fillRect(left, yOf(line), Math.round(xOf(hour + 1)) - left - gap, map.height - gap);
    }
  });
  drawLabels(ink);
  hideMark();
}

// Once, however many keys were typed into the filter, and after the browser has painted the table: of ten thousand rows
// the map takes longer than that.
function drawSoon() {
  cancelAnimationFrame(map.frame);
  clearTimeout(map.timer);
  map.frame = requestAnimationFrame(() => { map.timer = setTimeout(drawMap); });
}

const two = (number) => String(number).padStart(2, '0');

// The name of the disk or the like that a row shows.
function whichOf(row) {
  const place = placeOf(DATA.figures[map.figure].word + '_name');
  return place >= 0 && row.cells[place] ? ' ' + row.cells[place] : '';
}

function mapText(line, hour) {
  const bin = map.bins[line];
  const cell = cellAt(bin, hour);
  const clock = `${two(hour % 24)}:00`;
  if (!cell) return `${nameOf(bin[0])}, ${clock}: no data`;
  const {heading, unit} = DATA.figures[map.figure];
  const others = bin.length > 1 ? `, the highest of ${bin.length}` : '';
  return `${nameOf(cell.row)}, ${clock}: ${heading}${whichOf(cell.row)} ${cell.mean} ${unit}${others}`;
}

function hideMark() {
  map.at = null;
  byId('mark').hidden = byId('tip').hidden = true;
  byId('cell').textContent = '';
}

// Shows what is at a line and hour, with a tip for the pointer and a text for readers.
function showCell(line, hour) {
  if (!map.bins.length) return;
  map.at = {line: Math.max(0, Math.min(line, map.bins.length - 1)), hour: Math.max(0, Math.min(hour, map.hours - 1))};
  const [x, y] = [xOf(map.at.hour), yOf(map.at.line)];
  const mark = byId('mark');
  mark.style.cssText = `left:${x - 2}px;top:${y - 2}px;width:${map.step + 3}px;height:${map.height + 3}px`;
  const tip = byId('tip');
  tip.textContent = byId('cell').textContent = mapText(map.at.line, map.at.hour);
  mark.hidden = tip.hidden = false;
  const left = Math.min(x + map.step + 6, byId('heat').clientWidth - tip.offsetWidth);
  tip.style.cssText = `left:${Math.max(0, left)}px;top:${y + map.height + 6}px`;
}

function leadFromMap() {
  if (!map.at) return;
  const cell = cellAt(map.bins[map.at.line], map.at.hour);
  leadTo(cell ? cell.row : map.bins[map.at.line][0]);
}

const MOVES = {ArrowUp: [-1, 0], ArrowDown: [1, 0], ArrowLeft: [0, -1], ArrowRight: [0, 1], PageUp: [-20, 0],
  PageDown: [20, 0], Home: [0, -Infinity], End: [0, Infinity]};

function onMapKey(event) {
  if (event.key === 'Enter') return leadFromMap();
  if (event.key === 'Escape') return hideMark();
  const move = MOVES[event.key];
  if (!move) return;
  event.preventDefault();
  if (map.at) showCell(map.at.line + move[0], map.at.hour + move[1]);
  else showCell(0, 0);
}

function onMapMove(event) {
  const box = byId('heat').getBoundingClientRect();
  showCell(Math.floor((event.clientY - box.top - CLOCK_HEIGHT) / map.height),
      Math.floor((event.clientX - box.left - map.left) / map.step));
}

// The scale: from nothing to the top, in the colours of the map.
function showScale() {
  const {heading, unit} = DATA.figures[map.figure];
  const scale = byId('scale');
  const top = Number(map.top.toPrecision(3));
  scale.replaceChildren(`${heading}, mean of each hour: 0 `);
  for (let share = 0; share <= 1; share += 0.125) {
    const colour = make('i', 'colour');
    colour.style.cssText = `display:inline-block;width:18px;height:10px;background:${colourOf(share)}`;
    scale.append(colour);
  }
  scale.append(` ${top}\u00a0${unit}${unit === '%' ? '' : ' and more'}`);
}

function chooseFigure(figure) {
  map.figure = figure;
  map.top = topOf(figure);
  showScale();
  drawMap();
}

function buildMap() {
  const select = byId('figure');
  DATA.figures.forEach((figure, number) => {
    if (!DATA.rows.some((row) => row.hours[number])) return;
    const option = make('option', '', figure.heading);
    option.value = number;
    select.append(option);
  });
  map.hours = DATA.hours;
  select.addEventListener('change', () => chooseFigure(Number(select.value)));
  const canvas = byId('heat');
  canvas.addEventListener('keydown', onMapKey);
  canvas.addEventListener('pointermove', onMapMove);
  canvas.addEventListener('pointerleave', hideMark);
  canvas.addEventListener('click', leadFromMap);
  listeners.push(drawSoon);
  new ResizeObserver(drawSoon).observe(canvas.parentElement);
  addEventListener('resize', drawSoon);
  darkPage.addEventListener('change', () => {
    showScale();
    drawSoon();
  });
  map.figure = Number(select.value);  // the first that a host has
  map.top = topOf(map.figure);
  showScale();
}
