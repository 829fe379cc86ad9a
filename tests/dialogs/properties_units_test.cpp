#include "dialogs/properties_fixture.h"

namespace tav {
namespace {

TEST_F(Properties, TheUnitSwitchConvertsWhatIsShownAndBack) {
  frmProperties& f = Show();
  f.rates.fgAscend.Edit(2, 1, "10");
  f.stops.tbStepSize.Type("4");
  f.altitude.Text2.Type("1000");
  f.units.Option1_0.Choose();
  EXPECT_EQ(f.stops.tbStepSize.Text.Get(), "13");
  EXPECT_EQ(f.stops.tbLastStop.Text.Get(), "10");
  EXPECT_EQ(f.rates.fgAscend.Text(2, 1), "33");
  EXPECT_EQ(f.stops.fgGasChange.Text(f.stops.fgGasChange.Text(1, 1) == "Oxygen" ? 1 : 2, 0), "20");
  EXPECT_EQ(f.limits.tbRMV.Text.Get(), "0.7");
  EXPECT_EQ(f.altitude.Text2.Text.Get(), "3281");
  EXPECT_EQ(f.altitude.Text4.Text.Get(), "0.890");
  f.units.Option1_0.Choose();
  EXPECT_EQ(f.stops.tbStepSize.Text.Get(), "13") << "the option in force does nothing";
  f.units.Option1_1.Choose();
  EXPECT_EQ(f.stops.tbStepSize.Text.Get(), "4");
  EXPECT_EQ(f.stops.tbLastStop.Text.Get(), "3");
  EXPECT_EQ(f.rates.fgAscend.Text(2, 1), "10");
}

TEST_F(Properties, ImperialIsStoredAsSuch) {
  frmProperties& f = Show();
  f.units.Option1_0.Choose();
  f.cbOK.Press();
  ASSERT_FALSE(f.IsLoaded()) << d.platform.LastBox().text;
  EXPECT_FALSE(Template().Metric);
  EXPECT_EQ(double{Template().StartPressure}, 1.0);
  EXPECT_EQ(double{Template().StepSize}, 10);
}

// A waypoint at 21 m, and how deep it is when the units have changed to feet.
TEST_F(Properties, DepthsOfWaypointsAreConvertedWhenTheUserSaysSo) {
  for (const bool convert : {true, false}) {
    frmWaypointEditor& editor = d.Open();
    ASSERT_TRUE(editor.AddUserWaypoint(21, 25, 0));
    ASSERT_TRUE(editor.StartDeco());
    Show().units.Option1_0.Choose();
    d.platform.answers = {convert ? BoxAnswer::Yes : BoxAnswer::No};
    form->cbOK.Press();
    EXPECT_EQ(d.platform.LastBox().buttons, BoxButtons::YesNo);
    EXPECT_EQ(double{editor.UserActions.getDepth(1)}, double{Single(convert ? 68.9 : 21)});
    EXPECT_EQ(editor.UserActions.getaction(2), ClassUseractions::kAscent);
    EXPECT_EQ(double{editor.UserActions.getDepth(2)}, -1);
    Show().units.Option1_1.Choose();
    d.platform.answers = {convert ? BoxAnswer::Yes : BoxAnswer::No};
    form->cbOK.Press();
    EXPECT_EQ(double{editor.UserActions.getDepth(1)}, 21);
  }
  const auto boxes = d.platform.boxes.size();
  Show().cbDefault.Press();
  form->units.Option1_0.Choose();
  form->cbOK.Press();
  EXPECT_EQ(d.platform.boxes.size(), boxes) << "the default template has no waypoints";
}

}  // namespace
}  // namespace tav
