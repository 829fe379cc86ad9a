#!/usr/bin/env bash
# Counts the tests, for docs/testing.md.
#   scripts/test_counts.sh            writes the table into the page
#   scripts/test_counts.sh --check    fails when the table is not that of the sources
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/put_between.sh
export LC_ALL=C
page=docs/testing.md
vectors=tests/data/vectors gas=tests/data/gas

# tests FILE...: the heads of tests; one with parameters counts once.
tests() { cat "$@" | grep -cE '^TEST(_F|_P)?\('; }
known() { find "$1" -maxdepth "${2:-1}" -name '*.expected.json'; }
# Those that draw their cases: something at random stands between the head of the test and its closing brace.
at_random() {
  cat "$@" | awk '/^TEST(_F|_P)?[(]/ { inside = 1 } inside && /[Rr]andom|MakePlan[(]/ { ++count; inside = 0 }
    /^}/ { inside = 0 } END { print count + 0 }'
}
# units.json: what stands in the list of each function.
points() { awk '{ for (i = 1; i <= length($0); ++i) { c = substr($0, i, 1)
    if (c ~ /[[{]/ && ++depth == 3) ++count
    if (c ~ /[]}]/) --depth } } END { print count }' "$@"; }
thousand_lines() { cat "$@" | awk 'END { printf "%d,000", NR / 1000 + 0.5 }'; }

table() {
  local dives plain
  mapfile -t dives < <(known $vectors; known $vectors/strict)
  mapfile -t plain < <(ls tests/*/*.cpp | grep -vE '^tests/(desktop|pdf|screen)/')
  echo
  echo "| what | how many | where |"
  echo "|---|---:|---|"
  echo "| tests without windows | $(tests "${plain[@]}") | \`tests/FOLDER\` |"
  echo "| those among them that draw their cases at random | $(at_random "${plain[@]}") | |"
  echo "| laws among them | $(tests tests/*/*law*_test.cpp) | \`tests/*/*law*_test.cpp\` |"
  echo "| tests of the windows | $(tests tests/desktop/*.cpp) | \`tests/desktop\` |"
  echo "| tests that read PDF files back | $(tests tests/pdf/*.cpp) | \`tests/pdf\` |"
  echo "| tests on a screen | $(grep -c 'add_test(NAME Screen\.' tests/CMakeLists.txt) | \`tests/screen\` |"
  echo "| tests of the page in a browser, and of its core | $(grep -chE '^ *(await )?test\(' web/tests/*.test.mjs | awk '{ n += $1 } END { print n }') | \`web/tests\` |"
  echo "| known dives | $(cat "${dives[@]}" | grep -o '"surface_interval"' | wc -l) in ${#dives[@]} plans | \`$vectors\` |"
  echo "| known bail-out tables and deco tables | $(known $vectors/bailout | wc -l) and $(known $vectors/tables | wc -l) | \`$vectors/bailout\`, \`tables\` |"
  echo "| known values of small functions | $(points $vectors/units.json) | \`$vectors/units.json\` |"
  echo "| known gas densities, and fills | $(grep -c '^ *\[[0-9]' $gas/gerg_2008_points.json) and" \
    "$(grep -c '"have"' $gas/reference_fills.json) | \`$gas\` |"
  echo "| fuzz targets | $(grep -c '^tav_fuzz(' fuzz/CMakeLists.txt) | \`fuzz\` |"
  echo "| lines of code, and of tests | $(thousand_lines src/*/*.{cpp,h,inc}) and $(thousand_lines tests/*/*.{cpp,h,sh,awk}) | \`src\`, \`tests\` |"
  echo
}

case "$#,${1:-}" in
  0,) table | put_between counts "$page" ;;
  1,--check)
    sed -n '/^<!-- counts -->$/,/^<!-- \/counts -->$/p' "$page" | sed '1d;$d' | cmp -s - <(table) ||
      { echo "$page does not have the counts of the tests: run scripts/test_counts.sh" >&2; exit 1; }
    ;;
  *)
    echo "usage: scripts/test_counts.sh [--check]" >&2
    exit 2
    ;;
esac
