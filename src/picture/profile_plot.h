#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/dive_moment.h"
#include "model/profile.h"
#include "picture/graph_colours.h"
#include "picture/graph_scale.h"
#include "platform/drawing_surface.h"

namespace tav {

/// Where the plot lies within its container.
constexpr double kPlotPlaceX = 800;
constexpr double kPlotPlaceY = 300;

/// The greatest depth and run time of any row, at least that much.
Single LargestDepth(const ClassProfile& profile, Single least);
Single LargestTime(const ClassProfile& profile, Single least);

/// A place in a plot of depth over run time.
struct PlotPoint {
  Single runTime;  ///< minutes
  Single depth;    ///< depth units
  friend bool operator==(const PlotPoint& a, const PlotPoint& b) {
    return a.runTime == b.runTime && a.depth == b.depth;
  }
};

/// The run time and the depth at the far corner of a plot that has room for the plan to grow: three times its run time
/// and twice its depth, 60 at least of both, rounded outwards to tens.
PlotPoint RoomToGrow(const ClassProfile& profile);
/// The same of a plot that the plan fills, as do other points. Without an ascent there is room for one more leg. A time
/// is rounded up to 5 minutes, a depth to the distance of stops. What follows a stop that never clears, of a day or
/// more, has no room.
PlotPoint Fitted(const ClassProfile& profile, Single stopStep, const std::vector<PlotPoint>& beside = {});

/// What a graph shows beside the plan itself.
struct GraphExtras {
  bool ceiling = true;      ///< as a shaded curve
  bool stopMinutes = true;  ///< beside each stop
  bool depths = true;       ///< of the first stop and of each gas change, and the run time at the end
  bool tissues = false;     ///< the map of the loads
  bool light = false;       ///< in dark colours on white
  bool paper = false;       ///< for a printer, whatever `light` says
  [[nodiscard]] const graph::Scheme& Colours() const { return paper ? graph::kPaper : graph::SchemeOf(light); }
  friend bool operator==(const GraphExtras&, const GraphExtras&) = default;
};

/// The label of a gas, as it was drawn.
struct GasLabel {
  std::int16_t changeRow = 0;  ///< the gas is breathed from the end of that row on
  double left = 0, top = 0, right = 0, bottom = 0;
};

/// Draws a plan as depth against run time: axes, rows, gas labels.
class ProfilePlot {
 public:
  /// The plot goes on `grid`, the numbers of the depth axis on `container`, in which the plot lies 800 units from the
  /// left and 300 from the top.
  ProfilePlot(DrawingSurface& container, DrawingSurface& grid, const graph::Scheme& colours = graph::kDark)
      : container_(container), grid_(grid), colours_(colours) {}

  /// Draws what is to lie behind the rows.
  using Behind = std::function<void(const GraphScale& scale)>;

  /// Clears both surfaces and draws everything. The scale that results holds until the next call. The axes are marked
  /// at 1, 2, 5, 10, ... minutes and times the distance of stops (`stopStep`), as densely as the numbers have room. A
  /// dive with `moments` has its ceiling shaded.
  void Redraw(const ClassProfile& profile, PlotPoint corner, Single stopStep,
              const std::vector<DiveMoment>& moments = {}, const Behind& behind = {});
  [[nodiscard]] const GraphScale& Scale() const { return scale_; }
  /// Those of the last Redraw, in order; the first gas among them.
  [[nodiscard]] const std::vector<GasLabel>& GasLabels() const { return gasLabels_; }

 private:
  void Xaxis();
  void Yaxis(Single stopStep);
  void PlotWayPoint(const ClassProfile& profile, std::int16_t row, bool isLast);
  void DrawShape(std::int16_t status, ScreenPoint at);
  void PlotGasChanges(const ClassProfile& profile, std::int16_t row, ScreenPoint at);
  enum class LabelPlace { UpLeft, DownRight };
  void PlotGasUsed(ScreenPoint at, const std::string& text, LabelPlace place, std::int16_t changeRow);

  DrawingSurface& container_;
  DrawingSurface& grid_;
  const graph::Scheme& colours_;
  GraphScale scale_;
  Single PrevPlotTime_;
  Single PrevPlotY_;
  std::vector<GasLabel> gasLabels_;
};

}  // namespace tav
