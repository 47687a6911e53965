#!/usr/bin/python3
"""The page of ozmo_report in a browser: charts draw, values are those of the CSV, names stay texts.

    browser_test.py BUILD_DIRECTORY SOURCE_DIRECTORY
"""
import csv
import os
import subprocess
import sys
import tempfile
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.chrome.service import Service

# Each takes the place of a process name of the sample host that is as long.
HOSTILE = {b"postmaster": b'<b>&lt;<i>', b"cc1plus": b"<i>'&\x01x"}


def open_browser(profile):
    options = webdriver.ChromeOptions()
    for word in ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                 "--disable-background-networking", "--disable-component-update", "--disable-sync",
                 "--window-size=1280,900", f"--user-data-dir={profile}"):
        options.add_argument(word)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def column_of(path, label, clock):
    rows = list(csv.reader(path.open(encoding="latin-1")))
    head = next(n for n, row in enumerate(rows) if row and row[0] == "Time")
    place = [cell.strip() for cell in rows[head]].index(label)
    return next(float(row[place]) for row in rows[head + 1:] if row[0].split()[1].startswith(clock))


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


def check_values(browser, directory):
    """What stands under the pointer is what the CSV file says, also when the keyboard moves the point."""
    card = browser.find_elements(By.CSS_SELECTOR, "article.graph")[1]
    plot = card.find_element(By.CSS_SELECTOR, ".plot")
    webdriver.ActionChains(browser).move_to_element(plot).perform()
    for _ in range(2):
        stamp = card.find_element(By.CSS_SELECTOR, ".stamp").text
        for row in card.find_elements(By.CSS_SELECTOR, "tbody tr"):
            label = row.find_element(By.CSS_SELECTOR, "button").text
            shown = float(row.find_element(By.CSS_SELECTOR, "td.value").text)
            said = column_of(directory / "csv/overall_cpu_utilization_by_mode.csv", label, stamp)
            assert shown == said, (stamp, label, shown, said)
        plot.send_keys(Keys.ARROW_RIGHT)
        assert card.find_element(By.CSS_SELECTOR, ".stamp").text != stamp
    button = card.find_element(By.CSS_SELECTOR, "tbody button")
    button.send_keys(Keys.SPACE)
    assert button.get_attribute("aria-pressed") == "false"


def check_names(browser):
    text = browser.execute_script("return document.body.innerText")
    for name in ('<b>&lt;<i>', "<i>'&\N{REPLACEMENT CHARACTER}x"):
        assert name in text, [line for line in text.split("\n") if name[:3] in line]
    assert not browser.find_elements(By.CSS_SELECTOR, "main b, main i:not(button i)")


def check_search(browser):
    box = browser.find_element(By.ID, "search")
    box.send_keys("images TOP")
    shown = [card.find_element(By.CSS_SELECTOR, "h4").text
             for card in browser.find_elements(By.CSS_SELECTOR, "article.graph") if card.is_displayed()]
    assert shown == ["Top 10 Images by CPU Utilization"], shown
    box.send_keys(Keys.CONTROL, "a", Keys.DELETE)


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
            check_charts(browser)
            check_names(browser)
            check_search(browser)
            log = browser.get_log("browser")
            assert not log, log
        finally:
            browser.quit()


if __name__ == "__main__":
    main()
