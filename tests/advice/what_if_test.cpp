#include "advice/what_if.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "compute/bailout_cuts.h"
#include "figures/schedule.h"
#include "model/text_id.h"
#include "model/utf8.h"
#include "plans/profile_commands.h"
#include "reports/plan_slate.h"
#include "reports/what_if_table.h"
#include "start/language_table.h"
#include "supply/gas_supply.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"
#include "support/random_plan.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using Kind = WhatIfColumn::Kind;

const std::filesystem::path kRoot = SourceFolder();

/// The plan with a change, opened as a file with its whole series: what `tavplan plan` prints of it.
std::string RowsOfFile(const ProfileText& profile, std::size_t dive, const ModelChoice& model, bool* ends = nullptr) {
  EngineObserver silent;
  const ComputedPlan plan = ComputeSeries(profile.dives, model, silent).at(dive);
  if (ends != nullptr) *ends = plan.end.Decompresses;
  return test::RowsText(plan.rows);
}

void Change(ClassUseractions& actions, std::int16_t leg, double longer, double deeper) {
  actions.setuser(leg, actions.getDepth(leg) + deeper, actions.gettime(leg) + longer, actions.getmixnumber(leg));
}

/// Holds every column of every dive of a file against the file with that change made in it.
void ExpectColumnsOfFiles(const ProfileText& profile, std::int16_t deepest, const ModelChoice& model) {
  EngineObserver silent;
  const std::vector<ComputedPlan> plans = ComputeSeries(profile.dives, model, silent);
  const std::size_t last = plans.size() - 1;
  WhatIf whatIf(PlannedSeries(profile.dives, plans)[last]);
  ASSERT_TRUE(whatIf.Fault().IsEmpty());
  const auto columns = whatIf.Columns({7, 4, {}});
  for (const WhatIfColumn& column : columns) {
    ProfileText changed = profile;
    DiveRecord& dive = changed.dives[last];
    if (column.kind == Kind::BailOut) continue;
    if (column.kind == Kind::Longer || column.kind == Kind::Both) Change(dive.UserActions, deepest, 7, 0);
    if (column.kind == Kind::Deeper || column.kind == Kind::Both) Change(dive.UserActions, deepest, 0, 4);
    const auto isLost = [&](const std::string& gas) {
      return (column.kind == Kind::Lost && gas == column.lost) ||
             (column.kind == Kind::AllLost &&
              std::ranges::find(changed.dives[last].Template.ChangeGasMixes, gas, &GasChange::Name) !=
                  dive.Template.ChangeGasMixes.end());
    };
    std::optional<std::int16_t> gasBefore;
    bool goesOn = true;
    for (std::int16_t i = 1; i < dive.UserActions.GetLength(); ++i) {
      ClassUseractions& legs = dive.UserActions;
      if (!isLost(dive.Template.Blends[static_cast<std::size_t>(legs.getmixnumber(i))].Name)) {
        gasBefore = legs.getmixnumber(i);
      } else if (gasBefore) {
        legs.setuser(i, legs.getDepth(i), legs.gettime(i), *gasBefore);
      } else {
        goesOn = false;
      }
    }
    ASSERT_EQ(goesOn, column.fault.IsEmpty()) << column.Id();
    if (!goesOn) continue;
    std::vector<GasChange> kept;
    for (const GasChange& gas : dive.Template.ChangeGasMixes) {
      if (!isLost(gas.Name)) kept.push_back(gas);
    }
    dive.Template.ChangeGasMixes = kept;
    if (dive.Template.ChangeGasMixes.empty()) dive.Template.ChangeGasMixes.emplace_back();
    bool ends = true;
    EXPECT_EQ(test::RowsText(column.rows), RowsOfFile(changed, last, model, &ends)) << column.Id();
    EXPECT_EQ(column.decompresses, ends) << column.Id();
  }
}

ProfileText Shipped(const char* name) { return ReadProfileFile(kRoot / "dives" / name); }

