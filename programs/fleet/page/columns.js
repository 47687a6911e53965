// ---- The choice of columns ----

function buildColumns() {
  const list = byId('columns').querySelector('.list');
  const groups = new Map();
  COLUMNS.forEach((column, place) => {
    if (place === HOST) return;
    if (!groups.has(column.group)) {
      const group = make('fieldset');
      group.append(make('legend', '', column.group || 'Host'));
      groups.set(column.group, group);
      list.append(group);
    }
    const box = make('input');
    box.type = 'checkbox';
    box.checked = column.shown;
    box.addEventListener('change', () => {
      column.shown = box.checked;
      drawHead();
      drawRows();
    });
    const label = make('label');
    label.append(box, ' ' + column.title);
    groups.get(column.group).append(label);
  });
  document.addEventListener('click', (event) => {
    if (!byId('columns').contains(event.target)) byId('columns').open = false;
  });
}
