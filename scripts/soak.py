#!/usr/bin/env python3
"""Monkey soak of the whole daemon: random keys on a panel end, random controller changes,
unitd restarts and panel drops, for a bounded, seeded time. Run through scripts/soak.sh,
which puts it in a private namespace (the daemon's paths are fixed)."""

import argparse
import json
import os
import random
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time

PANEL_SOCKET = "/var/run/ttyhub.ttyS4.socket"
KEYS = {"LEFT": 1, "UP": 2, "RIGHT": 3, "DOWN": 4, "EXIT": 5, "ENTER": 6}
KEY_DOWN, KEY_UP = 1, 2
SANITIZER_MARKS = ("ERROR: AddressSanitizer", "ERROR: LeakSanitizer", "WARNING: ThreadSanitizer",
                   "runtime error", "ERROR: UndefinedBehaviorSanitizer")
HANG_MS = 5000
# Objects whose changes start behaviours that are not status: left to their own tests.
SKIP_OBJECTS = {"systemState", "updateStart", "updateStage", "updateProgress", "updateCompletionCode",
                "profileApplyProfileState", "datetimeNow", "frontpanelLockStatus"}
CLIENT = "soak"
OTHER_CLIENT = "operator"  # another manager of the unit, behind the soak's back


def now():
    return time.monotonic()


def frame(key, state):
    return bytes([0x09, ord("K"), key, state, 0x7E])


class Panel:
    """The panel's end of the socket: listens, sends key reports, notes when bytes come back."""

    def __init__(self):
        self.lock = threading.Lock()
        self.conn = None
        self.connections = 0
        self.last_rx = now()
        self.rx_bytes = 0
        # Keys sent since the last byte from the daemon: (time, key name).
        self.unanswered = []
        self.listener = None
        self.stop = False
        self.open_listener()
        threading.Thread(target=self.serve, daemon=True).start()

    def open_listener(self):
        if os.path.exists(PANEL_SOCKET):
            os.unlink(PANEL_SOCKET)
        s = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        s.bind(PANEL_SOCKET)
        s.listen(4)
        s.settimeout(0.2)
        self.listener = s

    def serve(self):
        while not self.stop:
            try:
                c, _ = self.listener.accept()
            except (socket.timeout, OSError):
                continue
            with self.lock:
                if self.conn:
                    self.conn.close()
                self.conn = c
                self.connections += 1
            threading.Thread(target=self.read, args=(c,), daemon=True).start()

    def read(self, c):
        while True:
            try:
                data = c.recv(4096)
            except OSError:
                return
            if not data:
                return
            with self.lock:
                self.last_rx = now()
                self.rx_bytes += len(data)
                self.unanswered.clear()

    def connected(self):
        with self.lock:
            return self.conn is not None

    def send(self, key, state):
        with self.lock:
            c = self.conn
        if c is None:
            return False
        try:
            c.sendall(frame(KEYS[key], state))
        except OSError:
            return False
        if state == KEY_DOWN:
            with self.lock:
                self.unanswered.append((now(), key))
        return True

    def drop(self):
        """Closes the daemon's connection and the listener, then listens again."""
        with self.lock:
            c, self.conn = self.conn, None
            self.unanswered.clear()
        if c:
            c.shutdown(socket.SHUT_RDWR)
            c.close()
        self.listener.close()
        self.open_listener()


