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

TEST_F(Properties, KeepsLimitsOfADiveAndRefusesWhatIsNone) {
  Show().cbOK.Press();
  EXPECT_FALSE(Template().Limits) << "the usual ones need no line in the file";
  frmProperties& f = Show();
  f.warnings.tbRun.Type("long");
  f.cbOK.Press();
  ASSERT_TRUE(f.IsLoaded());
  EXPECT_EQ(f.warnings.tbRun.ForeColor, kRed);
  f.warnings.tbRun.Type("90");
  f.warnings.tbStops.Type("0");
  f.warnings.tbCNS.Type("");
  f.warnings.ckGas.Set(false);
  f.cbOK.Press();
  ASSERT_FALSE(f.IsLoaded()) << d.platform.LastBox().text;
  EXPECT_EQ(LimitsOf(Template()), (DiveLimits{Single(90), Single(0), {}, false}));
}

TEST_F(Properties, OKKeepsWhatNobodyTypedToTheLastDigit) {
  d.platform.separators = {",", "."};
  DiveTemplate& t = Template();
  t.LastStop = 4.5;
  t.MaxPPO2 = 1.425;
  t.MaximalEND = 29.5;
  t.AscendRates = {{2.5, 0}, {9, 4.5}};
  t.ChangeGasMixes[0].Depth = 20.5;
  const auto gas = static_cast<std::size_t>(FindBlendIndex("EAN32", t));
  t.Blends[gas] = {"EAN32", 31.7, 68.3, 0};
  frmProperties& f = Show();
  EXPECT_EQ(f.stops.tbLastStop.Text.Get(), "4,5") << "what is shown is what is there";
  f.limits.tbRMV.Type("17");
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
  f.stops.tbStepSize.Type("5");
  f.altitude.Check1.Set(false);
  EXPECT_TRUE(f.altitude.Text1.Visible);
  f.cbCancel.Press();
  EXPECT_TRUE(f.Cancelled());
  EXPECT_EQ(double{Template().StepSize}, 3);
  EXPECT_FALSE(Template().AdeptedToHeight);
}

TEST_F(Properties, LimitsAreAppliedAtOK) {
  struct {
    const char* box;
    Single DiveTemplate::*field;
    std::string typed;
    double stored;
  } const cases[] = {{"tbMinPPO", &DiveTemplate::MinPPO2, "3.5", 2},
                     {"tbMaxPPO", &DiveTemplate::MaxPPO2, "3.5", 3},
                     {"tbRMV", &DiveTemplate::RMV, "250", 200},
                     {"Text8", &DiveTemplate::DecoRMV, "14.256", 14.26},
                     {"tbMaximalEND", &DiveTemplate::MaximalEND, "600", 500},
                     {"tbStepSize", &DiveTemplate::StepSize, "4.6", 5}};
  for (const auto& each : cases) {
    frmProperties& f = Show();
    dynamic_cast<TextBox&>(*f.Find(each.box)).Type(each.typed);
    f.cbOK.Press();
    EXPECT_EQ(double{Template().*each.field}, double{Single(each.stored)}) << each.typed;
  }
  Single zero = 0;
  EXPECT_EQ(Between(zero, 0, 200, 1, 200, 1), "1.0");
}

TEST_F(Properties, AFieldLeftWithoutANumberIsResetWithAWarning) {
  frmProperties& f = Show();
  for (const char* typed : {"", "word", "0", "-2"}) {
    f.limits.tbRMV.Type(typed);
    f.limits.tbRMV.Leave();
    EXPECT_EQ(f.limits.tbRMV.Text.Get(), "20") << typed;
  }
  EXPECT_EQ(d.platform.boxes.size(), 4U);
  EXPECT_EQ(d.platform.LastBox().icon, BoxIcon::Exclamation);
  f.units.Option1_0.Choose();
  f.limits.tbRMV.Type("");
  f.limits.tbRMV.Leave();
  EXPECT_EQ(f.limits.tbRMV.Text.Get(), "0.6");
}

TEST_F(Properties, AFieldThatWasNotChangedIsNotJudged) {
  frmProperties& f = Show();
  for (TextBox* field : {&f.altitude.Text2, &f.altitude.Text5, &f.stops.tbLastStop, &f.stops.Text7}) {
    field->Enter();
    field->Leave();
  }
  EXPECT_TRUE(d.platform.boxes.empty());
  EXPECT_EQ(f.altitude.Text2.Text.Get(), "0") << "sea level";
  f.altitude.Text2.Type("0");
  f.altitude.Text2.Leave();
  EXPECT_EQ(d.platform.boxes.size(), 1U);
  f.altitude.Text2.Leave();
  EXPECT_EQ(d.platform.boxes.size(), 1U);
}

