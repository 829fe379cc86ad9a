#pragma once

#include <string>
#include <utility>
#include <vector>

#include "model/number_texts.h"
#include "picture/profile_plot.h"

namespace tav {

/// Texts on the plot that must not touch each other: what has no room is left out, the more important come first.
class PlotLabels {
 public:
  PlotLabels(DrawingSurface& surface, const GraphScale& scale, Colour colour)
      : surface_(surface), scale_(scale), colour_(colour) {}

  /// A line that texts which are to be clear of it must not touch.
  void Avoid(std::vector<SurfacePoint> line) { line_ = std::move(line); }
  /// A text that stands there already.
  void Occupy(double left, double top, double right, double bottom) { taken_.push_back({left, top, right, bottom}); }
  /// Writes a text with its top left corner there. False when it would touch another one, or the line if it is to be
  /// clear of it, or leave the plot; then nothing is written.
  bool Write(double left, double top, const std::string& text, bool clear);

 private:
  struct Box {
    double left, top, right, bottom;
  };
  [[nodiscard]] bool TouchesLine(const Box& box) const;

  DrawingSurface& surface_;
  const GraphScale& scale_;
  Colour colour_;
  std::vector<SurfacePoint> line_;
  std::vector<Box> taken_;
};

/// How the figures on the plot are written.
struct FigureWords {
  std::string lengthUnit;  ///< " m" or " ft"
  NumberTexts numbers;
};

/// Writes the run time at the end, the depths of the first stop and of each gas change, and the minutes of each stop,
/// as far as the extras say so; long stops before short ones.
void WriteFigures(DrawingSurface& surface, const ProfilePlot& plot, const ClassProfile& profile,
                  const GraphExtras& extras, const FigureWords& words);

}  // namespace tav
