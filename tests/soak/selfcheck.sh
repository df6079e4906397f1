#!/usr/bin/env bash
# Checks that the soak's hang check fires: stops the daemon with SIGSTOP part-way through a
# short soak and expects the soak to fail with a hang.
#
#   tests/soak/selfcheck.sh [BUILD_DIR]      (default build-asan)
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$root/build-asan}" && pwd)
out=$("$root/scripts/fpns.sh" python3 "$root/scripts/soak.py" --seconds 90 --seed 3 --build "$build" \
  --units "$root/unit/units" --freeze-at 35 2>&1)
status=$?
echo "$out" | tail -3
if [[ $status -ne 0 ]] && grep -q "^FAIL: hang:" <<<"$out"; then
  echo "selfcheck passed: the frozen daemon was reported as a hang"
  exit 0
fi
echo "selfcheck FAILED: a frozen daemon was not reported as a hang (status $status)" >&2
exit 1
