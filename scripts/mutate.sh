#!/usr/bin/env bash
# Do the tests see a fault? Plants one at a time in a line of src/, in all folders without Qt, and runs the test programs
# that can see it until one fails. What no test sees is told with its line: a test is missing there, or it changes nothing.
#   scripts/mutate.sh [--seed N] [--faults N] [--folders "engine plans"] [--jobs N] [--write]
# The seed draws the faults, the same ones again from the same sources; the folders take turns. --write puts the result
# into docs/testing.md. Works in a copy, build/mutate, which is kept: the first run builds all, later ones little.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD
export LC_ALL=C
usage() { sed -n 's/^#   \(scripts.*\)/usage: \1/p' "$root/scripts/mutate.sh" >&2; exit 2; }

seed=1 faults=110 jobs=$(nproc) write=
folders=$(cd src && ls -d */ | grep -vE '^(desktop|headless)/' | tr -d / | tr '\n' ' ')
all=$folders
while [ $# -gt 0 ]; do
  case $1 in
    --write) write=yes; shift; continue ;;
    *) [ $# -ge 2 ] || usage ;;
  esac
  case $1 in
    --seed | --faults | --jobs) [[ $2 =~ ^[1-9][0-9]{0,6}$ ]] || usage; declare "${1#--}=$2" ;;
    --folders) folders=$2 ;;
    *) usage ;;
  esac
  shift 2
done
[ -n "${folders// /}" ] || usage
for folder in $folders; do
  [[ " $all" == *" $folder "* ]] || { echo "src/$folder is no folder to plant faults in" >&2; exit 2; }
done

place=$root/build/mutate  # sound: the sources as they were at the start; source: those with the fault, and their build
source=$place/source
build=$source/build/debug
mkdir -p "$place" "$source"
exec 9>"$place/lock"
flock -n 9 || { echo "another run is at work in $place" >&2; exit 1; }
rm -rf "$place/sound" "$place/home"
mkdir "$place/sound"
git ls-files -coz --exclude-standard | while read -rd '' file; do [ ! -f "$file" ] || printf '%s\0' "$file"; done |
  tar -cf - --null -T - | tar -xf - -C "$place/sound"

# Makes the copy sound again, whatever the fault or a test with it has written there. What differed is new to ninja.
mend() {
  local kind a b c
  (cd "$place" && diff -rq -x build sound source || true) | while read -r kind a b c _; do
    case $kind,$b in
      Files,and) cp "$place/$a" "$place/$c" ;;
      Only,sound*) b=${b%:}; cp -r "$place/$b/$c" "$place/source${b#sound}/" ;;
      Only,source*) b=${b%:}; rm -rf "${place:?}/$b/${c:?}" ;;
    esac
  done
}
mend
# Without what a debugger needs, which takes half the time; and without the windows.
source scripts/setup.sh
source scripts/put_between.sh
export CCACHE_BASEDIR=$source
setup "${build_packages[@]}"
(cd "$source" && cmake --preset debug -DTAV_DESKTOP=OFF -DCMAKE_CXX_FLAGS_DEBUG=-O0) >"$place/log" 2>&1 ||
  { cat "$place/log" >&2; exit 1; }

# The test programs, small ones first; those of the command line and of whole dives come last.
inputs_of() { ninja -C "$build" -t inputs "$1_test"; }
programs=$(sed -n 's/^tav_test(\([a-z]*\) .*/\1/p' "$source/tests/CMakeLists.txt" | grep -vE '^(cli|vectors|layers)$' |
  while read -r program; do echo "$(inputs_of "$program" | wc -l) $program"; done | sort -n | cut -d ' ' -f 2)
declare -A sees  # folder: the programs that link it, its own first
for program in $programs cli vectors; do
  libraries=$(inputs_of "$program" | sed -n 's|.*/libtav_\([a-z]*\)\.a$|\1|p')
  for folder in $folders; do
    grep -qx "$folder" <<<"$libraries" || continue
    if [ "$program" = "$folder" ]; then
      sees[$folder]="$program ${sees[$folder]:-}"
    else
      sees[$folder]="${sees[$folder]:-}$program "
    fi
  done
done

