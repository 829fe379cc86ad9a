#include "dialogs/plan_pane.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "dialogs/waypoint_form.h"
#include "model/text_id.h"
#include "support/program_fixture.h"
#include "support/typed_plan.h"

namespace tav {
namespace {

constexpr int kDepth = PlanPaneLegs::kDepth;
constexpr int kTime = PlanPaneLegs::kTime;
constexpr int kGas = PlanPaneLegs::kGas;

/// The program with a trimix dive of three levels, entered by the quick line.
class PlanPane : public testing::Test {
 protected:
  PlanPane() {
    EXPECT_TRUE(p.Start());
    Quick("60", "20", "Tx18/45");
    Quick("45", "10", "Tx18/45");
    Quick("30", "8", "EAN32");
  }

  frmPlanPane& Pane() { return p.Main().Panes().PlanPane(); }
  Grid& Legs() { return Pane().legs.fgLegs; }
  void Quick(const std::string& depth, const std::string& time, const std::string& gas) {
    frmPlanPane& pane = Pane();
    pane.tbQuickDepth.Type(depth);
    pane.tbQuickTime.Type(time);
    pane.cbQuickGas.Type(gas);
    pane.cbQuick.Press();
  }
  /// The line of a gas among those at hand.
  int LineOf(const std::string& gas) {
    const Grid& gases = Pane().gases.fgGases;
    int line = 1;
    while (line < gases.Rows() && gases.Text(line, PlanPaneGases::kGas) != gas) ++line;
    return line;
  }
  void Edit(int row, int column, const std::string& text) { Legs().Edit(row, column, text); }
  std::string Rows() { return test::RowsText(p.Editor().InputProfile); }
  std::string Typed() { return test::TypedRows(p.Editor().UserActions, p.Document().Template); }
  bool Undo() {
    if (!p.Main().mnuUndo.Enabled) return false;
    p.Main().mnuUndo.Choose();
    return true;
  }

