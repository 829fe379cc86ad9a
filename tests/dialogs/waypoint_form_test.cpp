#include "dialogs/waypoint_form.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "dialogs/conservatism.h"
#include "model/text_id.h"
#include "support/dialog_fixture.h"
#include "support/text_names.h"

namespace tav {
namespace {

using test::Dialogs;

/// The dialog on a new row of a plan at sea level, PPO2 up to 1.4 and END down to 30 m, oxygen not narcotic.
struct WaypointForm : testing::Test {
  WaypointForm() {
    d.Open();
    Template().O2Narcotic = false;
    Template().StartPressure = 1;
    Template().MaxPPO2 = 1.4;
    Template().MaximalEND = 30;
  }
  frmWaypointForm& At(double depth) {
    profile.Row(0).Depth = depth;
    form = std::make_unique<frmWaypointForm>(d.Services());
    form->data(profile, -1);
    form->Load();
    return *form;
  }
  DiveTemplate& Template() { return d.Document().Template; }
  static std::string Nitrox(const frmWaypointForm& f) { return f.Text1.Text.Get() + "/" + f.Text2.Text.Get(); }
  static std::string Panel(const frmWaypointForm& f) {
    return f.Text10.Caption.Get() + "|" + f.Text11.Caption.Get() + "|" + f.Text12.Caption.Get();
  }
  Dialogs d;
  ClassProfile profile;
  std::unique_ptr<frmWaypointForm> form;
};

TEST_F(WaypointForm, EachButtonMakesTheMixOfItsFieldsAndSelectsIt) {
  // At 40 m, 5 bar: O2 1.4 / 5 = 0.28; nitrogen at most 40 / 50 * 0.79 = 0.63; nitrox would hold 0.72.
  struct {
    double depth;
    Button frmWaypointForm::*add;
    std::string name;  // empty: not offered
    double o2, n2, he;
  } const cases[] = {{30, &frmWaypointForm::cbNitroxAdd, "EAN35", 35, 65, 0},
                     {0, &frmWaypointForm::cbNitroxAdd, "EAN100", 100, 0, 0},
                     {40, &frmWaypointForm::cbNitroxAdd, "", 0, 0, 0},
                     {40, &frmWaypointForm::cbTrimixAdd, "Tx28/9", 28, 63, 9},
                     {40, &frmWaypointForm::cbHelioxAdd, "H72", 28, 0, 72}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::to_string(each.depth) + " " + each.name);
    frmWaypointForm& f = At(each.depth);
    const std::size_t before = Template().Blends.size();
    EXPECT_EQ((f.*each.add).Visible.Get(), !each.name.empty());
    (f.*each.add).Press();
    ASSERT_EQ(Template().Blends.size(), before + (each.name.empty() ? 0 : 1));
    if (each.name.empty()) {
      EXPECT_EQ(Nitrox(f), "n/a/n/a");
      continue;
    }
    const GasMix& made = Template().Blends.back();
    EXPECT_EQ(made.Name, each.name);
    EXPECT_EQ((std::array{double{made.O2}, double{made.N2}, double{made.He}}), (std::array{each.o2, each.n2, each.he}));
    EXPECT_EQ(profile.Row(0).GasMixName, each.name);
    EXPECT_EQ(profile.Row(0).MixNumber, static_cast<std::int16_t>(before));
  }
}

TEST_F(WaypointForm, AGasCanBeTypedByItsName) {
  frmWaypointForm& f = At(30);
  f.tbTime.Type("20");
  const std::size_t before = Template().Blends.size();
  f.Combo1.Type("80/40");
  f.cbOK.Press();
  EXPECT_EQ(d.platform.boxes.size(), 1U);
  EXPECT_EQ(Template().Blends.size(), before);
  f.Combo1.Type("20/40");
  EXPECT_EQ(f.tbHe.Text.Get(), "40");
  f.cbOK.Press();
  ASSERT_EQ(Template().Blends.size(), before + 1);
  EXPECT_EQ(profile.Row(0).GasMixName, "Tx20/40");
  EXPECT_EQ(profile.Row(0).MixNumber, static_cast<std::int16_t>(before));
}

TEST_F(WaypointForm, AMixWhoseNameStandsForAnotherGasIsTold) {
  Template().Blends.push_back({"EAN35", 36, 64, 0});
  At(30).cbNitroxAdd.Press();
  EXPECT_EQ(form->tbO2.Text.Get(), "36");
  EXPECT_EQ(d.platform.boxes.size(), 1U);
  Template().Blends.back() = {"EAN35", 35, 65, 0};
  form->cbNitroxAdd.Press();
  EXPECT_EQ(d.platform.boxes.size(), 1U);
}

TEST_F(WaypointForm, AMixMadeOnALaterDiveAsksToSaveTheSeries) {
  frmWaypointEditor& first = d.forms(d.Active());
  ASSERT_TRUE(first.AddUserWaypoint(30, 20, 0));
  ASSERT_TRUE(first.StartDeco());
  d.forms.AddRepetitiveDive(first.Tag(), 60);
  d.Document(first.Tag()).Modified = false;
  At(30).cbNitroxAdd.Press();
  EXPECT_TRUE(d.Document().Modified);
  EXPECT_TRUE(Template().TemplateChanged);
  EXPECT_TRUE(d.Document(first.Tag()).Modified);
}

TEST_F(WaypointForm, ThePanelTellsOfTheMixUnderThePointer) {
  const std::string end = Numbered("|    <ReportEND>:  ");
  const std::string ppo2 = Numbered("|<ReportPPO2>:  ");
  struct {
    double depth;
    bool o2Narcotic;
    Frame frmWaypointForm::*frame;
    std::string panel;
  } const cases[] = {
      {30, false, &frmWaypointForm::Frame4, Numbered("<Nitrox>\r\n35/0/65\r\n") + end + "22.9m" + ppo2 + "1.40 bar"},
      {40, false, &frmWaypointForm::Frame4, Numbered("<Nitrox>\r\n Gas N/A||")},
      {40, false, &frmWaypointForm::Frame5, Numbered("<Trimix>\r\n28/9/63\r\n") + end + "29.9m" + ppo2 + "1.40 bar"},
      {40, false, &frmWaypointForm::Frame6, Numbered("<Heliox>\r\n28/72/0\r\n") + end + "INF m" + ppo2 + "1.40 bar"},
      {40, true, &frmWaypointForm::Frame6,
       Numbered("<Heliox>\r\n28/72/0\r\n") + end + "4.0m" + ppo2 + Numbered("1.40 bar\r\n<ReportO2Narcotic>")}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.panel);
    Template().O2Narcotic = each.o2Narcotic;
    frmWaypointForm& f = At(each.depth);
    EXPECT_FALSE(f.Text10.Visible);
    (f.*each.frame).MoveMouse();
    EXPECT_EQ(Panel(f), each.panel);
    EXPECT_TRUE(f.Text10.Visible && f.Text11.Visible && f.Text12.Visible);
    f.Frame1.MoveMouse();
    EXPECT_FALSE(f.Text10.Visible || f.Text11.Visible || f.Text12.Visible);
  }
  // 50 % in 40 m: PPO2 2.5; a typed nitrox with narcotic oxygen has the END of the depth.
  frmWaypointForm& f = At(40);
  f.Text1.Type("50");
  EXPECT_EQ(f.Text12.ForeColor.Get(), kRed);
  f.Text1.Type("21");
  EXPECT_EQ(Panel(f),
            Numbered("<Nitrox>\r\n21/0/79\r\n") + end + "40.0m" + ppo2 + Numbered("1.05 bar\r\n<ReportO2Narcotic>"));
  EXPECT_EQ(f.Text11.ForeColor.Get(), kRed);
  EXPECT_EQ(f.Text12.ForeColor.Get(), kBlack);
}

