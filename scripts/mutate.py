#!/usr/bin/env python3
"""Mutation check: how many small faults planted in the daemon and the platform do the
tests catch?

    scripts/mutate.py [--count 60] [--seed 1] [--build build-mutate] [--list] [--only N]

Collects every place in controller/ and platform/ (tests left out) where one small fault can
be planted (a comparison flipped, a constant changed by one, a boolean swapped, a logical
operator swapped, a call statement dropped), picks --count of them with a fixed seed, and
for each: plants it, rebuilds incrementally, runs the unit tests, and puts the file back.
A fault is killed when a test fails (or the build's tests time out) and fails again when
run once more, survives otherwise, and is stillborn when it does not compile (not
counted). Prints each result and the share killed; the survivors are the places where a
test is worth its lines.

The same seed and count give the same faults for the same sources, so figures taken before
and after a change of the tests compare.
"""
import argparse
import os
import random
import re
import shutil
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FOLDERS = ["controller", "platform"]

# (name, pattern, replacement): each match of the pattern on a line is one candidate.
OPERATORS = [
    ("== to !=", re.compile(r"(?<=[\w\)\]\s])==(?=[\s\w\(\"'])"), "!="),
    ("!= to ==", re.compile(r"(?<=[\w\)\]\s])!=(?=[\s\w\(\"'])"), "=="),
    ("< to <=", re.compile(r"(?<=\s)<(?=\s)"), "<="),
    ("> to >=", re.compile(r"(?<=\s)>(?=\s)"), ">="),
    ("<= to <", re.compile(r"(?<=\s)<=(?=\s)"), "<"),
    (">= to >", re.compile(r"(?<=\s)>=(?=\s)"), ">"),
    ("&& to ||", re.compile(r"(?<=\s)&&(?=\s)"), "||"),
    ("|| to &&", re.compile(r"(?<=\s)\|\|(?=\s)"), "&&"),
    ("true to false", re.compile(r"\btrue\b"), "false"),
    ("false to true", re.compile(r"\bfalse\b"), "true"),
]
CONSTANT = re.compile(r"(?<![\w.])(\d+)(?![\w.])")
CALL_STATEMENT = re.compile(r"^(\s*)((?:m_p?\w+|p\w+|\w+)(?:->|\.)\w+\(.*\);)\s*$")
SKIP_LINE = re.compile(r"^\s*(#|//|\*|/\*)|static_assert|assert\(|printf|MyPrintf|\.debug\(|\.error\(")


def sources():
    for folder in FOLDERS:
        for dirpath, dirnames, filenames in os.walk(os.path.join(ROOT, folder)):
            dirnames[:] = [d for d in dirnames if d != "tests"]
            for name in sorted(filenames):
                if name.endswith(".cpp"):
                    yield os.path.join(dirpath, name)


def candidates():
    found = []
    for path in sorted(sources()):
        with open(path, encoding="utf-8", errors="replace") as f:
            lines = f.readlines()
        for number, line in enumerate(lines):
            if SKIP_LINE.search(line) or '"' in line and "==" not in line:
                continue
            for name, pattern, replacement in OPERATORS:
                for match in pattern.finditer(line):
                    found.append((path, number, match.start(), match.end(), replacement, name))
            for match in CONSTANT.finditer(line):
                value = int(match.group(1))
                if value < 1000:
                    found.append((path, number, match.start(), match.end(), str(value + 1), "constant + 1"))
            call = CALL_STATEMENT.match(line)
            if call and "return" not in line and "delete" not in line:
                found.append((path, number, len(call.group(1)), len(line.rstrip("\n")), ";", "call dropped"))
    return found


def plant(mutation):
    path, number, start, end, replacement, _ = mutation
    with open(path, encoding="utf-8") as f:
        original = f.read()
    lines = original.splitlines(keepends=True)
    line = lines[number]
    lines[number] = line[:start] + replacement + line[end:]
    with open(path, "w", encoding="utf-8") as f:
        f.write("".join(lines))
    return original


def run(cmd, timeout):
    try:
        return subprocess.run(cmd, cwd=ROOT, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=timeout).returncode
    except subprocess.TimeoutExpired:
        return -1


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--build", default="build-mutate")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 2)
    parser.add_argument("--list", action="store_true", help="print the chosen faults and stop")
    parser.add_argument("--only", type=int, help="run only fault number N of the chosen ones")
    args = parser.parse_args()

    pool = candidates()
    chosen = random.Random(args.seed).sample(pool, min(args.count, len(pool)))
    print(f"{len(pool)} places, {len(chosen)} chosen with seed {args.seed}")
    if args.list:
        for i, (path, number, _, _, _, name) in enumerate(chosen, 1):
            print(f"{i:3} {os.path.relpath(path, ROOT)}:{number + 1} {name}")
        return 0

    build = os.path.join(ROOT, args.build)
    # Sixty rebuilds: no debug information (links take a fraction of the time) and Ninja when
    # it is there (its no-op check of the whole tree is quick). Neither changes what runs.
    configure = ["cmake", "-S", ROOT, "-B", build, "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0",
                 "-DFP_BUILD_BENCHMARKS=OFF"]
    if shutil.which("ninja") and not os.path.exists(os.path.join(build, "CMakeCache.txt")):
        configure += ["-G", "Ninja"]
    if run(configure, 600) != 0:
        sys.exit("mutate.py: cmake failed")
    if run(["cmake", "--build", build, f"-j{args.jobs}"], 3600) != 0:
        sys.exit("mutate.py: the unmutated tree does not build")
    test = ["ctest", "--test-dir", build, f"-j{args.jobs}", "-L", "unit", "--stop-on-failure", "--timeout", "60"]
    rerun = ["ctest", "--test-dir", build, "--rerun-failed", "--timeout", "60"]

    killed, survived, stillborn = 0, [], 0
    for i, mutation in enumerate(chosen, 1):
        if args.only and i != args.only:
            continue
        path, number, _, _, _, name = mutation
        where = f"{os.path.relpath(path, ROOT)}:{number + 1} {name}"
        original = plant(mutation)
        began = time.monotonic()
        try:
            if run(["cmake", "--build", build, f"-j{args.jobs}"], 1800) != 0:
                stillborn += 1
                print(f"{i:3} stillborn {where} ({time.monotonic() - began:.0f} s)", flush=True)
                continue
            # A kill must be repeatable: the failed tests run once more, so one flaky test on
            # a loaded machine does not count as a caught fault.
            if run(test, 1800) != 0 and run(rerun, 1800) != 0:
                killed += 1
                print(f"{i:3} killed    {where} ({time.monotonic() - began:.0f} s)", flush=True)
            else:
                survived.append(where)
                print(f"{i:3} SURVIVED  {where} ({time.monotonic() - began:.0f} s)", flush=True)
        finally:
            with open(path, "w", encoding="utf-8") as f:
                f.write(original)
    run(["cmake", "--build", build, f"-j{args.jobs}"], 3600)  # back to the real sources
    counted = killed + len(survived)
    share = 100.0 * killed / counted if counted else 0.0
    print(f"killed {killed} of {counted} ({share:.1f} %), {stillborn} stillborn")
    for where in survived:
        print(f"survivor: {where}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
