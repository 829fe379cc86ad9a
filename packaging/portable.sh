#!/bin/sh
# Starts the program of this name in bin/, with the fonts of this folder beside those of the system.
file=$(readlink -f "$0")
folder=${file%/*}
export FONTCONFIG_FILE="${FONTCONFIG_FILE:-$folder/fonts/fonts.conf}"
# Keyboards are described by whatever shows windows; where that runs on another machine, by this folder.
[ -d /usr/share/X11/xkb ] || export XKB_CONFIG_ROOT="${XKB_CONFIG_ROOT:-$folder/xkb}"
exec "$folder/bin/${file##*/}" "$@"
