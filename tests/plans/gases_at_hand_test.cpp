#include "plans/gases_at_hand.h"

#include <gtest/gtest.h>

namespace tav {
namespace {

TEST(GasesAtHand, AreBreathedFromTheDeepestStopThatTheirOxygenAllows) {
  struct {
    double o2, limit, endPressure, step;
    bool metric;
    double depth;
  } const cases[] = {{50, 1.62, 1.01325, 3, true, 21},  // 22.3
                     {100, 1.6, 1.01325, 3, true, 6},   // 1.61 bar, within rounding
                     {100, 1.6, 1, 5, true, 5},         // 6.2
                     {50, 1.6, 0.8, 3, true, 24},       // 24.4, come up to 2,000 m
                     {50, 1.6, 1, 10, false, 70},       // 73.9 ft
                     {100, 0.9, 1, 3, true, 0},         // at no depth
                     {0, 1.6, 1, 3, true, 0},           // without oxygen
                     {32, 1.6, 1, 3, true, 39}};        // 40
  for (const auto& each : cases) {
    DiveTemplate t;
    t.Metric = each.metric;
    t.DecoPPO2 = each.limit;
    t.EndPressure = each.endPressure;
    t.StepSize = each.step;
    EXPECT_EQ(double{DeepestOnWayUp({"", each.o2, 100 - each.o2, 0}, t)}, each.depth) << each.o2 << " " << each.limit;
  }
}

TEST(GasesAtHand, EachChangeHasItsPlaceAlsoTheSecondOfAGas) {
  DiveTemplate t;
  t.Blends = {AirMix(), {"EAN50", 50, 50, 0}, {"Oxygen", 100, 0, 0}};
  t.ChangeGasMixes = {{"Oxygen", 0, 0, 0, 6}, {"EAN50", 0, 0, 0, 9}, {"EAN50", 0, 0, 0, 21}};
  ClassUseractions actions;
  actions.NewAction();
  actions.setuser(1, 30, 20, 0);
  const auto places = [&] {
    std::string text;
    for (const GasAtHand& gas : GasesAtHand(t, actions)) {
      text += gas.name + (gas.change ? std::to_string(*gas.change) : "") + ' ';
    }
    return text;
  };
  EXPECT_EQ(places(), "Air EAN502 EAN501 Oxygen0 ");
  BreatheOnWayUp({"Air", std::nullopt}, 66, t);
  BreatheOnWayUp({"EAN50", 1}, 4, t);
  EXPECT_EQ(places(), "Air3 EAN502 Oxygen1 EAN500 ");
  EXPECT_EQ(double{t.ChangeGasMixes[3].O2}, 21);
}

}  // namespace
}  // namespace tav
