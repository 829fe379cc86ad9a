#pragma once

#include "model/single.h"

namespace tav::plan_check {

/// When, and how deep, something is passed within a row.
struct Passing {
  Single time;  ///< run time
  Single depth;
};

/// Where the amount that a row adds comes to `wanted`. `partOf(share)` is what the first part of its time adds, and
/// grows with it; depth changes evenly.
template <class Row, class PartOf>
Passing PassingIn(const Row& before, const Row& row, double wanted, PartOf partOf) {
  double least = 0;
  double most = 1;
  constexpr int kHalvings = 30;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (least + most) / 2;
    (partOf(middle) < wanted ? least : most) = middle;
  }
  return {before.RunTime + (row.RunTime - before.RunTime) * most, before.Depth + (row.Depth - before.Depth) * most};
}

}  // namespace tav::plan_check
