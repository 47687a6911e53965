// ---- State that all charts share: the window, and the point under inspection ----

const view = {from: FIRST, to: LAST, changes: 0};  // points
let inspected = null;                  // point, or null
const live = new Set();                // graphs whose charts are drawn now
const viewListeners = [];              // run after the window has changed

const SMALLEST_WINDOW = 4;

function setView(from, to) {
  const length = Math.min(Math.max(to - from, SMALLEST_WINDOW), LAST - FIRST);
  const begin = Math.round(Math.min(Math.max(from, FIRST), LAST - length));
  const end = Math.round(begin + length);
  if (begin === view.from && end === view.to) return;
  view.from = begin;
  view.to = end;
  ++view.changes;
  showCharts();
  for (const listener of viewListeners) listener();
}

const isWhole = () => view.from === FIRST && view.to === LAST;

function zoom(factor, centre) {
  const length = (view.to - view.from) * factor;
  const middle = centre === null || centre < view.from || centre > view.to ? (view.from + view.to) / 2 : centre;
  const share = (middle - view.from) / (view.to - view.from);
  setView(middle - length * share, middle + length * (1 - share));
}

function shift(share) {
  const step = (view.to - view.from) * share;
  setView(view.from + step, view.to + step);
}

function inspect(point) {
  inspected = point === null ? null : Math.min(Math.max(point, FIRST), LAST);
  for (const graph of live) graph.showPoint();
}

// ---- Small helpers for elements ----

const byId = (id) => document.getElementById(id);

function make(tag, className, text) {
  const element = document.createElement(tag);
  if (className) element.className = className;
  if (text !== undefined) element.textContent = text;
  return element;
}

function makeButton(className, text, act) {
  const button = make('button', className, text);
  button.type = 'button';
  button.addEventListener('click', act);
  return button;
}

function row(tag, cells) {
  const element = make('tr');
  element.append(...cells.map((cell) => (cell instanceof Node ? cell : make(tag, '', cell))));
  if (tag === 'th') for (const cell of element.children) cell.scope = 'col';
  return element;
}

// Runs `act` on each of `items`, and then `done`, in pieces so that the page stays at hand; no further when `stopped`.
function inPieces(items, act, done, stopped = () => false) {
  let place = 0;
  const work = () => {
    if (stopped()) return;
    const began = performance.now();
    while (place < items.length && performance.now() - began < 12) act(items[place++]);
    if (place < items.length) setTimeout(work, 0);
    else done();
  };
  work();
}

// Runs `act` a while after the last call.
function afterRest(milliseconds, act) {
  let timer = 0;
  return () => {
    clearTimeout(timer);
    timer = setTimeout(act, milliseconds);
  };
}
