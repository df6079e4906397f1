#!/usr/bin/env python3
"""Display latency of the web panel: from panelsim having the daemon's frame to the page
having drawn it, in headless Chromium, on the real daemon. Presses DOWN and UP in turn on the
main menu and takes, per press, the first display event that answers it.

    tests/web/latency.py BUILD_DIR [PRESSES]      (default 200)
"""
import os
import statistics
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import webrig  # noqa: E402

# In the page: send a key (down, then up), wait for the next drawn event, hand back its latency.
PRESS = """
const key = arguments[0], done = arguments[arguments.length - 1];
const before = window.panelLatencies.length, start = performance.now();
fetch("key?key=" + key + "&state=down", {method: "POST"})
  .then(() => fetch("key?key=" + key + "&state=up", {method: "POST"}));
(function wait() {
  if (window.panelLatencies.length > before) done(window.panelLatencies[before]);
  else if (performance.now() - start > 3000) done(null);
  else setTimeout(wait, 1);
})();
"""


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit("usage: latency.py BUILD_DIR [PRESSES]")
    build = os.path.abspath(sys.argv[1])
    presses = int(sys.argv[2]) if len(sys.argv) == 3 else 200
    missing = webrig.prepare()
    if missing:
        sys.exit("latency.py: needs %s" % ", ".join(missing))
    rig = webrig.Rig(build)
    try:
        driver = rig.browser()
        driver.set_script_timeout(10)
        if not rig.wait_row(3, "IP: ", 30):
            sys.exit("latency.py: no home page")
        driver.execute_async_script(PRESS, "ENTER")
        if not rig.wait_row(0, "Main Menu"):
            sys.exit("latency.py: no main menu")
        samples = []
        for i in range(presses):
            time.sleep(0.1)  # the screen settles: one press, one answer
            value = driver.execute_async_script(PRESS, "DOWN" if i % 2 == 0 else "UP")
            if value is not None:
                samples.append(value)
    finally:
        rig.stop()
    if not samples:
        sys.exit("latency.py: no press was answered")
    samples.sort()
    print("display latency, panelsim -> page drawn, %d of %d presses answered: median %.2f ms, "
          "90th percentile %.2f ms, min %.2f ms, max %.2f ms"
          % (len(samples), presses, statistics.median(samples), samples[int(len(samples) * 0.9)],
             samples[0], samples[-1]))


if __name__ == "__main__":
    main()
