// ---- Marks, and the baseline under the traces ----

const marks = report.marks || [];  // pairs of a point and a text
const seenMarks = () => marks.filter(([point]) => point >= view.from && point <= view.to);
const MARK_COLOUR = '#c0392b';

// On the canvas, before the traces are drawn.
function drawUnder(context, area, chart, graph) {
  const frame = new Frame(area, view.from, view.to, chart.yAxisRange()[1]);
  context.save();
  context.lineJoin = 'round';
  for (const line of beforeLines(graph)) {
    context.strokeStyle = line.colour ? edgeColour(line.colour) : colourOf('--ink');
    context.lineWidth = 1.4;
    context.setLineDash([4, 3]);
    context.stroke(new Path2D(frame.path(line.values)));
  }
  context.setLineDash([]);
  context.font = '11px sans-serif';
  const seen = seenMarks();
  if (seen.length > 0) context.strokeStyle = context.fillStyle = colourOf('--mark');
  for (const [point, text] of seen) {
    const x = frame.x(point);
    context.stroke(new Path2D(`M${x} ${area.y}V${area.y + area.h}`));
    const left = x + 4 + context.measureText(text).width > area.x + area.w;
    context.textAlign = left ? 'right' : 'left';
    context.fillText(text, left ? x - 4 : x + 4, area.y + 11);
  }
  context.restore();
}

// The same in SVG, where bands are opaque: over them.
function drawOver(target, frame, graph) {
  for (const line of beforeLines(graph)) {
    target.append(svg('path', {d: frame.path(line.values), fill: 'none', 'stroke-width': 1.2, 'stroke-dasharray': '4 3',
      stroke: line.colour ? paperEdge(line.colour) : '#111'}));
  }
  const {x, y, w, h} = frame.area;
  for (const [point, text] of seenMarks()) {
    const at = frame.x(point);
    const left = at > x + w / 2;
    target.append(svg('path', {d: `M${at} ${y}V${y + h}`, stroke: MARK_COLOUR, fill: 'none'}),
        svg('text', {x: left ? at - 4 : at + 4, y: y + 11, fill: MARK_COLOUR, 'text-anchor': left ? 'end' : 'start'}, text));
  }
}

// The list, for those who don't see the lines.
function buildMarks() {
  if (marks.length === 0) return;
  const section = make('section', 'group');
  section.id = 'marks';
  const list = make('ul');
  for (const [point, text] of marks) {
    const item = make('li');
    const half = Math.min(60, Math.round((LAST - FIRST) / 4));
    item.append(makeButton('lead', stampText(point), () => setView(point - half, point + half)), ' ' + text);
    list.append(item);
  }
  section.append(make('h2', '', 'Marks'), list);
  byId('sections').append(section);
  addLink('Marks', section, String(marks.length));
}
