# A screen of its own with a window manager, and what a person does on it. Sourced by the scripts of this folder, which
# set: tav, the program; shots, the folder for screenshots or nothing; screen, its size in pixels if not 1280x900.
# Needs Xvfb, openbox, xdotool and, for screenshots, ImageMagick's import.
work=$(mktemp -d)
pids=()

finish() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
# told on the script's own error output, also from within a command that is tried until it succeeds
exec 3>&2
fail() {
  echo "FAILED: $*" >&3
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
# a search while another window goes may find nothing: asked twice
gone() { ! window "$1" && sleep 0.1 && ! window "$1"; }
# a menu is the only window of the program that has no frame
menu() { xwininfo -root -children | grep '("tav" "TAV")'; }
has_keyboard() { [ "$(xdotool getwindowfocus)" = "$1" ]; }
# asked for again while another window, opened by an earlier key, takes it
takes_keyboard() {
  local id
  id=$(window "$1") || return 1
  has_keyboard "$id" && return
  xdotool windowactivate "$id" 2>/dev/null || xdotool windowfocus "$id"
  sleep 0.1
  has_keyboard "$id"
}
focus() {
  await "the window \"$1\" does not come" window "$1"
  await "the window \"$1\" has not got the keyboard" takes_keyboard "$1"
}
look() { import -window "$1" rgb:- | cksum; }
is_still() {
  local before
  before=$(look "$1")
  sleep 0.1
  [ "$(look "$1")" = "$before" ]
}
# takes a picture of a window with its frame: of the main window, unless another one is named
shot() {
  [ -n "$shots" ] || return 0
  await "the picture $1 does not come to rest" is_still "$(window "${2:-^TAV}")"
  import -frame -window "$(window "${2:-^TAV}")" -strip "$shots/$1.png"
}
keys() { xdotool key --delay 40 "$@"; }
type_text() { xdotool type --delay 15 "$1"; }
# saves a plan under the name that it has, changed or not
save_again() {
  touch -d yesterday "$1"
  keys ctrl+s
  await "$1 is not saved" test "$1" -nt "$work/out"
}
# types a path into the file dialog that is open; what is saved is there when the step ends
choose_file() {
  focus "$1"
  keys ctrl+a
  type_text "$2"
  keys Return
  await "the file dialog stays" gone "$1"
  [[ $1 != *Save* ]] || await "$2 is not saved" test -s "$2"
}

# the first display that is free; its number comes when it takes clients
Xvfb -displayfd 1 -screen 0 "${screen:-1280x900}x24" -nolisten tcp >"$work/display" 2>"$work/screen.log" &
pids+=($!)
has_display() { grep -q . "$work/display"; }
await "the screen does not start" has_display
DISPLAY=:$(cat "$work/display")
export DISPLAY HOME=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
await "the screen does not answer" xdotool getmouselocation
manager=
# a window manager that has gone, as on a busy machine, is started again
manages_windows() {
  if ! kill -0 "$manager" 2>/dev/null; then
    openbox >>"$work/screen.log" 2>&1 &
    manager=$!
    pids+=("$manager")
  fi
  xprop -root _NET_SUPPORTING_WM_CHECK | grep "window id"
}
await "the window manager does not start" manages_windows

start() {
  "$tav" "$@" >"$work/out" 2>&1 &
  program=$!
  pids+=("$program")
  focus "Before you use TAV"
  [ "${first:-yes}" = yes ] && shot notice "Before you use TAV"
  first=no
  keys alt+i
  await "the main window does not come" window "^TAV"
  focus "^TAV"
}

# the program is to end by itself, with status 0
ends_well() {
  for _ in $(seq 100); do
    if ! kill -0 "$program" 2>/dev/null; then
      wait "$program" || fail "the program ended with status $?"
      echo "passed"
      exit 0
    fi
    sleep 0.1
  done
  fail "the program does not end"
}
