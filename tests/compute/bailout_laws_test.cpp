#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

#include "compute/bailout_cuts.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"
#include "support/random_plan.h"

// What holds for the cuts of every plan, tried on many. A failing plan is printed as a file that can be opened.

namespace tav {
namespace {

using test::File;
using test::RandomPlan;

const RunProgress kGoOn = [](int, int) { return true; };

/// A plan as test::MakePlan makes them, in whole minutes, and its scenarios.
struct CutPlan {
  CutPlan(const RandomPlan& plan, double interval, bool withAscent) {
    window = &plans.New([&](DiveTemplate& t) { t = plan.settings; });
    window->UserActions = plan.actions;
    if (!withAscent) window->UserActions.DeleteLast();
    window->ReEvaluateUserEnteredWaypoints();
    EXPECT_EQ(window->EvaluationFault(), "");
    cuts = std::make_unique<BailoutCuts>(plans.Cuts(window->Tag(), interval));
  }
  /// Without the plans that take hours on a poor gas, which have many cuts and nothing new, and those that are over
  /// before the first cut.
  [[nodiscard]] bool IsUsable() const { return cuts->Fault().IsEmpty() && window->CurrentRunTime() < 300; }
  [[nodiscard]] TableDives Scenario(int index) const { return *cuts->Compute(index, kGoOn); }
  [[nodiscard]] TableDives AllGases() const { return Scenario(cuts->Scenarios() - 1); }

