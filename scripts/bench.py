#!/usr/bin/env python3
"""End-to-end benchmark of the daemon, as the panel and the unit see it.

Runs inside scripts/fpns.sh (the daemon's fixed paths are private there); scripts/bench.sh
builds the Release tree, asks the tree walk for the screens and calls this:

    scripts/fpns.sh scripts/bench.py BUILD_DIR TREE_FILE [--quick] [--only SECTION]

TREE_FILE is what the tree walk printed for the full unit with the panel free: one screen
a line, indented by depth, with the keys that reach it from the home page. Every figure is
taken on the panel socket (this script is the panel end) and from /proc; nothing is read
from the daemon's own logs. Prints one table.
"""
import json
import os
import re
import select
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
import time

PANEL = "/var/run/ttyhub.ttyS4.socket"
PIDFILE = "/var/run/frontpanel.pid"
ALIAS = b"Uplink IRD 3"  # the full unit's alias, on the home page's title row
KEYS = {"UP": 2, "DOWN": 4, "EXIT": 5, "ENTER": 6}
DOWN_STATE, UP_STATE = 1, 2
BAUD = 115200
SECTIONS = ("keys", "screens", "idle", "storm", "startup")
QUIET_S = 0.030  # a redraw is complete when no byte has come for this long
WAIT_S = 10.0    # bound on anything that should happen at once


def pct(values, p):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(round(p / 100.0 * (len(ordered) - 1))))]


def link_ms(nbytes):
    return nbytes * 10 * 1000.0 / BAUD  # 8N1: ten bit times a byte


def cpu_ns(pid):
    """Run time of every thread of pid, in nanoseconds (the scheduler's own account)."""
    total = 0
    for tid in os.listdir(f"/proc/{pid}/task"):
        try:
            with open(f"/proc/{pid}/task/{tid}/schedstat") as stat:
                total += int(stat.read().split()[0])
        except (FileNotFoundError, ProcessLookupError):
            pass  # a thread that ended meanwhile
    return total


def rss_kib(pid):
    with open(f"/proc/{pid}/status") as status:
        for line in status:
            if line.startswith("VmRSS:"):
                return int(line.split()[1])
    return 0


class Panel:
    """The ttyhub end of the panel socket: sends key reports, times the display bytes."""

    def __init__(self):
        if os.path.exists(PANEL):
            os.unlink(PANEL)
        self.server = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.server.bind(PANEL)
        self.server.listen(1)
        self.conn = None

    def accept(self):
        self.server.settimeout(WAIT_S)
        self.conn, _ = self.server.accept()
        self.conn.setblocking(True)

    def close(self):
        if self.conn:
            self.conn.close()
        self.server.close()
        if os.path.exists(PANEL):
            os.unlink(PANEL)

    def recv(self, timeout):
        ready, _, _ = select.select([self.conn], [], [], timeout)
        if not ready:
            return b""
        data = self.conn.recv(65536)
        if not data:
            raise RuntimeError("the daemon closed the panel link")
        return data

    def drain(self, quiet=QUIET_S):
        """Bytes until none has come for `quiet` seconds."""
        got = b""
        while True:
            chunk = self.recv(quiet)
            if not chunk:
                return got
            got += chunk

    def wait_for(self, text, timeout=WAIT_S):
        got, deadline = b"", time.monotonic() + timeout
        while text not in got:
            left = deadline - time.monotonic()
            if left <= 0:
                raise RuntimeError(f"the panel never showed {text!r}")
            got += self.recv(left)
        return got

    def send_key(self, key, state):
        self.conn.sendall(bytes([0x09, ord("K"), KEYS[key], state, 0x7E]))

    def press(self, key, expect_draw=True):
        """One press; (ms to the first display byte or None, display bytes it caused)."""
        start = time.perf_counter()
        self.send_key(key, DOWN_STATE)
        first = self.recv(1.0 if expect_draw else 0.3)
        ms = (time.perf_counter() - start) * 1000.0 if first else None
        got = first + (self.drain() if first else b"")
        self.send_key(key, UP_STATE)
        got += self.drain(0.002)  # a release draws nothing; pick up a straggler if it did
        return ms, got


