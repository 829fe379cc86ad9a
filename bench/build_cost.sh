#!/usr/bin/env bash
# What a build costs from nothing, in CPU seconds, without the compiler's cache: a clone of a commit, the README's two
# commands in it, and the ten dearest sources of each. Usage: bench/build_cost.sh [COMMIT]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
commit=$(git rev-parse "${1:-HEAD}")
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
git clone --quiet --no-hardlinks . "$place/tav"
git -C "$place/tav" checkout --quiet --detach "$commit"

cat >"$place/timed" <<'EOF'
#!/usr/bin/env bash
# Runs a compiler and writes its CPU seconds and the object that it made.
for argument; do [ "${last:-}" = -o ] && object=$argument; last=$argument; done
TIMEFORMAT="%U %S ${object##*/CMakeFiles/}"
{ time "$@" 2>&3; } 3>&2 2>>"$TAV_BUILD_COST"
EOF
chmod +x "$place/timed"
export CMAKE_CXX_COMPILER_LAUNCHER=$place/timed TAV_BUILD_COST=$place/sources

# cost COMMAND: its CPU seconds, of all processes below it, and its dearest sources
cost() {
  : >"$TAV_BUILD_COST"
  local TIMEFORMAT='%U %S %R' figures
  figures=$({ time { (cd "$place/tav" && bash -c "$1") >"$place/log" 2>&1; }; } 2>&1) || { cat "$place/log" >&2; exit 1; }
  awk -v what="$1" '{printf "%s: %.0f CPU seconds, %.0f of the clock\n", what, $1 + $2, $3}' <<<"$figures"
  awk '{printf "%7.1f  %s\n", $1 + $2, $3}' "$TAV_BUILD_COST" | sort -rn | head -10
}
cost "./run new --depth 60 --time 25 --gas Tx18/45"
cost "./test"
