#include "dialogs/cylinders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/general_info.h"
#include "persist/profile_file.h"
#include "supply/supply_settings.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;
using testing::ElementsAre;
using testing::HasSubstr;

/// A plan of 30 m for 20 minutes on air, with its ascent, and the dialog of its cylinders.
struct Planned {
  Planned() {
    p.Start();
    p.Editor().AddUserWaypoint(30, 20, 0);
    p.Editor().StartDeco();
  }
  void Dialog(const std::function<void(frmCylinders&)>& act) {
    p.platform.onModal.emplace_back([&act](Form& form) { act(dynamic_cast<frmCylinders&>(form)); });
    p.Main().mnuCylinders.Choose();
  }
  [[nodiscard]] std::vector<Cylinder>& Cylinders() { return p.Document().Template.Cylinders; }

  HeadlessProgram p;
};

void ChooseKind(frmCylinders& dialog, const std::string& name) {
  const auto& kinds = dialog.cmbKind.Items.Get();
  dialog.cmbKind.Select(static_cast<int>(std::ranges::find(kinds, name) - kinds.begin()));
}

constexpr int kCount = 1;
constexpr int kSize = 2;
constexpr int kUnit = 3;
constexpr int kRated = 4;
constexpr int kFill = 5;
constexpr int kReserve = 6;
constexpr int kVerdict = 7;

TEST(CylinderDialog, TellsTheVerdictWhileOneTypesAndIsOneStepOfUndo) {
  Planned plan;
  ASSERT_FALSE(plan.p.Document().Template.Cylinders.size());
  plan.p.Document().Modified = false;
  plan.Dialog([](frmCylinders& dialog) {
    EXPECT_EQ(dialog.fgSupply.Cells.Get().size(), 0U);
    EXPECT_FALSE(dialog.cbRemove.Enabled);
    // The gases that are breathed come first, in the order of the dive.
    ChooseKind(dialog, "D12 (2 x 12 l)");
    dialog.cbAdd.Press();
    ChooseKind(dialog, "AL80 (77.4 cu ft)");
    dialog.fgCylinders.PressInsert();
    EXPECT_EQ(dialog.fgCylinders.Text(1, 0), "Air");
    EXPECT_EQ(dialog.fgCylinders.Text(2, 0), "EAN50");
    EXPECT_EQ(dialog.fgCylinders.Text(2, kRated), "3000");
    const auto& supply = dialog.fgSupply.Cells.Get();
    ASSERT_EQ(supply.size(), 4U);  // oxygen is breathed, too, and has no cylinder
    EXPECT_EQ(supply[1][kVerdict].text, "enough");
    EXPECT_EQ(supply[3][kVerdict].text, "no cylinder");
    EXPECT_EQ(supply[3][kVerdict].colour, kRed);
    dialog.fgCylinders.Edit(1, kFill, "60");
    EXPECT_EQ(dialog.fgSupply.Cells.Get()[1][kVerdict].text, "too little");
    dialog.fgCylinders.Edit(1, kFill, "230");
    const auto legs = dialog.fgLegs.Cells.Get();
    ASSERT_EQ(legs.size(), 2U);
    EXPECT_THAT(legs[1].back().text, HasSubstr("2 divers x 2 x 20 l/min x 4.013 bar x 2 min = 642 l, + ascent "));
    dialog.tbTeam.Type("1");
    EXPECT_THAT(dialog.fgLegs.Cells.Get()[1].back().text, HasSubstr("1 diver x 2 x 20 l/min"));
    dialog.cmbRule.Select(2);
    EXPECT_NE(dialog.fgLegs.Cells.Get()[1][7].text, legs[1][7].text);
    dialog.cbOK.Press();
    EXPECT_FALSE(dialog.IsLoaded());
  });
  const std::vector<Cylinder> told{{"Air", 2, 12, 0, 230, 50}, {"EAN50", 1, 77.4, 3000, 3000, 500}};
  EXPECT_EQ(plan.Cylinders(), told);
  EXPECT_TRUE(plan.p.Document().Modified);
  EXPECT_EQ(ReadSupplyChoice(plan.p.platform.Services().settings), (SupplyChoice{1, 2, 2, TurnRule::Thirds}));
  EXPECT_EQ(plan.p.Document().Template.Team, (SupplyChoice{1, 2, 2, TurnRule::Thirds}));
  // The file has them, and they come back.
  FormatFaults faults("plan", FormatFaults::Mode::StopAtFirstError);
  const auto file =
      ReadProfileText(WriteDiveRecord(plan.p.Document().Template, 0, plan.p.Editor().UserActions), faults);
  EXPECT_EQ(file.dives.at(0).Template.Cylinders, told);

  plan.p.Main().mnuUndo.Choose();
  EXPECT_TRUE(plan.Cylinders().empty());
  EXPECT_EQ(plan.p.Editor().State(), EditState::Ascent);
  plan.p.Main().mnuRedo.Choose();
  EXPECT_EQ(plan.Cylinders(), told);
  plan.Dialog([](frmCylinders& dialog) {
    EXPECT_EQ(dialog.tbTeam.Text.Get(), "1");
    dialog.fgCylinders.SelectCell(1, 0);
    dialog.fgCylinders.PressDelete();
    EXPECT_EQ(dialog.fgCylinders.Rows(), 2);
    dialog.cbCancel.Press();
  });
  EXPECT_EQ(plan.Cylinders(), told);
}

