#pragma once

#include "mixer/gauge_list.h"

namespace tav {

/// A fill with its list; where it is not possible as asked for, with the list from the pressure to drain to.
struct FillAdvice {
  FillAdvice(const FillRequest& request, double mark)
      : asked(request), from(request), list(GaugeListOf(request, mark)) {
    if (list.possible || !list.drainTo) return;
    undrained = list;
    from.currentFill = *list.drainTo;
    list = GaugeListOf(from, mark);
  }

  [[nodiscard]] bool Drains() const { return undrained.has_value(); }
  /// The list of the fill as it was asked for.
  [[nodiscard]] const GaugeList& AsAsked() const { return undrained ? *undrained : list; }

  FillRequest asked;
  FillRequest from;                    ///< where `list` starts
  GaugeList list;                      ///< what to fill by
  std::optional<GaugeList> undrained;  ///< why it starts with draining
};

}  // namespace tav
