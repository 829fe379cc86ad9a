#!/usr/bin/env bash
# Three plans with unsaved changes are left with one question, and are there at the next start.
#   leaving.sh TAV
set -euo pipefail
tav=$1
shots=
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

plans=("$work/wreck.tav" "$work/nitrox.tav" "$work/trimix-100.tav")
for plan in "${plans[@]}"; do cp "$here/dives/$(basename "$plan")" "$plan"; done
ended() { ! kill -0 "$program" 2>/dev/null; }
changed() { ! cmp -s "$1" "$here/dives/$(basename "$1")"; }

start "${plans[@]}"
await "the plans are not open" window "trimix-100.tav"
echo "== the ascent of each is cleared by a command that is searched for"
for _ in "${plans[@]}"; do
  keys ctrl+shift+p
  focus "^Search commands$"
  type_text "clear asc"
  keys Return
  await "the search stays" gone "^Search commands$"
  focus "^TAV"
  keys ctrl+Tab ctrl+Tab ctrl+Tab  # past the empty plan of the start to the one before
done
echo "== the last one stays as it is in its file, the others are saved"
keys ctrl+q
focus "^Unsaved changes$"
keys End space Return
await "the program does not end" ended
changed "${plans[0]}" || fail "the first plan is not saved"
changed "${plans[1]}" || fail "the second plan is not saved"
! changed "${plans[2]}" || fail "a plan without a tick is saved"

echo "== they open again, and one that another program changes is read again"
start
await "the plans do not open again" window "trimix-100.tav"
keys ctrl+Tab ctrl+Tab
await "the plans are not in their order" window "nitrox.tav"
cp "$here/dives/nitrox.tav" "${plans[1]}"
keys ctrl+m
focus "^Gas Mixer"
keys Escape
await "the mixer stays" gone "^Gas Mixer"
focus "^TAV"
keys ctrl+s
sleep 0.5
changed "${plans[1]}" && fail "what another program has written is not read again"
keys ctrl+q
ends_well
