// ---- The bar ----

function showWindow() {
  byId('window').textContent = windowText(view.from, view.to);
  byId('whole').disabled = isWhole();
  byId('out').disabled = isWhole();
  byId('earlier').disabled = view.from === FIRST;
  byId('later').disabled = view.to === LAST;
  byId('in').disabled = view.to - view.from <= SMALLEST_WINDOW;
}
viewListeners.push(showWindow);

byId('earlier').addEventListener('click', () => shift(-0.5));
byId('later').addEventListener('click', () => shift(0.5));
byId('in').addEventListener('click', () => zoom(0.5, null));
byId('out').addEventListener('click', () => zoom(2, null));
byId('whole').addEventListener('click', () => setView(FIRST, LAST));

// ---- Start ----

byId('report').hidden = false;
buildDiffers();
buildHappened();
buildPinned();
buildMarks();
buildOverview();
buildHeat();
buildSections();
byId('sections').append(nothing);
showWindow();
if (location.hash) restore();
