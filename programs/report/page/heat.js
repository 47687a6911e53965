// ---- The processors by hour and day ----

const HEAT_DAYS = 2;  // spans from this on have a map

// Means of hours: a map from the day's text to 24 of them, in the order of the days. A point is of the minute before it.
function hourMeans(values) {
  const days = new Map();
  for (let point = Math.max(FIRST, 1); point <= LAST; ++point) {
    if (Number.isNaN(values[point])) continue;
    const day = weekdayText(point - 1);
    if (!days.has(day)) days.set(day, Array.from({length: 24}, () => ({sum: 0, count: 0})));
    const hour = days.get(day)[clockAt(point - 1).getUTCHours()];
    hour.sum += values[point];
    ++hour.count;
  }
  return days;
}

function buildHeat() {
  const graph = graphs.find((one) => /^overall cpu utilization$/i.test(one.data.title) && one.data.chart);
  if (!graph || LAST - FIRST < HEAT_DAYS * MINUTES_OF_DAY - 10) return;
  const table = make('table', 'heat');
  const head = make('thead');
  head.append(row('th', ['Day', ...Array.from({length: 24}, (_, hour) => two(hour))]));
  const body = make('tbody');
  for (const [day, hours] of hourMeans(graph.level().values)) {
    const name = make('th', '', day);
    name.scope = 'row';
    body.append(row('td', [name, ...hours.map(({sum, count}, hour) => heatCell(day, hour, count > 0 ? sum / count : NaN))]));
  }
  table.append(head, body);
  const box = make('div', 'scroll');
  box.append(table);
  const section = make('section', 'group');
  section.id = 'heat';
  section.append(make('h2', '', 'Processors by hour and day'),
      make('p', 'hint', 'The mean of “' + graph.data.title + '” in each hour, in percent.'), box);
  byId('sections').append(section);
  addLink('By hour and day', section, '');
}

function heatCell(day, hour, mean) {
  const cell = make('td', '', Number.isNaN(mean) ? '' : String(Math.round(mean)));
  if (!Number.isNaN(mean)) {
    const share = Math.min(Math.max(mean / 100, 0), 1);
    cell.style.background = `rgba(214, 72, 32, ${(0.06 + 0.84 * share).toFixed(3)})`;
    cell.title = `${day}, ${two(hour)}:00: ${valueText(mean)} %`;
  }
  return cell;
}
