// ---- The start of the page ----

byId('fleet').hidden = false;
byId('search').addEventListener('input', arrange);
byId('box').addEventListener('scroll', () => drawRows());
window.addEventListener('beforeprint', () => drawRows(true));
window.addEventListener('afterprint', () => drawRows());
document.addEventListener('keydown', (event) => {
  if (event.key !== '/' || /^(input|select)$/i.test(event.target.tagName)) return;
  event.preventDefault();
  byId('search').focus();
});
drawHead();
buildColumns();
buildMap();
arrange();
