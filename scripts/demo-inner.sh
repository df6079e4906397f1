#!/usr/bin/env bash
# The demo inside its namespace (scripts/demo.sh runs it through scripts/fpns.sh): the
# daemon in the background on the built-in virtual unit, the panel emulator in this
# terminal. When the emulator quits, the daemon is stopped in order (SIGUSR1).
#
#   scripts/fpns.sh scripts/demo-inner.sh BUILD_DIR [panelsim options...]
set -euo pipefail
build=${1:?usage: demo-inner.sh BUILD_DIR [panelsim options...]}
shift
if [[ "${FPNS:-}" != 1 ]]; then
  echo "demo-inner.sh: run it through scripts/fpns.sh (it needs a private /var/run)" >&2
  exit 2
fi
frontpanel="$build/controller/frontpanel/frontpanel"
panelsim="$build/tools/panelsim/panelsim"
socket=/var/run/ttyhub.ttyS4.socket
log=$(mktemp /tmp/frontpanel-demo.XXXXXX)

# The daemon waits for the emulator's socket, so the panel sees it clear the display. It runs
# in a session of its own: Ctrl-C (the way out of a web panel without a terminal) reaches
# the emulator only, and the daemon is stopped in order below.
(
  for _ in $(seq 100); do
    [[ -S "$socket" ]] && break
    sleep 0.1
  done
  exec setsid "$frontpanel" --controller embedded
) </dev/null >"$log" 2>&1 &
daemon=$!
trap 'kill -KILL "$daemon" 2>/dev/null || true' EXIT

status=0
"$panelsim" --socket "$socket" "$@" || status=$?

kill -USR1 "$daemon" 2>/dev/null || true
for _ in $(seq 100); do
  kill -0 "$daemon" 2>/dev/null || break
  sleep 0.1
done
if kill -0 "$daemon" 2>/dev/null; then
  echo "frontpanel did not stop within 10 s; killing it" >&2
  kill -KILL "$daemon" 2>/dev/null || true
fi
daemon_status=0
wait "$daemon" 2>/dev/null || daemon_status=$?
echo "frontpanel exited with status $daemon_status; its output: $log"
exit "$status"