TEST_F(WaypointForm, AFieldLeftEmptyShowsItsMixAgainAndNoOtherChanges) {
  frmWaypointForm& f = At(30);
  f.Text1.Type("28");
  f.Text9.Enter();
  EXPECT_EQ(f.Text9.Text.Get(), "");
  f.Text9.Leave();
  EXPECT_EQ(f.Text9.Text.Get() + "/" + f.Text7.Text.Get(), "35/65");
  EXPECT_TRUE(f.cbHelioxAdd.Visible);
  f.Text2.Enter();
  f.Text2.Leave();
  EXPECT_EQ(Nitrox(f), "28/72");
  f.tbDepth.PressReturn();
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_EQ(Nitrox(f), "35/65");
}

TEST_F(WaypointForm, TypingKeepsOnlyWhatANumberNeeds) {
  frmWaypointForm& f = At(10);
  const std::pair<std::string, std::string> depths[] = {{"4a2.3", "42.3"}, {"x", ""}, {"-3", "-3"}, {"+12m", "+12m"}};
  for (const auto& [typed, kept] : depths) {
    f.tbDepth.Type(typed);
    EXPECT_EQ(f.tbDepth.Text.Get(), kept);
  }
  f.tbTime.Type("-2,5 min");
  EXPECT_EQ(f.tbTime.Text.Get(), "2,5");
}

