#!/usr/bin/env bash
# Puts into a portable folder what its programs need of a system: Qt with plugins and translations, the libraries under
# them, fonts; and into licences/ what that is and under which terms. All of it comes from Debian packages of this machine;
# scripts/package installs them, and calls this.
# Usage: scripts/carry.sh FOLDER, which has the programs in bin/
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=$(realpath "$1")
system=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
taken=()  # the files of the system that are carried

# take FILE... PLACE: files keep their names; a library has the one that others ask for. A stick knows no links.
take() {
  local place=$folder/${*: -1} file
  mkdir -p "$place"
  for file in "${@:1:$#-1}"; do
    cp --dereference --no-preserve=mode,timestamps "$file" "$place/"
    taken+=("$file")
  done
}

# Windows on X11 and Wayland, and without either for drawing a PDF; what these load on their part; icons and pictures.
# The plugin for printers works where the system has the library of CUPS, as a system that prints has.
cd "$system/qt6/plugins"
plugins=(platforms/libq{xcb,offscreen,minimal}.so platforms/libqwayland*.so xcbglintegrations/*.so
  wayland-{shell-integration,decoration-client,graphics-integration-client}/*.so
  platforminputcontexts/*.so iconengines/*.so imageformats/*.so)
for plugin in "${plugins[@]}" printsupport/libcupsprintersupport.so; do
  take "$PWD/$plugin" "plugins/${plugin%/*}"
done
libraries=$(ldd "${plugins[@]}" "$folder"/bin/tav "$folder"/bin/tavplan)
cd "$OLDPWD"
if grep 'not found' <<<"$libraries"; then exit 1; fi
mapfile -t libraries < <(sed -nE 's|.* => (/.*) \(0x.*|\1|p' <<<"$libraries" | sort -u)
for library in "${libraries[@]}"; do
  case ${library##*/} in
    # Every system has these. Its drivers, which run in the same process, may need newer ones than could be carried.
    libc.so.* | libm.so.* | libdl.so.* | librt.so.* | libpthread.so.* | libresolv.so.*) ;;
    libstdc++.so.* | libgcc_s.so.* | libz.so.*) ;;
    # Qt and its plugins fit one version of one another; C++ classes and Unicode tables do, too.
    libQt6* | libicu* | libpugixml*) take "$library" lib ;;
    # What drivers of the system use as well is taken from there, if it is there: never two versions in one process.
    *) take "$library" lib/spare ;;
  esac
done
for program in "$folder"/bin/tav "$folder"/bin/tavplan; do
  # The old kind of path, which holds for what libraries and plugins ask for, too.
  patchelf --force-rpath --set-rpath \
    "\$ORIGIN/../lib:$system:/lib64:/usr/lib64:/usr/lib:\$ORIGIN/../lib/spare" "$program"
done

for table in lang/TAV_*.dll; do
  language=${table#lang/TAV_}
  translation=/usr/share/qt6/translations/qtbase_${language%.dll}.qm
  [ "$language" = uk.dll ] || take "$translation" translations  # Qt's own words are English
done
take /usr/share/fonts/truetype/liberation2/Liberation{Sans-*,Mono-Regular,Mono-Bold}.ttf fonts
cp --dereference --recursive --no-preserve=mode,timestamps /usr/share/X11/xkb "$folder/xkb"
mapfile -t -O ${#taken[@]} taken < <(find /usr/share/X11/xkb -type f)
install -m 644 packaging/fonts.conf "$folder/fonts/"
install -m 644 packaging/qt.conf "$folder/bin/"
install packaging/portable.sh "$folder/tav"
install packaging/portable.sh "$folder/tavplan"

# Debian knows some files below /lib, which is /usr/lib.
mapfile -t real < <(realpath "${taken[@]}" | sort -u)
owners=$(dpkg -S "${real[@]}" "${real[@]#/usr}" 2>/dev/null || true)
if [ "$(wc -l <<<"$owners")" -ne ${#real[@]} ]; then
  echo "Some of what the folder is to carry is of no package, or of several." >&2
  exit 1
fi
declare -A bytes
while IFS=: read -r package rest; do
  bytes[$package]=$((${bytes[$package]:-0} + $(stat -c %s "${rest##* }")))
done <<<"$owners"
mapfile -t packages < <(printf '%s\n' "${!bytes[@]}" | sort)
mkdir -p "$folder/licences"
{
  cat packaging/carried.txt
  for package in "${packages[@]}"; do
    dpkg-query -W -f '${Package} ${Version} ${source:Package} ${source:Version}\n' "$package"
  done | sort -u | while read -r package version source source_version; do
    printf '%7d  %-38s %-28s %s %s\n' $((${bytes[$package]} / 1000)) "$package" "$version" "$source" "$source_version"
  done
} >"$folder/licences/CARRIED.txt"
for package in "${packages[@]}"; do
  cp --dereference --no-preserve=mode,timestamps "/usr/share/doc/$package/copyright" "$folder/licences/$package.txt"
done
# The texts that those refer to.
grep -ohE '/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' "$folder"/licences/*.txt | sort -u |
  while read -r text; do
    [ ! -e "$text" ] || cp --dereference --no-preserve=mode,timestamps "$text" "$folder/licences/"
  done
