#include <gtest/gtest.h>

#include "dialogs/waypoint_form.h"
#include "support/dialog_fixture.h"
#include "support/text_names.h"

namespace tav {
namespace {

using test::Dialogs;

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
  EXPECT_EQ(viewer.Label2.Caption.Get(), Numbered("<RunTime>")) << "a row has a run time, not a time at depth";
  EXPECT_FALSE(viewer.cbOK.Visible || viewer.Frame3.Visible || viewer.Combo1.Visible);
  EXPECT_EQ(viewer.lbMixName.Caption.Get(), "EAN50");
  viewer.tbDepth.Type("50");
  viewer.tbDepth.PressReturn();
  viewer.cbOK.Press();
  EXPECT_TRUE(viewer.IsLoaded());
  EXPECT_EQ(viewer.tbDepth.Text.Get(), "21.4");
  EXPECT_FALSE(d.Document().Modified);
}

}  // namespace
}  // namespace tav