TEST(CylinderDialog, MarksWhatCanNotBeAndRefusesIt) {
  struct {
    int column;
    const char* text;
    const char* fault;
  } const cases[] = {{kCount, "0", "Line 1, Count: must be 1 to 99"},
                     {kCount, "1.5", "Line 1, Count: must be 1 to 99"},
                     {kCount, "two", "Line 1, Count: must be 1 to 99"},
                     {kSize, "0", "Line 1, Size (l): must be 0.1 to 1000"},
                     {kFill, "1001", "Line 1, Fill (bar): must be 0 to 1000"},
                     {kFill, "", "Line 1, Fill (bar): must be 0 to 1000"},
                     {kReserve, "201", "Line 1, Reserve (bar): is above the fill"}};
  for (const auto& c : cases) {
    Planned plan;
    plan.Dialog([&](frmCylinders& dialog) {
      ChooseKind(dialog, "12 l");
      dialog.cbAdd.Press();
      dialog.fgCylinders.Edit(1, c.column, c.text);
      EXPECT_EQ(dialog.lbFault.Caption.Get(), c.fault);
      EXPECT_EQ(dialog.fgCylinders.Cells.Get()[1][static_cast<std::size_t>(c.column)].colour, kRed);
      dialog.cbOK.Press();
      EXPECT_TRUE(dialog.IsLoaded());
    });
    EXPECT_EQ(plan.p.platform.LastBox().text, c.fault);
    EXPECT_TRUE(plan.Cylinders().empty());
  }
  Planned plan;
  plan.Dialog([](frmCylinders& dialog) {
    dialog.tbStress.Type("0.5");
    EXPECT_THAT(dialog.lbFault.Caption.Get(), HasSubstr("must be 1 to 10"));
    EXPECT_EQ(dialog.tbStress.ForeColor.Get(), kRed);
    dialog.cbOK.Press();
    EXPECT_TRUE(dialog.IsLoaded());
  });
}

std::vector<std::string> Column(const frmCylinders& dialog, int column) {
  std::vector<std::string> texts;
  for (int row = 1; row < dialog.fgCylinders.Rows(); ++row) texts.push_back(dialog.fgCylinders.Text(row, column));
  return texts;
}

