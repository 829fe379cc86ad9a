#include <gtest/gtest.h>

#include "dialogs/conservatism.h"
#include "dialogs/gas_blend.h"
#include "dialogs/multi_level.h"
#include "dialogs/waypoint_form.h"
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

void Dive(frmWaypointEditor& editor) {
  ASSERT_TRUE(editor.AddUserWaypoint(30, 20, 0));
  ASSERT_TRUE(editor.StartDeco());
}

TEST(SurfaceInterval, RefusesWhatIsOutOfRange) {
  struct {
    std::string hours, minutes;
    double interval;  // -1: refused
  } const cases[] = {{"1", "30", 90}, {"1,5", "0", 90},   {"1.5", "0", 90}, {"1.500", "0", -1},
                     {"0", "0", 0},   {"24", "59", 1499}, {"25", "0", -1},  {"1", "60", -1},
                     {"1", "-1", -1}, {"one", "0", -1},   {"1", "", -1},    {"-1", "0", -1}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.hours + ":" + each.minutes);
    Dialogs d;
    d.platform.separators = {",", "."};
    frmWaypointEditor& editor = d.Open();
    Dive(editor);
    frmMultiLevel dialog(d.Services());
    dialog.Load();
    dialog.tbHours.Type(each.hours);
    dialog.tbMinutes.Type(each.minutes);
    dialog.Command2.Press();
    EXPECT_EQ(dialog.IsLoaded(), each.interval < 0);
    EXPECT_EQ(d.platform.boxes.size(), each.interval < 0 ? 1U : 0U);
    EXPECT_EQ(editor.NextProfile != -1, each.interval >= 0);
    if (editor.NextProfile == -1) continue;
    EXPECT_EQ(double{d.Document(editor.NextProfile).SurfaceInterval}, each.interval);
  }
}

// The dialog stays beside the plans: what was active when it opened counts, and only while a dive can follow it.
TEST(SurfaceInterval, AddsBehindTheDiveThatItWasOpenedFor) {
  Dialogs d;
  frmWaypointEditor& first = d.Open();
  Dive(first);
  const std::int16_t second = d.forms.AddRepetitiveDive(first.Tag(), 60);
  Dive(d.forms(second));
  frmMultiLevel onSecond(d.Services());
  onSecond.Load();
  d.forms.Activate(first.Tag());
  onSecond.Command2.Press();
  EXPECT_FALSE(onSecond.IsLoaded());
  EXPECT_EQ(first.NextProfile, second) << "no dive is cut off";
  EXPECT_EQ(d.forms(d.forms(second).NextProfile).PrevProfile, second);
}

TEST(SurfaceInterval, OffersARebreatherAnIntervalOnAir) {
  for (const bool openCircuit : {true, false}) {
    for (const bool onAir : {true, false}) {
      Dialogs d;
      frmWaypointEditor& first = d.Open();
      d.Document().Template.OpenCircuit = openCircuit;
      Dive(first);
      frmMultiLevel dialog(d.Services());
      dialog.Load();
      EXPECT_EQ(dialog.cbIntervalOnAir.Visible, !openCircuit);
      EXPECT_TRUE(dialog.cbIntervalOnAir.Value);
      dialog.cbIntervalOnAir.Set(onAir);
      dialog.Command2.Press();
      EXPECT_EQ(d.Document(first.NextProfile).Template.IntervalOnAir, openCircuit || onAir) << "a hidden box stays";
    }
  }
}

