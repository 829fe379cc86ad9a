#!/bin/sh
# What a diver waits for, and what the program takes of his machine, as he has it: installed, or in the folder to run from.
# Whole processes from their start to their end, the median of some runs; needs nothing but a shell and a screen.
#   bench/as_user.sh TAV TAVPLAN DIVES [RUNS]
set -eu
tav=$1 tavplan=$2 dives=$3 runs=${4:-11}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
median() { sort -n | awk '{a[NR] = $1} END {printf "%.3f", a[int((NR + 1) / 2)]}'; }
# seconds NAME COMMAND...
seconds() {
  name=$1
  shift
  "$@" >/dev/null  # once, so that the files are in memory
  i=0
  while [ $i -lt "$runs" ]; do
    from=$(date +%s%N)
    "$@" >/dev/null
    echo "$from $(date +%s%N)" | awk '{print ($2 - $1) / 1e9}'
    i=$((i + 1))
  done | median >"$folder/median"
  echo "| $name | $(cat "$folder/median") s |"
}
# window NAME FILE...
window() {
  name=$1
  shift
  "$tav" --start-check "$@" >/dev/null
  i=0
  while [ $i -lt "$runs" ]; do
    "$tav" --start-check "$@"
    i=$((i + 1))
  done | tr -d , >"$folder/starts"
  echo "| $name | notice $(cut -d ' ' -f 2 "$folder/starts" | median) s, window" \
    "$(cut -d ' ' -f 5 "$folder/starts" | median) s, memory $(cut -d ' ' -f 8 "$folder/starts" | median | sed 's/\..*//') MB |"
}
window "start; the splash stands for a second of it"
window "start with the dive to 100 m" "$dives/trimix-100.tav"
seconds "first plan: tavplan new, 60 m on trimix" "$tavplan" new --depth 60 --time 25 --gas Tx18/45
seconds "plan of the dive to 100 m" "$tavplan" plan "$dives/trimix-100.tav"
seconds "what if of it" "$tavplan" whatif "$dives/trimix-100.tav"
seconds "map of margins of the wreck" "$tavplan" margins "$dives/wreck.tav"
seconds "plan sheet of the dive to 100 m as PDF" "$tavplan" report "$dives/trimix-100.tav" --sheet --pdf "$folder/sheet.pdf"
seconds "its bail-out every 5 minutes as PDF" "$tavplan" bailout "$dives/trimix-100.tav" --pdf "$folder/bailout.pdf"
