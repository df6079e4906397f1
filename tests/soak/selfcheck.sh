#!/usr/bin/env bash
# Checks the soak's hang check both ways:
# - a daemon stopped with SIGSTOP part-way through a short soak must be reported as a hang;
# - a panel disabled by another client (as the daemon's own lock screen can do) keeps the
#   home page whatever key comes, and that silence must not be reported as a hang.
#
#   tests/soak/selfcheck.sh [BUILD_DIR]      (default build-asan)
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$root/build-asan}" && pwd)
soak() {
  "$root/scripts/fpns.sh" python3 "$root/scripts/soak.py" --seed 3 --build "$build" \
    --units "$root/unit/units" "$@" 2>&1
}
failed=0

out=$(soak --seconds 90 --freeze-at 35)
status=$?
echo "$out" | tail -3
if [[ $status -ne 0 ]] && grep -q "^FAIL: hang:" <<<"$out"; then
  echo "selfcheck: the frozen daemon was reported as a hang"
else
  echo "selfcheck FAILED: a frozen daemon was not reported as a hang (status $status)" >&2
  failed=1
fi

out=$(soak --seconds 100 --foreign-lock-at 35)
status=$?
echo "$out" | tail -3
if grep -q "^FAIL: hang:" <<<"$out"; then
  echo "selfcheck FAILED: a panel disabled by another client was reported as a hang" >&2
  failed=1
elif [[ $status -ne 0 ]]; then
  echo "selfcheck FAILED: the soak with a disabled panel failed otherwise (status $status)" >&2
  failed=1
else
  echo "selfcheck: a panel disabled by another client was not taken for a hang"
fi
exit $failed
