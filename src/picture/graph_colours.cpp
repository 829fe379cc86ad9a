#include "picture/graph_colours.h"

#include "model/profile.h"

namespace tav::graph {

Colour Scheme::OfStatus(std::int16_t status) const {
  switch (status) {
    case RowStatus::kLeg:
      return leg;
    case RowStatus::kDescentBand:
      return descentBand;
    case RowStatus::kAscentBand:
      return ascentBand;
    case RowStatus::kStop:
      return stop;
    default:
      return other;
  }
}

}  // namespace tav::graph
