#!/usr/bin/env bash
# A computed plan leaves the screen: its figures are read, copied, looked at page by page and saved as a PDF.
#   report.sh TAV
set -euo pipefail
tav=$1
shots=
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

start "$here/dives/trimix-100.tav"
await "the plan is not open" window "trimix-100.tav"

echo "== the information window keeps its place and closes by Escape"
keys ctrl+f
focus "^Dive Information"
xdotool windowmove --sync "$(window "^Dive Information")" 120 90
keys Escape
await "the information window stays" gone "^Dive Information"
focus "^TAV"
keys ctrl+f
focus "^Dive Information"
eval "$(xdotool getwindowgeometry --shell "$(window "^Dive Information")")"
[ "$X" -ge 110 ] && [ "$X" -le 130 ] || fail "the information window has moved from 120 to $X"
keys alt+c
focus "^TAV$"
keys Return
keys Escape
await "the information window stays" gone "^Dive Information"

echo "== the report, its pages, its zoom"
focus "^TAV"
keys ctrl+i
focus "^General report"
keys End Prior Home Next
keys plus plus minus
echo "== saved as a PDF"
pdf() {
  keys alt+d
  choose_file "^Save as PDF" "$1"
  focus "^General report"
  await "$1 is not saved" test -s "$1"
}
pdf "$work/plan.pdf"
[ "$(pdfinfo "$work/plan.pdf" | awk '/^Pages/ {print $2}')" = 7 ] || fail "the PDF has not 7 pages"
pdftotext -layout "$work/plan.pdf" - | grep "Tx10/70.*4599.9" >/dev/null || fail "the PDF does not tell the gas"

echo "== without a printer a message says so"
keys alt+p
focus "^Print$"
# presses a key after which another box of that name has the keyboard
print() {
  local seen
  seen=$(xdotool search --name "^Print$")
  keys "$1"
  await "no box comes after $1" is_new "$seen"
}
is_new() {
  local now
  now=$(xdotool getwindowfocus)
  ! grep -w "$now" <<<"$1" && xdotool getwindowname "$now" | grep "^Print$"
}
print Return
print alt+y
keys Return
await "the print dialog stays" gone "^Print$"
focus "^General report"
keys Escape
await "the preview stays" gone "^General report"

echo "== end"
focus "^TAV"
keys ctrl+q
ends_well
