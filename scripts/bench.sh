#!/usr/bin/env bash
# End-to-end benchmark of the Release daemon against unitd on the full unit, with this
# repository's script as the panel end. Reports; it is not a test and gates nothing.
#
#   scripts/bench.sh [--quick] [--only keys|screens|idle|storm|startup] [--build DIR] [--tree FILE]
#
# --quick takes fewer samples and a shorter idle period, for a look while working. --tree
# reuses a walk's printout (the walk takes minutes on a loaded machine); --save-tree FILE
# keeps this run's.
# DIR defaults to build-rel (configured as Release when new). The screens come from the tree
# walk on the full unit with the panel free; the figures are in docs/performance.md.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build-rel" extra=() tree="" save=""
while [[ $# -gt 0 ]]; do
  case "$1" in
    --quick) extra+=(--quick); shift ;;
    --only) extra+=(--only "$2"); shift 2 ;;
    --build) build=$2; shift 2 ;;
    --tree) tree=$(realpath "$2"); shift 2 ;;
    --save-tree) save=$2; shift 2 ;;
    *) echo "usage: $(basename "$0") [--quick] [--only SECTION] [--build DIR] [--tree FILE] [--save-tree FILE]" >&2; exit 2 ;;
  esac
done

"$root/scripts/deps.sh"
if [[ ! -f "$build/CMakeCache.txt" ]]; then
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DFP_WERROR=ON >/dev/null
fi
grep -q "CMAKE_BUILD_TYPE:STRING=Release" "$build/CMakeCache.txt" ||
  echo "bench: $build is not a Release build; its figures are not comparable" >&2
cmake --build "$build" -j"$(nproc)" >/dev/null

if [[ -z "$tree" ]]; then
  tree=$(mktemp)
  trap 'rm -f "$tree"' EXIT
  # The walk's checks are the tests' business: a failed check still leaves the screens it
  # reached, which is all the benchmark needs.
  "$root/scripts/fpns.sh" "$build/tests/e2e/fp_e2e_tests" \
    --gtest_filter='TreeWalk/TreeWalkTest.*/full_free' >"$tree" ||
    echo "bench: the tree walk failed a check; timing the screens it reached" >&2
  grep -q '^\[tree walk\]' "$tree" || { cat "$tree" >&2; echo "bench: the tree walk printed no tree" >&2; exit 1; }
  [[ -z "$save" ]] || cp "$tree" "$save"
fi

echo "frontpanel benchmark: $(git -C "$root" rev-parse --short HEAD)$(git -C "$root" diff --quiet HEAD || echo +), $(nproc) cores, $(uname -r)"
"$root/scripts/fpns.sh" "$root/scripts/bench.py" "$build" "$tree" "${extra[@]}"