TEST_F(WaypointForm, ThePanelFollowsTheTypedDepthAndHidesOffTheFrames) {
  frmWaypointForm& f = At(30);
  f.Frame4.MoveMouse();
  f.tbDepth.Type("0");
  EXPECT_EQ(Panel(f), Numbered("<Nitrox>\r\n100/0/0\r\n|    <ReportEND>:  0.0m|<ReportPPO2>:  1.00 bar"));
  f.udDepthSpin.Up();
  EXPECT_TRUE(f.Text12.Caption.Get().ends_with("1.10 bar"));
  for (const auto& off : {std::function<void()>([&] { f.Frame3.MoveMouse(); }), f.MouseMove}) {
    f.Frame4.MoveMouse();
    ASSERT_TRUE(f.Text10.Visible);
    off();
    EXPECT_FALSE(f.Text10.Visible);
  }
}

TEST_F(WaypointForm, TheChosenGasIsToldAtTheTypedDepthWithItsLimits) {
  // EAN32: (1.4 / 0.32 - 1) * 10 = 33.75 m; air 56.6 m; oxygen 4 m. END of air is the depth.
  struct {
    const char* gas;
    const char* depth;
    bool openCircuit;
    std::string ppo2, end, mod;
    bool ppo2Red, endRed, modRed;
  } const cases[] = {{"EAN32", "33.7", true, "1.40 bar", "27.6 m", "33.7 m", false, false, false},
                     {"EAN32", "34", true, "1.41 bar", "27.9 m", "33.7 m", true, false, true},
                     {"Air", "30.1", true, "0.84 bar", "30.1 m", "56.6 m", false, true, false},
                     {"Tx10/70", "5", true, "0.15 bar", "0.0 m", "130.0 m", true, false, false},
                     {"Tx10/70", "5", false, "0.15 bar", "0.0 m", "120.0 m", false, false, false},
                     {"EAN32", "31", false, "1.31 bar", "25.3 m", "30.6 m", true, false, true},
                     {"Oxygen", "", true, "", "", "", false, false, false},
                     {"Oxygen", "-4", true, "", "", "", false, false, false}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.gas) + " at " + each.depth);
    Template().OpenCircuit = each.openCircuit;
    frmWaypointForm& f = At(0);
    f.Combo1.Select(FindBlendIndex(each.gas, Template()));
    f.tbDepth.Type(each.depth);
    EXPECT_EQ(f.lbPPO2.Visible && f.lbEND.Visible && f.lbMOD.Visible, !each.ppo2.empty());
    if (each.ppo2.empty()) continue;
    EXPECT_TRUE(f.lbPPO2.Caption.Get().ends_with(": " + each.ppo2)) << f.lbPPO2.Caption.Get();
    EXPECT_TRUE(f.lbEND.Caption.Get().ends_with(": " + each.end)) << f.lbEND.Caption.Get();
    EXPECT_TRUE(f.lbMOD.Caption.Get().ends_with(": " + each.mod)) << f.lbMOD.Caption.Get();
    EXPECT_EQ(f.lbPPO2.ForeColor == kRed, each.ppo2Red);
    EXPECT_EQ(f.lbEND.ForeColor == kRed, each.endRed);
    EXPECT_EQ(f.lbMOD.ForeColor == kRed, each.modRed);
  }
}

