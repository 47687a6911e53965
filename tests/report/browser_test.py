#!/usr/bin/python3
"""The page of ozmo_report in a browser: charts draw, on paper too, figures are those of the CSV, names stay texts.

    browser_test.py BUILD_DIRECTORY SOURCE_DIRECTORY
"""
import base64
import csv
import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.chrome.service import Service

# Each takes the place of a process name of the sample host that is as long.
HOSTILE = {b"postmaster": b'<b>&lt;<i>', b"cc1plus": b"<i>'&\x01x"}


# What keeps Chromium by itself.
ALONE = ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync")


def open_browser(profile):
    options = webdriver.ChromeOptions()
    for word in (*ALONE, "--window-size=1280,900", f"--user-data-dir={profile}"):
        options.add_argument(word)
    options.add_experimental_option("prefs", {"download.default_directory": str(profile.parent / "saved")})
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def column_of(path, label):
    """Pairs of a clock's reading and the value of a trace, of all lines of a CSV file."""
    rows = list(csv.reader(path.open(encoding="latin-1")))
    head = next(n for n, row in enumerate(rows) if row and row[0] == "Time")
    place = [cell.strip() for cell in rows[head]].index(label)
    return [(row[0].split()[1][:5], float(row[place])) for row in rows[head + 1:] if row]


def visible_titles(browser):
    return browser.execute_script("""
        return [...document.querySelectorAll('#sections article.graph')]
            .filter((card) => card.checkVisibility()).map((card) => card.querySelector('h4').textContent)""")


def check_charts(browser):
    """Every chart draws when it comes into view, and is dropped far from it."""
    cards = browser.find_elements(By.CSS_SELECTOR, "article.graph")
    assert len(cards) > 20, len(cards)
    for card in cards:
        browser.execute_script("arguments[0].scrollIntoView({block: 'center', behavior: 'instant'})", card)
        drawn = browser.execute_async_script("""
            const [card, done] = arguments;
            const look = (tries) => {
              const canvas = card.querySelector('canvas');
              const ink = canvas && canvas.width > 0 &&
                  canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data.some((byte) => byte);
              if (ink || tries === 0) done(Boolean(ink)); else setTimeout(() => look(tries - 1), 20);
            };
            look(100);""", card)
        assert drawn, card.text
    kept = browser.execute_script("return document.querySelectorAll('article.graph canvas').length")
    assert kept < 2 * len(cards), kept
    browser.execute_script("window.scrollTo({top: 0, behavior: 'instant'})")


MODES = "csv/overall_cpu_utilization_by_mode.csv"


def figures_of(card):
    """The texts of each trace's row, by its label."""
    return {row.find_element(By.CSS_SELECTOR, "button").text: [cell.text for cell in row.find_elements(By.TAG_NAME, "td")]
            for row in card.find_elements(By.CSS_SELECTOR, "tbody tr")}


def check_values(browser, directory):
    """What is under the pointer is what the CSV file says, also when the keyboard moves the point."""
    card = browser.find_elements(By.CSS_SELECTOR, "article.graph")[1]
    plot = card.find_element(By.CSS_SELECTOR, ".plot")
    browser.execute_script("arguments[0].scrollIntoView({block: 'center', behavior: 'instant'})", plot)
    webdriver.ActionChains(browser).move_to_element(plot).perform()
    for _ in range(2):
        stamp = card.find_element(By.CSS_SELECTOR, ".stamp").text
        for label, cells in figures_of(card).items():
            said = dict(column_of(directory / MODES, label)[:1440])[stamp]
            assert float(cells[0]) == said, (stamp, label, cells, said)
        plot.send_keys(Keys.ARROW_RIGHT)
        assert card.find_element(By.CSS_SELECTOR, ".stamp").text != stamp
    button = card.find_element(By.CSS_SELECTOR, "tbody button")
    button.send_keys(Keys.SPACE)
    assert button.get_attribute("aria-pressed") == "false"
    button.send_keys(Keys.SPACE)


