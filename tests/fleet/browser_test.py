#!/usr/bin/python3
"""The page of ozmo_fleet in a browser: its cells are those of the table as text, names stay texts, the map has values.

    browser_test.py BUILD_DIRECTORY SOURCE_DIRECTORY
"""
import csv
import os
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "report"))
from browser_test import open_browser, wait_for  # noqa: E402

from selenium.webdriver.common.by import By  # noqa: E402
from selenium.webdriver.common.keys import Keys  # noqa: E402

HOSTILE = '<img src=x onerror="alert(1)">&lt;'
HOSTS = 300  # many more than are seen at once


def rows_of(browser):
    return browser.execute_script("""
        return [...document.querySelectorAll('#table tbody tr:not(.space)')]
            .map((row) => [...row.children].map((cell) => cell.textContent))""")


def heads_of(browser):
    return [button.get_attribute("data-key") for button in browser.find_elements(By.CSS_SELECTOR, "#table thead .sort")]


def press(browser, selector):
    element = browser.find_element(By.CSS_SELECTOR, selector)
    browser.execute_script("arguments[0].scrollIntoView({block: 'center', behavior: 'instant'})", element)
    element.click()


def make_summaries(run, build, directory):
    """Summaries of many hosts, made of one: each has its own name and mean of the processors."""
    data = run(build / "ozmo_sample", "linux", "data").split("\n")[0]
    text = run(build / "ozmo_report", "--summary", data)
    with (directory / "many.tsv").open("w") as many:
        for number in range(HOSTS):
            lines = text.replace("forge\t", f"host{number:03}\t")
            mean = next(line for line in text.splitlines() if "\tcpu\t" in line).split("\t")[4]
            many.write(lines.replace(f"cpu\t\t{mean}", f"cpu\t\t{number * 37 % HOSTS / 4:.2f}"))
        many.write(text.replace("forge\t", HOSTILE + "\\x09\t").replace("\tsda\t", "\t<b>sda\t"))


def check_table(browser, table):
    """Sorted by the processors, the first rows are the highest of the table as text."""
    press(browser, "[data-key=cpu_mean]")
    shown, heads = rows_of(browser), heads_of(browser)
    assert 10 < len(shown) < 150, len(shown)
    highest = sorted(table, key=lambda row: -float(row["cpu_mean"]))
    for row, expected in zip(shown, highest[:10]):
        assert row[0] == expected["host"], (row, expected["host"])
        for key, cell in zip(heads, row):
            if key.endswith(("_mean", "_p95", "_peak")):
                assert abs(float(cell) - float(expected[key])) <= (0.051 if float(cell) < 1000 else 0.51), (key, cell)
            if key.endswith("_name"):
                assert cell == expected[key], (key, cell)
    browser.execute_script("document.getElementById('box').scrollTop = 1e6")
    wait_for(lambda: rows_of(browser)[-1][0] == highest[-1]["host"], "the last row", rows_of(browser)[-1])


def check_filter(browser):
    box = browser.find_element(By.ID, "search")
    box.send_keys("host01 LINUX")
    assert [row[0] for row in rows_of(browser)] and all(row[0].startswith("host01") for row in rows_of(browser))
    assert browser.find_element(By.ID, "found").text == f"10 of {HOSTS + 1}"
    box.send_keys(Keys.CONTROL, "a", Keys.DELETE)
    box.send_keys("onerror")
    row = rows_of(browser)[0]
    assert row[0] == HOSTILE + "\N{REPLACEMENT CHARACTER}" and "<b>sda" in row, row
    assert not browser.find_elements(By.CSS_SELECTOR, "#table img, #table b")
    box.send_keys(Keys.CONTROL, "a", Keys.DELETE)


def check_columns(browser):
    press(browser, "#columns summary")
    before = heads_of(browser)
    for box in browser.find_elements(By.CSS_SELECTOR, "#columns fieldset:first-of-type input"):
        box.click()
    after = heads_of(browser)
    assert after == [key for key in before if key not in ("day", "system", "processors", "missing")], after
    assert len(rows_of(browser)[0]) == len(after)
    press(browser, "#columns summary")


def check_map(browser, table):
    """The cell that the keys move to is the mean of the summary, and Enter goes to its row."""
    # The map is drawn after the table.
    browser.execute_async_script("const done = arguments[0]; requestAnimationFrame(() => setTimeout(() => setTimeout(done)))")
    canvas = browser.find_element(By.ID, "heat")
    canvas.send_keys(Keys.ARROW_DOWN)
    for _ in range(2):
        canvas.send_keys(Keys.ARROW_DOWN)
    canvas.send_keys(Keys.ARROW_RIGHT)
    text = browser.find_element(By.ID, "cell").text
    name = rows_of(browser)[2][0]
    assert text.startswith(f"{name}, 2012-02-22, 01:00: CPU ") and text.endswith(" %"), (name, text)
    canvas.send_keys(Keys.ENTER)
    assert browser.find_element(By.CSS_SELECTOR, "tr.led th").text == name
    ink = browser.execute_script("""
        const canvas = document.getElementById('heat');
        const pixels = canvas.getContext('2d').getImageData(0, canvas.height / 2, canvas.width, 1).data;
        return new Set(Array.from({length: canvas.width}, (_, x) => pixels.slice(4 * x, 4 * x + 4).join())).size""")
    assert ink > 8, ink


def main():
    build, source = (Path(word).resolve() for word in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as scratch:
        directory = Path(scratch)
        env = dict(os.environ, TZ="UTC", VELTRIX_LIBRARY=str(source))

        def run(*words, status=0):
            done = subprocess.run(words, cwd=directory, env=env, capture_output=True, text=True)
            assert done.returncode == status, (words, done)
            return done.stdout

        make_summaries(run, build, directory)
        (directory / "qtxl_bad_2012Feb22.dat_1").write_text("<script>alert(1)</script>")
        run(build / "ozmo_fleet", "--tsv", "table.tsv", "many.tsv", "qtxl_bad_2012Feb22.dat_1", status=1)
        table = list(csv.DictReader((directory / "table.tsv").open(), delimiter="\t", quoting=csv.QUOTE_NONE))
        assert len(table) == HOSTS + 1
        browser = open_browser(directory / "profile")
        try:
            browser.get((directory / "fleet.html").as_uri())
            assert "qtxl_bad" in browser.find_element(By.CSS_SELECTOR, "#problems li").text
            check_table(browser, table)
            check_filter(browser)
            check_map(browser, table)
            check_columns(browser)
            errors = [entry for entry in browser.get_log("browser") if entry["level"] == "SEVERE"]
            assert not errors, errors
            run(build / "ozmo_fleet", "-o", "own.html", "--pages", "own pages", "data")
            browser.get((directory / "own.html").as_uri())
            press(browser, "#table tbody th a")
            wait_for(lambda: browser.title.startswith("forge, "), browser.current_url)
        finally:
            browser.quit()


if __name__ == "__main__":
    main()
