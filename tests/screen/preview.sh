#!/usr/bin/env bash
# The preview of bail-out tables comes each time, the print dialog belongs to it, and the keyboard goes back each time.
#   preview.sh TAV [TIMES]
set -euo pipefail
tav=$1
shots=
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

# the window that has the keyboard; nothing here gives it to one
in_front() { xdotool getwindowfocus getwindowname | grep -E "$1"; }
comes() { await "$2 has not got the keyboard" in_front "$1"; }

start "$here/dives/nitrox.tav"
await "the plan is not open" window "nitrox.tav"
focus "^TAV"
for n in $(seq "${2:-20}"); do
  echo "== $n"
  keys ctrl+b
  comes "^Bail-out$" "the dialog of the tables"
  keys Return
  comes "^(Bail-out|Deco) Tables" "the preview"
  keys alt+p
  comes "^Print$" "the print dialog"
  preview=$(window "^(Bail-out|Deco) Tables")
  xprop -id "$(window "^Print$")" WM_TRANSIENT_FOR | grep -i "$(printf '0x%x' "$preview")" >/dev/null ||
    fail "the print dialog does not belong to the preview"
  keys Escape
  comes "^(Bail-out|Deco) Tables" "the preview after the print dialog"
  keys Escape
  await "the preview stays" gone "^(Bail-out|Deco) Tables"
  comes "nitrox.tav|^TAV" "the main window"
done

echo "== end"
keys ctrl+q
ends_well
