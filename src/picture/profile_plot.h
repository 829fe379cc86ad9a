#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/dive_moment.h"
#include "model/profile.h"
#include "picture/graph_scale.h"
#include "platform/drawing_surface.h"

namespace tav {

/// Where the plot lies within its container.
constexpr double kPlotPlaceX = 800;
constexpr double kPlotPlaceY = 300;

/// The greatest depth and run time of any row, at least that much.
Single LargestDepth(const ClassProfile& profile, Single least);
Single LargestTime(const ClassProfile& profile, Single least);

/// What a graph shows beside the plan itself.
struct GraphExtras {
  bool ceiling = true;      ///< as a shaded curve
  bool stopMinutes = true;  ///< beside each stop
  bool depths = true;       ///< of the first stop and of each gas change, and the run time at the end
  bool tissues = false;     ///< the map of the loads
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
  ProfilePlot(DrawingSurface& container, DrawingSurface& grid) : container_(container), grid_(grid) {}

  /// How far the world of the plot reaches: multiples of the greatest run time and depth of any row, at
  /// least of `least`, before rounding outwards.
  struct Reach {
    double time;
    double depth;
    double least;
  };
  static constexpr Reach kRoomToGrow{3, 2, 60};       ///< for a plan that is being made
  static constexpr Reach kJustThePlan{1.2, 1.1, 60};  ///< for a picture of one that is done
  static constexpr Reach kFitted{1.1, 1, 10};         ///< for a window that the plan is to fill

  /// Draws what is to lie behind the rows.
  using Behind = std::function<void(const GraphScale& scale)>;

  /// Clears both surfaces and draws everything. The scale that results holds until the next call. On a plot whose time
  /// is stretched by `timeZoom` the times are told in finer steps. Where the numbers of an axis have no room, every
  /// second, third, ... stands. A dive with `moments` has its ceiling shaded.
  void Redraw(const ClassProfile& profile, Reach reach, double timeZoom = 1,
              const std::vector<DiveMoment>& moments = {}, const Behind& behind = {});
  [[nodiscard]] const GraphScale& Scale() const { return scale_; }
  /// Those of the last Redraw, in order; the first gas among them.
  [[nodiscard]] const std::vector<GasLabel>& GasLabels() const { return gasLabels_; }

 private:
  void Xaxis(double timeZoom);
  void Yaxis();
  void PlotWayPoint(const ClassProfile& profile, std::int16_t row, bool isLast);
  void DrawShape(std::int16_t status, ScreenPoint at);
  void PlotGasChanges(const ClassProfile& profile, std::int16_t row, ScreenPoint at);
  enum class LabelPlace { UpLeft, DownRight };
  void PlotGasUsed(ScreenPoint at, const std::string& text, LabelPlace place, std::int16_t changeRow);

  DrawingSurface& container_;
  DrawingSurface& grid_;
  GraphScale scale_;
  Single PrevPlotTime_;
  Single PrevPlotY_;
  std::vector<GasLabel> gasLabels_;
};

}  // namespace tav
