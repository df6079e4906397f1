"""The web panel's rig: panelsim serving the page, the real daemon on the built-in virtual
unit, and headless Chromium, inside the private namespace of scripts/fpns.sh."""
import importlib
import os
import signal
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SOCKET = "/var/run/ttyhub.ttyS4.socket"
CHROMIUM, DRIVER = "/usr/bin/chromium", "/usr/bin/chromedriver"
SKIP = 77  # ctest's SKIP_RETURN_CODE


def browser_missing():
    missing = [p for p in (CHROMIUM, DRIVER) if not os.access(p, os.X_OK)]
    importlib.invalidate_caches()
    try:
        import selenium  # noqa: F401
    except ImportError:
        missing.append("python3-selenium")
    return missing


def prepare():
    """Outside the namespace of scripts/fpns.sh: installs the browser (scripts/deps.sh browser)
    where a part is missing, then runs this script again inside a namespace of its own.
    Returns what is still missing (no network, not root), and then nothing runs."""
    if os.environ.get("FPNS") == "1":
        return []
    if browser_missing():
        subprocess.run([os.path.join(ROOT, "scripts", "deps.sh"), "browser"], stdout=sys.stderr, check=False)
    missing = browser_missing()
    # Debian's Selenium belongs to Debian's Python, which may not be the first on the PATH.
    if missing == ["python3-selenium"] and os.path.realpath(sys.executable) != os.path.realpath("/usr/bin/python3") \
            and os.access("/usr/bin/python3", os.X_OK):
        os.execv("/usr/bin/python3", ["/usr/bin/python3", "-B"] + sys.argv)
    if not missing:
        fpns = os.path.join(ROOT, "scripts", "fpns.sh")
        os.execv(fpns, [fpns, sys.executable, "-B"] + sys.argv)
    return missing


class Rig:
    def __init__(self, build):
        self.dir = tempfile.mkdtemp(prefix="webpanel.")
        self.panel_err = open(os.path.join(self.dir, "panelsim.err"), "w+")
        self.panelsim = subprocess.Popen(
            [os.path.join(build, "tools/panelsim/panelsim"), "--socket", SOCKET, "--web", "127.0.0.1:0"],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=self.panel_err, text=True)
        line = self.panelsim.stdout.readline()
        if "web panel on " not in line:
            raise RuntimeError("panelsim did not start its web panel: %r %s" % (line, self.panel_log()))
        self.url = line.split("web panel on ", 1)[1].strip()
        self.daemon_log = open(os.path.join(self.dir, "frontpanel.log"), "w")
        self.daemon = subprocess.Popen(
            [os.path.join(build, "controller/frontpanel/frontpanel"), "--controller", "embedded"],
            stdin=subprocess.DEVNULL, stdout=self.daemon_log, stderr=subprocess.STDOUT)
        self.driver = None

    def panel_log(self):
        self.panel_err.flush()
        self.panel_err.seek(0)
        return self.panel_err.read()

    def browser(self):
        from selenium import webdriver
        from selenium.webdriver.chrome.service import Service
        options = webdriver.ChromeOptions()
        options.binary_location = CHROMIUM
        for arg in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage", "--disable-gpu",
                    "--window-size=1100,520", "--user-data-dir=" + os.path.join(self.dir, "profile")):
            options.add_argument(arg)
        self.driver = webdriver.Chrome(service=Service(DRIVER), options=options)
        self.driver.get(self.url)
        return self.driver

    def row(self, r):
        return self.driver.execute_script("return document.getElementById('row%d').textContent;" % r)

    def wait_row(self, r, text, seconds=15):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            if text in self.row(r):
                return True
            time.sleep(0.05)
        return False

    def stop(self):
        """Stops everything; panelsim's exit status (0 when it stopped cleanly on SIGTERM)."""
        if self.driver is not None:
            self.driver.quit()
        self.daemon.send_signal(signal.SIGUSR1)
        try:
            self.daemon.wait(10)
        except subprocess.TimeoutExpired:
            self.daemon.kill()
        self.panelsim.send_signal(signal.SIGTERM)
        try:
            return self.panelsim.wait(10)
        except subprocess.TimeoutExpired:
            self.panelsim.kill()
            return -1