TEST(SurfaceInterval, AddsNothingBehindADiveThatCanNoLongerBeFollowed) {
  struct {
    const char* what;
    std::function<void(Dialogs&, frmWaypointEditor&)> happens;
  } const cases[] = {
      {"another such dialog was faster",
       [](Dialogs& d, frmWaypointEditor& dive) { d.forms.AddRepetitiveDive(dive.Tag(), 0); }},
      {"the ascent was cleared", [](Dialogs&, frmWaypointEditor& dive) { dive.mnucleardecopoints(); }},
      {"the plan was closed", [](Dialogs& d, frmWaypointEditor& dive) { d.forms.Unload(dive.Tag()); }},
      {"another plan has its number",
       [](Dialogs& d, frmWaypointEditor& dive) {
         d.forms.Unload(dive.Tag());
         EXPECT_EQ(&d.Open(), &dive);
         Dive(dive);
       }},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    Dialogs other;
    frmWaypointEditor& dive = other.Open();
    Dive(dive);
    frmMultiLevel late(other.Services());
    late.Load();
    each.happens(other, dive);
    const std::int16_t next = dive.NextProfile;
    late.Command2.Press();
    EXPECT_TRUE(late.IsLoaded());
    EXPECT_EQ(other.platform.boxes.size(), 1U);
    EXPECT_EQ(dive.NextProfile, next);
    EXPECT_EQ(other.documents.UpperBound(), next == -1 ? 1 : 2);
  }
}

struct Waypoints : testing::Test {
  Waypoints() { d.Open(); }
  /// A dialog on a new row at that depth.
  frmWaypointForm& New(double depth = 0, double time = 0) {
    profile.Row(0).Depth = depth;
    profile.Row(0).SegmentTime = time;
    form = std::make_unique<frmWaypointForm>(d.Services());
    form->data(profile, -1);
    form->Load();
    return *form;
  }
  Dialogs d;
  ClassProfile profile;
  std::unique_ptr<frmWaypointForm> form;
};

TEST_F(Waypoints, TheRowTakesWhatWasEntered) {
  frmWaypointForm& f = New();
  f.tbDepth.Type("42.3");
  f.tbTime.Type("25");
  f.Combo1.Select(FindBlendIndex("EAN32", d.Document().Template));
  f.cbOK.Press();
  EXPECT_FALSE(f.IsLoaded());
  const Waypoint& row = profile.Row(0);
  EXPECT_EQ(double{row.Depth}, double{Single(42.3)});
  EXPECT_EQ(double{row.SegmentTime}, 25);
  EXPECT_EQ(row.GasMixName, "EAN32");
  EXPECT_EQ(double{row.GasMixN2}, 68);
}

TEST_F(Waypoints, WhatIsNoNumberIsRefusedAndTooDeepIsCut) {
  struct {
    std::string depth, time;
    bool stays;
    double stored;
  } const cases[] = {{"", "5", true, 0},   {"10", "", true, 0},      {"+", "5", true, 0},      {",", "5", true, 0},
                     {"-3", "5", true, 0}, {"500", "5", false, 500}, {"501", "5", false, 500}, {"12", "5", false, 12}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.depth + "/" + each.time);
    frmWaypointForm& f = New();
    f.tbDepth.Type(each.depth);
    f.tbTime.Type(each.time);
    f.cbOK.Press();
    EXPECT_EQ(f.IsLoaded(), each.stays);
    EXPECT_TRUE(each.stays || profile.Row(0).Depth == each.stored);
  }
}

TEST_F(Waypoints, CancelMarksTheRowAndAMadeMixStays) {
  frmWaypointForm& f = New(30);
  const std::size_t before = d.Document().Template.Blends.size();
  f.tbDepth.Type("20");
  const std::string name = "EAN" + f.Text1.Text.Get();
  f.cbNitroxAdd.Press();
  f.cbNitroxAdd.Press();
  EXPECT_EQ(d.Document().Template.Blends.size(), before + 1);
  EXPECT_EQ(d.Document().Template.Blends.back().Name, name);
  EXPECT_EQ(f.Combo1.Text(), name);
  f.cbCancel.Press();
  EXPECT_EQ(double{profile.Row(0).Depth}, -100);
  EXPECT_EQ(d.Document().Template.Blends.size(), before + 1);
}

