# Sourced by the scripts that renew a part of a page.

# put_between NAME PAGE puts what it reads between the lines <!-- NAME --> and <!-- /NAME --> of a page.
put_between() {
  local new
  grep -qx "<!-- $1 -->" "$2" && grep -qx "<!-- /$1 -->" "$2" || { echo "$2 has no place for $1" >&2; return 1; }
  new=$(mktemp)
  cat >"$new"
  awk -v name="$1" -v new="$new" '
    $0 == "<!-- /" name " -->" { inside = 0 }
    !inside { print }
    $0 == "<!-- " name " -->" { inside = 1; while ((getline line <new) > 0) print line }' "$2" >"$new.page"
  cat "$new.page" >"$2"
  rm -f "$new" "$new.page"
}
