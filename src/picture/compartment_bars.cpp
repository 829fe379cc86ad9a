#include "picture/compartment_bars.h"

#include <algorithm>
#include <cmath>

#include "model/number_text.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kTop = 250;       // of the columns
constexpr double kBottom = 300;    // free below them, for their numbers
constexpr double kNumberUp = 500;  // of the percentages above the lower edge

}  // namespace

void ShowCompartmentLoad(DrawingSurface& surface, const Compartments& loads, const std::string& title, Colour around) {
  const double height = surface.Height();
  const double width = surface.Width();
  const double column = width / 20;
  const double bottom = height - kBottom;
  const double roomForNumber = width / kCompartments - 80;  // a narrow window shows the bars alone
  const double highest = std::clamp(std::ceil(*std::ranges::max_element(loads)), 1.0, 3.0);
  const double unit = (height - kTop - kBottom) / highest;
  surface.Clear(around);
  surface.Text(width / 2 - 510, 0, title, kBlack, true);
  for (std::size_t k = 0; k < kCompartments; ++k) {
    const double x = std::nearbyint(static_cast<double>(k) * width / kCompartments);
    surface.FilledBox(x, kTop, x + column, bottom, graph::kWhite);
    const double load = std::fmax(0, loads[k]);  // a loop can take a fast one a little below nothing
    double from = bottom;
    const auto band = [&](double share, Colour colour) {
      if (share <= 0) return;
      surface.FilledBox(x, from - unit * share, x + column, from, colour);
      from -= unit * share;
    };
    band(std::min(load, 1.0), graph::kGreen);
    band(std::min(load, 2.0) - 1, graph::kOrange);
    band(std::min(load, 3.0) - 2, kRed);
    surface.Box(x, kTop, x + column, bottom, kBlack);
    const auto number = [&](double left, double top, const std::string& text) {
      if (surface.TextWidth(text) <= roomForNumber) surface.Text(left, top, text, kBlack);
    };
    number(x + 80, height - kNumberUp, FormatFixed(Single(load * 100), 0));
    number((column + 2 * x - 300) / 2 + 100, height - 250, std::to_string(k + 1));
  }
  const double limit = bottom - unit;
  surface.Line(0, limit, width, limit, kRed, DrawingSurface::LineStyle::Dotted);
  const std::string percent = "100 %";
  surface.Text(width - surface.TextWidth(percent), limit - surface.TextHeight(), percent, kBlack);
}

}  // namespace tav
