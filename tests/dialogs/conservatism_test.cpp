#include "dialogs/conservatism.h"

#include <gtest/gtest.h>

#include "support/dialog_fixture.h"

namespace tav {
namespace {

using test::Dialogs;

TEST(Conservatism, TakesAPairOnlyWithinTheLimitAndLowBelowHigh) {
  struct {
    std::string low, high;
    bool veryHigh;
    bool taken;
    int boxes;
    BoxAnswer answer;
  } const cases[] = {
      {"0.3", "0.8", false, true, 0, BoxAnswer::OK},    {"30", "85", false, true, 0, BoxAnswer::OK},
      {"30", "0.85", false, true, 0, BoxAnswer::OK},    {"30", "1.5", false, false, 1, BoxAnswer::OK},
      {"85", "30", false, false, 1, BoxAnswer::OK},     {"30", "101", false, false, 1, BoxAnswer::OK},
      {"0.80", "0.80", false, false, 1, BoxAnswer::OK}, {"0.3", "1.1", false, false, 1, BoxAnswer::OK},
      {"0.3", "1.1", true, true, 1, BoxAnswer::OK},     {"0.3", "1.1", true, false, 1, BoxAnswer::Cancel},
      {"0.5", "1.1", true, true, 0, BoxAnswer::OK},     {"0.5", "1.21", true, false, 1, BoxAnswer::OK},
      {"", "0.8", false, false, 1, BoxAnswer::OK},      {"low", "0.8", false, false, 1, BoxAnswer::OK}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.low + " " + each.high);
    Dialogs d;
    d.Open();
    d.platform.answers = {each.answer};
    frmConservatism dialog(d.Services(each.veryHigh));
    dialog.Load();
    dialog.Text1.Type(each.low);
    dialog.Text2.Type(each.high);
    dialog.cbOK.Press();
    EXPECT_EQ(!dialog.IsLoaded(), each.taken);
    EXPECT_EQ(static_cast<int>(d.platform.boxes.size()), each.boxes);
    EXPECT_EQ(d.Document().Template.TemplateChanged, each.taken);
    EXPECT_EQ(d.Document().Modified, each.taken);
  }
}

TEST(Conservatism, AFactorFrom2OnIsPerCent) {
  Dialogs d;
  d.platform.separators = {",", "."};
  d.Open();
  frmConservatism dialog(d.Services());
  dialog.Load();
  const std::pair<const char*, const char*> fields[] = {{"30", "0,30"},   {"2", "0,02"},    {"0.3", "0,30"},
                                                        {"85,4", "0,85"}, {"1,99", "1,99"}, {"low", "low"}};
  for (const auto& [typed, shown] : fields) {
    dialog.Text1.Type(typed);
    dialog.Text1.Leave();
    EXPECT_EQ(dialog.Text1.Text.Get(), shown);
  }
  dialog.Text1.Type("30");
  dialog.Text2.Type("85");
  dialog.cbOK.Press();
  EXPECT_EQ(d.Document().Template.GFLow, Single(0.3));
  EXPECT_EQ(d.Document().Template.GFHigh, Single(0.85));
}

TEST(Conservatism, AppliesToThePlanAndKeepsTheCheckOfARefusal) {
  Dialogs d;
  frmWaypointEditor& editor = d.Open();
  ASSERT_TRUE(editor.AddUserWaypoint(40, 30, 0));
  ASSERT_TRUE(editor.StartDeco());
  const Single before = editor.CurrentRunTime();
  frmConservatism dialog(d.Services());
  dialog.Load();
  dialog.Text1.Type("0.20");
  dialog.Text2.Type("0.70");
  dialog.cbOK.Press();
  EXPECT_GT(editor.CurrentRunTime(), before);

  frmConservatism refused(d.Services());
  refused.Load();
  refused.Check1.Set(false);
  EXPECT_FALSE(refused.Text1.Enabled);
  refused.Check1.Set(true);
  refused.Text1.Type("0.9");
  refused.Check1.Set(false);
  refused.cbOK.Press();
  EXPECT_TRUE(refused.IsLoaded());
  EXPECT_FALSE(d.Document().Template.UseGF);
  refused.cbCancel.Press();
  EXPECT_TRUE(d.Document().Template.UseGF) << "given up";
}

TEST(Conservatism, KeepsAFactorToTheDigitThatNobodyTyped) {
  Dialogs d;
  d.Open();
  d.Document().Template.GFHigh = 0.855;
  frmConservatism dialog(d.Services());
  dialog.Load();
  dialog.Text2.Leave();
  dialog.Text1.Type("40");
  dialog.cbOK.Press();
  EXPECT_EQ(d.Document().Template.GFLow, Single(0.4));
  EXPECT_EQ(d.Document().Template.GFHigh, Single(0.855));
}

}  // namespace
}  // namespace tav