class Unit:
    """unitd on a unit file, restartable; its write journal is collected before every stop."""

    def __init__(self, unitd, unit_file, sock, logdir):
        self.unitd, self.unit_file, self.sock, self.logdir = unitd, unit_file, sock, logdir
        self.proc = None
        self.starts = 0
        self.journal = []
        self.next_id = 1

    def start(self):
        self.starts += 1
        err = open(os.path.join(self.logdir, "unitd.%d.err" % self.starts), "w")
        self.proc = subprocess.Popen([self.unitd, "--unit", self.unit_file, "--socket", self.sock],
                                     stdout=subprocess.DEVNULL, stderr=err)
        end = now() + 30
        while now() < end:
            if self.ask({"op": "get", "keys": ["unitAlias.0"]}, timeout=1) is not None:
                return
            time.sleep(0.05)
        raise RuntimeError("unitd did not come up")

    def stop(self):
        answer = self.ask({"op": "writes", "since": 0}, timeout=5)
        if answer and answer.get("ok"):
            self.journal.extend(answer.get("writes", []))
        self.proc.terminate()
        self.proc.wait(10)

    def ask(self, request, timeout=5.0):
        request = dict(request, id=self.next_id)
        self.next_id += 1
        try:
            s = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
            s.settimeout(timeout)
            s.connect(self.sock)
            s.sendall((json.dumps(request) + "\n").encode())
            buf = b""
            end = now() + timeout
            while now() < end:
                chunk = s.recv(65536)
                if not chunk:
                    break
                buf += chunk
                while b"\n" in buf:
                    line, buf = buf.split(b"\n", 1)
                    try:
                        msg = json.loads(line)
                    except ValueError:
                        continue
                    if isinstance(msg, dict) and msg.get("id") == request["id"]:
                        s.close()
                        return msg
            s.close()
        except OSError:
            pass
        return None

    def set(self, name, instance, value, force=True, client=CLIENT):
        return self.ask({"op": "set", "client": client, "name": name, "instance": instance,
                         "value": value, "force": force})


def asan_build(build):
    try:
        with open(os.path.join(build, "CMakeCache.txt")) as f:
            return "FP_SANITIZE:STRING=address" in f.read()
    except OSError:
        return False


def mode_of(answer):
    """The lock mode in an answer to a get of frontpanelLockMode.0, or None."""
    try:
        return int(answer["values"]["frontpanelLockMode"][".0"])
    except (TypeError, KeyError, ValueError):
        return None


def random_value(rng, d):
    t = d["type"]
    if t == "enum":
        return rng.choice(d["texts"])
    if t == "bool":
        return rng.choice([True, False])
    if t == "int":
        lo, hi = d.get("min", 0), d.get("max", 100000)
        return rng.randint(lo, min(hi, lo + 100000))
    if t == "double":
        lo, hi = d.get("min", -1000.0), d.get("max", 1000.0)
        return round(rng.uniform(lo, hi), 2)
    text = rng.choice(["", "x", "Soak", "0123456789", "A long text for a short row"])
    return text[: d.get("maxlen", 64)]


def rss_kb(pid):
    try:
        with open("/proc/%d/status" % pid) as f:
            for line in f:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
    except OSError:
        pass
    return None


def sanitizer_report(path):
    try:
        with open(path, errors="replace") as f:
            text = f.read()
    except OSError:
        return None
    for mark in SANITIZER_MARKS:
        i = text.find(mark)
        if i >= 0:
            return text[max(0, text.rfind("\n", 0, i)):][:2000]
    return None


