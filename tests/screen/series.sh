#!/usr/bin/env bash
# Two dives in a day: the second one is added, its surface interval and the first dive are changed afterwards, and one
# undo each takes that back.
#   series.sh TAV TAVPLAN [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
shots=${3:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

# the quick line; the gas stays
quick() {
  type_text "$1"
  keys Tab
  type_text "$2"
  keys Tab Tab space
}
# what tavplan computes of the second dive that is saved
second() {
  focus "^TAV"
  save_again "$work/two.tav"
  "$tavplan" plan --csv "$work/two.tav" | awk -F, '$2 == 2'
}

start
await "there is no plan" window "Plan 1"
keys F12
quick 30 25
keys ctrl+s
choose_file "^Save" "$work/two.tav"

echo "== the second dive, by a command that is searched for"
focus "^TAV"
keys ctrl+shift+p
focus "^Search commands$"
type_text "repetitive"
keys Return
focus "^Surface Interval$"
type_text 2
keys Return
await "the interval dialog stays" gone "^Surface Interval$"
await "the second dive has no window" window "two.tav Dive:2"
focus "^TAV"
shot series-begins
keys F12
quick 24 40
second >"$work/entered"
grep -q '^SurfTime = 120' "$work/two.tav" || fail "the surface interval is not two hours"
grep -q '^24,40,' "$work/two.tav" || fail "the leg of the second dive is not in the file"

echo "== half an hour at the surface"
keys alt+n
keys ctrl+a
type_text 0:30
keys Tab
second >"$work/sooner"
grep -q '^SurfTime = 30' "$work/two.tav" || fail "the surface interval is not half an hour"
diff -q "$work/entered" "$work/sooner" >/dev/null && fail "the second dive does not follow its interval"
shot series-sooner

echo "== a longer first dive"
keys ctrl+Tab
await "the first dive is not in front" window "two.tav Dive:1"
keys F12 Right
type_text 35
keys Return
second >"$work/after-longer"
grep -q '^30,35,' "$work/two.tav" || fail "the first dive is not longer"
diff -q "$work/sooner" "$work/after-longer" >/dev/null && fail "the second dive does not follow the first"
shot series-longer

echo "== undone, both"
keys ctrl+z
second >"$work/undone"
diff "$work/sooner" "$work/undone" >&2 || fail "the second dive is not as it was after its interval"
keys ctrl+Tab
await "the second dive is not in front" window "two.tav Dive:2"
focus "^TAV"
keys ctrl+z
second >"$work/undone"
diff "$work/entered" "$work/undone" >&2 || fail "the second dive is not as it was entered"
keys ctrl+q
ends_well
