#include "dialogs/multi_level.h"

#include <gtest/gtest.h>

#include "support/dialog_fixture.h"

namespace tav {
namespace {

using test::Dialogs;

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

}  // namespace
}  // namespace tav
