#!/usr/bin/env python3
"""Start-up of the daemon, measured as a person at the panel sees it.

Runs inside scripts/fpns.sh (the daemon's fixed paths are private there):

    scripts/fpns.sh scripts/startup-time.py build-release/controller/frontpanel/frontpanel [RUNS]

Each run listens on the panel socket, starts the daemon on the built-in full unit, and
takes the time from the process start to the first display frame that carries the home
page's alias, then the daemon's resident memory at that moment. Prints each run and the
medians.
"""
import os
import socket
import statistics
import subprocess
import sys
import time

PANEL = "/var/run/ttyhub.ttyS4.socket"
ALIAS = b"Uplink IRD 3"  # the full unit's alias, on the home page's title row


def rss_kib(pid):
    with open(f"/proc/{pid}/status") as status:
        for line in status:
            if line.startswith("VmRSS:"):
                return int(line.split()[1])
    return 0


def one_run(daemon):
    if os.path.exists(PANEL):
        os.unlink(PANEL)
    server = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
    server.bind(PANEL)
    server.listen(1)
    start = time.monotonic()
    proc = subprocess.Popen([daemon], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        server.settimeout(10)
        conn, _ = server.accept()
        conn.settimeout(10)
        received = b""
        while ALIAS not in received:
            chunk = conn.recv(65536)
            if not chunk:
                raise RuntimeError("the daemon closed the panel link before the home page")
            received += chunk
        elapsed = (time.monotonic() - start) * 1000.0
        time.sleep(0.2)  # let the first redraws settle before reading the memory
        return elapsed, rss_kib(proc.pid)
    finally:
        proc.terminate()
        proc.wait(5)
        server.close()
        if os.path.exists("/var/run/frontpanel.pid"):
            os.unlink("/var/run/frontpanel.pid")


def main():
    if len(sys.argv) < 2 or os.environ.get("FPNS") != "1":
        sys.exit("usage: scripts/fpns.sh scripts/startup-time.py FRONTPANEL [RUNS]")
    daemon = os.path.abspath(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 20
    times, memory = [], []
    for n in range(runs):
        ms, kib = one_run(daemon)
        times.append(ms)
        memory.append(kib)
        print(f"run {n + 1}: {ms:.1f} ms to the home page, {kib} KiB resident")
    print(f"median: {statistics.median(times):.1f} ms, {statistics.median(memory):.0f} KiB resident "
          f"({runs} runs)")


if __name__ == "__main__":
    main()