  test::HeadlessProgram p;
};

TEST_F(PlanPane, AnEditedPlanIsThePlanTypedFromScratchAndOneStepOfUndo) {
  const struct {
    const char* what;
    std::function<void()> edit;
    int legs;
  } kEdits[] = {
      {"the depth of a leg, key by key",
       [&] {
         Legs().Type(2, kDepth, "4");
         Legs().Type(2, kDepth, "48");
         Edit(2, kDepth, "48");
       },
       3},
      {"its time", [&] { Edit(2, kTime, "12.5"); }, 3},
      {"its gas", [&] { Edit(2, kGas, "Tx21/35"); }, 3},
      {"a leg more by the quick line", [&] { Quick("25", "5", "EAN50"); }, 4},
      {"a leg less",
       [&] {
         Legs().SelectCell(2, kDepth);
         Pane().legs.mnuDeleteLegs.Choose();
       },
       2},
      {"a leg twice",
       [&] {
         Legs().SelectCell(2, kDepth);
         Pane().legs.mnuDuplicateLegs.Choose();
       },
       4},
      {"a leg moved up",
       [&] {
         Legs().SelectCell(2, kDepth);
         Pane().legs.mnuMoveLegsUp.Choose();
       },
       3},
      {"a leg from a spreadsheet",
       [&] {
         Legs().SelectCell(3, kDepth);
         p.platform.clipboardText = "40\t6\tTx18/45\n";
         Pane().legs.mnuPasteLegs.Choose();
       },
       4},
      {"no ascent", [&] { Pane().legs.ckAscent.Set(false); }, 3},
      {"another gradient factor", [&] { Pane().settings.tbHighGF.Type("0.70"); }, 3},
      {"another last stop", [&] { Pane().settings.tbLastStop.Type("6"); }, 3},
      {"an altitude", [&] { Pane().settings.tbAltitude.Type("1500"); }, 3},
      {"a rebreather", [&] { Pane().settings.cbCircuit.Select(1); }, 3},
      {"a gas that only its name tells", [&] { Quick("20", "5", "20/40"); }, 4},
      {"oxygen left out", [&] { Pane().gases.fgGases.Tick(LineOf("Oxygen"), false); }, 3},
      {"a gas more on the way up", [&] { Pane().gases.fgGases.Tick(LineOf("Tx21/35"), true); }, 3},
      {"EAN50 from another depth", [&] { Pane().gases.fgGases.Edit(LineOf("EAN50"), PlanPaneGases::kDepth, "15"); }, 3},
  };
  const std::string before = Rows();
  for (const auto& each : kEdits) {
    each.edit();
    Pane().Finish();
    EXPECT_NE(Rows(), before) << each.what;
    EXPECT_EQ(Rows(), Typed()) << each.what;
    EXPECT_EQ(p.Editor().UserActions.GetLength() - (p.Editor().State() == EditState::Ascent ? 1 : 0), each.legs)
        << each.what;
    EXPECT_TRUE(p.platform.boxes.empty()) << each.what;
    ASSERT_TRUE(Undo()) << each.what;
    EXPECT_EQ(Rows(), before) << each.what;
  }
}

TEST_F(PlanPane, EscapeBringsTheFormerPlanBackAndAFaultLeavesTheLastGoodOne) {
  const std::string before = Rows();
  Legs().Type(2, kDepth, "50");
  EXPECT_NE(Rows(), before);
  Legs().Restore();
  EXPECT_EQ(Rows(), before);
  EXPECT_EQ(Legs().Text(2, kDepth), "45");

  Edit(2, kDepth, "deep");
  EXPECT_EQ(Rows(), before);
  EXPECT_EQ(Legs().Text(2, kDepth), "45");
  EXPECT_NE(Legs().Cells.Get()[2][kDepth].fault, "");
  EXPECT_THAT(Pane().lbFault.Caption.Get(), testing::HasSubstr("\"deep\""));
  Edit(2, kDepth, "45");
  EXPECT_FALSE(Pane().lbFault.Visible);
  // From 60 m after 20 minutes nobody goes to 3 m at once: the rule of a new leg holds for an edited one.
  Edit(3, kDepth, "3");
  EXPECT_NE(Legs().Cells.Get()[3][kDepth].fault, "");
  EXPECT_EQ(Rows(), before);
  EXPECT_TRUE(p.platform.boxes.empty());
}

TEST_F(PlanPane, WhatIsRefusedLeavesNothingBehindAndIsTold) {
  frmPlanPane& pane = Pane();
  p.Document().Template.GFHigh = 0.855;
  p.Editor().ReEvaluateUserEnteredWaypoints();
  const auto typeField = [](TextBox& field) { return [&field](const std::string& text) { field.Type(text); }; };
  const auto typeCell = [&](int row, int column) {
    return [&, row, column](const std::string& text) { Legs().Type(row, column, text); };
  };
  const struct {
    const char* what;
    std::function<void(const std::string&)> type;
    std::vector<std::string> keys;
  } kEntries[] = {
      {"time", typeCell(2, kTime), {"4", "4x"}},
      {"time of the deepest leg", typeCell(1, kTime), {"5", "50", "500"}},
      {"depth", typeCell(2, kDepth), {"4", "4,5.6"}},
      {"emptied", typeCell(2, kDepth), {"4", ""}},
      {"low factor", typeField(pane.settings.tbLowGF), {"1", "15", "150"}},
      {"low factor, a word", typeField(pane.settings.tbLowGF), {"a", "abc"}},
      {"high factor", typeField(pane.settings.tbHighGF), {"0"}},
      {"high factor, negative", typeField(pane.settings.tbHighGF), {"-", "-1"}},
      {"last stop", typeField(pane.settings.tbLastStop), {"6", "6m"}},
  };
  const std::string before = Rows();
  p.Document().Modified = false;
  for (const auto& each : kEntries) {
    SCOPED_TRACE(each.what);
    for (const std::string& key : each.keys) each.type(key);
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(p.Look(p.Active()).asBefore, p.program.Texts().GetResString(Text::AsBefore));
    EXPECT_THAT(pane.schedule.lbTotals.Caption.Get(),
                testing::StartsWith(p.program.Texts().GetResString(Text::AsBefore)));
    EXPECT_THAT(p.Main().Panes().CheckPane().lbNothing.Caption.Get(),
                testing::StartsWith("The plan can not be checked"));
    EXPECT_EQ(p.Main().sbFindings.Caption.Get(), "");
    p.Main().FinishEdits();
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(Legs().Text(2, kTime) + Legs().Text(2, kDepth) + Legs().Text(1, kTime), "104520");
    EXPECT_EQ(pane.settings.tbLowGF.Text.Get() + pane.settings.tbLastStop.Text.Get(), "0.303");
    EXPECT_EQ(p.Document().Template.GFHigh, Single(0.855));
    EXPECT_THAT(pane.lbFault.Caption.Get(), testing::HasSubstr('"' + each.keys.back() + '"'));
    EXPECT_EQ(p.Look(p.Active()).asBefore, "");
    EXPECT_NE(p.Main().sbFindings.Caption.Get(), "");
    EXPECT_FALSE(p.Document().Modified);
  }
  EXPECT_TRUE(p.platform.boxes.empty());
}

TEST_F(PlanPane, TypingOneFactorLeavesTheOtherToTheDigit) {
  p.Document().Template.GFHigh = 0.855;
  Pane().settings.tbLowGF.Type("40");
  Pane().Finish();
  EXPECT_EQ(p.Document().Template.GFLow, Single(0.4));
  EXPECT_EQ(p.Document().Template.GFHigh, Single(0.855));
  Pane().settings.tbHighGF.Type("1.1");
  Pane().Finish();
  EXPECT_EQ(p.Document().Template.GFHigh, Single(0.855)) << "only with the switch";

  test::HeadlessProgram bold;
  ASSERT_TRUE(bold.Start({"/VeryHighGF"}));
  frmPlanPane& pane = bold.Main().Panes().PlanPane();
  pane.settings.tbHighGF.Type("1.1");
  pane.Finish();
  EXPECT_LT(double{bold.Document().Template.GFHigh}, 1) << "a low factor of 0.3 asks for the warning of the dialog";
  pane.settings.tbLowGF.Type("0.5");
  pane.Finish();
  pane.settings.tbHighGF.Type("1.1");
  pane.Finish();
  EXPECT_EQ(bold.Document().Template.GFHigh, Single(1.1));
}

TEST_F(PlanPane, ShowsTheGasesInTheOrderOfTheirUseAndTakesMoreByName) {
  const Grid& grid = Pane().gases.fgGases;
  const auto lines = [&] {
    std::string text;
    for (int line = 1; line < grid.Rows(); ++line) {
      const auto& cells = grid.Cells.Get()[static_cast<std::size_t>(line)];
      if (cells[0].tick == true) text += '*';
      text += cells[0].text + ' ' + cells[1].text + '|';
    }
    return text;
  };
  EXPECT_EQ(lines(), "Tx18/45 |EAN32 |*EAN50 21|*Oxygen 6|Air |Tx21/35 |Tx15/55 |Tx10/70 | |");
  // PPO2 1.62 at the depth of a stop: EAN32 (1.62 / 0.32 - 1.01325) * 10 = 40.5 m, Air 67 m.
  Pane().gases.fgGases.Tick(LineOf("EAN32"), true);
  Pane().gases.fgGases.Edit(grid.Rows() - 1, PlanPaneGases::kGas, "nitrox 28");
  EXPECT_EQ(lines(), "Tx18/45 |*EAN32 39|*EAN50 21|*Oxygen 6|Air |Tx21/35 |Tx15/55 |Tx10/70 |EAN28 | |");
  const std::string before = Rows();
  Pane().gases.fgGases.Edit(LineOf("EAN50"), PlanPaneGases::kDepth, "0");
  Pane().gases.fgGases.Edit(grid.Rows() - 1, PlanPaneGases::kGas, "80/40");
  EXPECT_THAT(Pane().lbFault.Caption.Get(), testing::HasSubstr("80/40"));
  EXPECT_EQ(Rows(), before);
  EXPECT_TRUE(p.platform.boxes.empty());
  p.Main().mnuUndo.Choose();
  p.Main().mnuUndo.Choose();
  EXPECT_EQ(p.Document().Template.Blends.size(), 8U);
  EXPECT_EQ(p.Document().Template.ChangeGasMixes.size(), 2U);
}

TEST_F(PlanPane, FollowsWhatOtherCommandsChangeOfTheDive) {
  PlanPaneSettings& settings = Pane().settings;
  EXPECT_FALSE(settings.tbSetpoint.Visible);
  p.Main().mnuOC.Choose();
  EXPECT_EQ(settings.cbCircuit.ListIndex, 1);
  EXPECT_TRUE(settings.tbSetpoint.Visible);
  settings.cbCircuit.Select(0);
  EXPECT_TRUE(p.Document().Template.OpenCircuit && !settings.tbSetpoint.Visible);
  p.Main().mnuBulhmannC.Choose();
  EXPECT_EQ(settings.cbModel.Text(), "ZH-L16B") << "a mark computes nothing, and the rows are those of the other table";
  p.Main().ApplyToProfile();
  EXPECT_EQ(settings.cbModel.Text(), "ZH-L16C");
  EXPECT_EQ(settings.cbModel.Items.Get().size(), 2U) << "those that the program was not started with are not offered";

  test::HeadlessProgram vpm;
  ASSERT_TRUE(vpm.Start({"/vpm"}));
  frmPlanPane& pane = vpm.Main().Panes().PlanPane();
  pane.tbQuickDepth.Type("40");
  pane.tbQuickTime.Type("30");
  pane.cbQuick.Press();
  EXPECT_TRUE(pane.settings.tbLowGF.Visible);
  pane.settings.cbModel.Select(2);
  EXPECT_TRUE(vpm.Main().mnuVPM.Checked);
  EXPECT_EQ(vpm.Editor().EvaluatedWith(), (ModelChoice{true, false, false})) << "the plan is computed with it at once";
  EXPECT_FALSE(pane.settings.tbLowGF.Visible) << "they do not act";
  vpm.Main().mnuVPM.Choose();
  vpm.Main().ApplyToProfile();
  EXPECT_EQ(pane.settings.cbModel.Text(), "ZH-L16B");
}

TEST_F(PlanPane, TheIntervalOfADiveIsChangedAfterItWasAdded) {
  EXPECT_FALSE(Pane().settings.tbInterval.Enabled);
  const std::int16_t first = p.Active();
  const std::int16_t second = p.program.Forms().AddRepetitiveDive(first, 60);
  Quick("40", "20", "Air");
  const std::int16_t third = p.program.Forms().AddRepetitiveDive(second, 90);
  Quick("40", "20", "Air");
  const auto rowsOf = [&](std::int16_t n) { return test::RowsText(p.program.Forms()(n).InputProfile); };
  const std::string laterBefore = rowsOf(third);
  p.program.Forms().Activate(second);
  TextBox& field = Pane().settings.tbInterval;
  EXPECT_EQ(field.Text.Get(), "1:00");
  const std::string before = Rows();
  for (const char* wrong : {"2", "1:60", "25:00", "-1:00", "1:0x"}) {
    field.Type(wrong);
    Pane().Finish();
    EXPECT_THAT(Pane().lbFault.Caption.Get(), testing::HasSubstr(wrong));
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(field.Text.Get(), "1:00");
  }
  field.Type("4:05");
  Pane().Finish();
  EXPECT_EQ(p.Document().SurfaceInterval, 245);
  EXPECT_NE(Rows(), before);
  EXPECT_NE(rowsOf(third), laterBefore);
  EXPECT_TRUE(Undo());
  EXPECT_EQ(p.Document().SurfaceInterval, 60);
  EXPECT_EQ(Rows() + rowsOf(third), before + laterBefore);
}

TEST_F(PlanPane, TheQuickLineIsNeverStale) {
  frmPlanPane& pane = Pane();
  EXPECT_EQ(pane.tbQuickDepth.Text.Get() + pane.tbQuickTime.Text.Get(), "");
  EXPECT_EQ(pane.cbQuickGas.Text(), "EAN32");
  Quick("20", "5x", "EAN50");
  EXPECT_EQ(pane.tbQuickTime.Text.Get(), "5x") << "what was not taken can be put right";
  const std::string addLeg = pane.cbQuick.Caption.Get();
  p.Main().mnuNewProfile.Choose();
  EXPECT_EQ(pane.tbQuickDepth.Text.Get() + pane.tbQuickTime.Text.Get(), "");
  EXPECT_NE(pane.cbQuick.Caption.Get(), addLeg);
  Quick("30", "20", "28");
  EXPECT_EQ(p.Editor().InputProfile.GetGasMixName(1), "EAN28");
  EXPECT_EQ(pane.cbQuickGas.Text(), "EAN28");
  Undo();
  EXPECT_EQ(p.Document().Template.Blends.size(), 8U);
  EXPECT_EQ(pane.cbQuickGas.Text(), "Air");
}

TEST_F(PlanPane, AWalkOfEditsIsUndoneAndRedone) {
  const std::string start = Rows();
  std::mt19937 random(3);
  const auto any = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
  for (int i = 0; i < 1000; ++i) {
    const int row = any(1, Pane().legs.fgLegs.Rows() - 3);
    Legs().SelectCell(row, kDepth);
    switch (any(0, 6)) {
      case 0:
        Edit(row, kDepth, std::to_string(any(10, 60)));
        break;
      case 1:
        Edit(row, kTime, std::to_string(any(5, 20)));
        break;
      case 2:
        Edit(row, kGas, any(0, 1) == 0 ? "Tx18/45" : "Air");
        break;
      case 3:
        if (Legs().Rows() < 8) Pane().legs.mnuDuplicateLegs.Choose();
        break;
      case 4:
        if (Legs().Rows() > 5) Pane().legs.mnuDeleteLegs.Choose();
        break;
      case 5:
        Pane().legs.mnuMoveLegsUp.Choose();
        break;
      default:
        Pane().legs.ckAscent.Set(!Pane().legs.ckAscent.Value);
    }
    Legs().Restore();  // what the plan did not take
    if (!Pane().legs.ckAscent.Value) Pane().legs.ckAscent.Set(true);
  }
  EXPECT_EQ(Rows(), Typed());
  const std::string end = Rows();
  int steps = 0;
  while (Rows() != start && Undo()) ++steps;
  EXPECT_EQ(Rows(), start);
  EXPECT_GT(steps, 300);
  while (steps-- > 0) p.Main().mnuRedo.Choose();
  EXPECT_EQ(Rows(), end);
}

TEST_F(PlanPane, SelectsTheSameRowsAsTheGraph) {
  Pane().schedule.fgSchedule.Select(3);
  EXPECT_GT(p.Look().selected.first, 0);
  p.Main().Panes().EditLegOf(p.Editor().LastRowOf(2));
  EXPECT_EQ(Legs().SelectedRow, 2);
  EXPECT_EQ(p.view.focused, &Pane());
}

TEST_F(PlanPane, AFirstLegComesWithTheAscentFromWhereverItIsEnteredUnlessThatIsSwitchedOff) {
  const auto paste = [&] {
    p.platform.clipboardText = "30\t20\tEAN32\n";
    Pane().legs.mnuPasteLegs.Choose();
  };
  const auto dialog = [&] {
    p.platform.onModal.emplace_back([](Form& form) {
      auto& waypoint = dynamic_cast<frmWaypointForm&>(form);
      EXPECT_EQ(waypoint.tbDepth.Text.Get() + " " + waypoint.tbTime.Text.Get(), "0 0");
      waypoint.tbDepth.Type("30");
      waypoint.tbTime.Type("20");
      waypoint.cbOK.Press();
    });
    p.Main().mnuAddWaypoint.Choose();
  };
  const struct {
    const char* what;
    std::function<void()> enter;
  } kWays[] = {{"quick line", [&] { Quick("30", "20", "EAN32"); }},
               {"cells",
                [&] {
                  Edit(1, kDepth, "30");
                  Edit(1, kTime, "20");
                }},
               {"clipboard", paste},
               {"dialog", dialog}};
  for (const auto& way : kWays) {
    for (const bool ascent : {true, false}) {
      p.Editor().mnuclearallwaypoints();
      ASSERT_EQ(Pane().legs.fgLegs.Rows(), 2);
      Pane().legs.ckAscent.Set(ascent);
      way.enter();
      EXPECT_EQ(p.Editor().UserActions.GetLength(), ascent ? 2 : 1) << way.what;
      EXPECT_EQ(p.Editor().State(), ascent ? EditState::Ascent : EditState::Legs) << way.what;
      EXPECT_EQ(Pane().legs.ckAscent.Value, ascent) << way.what;
    }
  }
  EXPECT_TRUE(p.platform.boxes.empty());
}

TEST_F(PlanPane, AGasChosenInOneOfSeveralSelectedLegsIsThatOfAll) {
  const std::string before = Rows();
  Legs().Select(2, kGas, 1, 2);
  Edit(2, kGas, "Tx15/55");
  EXPECT_EQ(Legs().Text(1, kGas) + " " + Legs().Text(2, kGas) + " " + Legs().Text(3, kGas), "Tx15/55 Tx15/55 EAN32");
  EXPECT_EQ(Rows(), Typed());
  ASSERT_TRUE(Undo());
  EXPECT_EQ(Rows(), before);
  Legs().Select(2, kGas, 1, 2);
  Edit(2, kGas, "no gas");
  EXPECT_EQ(Legs().Text(1, kGas) + Legs().Text(2, kGas), "Tx18/45Tx18/45");
  EXPECT_TRUE(Pane().lbFault.Visible);
  EXPECT_EQ(Rows(), before);
}

TEST_F(PlanPane, PastedLegsLieInTheirOrderBehindTheSelectedOnesAndGoInOneStep) {
  const std::string before = Rows();
  const auto paste = [&](const char* text) {
    p.platform.clipboardText = text;
    Pane().legs.mnuPasteLegs.Choose();
  };
  Legs().Select(1, kDepth);
  paste("55\t2\tTx18/45\n50,5\t3\tTx18/45\n");
  EXPECT_EQ(Legs().Text(1, kDepth) + " " + Legs().Text(2, kDepth) + " " + Legs().Text(3, kDepth) + " " +
                Legs().Text(4, kDepth),
            "60 55 50.5 45");
  EXPECT_EQ(Legs().SelectedRow, 3) << "what is pasted next follows";
  EXPECT_EQ(Rows(), Typed());
  ASSERT_TRUE(Undo());
  EXPECT_EQ(Rows(), before);
  Legs().Select(2, kTime, 2, 3);
  paste("7");
  EXPECT_EQ(Legs().Text(2, kTime) + " " + Legs().Text(3, kTime), "7 7");
  ASSERT_TRUE(Undo());
  EXPECT_EQ(Rows(), before);
  for (const char* text : {"", "see you on Friday", "a\tb\n"}) {
    paste(text);
    EXPECT_EQ(Pane().lbFault.Caption.Get(), p.program.Texts().GetResString(Text::PasteHoldsNoLegs)) << text;
    EXPECT_EQ(Rows(), before);
  }
  EXPECT_TRUE(p.platform.boxes.empty());
}

}  // namespace
}  // namespace tav