TEST(WhatIf, ColumnsAreThePlansWithTheChangeMadeInTheirFile) {
  for (const ModelChoice& model : {ModelChoice{}, ModelChoice{true, false}, ModelChoice{false, true}}) {
    ExpectColumnsOfFiles(Shipped("air-deco.tav"), 1, model);
    ExpectColumnsOfFiles(Shipped("wreck.tav"), 1, model);
    ExpectColumnsOfFiles(Shipped("trimix-100.tav"), 2, model);
    ExpectColumnsOfFiles(Shipped("rebreather.tav"), 1, model);
    ExpectColumnsOfFiles(Shipped("lake-series.tav"), 1, model);  // starts from the loads and doses of the dive before
  }
}

TEST(WhatIf, ColumnsOfRandomPlansAreThoseOfTheirFiles) {
  std::mt19937 random(13);
  for (int n = 0; n < 40; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    std::int16_t deepest = 1;
    for (std::int16_t i = 1; i < plan.actions.GetLength(); ++i) {
      if (plan.actions.getDepth(i) >= plan.actions.getDepth(deepest)) deepest = i;
    }
    const ProfileText profile = [&] {
      FormatFaults faults("plan.tav", FormatFaults::Mode::StopAtFirstError);
      return ReadProfileText(test::File(plan), faults);
    }();
    SCOPED_TRACE(test::File(plan));
    ExpectColumnsOfFiles(profile, deepest, {});
  }
}

class WhatIfOfPlan : public testing::Test {
 protected:
  frmWaypointEditor& Plan(
      std::initializer_list<std::pair<double, double>> legs, bool ascent = true,
      const std::function<void(DiveTemplate&)>& change = [](DiveTemplate&) {}) {
    frmWaypointEditor& window = plans_.New(change);
    for (const auto& [depth, minutes] : legs) window.SaveUserEnteredWaypoints(minutes, depth, 0, false);
    if (ascent) window.SaveUserEnteredWaypoints(-1, -1, 0, true);
    window.ReEvaluateUserEnteredWaypoints();
    return window;
  }
  std::vector<std::string> Ids(const std::vector<WhatIfColumn>& columns) {
    std::vector<std::string> ids;
    for (const WhatIfColumn& column : columns) ids.push_back(column.Id());
    return ids;
  }

  test::Plans plans_;
};

TEST_F(WhatIfOfPlan, LeavesTheUsersPlanAlone) {
  const auto documents = OpenProfile(plans_.forms, kRoot / "dives/lake-series.tav");
  const auto state = [&] {
    std::string text = ProfileFileText(plans_.forms, documents[0]);
    for (const std::int16_t document : documents) {
      text += test::RowsText(plans_.forms(document).LoadedProfile());
      for (const Single load : plans_.documents(document).N2Compartments) text += FormatFixed(double{load}, 9);
      text += FormatPlain(plans_.documents(document).TotalCNS) + (plans_.documents(document).Modified ? "m" : "");
    }
    return text;
  };
  const std::string before = state();
  plans_.display.told.clear();
  WhatIf whatIf(plans_.Planned(documents.back()));
  EXPECT_EQ(whatIf.Columns({20, 30, {}}).size(), 5U);
  EXPECT_EQ(state(), before);
  EXPECT_THAT(plans_.display.told, testing::IsEmpty());
  EXPECT_EQ(plans_.documents.UpperBound(), documents.back());
}

