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

GraphScale PlanPicture::DrawPlot(DrawingSurface& container, DrawingSurface& grid, ProfilePlot::Reach reach,
                                 double timeZoom, const GraphExtras& extras) const {
  static const std::vector<DiveMoment> none;
  ProfilePlot plot(container, grid);
  plot.Redraw(plan_.rows, reach, timeZoom, extras.ceiling ? plan_.moments : none);
  WriteFigures(grid, plot, plan_.rows, extras, {LengthUnit(), plan_.separators});
  return plot.Scale();
}

void PlanPicture::DrawTissues(DrawingSurface& tissues, const GraphScale& scale, double scroll) const {
  DrawTissueMap(tissues, plan_.moments, scale, {kPlotPlaceX, scroll, T(Text::TissuesTitle), T(Text::TissuesOver)});
}

void PlanPicture::DrawBars(DrawingSurface& bars) const {
  const std::int16_t last = plan_.rows.GetLength();
  ShowCompartmentLoad(bars, last == 0 ? plan_.startLoads : plan_.rows.Row(last).PercentCompartments,
                      T(Text::GraphCompartments));
}

PlanPicture::ColouredText PlanPicture::LastCeiling() const {
  const std::int16_t last = plan_.rows.GetLength();
  if (last == 0) return {"0", kBlack};
  const Single ceiling = plan_.rows.GetCeiling(last);
  return {Fixed(ceiling, 1) + LengthUnit(), std::nearbyint(ceiling) == 0 ? kBlack : graph::kYellow};
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

void PlanPicture::Draw(DrawingSurface& picture, const GraphExtras& extras) const {
  const double width = picture.Width();
  const double barsTop = 0.75 * picture.Height();
  double plotBottom = extras.tissues ? 0.5 * picture.Height() : barsTop;
  picture.Clear(graph::kBackground);
  const double panesTop = plotBottom;
  plotBottom -= DrawNotice(picture, plotBottom);
  OffsetSurface container(picture, 0, 0, width, plotBottom);
  OffsetSurface grid(picture, kPlotPlaceX, kPlotPlaceY, width - kPlotPlaceX - kMargin, plotBottom - kPlotPlaceY);
  const GraphScale scale = DrawPlot(container, grid, ProfilePlot::kJustThePlan, 1, extras);
  if (extras.tissues) {
    OffsetSurface tissues(picture, 0, panesTop, width - kMargin, barsTop - panesTop);
    DrawTissues(tissues, scale, 0);
  }
  OffsetSurface bars(picture, kMargin, barsTop, width - 2 * kMargin, picture.Height() - barsTop);
  DrawBars(bars);

  const std::string ceilingTitle = T(Text::GraphCeiling);
  const ColouredText ceiling = LastCeiling();
  picture.Text(kMargin, kMargin, ceilingTitle, kBlack);
  picture.Text(kMargin + picture.TextWidth(ceilingTitle + " "), kMargin, ceiling.text, ceiling.colour, true);
  picture.Text(width / 2, kMargin, T(Text::GraphRunTime), kBlack);
  const std::vector<std::string> letters = DepthLetters();
  double y = (plotBottom - picture.TextHeight() * static_cast<double>(letters.size())) / 2;
  for (const std::string& letter : letters) {
    picture.Text(1.5 * kMargin - picture.TextWidth(letter) / 2, y, letter, kBlack);
    y += picture.TextHeight();
  }
}

std::string PlanPicture::Description() const {
  std::string text;
  for (int i = 1; i <= plan_.rows.GetLength(); ++i) {
    text += FiguresOf(plan_.rows.Row(static_cast<std::int16_t>(i)), ", ") + "\n";
  }
  return text;
}

std::string PlanPicture::FiguresOf(const Waypoint& row, std::string_view between) const {
  const std::string pressure = plan_.settings.Metric ? " bar" : " ata";
  std::string text;
  const auto add = [&](int title, const std::string& figure) {
    if (!text.empty()) text += between;
    text += T(title) + ": " + figure;
  };
  add(Text::Depth, Fixed(row.Depth, 1) + LengthUnit());
  add(Text::RunTime, Fixed(row.RunTime, 1) + " min");
  add(Text::Gas, row.GasMixName);
  add(Text::PPO2, Fixed(row.PPO2, 2) + pressure);
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
  const auto percent = [&](int title, Single fraction) {
    return "\n" + T(title) + ": " + Fixed(fraction * 100, 0) + " %";
  };
  return FiguresOf(at, "\n") + percent(Text::GF99, moment.gradients.gf99) +
         percent(Text::SurfaceGF, moment.gradients.surfaceGF);
}

std::vector<std::string> PlanPicture::DepthLetters() const {
  std::vector<std::string> letters;
  for (const char byte : T(Text::GraphDepth)) {
    // The bytes of one UTF-8 letter stay together.
    const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    if (letters.empty() || !continues) letters.emplace_back();
    letters.back() += byte;
  }
  letters.push_back(T(plan_.settings.Metric ? Text::InMetres : Text::InFeet));
  return letters;
}

}  // namespace tav
