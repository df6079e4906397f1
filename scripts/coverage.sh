#!/usr/bin/env bash
# Line and branch coverage of a build made with -DFP_COVERAGE=ON (scripts/test.sh makes its
# Debug build so), after its tests have run.
#
#   scripts/coverage.sh [--build DIR] [--check]
#
# Prints the figures per folder (controller, platform, unit, tools; tests and benchmarks
# left out). With
# --check, fails when the line coverage of controller/ is more than two points below the
# figure recorded in docs/testing.md ("controller line coverage: NN.N %").
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build="$root/build" check=0
while [[ $# -gt 0 ]]; do
  case "$1" in
    --build) build=$(cd "$2" && pwd); shift 2 ;;
    --check) check=1; shift ;;
    *) echo "usage: $(basename "$0") [--build DIR] [--check]" >&2; exit 2 ;;
  esac
done
command -v gcovr >/dev/null || { echo "coverage.sh: gcovr is missing (scripts/deps.sh installs it)" >&2; exit 2; }
summary=$(mktemp)
trap 'rm -f "$summary"' EXIT
# Throw and unreachable branches are the compiler's, not the code's: left out of the count.
gcovr -r "$root" --object-directory "$build" -j "$(nproc)" \
  --filter "$root/(controller|platform|unit|tools)/" --exclude '.*/(tests|bench)/.*' \
  --exclude-throw-branches --exclude-unreachable-branches \
  --json-summary "$summary" "$build" >/dev/null
python3 - "$summary" "$root/docs/testing.md" "$check" <<'PY'
import json, re, sys
summary, notes, check = sys.argv[1], sys.argv[2], sys.argv[3] == "1"
folders = {}
for f in json.load(open(summary))["files"]:
    top = f["filename"].split("/")[0]
    t = folders.setdefault(top, [0, 0, 0, 0])
    t[0] += f["line_covered"]; t[1] += f["line_total"]
    t[2] += f["branch_covered"]; t[3] += f["branch_total"]
pct = lambda a, b: 100.0 * a / b if b else 0.0
print("coverage      lines              branches")
for top in sorted(folders):
    lc, lt, bc, bt = folders[top]
    print("%-12s %5.1f %% %6d/%-6d %5.1f %% %6d/%-6d" % (top, pct(lc, lt), lc, lt, pct(bc, bt), bc, bt))
if check:
    m = re.search(r"controller line coverage: ([0-9.]+) %", open(notes).read())
    if not m:
        sys.exit("coverage.sh: no \"controller line coverage: NN.N %\" in docs/testing.md")
    recorded = float(m.group(1))
    now = pct(*folders.get("controller", [0, 0])[:2])
    if now < recorded - 2.0:
        sys.exit("coverage.sh: controller line coverage %.1f %% is more than two points below the recorded %.1f %%"
                 % (now, recorded))
    print("controller line coverage %.1f %% (recorded %.1f %%): fine" % (now, recorded))
PY
