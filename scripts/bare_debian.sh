#!/usr/bin/env bash
# Takes the road of a newcomer: clones a commit into a bare Debian, runs the README's ./run and ./test there, on Debian 13
# without a screen, makes the packages, and on 12 the page for browsers with its tests. Then it takes the road of a diver:
# in another bare Debian, which has no Qt, X11 or Wayland, it works with the folder to run from; installs the package, works
# with both, and removes the package.
# What the newcomer made lies in build/bare_debian/COMMIT afterwards. The folder is made on 12, and the same one is then
# proven on 13: run 12 first.
# The machines are made for the occasion, from this machine's own apt sources and settings, and taken away on every exit.
# Nothing but the compiler's cache and the certificates of this machine's network are carried in.
# Usage: scripts/bare_debian.sh 12|13 [COMMIT]
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
  for outside in "${screen:-}" "${compositor:-}"; do [ -z "$outside" ] || kill "$outside" 2>/dev/null || true; done
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
trusted=/etc/ssl/certs/ca-certificates.crt  # whom this machine trusts on its network, npm must trust there
[ ! -f "$trusted" ] || cp "$trusted" "$root/trusted.crt"
cp -a "$root" "$diver"
for machine in "$root" "$diver"; do
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
    CCACHE_DIR=/ccache DEBIAN_FRONTEND=noninteractive NODE_EXTRA_CA_CERTS=/trusted.crt \
    chroot "$1" /bin/sh -c "$2"
}
commands=("./run new --depth 60 --time 25 --gas Tx18/45")
if [ "$1" = 12 ]; then commands+=("./test"); else commands+=("./test -E ^Screen"); fi
commands+=("scripts/package")
[ "$1" = 13 ] || commands+=("scripts/web --test")
for command in "${commands[@]}"; do
  echo "\$ $command ($SECONDS s)"
  on "$root" "cd /tav && $command"
done
made=build/bare_debian/$commit
[ "$1" = 13 ] || rm -rf build/bare_debian
mkdir -p "$made"
cp "$root"/tav/build/package/tav_* "$made/"

echo "== a diver's machine ($SECONDS s)"
cp "$root"/tav/build/package/tav_*.deb "$diver/tav.deb"
cp bench/as_user.sh "$diver/"
if [ -e "$(echo "$made"/tav_*_amd64.tar.gz)" ]; then
  mkdir "$diver/portable"
  tar -C "$diver/portable" --strip-components=1 -xzf "$made"/tav_*_amd64.tar.gz
else
  echo "No folder was made of this commit on 12: that it runs on $1 is not proven." >&2
fi
display=
if command -v Xvfb >/dev/null; then
  # A screen outside, as the diver's machine has nothing that could show windows.
  Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$place/display" 2>/dev/null &
  screen=$!
  timeout 20 sh -c "until [ -s '$place/display' ]; do sleep 0.1; done"
  display=:$(cat "$place/display")
  mkdir -p "$diver/tmp/.X11-unix"
  mount --bind /tmp/.X11-unix "$diver/tmp/.X11-unix"
else
  echo "There is no Xvfb: that windows open on X11 is not proven." >&2
fi
if command -v weston >/dev/null; then
  mkdir -m 700 "$diver/tmp/wayland"
  XDG_RUNTIME_DIR=$diver/tmp/wayland weston --backend=headless-backend.so --no-config --socket=tav >/dev/null 2>&1 &
  compositor=$!
  timeout 20 sh -c "until [ -S '$diver/tmp/wayland/tav' ]; do sleep 0.1; done"
  chmod 755 "$diver/tmp/wayland"
  chmod 777 "$diver/tmp/wayland/tav"
else
  echo "There is no weston: that windows open on Wayland is not proven." >&2
fi
cat >"$diver/as_diver_before.sh" <<'EOF'
# The folder, on a machine that has nothing of what it needs. sh as_diver_before.sh [DISPLAY]
set -eux
if dpkg-query -W -f '${Package}\n' | grep -E 'qt|x11|xcb|xkb|wayland|fontconfig|fonts'; then exit 1; fi
/portable/tavplan plan /portable/share/tav/dives/wreck.tav
/portable/tavplan report /portable/share/tav/dives/wreck.tav --pdf before.pdf
head -c 5 before.pdf | grep -q '%PDF-'
status=0
/portable/tav 2>told || status=$?
[ "$status" -eq 2 ]
grep 'no display' told
QT_QPA_PLATFORM=offscreen /portable/tav --start-check
[ -z "${1:-}" ] || DISPLAY=$1 QT_QPA_PLATFORM=xcb /portable/tav --start-check
[ ! -S /tmp/wayland/tav ] || WAYLAND_DISPLAY=/tmp/wayland/tav QT_QPA_PLATFORM=wayland /portable/tav --start-check
EOF
cat >"$diver/as_diver.sh" <<'EOF'
# What is installed, and what runs from its folder beside it. sh as_diver.sh [DISPLAY]
set -eux
for tav in "" /portable/; do
  [ -z "$tav" ] || [ -d "$tav" ] || continue
  "${tav}tavplan" new --depth 60 --time 25 --gas Tx18/45 -o dive.tav >slate.txt
  "${tav}tavplan" report dive.tav --pdf dive.pdf
  "${tav}tavplan" export dive.tav --uddf dive.uddf
  QT_QPA_PLATFORM=offscreen "${tav}tav" --start-check
  [ -z "${1:-}" ] || DISPLAY=$1 QT_QPA_PLATFORM=xcb "${tav}tav" --start-check
done
head -c 5 dive.pdf | grep -q '%PDF-'
[ -z "${1:-}" ] || DISPLAY=$1 QT_QPA_PLATFORM=xcb sh /as_user.sh tav tavplan /usr/share/tav/dives 5
dpkg-query -W -f 'installed: ${Installed-Size} kB\n' tav
if ldd /usr/bin/tavplan | grep -i qt; then exit 1; fi
EOF
cat >"$diver/as_root.sh" <<'EOF'
set -eux
useradd --create-home diver
[ ! -d /portable ] || su - diver -c "sh /as_diver_before.sh $*"
{ apt-get update && apt-get install -y --no-install-recommends /tav.deb; } >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
su - diver -c "sh /as_diver.sh $*"
set +x
dpkg -L tav | while read -r path; do [ -d "$path" ] || echo "$path"; done >/tmp/files
[ "$(wc -l </tmp/files)" -gt 40 ]
apt-get purge -y tav >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
while read -r path; do [ ! -e "$path" ] || { echo "$path is left behind"; exit 1; }; done </tmp/files
left=$(find /usr /etc /opt /var -iname '*tav*' -newer /as_root.sh ! -path '/var/log/*' ! -path '/var/lib/dpkg/*' ! -path '/var/cache/*')
[ -z "$left" ] || { echo "left behind: $left"; exit 1; }
[ -s /home/diver/dive.tav ] && [ -s /home/diver/dive.pdf ]
EOF
on "$diver" "sh /as_root.sh $display"
echo "== done ($SECONDS s)"
