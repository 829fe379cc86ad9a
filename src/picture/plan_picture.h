#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/dive_moment.h"
#include "model/dive_template.h"
#include "model/number_text.h"
#include "model/profile.h"
#include "picture/profile_plot.h"
#include "platform/drawing_surface.h"
#include "platform/text_source.h"

namespace tav {

/// A computed plan to be drawn. What it refers to outlives the drawing.
struct DrawnPlan {
  const ClassProfile& rows;
  const DiveTemplate& settings;
  const std::vector<DiveMoment>& moments;  ///< of the same dive; without any there are neither ceiling nor tissues
  const TextSource& texts;
  LocaleSeparators separators = {};  ///< of all numbers in words
  std::string notice = {};           ///< what must be said ahead of all figures; empty for none
  Compartments startLoads{};         ///< of a repetitive dive without rows: fractions of the surface M-values
};

/// A plan as a picture, and in words for those who do not see it.
class PlanPicture {
 public:
  explicit PlanPicture(DrawnPlan plan, const GraphExtras& extras = {}) : plan_(std::move(plan)), extras_(extras) {}

  /// Draws all of the plan on one surface, with the notice: the plan fills the plot.
  void Draw(DrawingSurface& picture) const;

  /// Draws the profile alone down to `bottom`: the plan fills it. Returns its scale.
  GraphScale DrawProfile(DrawingSurface& picture, double bottom) const;

  // Parts of it, on surfaces of their own.
  /// The plot with its axes, their names, the ceiling at the end and figures (ProfilePlot); returns its scale.
  GraphScale DrawPlot(DrawingSurface& container, DrawingSurface& grid, PlotPoint corner,
                      const ProfilePlot::Behind& behind = {}) const;
  /// The tissues below a plot of that scale, which is scrolled by that much.
  void DrawTissues(DrawingSurface& tissues, const GraphScale& scale, double scroll) const;
  void DrawBars(DrawingSurface& bars) const;

  /// What is told of a row, with that text between the figures.
  [[nodiscard]] std::string FiguresOf(const Waypoint& row, std::string_view between) const;
  /// What is told of a moment of the plan in three lines: place and gas, PPO2 and ceiling, GF99 and surface GF.
  [[nodiscard]] std::string FiguresAt(const DiveMoment& moment) const;
  /// The plan in words, a line a row.
  [[nodiscard]] std::string Description() const;

 private:
  [[nodiscard]] std::string T(int id) const { return plan_.texts.GetResString(id); }
  [[nodiscard]] std::string Fixed(Single value, int decimals) const {
    return WriteLocaleNumber(FormatFixed(value, decimals), plan_.separators);
  }
  [[nodiscard]] std::string LengthUnit() const { return plan_.settings.Metric ? " m" : " ft"; }
  [[nodiscard]] std::string PressureUnit() const { return plan_.settings.Metric ? " bar" : " ata"; }
  void DrawTitles(DrawingSurface& container, const GraphScale& scale) const;
  /// Along the lower edge of that part of the picture; returns how high it is.
  double DrawNotice(DrawingSurface& picture, double bottom) const;

  [[nodiscard]] const graph::Scheme& Colours() const { return extras_.Colours(); }

  DrawnPlan plan_;
  GraphExtras extras_;
};

}  // namespace tav