TEST_F(WhatIfOfPlan, NamesItsColumnsAndChangesTheLastOfTheDeepestLegs) {
  frmWaypointEditor& window = Plan({{30, 10}, {20, 5}, {30, 10}, {15, 5}});
  WhatIf whatIf(plans_.Planned(window.Tag()));
  const auto columns = whatIf.Columns(WhatIfWish::Usual(true));
  EXPECT_THAT(Ids(columns),
              ElementsAre("planned", "longer", "deeper", "both", "lost Oxygen", "lost EAN50", "lost all"));
  EXPECT_EQ(test::RowsText(columns[0].rows), test::RowsText(window.InputProfile));
  // The leg of 10 min from minute 15 ends 5 min later; the first one at 30 m still ends at minute 10.
  const auto endsAt = [](const WhatIfColumn& column, double depth) {
    double end = 0;
    for (std::int16_t i = 1; i <= LastUserRow(column.rows); ++i) {
      if (column.rows.getDepth(i) == depth) end = column.rows.GetRunTime(i);
    }
    return end;
  };
  EXPECT_EQ(endsAt(columns[0], 30), 25);
  EXPECT_EQ(endsAt(columns[1], 30), 30);
  EXPECT_EQ(endsAt(columns[2], 30), 10);
  EXPECT_EQ(endsAt(columns[2], 33), 25);
  EXPECT_EQ(endsAt(columns[3], 33), 30);
}

TEST_F(WhatIfOfPlan, GivesAPlanWithoutAscentOne) {
  frmWaypointEditor& open = Plan({{40, 20}}, false);
  frmWaypointEditor& whole = Plan({{40, 20}});
  WhatIf whatIf(plans_.Planned(open.Tag()));
  EXPECT_TRUE(whatIf.AddsAscent());
  EXPECT_EQ(test::RowsText(whatIf.Columns({})[0].rows), test::RowsText(whole.InputProfile));
  EXPECT_EQ(open.State(), EditState::Legs);
}

TEST_F(WhatIfOfPlan, SaysWhatCanNotBeCompared) {
  EXPECT_THAT(plans_.texts.Words(WhatIf(plans_.Planned(plans_.New().Tag())).Fault()), Numbered("<NoLegs>"));
  frmWaypointEditor& broken = Plan({{40, 20}});
  plans_.documents(broken.Tag()).Template.StepSize = 0;
  broken.ReEvaluateUserEnteredWaypoints();
  EXPECT_EQ(plans_.texts.Words(WhatIf(plans_.Planned(broken.Tag())).Fault()), broken.EvaluationFault());
  EXPECT_NE(broken.EvaluationFault(), "");
  // A leg may last 100,000 min: one that is longer can't be computed, the other columns stand.
  WhatIf whatIf(plans_.Planned(Plan({{5, 99990}}).Tag()));
  const auto columns = whatIf.Columns({20, 1});
  EXPECT_EQ(columns[1].fault.text, Text::ActionFault);
  EXPECT_EQ(columns[1].rows.GetLength(), 0);
  EXPECT_TRUE(columns[2].fault.IsEmpty());
  EXPECT_NE(columns[2].rows.GetLength(), 0);
}

TEST_F(WhatIfOfPlan, LosesAllOfAGasThatTheListHasTwice) {
  frmWaypointEditor& window = Plan({{40, 25}}, true, [](DiveTemplate& t) {
    t.ChangeGasMixes.clear();
    for (const auto& [name, depth] :
         {std::pair{"Oxygen", 6.0}, {"EAN50", 12.0}, {"EAN50", 21.0}, {"Unheard-of", 30.0}}) {
      GasChange& change = t.ChangeGasMixes.emplace_back();
      change.Name = name;
      change.Depth = depth;
    }
    ResolveGasChanges(t);
  });
  WhatIf whatIf(plans_.Planned(window.Tag()));
  const auto columns = whatIf.Columns({});
  EXPECT_THAT(Ids(columns),
              ElementsAre("planned", "longer", "deeper", "both", "lost Oxygen", "lost EAN50", "lost all"));
  for (const GasNeed& need : columns[5].gas) EXPECT_NE(need.mix, "EAN50");
  for (const GasNeed& need : columns[6].gas) EXPECT_EQ(need.mix, "Air");
}