def thread_stacks(pid, logdir):
    """Every thread's stack of the live daemon, taken with gdb before the teardown."""
    path = os.path.join(logdir, "hang-stacks.txt")
    try:
        out = subprocess.run(["gdb", "-p", str(pid), "-batch", "-nx", "-ex", "thread apply all bt"],
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60,
                             universal_newlines=True).stdout
    except (OSError, subprocess.TimeoutExpired) as e:
        return "thread stacks: gdb failed (%s)" % e
    with open(path, "w") as f:
        f.write(out)
    stacks = "\n".join(l for l in out.splitlines() if l.startswith(("Thread ", "#")))
    return "thread stacks (also in %s):\n%s" % (path, stacks)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--seconds", type=int, default=120)
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--build", required=True)
    ap.add_argument("--units", required=True)
    ap.add_argument("--unitd-build", default=None)
    ap.add_argument("--warmup", type=int, default=None)
    ap.add_argument("--keep", default=None, help="folder for the logs (default: a temporary one)")
    # Checks the checker: stops the daemon (SIGSTOP) at this second for good, so a hang
    # must be reported.
    ap.add_argument("--freeze-at", type=int, default=None)
    # Checks the checker the other way: another client disables the panel at this second
    # for 30 s, which the soak must not take for a hang.
    ap.add_argument("--foreign-lock-at", type=int, default=None)
    a = ap.parse_args()

    if os.environ.get("FPNS") != "1":
        sys.exit("soak.py: run through scripts/soak.sh (needs the private namespace)")
    rng = random.Random(a.seed)
    logdir = a.keep or tempfile.mkdtemp(prefix="soak.")
    os.makedirs(logdir, exist_ok=True)
    frontpanel = os.path.join(a.build, "controller/frontpanel/frontpanel")
    unitd = os.path.join(a.unitd_build or a.build, "unit/unitd")
    unit_file = os.path.join(a.units, "full.json")
    with open(unit_file) as f:
        objects = json.load(f)["objects"]
    status = sorted(n for n, d in objects.items() if d.get("readonly") and n not in SKIP_OBJECTS)
    alarms = sorted(objects["alarmState"]["values"].keys())

    stats = dict(keys=0, holds=0, combos=0, changes=0, alarms=0, lockmodes=0, unitd_restarts=0,
                 panel_drops=0)
    failures = []
    panel = Panel()
    unit = Unit(unitd, unit_file, os.path.join(logdir, "unitd.sock"), logdir)
    unit.start()
    fp_err_path = os.path.join(logdir, "frontpanel.err")
    fp = subprocess.Popen([frontpanel, "--controller", "unix:" + unit.sock],
                          stdout=open(os.path.join(logdir, "frontpanel.out"), "w"),
                          stderr=open(fp_err_path, "w"))
    start = now()
    end = start + a.seconds
    warmup = a.warmup if a.warmup is not None else min(30, a.seconds // 4)
    if a.warmup is None and asan_build(a.build):
        # ASan's quarantine of freed blocks (16 MB, scripts/soak.sh) fills in the first 10 to
        # 15 minutes at the soak's pace; growth is measured once it is full.
        warmup = min(900, a.seconds // 4)
    rss_start = rss_end = rss_max = None
    lock_mode = 1
    # Times until which a silent panel is explained by something else than a hang.
    excused_until = now() + 30  # start-up
    stop_ctl = threading.Event()
    foreign_lock = threading.Event()
    ctl_lock = threading.Lock()  # the key loop and the controller loop share excused_until

    def excuse(seconds):
        nonlocal excused_until
        with ctl_lock:
            excused_until = max(excused_until, now() + seconds)

    def note_lock_mode(mode):
        """The lock mode the unit holds now, whoever set it: this soak, the daemon's own lock
        screen (random keys reach it and confirm "Disable Panel" now and then) or a unitd
        restart. A disabled panel keeps the home page whatever key comes, so a silence then
        is the behaviour asked for, not a hang."""
        nonlocal lock_mode
        with ctl_lock:
            changed = mode != lock_mode
            lock_mode = mode
        if changed:
            excuse(5)  # the panel may ignore keys while locked or disabled

    def controller_loop(crng):
        while not stop_ctl.is_set():
            time.sleep(crng.uniform(0.1, 0.6))
            r = crng.random()
            if r < 0.65:
                name = crng.choice(status)
                inst = crng.choice(sorted(objects[name]["values"].keys()))
                if unit.set(name, inst, random_value(crng, objects[name])):
                    stats["changes"] += 1
            elif r < 0.95:
                if unit.set("alarmState", crng.choice(alarms), crng.choice([1, 3])):
                    stats["alarms"] += 1
            elif not foreign_lock.is_set():
                mode = crng.choice([1, 1, 1, 2, 3])
                if unit.set("frontpanelLockMode", ".0", mode):
                    stats["lockmodes"] += 1
                    note_lock_mode(mode)

    ctl = threading.Thread(target=controller_loop, args=(random.Random(rng.random()),), daemon=True)
    ctl.start()
    next_restart = now() + rng.uniform(20, 40)
    next_drop = now() + rng.uniform(15, 35)
    frozen = False
    foreign_locked, foreign_unlock = False, None
    next_mode_look = now()
    try:
        while now() < end and not failures:
            t = now()
            if fp.poll() is not None:
                failures.append("frontpanel exited with status %s" % fp.returncode)
                break
            report = sanitizer_report(fp_err_path)
            if report:
                failures.append("sanitizer report in frontpanel's stderr:\n" + report)
                break
            if a.freeze_at is not None and not frozen and t - start >= a.freeze_at:
                os.kill(fp.pid, signal.SIGSTOP)
                frozen = True
                next_restart = next_drop = end + 1
            if a.foreign_lock_at is not None and t - start >= a.foreign_lock_at and not foreign_locked:
                # Another client disables the panel behind the soak's back for 30 s, which
                # nothing else (the soak's own lock modes, a restart, a drop) interrupts.
                foreign_locked = True
                foreign_lock.set()
                if unit.set("frontpanelLockMode", ".0", 1):
                    note_lock_mode(1)  # the soak's own view: the panel is free
                unit.set("frontpanelLockMode", ".0", 3, client=OTHER_CLIENT)
                foreign_unlock = t + 30
                next_restart = max(next_restart, t + 35)
                next_drop = max(next_drop, t + 35)
            if foreign_unlock is not None and t >= foreign_unlock:
                unit.set("frontpanelLockMode", ".0", 1, client=OTHER_CLIENT)
                foreign_unlock = None
                foreign_lock.clear()
            if t >= next_mode_look:
                answer = unit.ask({"op": "get", "keys": ["frontpanelLockMode.0"]}, timeout=1)
                mode = mode_of(answer)
                if mode is not None:
                    note_lock_mode(mode)
                next_mode_look = t + 0.5
            rss = rss_kb(fp.pid)
            if rss is not None:
                if t - start >= warmup:
                    if rss_start is None:
                        rss_start = rss
                    rss_end = rss
                    rss_max = max(rss_max or 0, rss)
            # Hang: the oldest unanswered key is older than 5 s, the unanswered keys include
            # UP, DOWN and EXIT (some of which changes the screen wherever it is), and neither
            # a lock mode, a unitd restart nor a panel reconnection explains the silence.
            with panel.lock:
                pending = list(panel.unanswered)
            with ctl_lock:
                excused = t < excused_until or lock_mode != 1
            if pending and not excused and t - pending[0][0] > HANG_MS / 1000.0:
                names = {k for _, k in pending}
                if {"UP", "DOWN", "EXIT"} <= names:
                    failures.append("hang: %d keys (%s) unanswered for %.1f s" %
                                    (len(pending), ",".join(k for _, k in pending), t - pending[0][0]))
                    failures.append(thread_stacks(fp.pid, logdir))
                    break
            if excused:
                with panel.lock:
                    panel.unanswered.clear()
            if t >= next_restart:
                stats["unitd_restarts"] += 1
                excuse(15)
                unit.stop()
                time.sleep(rng.uniform(0.2, 2.0))
                unit.start()
                next_restart = now() + rng.uniform(20, 40)
                continue
            if t >= next_drop:
                stats["panel_drops"] += 1
                excuse(15)
                panel.drop()
                next_drop = now() + rng.uniform(15, 35)
                continue
            r = rng.random()
            # ENTER, UP and DOWN weigh more so that edits get confirmed now and then.
            key = rng.choice(["LEFT", "RIGHT", "UP", "UP", "DOWN", "DOWN", "EXIT", "ENTER", "ENTER", "ENTER"])
            if r < 0.8:
                if panel.send(key, KEY_DOWN):
                    stats["keys"] += 1
                time.sleep(rng.uniform(0.02, 0.15))
                panel.send(key, KEY_UP)
            elif r < 0.93:
                if panel.send(key, KEY_DOWN):
                    stats["holds"] += 1
                time.sleep(rng.uniform(0.6, 3.0))
                panel.send(key, KEY_UP)
            else:
                held = rng.choice([rng.uniform(0.3, 3.0), rng.uniform(5.8, 7.0)])
                if panel.send("LEFT", KEY_DOWN) and panel.send("RIGHT", KEY_DOWN):
                    stats["combos"] += 1
                time.sleep(held)
                panel.send("LEFT", KEY_UP)
                panel.send("RIGHT", KEY_UP)
            time.sleep(rng.uniform(0.05, 0.5))
    finally:
        stop_ctl.set()
        ctl.join(5)
        alive = fp.poll() is None
        if alive:
            if frozen:
                os.kill(fp.pid, signal.SIGCONT)
            fp.terminate()
            try:
                fp.wait(20)
            except subprocess.TimeoutExpired:
                fp.kill()
                failures.append("frontpanel did not stop on SIGTERM")
        unit.stop()
        panel.stop = True

    report = sanitizer_report(fp_err_path)
    if report and not any(f.startswith("sanitizer") for f in failures):
        failures.append("sanitizer report in frontpanel's stderr:\n" + report)
    for i in range(1, unit.starts + 1):
        r = sanitizer_report(os.path.join(logdir, "unitd.%d.err" % i))
        if r:
            failures.append("sanitizer report in unitd's stderr:\n" + r)

    # Every write the daemon made reached the unit and was either applied or refused with
    # a message the daemon could show.
    daemon_writes = [w for w in unit.journal if w.get("client") not in (CLIENT, OTHER_CLIENT)]
    lock_writes = [w for w in daemon_writes if w.get("name") == "frontpanelLockMode" and w.get("ok")]
    ok_writes = sum(1 for w in daemon_writes if w.get("ok"))
    refused = [w for w in daemon_writes if not w.get("ok")]
    silent = [w for w in refused if not w.get("msg")]
    if silent:
        failures.append("%d writes refused without a message, first: %s" % (len(silent), silent[0]))
    if panel.connections < stats["panel_drops"] + 1:
        failures.append("the daemon connected the panel %d times for %d drops" %
                        (panel.connections, stats["panel_drops"]))
    if rss_start and rss_end and rss_end > rss_start * 1.10:
        failures.append("resident memory grew from %d kB to %d kB after warm-up" % (rss_start, rss_end))

    print("soak: seed %d, %d s, build %s, logs %s" % (a.seed, a.seconds, a.build, logdir))
    print("  keys %d, holds %d, LEFT+RIGHT combos %d" % (stats["keys"], stats["holds"], stats["combos"]))
    print("  controller changes %d, alarm raises/clears %d, lock mode changes %d" %
          (stats["changes"], stats["alarms"], stats["lockmodes"]))
    print("  unitd restarts %d, panel reconnects %d (connections seen %d), panel bytes %d" %
          (stats["unitd_restarts"], stats["panel_drops"], panel.connections, panel.rx_bytes))
    print("  daemon writes %d (applied %d, refused with a message %d)" %
          (len(daemon_writes), ok_writes, len(refused) - len(silent)))
    print("  lock modes set by the daemon's lock screen %d: %s" %
          (len(lock_writes), ",".join(str(w.get("value")) for w in lock_writes) or "-"))
    print("  RSS after warm-up: start %s kB, end %s kB, max %s kB" % (rss_start, rss_end, rss_max))
    if failures:
        for f in failures:
            print("FAIL: " + f)
        return 1
    print("soak passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
