#!/usr/bin/env bash
# Runs a command in a private mount namespace where /var/run and /var/config are fresh,
# empty tmpfs folders, so the daemon's fixed paths (pid file, panel socket, log
# configuration) are the command's own and nothing on the host is touched.
#
#   scripts/fpns.sh CMD [ARGS...]
#
# As root it only needs a mount namespace; otherwise it adds a user namespace in which the
# caller is root. The rest of /var is the host's, bound in unchanged. Inside, FPNS=1 is set.
set -euo pipefail

if [[ $# -eq 0 || "$1" == "-h" || "$1" == "--help" ]]; then
  echo "usage: $(basename "$0") CMD [ARGS...]" >&2
  exit 2
fi

if [[ "${1}" != "--fpns-inside" ]]; then
  flags=(--mount --propagation private)
  if [[ $(id -u) -ne 0 ]]; then
    flags+=(--user --map-root-user)
  fi
  if ! unshare "${flags[@]}" true 2>/dev/null; then
    if [[ $(id -u) -ne 0 ]]; then
      echo "fpns.sh: cannot create a private mount namespace: not root, and this system" \
        "refuses unprivileged user namespaces (see kernel.unprivileged_userns_clone or" \
        "user.max_user_namespaces); run as root" >&2
    else
      echo "fpns.sh: cannot create a private mount namespace (unshare --mount failed;" \
        "a container without CAP_SYS_ADMIN?)" >&2
    fi
    exit 125
  fi
  exec unshare "${flags[@]}" -- "$0" --fpns-inside "$@"
fi
shift

# Inside the namespace. A new /var is built on a tmpfs: every entry of the host's /var is
# bound in as it is, except run and config, which are fresh folders. (Mounting over
# /var/run directly would follow its usual symlink and cover /run; /var/config usually
# does not exist at all.)
stage=$(mktemp -d /tmp/fpns.XXXXXX)
mount -t tmpfs -o mode=0755 fpns-var "$stage"
shopt -s dotglob nullglob
for entry in /var/*; do
  name=${entry##*/}
  [[ "$name" == run || "$name" == config ]] && continue
  if [[ -L "$entry" ]]; then
    cp -P "$entry" "$stage/$name"
  elif [[ -d "$entry" ]]; then
    mkdir "$stage/$name"
    mount --rbind "$entry" "$stage/$name"
  else
    touch "$stage/$name"
    mount --bind "$entry" "$stage/$name"
  fi
done
mkdir -m 0755 "$stage/run" "$stage/config"
mount -t tmpfs -o mode=0755 fpns-run "$stage/run"
mount -t tmpfs -o mode=0755 fpns-config "$stage/config"
# A recursive bind, not a move: a user namespace may not move mounts it inherited.
mount --rbind "$stage" /var
umount --lazy "$stage"
rmdir "$stage"

export FPNS=1
exec "$@"
