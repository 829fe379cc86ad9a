#!/usr/bin/env bash
# A plan is compared with what may become of it, and leaves the screen as a slate.
#   what_if.sh TAV
set -euo pipefail
tav=$1
shots=
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

start "$here/dives/wreck.tav"
await "the plan is not open" window "wreck.tav"

echo "== what if, five minutes more and then six"
keys ctrl+shift+w
focus "^What if: wreck.tav"
keys alt+l Up
echo "== the slate of the plan and all columns, as a PDF"
keys alt+w End Tab space
focus "^Slate$"
keys alt+d
choose_file "^Save as PDF" "$work/columns.pdf"
focus "^Slate$"
keys Escape
await "the preview stays" gone "^Slate$"
focus "^What if: wreck.tav"
keys Escape
await "the comparison stays" gone "^What if"

echo "== the slate of the plan alone"
focus "^TAV"
keys ctrl+shift+i
focus "^Slate$"
keys alt+d
choose_file "^Save as PDF" "$work/slate.pdf"
focus "^Slate$"
keys Escape
await "the preview stays" gone "^Slate$"

text() { pdftotext -layout "$work/$1.pdf" -; }
[ "$(pdfinfo "$work/slate.pdf" | awk '/^Pages/ {print $2}')" = 1 ] || fail "the slate is not one page"
text slate | grep "EAN50 *PPO2 1.56" >/dev/null || fail "the slate does not tell the gas change"
text slate | grep "+" >/dev/null && fail "the slate of the plan tells more than the plan"
text columns | grep "longer +6 min" >/dev/null || fail "the slates do not tell the longer dive"
text columns | grep "lost EAN50" >/dev/null || fail "the slates do not tell the lost gas"

echo "== end"
focus "^TAV"
keys ctrl+q
ends_well
