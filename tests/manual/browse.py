"""Reads the manual in a headless browser: browse.py HTML

Every page loads without an error, shows a title and text, and fits the width of a telephone and of a desktop, in light
and dark; every link to another page leads to one; the search finds a routine.
"""

import json
import re
import subprocess
import sys
import tempfile
import time
import urllib.request
from pathlib import Path

TELEPHONE, DESKTOP = 400, 1280
READERS = [(TELEPHONE, "light"), (TELEPHONE, "dark"), (DESKTOP, "light")]
ROUTINE = "TQ_sscanf"

# What can be scrolled sideways, or would be if it were not cut off: the page, and any box in it.
SCROLLS_SIDEWAYS = """
const wide = [];
for (const element of document.querySelectorAll('*')) {
    const style = getComputedStyle(element);
    const seen = element.checkVisibility() && element.clientWidth > 0 && style.display !== 'inline';
    const scrolls = element === document.documentElement || ['auto', 'scroll'].includes(style.overflowX);
    if (seen && scrolls && element.scrollWidth > element.clientWidth)
        wide.push(element.tagName + '#' + element.id + '.' + element.className + ' ' + element.scrollWidth);
}
return wide;
"""
CUT_OFF = """
return [...document.querySelectorAll('.contents *')]
    .filter(element => element.checkVisibility() && element.getBoundingClientRect().right > innerWidth + 1)
    .slice(0, 3).map(element => element.tagName + '.' + element.className + ' ' + element.textContent.slice(0, 40));
"""
FOUND = """
return [...document.querySelectorAll('.SRResult')].filter(result => result.checkVisibility())
    .map(result => result.innerText);
"""
BACKGROUND = "return getComputedStyle(document.body).backgroundColor;"


class Browser:
    def __init__(self, profile):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE, text=True)
        port = next(found[1] for line in self.driver.stdout if (found := re.search(r"started.* on port (\d+)", line)))
        self.address = f"http://127.0.0.1:{port}/session"
        arguments = ["--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", f"--user-data-dir={profile}"]
        self.address += "/" + self.post("", {"capabilities": {"alwaysMatch": {
            "goog:loggingPrefs": {"browser": "ALL"}, "goog:chromeOptions": {"args": arguments}}}})["sessionId"]

    def post(self, path, body, method="POST"):
        request = urllib.request.Request(self.address + path, json.dumps(body).encode(), method=method)
        with urllib.request.urlopen(request, timeout=60) as answer:
            return json.load(answer)["value"]

    def command(self, name, **parameters):
        self.post("/goog/cdp/execute", {"cmd": name, "params": parameters})

    def run(self, script):
        return self.post("/execute/sync", {"script": script, "args": []})

    def find(self, selector):
        return self.post("/element", {"using": "css selector", "value": selector})

    def open(self, page):
        self.post("/url", {"url": page.as_uri()})

    def complaints(self):
        return [entry["message"] for entry in self.post("/se/log", {"type": "browser"})]

    def emulate(self, width, scheme):
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=800, deviceScaleFactor=1,
                     mobile=width == TELEPHONE)
        self.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])

    def close(self):
        self.post("", {}, method="DELETE")
        self.driver.terminate()
        self.driver.wait()


def page_faults(browser, page):
    browser.open(page)
    faults = browser.complaints()
    if not browser.run("return document.title && document.querySelector('.contents')?.innerText.trim()"):
        faults.append("no title or no text")
    faults += [f"scrolls sideways: {element}" for element in browser.run(SCROLLS_SIDEWAYS)]
    faults += [f"is cut off: {element}" for element in browser.run(CUT_OFF)]
    targets = browser.run("return [...document.querySelectorAll('a[href]')].map(link => link.href.split('#')[0])")
    local = {target for target in targets if target.startswith("file:")}
    faults += [f"leads nowhere: {target}" for target in local if not Path(target.removeprefix("file://")).exists()]
    return faults


def search_faults(browser, html):
    browser.open(html / "index.html")
    field = next(iter(browser.find("#MSearchField").values()))
    browser.post(f"/element/{field}/value", {"text": ROUTINE})
    browser.post("/frame", {"id": browser.find("#MSearchResults")})
    for _ in range(50):
        if any(ROUTINE in text for text in browser.run(FOUND)):
            return browser.complaints()
        time.sleep(0.1)
    return [*browser.complaints(), f"does not find {ROUTINE}"]


def all_faults(browser, html, pages):
    faults, backgrounds = [], {}
    for width, scheme in READERS:
        browser.emulate(width, scheme)
        for page in pages:
            faults += [f"{page.name}, {width} {scheme}: {fault}" for fault in page_faults(browser, page)]
        backgrounds[scheme] = browser.run(BACKGROUND)
    if backgrounds["light"] == backgrounds["dark"]:
        faults.append(f"light and dark look alike: {backgrounds}")
    return faults + search_faults(browser, html)


def main(html):
    pages = sorted(html.glob("*.html"))
    with tempfile.TemporaryDirectory() as profile:
        browser = Browser(profile)
        try:
            faults = all_faults(browser, html, pages) if pages else ["no pages"]
        finally:
            browser.close()
    print(*faults, f"{len(pages)} pages, {len(faults)} faults", sep="\n")
    return 1 if faults else 0


sys.exit(main(Path(sys.argv[1]).resolve()))