void ChooseSet(frmCylinders& dialog, const std::string& name) {
  const auto& sets = dialog.cmbSet.Items.Get();
  dialog.cmbSet.Select(static_cast<int>(std::ranges::find(sets, name) - sets.begin()));
}

TEST(CylinderDialog, TakesSetsWhoseGasesThePlanLacksAreToBeChosen) {
  Planned plan;
  std::erase_if(plan.p.Document().Template.Blends, [](const GasMix& mix) { return mix.Name == "EAN50"; });
  plan.Dialog([&](frmCylinders& dialog) {
    ChooseSet(dialog, "Twinset with two stages");
    dialog.cbTakeSet.Press();
    EXPECT_THAT(Column(dialog, 0), ElementsAre("", "EAN50", "Oxygen"));
    EXPECT_THAT(Column(dialog, kSize), ElementsAre("12", "11.1", "5.7"));
    EXPECT_EQ(dialog.lbFault.Caption.Get(), "Line 1, Gas: choose a gas of the plan");
    const auto& cells = dialog.fgCylinders.Cells.Get();
    EXPECT_EQ(cells[1][0].fault, "choose a gas of the plan");
    EXPECT_EQ(cells[2][0].colour, kRed);
    EXPECT_EQ(cells[3][0].colour, -1);
    EXPECT_EQ(dialog.fgSupply.Cells.Get()[1][kVerdict].text, "no cylinder") << "of air";
    EXPECT_FALSE(dialog.cbDeleteSet.Enabled || dialog.cbSaveSet.Enabled);
    dialog.cbOK.Press();
    EXPECT_TRUE(dialog.IsLoaded());
    dialog.fgCylinders.Edit(1, 0, "Air");
    dialog.fgCylinders.Edit(2, 0, "EAN32");
    EXPECT_EQ(dialog.lbFault.Caption.Get(), "");
    dialog.tbSetName.Type(" Wreck ");
    dialog.cbSaveSet.Press();
    EXPECT_EQ(dialog.cmbSet.Text(), "Wreck");
    dialog.cbCancel.Press();
  });
  EXPECT_TRUE(plan.Cylinders().empty());
  plan.p.platform.settings[{"CylinderSets", "Cylinder3"}] = "Oxygen: 1/";
  plan.Dialog([&](frmCylinders& dialog) {
    EXPECT_THAT(dialog.lbFault.Caption.Get(), HasSubstr("entry 3: "));
    ChooseSet(dialog, "Wreck");
    dialog.cbTakeSet.Press();
    EXPECT_THAT(Column(dialog, 0), ElementsAre("Air", "EAN32"));
    dialog.fgCylinders.Edit(1, kFill, "232");
    plan.p.platform.answers = {BoxAnswer::No, BoxAnswer::Yes};
    dialog.cbSaveSet.Press();
    EXPECT_EQ(plan.p.platform.LastBox().text, "There is a set \"Wreck\" already. Replace it?");
    EXPECT_THAT(plan.p.platform.settings.at({"CylinderSets", "Cylinder1"}), HasSubstr("200"));
    dialog.cbSaveSet.Press();
    EXPECT_THAT(plan.p.platform.settings.at({"CylinderSets", "Cylinder1"}), HasSubstr("232"));
    EXPECT_EQ(dialog.lbFault.Caption.Get(), "");
    plan.p.platform.answers = {BoxAnswer::Yes};
    dialog.cbDeleteSet.Press();
    EXPECT_EQ(dialog.cmbSet.Items.Get().size(), 3U);
    dialog.cbOK.Press();
  });
  EXPECT_EQ(plan.Cylinders().size(), 2U);
}

