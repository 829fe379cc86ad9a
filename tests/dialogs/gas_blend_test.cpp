#include "dialogs/gas_blend.h"

#include <gtest/gtest.h>

#include "support/dialog_fixture.h"

namespace tav {
namespace {

using test::Dialogs;

TEST(GasBlend, KeepsTheSumAt100) {
  Dialogs d;
  d.Open();
  frmGasBlend dialog(d.Services());
  dialog.SetTemplate(d.Active());
  dialog.Load();
  struct {
    TextBox& field;
    std::string typed, o2, n2, he;
  } const steps[] = {{dialog.tbO2, "32", "32", "68", "0"},   {dialog.tbHe, "70", "32", "0", "68"},
                     {dialog.tbO2, "101", "32", "0", "68"},  {dialog.tbO2, "0", "32", "0", "68"},
                     {dialog.tbO2, "word", "32", "0", "68"}, {dialog.tbHe, "word", "32", "68", "0"},
                     {dialog.tbHe, "45", "32", "23", "45"},  {dialog.tbO2, "18", "18", "37", "45"}};
  for (const auto& step : steps) {
    step.field.Type(step.typed);
    step.field.Leave();
    EXPECT_EQ(dialog.tbO2.Text.Get() + "/" + dialog.tbN2.Text.Get() + "/" + dialog.tbHe.Text.Get(),
              step.o2 + "/" + step.n2 + "/" + step.he)
        << step.typed;
  }
  dialog.UDHe.Down();
  EXPECT_EQ(dialog.tbHe.Text.Get(), "44");
}

TEST(GasBlend, ReturnIsOKWhenNothingIsLeftToWorkOut) {
  Dialogs d;
  d.Open();
  frmGasBlend dialog(d.Services());
  dialog.SetTemplate(d.Active());
  dialog.Load();
  dialog.tbBlendName.Type("Mine");
  dialog.tbO2.Type("32");
  dialog.tbO2.PressReturn();
  EXPECT_TRUE(dialog.IsLoaded());
  EXPECT_EQ(dialog.tbN2.Text.Get(), "68");
  dialog.tbHe.PressReturn();
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_EQ(double{d.Document().Template.Blends.back().N2}, 68);
}

TEST(GasBlend, OKShowsWhatBecameOfAnEntryBeforeItCounts) {
  struct {
    std::string o2, he, becomes;
  } const cases[] = {{"32", "70", "32/68"}, {"320", "0", "100/0"}, {"x", "0", "100/0"}, {"20.6", "0", "21/0"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.o2 + "/" + each.he);
    Dialogs d;
    d.Open();
    const std::size_t before = d.Document().Template.Blends.size();
    frmGasBlend dialog(d.Services());
    dialog.SetTemplate(d.Active());
    dialog.Load();
    dialog.tbBlendName.Type("Mine");
    dialog.tbO2.Type(each.o2);
    dialog.tbO2.Leave();
    if (each.he != "0") dialog.tbHe.Type(each.he);
    dialog.cbOK.Press();
    EXPECT_TRUE(dialog.IsLoaded());
    EXPECT_EQ(d.platform.boxes.size(), 1U);
    EXPECT_EQ(dialog.tbO2.Text.Get() + "/" + dialog.tbHe.Text.Get(), each.becomes);
    EXPECT_EQ(d.Document().Template.Blends.size(), before);
    dialog.cbOK.Press();
    EXPECT_EQ(d.Document().Template.Blends.size(), before + 1);
  }
}

TEST(GasBlend, AddsANameOnceAndRefusesWhatTheFileCannotHold) {
  struct {
    std::string name;
    std::size_t boxes;
    std::size_t added;
  } const cases[] = {{"", 1, 0},       {"Air", 1, 0}, {"EAN32", 1, 0}, {"ean032", 1, 0},
                     {"My mix", 0, 1}, {"a:b", 1, 0}, {"a,b", 1, 0}};
  for (const auto& each : cases) {
    Dialogs d;
    d.Open();
    const std::size_t before = d.Document().Template.Blends.size();
    frmGasBlend dialog(d.Services());
    dialog.SetTemplate(d.Active());
    dialog.Load();
    dialog.tbBlendName.Type(each.name);
    dialog.cbOK.Press();
    EXPECT_EQ(dialog.IsLoaded(), each.boxes > 0) << each.name;
    EXPECT_EQ(d.platform.boxes.size(), each.boxes) << each.name;
    EXPECT_EQ(d.Document().Template.Blends.size() - before, each.added) << each.name;
  }
}

}  // namespace
}  // namespace tav
