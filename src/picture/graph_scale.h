#pragma once

#include "model/single.h"

namespace tav {

/// A position on a drawing surface, in drawing units of 1/1440 inch, y down.
struct ScreenPoint {
  Single x;
  Single y;
  friend bool operator==(const ScreenPoint& a, const ScreenPoint& b) { return a.x == b.x && a.y == b.y; }
};

/// A position in the world of the graph: run time in minutes, and minus the depth.
struct WorldPoint {
  Single time;
  Single y;
};

/// value rounded down to a multiple of step; a value that rounds to a multiple becomes that.
Single RoundDownToStep(Single value, int step);
/// value moved one step outwards, away from 0, then as RoundDownToStep: a multiple of step moves out a whole step.
Single RoundUpToStep(Single value, int step);

/// How the world lies on the plot.
class GraphScale {
 public:
  Single PlotLeft, PlotRight, PlotTop, PlotBottom;      ///< drawing units
  Single WorldLeft, WorldRight, WorldTop, WorldBottom;  ///< minutes; depths as negative numbers

  /// The plot on a surface of that size: 5.5 % of the height, and 200 units at least, is left free above and below.
  void SetPlot(Single width, Single height);
  /// The world box.
  void SetWorld(Single left, Single right, Single top, Single bottom);

  /// -1 on an axis whose world has no extent. The world is taken to begin at time 0.
  [[nodiscard]] ScreenPoint WorldToScreen(Single time, Single y) const;
  /// Rounded down to a tenth of a minute and of a depth unit. Since y is negative, a depth rounds deeper.
  [[nodiscard]] WorldPoint ScreenToWorld(Single x, Single y) const;
  [[nodiscard]] bool InsidePlot(Single x, Single y) const;
  /// The point itself, or the nearest one of the plot.
  [[nodiscard]] ScreenPoint OntoPlot(ScreenPoint at) const;

  /// Slope of a rate (depth units per minute) on the plot: x per y, negative for a positive rate.
  [[nodiscard]] Single Drate(Single rate) const;
  /// y of a depth on the plot.
  [[nodiscard]] Single Ddepth(Single depth) const;
};

}  // namespace tav
