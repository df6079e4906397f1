#!/usr/bin/env bash
# Monkey soak of the whole daemon on the full virtual unit: random keys, holds and LEFT+RIGHT
# combinations on the panel, random status changes, alarms and lock modes from a second
# client, unitd restarts and panel drops. Bounded and seeded; see tests/soak/README.md.
#
#   scripts/soak.sh [--seconds N] [--seed S] [--build DIR] [--keep LOGDIR] [--warmup SECONDS]
#
# DIR defaults to build-asan. A TSan build (FP_SANITIZE=thread) is run under
# `setarch -R` with halt_on_error=1 automatically.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=120 seed=1 build="$root/build-asan" extra=()
while [[ $# -gt 0 ]]; do
  case "$1" in
    --seconds) seconds=$2; shift 2 ;;
    --seed) seed=$2; shift 2 ;;
    --build) build=$(cd "$2" && pwd); shift 2 ;;
    --keep) extra+=(--keep "$2"); shift 2 ;;
    --warmup) extra+=(--warmup "$2"); shift 2 ;;
    *) echo "usage: $(basename "$0") [--seconds N] [--seed S] [--build DIR] [--keep LOGDIR] [--warmup SECONDS]" >&2; exit 2 ;;
  esac
done
[[ -x "$build/controller/frontpanel/frontpanel" ]] || { echo "soak: no frontpanel in $build" >&2; exit 2; }
# unitd is only the daemon's counterpart: take it from the build when it has one, else
# from the ASan build.
unitd_build=$build
[[ -x "$build/unit/unitd" ]] || unitd_build="$root/build-asan"
[[ -x "$unitd_build/unit/unitd" ]] || { echo "soak: no unitd in $build or build-asan" >&2; exit 2; }
run=()
if grep -q "FP_SANITIZE:STRING=thread" "$build/CMakeCache.txt" 2>/dev/null; then
  export TSAN_OPTIONS="halt_on_error=1 ${TSAN_OPTIONS:-}"
  run=(setarch "$(uname -m)" -R)
fi
# ASan keeps freed blocks in a quarantine of 256 MB by default, which fills over an hour and
# shows as RSS growth of the daemon; 16 MB keeps use-after-free detection for recent frees
# while the memory check sees the daemon's own growth. Leaks are LeakSanitizer's at exit.
export ASAN_OPTIONS="detect_leaks=1 quarantine_size_mb=16 ${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="print_stacktrace=1 ${UBSAN_OPTIONS:-}"
exec "${run[@]}" "$root/scripts/fpns.sh" python3 "$root/scripts/soak.py" --seconds "$seconds" \
  --seed "$seed" --build "$build" --unitd-build "$unitd_build" --units "$root/unit/units" "${extra[@]}"
