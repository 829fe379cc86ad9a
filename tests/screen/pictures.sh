#!/usr/bin/env bash
# Pictures of the windows, to be looked at: at another scale too, which the test of one dive can't have.
#   pictures.sh TAV FOLDER
#   QT_SCALE_FACTOR=2 screen=2560x1800 pictures.sh TAV FOLDER
set -euo pipefail
tav=$1
shots=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$here/tests/screen/screen.sh"

# opens a window by keys, takes its picture under a name, and closes it by Escape
picture() {
  local name=$1 title=$2
  shift 2
  focus "^TAV"
  keys "$@"
  focus "$title"
  shot "$name" "$title"
  keys Escape
  await "$title stays" gone "$title"
}

# answers a warning within a run, and all further ones of its kind
silence() {
  focus "$1"
  keys shift+Tab space
  [ -z "${2:-}" ] || shot "$2" "$1"
  keys Return
}

xdotool mousemove 2 2
start "$here/dives/trimix-100.tav"
await "the plan is not open" window "trimix-100.tav"
shot graph
keys F9 F7
shot tissues
keys F7 F9
picture waypoint "New Stop Data" Insert
picture conservatism "^Conservatism$" ctrl+r
picture surface-interval "^Surface Interval$" ctrl+g
picture information "^Dive Information" ctrl+f
picture languages "^Language" alt+d Up Return
picture help "^Help" F1
picture about "^About" alt+h Up Return
picture system-information "^System" alt+h Up Up Up Return
picture contributors "^Contributors" alt+h Up Up Return

focus "^TAV"
keys F9
keys ctrl+shift+w
focus "^What if"
keys alt+g Down
shot what-if "^What if"
keys Escape
await "what if stays" gone "^What if"
focus "^TAV"
keys ctrl+shift+l F9
keys ctrl+shift+m
focus "^Margins"
sleep 4  # until the map is whole
keys Tab Right Right Right Down
shot margins "^Margins"
keys Escape
await "margins stay" gone "^Margins"
focus "^TAV"
keys ctrl+shift+i
focus "^Slate$"
shot slate "^Slate$"
keys Escape
await "the slate stays" gone "^Slate$"
# the bottom gas in a twin set, the others in stages
keys ctrl+u
focus "^Gas supply"
for kind in S80 D12 S80; do
  keys alt+k
  await "the gas supply does not come to rest" is_still "$(window "^Gas supply")"
  type_text "$kind"
  keys alt+a
  await "the gas supply does not come to rest" is_still "$(window "^Gas supply")"
done
keys alt+a alt+a
shot cylinders "^Gas supply"
keys Return
await "the cylinders stay" gone "^Gas supply"
keys ctrl+f
focus "^Dive Information"
keys Right
shot information-gas "^Dive Information"
keys Escape
await "the information stays" gone "^Dive Information"
picture bailout "^Bail-out$" ctrl+b
picture table-expert "^Table Expert$" ctrl+e
focus "^TAV"
keys ctrl+i
focus "^General report"
keys plus plus Next
shot report "^General report"
keys End
shot report-summary "^General report"
keys alt+p
focus "^Print$"
shot print "^Print$"
keys Escape
focus "^General report"
keys Escape
await "the preview stays" gone "^General report"
focus "^TAV"
keys ctrl+p
focus "^Print$"
keys Escape
focus "^Plan sheet"
shot plan-sheet "^Plan sheet"
keys Escape
await "the plan sheet stays" gone "^Plan sheet"
focus "^TAV"
keys ctrl+b
focus "^Bail-out$"
type_text 15
keys Return
silence "^PPO2" warning
focus "^Bail-out Tables"
keys Next
shot bailout-tables "^Bail-out Tables"
keys End Prior
shot bailout-cards "^Bail-out Tables"
keys Escape
await "the preview stays" gone "^Bail-out Tables"
focus "^TAV"
keys ctrl+e
focus "^Table Expert$"
keys Return
silence "^END"
focus "^Deco Tables"
shot deco-tables "^Deco Tables"
keys Escape
await "the preview stays" gone "^Deco Tables"

focus "^TAV"
keys ctrl+m
focus "^Gas Mixer"
keys Tab Tab Tab Tab Tab Tab
type_text 18
keys Tab
type_text 45
keys Tab Tab Tab Tab Tab
type_text 12
shot mixer "^Gas Mixer"
keys alt+p
focus "^Gas mixer report"
shot fill-sheet "^Gas mixer report"
keys Escape
focus "^Gas Mixer - "
keys Escape
await "the mixer stays" gone "^Gas Mixer - "

focus "^TAV"
keys ctrl+t
focus "Dive settings"
for frame in rates decompression units gases altitude rebreather gas-settings warnings; do
  shot "template-$frame" "Dive settings"
  keys Down
done
keys Home Down Down Down alt+c
focus "^Custom"
shot gas-blend "^Custom"
keys Escape Escape
await "the template dialog stays" gone "Dive settings"

focus "^TAV"
keys F12
shot plan-pane
keys ctrl+w
focus "^Unsaved changes"
keys alt+n
await "the plan does not close" gone "trimix-100.tav"
keys ctrl+w ctrl+o
choose_file "Open" "$here/dives/lake-series.tav"
await "the series is not open" window "lake-series.tav"
keys F6
shot series