TEST_F(WhatIfOfPlan, EachColumnTellsWhatMustNotBeBreathed) {
  // Tx10/70 (blend 7) down to 60 m and, without the gases of the list, up to the surface again.
  frmWaypointEditor& window = plans_.New();
  window.SaveUserEnteredWaypoints(12, 60, 7, false);
  window.SaveUserEnteredWaypoints(-1, -1, 7, true);
  plans_.documents(window.Tag()).Template.ChangeGasMixes.resize(1);
  window.ReEvaluateUserEnteredWaypoints();
  WhatIf whatIf(plans_.Planned(window.Tag()));
  const auto columns = whatIf.Columns({});
  ASSERT_EQ(columns.front().warnings.size(), 2U) << "the way down, and up to the oxygen";
  EXPECT_EQ(columns.front().warnings.back().to, 6);
  ASSERT_EQ(columns.back().warnings.size(), 2U);
  EXPECT_EQ(columns.back().warnings.back().to, 0) << "and without the oxygen to the surface";
  const AdviceWords words(plans_.texts, {".", ""}, true);
  const std::string text = AlignedText(TableOf(columns, {}, whatIf, words), 100);
  EXPECT_THAT(text, HasSubstr(Numbered("\n! <WhatIfLost>: <TablePPO2Low>")));
}

TEST_F(WhatIfOfPlan, TellsWhatDoesNotDecompress) {
  // Air at a last stop of 30 m never clears with a gradient factor of 1 %.
  frmWaypointEditor& window = Plan({{60, 30}}, true, [](DiveTemplate& t) {
    t.GFLow = 0.01;
    t.GFHigh = 0.01;
    t.LastStop = 30;
    t.ChangeGasMixes.resize(1);
  });
  ASSERT_FALSE(plans_.documents(window.Tag()).Decompresses);
  WhatIf whatIf(plans_.Planned(window.Tag()));
  for (const WhatIfColumn& column : whatIf.Columns({})) EXPECT_FALSE(column.decompresses) << column.Id();
}

/// 57 min of RMV 20 at 2 bar, 2,295 l, and the way up. Two cylinders of 12 l at 200 bar hold 4,800 l, of which 50 bar,
/// 1,200 l, must stay. In feet a cylinder of 80 cu ft at 3,000 psi counts as 80 cu ft.
TEST_F(WhatIfOfPlan, HoldsTheGasAgainstTheCylinders) {
  struct Case {
    bool told;
    std::int16_t count;
    double fill;
    std::optional<double> carried;
    std::optional<bool> enough;
  };
  for (const Case& c :
       {Case{false, 0, 0, std::nullopt, std::nullopt}, Case{true, 1, 200, 2400, false}, Case{true, 2, 200, 4800, true},
        Case{true, 1, 300, 3600, true}, Case{true, 1, 245, 2940, false}}) {
    frmWaypointEditor& window = Plan({{10, 57}}, true, [&](DiveTemplate& t) {
      t.ChangeGasMixes.assign(1, {});
      if (!c.told) return;
      if (c.count > 0) t.Cylinders.push_back({"Air", c.count, 12, 0, c.fill, 50});
    });
    WhatIf whatIf(plans_.Planned(window.Tag()));
    const WhatIfColumn planned = whatIf.Columns({})[0];
    ASSERT_EQ(planned.gas.size(), 1U);
    EXPECT_EQ(planned.gas[0].mix, "Air");
    EXPECT_NEAR(planned.gas[0].used, 57 * 20 * 2.01325, 80);
    EXPECT_EQ(planned.gas[0].carried, c.carried);
    const auto& verdict = planned.gas[0].verdict;
    EXPECT_EQ(verdict ? std::optional(*verdict == GasVerdict::Enough) : std::nullopt, c.enough) << c.fill;
    // The gas supply of the plan says the same.
    const GasSupply supply = SupplyOf(window.Planned());
    EXPECT_EQ(supply.IsTold(), c.told);
    if (c.told) {
      EXPECT_EQ(supply.Of("Air")->verdict == GasVerdict::Enough, c.enough);
      EXPECT_EQ(supply.Of("Air")->carried, c.carried);
    }
    const AdviceWords words(plans_.texts, {".", ""}, true);
    const std::string turn = TurnText(supply, words);
    EXPECT_EQ(turn.empty(), !c.told || !supply.legs.back().turnLeft);
  }
  // A gas without a cylinder, where others have one, is short.
  DiveTemplate settings = plans_.documents(0).Template;
  settings.Cylinders = {{"EAN50", 1, 80, 3000, 3000, 0}};
  settings.Metric = false;
  ClassProfile rows;
  for (const char* gas : {"Air", "EAN50"}) {
    rows.NewWayPoint();
    rows.Row(rows.GetLength()).GasMixName = gas;
    rows.Row(rows.GetLength()).GasUsed = 79.9;
  }
  const auto needs = GasNeeds(StoresOf(rows, settings, settings.Cylinders), true, false);
  ASSERT_EQ(needs.size(), 2U);
  EXPECT_EQ(needs[0].carried, 0);
  EXPECT_EQ(needs[0].verdict, GasVerdict::NoCylinder);
  EXPECT_NEAR(*needs[1].carried, 80, 1e-9);
  EXPECT_EQ(needs[1].verdict, GasVerdict::Enough);
}

