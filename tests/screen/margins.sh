#!/usr/bin/env bash
# A dive with cylinders: the map of margins read by keys, one of its dives compared, the longest stay taken into the
# plan, a limit typed, the map beside the graph.
#   margins.sh TAV TAVPLAN CLIPBOARD [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
clipboard=$3
shots=${4:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

cp "$here/dives/wreck.tav" "$work/plan.tav"
# the cell of a dive longer by $1 and deeper by $2: its run time
cell() {
  "$tavplan" margins --json --longer "$1:$1:1" --deeper "$2:$2:1" "$work/plan.tav" | grep -o '"run_time":[0-9]*' |
    grep -o '[0-9]*'
}
longest() { "$tavplan" longest --json "$@" | grep -o '^{"minutes":[0-9]*' | grep -o '[0-9]*'; }
leg_of() { awk -F, '/^[0-9.]+,[0-9.]+,/ { print $2; exit }' "$work/plan.tav"; }

start "$work/plan.tav"
await "the plan is not open" window "plan.tav"
focus "^TAV"
keys ctrl+shift+m
focus "^Margins: plan.tav"

echo "== a dive of the map, by keys, beside the plan"
# What a cell tells comes with the cell, so an early Return does nothing; the comparison comes a moment after the key.
compares() {
  window "^Comparison: plan.tav" && return
  keys Return
  sleep 0.5
  window "^Comparison: plan.tav"
}
keys Tab Right Right Right Right Right Down Down
shot margins "^Margins"
await "Return compares no dive" compares
focus "^Comparison: plan.tav"
copies_the_table() {
  keys alt+c
  text=$(timeout 10 "$clipboard" 2>/dev/null)
  grep -q "^Run time" <<<"$text"
}
await "the table is not on the clipboard" copies_the_table
grep -q "+5 min, +2 m" <<<"$text" || fail "the dive is not the one that was chosen: $text"
grep '^Run time' <<<"$text" | grep -qw "$(cell 5 2)" || fail "its run time is not that of the map of tavplan: $text"
keys Escape
await "the comparison stays" gone "^Comparison"

echo "== the longest stay becomes the plan's, and a limit is kept with it"
wanted=$(longest "$work/plan.tav")
takes_it() {
  focus "^Margins: plan.tav"
  keys alt+t
  focus "^TAV"
  save_again "$work/plan.tav"
  [ "$(leg_of)" = "$wanted" ]
}
await "the longest stay is not taken into the plan" takes_it
keys ctrl+z
save_again "$work/plan.tav"
[ "$(leg_of)" != "$wanted" ] || fail "one step of undo does not give the time back"
focus "^Margins: plan.tav"
keys alt+r
keys ctrl+a
type_text 45
keys Tab
focus "^TAV"
save_again "$work/plan.tav"
grep -q '^# Limits= 45/' "$work/plan.tav" || fail "the limit is not in the file"
[ "$(longest "$work/plan.tav")" -lt "$wanted" ] || fail "the limit does not bind"
focus "^Margins: plan.tav"
keys Escape
await "the window stays" gone "^Margins"

echo "== beside the graph"
focus "^TAV"
keys ctrl+F11
keys Right Right Down
shot margins-pane
keys ctrl+F11
keys ctrl+q
ends_well
