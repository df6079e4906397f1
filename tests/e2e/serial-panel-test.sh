#!/usr/bin/env bash
# The serial panel bridge end to end, with a pseudo-terminal in place of the USB adapter:
#
#   frontpanel -> panel socket -> serial-panel.sh -> pty -> socat -> panelsim
#
# The home page must arrive whole (its key-hint glyphs include 0x7F, which a terminal not
# in raw mode takes for an erase), a key must travel back (ENTER opens the main menu), no
# frame may be damaged, and the daemon must still stop in order through the bridge.
#
#   scripts/fpns.sh tests/e2e/serial-panel-test.sh FRONTPANEL PANELSIM
set -euo pipefail
frontpanel=${1:?usage: serial-panel-test.sh FRONTPANEL PANELSIM}
panelsim=${2:?usage: serial-panel-test.sh FRONTPANEL PANELSIM}
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
[[ "${FPNS:-}" == 1 ]] || { echo "run it through scripts/fpns.sh (it needs a private /var/run)" >&2; exit 2; }
command -v socat >/dev/null || { echo "socat is not installed (scripts/deps.sh installs it)" >&2; exit 1; }

tmp=$(mktemp -d /tmp/serial-panel-test.XXXXXX)
pids=()
finish() {
  local status=$?
  # The bridge forks a child per connection: it is ended with its process group.
  [[ -n "${bridge:-}" ]] && kill -KILL -- "-$bridge" 2>/dev/null || true
  for pid in "${pids[@]}"; do kill -KILL "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  if [[ $status -ne 0 ]]; then
    for log in "$tmp"/*.log; do echo "--- ${log##*/}"; cat "$log"; done
  fi
  rm -rf "$tmp"
}
trap finish EXIT
# Waits up to 30 s for a condition; every step here should take well under a second.
await() {
  local what=$1; shift
  for _ in $(seq 300); do "$@" && return 0; sleep 0.1; done
  echo "timed out waiting for $what" >&2
  return 1
}

cat >"$tmp/panel.script" <<'SCRIPT'
connect 30000
expect row 0 "         Uplink IRD 3      ~$@" 30000
expect row 2 "Input: DVB-S2"
press ENTER
expect row 0 "          Main Menu         $@" 10000
errors 0
SCRIPT

"$panelsim" --socket "$tmp/panel.sock" --script "$tmp/panel.script" >"$tmp/panelsim.log" 2>&1 &
panel=$!
pids+=("$panel")
await "panelsim's socket" test -S "$tmp/panel.sock"

# The panel's side of the serial line: a pty whose master is relayed to panelsim; its slave
# is the "device" the bridge opens. Left in a terminal's default (cooked) mode, as a fresh
# USB adapter comes up: making the line raw is the bridge's job.
socat "PTY,link=$tmp/ttyPANEL,wait-slave" "UNIX-CONNECT:$tmp/panel.sock" >"$tmp/pty.log" 2>&1 &
pids+=("$!")
await "the pseudo-terminal" test -e "$tmp/ttyPANEL"

setsid "$root/scripts/serial-panel.sh" "$tmp/ttyPANEL" 115200 >"$tmp/bridge.log" 2>&1 &
bridge=$!
await "the bridge's socket" test -S /var/run/ttyhub.ttyS4.socket

"$frontpanel" --controller embedded </dev/null >"$tmp/frontpanel.log" 2>&1 &
daemon=$!
pids+=("$daemon")

status=0
wait "$panel" || status=$?
if [[ $status -ne 0 ]]; then
  echo "panelsim's script failed (status $status)" >&2
  exit 1
fi

# The pid file goes last in an orderly stop.
kill -USR1 "$daemon"
await "the daemon's orderly stop" test ! -e /var/run/frontpanel.pid
wait "$daemon" || { echo "frontpanel exited with status $? after SIGUSR1" >&2; exit 1; }
echo "home page and main menu drawn through the serial bridge"