/// The bail-out columns are the minute that takes longest to come up and those that ask most of a gas; each is the cut
/// that `tavplan bailout` makes of that minute, and its figures are those of the gas supply.
TEST_F(WhatIfOfPlan, BailsOutFromTheLongestAndTheDearestMinutes) {
  const auto document = OpenProfile(plans_.forms, kRoot / "dives/rebreather.tav").back();
  DiveTemplate& settings = plans_.documents(document).Template;
  settings.Cylinders = {{"Tx18/45", 2, 12, 0, 200, 20, true},
                        {"Tx21/35", 1, 11, 0, 200, 20},
                        {"EAN50", 1, 11, 0, 200, 20},
                        {"Oxygen", 1, 20, 0, 200, 20}};
  const TableDives cuts = *plans_.Cuts(document, 1).Compute(3, [](int, int) { return true; });
  const GasSupply supply = SupplyOf(plans_.Planned(document));
  WhatIf whatIf(plans_.Planned(document));
  const auto columns = whatIf.Columns({});
  std::map<Single, const WhatIfColumn*> ways;
  for (const WhatIfColumn& column : columns) {
    ASSERT_TRUE(column.fault.IsEmpty()) << column.Id();
    if (column.kind == Kind::BailOut) ways[column.minute.moment] = &column;
  }
  ASSERT_TRUE(ways.contains(35)) << "the end of the bottom time has the longest way up";
  double longest = 0;
  for (const TableDive& cut : cuts.dives) {
    const double up = cut.profile.GetRunTime(cut.profile.GetLength()) - cut.head;
    if (&cut != &cuts.dives.front() && cut.depth > 0 && cut.head <= 38) longest = std::max(longest, up);
    if (const auto way = ways.find(cut.head); way != ways.end()) {
      EXPECT_EQ(test::RowsText(cut.profile), test::RowsText(way->second->rows));
    }
  }
  const ClassProfile& rows = ways[35]->rows;
  EXPECT_EQ(rows.GetRunTime(rows.GetLength()) - 35, longest);
  for (const GasStore& store : supply.gases) {
    ASSERT_TRUE(store.bailOut) << store.gas;
    const WhatIfColumn& dearest = *ways.at(store.bailOut->moment);
    const auto need = std::ranges::find(dearest.gas, store.gas, &GasNeed::mix);
    ASSERT_NE(need, dearest.gas.end());
    EXPECT_EQ(need->need, store.Need());
    EXPECT_EQ(need->verdict, store.verdict);
    // The planned column has one verdict with the supply, too.
    const auto planned = std::ranges::find(columns.front().gas, store.gas, &GasNeed::mix);
    EXPECT_EQ(planned->need, store.Need());
    EXPECT_EQ(planned->verdict, store.verdict);
  }
}

