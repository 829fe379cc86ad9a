#include "picture/plan_picture.h"

#include <cmath>

#include "compute/breathed_gas.h"
#include "engine/breathing_gas.h"
#include "model/text_id.h"
#include "pages/arial_measure.h"
#include "pages/page_units.h"
#include "pages/wrapped_text.h"
#include "picture/compartment_bars.h"
#include "picture/graph_colours.h"
#include "picture/offset_surface.h"
#include "picture/plot_labels.h"
#include "picture/tissue_map.h"

namespace tav {
namespace {

constexpr double kMargin = 100;

}  // namespace

GraphScale PlanPicture::DrawPlot(DrawingSurface& container, DrawingSurface& grid, PlotPoint corner,
                                 const ProfilePlot::Behind& behind) const {
  static const std::vector<DiveMoment> none;
  ProfilePlot plot(container, grid, Colours());
  plot.Redraw(plan_.rows, corner, plan_.settings.StepSize, extras_.ceiling ? plan_.moments : none, behind);
  WriteFigures(grid, plot, plan_.rows, extras_, {LengthUnit(), plan_.separators});
  DrawTitles(container, plot.Scale());
  return plot.Scale();
}

void PlanPicture::DrawTitles(DrawingSurface& container, const GraphScale& scale) const {
  const TextFont font{"Arial", 9, false};
  container.Text(container.Width() / 2, kMargin, T(Text::GraphRunTime), kBlack);
  const std::string depth = T(Text::GraphDepth) + " " + T(plan_.settings.Metric ? Text::InMetres : Text::InFeet);
  const double middle = kPlotPlaceY + (scale.PlotTop + scale.PlotBottom) / 2;
  container.PageText(kMargin / 5, middle + container.PageTextWidth(depth, font) / 2, depth, font, kBlack, 90);

  const std::string title = T(Text::GraphCeiling);
  if (extras_.paper) {
    // What is shaded, in place of where it ends.
    constexpr double kSample = 250;
    const double height = container.TextHeight();
    container.FilledBox(kMargin, kMargin, kMargin + kSample, kMargin + height, Colours().ceilingShade);
    container.Line(kMargin, kMargin + height, kMargin + kSample, kMargin + height, Colours().ceilingLine);
    container.Text(kMargin + kSample + kMargin, kMargin, T(Text::Ceiling), kBlack);
    return;
  }
  container.Text(kMargin, kMargin, title, kBlack);
  const std::int16_t last = plan_.rows.GetLength();
  const Single ceiling = last == 0 ? Single(0) : plan_.rows.GetCeiling(last);
  const std::string text = last == 0 ? "0" : Fixed(ceiling, 1) + LengthUnit();
  const bool none = std::nearbyint(ceiling) == 0;
  const double x = kMargin + container.TextWidth(title + " ");
  // Yellow can't be read on the grey around the plot.
  if (!none && !extras_.light) {
    container.FilledBox(x, kMargin, x + container.TextWidth(text, true), kMargin + container.TextHeight(true), kBlack);
  }
  container.Text(x, kMargin, text, none ? kBlack : Colours().gas, true);
}

void PlanPicture::DrawTissues(DrawingSurface& tissues, const GraphScale& scale, double scroll) const {
  DrawTissueMap(tissues, plan_.moments, scale,
                {kPlotPlaceX, scroll, T(Text::TissuesTitle), T(Text::TissuesOver), Colours().around});
}

void PlanPicture::DrawBars(DrawingSurface& bars) const {
  const std::int16_t last = plan_.rows.GetLength();
  ShowCompartmentLoad(bars, last == 0 ? plan_.startLoads : plan_.rows.Row(last).PercentCompartments,
                      T(Text::GraphCompartments), Colours().around);
}

double PlanPicture::DrawNotice(DrawingSurface& picture, double bottom) const {
  if (plan_.notice.empty()) return 0;
  const double width = picture.Width() - 2 * kMargin;
  const double lineHeight = picture.TextHeight(true);
  const auto lines = WrappedText(plan_.notice, width / page::kUnitsPerCm, {"Arial", 9, true}, ArialMeasure());
  const double height = lineHeight * static_cast<double>(lines.size()) + kMargin;
  double y = bottom - height;
  picture.FilledBox(0, y, picture.Width(), bottom, graph::kNotice);
  y += kMargin / 2;
  for (const std::string& line : lines) {
    picture.Text(kMargin, y, line, graph::kWhite, true);
    y += lineHeight;
  }
  return height;
}

void PlanPicture::Draw(DrawingSurface& picture) const {
  constexpr double kTissues = 0.3;  // of the height
  const double width = picture.Width();
  const double barsTop = picture.Height() - HeightOfBars(picture.Height());
  double plotBottom = barsTop - (extras_.tissues ? kTissues * picture.Height() : 0);
  picture.Clear(Colours().around);
  const double panesTop = plotBottom;
  plotBottom -= DrawNotice(picture, plotBottom);
  const GraphScale scale = DrawProfile(picture, plotBottom);
  if (extras_.tissues) {
    OffsetSurface tissues(picture, 0, panesTop, width - kMargin, barsTop - panesTop);
    DrawTissues(tissues, scale, 0);
  }
  OffsetSurface bars(picture, kMargin, barsTop, width - 2 * kMargin, picture.Height() - barsTop);
  DrawBars(bars);
}

GraphScale PlanPicture::DrawProfile(DrawingSurface& picture, double bottom) const {
  const double width = picture.Width();
  OffsetSurface container(picture, 0, 0, width, bottom);
  OffsetSurface grid(picture, kPlotPlaceX, kPlotPlaceY, width - kPlotPlaceX - kMargin, bottom - kPlotPlaceY);
  return DrawPlot(container, grid, Fitted(plan_.rows, plan_.settings.StepSize));
}

std::string PlanPicture::Description() const {
  std::string text;
  for (int i = 1; i <= plan_.rows.GetLength(); ++i) {
    text += FiguresOf(plan_.rows.Row(static_cast<std::int16_t>(i)), ", ") + "\n";
  }
  return text;
}

std::string PlanPicture::FiguresOf(const Waypoint& row, std::string_view between) const {
  std::string text;
  const auto add = [&](int title, const std::string& figure) {
    if (!text.empty()) text += between;
    text += T(title) + ": " + figure;
  };
  add(Text::Depth, Fixed(row.Depth, 1) + LengthUnit());
  add(Text::RunTime, Fixed(row.RunTime, 1) + " min");
  add(Text::Gas, row.GasMixName);
  add(Text::PPO2, Fixed(row.PPO2, 2) + PressureUnit());
  add(Text::Ceiling, Fixed(row.Ceiling, 1) + LengthUnit());
  return text;
}

std::string PlanPicture::FiguresAt(const DiveMoment& moment) const {
  const ClassProfile& rows = plan_.rows;
  std::int16_t row = 1;
  while (row < rows.GetLength() && rows.GetRunTime(row) < moment.time) ++row;
  Waypoint at = rows.Row(row);
  at.Depth = moment.depth;
  at.RunTime = moment.time;
  at.Ceiling = moment.ceiling;
  if (row >= FirstOpenRow(rows, plan_.settings)) {
    const bool ofPlan = row <= LastUserRow(rows);
    at.PPO2 = PPO2AtDepth(ofPlan ? AdjustedDepth(at.Depth, plan_.settings) : at.Depth,
                          ofPlan ? plan_.settings.StartPressure : plan_.settings.EndPressure, at.GasMixO2 / 100,
                          plan_.settings.Metric);
  }
  const auto percent = [&](int title, Single fraction) { return T(title) + " " + Fixed(fraction * 100, 0) + " %"; };
  return Fixed(at.RunTime, 1) + " min, " + Fixed(at.Depth, 1) + LengthUnit() + ", " + at.GasMixName + "\n" +
         T(Text::PPO2) + " " + Fixed(at.PPO2, 2) + PressureUnit() + ", " + T(Text::Ceiling) + " " +
         Fixed(at.Ceiling, 1) + LengthUnit() + "\n" + percent(Text::GF99, moment.gradients.gf99) + ", " +
         percent(Text::SurfaceGF, moment.gradients.surfaceGF);
}

}  // namespace tav
