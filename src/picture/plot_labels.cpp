#include "picture/plot_labels.h"

#include <algorithm>
#include <cmath>

#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kGap = 80;  // between a point and its text

class Figures {
 public:
  Figures(DrawingSurface& surface, const ProfilePlot& plot, const ClassProfile& profile, const FigureWords& words,
          Colour colour)
      : surface_(surface), plot_(plot), profile_(profile), words_(words), labels_(surface, plot.Scale(), colour) {
    std::vector<SurfacePoint> line;
    for (int i = 0; i <= profile.GetLength(); ++i) {
      const ScreenPoint at = PlaceOf(static_cast<std::int16_t>(i));
      line.push_back({at.x, at.y});
    }
    labels_.Avoid(std::move(line));
    for (const GasLabel& gas : plot.GasLabels()) labels_.Occupy(gas.left, gas.top, gas.right, gas.bottom);
  }

  void WriteRunTime() {
    const ScreenPoint end = PlaceOf(profile_.GetLength());
    const std::string text = Number(profile_.GetRunTime(profile_.GetLength())) + " min";
    const double top = end.y + kGap / 2;
    if (labels_.Write(end.x + kGap, top, text, true)) return;
    // Below the end, as near to it as there is room.
    constexpr double kStep = 60;
    const double left = std::min(end.x, plot_.Scale().PlotRight) - surface_.TextWidth(text);
    for (double y = top; y < plot_.Scale().PlotBottom && !labels_.Write(left, y, text, true);) y += kStep;
  }

  void WriteDepths() {
    for (const GasLabel& gas : plot_.GasLabels()) {
      if (gas.changeRow == 0) continue;
      const std::string text = DepthOf(gas.changeRow);
      if (labels_.Write(gas.right + kGap, gas.top, text, false)) continue;
      labels_.Write(gas.left - kGap - surface_.TextWidth(text), gas.top, text, false);
    }
    for (const std::int16_t stop : Stops()) {
      const std::string text = DepthOf(stop);
      const ScreenPoint arrival = PlaceOf(static_cast<std::int16_t>(stop - 1));
      const double left = arrival.x - kGap - surface_.TextWidth(text);
      const double height = surface_.TextHeight();
      // Beside the stop, or above or below a level that leads to it.
      for (const double top : {arrival.y - height / 2, arrival.y - height - kGap / 2, arrival.y + kGap / 2}) {
        if (labels_.Write(left, top, text, true)) break;
      }
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
      const double middle = (PlaceOf(static_cast<std::int16_t>(stop - 1)).x + end.x) / 2;
      if (labels_.Write(end.x + kGap, end.y - surface_.TextHeight() / 3, text, true)) continue;
      const double left = middle - surface_.TextWidth(text) / 2;
      if (labels_.Write(left, end.y + kGap / 2, text, true)) continue;
      labels_.Write(left, end.y - surface_.TextHeight() - kGap / 2, text, true);
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

/// By Liang and Barsky: what of a line from a to b lies between the edges, as shares of its length.
bool PlotLabels::TouchesLine(const Box& box) const {
  for (std::size_t i = 1; i < line_.size(); ++i) {
    const SurfacePoint& a = line_[i - 1];
    const SurfacePoint& b = line_[i];
    double from = 0;
    double to = 1;
    const auto clip = [&](double start, double run, double low, double high) {
      if (run == 0) return start > low && start < high;
      from = std::max(from, std::min((low - start) / run, (high - start) / run));
      to = std::min(to, std::max((low - start) / run, (high - start) / run));
      return from < to;
    };
    if (clip(a.x, b.x - a.x, box.left, box.right) && clip(a.y, b.y - a.y, box.top, box.bottom)) return true;
  }
  return false;
}

bool PlotLabels::Write(double left, double top, const std::string& text, bool clear) {
  const Box box{left, top, left + surface_.TextWidth(text), top + surface_.TextHeight()};
  if (box.left < scale_.PlotLeft || box.right > scale_.PlotRight || box.bottom > scale_.PlotBottom) return false;
  constexpr double kApart = 30;
  const bool touches = std::any_of(taken_.begin(), taken_.end(), [&](const Box& other) {
    return box.left < other.right + kApart && other.left < box.right + kApart && box.top < other.bottom &&
           other.top < box.bottom;
  });
  if (touches || (clear && TouchesLine(box))) return false;
  taken_.push_back(box);
  surface_.Text(left, top, text, colour_);
  return true;
}

void WriteFigures(DrawingSurface& surface, const ProfilePlot& plot, const ClassProfile& profile,
                  const GraphExtras& extras, const FigureWords& words) {
  if (profile.GetLength() == 0) return;
  Figures figures(surface, plot, profile, words, extras.Colours().label);
  if (extras.depths) figures.WriteDepths();
  if (extras.stopMinutes) figures.WriteStopMinutes();
  if (extras.depths) figures.WriteRunTime();
}

}  // namespace tav
