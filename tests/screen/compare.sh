#!/usr/bin/env bash
# A plan is kept, made longer and deeper with other gradient factors, and compared with what it was, by keyboard alone.
#   compare.sh TAV TAVPLAN CLIPBOARD [FOLDER for screenshots]
set -euo pipefail
tav=$1
tavplan=$2
clipboard=$3
shots=${4:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

# the run time that tavplan gives a file
run_time() { "$tavplan" plan --json "$1" | grep -o '"totals":{"run_time":[0-9]*' | grep -o '[0-9]*$'; }

start
await "there is no plan" window "Plan 1"
keys F12
type_text 60
keys Tab
type_text 25
keys Tab
type_text Tx18/45
keys Tab space
keys ctrl+s
choose_file "^Save" "$work/now.tav"
cp "$work/now.tav" "$work/kept.tav"
keys ctrl+k

echo "== the leg in its cells, the gradient factors in their dialog"
keys F12
type_text 62
keys Tab
type_text 28
keys Return
keys ctrl+r
focus "^Conservatism"
keys alt+l
keys ctrl+a
type_text 40
keys Tab ctrl+a
type_text 80
keys alt+o
await "the dialog stays" gone "^Conservatism"
focus "^TAV"
save_again "$work/now.tav"
grep -q '^62,28,' "$work/now.tav" || fail "the leg is not changed"
grep -q '^GF=1, .8, .4' "$work/now.tav" || fail "the gradient factors are not changed"
shot compare-line

echo "== side by side, as tavplan has them"
keys ctrl+shift+k
focus "^Comparison: now.tav"
shot compare "^Comparison"
# The program offers the table a moment after the key.
copies_the_table() {
  keys alt+c
  text=$(timeout 10 "$clipboard" 2>/dev/null)
  grep -q "^Run time" <<<"$text"
}
await "the table is not on the clipboard" copies_the_table
figures=$(grep '^Run time' <<<"$text" | grep -oE '[0-9]+' | head -2 | tr '\n' ' ')
[ "$figures" = "$(run_time "$work/kept.tav") $(run_time "$work/now.tav") " ] || fail "the run times are not those: $text"
grep -Eq 'GF low-high +30/85 +40/80' <<<"$text" || fail "the gradient factors do not stand beside each other"
grep -Eq 'Leg 1 +60 m 25 min Tx18/45 +62 m 28 min Tx18/45' <<<"$text" || fail "the legs do not stand beside each other"
keys Escape
await "the comparison stays" gone "^Comparison"
focus "^TAV"
keys ctrl+q
ends_well
