#!/usr/bin/env bash
# A dive of three levels by keyboard alone, in the pane of the plan: entered, one depth changed in its cell, undone; a
# leg twice and the copy away; a text that is refused; an open cell when the window is closed; the same levels pasted.
#   plan_table.sh TAV TAVPLAN CLIPBOARD [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
clipboard=$3
shots=${4:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

# the quick line: depth, time, gas, and the button, behind which the depth waits for the next leg
quick() {
  type_text "$1"
  keys Tab
  type_text "$2"
  keys Tab
  type_text "$3"
  keys Tab space
}
saved() { "$tavplan" plan "$work/dive.tav"; }

start
await "there is no plan" window "Plan 1"

echo "== three levels"
focus "^TAV"
keys F12
quick 60 20 Tx18/45
quick 45 10 18/45
quick 30 8 Tx21/35
shot plan-table
keys ctrl+s
choose_file "^Save" "$work/dive.tav"
saved >"$work/entered"
for level in "level *60 .*Tx18/45" "level *45 .*Tx18/45" "level *30 .*Tx21/35" "stop .*Oxygen" "surface *0"; do
  grep "$level" "$work/entered" >/dev/null || fail "the plan has no $level"
done

echo "== another middle depth"
keys F12 Down
type_text 48
keys Return
shot plan-table-changed
keys ctrl+s
await "the change is not saved" grep -E '^48,' "$work/dive.tav"
saved >"$work/changed"
grep "level *48 " "$work/changed" >/dev/null || fail "the middle level is not at 48 m"
[ "$(grep -E 'stop|surface' "$work/changed")" != "$(grep -E 'stop|surface' "$work/entered")" ] || fail "no stop has changed"

echo "== undone"
focus "^TAV"
keys Escape ctrl+z ctrl+s
await "the undo is not saved" grep -E '^45,' "$work/dive.tav"
saved >"$work/undone"
diff "$work/entered" "$work/undone" >&2 || fail "the plan is not as it was"

echo "== a leg twice, and the copy away"
keys F12 Up Up Up Up ctrl+d Delete
save_again "$work/dive.tav"
saved >"$work/twice"
diff "$work/entered" "$work/twice" >&2 || fail "the leg went with its copy"

echo "== half a number"
keys F12 Up Up Up Up Right
type_text 4x
shot plan-table-refused
keys Return
shot plan-table-put-back
save_again "$work/dive.tav"
saved >"$work/refused"
diff "$work/entered" "$work/refused" >&2 || fail "half a number has become the plan"

echo "== closed while a cell is open"
keys F12 Up Up Up Up
type_text 9
keys alt+F4
focus "^Unsaved"
keys Escape
await "the question stays" gone "^Unsaved"
focus "^TAV"
keys Escape ctrl+z ctrl+s

echo "== the same levels pasted from a spreadsheet with decimal commas"
offer() {
  "$clipboard" "$1" 2>/dev/null &
  offered=$!
  pids+=("$offered")
  await "nothing is offered" offers
}
offers() { [ -n "$(timeout 5 "$clipboard" 2>/dev/null)" ]; }
offer "$(printf '60,0\t20\tTx18/45\n45,0\t10\tTx18/45\n30,0\t8\tTx21/35')"
keys ctrl+n
await "there is no new plan" window "Plan"
focus "^TAV"
keys F12 Down Up ctrl+v
keys ctrl+s
choose_file "^Save" "$work/pasted.tav"
shot plan-table-pasted
"$tavplan" plan "$work/pasted.tav" | tail -n +2 >"$work/pasted"
tail -n +2 "$work/entered" | diff - "$work/pasted" >&2 || fail "the pasted plan is not the one that was typed"
kill "$offered"
offer "no legs at all"
focus "^TAV"
keys F12 ctrl+v
shot plan-table-nothing-pasted
save_again "$work/pasted.tav"
"$tavplan" plan "$work/pasted.tav" | tail -n +2 | diff - "$work/pasted" >&2 || fail "what holds no legs changes the plan"

echo "== end"
focus "^TAV"
keys ctrl+q
ends_well
