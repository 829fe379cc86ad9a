# Are the rows that a graph shows those that the engine computes?
#   tavplan plan --csv FILE | awk -F, -v dive=N -f same_rows.awk - GRAPH.svg
# The figures of the exported graph lie in its description, a line a row; its curve is the last of its white lines.
function fail(what) {
  print "row " shown ": " what
  failed = 1
  exit 1
}
function near(found, wanted, tolerance) { return found - wanted <= tolerance && wanted - found <= tolerance }
function figure(name) {
  if (!match($0, name ": [^,]*")) fail("no " name)
  return substr($0, RSTART + length(name) + 2, RLENGTH - length(name) - 2)
}
function check(name, wanted, tolerance) {
  if (!near(figure(name) + 0, wanted, tolerance)) fail(name " is " figure(name) ", computed " wanted)
}

FNR == NR && FNR == 1 { for (i = 1; i <= NF; i++) column[$i] = i }
FNR == NR && $column["dive"] == dive && $column["row"] > 0 {
  rows = $column["row"]
  depth[rows] = $column["depth"]
  time[rows] = $column["run_time"]
  gas[rows] = $column["mix"]
  ppo2[rows] = $column["ppo2"]
  ceiling[rows] = $column["ceiling"]
  if (depth[rows] > depth[deepest]) deepest = rows
}
FNR == NR { next }

{ sub(/^<desc>/, "") }
/^Depth: / {
  shown++
  if (shown > rows) fail("computed are only " rows)
  check("Depth", depth[shown], 0.0501)
  check("Run time", time[shown], 0.0501)
  check("PPO2", ppo2[shown], 0.00501)
  check("Ceiling", ceiling[shown], 0.0501)
  if (figure("Gas") != gas[shown]) fail("gas is " figure("Gas") ", computed " gas[shown])
}
/<g / { white = /stroke="#ffffff"/ }
/<polyline/ && white {
  sub(/.*points="/, "")
  split($0, xy, /[ ,]/)
  lines++
  fromX[lines] = xy[1]
  fromY[lines] = xy[2]
  toX[lines] = xy[3]
  toY[lines] = xy[4]
}

END {
  if (failed) exit 1
  if (rows == 0 || shown != rows) fail("shown are " shown ", computed " rows)
  first = lines - rows
  left = fromX[first + 1]
  top = fromY[first + 1]
  perMinute = (toX[lines] - left) / time[rows]
  perDepth = (toY[first + deepest] - top) / depth[deepest]
  for (shown = 1; shown <= rows; shown++) {
    if (!near(toX[first + shown], left + time[shown] * perMinute, 0.1) ||
        !near(toY[first + shown], top + depth[shown] * perDepth, 0.1)) {
      fail("the curve goes to " toX[first + shown] ", " toY[first + shown])
    }
  }
}
