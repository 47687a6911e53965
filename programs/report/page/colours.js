// ---- Colours: those of the tool's plots, set off from the ground they are drawn on ----

const darkTheme = matchMedia('(prefers-color-scheme: dark)');
const DIMMEST = 0.1;  // luminance that a dark ground leaves visible

const colourOf = (name) => getComputedStyle(document.documentElement).getPropertyValue(name).trim();
const channelsOf = (colour) => [1, 3, 5].map((place) => parseInt(colour.slice(place, place + 2), 16));
const mixed = (colour, other, share) =>
  'rgb(' + channelsOf(colour).map((channel) => Math.round(channel + (other - channel) * share)).join() + ')';

function luminance(colour) {
  const [red, green, blue] = channelsOf(colour).map((channel) => (channel / 255) ** 2.2);
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

const bandColour = (colour) =>
  (darkTheme.matches && luminance(colour) < DIMMEST ? mixed(colour, 255, 0.35) : colour);
const edgeColour = (colour) => (darkTheme.matches ? mixed(colour, 255, 0.25) : mixed(colour, 0, 0.25));

// On paper and in files, always on white.
const paperBand = (colour) => mixed(colour, 255, 0.35);
const paperEdge = (colour) => mixed(colour, 0, luminance(colour) > 0.6 ? 0.4 : 0.2);
