#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persist/text_file.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using testing::ElementsAre;

ProfileText Read(const std::string& text) {
  FormatFaults faults("x.tav", FormatFaults::Mode::StopAtFirstError);
  return ReadProfileText(text, faults);
}

/// The example on a rebreather, whose file says nothing of loop and surface interval.
DiveRecord Rebreather() { return ReadProfileFile(SourceFolder() / "dives/rebreather.tav").dives.front(); }

std::string Record(const DiveRecord& dive, double surfaceInterval) {
  return WriteDiveRecord(dive.Template, surfaceInterval, dive.UserActions);
}

double RunTime(const frmWaypointEditor& dive) { return dive.InputProfile.GetRunTime(dive.InputProfile.GetLength()); }

// On the loop the interval is as good as two hours of oxygen: the second dive then gets out sooner than the first.
TEST(RebreatherSeries, SpendsItsIntervalOnAirWhereTheFileSaysSo) {
  const auto runTimes = [](const std::string& text) {
    test::Plans plans;
    std::vector<double> times;
    for (const std::int16_t number : OpenProfile(plans.forms, "x.tav", Read(text))) {
      times.push_back(std::round(RunTime(plans.forms(number))));
      EXPECT_EQ(ProfileFileText(plans.forms, number), text);
    }
    return times;
  };
  DiveRecord dive = Rebreather();
  const std::string first = Record(dive, 0);
  EXPECT_THAT(runTimes(first + Record(dive, 120)), ElementsAre(116, 99));
  dive.Template.IntervalOnAir = true;
  EXPECT_THAT(runTimes(first + Record(dive, 120)), ElementsAre(116, 140));
  EXPECT_THAT(runTimes(Record(dive, 0)), ElementsAre(116)) << "a first dive has no interval";
}

TEST(RebreatherSeries, IsTheSameAsOnOpenCircuitDuringAnIntervalOnAir) {
  test::Plans plans;
  frmWaypointEditor& first = plans.New();
  first.AddUserWaypoint(50, 30, 0);
  first.StartDeco();
  const std::int16_t second = plans.forms.AddRepetitiveDive(first.Tag(), 75);
  const auto start = [&](bool openCircuit, bool onAir) {
    DiveTemplate& t = plans.documents(second).Template;
    t.OpenCircuit = openCircuit;
    t.IntervalOnAir = onAir;
    plans.forms(second).ReEvaluateUserEnteredWaypoints();
    plans.forms(second).AddUserWaypoint(10, 5, 0);
    const Waypoint row = plans.forms(second).LoadedProfile().Row(0);
    plans.forms(second).mnuclearallwaypoints();
    return std::pair(row.N2Compartments, row.HeCompartments);
  };
  const auto openCircuit = start(true, false);
  EXPECT_EQ(start(false, true), openCircuit);
  EXPECT_NE(start(false, false), openCircuit);
  // The interval adds no dose of its own, on the loop neither.
  const std::int16_t third = second;
  plans.forms(third).AddUserWaypoint(10, 5, 0);
  const Waypoint& row = plans.forms(third).InputProfile.Row(1);
  EXPECT_EQ(row.TotalCNS, row.CNS);
  EXPECT_EQ(row.TotalOTU, row.OTU);
}

TEST(Loop, StaysOnItsDiluentUntilOpenCircuit) {
  const struct {
    bool keepsDiluent;
    bool stopsOnOpenCircuit;
    bool bailOut;
    std::vector<std::string> breathed;  // from the end of the plan on
  } cases[] = {{false, false, false, {"loop Tx18/45", "loop Tx21/35", "loop EAN50", "loop Oxygen"}},
               {true, false, false, {"loop Tx18/45"}},
               {true, true, false, {"loop Tx18/45", "open Tx21/35", "open EAN50", "open Oxygen"}},
               {true, false, true, {"loop Tx18/45", "open Tx18/45", "open Tx21/35", "open EAN50", "open Oxygen"}}};
  for (const auto& each : cases) {
    SCOPED_TRACE(testing::PrintToString(each.breathed));
    test::Plans plans;
    frmWaypointEditor& plan = plans.New([&](DiveTemplate& t) {
      t.OpenCircuit = false;
      t.KeepsDiluent = each.keepsDiluent;
      t.OCDeco = each.stopsOnOpenCircuit;
      t.ChangeGasMixes = {{"Oxygen", 100, 0, 0, 6}, {"EAN50", 50, 50, 0, 21}, {"Tx21/35", 21, 44, 35, 57}};
    });
    plan.AddUserWaypoint(65, 35, FindBlendIndex("Tx18/45", plans.documents(plan.Tag()).Template));
    const ClassProfile rows = plans.Ascent(plan, each.bailOut);
    std::vector<std::string> breathed;
    for (auto i = LastUserRow(rows); i <= rows.GetLength(); ++i) {
      const std::string gas = (rows.getGasUsed(i) > 0 ? "open " : "loop ") + rows.GetGasMixName(i);
      if (breathed.empty() || gas != breathed.back()) breathed.push_back(gas);
    }
    EXPECT_EQ(breathed, each.breathed);
  }
}

// A plan made now carries both lines; a file made before keeps what it was, also by way of open circuit and back.
TEST(NewRebreatherPlan, KeepsItsDiluentAndSpendsItsIntervalOnAir) {
  const auto linesOf = [](test::Plans& plans, std::int16_t number, bool openCircuit) {
    plans.documents(number).Template.OpenCircuit = openCircuit;
    const std::string text = ProfileFileText(plans.forms, number);
    const auto holds = [&](const char* line) { return text.find(line) != std::string::npos; };
    return std::pair(holds("\r\n# Loop=diluent\r\n"), holds("\r\n# Surface interval=air\r\n"));
  };
  test::Plans plans;
  const std::int16_t made = plans.New().Tag();
  EXPECT_EQ(linesOf(plans, made, true), std::pair(false, false)) << "open circuit has nothing to tell";
  EXPECT_EQ(linesOf(plans, made, false), std::pair(true, true));

  DiveRecord dive = Rebreather();
  const auto open = [&] { return OpenProfile(plans.forms, "x.tav", Read(Record(dive, 0))).front(); };
  const std::int16_t old = open();
  EXPECT_EQ(linesOf(plans, old, true), std::pair(false, false));
  EXPECT_EQ(linesOf(plans, old, false), std::pair(false, false));
  const std::int16_t second = plans.forms.AddRepetitiveDive(old, 60);
  EXPECT_EQ(plans.documents(second).Template.KeepsDiluent, false) << "as the dive before";
  EXPECT_EQ(plans.documents(second).Template.IntervalOnAir, true);

  dive.Template.OpenCircuit = true;
  EXPECT_EQ(linesOf(plans, open(), false), std::pair(true, true)) << "an open-circuit plan becomes a new one";
}

}  // namespace
}  // namespace tav
