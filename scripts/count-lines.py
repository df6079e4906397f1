#!/usr/bin/env python3
"""Counts non-blank, non-comment lines of C++, Python and shell in the source tree, split
into test code (files under a tests/ folder, or named *Test* or test_*) and the rest.

    scripts/count-lines.py [--by-dir]
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CPP = (".cpp", ".cc", ".h", ".hpp")
SKIP_DIRS = {".git", "node_modules"}


def code_lines(path):
    cpp = path.endswith(CPP)
    count = 0
    in_block = False
    with open(path, errors="replace") as f:
        for raw in f:
            line = raw.strip()
            if cpp:
                if in_block:
                    if "*/" not in line:
                        continue
                    line = line.split("*/", 1)[1].strip()
                    in_block = False
                if line.startswith("/*"):
                    if "*/" not in line:
                        in_block = True
                        continue
                    line = line.split("*/", 1)[1].strip()
                if not line or line.startswith("//"):
                    continue
            else:
                if not line or (line.startswith("#") and not line.startswith("#!")):
                    continue
            count += 1
    return count


def kind(path):
    name = os.path.basename(path)
    if path.endswith(CPP):
        return "cpp"
    if name.endswith(".py"):
        return "py"
    if name.endswith(".sh") or (os.access(path, os.X_OK) and open(path, "rb").read(64).startswith(b"#!") and
                                b"sh" in open(path, "rb").readline()):
        return "sh"
    return None


def is_test(rel):
    parts = rel.split(os.sep)
    name = parts[-1]
    return "tests" in parts[:-1] or "Test" in name or name.startswith("test_")


def main():
    by_dir = "--by-dir" in sys.argv
    totals = {"test": 0, "code": 0}
    dirs = {}
    for dirpath, dirnames, filenames in os.walk(ROOT):
        rel_dir = os.path.relpath(dirpath, ROOT)
        top = rel_dir.split(os.sep)[0]
        if top.startswith(("build", "sysroot")) or top in SKIP_DIRS:
            dirnames[:] = []
            continue
        dirnames[:] = [d for d in dirnames if d not in SKIP_DIRS]
        for name in filenames:
            path = os.path.join(dirpath, name)
            if not os.path.isfile(path) or kind(path) is None:
                continue
            rel = os.path.relpath(path, ROOT)
            n = code_lines(path)
            which = "test" if is_test(rel) else "code"
            totals[which] += n
            key = os.path.dirname(rel)
            dirs.setdefault(key, {"test": 0, "code": 0})[which] += n
    if by_dir:
        for key in sorted(dirs):
            print("%6d %6d  %s" % (dirs[key]["code"], dirs[key]["test"], key))
    ratio = totals["test"] / totals["code"] if totals["code"] else 0.0
    print("tests %d, code %d, tests/code %.2f" % (totals["test"], totals["code"], ratio))


if __name__ == "__main__":
    main()
