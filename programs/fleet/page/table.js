// ---- The table: sorted, filtered, and drawn only where it is seen ----

const ROW_HEIGHT = 29;  // with its line
const BEYOND = 20;      // rows drawn above and below those that are seen

const view = {rows: DATA.rows, sorted: HOST, isDown: false, led: null};
const listeners = [];  // called when other rows are shown, or in another order

const isNumber = (place) => /count|number/.test(COLUMNS[place].kind);
const isEmpty = (cell) => cell === null || cell === '';

// Empty cells come last whichever way the others go.
function compare(one, other, place, sign) {
  const a = one.cells[place];
  const b = other.cells[place];
  if (isEmpty(a) || isEmpty(b)) return isEmpty(a) - isEmpty(b);
  if (isNumber(place)) return sign * (a - b);
  return sign * (a < b ? -1 : a > b ? 1 : 0);
}

function arrange() {
  const words = byId('search').value.toLowerCase().split(/\s+/).filter(Boolean);
  const rows = DATA.rows.filter((row) => words.every((word) => row.texts.includes(word)));
  const sign = view.isDown ? -1 : 1;
  view.rows = rows.sort((one, other) => compare(one, other, view.sorted, sign));
  byId('found').textContent = words.length ? `${rows.length} of ${DATA.rows.length}` : '';
  byId('box').scrollTop = 0;
  drawRows();
  for (const listener of listeners) listener();
}

function sortBy(place) {
  // Of numbers the highest are looked for.
  view.isDown = view.sorted === place ? !view.isDown : COLUMNS[place].kind !== 'text';
  view.sorted = place;
  drawHead();
  arrange();
}

const shownPlaces = () => COLUMNS.map((column, place) => place).filter((place) => COLUMNS[place].shown);

// The names of groups over those of columns.
function drawHead() {
  const groups = make('tr');
  const names = make('tr');
  let last = null;
  for (const place of shownPlaces()) {
    const column = COLUMNS[place];
    if (last && last.group === column.group) {
      ++last.cell.colSpan;
    } else {
      last = {group: column.group, cell: make('th', '', column.group)};
      last.cell.colSpan = 1;
      groups.append(last.cell);
    }
    const name = make('th', isNumber(place) ? '' : 'text');
    name.scope = 'col';
    if (place === view.sorted) name.setAttribute('aria-sort', view.isDown ? 'descending' : 'ascending');
    const button = make('button', 'sort', column.title);
    button.type = 'button';
    button.dataset.key = column.key;
    button.addEventListener('click', () => sortBy(place));
    name.append(button);
    names.append(name);
  }
  byId('table').tHead.replaceChildren(groups, names);
}

// The day is left out of a time: the row has it.
function cellText(cell, kind) {
  if (isEmpty(cell)) return '';
  if (kind === 'time') return cell.slice(11);
  return kind === 'number' ? cell.toFixed(Math.abs(cell) >= 1000 ? 0 : 1) : String(cell);
}

function hostCell(row) {
  const cell = make('th');
  cell.scope = 'row';
  if (!row.link) {
    cell.textContent = row.cells[HOST];
    return cell;
  }
  const link = make('a', '', row.cells[HOST]);
  link.href = row.link;
  cell.append(link);
  return cell;
}

function rowElement(row, places) {
  const element = make('tr', row === view.led ? 'led' : '');
  for (const place of places) {
    const kind = COLUMNS[place].kind;
    const cell = place === HOST ? hostCell(row) : make('td', isNumber(place) ? '' : 'text', cellText(row.cells[place], kind));
    if (!isNumber(place)) cell.title = row.cells[place] || '';
    element.append(cell);
  }
  return element;
}

function space(rows, columns) {
  const element = make('tr', 'space');
  const cell = make('td');
  cell.colSpan = columns;
  cell.style.height = rows * ROW_HEIGHT + 'px';
  element.append(cell);
  return element;
}

// Draws the rows that are seen, and as much room as the others take; all of them for paper.
function drawRows(all) {
  const box = byId('box');
  const first = all ? 0 : Math.max(0, Math.floor(box.scrollTop / ROW_HEIGHT) - BEYOND);
  const most = all ? view.rows.length : Math.ceil(box.clientHeight / ROW_HEIGHT) + 2 * BEYOND;
  const rows = view.rows.slice(first, first + most);
  const places = shownPlaces();
  byId('table').tBodies[0].replaceChildren(space(first, places.length), ...rows.map((row) => rowElement(row, places)),
      space(view.rows.length - first - rows.length, places.length));
  byId('table').setAttribute('aria-rowcount', view.rows.length + 2);
}

// Scrolls to a row and marks it.
function leadTo(row) {
  view.led = row;
  byId('box').scrollTop = Math.max(0, view.rows.indexOf(row) - 3) * ROW_HEIGHT;
  drawRows();
  byId('box').scrollIntoView({block: 'nearest'});
}
