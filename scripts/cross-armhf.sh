#!/usr/bin/env bash
# 32-bit ARM cross build: builds the tree for arm-linux-gnueabihf in build-armhf and runs
# the platform library tests under qemu-arm. Idempotent and callable from any directory.
#   scripts/cross-armhf.sh            whole tree, then the Qb tests
#   scripts/cross-armhf.sh --qb       only the Qb library and its tests
#   scripts/cross-armhf.sh --package  whole tree and the Qb tests, then the armhf Debian
#                                     packages of this build, checked (build-armhf/packages)
#   scripts/cross-armhf.sh --sysroot  only the sysroot (for other armhf builds)
# Further arguments go to ctest.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
sysroot="$root/sysroot-armhf"
build="$root/build-armhf"

targets=()
package=0
sysroot_only=0
case "${1:-}" in
  --qb) targets=(--target qbtools qbtools_test); shift ;;
  --package) package=1; shift ;;
  --sysroot) sysroot_only=1; shift ;;
esac

"$root/scripts/deps.sh" cross

SUDO=()
[[ $(id -u) -eq 0 ]] || SUDO=(sudo)

# armhf packages whose headers and libraries the build needs (libc and libstdc++ come with
# the cross compiler). Debian cannot install -dev packages for two architectures at once,
# so they are downloaded and unpacked into the sysroot instead of installed.
packages=(
  libgtest-dev:armhf libgmock-dev:armhf
  liblog4cpp5-dev:armhf liblog4cpp5v5:armhf
  libncurses-dev:armhf libncurses6:armhf libncursesw6:armhf libtinfo6:armhf
  libcpp-httplib-dev:armhf libcpp-httplib0.11:armhf libssl-dev:armhf libssl3:armhf
  zlib1g-dev:armhf zlib1g:armhf libbrotli-dev:armhf libbrotli1:armhf
  nlohmann-json3-dev # architecture-independent: headers and CMake files only
)

candidate() { apt-cache policy "$1" 2>/dev/null | awk '/Candidate:/ { print $2 }'; }
have_lists() { local c; c=$(candidate libgtest-dev:armhf); [[ -n "$c" && "$c" != "(none)" ]]; }

if ! dpkg --print-foreign-architectures | grep -qx armhf; then
  echo "Adding the armhf architecture to dpkg"
  "${SUDO[@]}" dpkg --add-architecture armhf
fi
if ! have_lists; then
  # A mirror that is half-synced for one suite (say, security) must not stop us when the
  # main archive's armhf lists arrived; the check below decides.
  "${SUDO[@]}" apt-get update -qq || echo "cross-armhf.sh: apt-get update reported errors; going on" >&2
  if ! have_lists; then
    echo "cross-armhf.sh: no armhf package lists (apt-get update failed)" >&2
    exit 1
  fi
fi

# The sysroot is rebuilt only when the wanted package versions change.
wanted=$(for p in "${packages[@]}"; do echo "$p $(candidate "$p")"; done)
if [[ ! -f "$sysroot/.packages" || "$(cat "$sysroot/.packages")" != "$wanted" ]]; then
  echo "Unpacking armhf packages into $sysroot"
  rm -rf "$sysroot"
  mkdir -p "$sysroot/.debs"
  (cd "$sysroot/.debs" && apt-get download -qq "${packages[@]}")
  for deb in "$sysroot"/.debs/*.deb; do
    dpkg -x "$deb" "$sysroot"
  done
  rm -rf "$sysroot/.debs"
  echo "$wanted" >"$sysroot/.packages"
fi
[[ $sysroot_only -eq 1 ]] && exit 0

jobs=$(nproc)
cmake -S "$root" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/armhf-toolchain.cmake" \
  -DCMAKE_BUILD_TYPE=Debug -DFP_WERROR=ON -DFP_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build "$build" -j"$jobs" "${targets[@]}"

ctest --test-dir "$build" --output-on-failure -j"$jobs" -L unit -R '^Qb' "$@"

if [[ $package -eq 1 ]]; then
  rm -rf "$build/packages"
  cpack --config "$build/CPackConfig.cmake" -B "$build/packages" >/dev/null
  "$root/scripts/check-packages.sh" "$build/packages" armhf
fi
