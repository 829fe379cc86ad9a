#!/usr/bin/env bash
# A plan goes onto a rebreather by its key, its setpoints are typed in the pane, and its way out is known.
#   rebreather.sh TAV TAVPLAN [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
shots=${3:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

start
await "there is no plan" window "Plan 1"
keys F12
type_text 60
keys Tab
type_text 30
keys Tab
type_text Tx18/45
keys Tab space
keys F4
keys ctrl+s
choose_file "^Save" "$work/loop.tav"
grep -q '^Open Circuit=0' "$work/loop.tav" || fail "the plan is not on the loop"
"$tavplan" plan "$work/loop.tav" >"$work/usual"

echo "== setpoints: 1.2 on the bottom, 1.4 at stops"
focus "^TAV"
keys alt+p
keys ctrl+a
type_text 1.2
keys Tab ctrl+a
type_text 1.4
keys Tab
shot rebreather-setpoints
save_again "$work/loop.tav"
grep -q '^Setpoint= 1.2' "$work/loop.tav" || fail "the setpoint is not in the file"
grep -q '^DecoSetpoint= 1.4' "$work/loop.tav" || fail "the setpoint of the stops is not in the file"
"$tavplan" plan "$work/loop.tav" >"$work/other"
diff -q "$work/usual" "$work/other" >/dev/null && fail "the plan does not follow its setpoints"

echo "== a setpoint that can not be is marked, and goes"
focus "^TAV"
keys alt+p
keys ctrl+a
type_text 1x
keys Tab
shot rebreather-refused
save_again "$work/loop.tav"
grep -q '^Setpoint= 1.2' "$work/loop.tav" || fail "a setpoint that can not be is in the file"

echo "== the way out of any minute"
focus "^TAV"
keys ctrl+b
focus "Bail"
keys Escape
focus "^TAV"
keys ctrl+q
ends_well
