#!/usr/bin/env bash
# Builds the fuzz targets (clang, libFuzzer, ASan+UBSan) in build-fuzz and runs each one for
# a bounded time on a copy of its seed corpus and its fixed regression inputs.
#
#   scripts/fuzz.sh [SECONDS] [TARGET...]
#
# SECONDS per target (default 60; 0 = no time bound, stop at FUZZ_RUNS executions).
# TARGETs are the names under fuzz/corpus/ (default: all). Environment:
#   FUZZ_RUNS=N        stop a target after N executions (the long run: 10000000)
#   FUZZ_BUILD_DIR=DIR build folder (default build-fuzz)
#   FUZZ_JOBS=N        build parallelism (default 2)
#   FUZZ_FORKS=N       fuzz each target in N worker processes sharing one corpus (libFuzzer's
#                      fork mode; FUZZ_RUNS then counts the executions of all of them)
#   FUZZ_MAX_LEN=N     largest input the fuzzer makes (default: 1024 bytes for the keypad
#                      stream, 512 for unitd requests, 4096 for the others; regression inputs
#                      are first replayed whole, whatever their size)
# Exits non-zero on any crash, leak, sanitizer report, broken invariant or time-out, and
# prints the execution count of every target. Findings and logs stay in
# $FUZZ_BUILD_DIR/fuzz-runs/<target>/.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
[[ $# -gt 0 ]] && shift
if ! [[ "$seconds" =~ ^[0-9]+$ ]]; then
  echo "fuzz.sh: SECONDS must be a whole number, not '$seconds'" >&2
  exit 2
fi
runs=${FUZZ_RUNS:-}
if [[ "$seconds" -eq 0 && -z "$runs" ]]; then
  echo "fuzz.sh: SECONDS 0 needs FUZZ_RUNS" >&2
  exit 2
fi
build=${FUZZ_BUILD_DIR:-$root/build-fuzz}
jobs=${FUZZ_JOBS:-2}
# A kilobyte of panel bytes is a hundred key reports or four overlong frames, and half of
# one holds five to ten unitd requests, enough for any sequence (write, read back, watch,
# write again); longer inputs add little but cost the two slowest targets several times the
# run time.
max_len_of() {
  case "$1" in
    keypad_stream) echo 1024 ;;
    unitd_request) echo 512 ;;
    *) echo 4096 ;;
  esac
}
forks=${FUZZ_FORKS:-1}
if ! [[ "$forks" =~ ^[1-9][0-9]*$ ]]; then
  echo "fuzz.sh: FUZZ_FORKS must be a positive whole number, not '$forks'" >&2
  exit 2
fi

targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
  for dir in "$root"/fuzz/corpus/*/; do
    targets+=("$(basename "$dir")")
  done
fi
for t in "${targets[@]}"; do
  if [[ ! -d "$root/fuzz/corpus/$t" ]]; then
    echo "fuzz.sh: unknown target '$t' (known: $(ls "$root/fuzz/corpus" | tr '\n' ' '))" >&2
    exit 2
  fi
done

"$root/scripts/deps.sh" fuzz

cmake -S "$root" -B "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DFP_FUZZ=ON -DFP_BUILD_BENCHMARKS=OFF -DCMAKE_BUILD_TYPE=Debug >/dev/null
binaries=()
for t in "${targets[@]}"; do
  binaries+=("fuzz_$t")
done
cmake --build "$build" -j"$jobs" --target "${binaries[@]}"

# Findings still open are kept out of the seeds (they would stop the run at once).
open_findings=()
if [[ -f "$root/fuzz/regressions/OPEN" ]]; then
  while read -r first _; do
    [[ -z "$first" || "$first" == \#* ]] || open_findings+=("$first")
  done <"$root/fuzz/regressions/OPEN"
fi
is_open() {
  local f
  for f in "${open_findings[@]+"${open_findings[@]}"}"; do
    [[ "$f" == "$1" ]] && return 0
  done
  return 1
}

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

status=0
summary=()
for t in "${targets[@]}"; do
  work="$build/fuzz-runs/$t"
  rm -rf "$work"
  mkdir -p "$work/corpus"
  cp "$root/fuzz/corpus/$t"/* "$work/corpus/"
  # Regression inputs replay whole first; as seeds they are cut to the size limit, which
  # keeps one huge finding from making every later input that large (and the run that slow).
  replays=()
  if [[ -d "$root/fuzz/regressions/$t" ]]; then
    for f in "$root/fuzz/regressions/$t"/*; do
      [[ -f "$f" ]] || continue
      is_open "$t/$(basename "$f")" && continue
      replays+=("$f")
      cp "$f" "$work/corpus/regression-$(basename "$f")"
    done
  fi
  if [[ ${#replays[@]} -gt 0 ]] && ! "$build/fuzz/fuzz_$t" "${replays[@]}" >"$work/replay.log" 2>&1; then
    status=1
    summary+=("$(printf '%-16s %12s executions  FAILED (a regression input; see replay.log)' "$t" 0)")
    echo "-- $t: a regression input fails again; log: $work/replay.log"
    continue
  fi
  args=(-timeout=10 -max_len="${FUZZ_MAX_LEN:-$(max_len_of "$t")}" -print_final_stats=1 -artifact_prefix="$work/")
  [[ "$seconds" -gt 0 ]] && args+=(-max_total_time="$seconds")
  [[ -n "$runs" ]] && args+=(-runs="$runs")
  [[ "$forks" -gt 1 ]] && args+=(-fork="$forks")
  echo "== $t: ${seconds}s${runs:+, at most $runs runs}$([[ $forks -gt 1 ]] && echo ", $forks workers")"
  set +e
  "$build/fuzz/fuzz_$t" "${args[@]}" "$work/corpus" >"$work/log" 2>&1
  rc=$?
  set -e
  if [[ "$forks" -gt 1 ]]; then
    # The fork-mode parent reports the running total of all workers as "#N: cov: ...".
    execs=$(sed -n 's/^#\([0-9][0-9]*\): cov:.*/\1/p' "$work/log" | tail -n 1)
  else
    execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$work/log" | tail -n 1)
  fi
  execs=${execs:-?}
  if [[ $rc -ne 0 ]] || grep -qE 'ERROR: (AddressSanitizer|LeakSanitizer|libFuzzer)|runtime error:' "$work/log"; then
    status=1
    summary+=("$(printf '%-16s %12s executions  FAILED (exit %d)' "$t" "$execs" "$rc")")
    echo "-- $t failed; log: $work/log"
    grep -E 'ERROR|runtime error|invariant broken|Test unit written|SUMMARY' "$work/log" | head -20 || true
  else
    summary+=("$(printf '%-16s %12s executions  ok' "$t" "$execs")")
  fi
done

echo
echo "fuzz summary (${seconds}s per target${runs:+, at most $runs runs}):"
printf '  %s\n' "${summary[@]}"
exit $status
