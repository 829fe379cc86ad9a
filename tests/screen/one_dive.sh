#!/usr/bin/env bash
# One dive from the start of the program to its file, on a real screen with a real mouse and keyboard.
#   one_dive.sh TAV TAVPLAN [FOLDER for screenshots]
# Needs Xvfb, openbox, xdotool, xprop and, for screenshots, ImageMagick's import.
set -euo pipefail
tav=$1
tavplan=$2
shots=${3:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
pids=()

finish() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
fail() {
  echo "FAILED: $*" >&2
  import -window root /tmp/tav-screen-failure.png 2>/dev/null || true
  exit 1
}

# waits until a command succeeds, at most 20 seconds
await() {
  local what=$1
  shift
  for _ in $(seq 200); do
    "$@" >/dev/null 2>&1 && return 0
    sleep 0.1
  done
  fail "$what"
}
window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1 | grep .; }
gone() { ! window "$1"; }
focus() {
  local id
  await "the window \"$1\" does not come" window "$1"
  id=$(window "$1")
  xdotool windowactivate --sync "$id" 2>/dev/null || xdotool windowfocus --sync "$id"
  sleep 0.3
}
shot() {
  [ -n "$shots" ] || return 0
  sleep 0.5
  import -window root "$shots/$1.png"
}
keys() { xdotool key --delay 40 "$@"; }
type_text() { xdotool type --delay 15 "$1"; }
# types a path into the file dialog that is open
choose_file() {
  focus "$1"
  keys ctrl+a
  type_text "$2"
  keys Return
  await "the file dialog stays" gone "$1"
}

display=$((90 + RANDOM % 400))
Xvfb ":$display" -screen 0 1280x900x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
export DISPLAY=":$display" HOME=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
await "the screen does not start" xdotool getmouselocation
openbox >/dev/null 2>&1 &
pids+=($!)
sleep 0.5

start() {
  "$tav" "$@" >"$work/out" 2>&1 &
  program=$!
  pids+=("$program")
  focus "Before you use TAV"
  [ "${first:-yes}" = yes ] && shot notice
  first=no
  keys alt+i
  await "the main window does not come" window "^TAV"
  focus "^TAV"
}

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

echo "== two waypoints with the mouse, one by key, and the ascent"
focus "^TAV"
eval "$(xdotool getwindowgeometry --shell "$(window "^TAV")")"
drag() {
  xdotool mousemove $((X + $1)) $((Y + $2)) mousedown 1
  for step in 1 2 3 4 5; do
    xdotool mousemove $((X + $1 + ($3 - $1) * step / 5)) $((Y + $2 + ($4 - $2) * step / 5))
    sleep 0.05
  done
  [ -z "${5:-}" ] || shot "$5"
  xdotool mouseup 1
  focus "New Stop Data"
}
drag 120 170 330 205 drag
keys Tab
shot waypoint
keys ctrl+a
type_text 20
keys Return
await "the waypoint dialog stays" gone "New Stop Data"
focus "^TAV"
drag 500 190 620 200
keys ctrl+a
type_text 18
keys Tab ctrl+a
type_text 12
keys Return
await "the waypoint dialog stays" gone "New Stop Data"
focus "^TAV"
keys Insert
focus "New Stop Data"
keys ctrl+a
type_text 12.3
keys Tab ctrl+a
type_text 8
keys Return
await "the waypoint dialog stays" gone "New Stop Data"
focus "^TAV"
keys F8
# Oxygen at 6 m is a hundredth above the limit of the default template.
focus "PPO2 too high"
keys Return
await "the warning stays" gone "PPO2 too high"
focus "^TAV"
shot ascent
keys ctrl+r
focus "Conservatism"
shot conservatism
keys Escape
focus "^TAV"

echo "== save the plan and look at its actions"
keys ctrl+s
choose_file "Save" "$work/plan.tav"
await "the plan is not saved" test -s "$work/plan.tav"
grep -q ',20,0,0,' "$work/plan.tav" || fail "the first dragged waypoint is not in the file"
grep -q '^18,12,0,0,' "$work/plan.tav" || fail "the second dragged waypoint is not in the file"
grep -q '^12.3,8,0,0,' "$work/plan.tav" || fail "the waypoint by key is not in the file"
[ "$(grep -c '^-1,-1,.*,1,' "$work/plan.tav")" = 1 ] || fail "the ascent is not in the file"
"$tavplan" check "$work/plan.tav" >/dev/null || fail "the file has faults"

echo "== end"
keys ctrl+q
for _ in $(seq 100); do
  if ! kill -0 "$program" 2>/dev/null; then
    wait "$program" || fail "the program ended with status $?"
    echo "passed"
    exit 0
  fi
  sleep 0.1
done
fail "the program does not end"
