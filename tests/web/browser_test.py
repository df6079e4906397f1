#!/usr/bin/env python3
"""The web panel in headless Chromium on the real daemon: the home page, ENTER by mouse opens
the main menu, LEFT+RIGHT held on the keyboard opens the panel lock; a second page (an event
stream read here) follows the same display; bad requests are refused and logged; the atlas
page shows every panel. Screenshots go to OUT_DIR.

    browser_test.py BUILD_DIR OUT_DIR      (exit 77: skipped, no Chromium to be had)
"""
import os
import socket
import sys
import threading
import time
import urllib.error
import urllib.request

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import webrig  # noqa: E402

failures = []


def check(ok, what):
    print(("ok   " if ok else "FAIL ") + what, flush=True)
    if not ok:
        failures.append(what)
    return ok


def watch_events(url, seen, stop):
    """A second page: reads the event stream and keeps the texts of the rows it was sent."""
    with urllib.request.urlopen(url + "events", timeout=30) as stream:
        for line in stream:
            if stop.is_set():
                return
            if line.startswith(b"data: "):
                seen.append(line.decode("utf-8"))


def status_of(url, method="GET"):
    try:
        with urllib.request.urlopen(urllib.request.Request(url, method=method), timeout=5) as answer:
            return answer.status
    except urllib.error.HTTPError as e:
        return e.code


def raw_request(url, data):
    host, port = url.split("//")[1].strip("/").split(":")
    with socket.create_connection((host, int(port)), timeout=5) as s:
        s.sendall(data)
        return s.recv(200).decode("latin-1")


STAND_INS = {"\u2195": "$", "\u2194": "~", "\u21b5": "@", "\u25a0": "#", "\u25cf": "*", "\u25cb": "+",
             "\u2298": "!"}
CELLS = """return Array.from(document.querySelectorAll("#display .row")).map((row) => [row.textContent,
  Array.from(row.children).map((cell) => cell.classList.contains("hl") ? "^" : " ").join("")]);"""


def page_dump(driver):
    """The page's display in the golden-panel format."""
    dump = ""
    for text, marks in driver.execute_script(CELLS):
        dump += "|" + "".join(STAND_INS.get(c, c) for c in text) + "|\n"
        if "^" in marks:
            dump += " " + marks.rstrip() + "\n"
    return dump


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: browser_test.py BUILD_DIR OUT_DIR")
    build, out = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    missing = webrig.prepare()
    if missing:
        print("SKIPPED: the browser test needs %s, which could not be installed "
              "(scripts/deps.sh browser)" % ", ".join(missing))
        return webrig.SKIP
    os.makedirs(out, exist_ok=True)

    rig = webrig.Rig(build)
    stop = threading.Event()
    try:
        driver = rig.browser()
        check(rig.wait_row(3, "IP: ", 30), "the page shows the home page")
        seen = []
        threading.Thread(target=watch_events, args=(rig.url, seen, stop), daemon=True).start()

        from selenium.webdriver.common.action_chains import ActionChains
        from selenium.webdriver.common.by import By
        from selenium.webdriver.common.keys import Keys
        driver.find_element(By.ID, "ENTER").click()
        check(rig.wait_row(0, "Main Menu"), "a click on ENTER opens the main menu")
        deadline = time.monotonic() + 5
        while time.monotonic() < deadline and not any("Main Menu" in s for s in seen):
            time.sleep(0.05)
        check(any("Main Menu" in s for s in seen), "a second page is sent the main menu too")

        # The panel lock: both keys held about 5 s; reports go out with the keyboard's timing.
        ActionChains(driver).key_down(Keys.ARROW_LEFT).key_down(Keys.ARROW_RIGHT).perform()
        time.sleep(6.0)
        ActionChains(driver).key_up(Keys.ARROW_LEFT).key_up(Keys.ARROW_RIGHT).perform()
        check(rig.wait_row(0, "Lock Panel"), "LEFT+RIGHT held opens the panel lock")
        shot = os.path.join(out, "web-panel.png")
        driver.find_element(By.ID, "bezel").screenshot(shot)
        print("screenshot: " + shot)
        # Cell for cell, glyphs and highlight, the page shows what the terminal panel shows.
        with open(os.path.join(webrig.ROOT, "tests/golden/atlas/full/lock_panel.txt"), encoding="utf-8") as f:
            golden = f.read()
        shown = page_dump(driver)
        check(shown == golden, "the page shows the lock screen as its golden panel:\n" + shown)

        # Refused requests: answered 4xx and logged; panelsim goes on.
        check(status_of(rig.url + "key?key=SIDEWAYS&state=down", "POST") == 400, "an unknown key gets 400")
        check(status_of(rig.url + "key?key=UP&state=maybe", "POST") == 400, "an unknown state gets 400")
        check(raw_request(rig.url, b"\x16\x03\x01garbage\r\n\r\n").startswith("HTTP/1.1 400"),
              "a malformed request gets 400")
        check(status_of(rig.url + "nowhere") == 404, "an unknown path gets 404")
        check(status_of(rig.url + "state") == 200, "panelsim still answers")
        log = rig.panel_log()
        check("web: 400" in log and "SIDEWAYS" in log, "refused requests are logged:\n" + log)

        atlas = os.path.join(build, "atlas", "full.html")
        if check(os.path.exists(atlas), "the atlas page is built: " + atlas):
            driver.set_window_size(1100, 900)
            driver.get("file://" + atlas)
            shown = len(driver.find_elements(By.CLASS_NAME, "panel"))
            panels = len(os.listdir(os.path.join(webrig.ROOT, "tests/golden/atlas/full")))
            check(shown == panels, "the atlas page shows all %d panels (it shows %d)" % (panels, shown))
            driver.save_screenshot(os.path.join(out, "atlas-full.png"))
    finally:
        stop.set()
        status = rig.stop()
    check(status == 0, "panelsim stops cleanly (status %s)" % status)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
