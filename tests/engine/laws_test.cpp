#include <gtest/gtest.h>
#include <random>

#include "support/random_plan.h"

// What holds for every plan, tried on thousands of them. A failing plan is printed as a file that can be opened.

namespace tav {
namespace {

using test::Computed;
using test::File;
using test::MakePlan;
using test::RandomPlan;

/// Minutes from leaving the bottom to the surface, and the stops among them.
struct Ascent {
  double minutes = 0;
  int stops = 0;
};

Ascent AscentOf(const RandomPlan& plan, const ModelChoice& model = {}) {
  const ClassProfile rows = Computed(plan, model).rows;
  const std::int16_t bottom = LastUserRow(rows);
  Ascent ascent{rows.GetRunTime(rows.GetLength()) - rows.GetRunTime(bottom), 0};
  for (std::int16_t i = bottom; i <= rows.GetLength(); ++i) ascent.stops += rows.GetStatus(i) == RowStatus::kStop;
  return ascent;
}

Waypoint EndOf(const RandomPlan& plan) {
  const ClassProfile rows = Computed(plan).rows;
  return rows.Row(rows.GetLength());
}

TEST(Laws, EveryAscentGoesUpInTimeOrderBelowItsCeilingToTheSurface) {
  std::mt19937 random(1);
  for (int n = 0; n < 2000; ++n) {
    const RandomPlan plan = MakePlan(random);
    const ClassProfile rows = Computed(plan).rows;
    ASSERT_EQ(double{rows.getDepth(rows.GetLength())}, 0) << File(plan);
    for (std::int16_t i = static_cast<std::int16_t>(LastUserRow(rows) + 1); i <= rows.GetLength(); ++i) {
      const std::int16_t before = static_cast<std::int16_t>(i - 1);
      ASSERT_GE(rows.GetRunTime(i), rows.GetRunTime(before)) << File(plan);
      ASSERT_LE(rows.getDepth(i), rows.getDepth(before)) << File(plan);
      ASSERT_GE(rows.getTotalCNS(i), rows.getTotalCNS(before)) << File(plan);
      // A stop that did not hit its limit has cleared: its ceiling lies at or above the depth that the diver moves to.
      if (rows.GetStatus(i) != RowStatus::kStop) continue;
      double next = rows.getDepth(i);
      for (auto j = static_cast<std::int16_t>(i + 1); j <= rows.GetLength() && rows.GetRate(j) != 0; ++j) {
        next = rows.getDepth(j);
      }
      ASSERT_TRUE(rows.GetCeiling(i) <= next || rows.GetSegmentTime(i) >= 5999) << File(plan);
    }
  }
}

// The rounding of each stop to whole minutes may take up to a minute of it.
TEST(Laws, ALongerBottomTimeDoesNotShortenTheAscent) {
  std::mt19937 random(2);
  for (int n = 0; n < 2000; ++n) {
    RandomPlan plan = MakePlan(random);
    // A square dive: on a later, shallower leg a longer stay can be decompression itself.
    while (plan.actions.GetLength() > 1) plan.actions.DeleteLast();
    plan.actions.NewAction();
    plan.actions.setdeco(2);
    const Ascent shorter = AscentOf(plan);
    plan.actions.setuser(1, plan.actions.getDepth(1), plan.actions.gettime(1) + 5, plan.actions.getmixnumber(1));
    const Ascent longer = AscentOf(plan);
    ASSERT_GE(longer.minutes + 1 + longer.stops, shorter.minutes) << File(plan);
  }
}

TEST(Laws, LowerGradientFactorsDoNotShortenTheAscent) {
  std::mt19937 random(3);
  for (int n = 0; n < 2000; ++n) {
    RandomPlan plan = MakePlan(random);
    plan.settings.UseGF = true;
    const Ascent liberal = AscentOf(plan);
    plan.settings.GFHigh = plan.settings.GFHigh - 0.1;
    plan.settings.GFLow = plan.settings.GFLow * 0.8;
    const Ascent strict = AscentOf(plan);
    ASSERT_GE(strict.minutes + 1 + strict.stops, liberal.minutes) << File(plan);
  }
}

// The C table lets compartments 5 to 15 hold less nitrogen.
TEST(Laws, TheTableCDoesNotShortenTheAscentAndChangesNothingOfVPM) {
  std::mt19937 random(5);
  double longer = 0;
  for (int n = 0; n < 500; ++n) {
    const RandomPlan plan = MakePlan(random);
    for (const bool hybrid : {false, true}) {
      const Ascent b = AscentOf(plan, {false, hybrid, false});
      const Ascent c = AscentOf(plan, {false, hybrid, true});
      ASSERT_GE(c.minutes + 1 + c.stops, b.minutes) << File(plan);
      longer += c.minutes - b.minutes;
    }
    ASSERT_EQ(AscentOf(plan, {true, false, true}).minutes, AscentOf(plan, {true, false, false}).minutes) << File(plan);
  }
  EXPECT_GT(longer, 500);
}

TEST(Laws, ALevelLegMayBeCutInTwo) {
  std::mt19937 random(4);
  for (int n = 0; n < 1000; ++n) {
    const RandomPlan plan = MakePlan(random);
    RandomPlan cut = plan;
    cut.actions.clear();
    RandomPlan whole = cut;
    // The legs without the ascent: what counts is the state at the end.
    for (std::int16_t i = 1; i < plan.actions.GetLength(); ++i) {
      const Single depth = plan.actions.getDepth(i);
      const double time = plan.actions.gettime(i) + 10;
      const std::int16_t mix = plan.actions.getmixnumber(i);
      for (const double part : {time - 4, 4.0}) {
        cut.actions.NewAction();
        cut.actions.setuser(cut.actions.GetLength(), depth, part, mix);
      }
      whole.actions.NewAction();
      whole.actions.setuser(whole.actions.GetLength(), depth, time, mix);
    }
    const Waypoint a = EndOf(whole);
    const Waypoint b = EndOf(cut);
    ASSERT_NEAR(a.RunTime, b.RunTime, 1e-3) << File(whole);
    for (std::size_t i = 0; i < kCompartments; ++i) {
      ASSERT_NEAR(a.PercentCompartments[i], b.PercentCompartments[i], 2e-5) << File(whole);
    }
    ASSERT_NEAR(a.TotalCNS, b.TotalCNS, 1e-4) << File(whole);
  }
}

}  // namespace
}  // namespace tav
