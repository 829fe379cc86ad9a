#pragma once

#include <cstdint>

namespace tav {

/// red + 256 * green + 65536 * blue
using Colour = std::int32_t;
constexpr Colour RGB(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }
constexpr Colour kBlack = RGB(0, 0, 0);
constexpr Colour kRed = RGB(255, 0, 0);

}  // namespace tav