TEST_F(WhatIfOfPlan, AGasIsLostInTheLegs) {
  const DiveTemplate shipped = ShippedDefaultTemplate();
  const std::int16_t ean50 = FindBlend("EAN50", shipped).value();
  frmWaypointEditor& window = plans_.New();
  window.SaveUserEnteredWaypoints(20, 40, 0, false);
  window.SaveUserEnteredWaypoints(10, 15, ean50, false);
  window.SaveUserEnteredWaypoints(-1, -1, 0, true);
  window.ReEvaluateUserEnteredWaypoints();
  WhatIf whatIf(plans_.Planned(window.Tag()));
  for (const WhatIfColumn& column : whatIf.Columns({})) {
    if (column.Id() != "lost EAN50" && column.Id() != "lost all") continue;
    EXPECT_EQ(column.record.UserActions.getmixnumber(2), 0) << column.Id();
    for (std::int16_t i = 1; i <= column.rows.GetLength(); ++i) EXPECT_NE(column.rows.GetGasMixName(i), "EAN50");
  }
  window.UserActions.setuser(1, 20, 20, ean50);
  window.ReEvaluateUserEnteredWaypoints();
  WhatIf without(plans_.Planned(window.Tag()));
  const auto columns = without.Columns({5, 3, {{0.4, 0.9}}});
  EXPECT_THAT(Ids(columns), Contains("gf 40/90"));
  for (const WhatIfColumn& column : columns) {
    EXPECT_EQ(column.fault.IsEmpty(), column.Id() != "lost EAN50" && column.Id() != "lost all") << column.Id();
  }
}

TEST_F(WhatIfOfPlan, StandsSideBySideInWords) {
  const LanguageTable english = DefaultTexts(kRoot);
  frmWaypointEditor& window = Plan({{40, 25}}, true, [](DiveTemplate& t) {
    t.Cylinders = {{"Air", 2, 12, 0, 200, 50}, {"EAN50", 1, 7, 0, 200, 0}, {"Oxygen", 1, 7, 0, 20, 0}};
  });
  WhatIf whatIf(plans_.Planned(window.Tag()));
  const WhatIfWish wish{5, 3, {}};
  const auto columns = whatIf.Columns(wish);
  const AdviceWords words(english, {",", "."}, true);
  const ColumnTable table = TableOf(columns, wish, whatIf, words);
  ASSERT_EQ(table.heads.size(), 7U);
  EXPECT_EQ(table.heads[3].detail, "+5 min +3 m");
  EXPECT_EQ(table.heads[4].name, "lost Oxygen");
  std::map<std::string, const ColumnTable::Row*> rows;
  for (const ColumnTable::Row& row : table.rows) rows[row.label] = &row;
  // The figures of the schedule stand in their rows.
  for (std::size_t c = 0; c < columns.size(); ++c) {
    for (const ScheduleRow& stop : ScheduleOf(columns[c].rows, whatIf.Settings())) {
      if (stop.kind != ScheduleRow::Kind::Stop) continue;
      const ColumnTable::Row* row = rows["Stop " + words.Depth(stop.depth)];
      ASSERT_NE(row, nullptr);
      EXPECT_EQ(row->cells[c].figure, words.Short(*stop.minutes));
      EXPECT_EQ(row->cells[c].note, stop.changesGas ? stop.gas : "");
    }
    EXPECT_EQ(rows["Run time"]->cells[c].figure, words.Short(columns[c].rows.GetRunTime(columns[c].rows.GetLength())));
  }
  EXPECT_EQ(rows["Oxygen of 140 l"]->cells[0].note, "too little");
  EXPECT_TRUE(rows["Oxygen of 140 l"]->cells[0].bad);
  EXPECT_EQ(rows["Oxygen of 140 l"]->cells[4].figure, "");
  EXPECT_EQ(rows["EAN50 of 1400 l"]->cells[0].note, "enough");
  const std::string text = AlignedText(table, 100);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    EXPECT_LE(Letters(text.substr(at, end - at)), 100U);
    at = end + 1;
  }
  EXPECT_THAT(text, HasSubstr("planned"));
}

}  // namespace
}  // namespace tav
