#!/usr/bin/env bash
# Checks the two Debian packages of one architecture.
#
#   scripts/check-packages.sh [--install] DIR ARCH
#
# DIR holds frontpanel_*_ARCH.deb and frontpanel-lab_*_ARCH.deb. Each package must hold
# exactly the files listed below (the README's "what lands where"), its programs and
# libraries must be executables of ARCH, and the daemon's log configuration a conffile.
# --install (host architecture only) also installs both into a throw-away root with
# dpkg --root (not as root: in a user namespace where the caller is root), checks that the
# unit got enabled there and that systemd accepts it (systemd-analyze verify), removes them
# and checks that only the log configuration stays, then purges them and checks that
# nothing stays. Exit status 77: --install impossible here.
set -euo pipefail
install=0
if [[ "${1:-}" == "--install" ]]; then
  install=1
  shift
  if [[ $(id -u) -ne 0 ]]; then
    unshare --user --map-root-user true 2>/dev/null ||
      { echo "check-packages.sh: --install needs root or unprivileged user namespaces" >&2; exit 77; }
    exec unshare --user --map-root-user "$0" --install "$@"
  fi
fi
dir=${1:?usage: check-packages.sh [--install] DIR ARCH}
arch=${2:?usage: check-packages.sh [--install] DIR ARCH}
case "$arch" in
  amd64) triplet=x86_64-linux-gnu; machine="X86-64"; class=ELF64 ;;
  armhf) triplet=arm-linux-gnueabihf; machine="ARM"; class=ELF32 ;;
  *) echo "check-packages.sh: unknown architecture '$arch' (amd64 or armhf)" >&2; exit 2 ;;
esac

daemon_files="/lib/systemd/system/frontpanel.service
/usr/sbin/frontpanel
/var/config/frontpanel-log4cpp.init"
lab_files="/usr/bin/frontpanel-serial-panel
/usr/bin/panelsim
/usr/bin/unitd
/usr/bin/zorctl
/usr/lib/$triplet/libqbtools.so.1
/usr/lib/$triplet/libqbtools.so.1.0.0
/usr/lib/$triplet/libzor.so.1
/usr/lib/$triplet/libzor.so.1.0.0
/usr/share/frontpanel/units/full.json
/usr/share/frontpanel/units/minimal.json"
elf_files="/usr/sbin/frontpanel /usr/bin/panelsim /usr/bin/unitd /usr/bin/zorctl
/usr/lib/$triplet/libqbtools.so.1.0.0 /usr/lib/$triplet/libzor.so.1.0.0"
conffile=/var/config/frontpanel-log4cpp.init

failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

one_deb() {
  local found=("$dir"/"$1"_*_"$arch".deb)
  [[ ${#found[@]} -eq 1 && -f "${found[0]}" ]] || { echo "check-packages.sh: want one $1_*_$arch.deb in $dir" >&2; exit 1; }
  echo "${found[0]}"
}
daemon_deb=$(one_deb frontpanel)
lab_deb=$(one_deb frontpanel-lab)

# Files and links of a package (no folders), as absolute paths.
contents() { dpkg-deb -c "$1" | awk '$1 !~ /^d/ { sub(/^\./, "", $6); print $6 }' | sort; }

tmp=$(mktemp -d /tmp/check-packages.XXXXXX)
trap 'rm -rf "$tmp"' EXIT

for pkg in daemon lab; do
  deb=${pkg}_deb; want=${pkg}_files
  [[ "$(dpkg-deb -f "${!deb}" Architecture)" == "$arch" ]] || fail "${!deb}: not an $arch package"
  diff <(echo "${!want}" | sort) <(contents "${!deb}") >"$tmp/diff" ||
    fail "${!deb} holds other files than listed (< missing, > unexpected):$(echo; cat "$tmp/diff")"
  dpkg-deb -x "${!deb}" "$tmp/contents"
done
for file in $elf_files; do
  header=$(readelf -h "$tmp/contents$file" 2>/dev/null) || { fail "$file is not an ELF file"; continue; }
  grep -q "Class: *$class" <<<"$header" && grep -q "Machine: *.*$machine" <<<"$header" ||
    fail "$file is not an $arch executable: $(grep -E 'Class|Machine' <<<"$header" | tr -s ' ' | tr '\n' ' ')"
done
dpkg-deb --ctrl-tarfile "$daemon_deb" | tar -xOf - ./conffiles 2>/dev/null | grep -qx "$conffile" ||
  fail "$conffile is not a conffile of the daemon package"

if [[ $install -eq 1 ]]; then
  root="$tmp/root"
  mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
  touch "$root/var/lib/dpkg/status"
  # No dependencies in an empty root; maintainer scripts run here with DPKG_ROOT set.
  dpkg=(dpkg --root="$root" --log=/dev/null --force-script-chrootless --force-depends
        --force-bad-path --force-unsafe-io)
  "${dpkg[@]}" -i "$lab_deb" "$daemon_deb" >"$tmp/dpkg.log" 2>&1 || { cat "$tmp/dpkg.log" >&2; fail "dpkg -i failed"; }

  while read -r file; do
    [[ -e "$root$file" ]] || fail "$file is missing after installation"
  done <<<"$daemon_files"$'\n'"$lab_files"
  [[ -L "$root/etc/systemd/system/multi-user.target.wants/frontpanel.service" ]] ||
    fail "the daemon's unit was not enabled on installation"
  # The unit as installed, with its programs where the package put them: the throw-away
  # root's /usr/sbin is bound over the host's in a private mount namespace.
  if ! unshare --mount --propagation private sh -c \
      'mount --bind "$1/usr/sbin" /usr/sbin && exec systemd-analyze verify --man=no "$1/lib/systemd/system/frontpanel.service"' \
      verify "$root" >"$tmp/verify.log" 2>&1; then
    fail "systemd-analyze verify: $(cat "$tmp/verify.log")"
  fi

  "${dpkg[@]}" -r frontpanel frontpanel-lab >"$tmp/dpkg.log" 2>&1 || { cat "$tmp/dpkg.log" >&2; fail "dpkg -r failed"; }
  left=$(cd "$root" && find . ! -type d ! -path './var/lib/dpkg/*' | sed 's/^\.//' | sort)
  [[ "$left" == "$conffile" ]] || fail "after removal, want only $conffile left; found:$(echo; echo "$left")"
  "${dpkg[@]}" --purge frontpanel frontpanel-lab >"$tmp/dpkg.log" 2>&1 || { cat "$tmp/dpkg.log" >&2; fail "dpkg --purge failed"; }
  left=$(cd "$root" && find . ! -type d ! -path './var/lib/dpkg/*' | sed 's/^\.//' | sort)
  [[ -z "$left" ]] || fail "after purge, found:$(echo; echo "$left")"
fi

if [[ $failures -ne 0 ]]; then
  echo "check-packages.sh: $failures check(s) failed for $arch" >&2
  exit 1
fi
echo "check-packages.sh: $arch packages in order$([[ $install -eq 1 ]] && echo ', installed, removed and purged')"
