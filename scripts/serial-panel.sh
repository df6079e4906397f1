#!/usr/bin/env bash
# Bridges a serial port to the panel socket, so that the daemon drives a real front panel
# through a USB serial adapter in the lab. The bridge stands where the unit's serial
# multiplexer stands: it listens on the panel socket path and passes the bytes both ways
# unchanged (the line is raw: no echo, no newline or flow-control translation).
#
#   serial-panel.sh [--socket PATH] DEVICE [BAUD]
#
# DEVICE is the serial port (/dev/ttyUSB0), BAUD its speed (default 115200); the line runs
# 8 data bits, no parity, one stop bit, no flow control, modem lines ignored. The socket
# defaults to the daemon's /var/run/ttyhub.ttyS4.socket. A daemon that goes away and comes
# back is served again; stop the bridge with Ctrl-C (or a signal to its process group).
set -euo pipefail
name=$(basename "$0")
usage() { echo "usage: $name [--socket PATH] DEVICE [BAUD]" >&2; exit 2; }

socket=/var/run/ttyhub.ttyS4.socket
if [[ "${1:-}" == "--socket" ]]; then
  [[ $# -ge 2 && -n "$2" ]] || usage
  socket=$2
  shift 2
fi
[[ "${1:-}" == "-h" || "${1:-}" == "--help" ]] && usage
[[ $# -ge 1 && $# -le 2 ]] || usage
device=$1
baud=${2:-115200}

case "$baud" in
  1200|2400|4800|9600|19200|38400|57600|115200|230400|460800|921600) ;;
  *) echo "$name: baud rate '$baud' is not one of 1200 2400 4800 9600 19200 38400 57600 115200 230400 460800 921600" >&2
     exit 2 ;;
esac
if ! command -v socat >/dev/null; then
  echo "$name: socat is not installed (apt-get install socat)" >&2
  exit 1
fi
if [[ ! -c "$device" ]]; then
  echo "$name: $device is not a serial device (is the adapter plugged in?)" >&2
  exit 1
fi
if [[ ! -r "$device" || ! -w "$device" ]]; then
  echo "$name: no read and write access to $device (join its group, often dialout)" >&2
  exit 1
fi
# stty opens without waiting for the modem lines, and fails on anything but a terminal.
if ! stty -F "$device" >/dev/null 2>&1; then
  echo "$name: $device is not a serial port (not a terminal device)" >&2
  exit 1
fi
# Never take the path over from a live multiplexer or panel emulator; a stale file is fine.
if [[ -S "$socket" ]] && socat -u /dev/null "UNIX-CONNECT:$socket" 2>/dev/null; then
  echo "$name: something already listens on $socket" >&2
  exit 1
fi

# One connection at a time is the daemon; each (re)connection opens the device afresh.
# cfmakeraw first: the explicit line settings after it must not be undone.
exec socat "UNIX-LISTEN:$socket,fork,unlink-early,mode=0660" \
  "OPEN:$device,cfmakeraw,b$baud,cs8,parenb=0,cstopb=0,clocal=1,crtscts=0,ixon=0,ixoff=0"
