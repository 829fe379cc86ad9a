#include "advice/stop_reason.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "engine/vpm.h"
#include "plans/profile_commands.h"
#include "start/language_table.h"
#include "support/plan_fixture.h"
#include "support/random_plan.h"
#include "support/source_folder.h"

namespace tav {
namespace {

const std::filesystem::path kRoot = SourceFolder();

/// The last stop of the 18 m dive on air, before the surface, with GF 0.85. Compartment 4 leads: a = 7.562, b = 0.7825,
/// so that 7.562 x 0.85 + 10.1325 x (0.85 / 0.7825 - 0.85 + 1) = 18.954 m are tolerated. The rows tell its load as a
/// share of the M-value at the surface, 10.1325 / 0.7825 + 7.562 = 20.511 m.
TEST(StopReason, TellsLoadAndToleranceOfTheLeadingCompartment) {
  test::Plans plans;
  const auto documents = OpenProfile(plans.forms, kRoot / "dives/air-no-stop.tav");
  const CheckedDive dive(plans.Planned(documents[0]));
  const auto reasons = StopReasons(dive);
  ASSERT_EQ(reasons.size(), 2U);
  const StopReason& last = reasons.back();
  EXPECT_EQ(dive.rows.getDepth(last.row), 3);
  EXPECT_EQ(last.compartment, 4);
  EXPECT_EQ(last.halfTimeN2, 18.5);
  EXPECT_EQ(last.nextStop, 0);
  EXPECT_NEAR(last.tolerated, 1.8954, 1e-4);
  EXPECT_NEAR(last.load, dive.rows.GetPercentCompartments(last.row)[3] * 2.0511, 1e-4);
  const LanguageTable english = DefaultTexts(kRoot);
  EXPECT_EQ(TextOf(last, AdviceWords(english, {",", "."}, true)),
            "Compartment 4 (N2 18,5, He 7 min) holds " + FormatFixed(last.load, 3).replace(1, 1, ",") +
                ", and 1,895 bar is allowed at the surface (ZH-L16B, GF 85 %)");
}

/// At its end the leading compartment of a stop may go up; a minute before, some compartment could not.
TEST(StopReason, HoldsForEveryStopOfRandomPlans) {
  std::mt19937 random(11);
  int stops = 0;
  int bubbles = 0;
  for (int n = 0; n < 300; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    if (!plan.settings.OpenCircuit) continue;
    test::Plans plans;
    plans.model = {n % 3 == 1, n % 3 == 2};
    frmWaypointEditor& window = plans.New([&](DiveTemplate& t) { t = plan.settings; });
    window.UserActions = plan.actions;
    window.ReEvaluateUserEnteredWaypoints();
    const CheckedDive dive(window.Planned());
    const double surface = plan.settings.EndPressure * 10;
    Single deepest = 0;
    for (std::int16_t i = 0; i <= dive.lastUserRow; ++i) deepest = std::max(deepest, dive.rows.getDepth(i));
    for (const StopReason& reason : StopReasons(dive)) {
      const Waypoint& row = dive.rows.Row(reason.row);
      if (!dive.decompresses) continue;
      ++stops;
      bubbles += reason.bubbles ? 1 : 0;
      ASSERT_LE(reason.load, reason.tolerated + 1e-5) << test::File(plan);
      if (row.SegmentTime < 1.5) continue;
      const Waypoint& before = dive.Before(reason.row);
      Loads loads{before.HeCompartments, before.N2Compartments};
      DecayFactors decay;
      const double dry = surface + row.Depth - 0.527;
      const CompartmentKernels& kernels = PortableKernels();
      kernels.LoadConstant(loads, {dry * row.GasMixHe / 100, dry * row.GasMixN2 / 100}, decay.For(row.SegmentTime - 1));
      const double ofBubbles =
          kernels.LargestLoad(loads) - VPMGradient(deepest, plan.settings.EndPressure, true) - surface;
      const double ofMValues = kernels.DeepestCeiling(loads, MValuesOf(true, false), row.GF, surface);
      // In the hybrid mode the other model may have decided until then.
      const double ceiling = plans.model.HybridMode ? std::max(ofBubbles, ofMValues)
                             : plans.model.VPMMode  ? ofBubbles
                                                    : ofMValues;
      // The run may have gone on by a whole minute from a time within a thousandth of one.
      const double noise = 0.01;
      ASSERT_GT(ceiling, reason.nextStop - noise) << row.Depth << "\n" << test::File(plan);
    }
  }
  EXPECT_GT(stops, 1000);
  EXPECT_GT(bubbles, 100);
}

}  // namespace
}  // namespace tav
