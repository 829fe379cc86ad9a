#include "dialogs/properties_fixture.h"

namespace tav {
namespace {

TEST_F(Properties, OKWithoutAChangeKeepsEveryValue) {
  const DiveTemplate before = Template();
  Show().cbOK.Press();
  ASSERT_FALSE(form->IsLoaded());
  const DiveTemplate& after = Template();
  EXPECT_FALSE(form->Cancelled());
  EXPECT_TRUE(after.TemplateChanged);
  EXPECT_EQ(d.applied, 1);
  for (const auto field :
       {&DiveTemplate::StepSize, &DiveTemplate::LastStop, &DiveTemplate::Setpoint, &DiveTemplate::DecoSetpoint,
        &DiveTemplate::RMV, &DiveTemplate::DecoRMV, &DiveTemplate::MinPPO2, &DiveTemplate::MaxPPO2,
        &DiveTemplate::DecoPPO2, &DiveTemplate::MaximalEND, &DiveTemplate::StartAltitude, &DiveTemplate::StartPressure,
        &DiveTemplate::EndPressure, &DiveTemplate::GFLow, &DiveTemplate::GFHigh}) {
    EXPECT_EQ(double{after.*field}, double{before.*field});
  }
  ASSERT_EQ(after.Blends.size(), before.Blends.size());
  for (std::size_t i = 0; i < before.Blends.size(); ++i) {
    EXPECT_EQ(after.Blends[i].Name, before.Blends[i].Name);
    EXPECT_EQ(double{after.Blends[i].He}, double{before.Blends[i].He});
    EXPECT_EQ(double{after.Blends[i].N2}, double{before.Blends[i].N2});
  }
  ASSERT_EQ(after.ChangeGasMixes.size(), before.ChangeGasMixes.size());
  EXPECT_EQ(double{after.ChangeGasMixes[0].Depth}, double{before.ChangeGasMixes[0].Depth});
  EXPECT_EQ(double{after.ChangeGasMixes[0].O2}, double{before.ChangeGasMixes[0].O2});
  EXPECT_EQ(after.AscendRates.size(), before.AscendRates.size());
  EXPECT_EQ(double{after.AscendRates[1].Rate}, double{before.AscendRates[1].Rate});
}

TEST_F(Properties, CancelChangesNothingButWhatCountsAtOnce) {
  frmProperties& f = Show();
  f.tbStepSize.Type("5");
  f.Check1.Set(false);
  EXPECT_TRUE(f.Text1.Visible);
  f.cbCancel.Press();
  EXPECT_TRUE(f.Cancelled());
  EXPECT_EQ(double{Template().StepSize}, 3);
  EXPECT_FALSE(Template().AdeptedToHeight);
}

TEST_F(Properties, LimitsAreAppliedAtOK) {
  struct {
    TextBox frmProperties::*box;
    Single DiveTemplate::*field;
    std::string typed;
    double stored;
  } const cases[] = {{&frmProperties::tbMinPPO, &DiveTemplate::MinPPO2, "3.5", 2},
                     {&frmProperties::tbMaxPPO, &DiveTemplate::MaxPPO2, "3.5", 3},
                     {&frmProperties::tbRMV, &DiveTemplate::RMV, "250", 200},
                     {&frmProperties::Text8, &DiveTemplate::DecoRMV, "14.256", 14.26},
                     {&frmProperties::tbMaximalEND, &DiveTemplate::MaximalEND, "600", 500},
                     {&frmProperties::tbStepSize, &DiveTemplate::StepSize, "4.6", 5}};
  for (const auto& each : cases) {
    frmProperties& f = Show();
    (f.*each.box).Type(each.typed);
    f.cbOK.Press();
    EXPECT_EQ(double{Template().*each.field}, double{Single(each.stored)}) << each.typed;
  }
  Single zero = 0;
  EXPECT_EQ(frmProperties::Between(zero, 0, 200, 1, 200, 1), "1.0");
}

TEST_F(Properties, AFieldLeftWithoutANumberIsResetWithAWarning) {
  frmProperties& f = Show();
  for (const char* typed : {"", "word", "0", "-2"}) {
    f.tbRMV.Type(typed);
    f.tbRMV.Leave();
    EXPECT_EQ(f.tbRMV.Text.Get(), "20") << typed;
  }
  EXPECT_EQ(d.platform.boxes.size(), 4U);
  EXPECT_EQ(d.platform.LastBox().icon, BoxIcon::Exclamation);
  f.Option1_0.Choose();
  f.tbRMV.Type("");
  f.tbRMV.Leave();
  EXPECT_EQ(f.tbRMV.Text.Get(), "0.6");
}

TEST_F(Properties, AFieldThatWasNotChangedIsNotJudged) {
  frmProperties& f = Show();
  for (TextBox* field : {&f.Text2, &f.Text5, &f.tbLastStop, &f.Text7}) {
    field->Enter();
    field->Leave();
  }
  EXPECT_TRUE(d.platform.boxes.empty());
  EXPECT_EQ(f.Text2.Text.Get(), "0") << "sea level";
  f.Text2.Type("0");
  f.Text2.Leave();
  EXPECT_EQ(d.platform.boxes.size(), 1U);
  f.Text2.Leave();
  EXPECT_EQ(d.platform.boxes.size(), 1U);
}

TEST_F(Properties, WhatCanNotBePlannedOnIsNotStored) {
  frmProperties& f = Show();
  f.fgAscend.Edit(1, 1, "0");
  f.cbOK.Press();
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_EQ(d.platform.LastBox().icon, BoxIcon::Stop);
  EXPECT_EQ(double{Template().AscendRates[0].Rate}, 3);
}

TEST_F(Properties, TheDefaultTemplateIsEditedInPlaceOfThePlans) {
  frmProperties& f = Show();
  f.cbDefault.Press();
  f.tbStepSize.Type("6");
  f.tbLastStop.Type("6");
  f.cbOK.Press();
  EXPECT_EQ(double{d.Document(0).Template.StepSize}, 6);
  EXPECT_TRUE(d.Document(0).Template.TemplateChanged);
  EXPECT_EQ(double{Template().StepSize}, 3);
  EXPECT_EQ(d.applied, 0) << "the plan in the active window has nothing to do with it";
}

TEST_F(Properties, ADecimalCommaComesBackAsItWasShown) {
  d.platform.separators = {",", "."};
  Template().RMV = 17.5;
  Template().StartAltitude = 1200;
  frmProperties& f = Show();
  EXPECT_EQ(f.tbMaxPPO.Text.Get(), "1,40");
  EXPECT_EQ(f.Text4.Text.Get(), "0,882");
  f.tbMinPPO.Type("none");
  f.tbMinPPO.Leave();
  f.Option1_0.Choose();
  f.Option1_1.Choose();
  f.fgAscend.Edit(1, 1, "2,6");
  f.fgAscend.Edit(2, 1, "8.6");
  f.Text2.Type("1.500");
  f.cbOK.Press();
  ASSERT_FALSE(f.IsLoaded()) << d.platform.LastBox().text;
  EXPECT_EQ(double{Template().MaxPPO2}, double{Single(1.4)});
  EXPECT_EQ(double{Template().MinPPO2}, double{Single(0.16)});
  EXPECT_EQ(double{Template().Setpoint}, double{Single(1.31)}) << "rounded to 2 decimals on the way there and back";
  EXPECT_EQ(double{Template().RMV}, 17) << "0.6 cubic feet";
  EXPECT_EQ(double{Template().AscendRates[0].Rate}, 3);
  EXPECT_EQ(double{Template().AscendRates[1].Rate}, 9);
  EXPECT_EQ(double{Template().StartAltitude}, 1500) << "the point groups three digits";
}

TEST_F(Properties, OKResetsAFieldThatHoldsNoNumber) {
  frmProperties& f = Show();
  f.tbLastStop.Type("");
  f.tbStepSize.Type("x");
  f.Text1.Text = "90000";
  f.cbOK.Press();
  EXPECT_EQ(d.platform.boxes.size(), 2U);
  EXPECT_EQ(double{Template().LastStop}, 3);
  EXPECT_EQ(double{Template().StepSize}, 3);
  EXPECT_EQ(double{Template().StartAltitude}, 0) << "an altitude that was not visited stays at sea level";
  EXPECT_EQ(Template().TimeToHeight, 32767);
}

TEST_F(Properties, SwitchTheLoopOfAPlanAndNotThatOfNewPlans) {
  Template().OpenCircuit = false;
  Template().KeepsDiluent = Template().IntervalOnAir = false;
  {
    frmProperties& f = Show();
    EXPECT_FALSE(f.cbKeepsDiluent.Value || f.cbIntervalOnAir.Value);
    f.cbIntervalOnAir.Set(true);
    f.cbOK.Press();
  }
  EXPECT_TRUE(Template().IntervalOnAir);
  EXPECT_FALSE(Template().KeepsDiluent);
  frmProperties& f = Show();
  f.cbDefault.Press();
  EXPECT_TRUE(f.cbKeepsDiluent.Value && f.cbIntervalOnAir.Value) << "every new plan begins with them";
  EXPECT_FALSE(f.cbKeepsDiluent.Enabled || f.cbIntervalOnAir.Enabled);
}

TEST_F(Properties, AFieldOfADialogThatHasGoneWarnsNoMore) {
  frmProperties& f = Show();
  f.Text2.Enter();
  f.cbCancel.Press();
  f.Text2.Leave();
  EXPECT_TRUE(d.platform.boxes.empty());
}

TEST_F(Properties, WhatCountsAtOnceReachesThePlanAndItsSeries) {
  Template().StartAltitude = Template().EndAltitude = 3000;
  Template().StartPressure = Template().EndPressure = 0.71;
  Template().TimeToHeight = 60;
  frmWaypointEditor& first = d.forms(d.Active());
  ASSERT_TRUE(first.AddUserWaypoint(40, 30, 0));
  ASSERT_TRUE(first.StartDeco());
  const Single adapted = first.CurrentRunTime();
  d.Document().Modified = false;
  Show().Check1.Set(false);
  EXPECT_TRUE(d.Document().Modified);
  form->cbCancel.Press();
  EXPECT_GT(first.CurrentRunTime(), adapted) << "who has just come up from the sea carries more nitrogen";

  const std::int16_t firstDive = d.Active();
  const std::int16_t second = d.forms.AddRepetitiveDive(firstDive, 120);
  d.platform.Services().documentWindows.OpenWindow(second);
  d.Document(firstDive).Modified = false;
  Show().cbOK.Press();
  EXPECT_TRUE(d.Document(second).Modified);
  EXPECT_TRUE(d.Document(firstDive).Modified) << "the first dive asks for its series";
}

}  // namespace
}  // namespace tav
