#include "picture/plot_labels.h"

#include <algorithm>
#include <cmath>

#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kGap = 80;  // between a point and its text

class Figures {
 public:
  Figures(DrawingSurface& surface, const ProfilePlot& plot, const ClassProfile& profile, const FigureWords& words)
      : surface_(surface), plot_(plot), profile_(profile), words_(words), labels_(surface, plot.Scale()) {
    for (const GasLabel& gas : plot.GasLabels()) labels_.Occupy(gas.left, gas.top, gas.right, gas.bottom);
  }

  void WriteRunTime() {
    const ScreenPoint end = PlaceOf(profile_.GetLength());
    const std::string text = Number(profile_.GetRunTime(profile_.GetLength())) + " min";
    const double top = end.y + kGap / 2;
    if (!labels_.Write(end.x + kGap, top, text)) labels_.Write(end.x - kGap - surface_.TextWidth(text), top, text);
  }

  void WriteDepths() {
    for (const GasLabel& gas : plot_.GasLabels()) {
      if (gas.changeRow == 0) continue;
      const std::string text = DepthOf(gas.changeRow);
      if (labels_.Write(gas.right + kGap, gas.top, text)) continue;
      labels_.Write(gas.left - kGap - surface_.TextWidth(text), gas.top, text);
    }
    for (const std::int16_t stop : Stops()) {
      const std::string text = DepthOf(stop);
      const ScreenPoint arrival = PlaceOf(static_cast<std::int16_t>(stop - 1));
      labels_.Write(arrival.x - kGap - surface_.TextWidth(text), arrival.y - surface_.TextHeight() / 2, text);
      break;
    }
  }

  void WriteStopMinutes() {
    std::vector<std::int16_t> stops = Stops();
    std::stable_sort(stops.begin(), stops.end(), [this](std::int16_t a, std::int16_t b) {
      return profile_.getStopTime(a) > profile_.getStopTime(b);
    });
    for (const std::int16_t stop : stops) {
      const std::string text = Number(profile_.getStopTime(stop)) + "'";
      const ScreenPoint end = PlaceOf(stop);
      if (labels_.Write(end.x + kGap, end.y - surface_.TextHeight() / 3, text)) continue;
      const double middle = (PlaceOf(static_cast<std::int16_t>(stop - 1)).x + end.x) / 2;
      labels_.Write(middle - surface_.TextWidth(text) / 2, end.y + kGap / 2, text);
    }
  }

 private:
  [[nodiscard]] std::vector<std::int16_t> Stops() const {
    std::vector<std::int16_t> stops;
    for (int i = LastUserRow(profile_) + 1; i <= profile_.GetLength(); ++i) {
      const auto row = static_cast<std::int16_t>(i);
      if (profile_.GetStatus(row) == RowStatus::kStop) stops.push_back(row);
    }
    return stops;
  }
  [[nodiscard]] ScreenPoint PlaceOf(std::int16_t row) const {
    return plot_.Scale().WorldToScreen(profile_.GetRunTime(row), -profile_.getDepth(row));
  }
  [[nodiscard]] std::string DepthOf(std::int16_t row) const {
    return Number(profile_.getDepth(row)) + words_.lengthUnit;
  }
  [[nodiscard]] std::string Number(Single value) const { return words_.numbers.Short(value); }

  DrawingSurface& surface_;
  const ProfilePlot& plot_;
  const ClassProfile& profile_;
  const FigureWords& words_;
  PlotLabels labels_;
};

}  // namespace

bool PlotLabels::Write(double left, double top, const std::string& text) {
  const Box box{left, top, left + surface_.TextWidth(text), top + surface_.TextHeight()};
  if (box.left < scale_.PlotLeft || box.right > scale_.PlotRight || box.bottom > scale_.PlotBottom) return false;
  constexpr double kApart = 30;
  const bool touches = std::any_of(taken_.begin(), taken_.end(), [&](const Box& other) {
    return box.left < other.right + kApart && other.left < box.right + kApart && box.top < other.bottom &&
           other.top < box.bottom;
  });
  if (touches) return false;
  taken_.push_back(box);
  surface_.Text(left, top, text, graph::kLabel);
  return true;
}

void WriteFigures(DrawingSurface& surface, const ProfilePlot& plot, const ClassProfile& profile,
                  const GraphExtras& extras, const FigureWords& words) {
  if (profile.GetLength() == 0) return;
  Figures figures(surface, plot, profile, words);
  if (extras.depths) figures.WriteRunTime();
  if (extras.depths) figures.WriteDepths();
  if (extras.stopMinutes) figures.WriteStopMinutes();
}

}  // namespace tav
