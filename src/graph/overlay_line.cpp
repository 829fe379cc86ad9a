#include "graph/overlay_line.h"

#include <algorithm>
#include <cmath>

namespace tav {

std::vector<PlotPoint> LineOf(const ClassProfile& rows) {
  std::vector<PlotPoint> line;
  if (rows.GetLength() == 0) return line;
  line.reserve(static_cast<std::size_t>(rows.GetLength()) + 1);
  for (std::int16_t i = 0; i <= rows.GetLength(); ++i) line.push_back({rows.GetRunTime(i), rows.getDepth(i)});
  return line;
}

namespace {

struct Dashes {
  double dash, gap;  // drawing units
  Colour colour;
};

void DrawDashed(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line,
                const Dashes& dashes) {
  const auto [dash, gap, colour] = dashes;
  double at = 0;  // within dash and gap, so that the dashes go on around corners
  for (std::size_t i = 1; i < line.size(); ++i) {
    const ScreenPoint from = scale.WorldToScreen(line[i - 1].runTime, -line[i - 1].depth);
    const ScreenPoint to = scale.WorldToScreen(line[i].runTime, -line[i].depth);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    for (double done = 0; done < length;) {
      const bool pen = at < dash;
      const double piece = std::min((pen ? dash : dash + gap) - at, length - done);
      const auto point = [&](double along) {
        return ScreenPoint{from.x + (to.x - from.x) * along / length, from.y + (to.y - from.y) * along / length};
      };
      const ScreenPoint start = point(done);
      if (start.x > scale.PlotRight) return;  // a dive that never ends would have no end of dashes
      if (pen) {
        const ScreenPoint end = point(done + piece);
        grid.Line(start.x, start.y, end.x, end.y, colour);
      }
      done += piece;
      at += piece;
      if (at >= dash + gap - 1e-6) at = 0;
    }
  }
}

}  // namespace

void DrawOverlayLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line, Colour colour) {
  DrawDashed(grid, scale, line, {120, 75, colour});
}

void DrawDottedLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line, Colour colour) {
  DrawDashed(grid, scale, line, {30, 45, colour});
}

void DrawKeptLines(DrawingSurface& grid, const GraphScale& scale, const std::vector<KeptLine>& kept,
                   const graph::Scheme& colours) {
  double x = scale.PlotLeft + 100;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    const Colour colour = colours.kept[i % colours.kept.size()];
    DrawDashed(grid, scale, kept[i].line, {60, 60, colour});
    grid.Text(x, scale.PlotBottom, kept[i].name, colour);
    x += grid.TextWidth(kept[i].name) + 300;
  }
}

}  // namespace tav
