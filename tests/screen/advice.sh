#!/usr/bin/env bash
# A plan with faults, found in the pane beside it, and its cylinders.
#   advice.sh TAV TAVPLAN CLIPBOARD [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
clipboard=$3
shots=${4:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

"$tavplan" new --leg 60:20@Tx10/70 -o "$work/deep.tav" >/dev/null || true

# copies what the pane tells, all of it; it is shown, and coming back it has the keyboard
pane_text() {
  focus "^TAV"
  keys shift+F11 shift+F11 ctrl+a ctrl+c
  timeout 10 "$clipboard" 2>/dev/null
}
pane_tells() {
  grep -q "$1" <<<"$(pane_text)"
}
pane_tells_no() {
  local text
  text=$(pane_text)
  [ -n "$text" ] && ! grep -q "$1" <<<"$text"
}

echo "== the bottom gas is breathed from the surface"
start "$work/deep.tav"
await "the plan is not open" window "deep.tav"
await "the pane does not tell that the gas is hypoxic" pane_tells "Tx10/70 at 0 m .* too low to breathe"
keys Home Return
shot check-pane

echo "== cylinders that are too small"
focus "^TAV"
keys ctrl+u
focus "^Gas supply"
keys Insert Insert Insert
shot cylinders "^Gas supply"
keys Return
await "the dialog stays" gone "^Gas supply"
keys ctrl+s
await "the cylinders are not saved" grep -q "^# Cylinder=Tx10/70: " "$work/deep.tav"
[ "$(grep -c '^# Cylinder=' "$work/deep.tav")" = 3 ] || fail "there are not three cylinders in the file"
"$tavplan" plan --json "$work/deep.tav" >"$work/deep.json" || true
grep -q '"gas_short"' "$work/deep.json" || fail "tavplan does not find the gas short"
await "the pane does not tell that the gas is short" pane_tells "the minimum gas is"
focus "^TAV"
keys ctrl+z
await "one step of undo does not take the cylinders away" pane_tells_no "the minimum gas is"

save_again "$work/deep.tav"
keys ctrl+q
ends_well
