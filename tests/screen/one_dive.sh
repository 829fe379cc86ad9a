#!/usr/bin/env bash
# One dive from the start of the program to its file, on a real screen with a real mouse and keyboard.
#   one_dive.sh TAV TAVPLAN [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
shots=${3:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

echo "== open the trimix plan, save it under a new name, close and open it again"
start
keys ctrl+o
choose_file "Open" "$here/dives/trimix-100.tav"
await "the plan is not open" window "trimix-100.tav"
shot graph
keys ctrl+l
choose_file "Save" "$work/copy.tav"
await "the plan has not the new name" window "copy.tav"
cmp "$here/dives/trimix-100.tav" "$work/copy.tav" || fail "the copy is not the plan"
keys ctrl+w
await "the plan does not close" gone "copy.tav"
keys ctrl+o
choose_file "Open" "$work/copy.tav"
await "the copy does not open" window "copy.tav"
keys ctrl+w
await "the copy does not close" gone "copy.tav"

echo "== a waypoint with the mouse, which brings the ascent, and two by key"
focus "^TAV"
eval "$(xdotool getwindowgeometry --shell "$(window "^TAV")")"
drag() {
  xdotool mousemove $((X + $1)) $((Y + $2)) mousedown 1
  for step in 1 2 3 4 5; do
    xdotool mousemove --sync $((X + $1 + ($3 - $1) * step / 5)) $((Y + $2 + ($4 - $2) * step / 5))
  done
  [ -z "${5:-}" ] || shot "$5"
  xdotool mouseup 1
}
# confirms the waypoint dialog with that depth and time; an empty depth stays
waypoint() {
  focus "New Stop Data"
  if [ -n "$1" ]; then
    keys ctrl+a
    type_text "$1"
  fi
  keys Tab
  [ -z "${3:-}" ] || shot "$3" "New Stop Data"
  keys ctrl+a
  type_text "$2"
  keys Return
  await "the waypoint dialog stays" gone "New Stop Data"
  focus "^TAV"
}
# presses the key of a unit in the template dialog
units() {
  keys ctrl+t
  focus "Dive settings"
  [ -z "${2:-}" ] || shot "$2" "Dive settings"
  keys Down Down "$1" alt+k
  focus "^Units$"
  [ -z "${2:-}" ] || shot units "^Units$"
  keys alt+y
  await "the question stays" gone "^Units$"
}
# exports the graph and compares it with what the engine makes of that dive of the file
shows_the_rows_of() {
  rm -f "$work/graph.svg"
  xdotool mousemove $((X + 500)) $((Y + 300)) click 3
  await "the menu of the graph does not open" menu
  keys Up Return
  choose_file "Export graph as SVG" "$work/graph.svg"
  await "the graph is not exported" test -s "$work/graph.svg"
  "$tavplan" plan --csv "$work/plan.tav" 2>/dev/null |
    awk -F, -v dive="$1" -f "$here/tests/screen/same_rows.awk" - "$work/graph.svg" ||
    fail "the graph does not show what the engine computes"
}
drag 120 140 330 158 drag
waypoint "" 20 waypoint
keys Insert
waypoint 18 12
keys Insert
waypoint 12.3 8
keys F8
shot ascent
keys ctrl+r
focus "Conservatism"
shot conservatism "^Conservatism$"
keys Escape
focus "^TAV"

echo "== save the plan and look at its actions"
keys ctrl+s
choose_file "Save" "$work/plan.tav"
await "the plan is not saved" test -s "$work/plan.tav"
grep -q ',20,0,0,' "$work/plan.tav" || fail "the dragged waypoint is not in the file"
grep -q '^18,12,0,0,' "$work/plan.tav" || fail "the first waypoint by key is not in the file"
grep -q '^12.3,8,0,0,' "$work/plan.tav" || fail "the second waypoint by key is not in the file"
[ "$(grep -c '^-1,-1,.*,1,' "$work/plan.tav")" = 1 ] || fail "the ascent is not in the file"
"$tavplan" check "$work/plan.tav" >/dev/null || fail "the file has faults"
shows_the_rows_of 1

echo "== a second dive after an hour and a half"
focus "^TAV"
keys ctrl+g
focus "^Surface Interval$"
type_text 1
keys Tab
type_text 30
shot surface-interval "^Surface Interval$"
keys Return
await "the interval dialog stays" gone "^Surface Interval$"
await "the second dive has no window" window "plan.tav Dive:2"
focus "^TAV"
keys Insert
waypoint 21 25
keys F8
shot second-dive
focus "^TAV"
save_again "$work/plan.tav"
grep -q '^SurfTime = 90' "$work/plan.tav" || fail "the surface interval is not in the file"
shows_the_rows_of 2
"$tavplan" plan --csv "$work/plan.tav" >"$work/metric.csv" 2>/dev/null

echo "== its template in feet, and back in metres"
units alt+i template
focus "^TAV"
save_again "$work/plan.tav"
grep -q '^68.9,25,0,0,' "$work/plan.tav" || fail "21 m are not 68.9 ft"
shows_the_rows_of 2
units alt+m
focus "^TAV"
save_again "$work/plan.tav"
shows_the_rows_of 2
"$tavplan" plan --csv "$work/plan.tav" >"$work/again.csv" 2>/dev/null
awk -F, 'FNR == NR { was[FNR] = $4 " " $6 " " $9; next }
         { split(was[FNR], w, " ")
           if (FNR > 1 && (($4 - w[1]) ^ 2 > 0.0001 || ($6 - w[2]) ^ 2 > 0.0001 || $9 != w[3])) exit 1 }
         END { if (NR != 2 * FNR) exit 1 }' "$work/metric.csv" "$work/again.csv" || fail "back in metres, the rows differ"

echo "== end"
# A press of a mouse button on the graph counts as a change.
keys ctrl+q
focus "Unsaved changes"
keys alt+n
ends_well