TEST_F(WaypointForm, TheTimeOfALegIsToldWithTheMoveInIt) {
  struct : TextSource {
    [[nodiscard]] std::string GetResString(int id) const override {
      return id >= Text::WaypointDescent && id <= Text::WaypointLevel ? std::to_string(id) + " %1 %2 %3 %4"
                                                                      : TextSource::GetResString(id);
    }
  } const texts;
  // Down at 18 m/min; up at 9 to 6 m and at 3 above.
  struct {
    const char* depth;
    const char* time;
    std::string told;
  } const cases[] = {{"60", "25", Numbered("{WaypointDescent} 25 1.7 23.3 60 m")},
                     {"60", "1", Numbered("{WaypointDescentTakes} 1.7 %2 %3 %4")},
                     {"30", "12.5", Numbered("{WaypointLevel} 12.5 30 m %3 %4")},
                     {"3", "5", Numbered("{WaypointAscent} 5 3.7 1.3 3 m")},
                     {"3", "0", Numbered("{WaypointAscentTakes} 3.7 %2 %3 %4")},
                     {"", "5", ""},
                     {"60", "", ""},
                     {"20000", "5", ""},
                     {"-3", "5", ""}};
  ASSERT_TRUE(d.forms(d.Active()).AddUserWaypoint(30, 5, 0));
  const DialogServices services{d.forms, d.platform.Services(), texts, false, {}};
  frmWaypointForm f(services);
  f.data(profile, -1);
  f.Load();
  for (const auto& each : cases) {
    f.tbDepth.Type(each.depth);
    f.tbTime.Type(each.time);
    EXPECT_EQ(f.lbLegTime.Caption.Get(), each.told) << each.depth << " in " << each.time;
  }
}

TEST_F(WaypointForm, WhatThePlanCanNotTakeIsRefusedBeforeTheDialogCloses) {
  ASSERT_TRUE(d.forms(d.Active()).AddUserWaypoint(60, 30, 0));
  struct {
    const char* depth;
    const char* time;
    std::string refusal;
  } const cases[] = {{"-5", "10", Numbered("<DepthNegative>")},
                     {"-10.1325", "10", Numbered("<DepthNegative>")},
                     {"3", "10", Numbered("<AboveCeiling>\r\n<Ceiling>: ")},
                     {"60", "200000", Numbered("<LegTime>")}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.depth);
    frmWaypointForm& f = At(0);
    f.tbDepth.Type(each.depth);
    f.tbTime.Type(each.time);
    EXPECT_TRUE(f.lbCeiling.Visible);
    EXPECT_EQ(f.lbCeiling.ForeColor == kRed, Single(std::stod(each.depth)) < 60);
    for (const TextBox* box : {&f.Text1, &f.Text2, &f.Text4, &f.Text5, &f.Text6, &f.Text7, &f.Text9}) {
      EXPECT_EQ(box->Text.Get().find("nan"), std::string::npos);
    }
    f.cbOK.Press();
    EXPECT_TRUE(f.IsLoaded());
    EXPECT_TRUE(d.platform.LastBox().text.starts_with(each.refusal)) << d.platform.LastBox().text;
  }
  EXPECT_EQ(d.forms(d.Active()).UserActions.GetLength(), 1);
}

TEST_F(WaypointForm, ReturnInTheDepthIsOKUnlessMixesWereOvertyped) {
  frmWaypointForm& f = At(30);
  f.tbTime.Type("10");
  f.Text1.Type("28");
  f.tbDepth.PressReturn();
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_EQ(Nitrox(f), "35/65");
  f.tbDepth.Type("31");
  f.tbDepth.PressReturn();
  EXPECT_FALSE(f.IsLoaded());
  EXPECT_EQ(double{profile.Row(0).Depth}, 31);
}

// Number pads give a point where people write a comma.
TEST_F(WaypointForm, PointAndCommaBothStandAheadOfDecimalsWhereTheCommaIsTheSeparator) {
  d.platform.separators = {",", "."};
  for (const std::string depth : {"30.5", "30,5"}) {
    frmWaypointForm& f = At(0);
    f.tbDepth.Type(depth);
    EXPECT_EQ(Nitrox(f), "34/66") << depth;
    f.tbTime.Type("12");
    f.cbOK.Press();
    EXPECT_EQ(double{profile.Row(0).Depth}, 30.5) << depth;
  }
  frmConservatism unchanged(d.Services());
  unchanged.Load();
  EXPECT_EQ(unchanged.Text1.Text.Get(), "0,30");
  unchanged.cbOK.Press();
  EXPECT_FALSE(unchanged.IsLoaded());
  EXPECT_EQ(Template().GFLow, Single(0.3));
}

TEST_F(WaypointForm, AWindowClosedByTheUserIsACancel) {
  frmWaypointForm& f = At(30);
  f.Unload(true);
  EXPECT_EQ(double{profile.Row(0).Depth}, frmWaypointForm::kCancelled);
}

}  // namespace
}  // namespace tav
