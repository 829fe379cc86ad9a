#include <cmath>
#include <gtest/gtest.h>

#include "reports/margin_map.h"

namespace tav {
namespace {

/// How light a printer without colours makes a colour, 0 to 255.
double Grey(Colour colour) {
  return 0.299 * (colour & 255) + 0.587 * (colour >> 8 & 255) + 0.114 * (colour >> 16 & 255);
}

TEST(MarginColours, LeaveEachLetterReadableInGrey) {
  using Kind = BrokenLimit::Kind;
  for (int i = static_cast<int>(Kind::None); i <= static_cast<int>(Kind::Stops); ++i) {
    const auto kind = static_cast<Kind>(i);
    EXPECT_GE(std::fabs(Grey(MarginInk(kind)) - Grey(MarginColour(kind))), 120) << i;
  }
}

}  // namespace
}  // namespace tav
