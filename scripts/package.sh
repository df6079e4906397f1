#!/usr/bin/env bash
# Builds the Debian packages `frontpanel` and `frontpanel-lab` for amd64 and armhf from
# Release builds in their own folders (build-pkg-amd64/, build-pkg-armhf/), checks them
# (scripts/check-packages.sh; the amd64 ones are also installed into a throw-away root,
# removed and purged) and copies them to dist/. Idempotent, callable from any folder.
#
#   scripts/package.sh                 both architectures
#   scripts/package.sh amd64|armhf     one of them
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
dist="$root/dist"

arches=("$@")
[[ ${#arches[@]} -gt 0 ]] || arches=(amd64 armhf)
for arch in "${arches[@]}"; do
  [[ "$arch" == amd64 || "$arch" == armhf ]] || { echo "package.sh: architectures are amd64 and armhf, not '$arch'" >&2; exit 2; }
done

"$root/scripts/deps.sh" cross
export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER:-$(command -v ccache || true)}
export CMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER:-$(command -v ccache || true)}
jobs=$(nproc)
mkdir -p "$dist"

for arch in "${arches[@]}"; do
  build="$root/build-pkg-$arch"
  config=(-DCMAKE_BUILD_TYPE=Release -DFP_WERROR=ON -DFP_BUILD_TESTS=OFF -DFP_BUILD_BENCHMARKS=OFF
          -DCMAKE_INSTALL_PREFIX=/usr -DFP_UNITS_DIR=/usr/share/frontpanel/units)
  if [[ "$arch" == armhf ]]; then
    "$root/scripts/cross-armhf.sh" --sysroot
    config+=(-DCMAKE_TOOLCHAIN_FILE="$root/cmake/armhf-toolchain.cmake")
  elif [[ "$(dpkg --print-architecture)" != amd64 ]]; then
    echo "package.sh: amd64 packages are built on an amd64 machine" >&2
    exit 2
  fi
  echo "=== $arch: Release build in ${build#"$root"/}"
  cmake -S "$root" -B "$build" "${config[@]}" >/dev/null
  cmake --build "$build" -j"$jobs"
  rm -rf "$build/packages"
  cpack --config "$build/CPackConfig.cmake" -B "$build/packages" >/dev/null
  check=()
  [[ "$arch" == amd64 ]] && check=(--install)
  "$root/scripts/check-packages.sh" "${check[@]}" "$build/packages" "$arch"
  cp "$build"/packages/*.deb "$dist/"
done
ls -l "$dist"/*.deb