def check_window(browser, directory):
    """A drag zooms all charts, and the figures are those of the window."""
    card = browser.find_elements(By.CSS_SELECTOR, "article.graph")[1]
    plot = card.find_element(By.CSS_SELECTOR, ".plot")
    webdriver.ActionChains(browser).move_to_element_with_offset(plot, -40, 0).click_and_hold() \
        .move_by_offset(120, 0).release().perform()
    begin, end = re.findall(r"\d\d:\d\d", browser.find_element(By.ID, "window").text)
    for label, cells in figures_of(card).items():
        seen = [row for row in column_of(directory / MODES, label)[:1440] if begin <= row[0] <= end]
        values = sorted(value for _, value in seen)
        assert 100 < len(values) < 1000, (begin, end)
        mean, high, peak = (float(text) for text in cells[1:4])
        assert abs(mean - sum(values) / len(values)) < 0.0051, (label, mean)
        assert high == values[-(-len(values) * 95 // 100) - 1], (label, high)
        assert peak == values[-1] and cells[4] == next(time for time, value in seen if value == peak), (label, cells)
    plot.send_keys("0")
    assert not browser.find_element(By.ID, "whole").is_enabled()


def check_names(browser):
    text = browser.execute_script("return document.body.innerText")
    for name in ('<b>&lt;<i>', "<i>'&\N{REPLACEMENT CHARACTER}x"):
        assert name in text, [line for line in text.split("\n") if name[:3] in line]
    assert not browser.find_elements(By.CSS_SELECTOR, "main b, main i:not(button i)")


def check_search(browser):
    """A search finds titles and traces, says which, and folds back what it unfolded."""
    box = browser.find_element(By.ID, "search")
    before = visible_titles(browser)
    box.send_keys("images TOP util")
    assert visible_titles(browser) == ["Top 10 Images by CPU Utilization"], visible_titles(browser)
    for words, least, group in (("sdc", 10, "Disk I/O Metrics"), ("<b>", 1, "CPU Metrics")):
        box.send_keys(Keys.CONTROL, "a", Keys.DELETE)
        box.send_keys(words)
        cards = [card for card in browser.find_elements(By.CSS_SELECTOR, "article.graph") if card.is_displayed()]
        assert len(cards) >= least, (words, [card.text for card in cards])
        assert words in cards[0].find_element(By.CSS_SELECTOR, "tr.hit").text
        assert words in cards[0].find_element(By.CSS_SELECTOR, ".hint").text
        counts = {link.text.split("\n")[0]: link.text.split("\n")[-1]
                  for link in browser.find_elements(By.CSS_SELECTOR, "nav a") if link.is_displayed()}
        found = sum(int(count) for count in counts.values() if count.isdigit())
        assert group in counts and found == len(cards), (counts, len(cards))
    box.send_keys(Keys.CONTROL, "a", Keys.DELETE)
    assert visible_titles(browser) == before


def titles_on_paper(text):
    """Where lines of text are in a PDF: (page, left, bottom) by the text of the line."""
    places = {}
    for number, page in enumerate(re.split(r"<page ", text)[1:]):
        for line in re.findall(r"<line .*?</line>", page, re.DOTALL):
            words = re.findall(r'xMin="([\d.]+)".*?yMax="([\d.]+)">(.*?)</word>', line)
            places[" ".join(word for _, _, word in words)] = (number, float(words[0][0]), float(words[0][1]))
    return places


def check_print(browser, page, directory):
    """Each chart that isn't folded is on the paper with its colours, though nothing was scrolled to."""
    titles = visible_titles(browser)
    subprocess.run(["/usr/bin/chromium", *ALONE, f"--user-data-dir={directory / 'print'}", "--no-pdf-header-footer",
                    f"--print-to-pdf={directory / 'page.pdf'}", page.as_uri()], check=True, capture_output=True)
    subprocess.run(["pdftoppm", "-r", "72", "page.pdf", "sheet"], cwd=directory, check=True)
    text = subprocess.run(["pdftotext", "-bbox-layout", "page.pdf", "-"], cwd=directory, check=True,
                          capture_output=True, text=True).stdout
    sheets = sorted(directory.glob("sheet-*.ppm"))
    places = titles_on_paper(text)
    for title in titles:
        found = [place for line, place in places.items() if line.startswith(" ".join(title.split())) and place[1] < 60]
        assert found, (title, sorted(places))
        number, left, bottom = found[-1]
        head, size, _, pixels = sheets[number].read_bytes().split(b"\n", 3)
        assert head == b"P6"
        width = int(size.split()[0])
        coloured = 0
        for y in range(int(bottom), min(int(bottom) + 140, len(pixels) // (3 * width))):
            row = pixels[3 * width * y + 3 * int(left + 30):3 * width * y + 3 * 300]
            coloured += sum(max(row[i:i + 3]) - min(row[i:i + 3]) > 60 for i in range(0, len(row) - 2, 3))
        assert coloured > 40, (title, number, coloured)
    assert len(titles) / 3 <= len(sheets) <= len(titles) / 2 + 1, (len(sheets), len(titles))


def check_print_of_pinned(browser):
    """"Print these" puts the pinned chart on the paper and nothing else, and then the page is whole again."""
    titles = visible_titles(browser)
    browser.execute_script("window.print = () => {}")
    browser.find_element(By.CSS_SELECTOR, "#pinned > header button").click()
    text = subprocess.run(["pdftotext", "-", "-"], input=base64.b64decode(browser.print_page()), check=True,
                          capture_output=True).stdout.decode()
    assert titles[0] in text and "Utilized Memory" in text and text.count("\f") == 1, text
    assert len(titles) > 10 and not any(title in text for title in (*titles[1:], "Overview")), text
    assert visible_titles(browser) == titles


def wait_for(what, *said):
    """Waits until `what` gives something; a page works in pieces, and files come when they come."""
    for _ in range(300):
        found = what()
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(said)


# Each change that can be planted, and a trace that must come first: words of its graph, and of the trace.
PLANTED = {"runaway": ("Top 10 Images", "runaway"), "slow-disk": ("Disks", "sda"),
           "system-time": ("By Mode", "User"), "leak": ("Images by Resident Memory", "init")}


def means_of_hit(browser):
    """The means of both days in the row that is marked, in the table of the chart that has the focus."""
    cells = browser.switch_to.active_element.find_elements(By.XPATH, "ancestor::article//tr[@class='hit']/td")
    return [cells[1].text, cells[-1].text] if len(cells) > 1 else []


def check_planted(browser, run, build, directory):
    """What was planted comes first, with the means of both days' tables, and a click leads there."""
    for change, words in PLANTED.items():
        days = directory / change
        run(build / "ozmo_sample", "linux", days)
        run(build / "ozmo_sample", "linux", days, "--date", "2012-02-23", "--plant", change)
        run(build / "ozmo_report", days / "qtxl_forge_2012Feb23.dat_1", "--baseline", "1d", "-o", f"{change}.html")
        browser.get((directory / f"{change}.html").as_uri())
        first = wait_for(lambda: browser.execute_script("""
            const rows = document.querySelectorAll('#differs:not([aria-busy]) tbody tr');
            return rows.length > 1 && [...rows[0].children].map((cell) => cell.textContent)"""), change)
        assert all(word in cell for word, cell in zip(words, first)), (change, first)
        browser.find_element(By.CSS_SELECTOR, "#differs .lead").click()
        # The chart that it leads to, and its table, are drawn once they are in view.
        wait_for(lambda: means_of_hit(browser) == [first[3], first[4]], change, first)


def window_of(browser):
    return re.findall(r"\d\d:\d\d", browser.find_element(By.ID, "window").text)


def check_pointer(browser):
    """Ctrl and the wheel zoom, Shift and a drag move the window, two fingers spread it, and the plain wheel scrolls."""
    plot = browser.find_elements(By.CSS_SELECTOR, "article.graph .plot")[1]
    browser.execute_script("arguments[0].scrollIntoView({block: 'center', behavior: 'instant'})", plot)
    wait_for(lambda: plot.find_elements(By.TAG_NAME, "canvas"))
    wheel = webdriver.ActionChains(browser)
    origin = webdriver.common.actions.wheel_input.ScrollOrigin.from_element(plot)
    wheel.key_down(Keys.CONTROL).scroll_from_origin(origin, 0, -400).key_up(Keys.CONTROL).perform()
    zoomed = wait_for(lambda: window_of(browser) != ["00:02", "23:59"] and window_of(browser))
    webdriver.ActionChains(browser).key_down(Keys.SHIFT).move_to_element(plot).click_and_hold() \
        .move_by_offset(60, 0).release().key_up(Keys.SHIFT).perform()
    moved = window_of(browser)
    minutes = [int(text[:2]) * 60 + int(text[3:]) for text in zoomed + moved]
    assert minutes[1] - minutes[0] == minutes[3] - minutes[2] and minutes[2] < minutes[0], (zoomed, moved)
    box = plot.rect
    top = box["y"] - browser.execute_script("return window.scrollY") + 80
    middle = box["x"] + box["width"] / 2

    def touch(kind, *places):
        browser.execute_cdp_cmd("Input.dispatchTouchEvent", {"type": kind, "touchPoints": [
            {"x": middle + place, "y": top, "id": number} for number, place in enumerate(places)]})
    for kind, *places in (("touchStart", -40, 40), ("touchMove", -60, 60), ("touchMove", -80, 80), ("touchEnd",)):
        touch(kind, *places)
    spread = window_of(browser)
    lengths = [int(b[:2]) * 60 + int(b[3:]) - int(a[:2]) * 60 - int(a[3:]) for a, b in (moved, spread)]
    assert abs(lengths[1] / lengths[0] - 0.5) < 0.1, (moved, spread)
    before = browser.execute_script("return window.scrollY")
    webdriver.ActionChains(browser).scroll_from_origin(origin, 0, 100).perform()
    wait_for(lambda: browser.execute_script("return window.scrollY") != before)
    assert window_of(browser) == spread
    plot.send_keys("0")


def check_overview(browser):
    """A click on a column's name sorts by it, and a second one the other way round; a row's figures are the window's."""
    wait_for(lambda: browser.execute_script("return document.body.dataset.overview") == "ready")
    head = browser.find_elements(By.CSS_SELECTOR, "#overview .sort")[5 - 1]  # all but the course can be clicked
    for order, turned in (("descending", True), ("ascending", False)):
        browser.execute_script("arguments[0].click()", head)
        peaks = [float(text) for text in browser.execute_script(
            "return [...document.querySelectorAll('#overview tbody tr')].map((row) => row.children[5].textContent)")
                 if text != "–"]
        assert len(peaks) > 100 and peaks == sorted(peaks, reverse=turned), peaks
        assert head.find_element(By.XPATH, "..").get_attribute("aria-sort") == order


def check_copied(browser):
    """The button hands out the address of what is seen, on the clipboard or, without one, to be copied by hand."""
    browser.execute_script("document.querySelector('.plot').focus()")
    browser.find_element(By.ID, "copy").click()
    try:
        alert = wait_for(lambda: browser.switch_to.alert, "prompt") if not browser.find_element(By.ID, "copied").text else None
    except Exception:  # no prompt: it was copied meanwhile
        alert = None
    if alert:
        alert.accept()
    else:
        assert browser.find_element(By.ID, "copied").text == "Copied"


def check_days(browser, run, build, directory):
    """Two days have a map of the hours, whose cells are the means of the CSV file."""
    run(build / "ozmo_report", "system-time/qtxl_forge_2012Feb22.dat_1", "--begin", "2012-02-22", "--end", "2012-02-23",
        "--item", "Overall CPU Utilization", "-o", "days.html", "--csv", "days")
    browser.get((directory / "days.html").as_uri())
    rows = browser.execute_script("""
        return [...document.querySelectorAll('#heat tbody tr')].map((row) => [...row.children].map((cell) => cell.textContent))""")
    assert [row[0] for row in rows] == ["Wed 22 Feb", "Thu 23 Feb"], rows
    said = [value for _, value in column_of(directory / "days/overall_cpu_utilization.csv", "CPU Active")]
    for place, row in enumerate(rows):
        hour = said[place * 1440 + 601:place * 1440 + 661]
        assert abs(float(row[11]) - sum(hour) / 60) < 0.51, (row, hour)


def check_happened(browser):
    """The window that a planted change falls into, beside the rest of the span."""
    browser.find_element(By.ID, "what").click()
    rows = wait_for(lambda: browser.execute_script("""
        const rows = document.querySelectorAll('#happened:not([aria-busy]) tbody tr');
        return rows.length > 1 && [...rows].map((row) => row.textContent)"""), "happened")
    assert "runaway" in "".join(rows[:2]), rows


def check_address(browser, page):
    """An address opens its view; what was edited into it that isn't there is named; back leads back."""
    browser.get(page.as_uri() + "#from=2012-02-22T13:00&to=2012-02-22T10:00&to2=x&q=%zz&lines=%")
    browser.refresh()
    assert not browser.find_element(By.ID, "whole").is_enabled()
    for part in ("from=2012-02-22T13:00", "to=2012-02-22T10:00", "to2=x", "lines=%"):
        assert part in browser.find_element(By.ID, "wrong").text, part
    browser.get(page.as_uri() + "#from=2012-02-22T10:00&to=2012-02-22T13:00&q=sdc&pin=memory_utilization,nothing"
                "&lines=memory_allocation&open=sda")
    browser.refresh()
    assert browser.find_element(By.ID, "window").text == "22 Feb 10:00 – 13:00"
    assert browser.find_element(By.ID, "wrong").text.endswith("pin=nothing")
    assert browser.find_element(By.CSS_SELECTOR, "#pinned h4").text == "Memory Utilization"
    browser.find_element(By.ID, "whole").click()
    wait_for(lambda: "from=" not in browser.current_url, browser.current_url)
    assert "pin=memory_utilization&" in browser.current_url and "lines=memory_allocation" in browser.current_url
    browser.back()
    wait_for(lambda: browser.find_element(By.ID, "window").text == "22 Feb 10:00 – 13:00", "back")


def check_saved(browser, directory):
    """A chart's files hold what is seen, under a name that says what it is."""
    card = browser.find_element(By.CSS_SELECTOR, "#pinned article.graph")
    for kind in range(3):
        card.find_element(By.CSS_SELECTOR, ".menu summary").click()
        card.find_elements(By.CSS_SELECTOR, ".menu button")[kind].click()
    stem = directory / "saved/forge_memory_utilization_2012-02-22T1000_2012-02-22T1300"
    files = [Path(f"{stem}.{ending}") for ending in ("png", "svg", "csv")]
    wait_for(lambda: all(file.exists() for file in files), list(directory.glob("saved/*")))
    assert files[0].read_bytes().startswith(b"\x89PNG") and files[0].stat().st_size > 10000
    assert "Utilized Memory" in files[1].read_text() and "<path" in files[1].read_text()
    said = column_of(directory / "csv/memory_utilization.csv", "Utilized Memory")
    assert column_of(files[2], "Utilized Memory") == [row for row in said[:1440] if "10:00" <= row[0] <= "13:00"]


def main():
    build, source = (Path(word).resolve() for word in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as scratch:
        directory = Path(scratch)
        env = dict(os.environ, TZ="UTC", VELTRIX_LIBRARY=str(source))

        def run(*words):
            return subprocess.run(words, cwd=directory, env=env, check=True, capture_output=True, text=True).stdout

        data = Path(run(build / "ozmo_sample", "linux", "data").split("\n")[0])
        data = directory / data
        content = data.read_bytes()
        for name, hostile in HOSTILE.items():
            assert name in content and len(name) == len(hostile)
            content = content.replace(name, hostile)
        data.write_bytes(content)
        run(build / "ozmo_report", data, "-o", "page.html", "--csv", "csv")
        browser = open_browser(directory / "profile")
        try:
            browser.get((directory / "page.html").as_uri())
            check_values(browser, directory)
            check_window(browser, directory)
            check_pointer(browser)
            check_overview(browser)
            check_copied(browser)
            check_charts(browser)
            check_names(browser)
            check_search(browser)
            check_print(browser, directory / "page.html", directory)
            check_address(browser, directory / "page.html")
            check_saved(browser, directory)
            check_print_of_pinned(browser)
            check_planted(browser, run, build, directory)
            check_days(browser, run, build, directory)
            run(build / "ozmo_sample", "linux", "happened", "--plant", "runaway", "--plant-hour", "18")
            run(build / "ozmo_report", "happened/qtxl_forge_2012Feb22.dat_1", "-o", "happened.html")
            browser.get((directory / "happened.html").as_uri() + "#from=2012-02-22T18:10&to=2012-02-22T23:00")
            check_happened(browser)
            log = browser.get_log("browser")
            assert not log, log
        finally:
            browser.quit()


if __name__ == "__main__":
    main()
