#include "picture/graph_colours.h"

#include "model/profile.h"

namespace tav::graph {

Colour OfStatus(std::int16_t status) {
  switch (status) {
    case RowStatus::kLeg:
      return kWhite;
    case RowStatus::kDescentBand:
      return kRed;
    case RowStatus::kAscentBand:
      return kYellow;
    case RowStatus::kStop:
      return kBlue;
    default:
      return kGreen;
  }
}

}  // namespace tav::graph
