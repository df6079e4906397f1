#!/usr/bin/env bash
# Builds everything, then runs the front-panel daemon on the built-in virtual unit with the
# panel emulator in this terminal, inside a private mount namespace so that the daemon's
# fixed paths under /var/run and /var/config are fresh tmpfs folders of its own.
#
#   scripts/demo.sh [--web [[ADDRESS:]PORT]] [panelsim options...]
#
# --web also serves the panel to web browsers (127.0.0.1:8080 unless given) and prints the
# address to open; without a terminal, the web panel alone runs until Ctrl-C.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build="$root/build"

"$root/scripts/deps.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build "$build" -j"$(nproc)"

missing=()
for bin in controller/frontpanel/frontpanel tools/panelsim/panelsim; do
  [[ -x "$build/$bin" ]] || missing+=("$(basename "$bin")")
done
if [[ ${#missing[@]} -gt 0 ]]; then
  echo "Built what exists. Not there yet: ${missing[*]}; the demo runs once they land."
  exit 0
fi
args=()
while [[ $# -gt 0 ]]; do
  if [[ "$1" == "--web" ]]; then
    where=127.0.0.1:8080
    if [[ $# -gt 1 && "$2" =~ ^(.+:)?[0-9]+$ ]]; then
      where=$2
      shift
    fi
    [[ "$where" == *:* ]] || where=127.0.0.1:$where
    args+=(--web "$where")
    echo "The panel in a web browser: open http://$where/"
    [[ -t 0 && -t 1 ]] && sleep 2  # time to read it before the terminal panel takes the screen
  else
    args+=("$1")
  fi
  shift
done
exec "$root/scripts/fpns.sh" "$root/scripts/demo-inner.sh" "$build" ${args[@]+"${args[@]}"}
