#!/usr/bin/env bash
# Takes the road of a newcomer: clones a commit into a bare Debian 12 and runs the README's two commands there. The
# machine is made for the occasion, from this machine's own apt sources and settings, and taken away on every exit.
# Nothing but the compiler's cache is carried in. Usage: scripts/bare_debian.sh [COMMIT]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
commit=$(git rev-parse "${1:-HEAD}")
[ "$(id -u)" -eq 0 ] || { echo "A bare Debian can be made by root only." >&2; exit 1; }
command -v mmdebstrap >/dev/null || { echo "mmdebstrap is not installed." >&2; exit 1; }

place=$(mktemp -d /tmp/bare-debian.XXXXXX)
root=$place/root
clean() {
  local mount
  # What hangs deepest goes first; nothing may be left that a removal would follow into this machine.
  while read -r mount; do umount "$mount" 2>/dev/null || umount -l "$mount"; done \
    < <(awk -v root="$root" 'index($5, root "/") == 1 {print $5}' /proc/self/mountinfo | sort -r)
  if grep -qF " $root/" /proc/self/mountinfo; then
    echo "$root still has mounts and was left" >&2
  else
    rm -rf --one-file-system "$place"
  fi
}
trap clean EXIT
trap 'exit 130' INT TERM HUP

settings=()
for file in /etc/apt/apt.conf /etc/apt/apt.conf.d/*; do
  [ -f "$file" ] && grep -qiE '^[[:space:]]*acquire' "$file" && settings+=(--aptopt="$file")
done
sources=()
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
  [ -s "$file" ] && sources+=("$file")
done
echo "Making a bare Debian 12 ..."
if ! mmdebstrap --quiet --mode=root --variant=minbase "${settings[@]}" bookworm "$root" "${sources[@]}" \
     >"$place/log" 2>&1; then
  cat "$place/log" >&2
  echo "The bare Debian could not be made." >&2
  exit 1
fi
cp /etc/resolv.conf /etc/hosts "$root/etc/"
mount -t proc proc "$root/proc"
mount -t sysfs -o ro sysfs "$root/sys"
mount --rbind /dev "$root/dev"
mount --make-rslave "$root/dev"

git clone --quiet --no-hardlinks . "$root/tav"
git -C "$root/tav" checkout --quiet --detach "$commit"
cache=$(ccache --get-config cache_dir 2>/dev/null || true)
if [ -d "$cache" ]; then
  mkdir -p "$root/ccache"
  mount --bind "$cache" "$root/ccache"
fi
in_there() {
  env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
    CCACHE_DIR=/ccache \
    chroot "$root" /bin/sh -c "cd /tav && $1"
}
for command in "./run new --depth 60 --time 25 --gas Tx18/45" "./test"; do
  echo "\$ $command ($SECONDS s)"
  in_there "$command"
done
