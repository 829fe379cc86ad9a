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
constexpr Colour kStopOutline = RGB(150, 190, 255);
constexpr Colour kCeilingShade = RGB(84, 40, 8);
constexpr Colour kCeilingLine = RGB(240, 140, 60);
constexpr Colour kLabel = RGB(216, 216, 216);
constexpr Colour kOverlay = RGB(0, 224, 255);
/// Of plans that are kept for comparison, one after another: they can be read on black and on the grey around the plot.
inline constexpr std::array kKept{RGB(150, 190, 220), RGB(220, 180, 140), RGB(170, 210, 160), RGB(210, 170, 210)};
constexpr Colour kNotice = RGB(176, 0, 32);

/// The colour of a row by its `Status`.
Colour OfStatus(std::int16_t status);

}  // namespace tav::graph
