#include <cmath>
#include <gtest/gtest.h>
#include <vector>

#include "picture/graph_colours.h"

namespace tav {
namespace {

/// How light a printer without colours makes a colour, 0 to 255.
double Grey(Colour colour) {
  return 0.299 * (colour & 255) + 0.587 * (colour >> 8 & 255) + 0.114 * (colour >> 16 & 255);
}

/// A graph on paper in grey: nothing is as light as what it is drawn on.
TEST(PaperColours, StayApartWithoutColours) {
  constexpr const graph::Scheme& kOn = graph::kPaper;
  struct Drawn {
    const char* what;
    Colour ink;
    Colour ground;
    double apart;
  };
  std::vector<Drawn> drawn{{"gas", kOn.gas, kOn.ground, 150},
                           {"label", kOn.label, kOn.around, 150},
                           {"line", kOn.line, kOn.ground, 150},
                           {"axis", kOn.line, kOn.around, 150},
                           {"leader", kOn.leader, kOn.ground, 100},
                           {"raster", kOn.raster, kOn.ground, 40},
                           {"shade", kOn.ceilingShade, kOn.ground, 20},
                           {"ceiling", kOn.ceilingLine, kOn.ceilingShade, 100},
                           {"ceiling beside the plan", kOn.ceilingLine, kOn.line, 50},
                           {"stop", kOn.stopOutline, kOn.ground, 150},
                           {"overlay", kOn.overlay, kOn.ground, 100},
                           {"selected", kOn.selected, kOn.ground, 100},
                           {"way out", kOn.wayOut, kOn.ground, 100}};
  for (const Colour kept : kOn.kept) drawn.push_back({"kept", kept, kOn.ground, 100});
  for (std::int16_t status = -1; status <= 4; ++status) {
    drawn.push_back({"row", kOn.OfStatus(status), kOn.ground, 100});
  }
  for (const Drawn& each : drawn) {
    EXPECT_GE(std::fabs(Grey(each.ink) - Grey(each.ground)), each.apart) << each.what;
  }
}

}  // namespace
}  // namespace tav
