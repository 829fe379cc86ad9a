#!/usr/bin/env bash
# Takes the road of a newcomer: clones a commit into a bare Debian and runs the README's ./run and ./test there. On
# Debian 12 it makes the package, too, and takes the road of a diver: installs it in another bare Debian 12, works with it,
# and removes it. On Debian 13 the tests run without a screen.
# The machines are made for the occasion, from this machine's own apt sources and settings, and taken away on every exit.
# Nothing but the compiler's cache is carried in. Usage: scripts/bare_debian.sh 12|13 [COMMIT]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
case ${1:-} in
  12) suite=bookworm ;;
  13) suite=trixie ;;
  *) echo "Usage: scripts/bare_debian.sh 12|13 [COMMIT]" >&2; exit 2 ;;
esac
commit=$(git rev-parse "${2:-HEAD}")
[ "$(id -u)" -eq 0 ] || { echo "A bare Debian can be made by root only." >&2; exit 1; }
command -v mmdebstrap >/dev/null || { echo "mmdebstrap is not installed." >&2; exit 1; }

place=$(mktemp -d /tmp/bare-debian.XXXXXX)
root=$place/root    # the newcomer's machine
diver=$place/diver  # the diver's machine
clean() {
  local mount
  # What hangs deepest goes first; nothing may be left that a removal would follow into this machine.
  while read -r mount; do umount "$mount" 2>/dev/null || umount -l "$mount"; done \
    < <(awk -v root="$place" 'index($5, root "/") == 1 {print $5}' /proc/self/mountinfo | sort -r)
  if grep -qF " $place/" /proc/self/mountinfo; then
    echo "$place still has mounts and was left" >&2
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
# Debian's own sources, for the suite that is wanted.
own=$(. /etc/os-release && echo "$VERSION_CODENAME")
mkdir "$place/sources"
sources=()
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
  grep -qsE "(^|[[:space:]])$own(-[a-z]+)?([[:space:]]|$)" "$file" || continue
  sed "s/\b$own\b/$suite/g" "$file" >"$place/sources/${file##*/}"
  sources+=("$place/sources/${file##*/}")
done
echo "Making a bare Debian $1 ..."
if ! mmdebstrap --quiet --mode=root --variant=minbase "${settings[@]}" "$suite" "$root" "${sources[@]}" \
     >"$place/log" 2>&1; then
  cat "$place/log" >&2
  echo "The bare Debian could not be made." >&2
  exit 1
fi
cp /etc/resolv.conf /etc/hosts "$root/etc/"
machines=("$root")
[ "$1" = 12 ] && cp -a "$root" "$diver" && machines+=("$diver")
for machine in "${machines[@]}"; do
  mount -t proc proc "$machine/proc"
  mount -t sysfs -o ro sysfs "$machine/sys"
  mount --rbind /dev "$machine/dev"
  mount --make-rslave "$machine/dev"
done

git clone --quiet --no-hardlinks . "$root/tav"
git -C "$root/tav" checkout --quiet --detach "$commit"
cache=$(ccache --get-config cache_dir 2>/dev/null || true)
if [ -d "$cache" ]; then
  mkdir -p "$root/ccache"
  mount --bind "$cache" "$root/ccache"
fi
# on MACHINE COMMAND, with nothing of this machine's environment
on() {
  env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
    CCACHE_DIR=/ccache DEBIAN_FRONTEND=noninteractive \
    chroot "$1" /bin/sh -c "$2"
}
commands=("./run new --depth 60 --time 25 --gas Tx18/45")
if [ "$1" = 12 ]; then commands+=("./test" "scripts/package"); else commands+=("./test -E ^Screen"); fi
for command in "${commands[@]}"; do
  echo "\$ $command ($SECONDS s)"
  on "$root" "cd /tav && $command"
done

[ "$1" = 12 ] || { echo "== done ($SECONDS s)"; exit 0; }
echo "== a diver's machine ($SECONDS s)"
cp "$root"/tav/build/package/tav_*.deb "$diver/tav.deb"
mkdir "$diver/portable"
tar -C "$diver/portable" --strip-components=1 -xzf "$root"/tav/build/package/tav_*.tar.gz
cat >"$diver/as_diver.sh" <<'EOF'
set -eux
# What is installed and what runs from its folder.
for tav in "" /portable/; do
  "${tav}tavplan" new --depth 60 --time 25 --gas Tx18/45 -o dive.tav >slate.txt
  "${tav}tavplan" report dive.tav --pdf dive.pdf
  "${tav}tavplan" export dive.tav --uddf dive.uddf
  QT_QPA_PLATFORM=offscreen "${tav}tav" --start-check
done
head -c 5 dive.pdf | grep -q '%PDF-'
if ldd /usr/bin/tavplan | grep -i qt; then exit 1; fi
EOF
cat >"$diver/as_root.sh" <<'EOF'
set -eux
{ apt-get update && apt-get install -y --no-install-recommends /tav.deb; } >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
useradd --create-home diver
su - diver -c "sh -e /as_diver.sh"
set +x
dpkg -L tav | while read -r path; do [ -d "$path" ] || echo "$path"; done >/tmp/files
[ "$(wc -l </tmp/files)" -gt 40 ]
apt-get purge -y tav >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
while read -r path; do [ ! -e "$path" ] || { echo "$path is left behind"; exit 1; }; done </tmp/files
left=$(find /usr /etc /opt /var -iname '*tav*' -newer /as_root.sh ! -path '/var/log/*' ! -path '/var/lib/dpkg/*' ! -path '/var/cache/*')
[ -z "$left" ] || { echo "left behind: $left"; exit 1; }
[ -s /home/diver/dive.tav ] && [ -s /home/diver/dive.pdf ]
EOF
on "$diver" "sh /as_root.sh"
echo "== done ($SECONDS s)"
