#!/usr/bin/env bash
# How long the program takes to start, on a screen of its own (Xvfb): the median of some starts from the beginning of the
# process to the notice and to the window, and what of it is not the second for which the splash stands.
#   bench/start_time.sh [TAV] [STARTS]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
tav=${1:-$here/build/release/bin/tav}
starts=${2:-15}
shots=
source "$here/tests/screen/screen.sh"
"$tav" --start-check >/dev/null  # once, so that the files are in memory
for _ in $(seq "$starts"); do "$tav" --start-check; done >"$work/starts"
median() { tr -d , <"$work/starts" | cut -d ' ' -f "$1" | sort -n | sed -n "$(((starts + 1) / 2))p"; }
notice=$(median 2)
window=$(median 5)
echo "$starts starts: notice after $notice s, window after $window s;" \
  "beside the splash $(awk "BEGIN {printf \"%.2f\", $window - 1}") s"
