#!/usr/bin/env bash
# Builds everything and runs every test.
#   scripts/test.sh                     Debug build in build/, instrumented for coverage
#                                       (scripts/coverage.sh reports it)
#   scripts/test.sh --sanitize address  ASan+UBSan build in build-asan/
#   scripts/test.sh --sanitize thread   TSan build in build-tsan/
# Any further arguments go to ctest (for example -R Keypad or -L e2e).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

sanitize=""
if [[ "${1:-}" == "--sanitize" ]]; then
  sanitize=${2:?--sanitize needs address or thread}
  shift 2
fi
case "$sanitize" in
  "") build="$root/build" ;;
  address) build="$root/build-asan" ;;
  thread) build="$root/build-tsan" ;;
  *) echo "test.sh: --sanitize takes address or thread" >&2; exit 2 ;;
esac

"$root/scripts/deps.sh"
# The web panel's browser test needs Chromium; without it that one test is skipped.
"$root/scripts/deps.sh" browser || echo "test.sh: Chromium could not be installed; the browser test will be skipped" >&2

jobs=$(nproc)
plain=$([[ -z "$sanitize" ]] && echo ON || echo OFF)
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DFP_SANITIZE="$sanitize" -DFP_WERROR=ON \
  -DFP_BUILD_BENCHMARKS="$plain" -DFP_COVERAGE="$plain" >/dev/null
cmake --build "$build" -j"$jobs"
# Coverage counts add up from run to run: start from none, so the report is this run's.
if [[ -z "$sanitize" ]]; then
  find "$build" -name '*.gcda' -delete
fi

# Halt on the first sanitizer report, so no finding scrolls by unnoticed.
# check_printf=0: the select line's deliberate two-step "%0%X" pattern is not a fault.
export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1:check_printf=0:${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:${UBSAN_OPTIONS:-}"
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:check_printf=0:${TSAN_OPTIONS:-}"

run=()
if [[ "$sanitize" == "thread" ]]; then
  # ThreadSanitizer cannot map its shadow memory under the high ASLR entropy of newer
  # kernels; run the tests with address randomisation off.
  run=(setarch "$(uname -m)" -R)
fi
# The walk of the whole tree tells a screen change from a settled panel by a quiet period,
# which a sanitizer's slowdown stretches past; it checks the tree, not the threads, and runs
# in the plain build. The monkey soak drives the sanitizer builds through the same screens.
# The package check runs nothing of ours: the plain build does it.
exclude=()
if [[ -n "$sanitize" ]]; then
  exclude=(-E 'TreeWalk|Packages')
fi
"${run[@]}" ctest --test-dir "$build" --output-on-failure -j"$jobs" "${exclude[@]}" "$@"
