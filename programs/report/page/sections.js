// ---- Sections ----

// More disks, adapters or processors than this are folded up.
const MOST_UNFOLDED = 2;

class Section {
  constructor(data) {
    this.data = data;
    this.graphs = data.graphs.map((graph) => new Graph(graph, data));
    for (const graph of this.graphs) graph.home = this;
    this.key = slugOf(data.label);
    this.below = [];
    this.element = null;
  }

  count() {
    return this.graphs.length + this.below.reduce((sum, section) => sum + section.count(), 0);
  }

  build(folded) {
    const level = this.data.level;
    if (folded) {
      this.element = make('details');
      const summary = make('summary');
      this.hits = make('span', 'hits');
      summary.append(make('span', 'name', this.data.label), this.hits, make('span', 'brief', this.brief()));
      this.element.append(summary);
      summary.addEventListener('click', () => {
        this.unfoldedBySearch = false;
      });
      this.element.addEventListener('toggle', () => {
        if (this.element.open) this.fill();
        addressChanged();
      });
    } else {
      this.element = make('section', level === 1 ? 'group' : 'sub');
      this.element.append(make(level === 1 ? 'h2' : 'h3', '', this.data.label));
      this.fill();
    }
    this.folded = folded;
    const members = this.below.filter((section) => section.data.own).length;
    for (const section of this.below) {
      section.above = this;
      this.element.append(section.build(section.data.own && members > MOST_UNFOLDED));
    }
    return this.element;
  }

  // The cards of a folded section are made when it is first unfolded.
  fill() {
    if (this.filled) return;
    this.filled = true;
    for (const graph of this.graphs) {
      if (!graph.pinned) this.element.append(graph.element());
    }
  }

  unfold() {
    if (this.folded) {
      this.fill();
      this.element.open = true;
    }
    if (this.above) this.above.unfold();
  }

  brief() {
    const first = this.data.graphs[0];
    const mean = first.traces.reduce((sum, trace) => sum + trace.mean, 0);
    return 'mean ' + valueText(mean) + ' ' + first.unit;
  }

  // Shows what `matches`; gives how many graphs do. What a search has unfolded folds back with the next one.
  filter(matches, unfold, searching) {
    const hits = this.graphs.map(matches);
    const own = hits.filter((hit) => hit).length;
    if (this.folded) this.foldBySearch(own > 0 && unfold);
    this.graphs.forEach((graph, i) => {
      if (graph.card) graph.card.hidden = !hits[i] && !graph.pinned;
    });
    if (this.hits) this.hits.textContent = searching && own > 0 ? own + ' of ' + this.graphs.length : '';
    let found = own;
    for (const section of this.below) found += section.filter(matches, unfold, searching);
    this.element.hidden = found === 0;
    if (this.link) {
      this.link.hidden = found === 0;
      this.link.lastChild.textContent = String(found);
    }
    return found;
  }

  foldBySearch(wanted) {
    if (wanted && !this.element.open) {
      this.unfoldedBySearch = true;
      this.element.open = true;
    } else if (!wanted && this.unfoldedBySearch) {
      this.unfoldedBySearch = false;
      this.element.open = false;
    }
    if (this.element.open) this.fill();
  }
}

// Sections are in the data one after the other, each with its level.
function sectionTree() {
  const root = new Section({label: '', level: 0, graphs: []});
  const path = [root];
  for (const data of report.sections) {
    while (path[path.length - 1].data.level >= data.level) path.pop();
    const section = new Section(data);
    path[path.length - 1].below.push(section);
    path.push(section);
  }
  return root.below;
}

const groups = sectionTree();
const foldedSections = [];

function buildSections() {
  const collect = (section) => {
    if (section.folded) foldedSections.push(section);
    section.below.forEach(collect);
  };
  groups.forEach((group, i) => {
    byId('sections').append(group.build(false));
    group.element.id = 'group' + i;
    group.link = addLink(group.data.label, group.element, String(group.count()));
    collect(group);
  });
  for (const group of groups) scrollSpy.observe(group.element);
}

// A line of the list at the side. It scrolls, and leaves the address alone.
function addLink(text, target, count) {
  const link = make('a', '', text);
  link.href = '#' + target.id;
  link.append(make('span', '', count));
  link.addEventListener('click', (event) => {
    event.preventDefault();
    target.scrollIntoView();
  });
  byId('groups').append(link);
  return link;
}

// The group that the page is scrolled to.
const scrollSpy = new IntersectionObserver(() => {
  const tops = groups.filter((group) => !group.element.hidden);
  const here = tops.filter((group) => group.element.getBoundingClientRect().top < 160).pop();
  for (const group of groups) group.link.classList.toggle('here', group === here);
}, {threshold: [0, 0.05, 0.25, 0.5, 0.75, 1], rootMargin: '-80px 0px 0px 0px'});

// Shows a graph that is led to, also where it is folded away or a search has hidden it.
function leadTo(graph, set) {
  if (byId('search').value !== '' && !matchesSearch(graph)) {
    byId('search').value = '';
    search();
  }
  graph.home.unfold();
  const card = graph.element();
  card.scrollIntoView({block: 'center'});
  card.classList.remove('led');
  void card.offsetWidth;  // the flash begins anew
  card.classList.add('led');
  if (set !== undefined && graph.rows[set]) graph.rows[set].element.classList.add('hit');
  if (graph.plot) graph.plot.focus({preventScroll: true});
}
