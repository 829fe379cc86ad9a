#include "dialogs/check_pane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/cylinders.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;
using testing::HasSubstr;

/// 60 m on Tx10/70 from the surface, which is hypoxic there, with its ascent.
void PlanHypoxic(HeadlessProgram& p) {
  ASSERT_TRUE(p.Start());
  const auto gas = FindBlend("Tx10/70", p.Document().Template);
  ASSERT_TRUE(gas);
  ASSERT_TRUE(p.Editor().AddUserWaypoint(60, 20, *gas));
}

std::string Cell(frmCheckPane& pane, std::size_t row, std::size_t column) {
  const auto& cells = pane.fgFindings.Cells.Get();
  return row < cells.size() ? cells[row][column].text : "";
}

TEST(CheckPane, ShowsThePlanInFrontTheWorstFirst) {
  HeadlessProgram p;
  PlanHypoxic(p);
  frmCheckPane& pane = p.Main().Panes().CheckPane();
  EXPECT_TRUE(p.Main().mnuCheckPane.Checked);
  ASSERT_FALSE(pane.Findings().empty());
  EXPECT_EQ(pane.Findings().front().rule, Rule::Hypoxic);
  EXPECT_EQ(Cell(pane, 0, 0), "\u25a0");
  EXPECT_THAT(Cell(pane, 0, 1), HasSubstr("is too low to breathe"));
  EXPECT_THAT(pane.fgFindings.Cells.Get()[0][0].spoken, testing::StartsWith("Danger: Tx10/70"));
  EXPECT_THAT(p.Main().sbFindings.Caption.Get(), testing::StartsWith("\u25a0 1"));
  EXPECT_THAT(p.Main().sbFindings.ToolTipText.Get(), testing::StartsWith("Check: 1 danger"));
  EXPECT_EQ(pane.Caption.Get(), p.Main().sbFindings.ToolTipText.Get());

  // Another plan in front, an empty one, has nothing to mark.
  const std::int16_t hypoxic = p.Active();
  p.Main().mnuNewProfile.Choose();
  EXPECT_TRUE(pane.lbNothing.Visible && !pane.fgFindings.Visible);
  EXPECT_THAT(p.Main().sbFindings.ToolTipText.Get(), HasSubstr("nothing to mark"));
  p.Main().Activate(hypoxic);
  EXPECT_EQ(pane.Findings().front().rule, Rule::Hypoxic);
  // What mends the plan takes the finding away at once.
  p.Main().mnuclearallwaypoints.Choose();
  EXPECT_TRUE(pane.Findings().empty());
}

TEST(CheckPane, MarksTheRowsOfAFindingInTheGraph) {
  HeadlessProgram p;
  PlanHypoxic(p);
  frmCheckPane& pane = p.Main().Panes().CheckPane();
  const Finding first = pane.Findings().front();
  pane.fgFindings.Select(0);
  EXPECT_EQ(p.Look().selected, std::pair(first.firstRow, first.lastRow));
  p.Main().Panes().SelectRow(0);
  pane.fgFindings.PressReturn(0);
  EXPECT_EQ(p.Look().selected, std::pair(first.firstRow, first.lastRow));
  // Another plan has other rows.
  p.Main().StartAscent();
  EXPECT_EQ(p.Look().selected, std::pair(std::int16_t{0}, std::int16_t{0}));
}

TEST(CheckPane, IsOpenedByItsCount) {
  HeadlessProgram p;
  PlanHypoxic(p);
  p.Main().mnuCheckPane.Choose();
  EXPECT_FALSE(p.Main().mnuCheckPane.Checked);
  // Hidden, it still counts.
  p.Main().StartAscent();
  EXPECT_THAT(p.Main().sbFindings.Caption.Get(), testing::StartsWith("\u25a0 "));
  p.Main().sbFindings.Press();
  EXPECT_TRUE(p.Main().mnuCheckPane.Checked);
  EXPECT_EQ(p.view.focused, &p.Main().Panes().CheckPane());
}

TEST(CheckPane, CountsTheGasThatRunsShort) {
  HeadlessProgram p;
  PlanHypoxic(p);
  p.Main().StartAscent();
  p.platform.onModal.emplace_back([](Form& form) {
    auto& dialog = dynamic_cast<frmCylinders&>(form);
    dialog.cbAdd.Press();
    dialog.cbOK.Press();
  });
  p.Main().mnuCylinders.Choose();
  EXPECT_NE(std::ranges::count(p.Main().Panes().CheckPane().Findings(), Rule::GasShort, &Finding::rule), 0);
}

}  // namespace
}  // namespace tav
