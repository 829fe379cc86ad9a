#include "graph/leg_preview.h"

#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kRadius = 50;

/// An entry of a rate table on the plot.
struct DrawnRate {
  Single DrawRate;   ///< slope: x per y
  Single DrawDepth;  ///< y
};

std::vector<DrawnRate> Transformed(const std::vector<RateEntry>& rates, const GraphScale& scale) {
  std::vector<DrawnRate> drawn;
  drawn.reserve(rates.size());
  for (const RateEntry& entry : rates) drawn.push_back({scale.Drate(entry.Rate), scale.Ddepth(entry.Depth)});
  return drawn;
}

/// The pen at the end of what has been drawn.
class Pen {
 public:
  Pen(DrawingSurface& surface, ScreenPoint at) : surface_(surface), at_(at) {}

  void MoveTo(Single y, Single drawRate) {
    const double distance = y > at_.y ? y - at_.y : at_.y - y;
    LineTo({at_.x + distance * -drawRate, y});
  }
  void LevelTo(Single x) {
    if (x > at_.x) LineTo({x, at_.y});
  }
  void Mark(Colour colour) { surface_.Circle(at_.x, at_.y, kRadius, colour); }
  [[nodiscard]] Single Y() const { return at_.y; }

 private:
  void LineTo(ScreenPoint to) {
    // A line of no length would leave a dot.
    if (!(to == at_)) surface_.Line(at_.x, at_.y, to.x, to.y, graph::kWhite);
    at_ = to;
  }

  DrawingSurface& surface_;
  ScreenPoint at_;
};

void Ascend(Pen& pen, const std::vector<DrawnRate>& bands, ScreenPoint to) {
  for (auto band = bands.rbegin(); band != bands.rend(); ++band) {
    if (pen.Y() <= band->DrawDepth) continue;
    if (to.y > band->DrawDepth) {
      pen.MoveTo(to.y, band->DrawRate);
      pen.LevelTo(to.x);
      return;
    }
    pen.MoveTo(band->DrawDepth, band->DrawRate);
    pen.Mark(graph::kYellow);
  }
}

void Descend(Pen& pen, const std::vector<DrawnRate>& bands, ScreenPoint to) {
  std::size_t next = 0;
  for (; next < bands.size() && !(pen.Y() < bands[next].DrawDepth && to.y <= bands[next].DrawDepth); ++next) {
    if (next == 0 || pen.Y() >= bands[next].DrawDepth) continue;
    pen.MoveTo(bands[next].DrawDepth, bands[next - 1].DrawRate);
    pen.Mark(kRed);
  }
  if (next == 0) return;
  pen.MoveTo(to.y, bands[next - 1].DrawRate);
  pen.LevelTo(to.x);
}

}  // namespace

void DrawSegmentedLine(DrawingSurface& surface, const GraphScale& scale, const DiveTemplate& diveTemplate,
                       ScreenPoint from, ScreenPoint to) {
  Pen pen(surface, from);
  if (to.y == from.y) {
    pen.LevelTo(to.x);
  } else if (to.y < from.y) {
    Ascend(pen, Transformed(diveTemplate.AscendRates, scale), to);
  } else {
    Descend(pen, Transformed(diveTemplate.DescendRates, scale), to);
  }
}

}  // namespace tav