TEST(CylinderDialog, MovesARowInTheOrderOfUseAndNamesTheUnits) {
  Planned plan;
  plan.Cylinders() = {{"Air", 1, 12, 0, 200, 50}, {"EAN50", 1, 7, 0, 200, 20}, {"Air", 1, 77.4, 3000, 3000, 500}};
  plan.Dialog([](frmCylinders& dialog) {
    const Grid& grid = dialog.fgCylinders;
    EXPECT_EQ(grid.Text(0, kSize) + ", " + grid.Text(0, kFill), "Size (l, cu ft), Fill (bar, psi)");
    EXPECT_FALSE(dialog.cbUp.Enabled);
    dialog.fgCylinders.Select(3, kSize);
    EXPECT_FALSE(dialog.cbDown.Enabled);
    dialog.cbUp.Press();
    grid.Ask(Grid::Wish::MoveUp);
    grid.Ask(Grid::Wish::MoveUp);  // it is the first by now
    EXPECT_EQ(grid.SelectedRow, 1);
    EXPECT_THAT(Column(dialog, kSize), ElementsAre("77.4", "12", "7"));
    EXPECT_EQ(dialog.fgSupply.Cells.Get()[1][1].text, "77.4 cu ft + 12 l");
    dialog.cbRemove.Press();
    EXPECT_EQ(grid.Text(0, kReserve), "Reserve (bar)");
    dialog.cbCancel.Press();
  });
}

TEST(CylinderDialog, KeepsTheGasOfACylinderWhoseUnitChanges) {
  Planned plan;
  plan.Dialog([](frmCylinders& dialog) {
    ChooseKind(dialog, "12 l");
    dialog.cbAdd.Press();
    EXPECT_EQ(dialog.fgCylinders.EditorOf(1, kRated).kind, Grid::Editor::Kind::None);
    dialog.fgCylinders.Edit(1, kUnit, "cu ft, psi");
    EXPECT_EQ(dialog.fgCylinders.EditorOf(1, kRated).kind, Grid::Editor::Kind::Text);
    const auto cells = dialog.fgCylinders.Cells.Get()[1];
    EXPECT_EQ(cells[kSize].text + " " + cells[kRated].text + " " + cells[kFill].text, "83.7 2901 2901");
    EXPECT_EQ(dialog.fgSupply.Cells.Get()[1][3].text, "2402 l");  // 83.7 cu ft in place of 83.65
    dialog.fgCylinders.Edit(1, kUnit, "l, bar");
    EXPECT_EQ(dialog.fgCylinders.Text(1, kSize), "12");
  });
}

TEST(DiveInformationWindow, HasATabOfTheGasSupplyWhereCylindersAreTold) {
  Planned plan;
  const auto look = [&](const std::function<void(frmGeneralInfo&)>& act) {
    plan.p.platform.onModal.emplace_back([&act](Form& form) { act(dynamic_cast<frmGeneralInfo&>(form)); });
    plan.p.Main().mnuDiveInformation.Choose();
  };
  look([](frmGeneralInfo& window) {
    EXPECT_FALSE(window.TabStrip2.Visible || window.frSupply.Visible);
    EXPECT_TRUE(window.Frame2.Visible);
  });
  plan.Cylinders() = {{"Air", 2, 12, 0, 200, 50}};
  look([&](frmGeneralInfo& window) {
    EXPECT_TRUE(window.TabStrip2.Visible);
    window.TabStrip2.Select(1);
    EXPECT_TRUE(window.frSupply.Visible && !window.Frame2.Visible);
    EXPECT_EQ(window.fgSupply.Cells.Get()[1][1].text, "2 x 12 l");
    EXPECT_EQ(window.fgLegs.Cells.Get().size(), 2U);
    window.cbCopy.Press();
  });
  const std::string copied = plan.p.platform.clipboardText;
  EXPECT_THAT(copied, HasSubstr("Gas: Air, Cylinders: 2 x 12 l, Fill: 200 bar, Carried: 4800 l,"));
  EXPECT_THAT(copied, HasSubstr("Worked out as: 2 divers x 2 x 20 l/min x 4.013 bar x 2 min = 642 l, + ascent "));
}

}  // namespace
}  // namespace tav
