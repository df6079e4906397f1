#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the tools need. Idempotent: only
# missing packages are installed (as root directly, otherwise through sudo).
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  liblog4cpp5-dev nlohmann-json3-dev libncurses-dev libcpp-httplib-dev
  util-linux procps python3 gcovr
  socat systemd
)
# Extra groups: "cross" for the 32-bit ARM build, "fuzz" for the fuzzers, "browser" for the
# web panel's test in a headless browser.
for group in "$@"; do
  case "$group" in
    cross) packages+=(g++-arm-linux-gnueabihf qemu-user dpkg-dev) ;;
    fuzz) packages+=(clang libclang-rt-14-dev) ;;
    browser) packages+=(chromium chromium-driver python3-selenium) ;;
    *) echo "deps.sh: unknown group '$group' (known: cross, fuzz, browser)" >&2; exit 2 ;;
  esac
done

missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$p")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "Installing: ${missing[*]}"
if [[ $(id -u) -eq 0 ]]; then
  SUDO=()
elif command -v sudo >/dev/null; then
  SUDO=(sudo)
else
  echo "deps.sh: missing packages and not root: ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
"${SUDO[@]}" apt-get update -qq
"${SUDO[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
