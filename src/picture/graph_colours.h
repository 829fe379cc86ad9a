#pragma once

#include <array>
#include <cstdint>

#include "platform/colour.h"

/// The colours of the profile graph.
namespace tav::graph {

constexpr Colour kBackground = RGB(128, 120, 128);
constexpr Colour kWhite = RGB(255, 255, 255);
constexpr Colour kGrey = RGB(128, 128, 128);
constexpr Colour kYellow = RGB(255, 255, 0);
constexpr Colour kGreen = RGB(0, 255, 0);
constexpr Colour kBlue = RGB(0, 0, 255);
constexpr Colour kOrange = RGB(255, 128, 64);
constexpr Colour kNotice = RGB(176, 0, 32);

/// Those of a plot and of what is around it: a plan on black, or on white for daylight and paper.
struct Scheme {
  Colour around = kBackground;
  Colour ground = kBlack;
  Colour line = kWhite;  ///< of the plan and the axes
  Colour raster = kGrey;
  Colour leader = kBlack;  ///< from a gas change to its label
  Colour gas = kYellow;
  Colour label = RGB(216, 216, 216);
  Colour ceilingShade = RGB(84, 40, 8);
  Colour ceilingLine = RGB(240, 140, 60);
  Colour stopOutline = RGB(150, 190, 255);
  Colour overlay = RGB(0, 224, 255);
  Colour selected = kYellow;
  Colour wayOut = RGB(150, 190, 255);
  /// Of plans that are kept for comparison, one after another.
  std::array<Colour, 4> kept{RGB(150, 190, 220), RGB(220, 180, 140), RGB(170, 210, 160), RGB(210, 170, 210)};
  /// Of rows by their `Status`.
  Colour leg = kWhite, descentBand = kRed, ascentBand = kYellow, stop = kBlue, other = kGreen;

  [[nodiscard]] Colour OfStatus(std::int16_t status) const;
};

inline constexpr Scheme kDark;
inline constexpr Scheme kLight{.around = RGB(240, 240, 240),
                               .ground = kWhite,
                               .line = RGB(16, 24, 40),
                               .raster = RGB(200, 200, 200),
                               .leader = RGB(128, 128, 128),
                               .gas = RGB(140, 70, 0),
                               .label = RGB(64, 64, 64),
                               .ceilingShade = RGB(250, 226, 206),
                               .ceilingLine = RGB(190, 90, 20),
                               .stopOutline = RGB(0, 0, 128),
                               .overlay = RGB(0, 110, 160),
                               .selected = RGB(0, 80, 200),
                               .wayOut = RGB(0, 80, 200),
                               .kept = {RGB(60, 110, 150), RGB(150, 100, 50), RGB(70, 120, 60), RGB(140, 80, 140)},
                               .leg = RGB(16, 24, 40),
                               .descentBand = RGB(208, 0, 0),
                               .ascentBand = RGB(190, 140, 0),
                               .other = RGB(0, 140, 0)};
/// The light one without grey around the plot, and with lines that a printer without colours keeps apart.
inline constexpr Scheme kPaper = [] {
  Scheme paper = kLight;
  paper.around = kWhite;
  paper.gas = paper.label = kBlack;
  paper.ceilingShade = RGB(226, 226, 226);
  paper.ceilingLine = RGB(96, 96, 96);
  return paper;
}();
constexpr const Scheme& SchemeOf(bool light) { return light ? kLight : kDark; }

}  // namespace tav::graph
