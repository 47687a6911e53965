// ---- The data of the page, and what its parts share ----

const DATA = JSON.parse(document.getElementById('data').textContent);
const byId = (id) => document.getElementById(id);

function make(tag, name, text) {
  const element = document.createElement(tag);
  if (name) element.className = name;
  if (text !== undefined) element.textContent = text;
  return element;
}

const COLUMNS = DATA.columns;
const placeOf = (key) => COLUMNS.findIndex((column) => column.key === key);
const HOST = placeOf('host');
const DAY = placeOf('day');

// All texts of a row in small letters, for the filter.
for (const row of DATA.rows) {
  row.texts = row.cells.filter((cell, place) => COLUMNS[place].kind === 'text').join('\n').toLowerCase();
}

const nameOf = (row) => row.cells[HOST] + ', ' + row.cells[DAY];

// The means of a row's hours by a figure's number: an array, NaN without data. Rows are many, so each is worked out
// when it is first asked for.
function hoursOf(row, figure) {
  row.means = row.means || [];
  return (row.means[figure] = row.means[figure] ||
      row.hours[figure].split(',').map((text) => text === '' ? NaN : Number(text)));
}
