// ---- What can be done with one chart: lines or stack, pin, save ----

function toolsOf(graph) {
  const tools = make('span', 'tools');
  const {title} = graph.data;
  if (graph.data.traces.length > 1) {
    const toggle = makeButton('', '', () => {
      graph.setLines(!graph.lines);
      addressChanged();
    });
    tools.showLines = () => {
      toggle.textContent = graph.lines ? 'Stack' : 'Lines';
      toggle.title = graph.lines ? 'Show the traces as a stack' : 'Show each trace as a line';
      toggle.setAttribute('aria-label', toggle.title + ': ' + title);
    };
    tools.showLines();
    tools.append(toggle);
  } else {
    tools.showLines = () => {};
  }
  const pin = makeButton('', 'Pin', () => setPinned(graph, !graph.pinned));
  pin.title = 'Keep this chart at the top';
  pin.setAttribute('aria-pressed', 'false');
  pin.setAttribute('aria-label', 'Pin ' + title);
  tools.showPin = () => pin.setAttribute('aria-pressed', String(Boolean(graph.pinned)));
  tools.append(pin, saveMenu(graph));
  graph.tools = tools;
  return tools;
}

const SAVE_KINDS = [['PNG image', savePng], ['SVG image', saveSvg], ['CSV of the window', saveCsv]];

function saveMenu(graph) {
  const menu = make('details', 'menu');
  const summary = make('summary', '', 'Save');
  summary.setAttribute('aria-label', 'Save ' + graph.data.title);
  const list = make('div', 'list');
  for (const [text, act] of SAVE_KINDS) {
    list.append(makeButton('', text, () => {
      menu.open = false;
      act(graph);
    }));
  }
  menu.append(summary, list);
  menu.addEventListener('keydown', (event) => {
    if (event.key !== 'Escape') return;
    menu.open = false;
    summary.focus();
  });
  menu.addEventListener('focusout', (event) => {
    if (!menu.contains(event.relatedTarget)) menu.open = false;
  });
  return menu;
}

// ---- Pins ----

function setPinned(graph, pinned) {
  if (Boolean(graph.pinned) === pinned || !graph.data.chart) return;
  graph.pinned = pinned;
  const card = graph.element();
  if (pinned) {
    byId('pinned').append(card);
    card.hidden = false;
  } else if (graph.home.filled) {
    // Back in front of the next of its section that is there.
    const next = graph.home.graphs.slice(graph.home.graphs.indexOf(graph) + 1).find((other) => !other.pinned);
    const below = graph.home.below[0];
    graph.home.element.insertBefore(card, next ? next.card : below ? below.element : null);
    card.hidden = !matchesSearch(graph);
  } else {
    card.remove();
  }
  graph.tools.showPin();
  byId('pinned').hidden = !graphs.some((other) => other.pinned);
  addressChanged();
}

function buildPinned() {
  const section = make('section', 'group');
  section.id = 'pinned';
  section.hidden = true;
  const head = make('header', 'head');
  head.append(make('h2', '', 'Pinned'), makeButton('', 'Print these', () => {
    document.body.classList.add('pinned-only');
    window.print();
  }));
  section.append(head);
  byId('sections').append(section);
}
