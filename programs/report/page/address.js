// ---- The view in the address ----
//
// #from=2012-02-22T08:00&to=2012-02-22T12:00&q=words&open=sda,sdb&pin=item&lines=item&stack=item

const ADDRESS_PARTS = ['from', 'to', 'q', 'open', 'pin', 'lines', 'stack'];
const listed = (names) => names.join(',');

function addressOf() {
  const parts = new URLSearchParams();
  const set = (name, value) => {
    if (value !== '') parts.set(name, value);
  };
  if (!isWhole()) {
    set('from', clockText(view.from));
    set('to', clockText(view.to));
  }
  set('q', byId('search').value.trim());
  set('open', listed(foldedSections.filter((section) => section.element.open && !section.unfoldedBySearch)
      .map((section) => section.key)));
  set('pin', listed(graphs.filter((graph) => graph.pinned).map((graph) => graph.key)));
  set('lines', listed(graphs.filter((graph) => graph.lines && !graph.linesAtFirst).map((graph) => graph.key)));
  set('stack', listed(graphs.filter((graph) => !graph.lines && graph.linesAtFirst).map((graph) => graph.key)));
  const text = parts.toString().replace(/%3A/g, ':').replace(/%2C/g, ',');
  return text ? '#' + text : '';
}

let restoring = false;

// Each view that rests a moment is a step of back and forward.
const addressChanged = afterRest(400, () => {
  if (restoring) return;
  const address = addressOf();
  if (address === location.hash) return;
  try {
    history.pushState(null, '', address || location.pathname + location.search);
  } catch {
    location.hash = address;  // a browser that keeps files' histories shut
  }
});
viewListeners.push(addressChanged);

// What isn't there or can't be read is left out, and named in a line.
function restore() {
  const parts = new URLSearchParams(location.hash.slice(1));
  const wrong = [...parts].filter(([name]) => !ADDRESS_PARTS.includes(name)).map(([name, text]) => name + '=' + text);
  const names = (name) => (parts.get(name) || '').split(',').filter((text) => text !== '');
  const known = (name, things) => {
    for (const text of names(name)) if (!things.some((thing) => thing.key === text)) wrong.push(name + '=' + text);
    return new Set(names(name));
  };
  restoring = true;
  let [from, to] = [['from', FIRST], ['to', LAST]].map(([name, edge]) => {
    if (!parts.has(name)) return edge;
    const point = pointAtClock(parts.get(name));
    if (point >= FIRST && point <= LAST) return point;
    wrong.push(name + '=' + parts.get(name));
    return edge;
  });
  if (to <= from) {
    wrong.push(...['from', 'to'].filter((name) => parts.has(name)).map((name) => name + '=' + parts.get(name)));
    [from, to] = [FIRST, LAST];
  }
  setView(from, to);
  const open = known('open', foldedSections);
  for (const section of foldedSections) section.element.open = open.has(section.key);
  byId('search').value = parts.get('q') || '';
  search();
  const pinned = known('pin', graphs);
  const lines = known('lines', graphs);
  const stack = known('stack', graphs);
  for (const graph of graphs) {
    setPinned(graph, pinned.has(graph.key));
    const wanted = lines.has(graph.key) || (graph.linesAtFirst && !stack.has(graph.key));
    if (graph.lines !== wanted) graph.setLines(wanted);
  }
  byId('wrong').hidden = wrong.length === 0;
  byId('wrong').textContent = 'Of the address this page has no use for: ' + wrong.join(', ').slice(0, 300);
  setTimeout(() => {
    restoring = false;
  }, 500);
}

window.addEventListener('popstate', restore);
window.addEventListener('hashchange', () => {
  if (location.hash !== addressOf()) restore();
});

byId('copy').addEventListener('click', () => {
  const address = location.href.split('#')[0] + addressOf();
  const say = (text) => {
    byId('copied').textContent = text;
    setTimeout(() => {
      byId('copied').textContent = '';
    }, 3000);
  };
  const copied = navigator.clipboard ? navigator.clipboard.writeText(address) : Promise.reject(new Error('no clipboard'));
  copied.then(() => say('Copied'), () => {
    window.prompt('The address of this view:', address);
  });
});