  test::Plans plans;
  frmWaypointEditor* window = nullptr;
  std::unique_ptr<BailoutCuts> cuts;
};

RandomPlan MakePlan(std::mt19937& random) {
  RandomPlan plan = test::MakePlan(random);
  for (std::int16_t i = 1; i < plan.actions.GetLength(); ++i) {
    plan.actions.setuser(i, plan.actions.getDepth(i), std::ceil(plan.actions.gettime(i)), plan.actions.getmixnumber(i));
  }
  return plan;
}

/// The ascent of a dive: what is behind the user's rows, in words that tell its stops, gases and times.
std::vector<std::string> Ascent(const ClassProfile& rows) {
  std::vector<std::string> ascent;
  for (auto i = static_cast<std::int16_t>(LastUserRow(rows) + 1); i <= rows.GetLength(); ++i) {
    const Waypoint& row = rows.Row(i);
    ascent.push_back(row.GasMixName + " " + FormatFixed(row.Depth, 2) + " " + FormatFixed(row.RunTime, 2) + " stop " +
                     FormatFixed(row.StopTime, 0));
  }
  return ascent;
}

double AscentMinutes(const ClassProfile& rows) {
  return rows.GetRunTime(rows.GetLength()) - rows.GetRunTime(LastUserRow(rows));
}

TEST(BailoutLaws, TheLastCutOfAPlanAtDepthIsItsOwnAscentOnOpenCircuit) {
  std::mt19937 random(11);
  for (int n = 0; n < 1000; ++n) {
    const RandomPlan plan = MakePlan(random);
    // The end of a plan is no multiple of 99, so the last cut is the plan as it stands.
    CutPlan cut(plan, 99, false);
    const TableDives all = cut.AllGases();
    const ClassProfile own = cut.plans.Ascent(*cut.window, true);
    ASSERT_EQ(test::RowsText(all.dives.back().profile), test::RowsText(own)) << File(plan);
  }
}

TEST(BailoutLaws, AllGasesAtTheEndOfTheBottomTimeGiveTheAscentOfThePlan) {
  std::mt19937 random(12);
  int tried = 0;
  for (int n = 0; n < 1000; ++n) {
    RandomPlan plan = MakePlan(random);
    plan.settings.OpenCircuit = true;
    const CutPlan legs(plan, 99, false);
    const double bottomTime = legs.window->CurrentRunTime();
    const int minutes = static_cast<int>(std::lround(bottomTime));
    // A leg shorter than its move makes the end of the bottom time a fraction.
    if (std::fabs(bottomTime - minutes) > 1e-4) continue;
    int interval = std::min(minutes, 99);
    while (minutes % interval != 0) --interval;
    if (interval < 5) continue;
    const CutPlan cut(plan, interval, true);
    if (!cut.IsUsable()) continue;
    ++tried;
    const TableDives all = cut.AllGases();
    ASSERT_EQ(Ascent(all.dives.at(static_cast<std::size_t>(minutes / interval)).profile),
              Ascent(cut.window->InputProfile))
        << File(plan);
  }
  EXPECT_GT(tried, 700);
}

TEST(BailoutLaws, AGasThatNoAscentTakesMayBeLost) {
  std::mt19937 random(13);
  int tried = 0;
  for (int n = 0; n < 300; ++n) {
    RandomPlan plan = MakePlan(random);
    // A hidden entry, one out of reach and one without a blend, among those of the template.
    auto& changes = plan.settings.ChangeGasMixes;
    const auto add = [&](const GasChange& change) {
      changes.insert(changes.begin() + static_cast<long>(random() % (changes.size() + 1)), change);
    };
    add({"EAN32", 32, 68, 0, 5.0 + static_cast<double>(random() % 30)});
    add({"Unknown", 80, 20, 0, 9});
    const CutPlan cut(plan, 7, random() % 2 == 0);
    if (!cut.IsUsable()) continue;
    const TableDives all = cut.AllGases();
    std::set<std::string> taken;
    for (const TableDive& dive : all.dives) {
      for (auto i = static_cast<std::int16_t>(LastUserRow(dive.profile) + 1); i <= dive.profile.GetLength(); ++i) {
        taken.insert(dive.profile.GetGasMixName(i));
      }
    }
    for (int i = 0; i + 1 < cut.cuts->Scenarios(); ++i) {
      if (taken.contains(changes[static_cast<std::size_t>(i)].Name)) continue;
      ++tried;
      const TableDives without = cut.Scenario(i);
      for (std::size_t dive = 0; dive < all.dives.size(); ++dive) {
        ASSERT_EQ(test::RowsText(without.dives[dive].profile), test::RowsText(all.dives[dive].profile)) << File(plan);
      }
    }
  }
  EXPECT_GT(tried, 250);
}

// The rounding of each stop to whole minutes may take up to a minute of it.
TEST(BailoutLaws, LosingAGasOnTheWayUpDoesNotShortenTheAscent) {
  std::mt19937 random(14);
  int tried = 0;
  for (int n = 0; n < 300; ++n) {
    RandomPlan plan = MakePlan(random);
    // The gases of the list are richer in oxygen than what was breathed before: losing the poorer would be a gain.
    for (std::int16_t i = 1; i < plan.actions.GetLength(); ++i) {
      constexpr std::array<std::int16_t, 5> kBottomGases{0, 1, 4, 5, 6};
      plan.actions.setuser(i, plan.actions.getDepth(i), plan.actions.gettime(i), kBottomGases[random() % 5]);
    }
    const CutPlan cut(plan, 10, random() % 2 == 0);
    if (!cut.IsUsable()) continue;
    const TableDives all = cut.AllGases();
    for (int i = 0; i + 1 < cut.cuts->Scenarios(); ++i) {
      const TableDives without = cut.Scenario(i);
      for (std::size_t dive = 1; dive < all.dives.size(); ++dive) {
        ++tried;
        int stops = 0;
        const ClassProfile& rows = all.dives[dive].profile;
        for (std::int16_t row = 1; row <= rows.GetLength(); ++row) stops += rows.GetStatus(row) == RowStatus::kStop;
        ASSERT_GE(AscentMinutes(without.dives[dive].profile) + 1 + stops, AscentMinutes(rows))
            << "cut at " << double{all.dives[dive].head} << " without " << *without.lost << "\n"
            << File(plan);
      }
    }
  }
  EXPECT_GT(tried, 2000);
}

}  // namespace
}  // namespace tav