TEST_F(Waypoints, OvertypingASuggestionKeepsTheRestConsistent) {
  frmWaypointForm& f = New(30);
  f.Text1.Enter();
  EXPECT_FALSE(f.cbNitroxAdd.Visible);
  f.Text1.Type("36x");
  EXPECT_EQ(f.Text1.Text.Get() + "/" + f.Text2.Text.Get(), "36/64");
  EXPECT_TRUE(f.cbNitroxAdd.Visible);
  f.Text6.Type("18");
  f.Text4.Type("45");
  EXPECT_EQ(f.Text6.Text.Get() + "/" + f.Text4.Text.Get() + "/" + f.Text5.Text.Get(), "18/45/37");
  f.Text4.Type("90");
  EXPECT_EQ(f.Text6.Text.Get() + "/" + f.Text4.Text.Get() + "/" + f.Text5.Text.Get(), "18/82/0");
  f.Text7.Type("120");
  EXPECT_EQ(f.Text9.Text.Get() + "/" + f.Text7.Text.Get(), "1/99");
}

TEST_F(Waypoints, TheArrowsStepFromAnEmptyField) {
  frmWaypointForm& f = New();
  f.tbTime.Type("");
  f.udTimeSpin.Up();
  EXPECT_EQ(f.tbTime.Text.Get(), "2");
  f.tbTime.Type("");
  f.udTimeSpin.Down();
  EXPECT_EQ(f.tbTime.Text.Get(), "1");
  f.udTimeSpin.Down();
  f.udTimeSpin.Down();
  EXPECT_EQ(f.tbTime.Text.Get(), "0");
}

TEST_F(Waypoints, AViewerChangesNothing) {
  profile.Row(0).Depth = 21.4;
  profile.Row(0).GasMixName = "EAN50";
  frmWaypointForm viewer(d.Services());
  viewer.data(profile, 0);
  viewer.Load();
  EXPECT_EQ(viewer.tbDepth.Text.Get(), "21.4");
  EXPECT_EQ(viewer.Combo1.Text(), "EAN50");
  EXPECT_EQ(viewer.Label2.Caption.Get(), "*StringID 7029*") << "a row has a run time, not a time at depth";
  EXPECT_FALSE(viewer.cbOK.Visible || viewer.Frame3.Visible || viewer.Combo1.Visible);
  EXPECT_EQ(viewer.lbMixName.Caption.Get(), "EAN50");
  viewer.tbDepth.Type("50");
  viewer.tbDepth.PressReturn();
  viewer.cbOK.Press();
  EXPECT_TRUE(viewer.IsLoaded());
  EXPECT_EQ(viewer.tbDepth.Text.Get(), "21.4");
  EXPECT_FALSE(d.Document().Modified);
}

TEST(MixInformation, TellsEndAndPPO2WithTheirLimits) {
  DiveTemplate t;
  t.Metric = true;
  t.StartPressure = 1;
  t.MaximalEND = 30;
  t.MaxPPO2 = 1.4;
  using Kind = MixInformation::Kind;
  // At 50 m, 6 bar: Tx21/35 has 0.44 N2: END 60 * 0.44 / 0.79 - 10 = 23.4; PPO2 1.26.
  const auto trimix = InformationOf(Kind::Trimix, {0.21, 0.44, 0.35}, 50, t, false);
  EXPECT_NEAR(trimix.END, 23.418, 0.001);
  EXPECT_NEAR(trimix.PPO2, 1.26, 1e-5);
  EXPECT_FALSE(trimix.endTooDeep || trimix.ppo2TooHigh);
  EXPECT_FALSE(InformationOf(Kind::Heliox, {0.21, 0, 0.79}, 50, t, false).narcotic);
  EXPECT_TRUE(InformationOf(Kind::Trimix, {0.3, 0.7, 0}, 50, t, false).ppo2TooHigh);
  t.O2Narcotic = true;
  EXPECT_NEAR(InformationOf(Kind::Trimix, {0.21, 0.44, 0.35}, 50, t, false).END, 29.0, 0.001);
  EXPECT_FALSE(InformationOf(Kind::Nitrox, {0.28, 0.72, 0}, 50, t, false).possible);
  EXPECT_NEAR(InformationOf(Kind::Nitrox, {0.28, 0.72, 0}, 50, t, true).END, 50, 0.001);
  EXPECT_EQ(double{InformationOf(Kind::Heliox, {0.05, 0, 0.95}, 10, t, false).END}, 0) << "never negative";
}

}  // namespace
}  // namespace tav