TEST_F(Properties, WhatCanNotBePlannedOnIsNotStored) {
  frmProperties& f = Show();
  f.rates.fgAscend.Edit(1, 1, "0");
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
  f.stops.tbStepSize.Type("6");
  f.stops.tbLastStop.Type("6");
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
  } const changes[] = {
      {"a field", [](auto& f) { f.limits.tbRMV.Type("17"); }},
      {"a box", [](auto& f) { f.warnings.cbWarnMaxEND.Set(!f.warnings.cbWarnMaxEND.Value); }},
      {"a cell", [](auto& f) { f.rates.fgAscend.Edit(2, 1, "8"); }},
      {"a row", [](auto& f) { f.stops.cbAddChange.Press(); }},
      {"a switch", [](auto& f) { f.rebreather.cbIntervalOnAir.Set(!f.rebreather.cbIntervalOnAir.Value); }},
      {"units", [](auto& f) { f.units.Option1_0.Choose(); }}};
  Template().OpenCircuit = false;
  for (const auto& each : changes) {
    SCOPED_TRACE(each.what);
    d.platform.boxes.clear();
    frmProperties& f = Show();
    each.change(f);
    const std::string typed = f.limits.tbRMV.Text;
    d.platform.answers = {BoxAnswer::No};
    f.cbDefault.Press();
    EXPECT_FALSE(f.lbNewPlans.Visible);
    EXPECT_EQ(f.limits.tbRMV.Text.Get(), typed);
    d.platform.answers = {BoxAnswer::Yes};
    f.cbDefault.Press();
    EXPECT_TRUE(f.lbNewPlans.Visible);
    EXPECT_EQ(f.limits.tbRMV.Text.Get(), "20");
    EXPECT_EQ(d.platform.boxes.size(), 2U);
    EXPECT_EQ(d.platform.LastBox().buttons, BoxButtons::YesNo);
    f.limits.tbRMV.Leave();
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
    f.limits.tbRMV.Type(rate);
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
  f.altitude.Text2.Type("2000");
  EXPECT_EQ(f.altitude.Text5.Text.Get() + " " + f.altitude.Text3.Text.Get(), "2000 " + f.altitude.Text4.Text.Get());
  f.cbOK.Press();
  EXPECT_EQ(double{Template().EndAltitude}, 2000);
  EXPECT_EQ(Template().EndPressure, Template().StartPressure);
  EXPECT_LT(double{Template().EndPressure}, 0.81);

  Show();
  form->altitude.Text5.Type("0.");
  form->altitude.Text2.Type("1500");
  EXPECT_EQ(form->altitude.Text5.Text.Get(), "0.");
  form->altitude.Text5.Type("1500");
  form->altitude.Text2.Type("");
  EXPECT_EQ(form->altitude.Text4.Text.Get(), "") << "no altitude, no pressure";
  form->altitude.Text2.Leave();
  EXPECT_EQ(form->altitude.Text5.Text.Get(), form->altitude.Text2.Text.Get()) << "equal again, also when it is reset";

  Template().EndAltitude = 1000;
  Show().altitude.Text2.Type("500");
  EXPECT_EQ(form->altitude.Text5.Text.Get(), "1000");
}

TEST_F(Properties, ADecimalCommaComesBackAsItWasShown) {
  d.platform.separators = {",", "."};
  Template().RMV = 17.5;
  Template().StartAltitude = 1200;
  frmProperties& f = Show();
  EXPECT_EQ(f.limits.tbMaxPPO.Text.Get(), "1,40");
  EXPECT_EQ(f.altitude.Text4.Text.Get(), "0,882");
  f.limits.tbMinPPO.Type("none");
  f.limits.tbMinPPO.Leave();
  f.units.Option1_0.Choose();
  f.units.Option1_1.Choose();
  f.rates.fgAscend.Edit(1, 1, "2,6");
  f.rates.fgAscend.Edit(2, 1, "8.6");
  f.altitude.Text2.Type("1.500");
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
  f.stops.tbLastStop.Type("");
  f.stops.tbStepSize.Type("x");
  f.altitude.Text1.Text = "90000";
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
    EXPECT_FALSE(f.rebreather.cbKeepsDiluent.Value || f.rebreather.cbIntervalOnAir.Value);
    f.rebreather.cbIntervalOnAir.Set(true);
    f.cbOK.Press();
  }
  EXPECT_TRUE(Template().IntervalOnAir);
  EXPECT_FALSE(Template().KeepsDiluent);
  frmProperties& f = Show();
  f.cbDefault.Press();
  EXPECT_TRUE(f.rebreather.cbKeepsDiluent.Value && f.rebreather.cbIntervalOnAir.Value)
      << "every new plan begins with them";
  EXPECT_FALSE(f.rebreather.cbKeepsDiluent.Enabled || f.rebreather.cbIntervalOnAir.Enabled);
}

TEST_F(Properties, AFieldOfADialogThatHasGoneWarnsNoMore) {
  frmProperties& f = Show();
  f.altitude.Text2.Enter();
  f.cbCancel.Press();
  f.altitude.Text2.Leave();
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
  Show().altitude.Check1.Set(false);
  EXPECT_TRUE(d.Document().Modified);
  form->cbCancel.Press();
  EXPECT_GT(first.CurrentRunTime(), adapted) << "who has just come up from the sea carries more nitrogen";
  Show().altitude.Check1.Set(true);
  form->cbDefault.Press();
  form->altitude.Check1.Set(false);
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
