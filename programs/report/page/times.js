// ---- Times: shown by the clock of the report's zone ----

const DAYS = ['Sun', 'Mon', 'Tue', 'Wed', 'Thu', 'Fri', 'Sat'];
const MONTHS = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'];
const POINT_MS = 60000;
const MINUTES_OF_DAY = 1440;
const SEVERAL_DAYS = LAST - FIRST > MINUTES_OF_DAY + 1;

function offsetAt(point, span = report) {
  let offset = span.offsets[0][1];
  for (const [from, seconds] of span.offsets) {
    if (from <= point) offset = seconds;
  }
  return offset;
}

// The clock's reading as a Date whose UTC fields hold it.
const clockAt = (point) => new Date((report.start + 60 * point + offsetAt(point)) * 1000);
const two = (number) => String(number).padStart(2, '0');

function timeText(point) {
  const clock = clockAt(point);
  const seconds = clock.getUTCSeconds();
  return two(clock.getUTCHours()) + ':' + two(clock.getUTCMinutes()) + (seconds ? ':' + two(seconds) : '');
}

function dayText(point) {
  const clock = clockAt(point);
  return clock.getUTCDate() + ' ' + MONTHS[clock.getUTCMonth()];
}

const weekdayText = (point) => DAYS[clockAt(point).getUTCDay()] + ' ' + dayText(point);
const stampText = (point) => (SEVERAL_DAYS ? weekdayText(point) + ' ' : '') + timeText(point);

function windowText(from, to) {
  const sameDay = dayText(from) === dayText(to);
  return dayText(from) + ' ' + timeText(from) + ' – ' + (sameDay ? '' : dayText(to) + ' ') + timeText(to);
}

// "2012-02-22T08:00", and the point that reads so; NaN for another text.
const clockText = (point) => clockAt(point).toISOString().slice(0, 16);
function pointAtClock(text) {
  if (!/^\d{4}-\d\d-\d\dT\d\d:\d\d$/.test(text)) return NaN;
  const wanted = Date.parse(text + 'Z') / 1000;
  const guess = Math.round((wanted - offsetAt(FIRST) - report.start) / 60);
  return Math.round((wanted - offsetAt(guess) - report.start) / 60);
}

// The chart's x: the clock at the first point, running on evenly.
const X_OF_START = (report.start + report.offsets[0][1]) * 1000;
const xOf = (point) => X_OF_START + point * POINT_MS;
const pointOf = (x) => Math.round((x - X_OF_START) / POINT_MS);

const TICK_MINUTES = [1, 2, 5, 10, 15, 30, 60, 120, 180, 360, 720, 1440, 2880, 7200, 10080, 20160, 43200];
const TICK_PIXELS = 58;

// Labels of a time axis, {point, text}: at round readings of the clock, as many as `pixels` have room for.
function timeTicks(from, to, pixels) {
  const most = Math.max(1, Math.floor(pixels / TICK_PIXELS));
  const step = TICK_MINUTES.find((minutes) => (to - from) / minutes <= most) || TICK_MINUTES[TICK_MINUTES.length - 1];
  const ticks = [];
  for (let point = from; point <= to;) {
    const minutes = Math.floor(clockAt(point).getTime() / POINT_MS);
    const late = (step - minutes % step) % step;
    if (late === 0) {
      const text = timeText(point);
      ticks.push({point, text: text.startsWith('00:00') ? dayText(point) : text});
    }
    point += late || 1;
  }
  return ticks;
}
