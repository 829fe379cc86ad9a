#!/usr/bin/env bash
# Draws docs/architecture.svg from the #include lines of src/: a box for each folder, above all that it includes, and a
# line to each that it does not reach by way of another.
#   scripts/architecture_svg.sh            writes the picture
#   scripts/architecture_svg.sh --check    fails when the picture is not that of the includes
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C
picture=docs/architecture.svg

# "folder included", each pair once; a folder that includes no other stands alone.
pairs() {
  local folder
  for folder in src/*/; do
    folder=$(basename "$folder")
    echo "$folder"
    find "src/$folder" -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.inc' -o -name '*.in' \) -print0 |
      xargs -0 -r sed -n 's|^#include "\([a-z]*\)/.*|\1|p' | sed "s|^|$folder |"
  done | sort -u | awk '$1 != $2'
}

draw() {
  pairs | awk '
    function say(folder) {
      if (folder == "model") return "records, numbers, units"
      if (folder == "engine") return "ZH-L16, VPM, stops, oxygen"
      if (folder == "persist") return "template and plan files"
      if (folder == "platform") return "window system as a service"
      if (folder == "compute") return "from legs to rows"
      if (folder == "controls") return "dialogs as records"
      if (folder == "start") return "folders, languages, settings"
      if (folder == "headless") return "a window system without windows"
      if (folder == "figures") return "a computed plan in words"
      if (folder == "pages") return "page files, preview"
      if (folder == "plans") return "documents, series, undo"
      if (folder == "supply") return "cylinders and what they hold"
      if (folder == "exchange") return "logs of other programs"
      if (folder == "advice") return "findings, what if"
      if (folder == "picture") return "a plan as strokes and texts"
      if (folder == "tables") return "bail-out and deco tables"
      if (folder == "mixer") return "filling cylinders"
      if (folder == "reports") return "plan sheet, slate, long report"
      if (folder == "dialogs") return "dialogs and panes of a plan"
      if (folder == "graph") return "pointer and drags on the picture"
      if (folder == "app") return "the main window"
      if (folder == "cli") return "tavplan: command line"
      if (folder == "desktop") return "tav: the windows (Qt)"
      return ""
    }
    function level(folder,    i, other, most) {
      if (folder in levels) return levels[folder]
      most = -1
      for (i = 1; i <= count; ++i) {
        other = names[i]
        if ((folder, other) in direct && level(other) > most) most = level(other)
      }
      return levels[folder] = most + 1
    }
    # A folder reaches another when it includes it, itself or by way of others.
    function reaches(folder, other,    i) {
      if ((folder, other) in direct) return 1
      for (i = 1; i <= count; ++i) {
        if ((folder, names[i]) in direct && reaches(names[i], other)) return 1
      }
      return 0
    }
    function needed(folder, other,    i) {
      for (i = 1; i <= count; ++i) {
        if ((folder, names[i]) in direct && names[i] != other && reaches(names[i], other)) return 0
      }
      return 1
    }
    { if (!($1 in known)) { known[$1] = 1; names[++count] = $1 } }
    NF == 2 { direct[$1, $2] = 1 }
    # A line that passes a row of boxes has a gap of its own there, a place without a box.
    function put(item, at) { inRow[at, ++rows[at]] = item; rowOf[item] = at }
    function link(from, to) { ++edges; edgeFrom[edges] = from; edgeTo[edges] = to }
    END {
      width = 190; height = 50; gap = 18; rise = 100; lane = 8
      for (i = 1; i <= count; ++i) {
        put(names[i], level(names[i]))
        if (levels[names[i]] > top) top = levels[names[i]]
      }
      for (i = 1; i <= count; ++i) {
        for (j = 1; j <= count; ++j) {
          if (!((names[i], names[j]) in direct) || !needed(names[i], names[j])) continue
          from = names[i]
          for (at = levels[names[i]] - 1; at > levels[names[j]]; --at) {
            put(names[i] ">" names[j] ">" at, at)
            link(from, names[i] ">" names[j] ">" at)
            from = names[i] ">" names[j] ">" at
          }
          link(from, names[j])
        }
      }
      for (at = 0; at <= top; ++at) {
        long[at] = -gap
        for (i = 1; i <= rows[at]; ++i) long[at] += (index(inRow[at, i], ">") ? lane : width) + gap
        if (long[at] > widest) widest = long[at]
      }
      wide = widest + 2 * gap
      high = (top + 1) * rise
      for (at = top; at >= 0; --at) {
        # Each row in the order in which what includes it stands above.
        for (i = 1; i <= rows[at]; ++i) {
          item = inRow[at, i]
          sum = parents = 0
          for (k = 1; k <= edges; ++k) if (edgeTo[k] == item) { sum += middle[edgeFrom[k]]; ++parents }
          key = parents ? sum / parents : i
          for (j = i - 1; j >= 1 && keys[j] > key; --j) { inRow[at, j + 1] = inRow[at, j]; keys[j + 1] = keys[j] }
          inRow[at, j + 1] = item
          keys[j + 1] = key
        }
        x = int((wide - long[at]) / 2)
        for (i = 1; i <= rows[at]; ++i) {
          item = inRow[at, i]
          own = index(item, ">") ? lane : width
          middle[item] = x + own / 2
          y[item] = (top - at) * rise + 25
          x += own + gap
        }
      }
      printf "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %d %d\" width=\"%d\" height=\"%d\" role=\"img\" font-family=\"sans-serif\">\n", wide, high, wide, high
      print "<title>Folders of src and what they include</title>"
      print "<desc>Includes point downwards only. Made by scripts/architecture_svg.sh.</desc>"
      printf "<rect width=\"%d\" height=\"%d\" fill=\"#ffffff\"/>\n", wide, high
      line = "<line x1=\"%d\" y1=\"%d\" x2=\"%d\" y2=\"%d\" stroke=\"#51606e\" stroke-width=\"1.5\"/>\n"
      for (k = 1; k <= edges; ++k) {
        printf line, middle[edgeFrom[k]], y[edgeFrom[k]] + height, middle[edgeTo[k]], y[edgeTo[k]]
        if (index(edgeTo[k], ">")) printf line, middle[edgeTo[k]], y[edgeTo[k]], middle[edgeTo[k]], y[edgeTo[k]] + height
      }
      for (i = 1; i <= count; ++i) {
        item = names[i]
        printf "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" rx=\"6\" fill=\"#e8f1f8\" stroke=\"#1f4e79\"/>\n", middle[item] - width / 2, y[item], width, height
        printf "<text x=\"%d\" y=\"%d\" text-anchor=\"middle\" font-size=\"15\" font-weight=\"bold\" fill=\"#10293f\">%s/</text>\n", middle[item], y[item] + 21, item
        printf "<text x=\"%d\" y=\"%d\" text-anchor=\"middle\" font-size=\"12\" fill=\"#10293f\">%s</text>\n", middle[item], y[item] + 39, say(item)
      }
      print "</svg>"
    }'
}

case "$#,${1:-}" in
  0,) draw >"$picture" ;;
  1,--check)
    draw | cmp -s - "$picture" || { echo "$picture is not that of the includes: run scripts/architecture_svg.sh" >&2; exit 1; }
    ;;
  *)
    echo "usage: scripts/architecture_svg.sh [--check]" >&2
    exit 2
    ;;
esac
