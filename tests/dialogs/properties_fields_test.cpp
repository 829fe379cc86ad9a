#include <algorithm>
#include <functional>

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

TEST_F(Properties, OKKeepsWhatNobodyTypedToTheLastDigit) {
  d.platform.separators = {",", "."};
  DiveTemplate& t = Template();
  t.LastStop = 4.5;
  t.MaxPPO2 = 1.425;
  t.MaximalEND = 29.5;
  t.AscendRates = {{0, 0, 2.5, 0}, {0, 0, 9, 4.5}};
  t.ChangeGasMixes[0].Depth = 20.5;
  const auto gas = static_cast<std::size_t>(FindBlendIndex("EAN32", t));
  t.Blends[gas] = {"EAN32", 31.7, 68.3, 0};
  frmProperties& f = Show();
  EXPECT_EQ(f.tbLastStop.Text.Get(), "4,5") << "what is shown is what is there";
  f.tbRMV.Type("17");
  f.cbOK.Press();
  ASSERT_FALSE(f.IsLoaded()) << d.platform.LastBox().text;
  EXPECT_EQ(double{t.LastStop}, 4.5);
  EXPECT_EQ(t.MaxPPO2, Single(1.425));
  EXPECT_EQ(double{t.MaximalEND}, 29.5);
  EXPECT_EQ(double{t.AscendRates[0].Rate}, 2.5);
  EXPECT_EQ(double{t.AscendRates[1].Depth}, 4.5);
  EXPECT_EQ(t.Blends[gas].O2, Single(31.7));
  EXPECT_EQ(double{t.RMV}, 17);
  const auto change = [](const GasChange& each) { return each.Depth == Single(20.5); };
  EXPECT_TRUE(std::any_of(t.ChangeGasMixes.begin(), t.ChangeGasMixes.end(), change));
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
  EXPECT_FALSE(f.lbNewPlans.Visible);
  f.cbDefault.Press();
  EXPECT_TRUE(d.platform.boxes.empty()) << "nothing was typed that could be lost";
  EXPECT_TRUE(f.lbNewPlans.Visible);
  EXPECT_FALSE(f.cbDefault.Enabled);
  f.tbStepSize.Type("6");
  f.tbLastStop.Type("6");
  f.cbOK.Press();
  EXPECT_EQ(double{d.Document(0).Template.StepSize}, 6);
  EXPECT_TRUE(d.Document(0).Template.TemplateChanged);
  EXPECT_EQ(double{Template().StepSize}, 3);
  EXPECT_EQ(d.applied, 0) << "the plan in the active window has nothing to do with it";
}

TEST_F(Properties, TheDefaultTemplateAsksBeforeItDropsWhatWasTyped) {
  struct {
    const char* what;
    std::function<void(frmProperties&)> change;
  } const changes[] = {{"a field", [](auto& f) { f.tbRMV.Type("17"); }},
                       {"a box", [](auto& f) { f.cbWarnMaxEND.Set(!f.cbWarnMaxEND.Value); }},
                       {"a cell", [](auto& f) { f.fgAscend.Edit(2, 1, "8"); }},
                       {"a row", [](auto& f) { f.cbAddChange.Press(); }},
                       {"units", [](auto& f) { f.Option1_0.Choose(); }}};
  for (const auto& each : changes) {
    SCOPED_TRACE(each.what);
    d.platform.boxes.clear();
    frmProperties& f = Show();
    each.change(f);
    const std::string typed = f.tbRMV.Text;
    d.platform.answers = {BoxAnswer::No};
    f.cbDefault.Press();
    EXPECT_FALSE(f.lbNewPlans.Visible);
    EXPECT_EQ(f.tbRMV.Text.Get(), typed);
    d.platform.answers = {BoxAnswer::Yes};
    f.cbDefault.Press();
    EXPECT_TRUE(f.lbNewPlans.Visible);
    EXPECT_EQ(f.tbRMV.Text.Get(), "20");
    EXPECT_EQ(d.platform.boxes.size(), 2U);
    EXPECT_EQ(d.platform.LastBox().buttons, BoxButtons::YesNo);
    f.tbRMV.Leave();
    EXPECT_EQ(d.platform.boxes.size(), 2U) << "what was dropped is not judged";
  }
}

TEST_F(Properties, ChangedSettingsOfNewPlansAreOfferedForLaterStarts) {
  int kept = 0;
  DialogServices services = d.Services();
  services.defaultTemplateFile = "/home/Default.tpl";
  services.keepDefaultTemplate = [&] { ++kept; };
  const auto ok = [&](const char* rate, BoxAnswer answer) {
    d.platform.boxes.clear();
    d.platform.answers = {answer};
    frmProperties f(services);
    f.Load();
    f.cbDefault.Press();
    f.tbRMV.Type(rate);
    f.cbOK.Press();
    EXPECT_FALSE(f.IsLoaded());
    EXPECT_EQ(double{d.Document(0).Template.RMV}, std::stod(rate));
  };
  ok("20", BoxAnswer::Yes);
  EXPECT_TRUE(d.platform.boxes.empty()) << "nothing was changed";
  d.Document(0).Template.TemplateChanged = false;
  ok("17", BoxAnswer::No);
  EXPECT_EQ(d.platform.boxes.size(), 1U);
  EXPECT_EQ(kept, 0);
  ok("17", BoxAnswer::Yes);
  EXPECT_EQ(kept, 1) << "they are still not kept";
}

TEST_F(Properties, TheSurfacingStaysAtTheAltitudeOfTheStartUntilItIsGivenItsOwn) {
  frmProperties& f = Show();
  f.Text2.Type("2000");
  EXPECT_EQ(f.Text5.Text.Get() + " " + f.Text3.Text.Get(), "2000 " + f.Text4.Text.Get());
  f.cbOK.Press();
  EXPECT_EQ(double{Template().EndAltitude}, 2000);
  EXPECT_EQ(Template().EndPressure, Template().StartPressure);
  EXPECT_LT(double{Template().EndPressure}, 0.81);

  Show();
  form->Text5.Type("0.");
  form->Text2.Type("1500");
  EXPECT_EQ(form->Text5.Text.Get(), "0.");
  form->Text5.Type("1500");
  form->Text2.Type("");
  EXPECT_EQ(form->Text4.Text.Get(), "") << "no altitude, no pressure";
  form->Text2.Leave();
  EXPECT_EQ(form->Text5.Text.Get(), form->Text2.Text.Get()) << "equal again, also when it is reset";

  Template().EndAltitude = 1000;
  Show().Text2.Type("500");
  EXPECT_EQ(form->Text5.Text.Get(), "1000");
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
  Show().Check1.Set(true);
  form->cbDefault.Press();
  form->Check1.Set(false);
  form->cbOK.Press();
  EXPECT_EQ(first.CurrentRunTime(), adapted) << "OK stores the settings of new plans alone";

  const std::int16_t firstDive = d.Active();
  const std::int16_t second = d.forms.AddRepetitiveDive(firstDive, 120);
  d.Document(firstDive).Modified = false;
  Show().cbOK.Press();
  EXPECT_TRUE(d.Document(second).Modified);
  EXPECT_TRUE(d.Document(firstDive).Modified) << "the first dive asks for its series";
}

}  // namespace
}  // namespace tav