make_program() { ninja -C "$build" -j "$jobs" "$1_test" >"$place/log" 2>&1; }
# Runs a program away from the user's own folders. A loop without end may take neither all time nor all memory, nor go
# on when this script is ended.
running=
trap '[ -z "$running" ] || kill "$running" 2>/dev/null' EXIT
trap 'exit 130' INT TERM HUP
run_program() {
  local status=0
  rm -rf "$place/home"
  mkdir "$place/home"
  (cd "$place/home" && ulimit -v 8000000 -c 0 &&
    exec env -u XDG_CONFIG_HOME -u XDG_RUNTIME_DIR -u DISPLAY HOME="$place/home" TMPDIR="$place/home" \
      timeout -k 10 300 "$build/bin/$1_test" --gtest_fail_fast) >"$place/log" 2>&1 9>&- &
  running=$!
  wait "$running" || status=$?
  running=
  return "$status"
}
# The test that failed, or in which the program ended; 124 and 137 are the statuses of `timeout`.
failed_test() {
  local test
  test=$(sed -n 's/^\[  FAILED  \] \([^ ,]*\).*/\1/p' "$place/log" | head -n 1)
  [ -n "$test" ] || test=$(sed -n 's/^\[ RUN      \] //p' "$place/log" | tail -n 1)
  case $1 in 124 | 137) echo "by time: $test" ;; *) echo "$test" ;; esac
}
# A failure counts only of a program that passes without the fault, which is tried once for each.
declare -A passes
is_sound() {
  [ -z "${passes[$1]:-}" ] || return 0
  mend
  { make_program "$1" && run_program "$1"; } ||
    { tail -n 30 "$place/log" >&2; echo "$1_test fails without any fault" >&2; exit 1; }
  passes[$1]=yes
}

# What does not compile is no fault, if its program compiles without it.
is_code() {
  [ -z "${passes[$1]:-}" ] || return 0
  mend
  make_program "$1" || { tail -n 30 "$place/log" >&2; echo "$1_test does not compile without any fault" >&2; exit 1; }
}

# try FILE LINE COLUMN OLD NEW FOLDER: plants it, and sets `outcome`, and `by` to the test that saw it.
try() {
  local program status
  outcome="not caught" by=
  mend
  old=$4 new=$5 awk -v line="$2" -v column="$3" 'NR == line {
    $0 = substr($0, 1, column - 1) ENVIRON["new"] substr($0, column + length(ENVIRON["old"]))
  } { print }' "$place/sound/$1" >"$source/$1"
  for program in ${sees[$6]}; do
    make_program "$program" || { outcome="no code"; is_code "$program"; return; }
    status=0
    run_program "$program" || status=$?
    [ "$status" -ne 0 ] || continue
    outcome=caught by="${program}_test $(failed_test "$status")"
    is_sound "$program"
    return
  done
}

rm -rf "$place/drawn"
mkdir "$place/drawn"
for folder in $folders; do
  # Lists of names and of help are texts.
  (cd "$place/sound" &&
    find "src/$folder" -name '*.cpp' -o -name '*.inc' -o -name '*.h' ! -name text_id.h ! -name usage_texts.h |
    sort | xargs awk -v seed="$seed" -f "$root/scripts/faults.awk" | sort -n) >"$place/drawn/$folder"
done
declare -A planted caught own
result=$place/result.txt
: >"$result"
count=0
while [ "$count" -lt "$faults" ]; do
  before=$count
  for folder in $folders; do
    [ "$count" -lt "$faults" ] || break
    outcome="no code"
    # The first line of those drawn goes, until one compiles. Blanks may stand in old and new, tabs not.
    while [ "$outcome" = "no code" ] && IFS=$'\t' read -r _ file line column old new <"$place/drawn/$folder"; do
      sed -i 1d "$place/drawn/$folder"
      try "$file" "$line" "$column" "$old" "$new" "$folder"
      echo "$outcome${by:+ by $by}: $file:$line, $old => ${new:-nothing}" | tee -a "$result"
    done
    [ "$outcome" != "no code" ] || continue
    count=$((count + 1))
    planted[$folder]=$((${planted[$folder]:-0} + 1))
    [ "$outcome" != caught ] || caught[$folder]=$((${caught[$folder]:-0} + 1))
    [[ $by != "${folder}_test "* ]] || own[$folder]=$((${own[$folder]:-0} + 1))
  done
  [ "$count" -gt "$before" ] || break
done
mend

table() {
  local folder
  echo
  echo "The last run: $(date -u +%Y-%m-%d), seed $seed, one fault at a time."
  echo
  echo "| folder | faults | caught | of these by its own tests | caught % |"
  echo "|---|---:|---:|---:|---:|"
  for folder in $folders; do
    echo "$folder ${planted[$folder]:-0} ${caught[$folder]:-0} ${own[$folder]:-0}"
  done | awk 'function row(name, n, c, o) { if (n > 0) printf "| %s | %d | %d | %d | %.0f |\n", name, n, c, o, 100 * c / n }
    { row($1, $2, $3, $4); n += $2; c += $3; o += $4 }
    END { row("**all**", n, c, o) }'
  echo
}
table | tee -a "$result"
[ -z "$write" ] || table | put_between mutation docs/testing.md