def parse_tree(path):
    """(depth, title, keys) per screen the walk reached, in walk order."""
    screens = []
    line_re = re.compile(r"^( *)(.+?)  \[(.*?)\]  lines:")
    with open(path) as tree:
        for line in tree:
            m = line_re.match(line)
            if not m or m.group(3) == "start":
                continue
            keys = []
            for word in m.group(3).split():
                count = re.match(r"(\d+)xDOWN", word)
                keys += ["DOWN"] * int(count.group(1)) if count else [word]
            screens.append(((len(m.group(1)) - 2) // 2, m.group(2), keys))
    return screens


class Rig:
    """unitd on the full unit, the panel end, and the daemon between them."""

    def __init__(self, build):
        self.tmp = tempfile.mkdtemp(prefix="fp-bench.")
        self.unit_sock = os.path.join(self.tmp, "unit.sock")
        self.unitd = subprocess.Popen([os.path.join(build, "unit/unitd"), "--unit", os.path.join(
            ROOT, "unit/units/full.json"), "--socket", self.unit_sock],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + WAIT_S
        while not os.path.exists(self.unit_sock):
            if time.monotonic() > deadline or self.unitd.poll() is not None:
                raise RuntimeError("unitd did not open its socket")
            time.sleep(0.01)
        self.panel = Panel()
        self.daemon = subprocess.Popen([FRONTPANEL, "--controller", "unix:" + self.unit_sock],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.panel.accept()
        self.panel.wait_for(ALIAS)
        self.panel.drain(0.3)

    def close(self):
        self.daemon.terminate()
        self.daemon.wait(5)
        self.unitd.terminate()
        self.unitd.wait(5)
        self.panel.close()
        shutil.rmtree(self.tmp, ignore_errors=True)
        if os.path.exists(PIDFILE):
            os.unlink(PIDFILE)

    def keys(self, keys):
        """Presses paced by the first byte of each answer (the key queue is short), then
        waits for the panel to settle."""
        for key in keys:
            self.panel.send_key(key, DOWN_STATE)
            self.panel.recv(1.0)
            self.panel.send_key(key, UP_STATE)
        self.panel.drain()


def bench_keys(rig, presses, rows):
    """DOWN on the main menu; ENTER on the line those DOWNs left selected, which opens a
    screen, and EXIT back."""
    rig.keys(["ENTER"])  # home -> main menu
    for key in ("DOWN", "ENTER"):
        times, sizes = [], []
        for _ in range(presses):
            ms, got = rig.panel.press(key)
            if ms is None:
                raise RuntimeError(f"{key} on the main menu drew nothing")
            times.append(ms)
            sizes.append(len(got))
            if key == "ENTER":
                rig.panel.press("EXIT")
        label = "DOWN on the main menu" if key == "DOWN" else "ENTER opening a screen"
        rows.append((f"key to display, {label}", f"median {statistics.median(times):.3f} ms, "
                     f"p99 {pct(times, 99):.3f} ms, max {max(times):.3f} ms ({presses} presses, "
                     f"{sum(t > 1.0 for t in times)} over 1 ms)"))
        rows.append((f"  display bytes per press", f"{statistics.median(sizes):.0f} "
                     f"({link_ms(statistics.median(sizes)):.1f} ms at {BAUD} baud)"))
    rig.keys(["EXIT"])  # back home


def bench_screens(rig, tree, repeats, rows):
    """Every screen of the walk, entered from the home page by the keys the walk found: the
    last key is timed. (A parent screen may reset its selection when shown again, so each
    entry starts from home.)"""
    per_screen = []
    for depth, title, keys in tree:
        times, sizes = [], []
        for _ in range(repeats):
            rig.keys(keys[:-1])
            ms, got = rig.panel.press(keys[-1])
            if ms is None:
                raise RuntimeError(f"\"{title}\" ({' '.join(keys)}) drew nothing")
            times.append(ms)
            sizes.append(len(got))
            rig.keys(["EXIT"] * depth)  # home: as many EXITs as the screen is deep
        per_screen.append((title, statistics.median(times), pct(times, 99), statistics.median(sizes)))
    worst = max(p99 for _, _, p99, _ in per_screen)
    all_median = statistics.median(m for _, m, _, _ in per_screen)
    rows.append((f"screen entry to display, {len(per_screen)} screens x {repeats}",
                 f"median of medians {all_median:.2f} ms, worst p99 {worst:.2f} ms"))
    for title, median, p99, _ in sorted(per_screen, key=lambda s: -s[2])[:5]:
        rows.append((f"  slow: {title}", f"median {median:.2f} ms, p99 {p99:.2f} ms"))
    sizes = [size for _, _, _, size in per_screen]
    rows.append(("  display bytes per entry", f"median {statistics.median(sizes):.0f}, max {max(sizes):.0f} "
                 f"({link_ms(statistics.median(sizes)):.1f} / {link_ms(max(sizes)):.1f} ms at {BAUD} baud)"))
    rows.append(("resident memory after the walk", f"{rss_kib(rig.daemon.pid) / 1024.0:.1f} MiB"))


def bench_idle(rig, seconds, rows):
    rig.panel.drain(0.3)
    before, start = cpu_ns(rig.daemon.pid), time.monotonic()
    drawn = 0
    while time.monotonic() - start < seconds:
        drawn += len(rig.panel.recv(0.5))
    used = (cpu_ns(rig.daemon.pid) - before) / 1e9
    rows.append((f"idle CPU on the home page, {seconds:.0f} s",
                 f"{100.0 * used / (time.monotonic() - start):.3f} % of a core ({drawn} display bytes)"))


def bench_storm(rig, events, rows):
    """The home page's alias written `events` times as fast as unitd answers, with the panel
    read all the while (as ttyhub does: a panel end that stops reading stalls the daemon)."""
    link = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
    link.connect(rig.unit_sock)
    values = [f"S{n:05d}" for n in range(1, events + 1)]
    last = values[-1].encode()
    seen = {"answered": None, "failed": 0, "shown": None, "bytes": 0}

    def read_answers():
        pending, buf = events, b""
        while pending:
            chunk = link.recv(65536)
            if not chunk:
                break
            buf += chunk
            while b"\n" in buf:
                line, buf = buf.split(b"\n", 1)
                if b'"id"' in line:
                    pending -= 1
                    seen["failed"] += not json.loads(line).get("ok", False)
        seen["answered"] = time.perf_counter()

    def read_panel():
        tail, deadline = b"", time.monotonic() + 60
        while seen["shown"] is None and time.monotonic() < deadline:
            chunk = rig.panel.recv(0.1)
            seen["bytes"] += len(chunk)
            tail = tail[-len(last):] + chunk
            if last in tail:
                seen["shown"] = time.perf_counter()

    rig.panel.drain(0.3)
    before = cpu_ns(rig.daemon.pid)
    readers = [threading.Thread(target=read_answers), threading.Thread(target=read_panel)]
    for reader in readers:
        reader.start()
    start = time.perf_counter()
    for n, value in enumerate(values, 1):
        link.sendall((json.dumps({"id": n, "op": "set", "client": "bench", "name": "unitAlias",
                                  "instance": ".0", "value": value, "force": True}) + "\n").encode())
    for reader in readers:
        reader.join()
    used = cpu_ns(rig.daemon.pid) - before
    link.close()
    if seen["failed"]:
        raise RuntimeError(f"unitd refused {seen['failed']} of the storm's writes")
    if seen["shown"] is None:
        raise RuntimeError("the panel never showed the storm's last value")
    rows.append((f"event storm, {events} writes of the alias",
                 f"{events / (seen['answered'] - start):.0f} writes/s; last write to panel "
                 f"{(seen['shown'] - seen['answered']) * 1000.0:.1f} ms; daemon CPU "
                 f"{used / events / 1000.0:.1f} us/event"))
    rows.append(("  display bytes in the storm", f"{seen['bytes']} ({link_ms(seen['bytes']) / 1000.0:.1f} s "
                 f"at {BAUD} baud)"))


def bench_startup(runs, rows):
    """Process start to the home page drawn, on the built-in full unit."""
    times, memory = [], []
    for _ in range(runs):
        panel = Panel()
        start = time.monotonic()
        proc = subprocess.Popen([FRONTPANEL], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            panel.accept()
            panel.wait_for(ALIAS)
            times.append((time.monotonic() - start) * 1000.0)
            time.sleep(0.2)  # the first redraws settle before the memory is read
            memory.append(rss_kib(proc.pid))
        finally:
            proc.terminate()
            proc.wait(5)
            panel.close()
            if os.path.exists(PIDFILE):
                os.unlink(PIDFILE)
    rows.append((f"start-up to the home page, {runs} runs",
                 f"median {statistics.median(times):.1f} ms, max {max(times):.1f} ms; "
                 f"{statistics.median(memory) / 1024.0:.1f} MiB resident"))


def main():
    global ROOT, FRONTPANEL
    args, quick, only = sys.argv[1:], False, None
    if "--quick" in args:
        args.remove("--quick")
        quick = True
    if "--only" in args and args.index("--only") + 1 < len(args):
        only = args.pop(args.index("--only") + 1)
        args.remove("--only")
    if len(args) != 2 or os.environ.get("FPNS") != "1" or only not in (None,) + SECTIONS:
        sys.exit("usage: scripts/fpns.sh scripts/bench.py BUILD_DIR TREE_FILE [--quick] "
                 "[--only " + "|".join(SECTIONS) + "]")
    ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    build = os.path.abspath(args[0])
    FRONTPANEL = os.path.join(build, "controller/frontpanel/frontpanel")
    tree = parse_tree(args[1])
    if not tree:
        sys.exit(f"bench.py: no screens in {args[1]}")

    rows = []
    run = lambda section: only in (None, section)
    if only != "startup":
        rig = Rig(build)
        try:
            if run("keys"):
                bench_keys(rig, 100 if quick else 500, rows)
            if run("screens"):
                bench_screens(rig, tree, 1 if quick else 5, rows)
            if run("idle"):
                bench_idle(rig, 10 if quick else 60, rows)
            if run("storm"):
                bench_storm(rig, 10000, rows)
        finally:
            rig.close()
    if run("startup"):
        bench_startup(5 if quick else 20, rows)

    width = max(len(name) for name, _ in rows)
    for name, value in rows:
        print(f"{name:<{width}}  {value}")


if __name__ == "__main__":
    main()
