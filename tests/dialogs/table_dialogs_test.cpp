#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/bailout_start.h"
#include "dialogs/table_expert.h"
#include "model/text_id.h"
#include "plans/profile_commands.h"
#include "support/dialog_fixture.h"
#include "support/profile_text.h"
#include "support/scratch_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes whose commands were held back.
struct RecordedRuns : LongRuns {
  RecordedRuns() {
    changed = [this] {
      std::int16_t document = 0;
      while (IsRunning() && !Holds(document)) ++document;
      told.push_back(IsRunning() ? "begins " + std::to_string(document) : "ends");
    };
  }
  std::vector<std::string> told;
};

struct RecordedPreview : PreviewWindow {
  void ShowPreview(const std::string& caption) override { shown = caption; }
  std::string shown;
};

class TableDialogs : public testing::Test {
 protected:
  TableDialogs() {
    dialogs.platform.temporaryFolder = folder.Path();
    report.window = &preview;
  }

  frmWaypointEditor& OpenPlan() {
    frmWaypointEditor& plan = dialogs.Open();
    plan.AddUserWaypoint(40, 20, 0);
    plan.StartDeco();
    return plan;
  }
  /// All that a run must leave as it was.
  std::string State(std::int16_t document) {
    const DocumentState& state = dialogs.Document(document);
    std::string text = ProfileFileText(dialogs.forms, document) + test::RowsText(dialogs.forms(document).InputProfile) +
                       FormatPlain(state.TotalCNS) + FormatPlain(state.TotalOTU) + (state.Modified ? " modified" : "");
    for (const Single load : state.N2Compartments) text += " " + FormatFixed(double{load}, 9);
    return text;
  }
  /// Loads a dialog in a window of its own and lets `act` work with it.
  template <class Dialog, class Act>
  void With(Act act) {
    auto dialog = std::make_shared<Dialog>(dialogs.Services(), report, runs);
    dialogs.platform.Services().windows.Show(dialog);
    act(*dialog);
    EXPECT_FALSE(dialog->IsLoaded());
    EXPECT_FALSE(dialogs.platform.hourglass);
  }
  [[nodiscard]] std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (const ShownBox& box : dialogs.platform.boxes) texts.push_back(box.text);
    return texts;
  }

  test::ScratchFolder folder;
  test::Dialogs dialogs;
  PrintPreview report{dialogs.platform, dialogs.texts};
  RecordedPreview preview;
  RecordedRuns runs;
};

TEST_F(TableDialogs, ABailOutPrintsItsTablesAndCardsAndLeavesThePlanAlone) {
  const std::int16_t plan = OpenPlan().Tag();
  const std::string before = State(plan);
  With<frmBailoutStart>([&](frmBailoutStart& dialog) {
    EXPECT_EQ(dialog.Label3.Caption.Get(), dialogs.Document(plan).Template.Templatename);
    EXPECT_TRUE(dialog.Check1.Value && dialog.Check2.Value) << "both at first";
    int events = 0;
    dialogs.platform.onEvents = [&] {
      ++events;
      EXPECT_FALSE(dialog.cbOK.Enabled || dialog.tbTime.Enabled || dialog.Check1.Enabled);
      EXPECT_TRUE(dialog.cbCancel.Bold && dialog.cbCancel.Enabled);
      EXPECT_EQ(dialog.cbCancel.Caption.Get(), Numbered("<Abort>"));
      EXPECT_TRUE(dialogs.platform.hourglass);
      EXPECT_LE(dialog.pbProgress.Value, dialog.pbProgress.Maximum);
    };
    dialog.tbTime.Type("10");
    dialog.cbOK.Press();
    EXPECT_GT(events, 8) << "at least one turn for each cut";
  });
  EXPECT_EQ(preview.shown, Numbered("<BailoutTables>"));
  EXPECT_THAT(runs.told, ElementsAre("begins " + std::to_string(plan), "ends"));
  EXPECT_EQ(State(plan), before);
  const int all = report.Pages().Pages();
  EXPECT_GT(all, 1);

  // The choice is kept for the next time.
  dialogs.platform.onEvents = nullptr;
  With<frmBailoutStart>([](frmBailoutStart& dialog) {
    dialog.Check1.Set(false);
    dialog.Check2.Set(false);
    EXPECT_FALSE(dialog.cbOK.Enabled) << "nothing to print";
    dialog.Check1.Set(true);
    dialog.tbTime.Type("10");
    dialog.cbOK.Press();
  });
  EXPECT_EQ(report.Pages().Pages(), 2) << "what the way out asks for, and the tables";
  With<frmBailoutStart>([](frmBailoutStart& dialog) {
    EXPECT_TRUE(dialog.Check1.Value);
    EXPECT_FALSE(dialog.Check2.Value);
    dialog.cbCancel.Press();
  });
}

TEST_F(TableDialogs, ABailOutFromTheEndsOfLegsAsksForNoInterval) {
  OpenPlan();
  const auto pages = [&](bool legEnds) {
    With<frmBailoutStart>([&](frmBailoutStart& dialog) {
      dialog.Check3.Set(legEnds);
      EXPECT_EQ(dialog.tbTime.Enabled, !legEnds);
      if (!legEnds) dialog.tbTime.Type("5");
      dialog.cbOK.Press();
    });
    return report.Pages().Pages();
  };
  EXPECT_LT(pages(true), pages(false));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TableDialogs, TheIntervalIsWholeMinutesFrom0To99AndNotLongerThanThePlan) {
  OpenPlan();
  struct Case {
    std::string typed;
    std::string box;
    bool refused;
  };
  for (const Case& c :
       {Case{"-1", Numbered("<BailoutBelow0>"), true}, Case{"100", Numbered("<BailoutAbove99>"), true},
        Case{"often", Numbered("<NoNumber>"), true}, Case{"", Numbered("<NoNumber>"), true},
        Case{"99.6", Numbered("<BailoutAbove99>"), true}, Case{"99.4", Numbered("<IntervalBeyondPlan>"), true},
        Case{"10", "", false}, Case{"30.4", Numbered("<TablesRounded>"), false},
        Case{"0", Numbered("<TablesRounded>"), false}, Case{"-0.4", Numbered("<TablesRounded>"), false}}) {
    SCOPED_TRACE(c.typed);
    dialogs.platform.boxes.clear();
    preview.shown.clear();
    With<frmBailoutStart>([&](frmBailoutStart& dialog) {
      dialog.tbTime.Type(c.typed);
      dialog.cbOK.Press();
      EXPECT_EQ(dialog.IsLoaded(), c.refused);
      if (!c.refused) return;
      EXPECT_EQ(dialog.tbTime.ForeColor, kRed);
      EXPECT_EQ(dialog.tbTime.ToolTipText.Get(), c.box);
      dialog.tbTime.Type("10");
      EXPECT_EQ(dialog.tbTime.ForeColor, -1);
      EXPECT_TRUE(dialog.cbOK.Enabled && dialog.tbTime.Enabled);
      dialog.Unload();
    });
    const std::string entry = Numbered("<BailoutInterval> ") + c.typed + "\r\n\r\n";
    EXPECT_EQ(dialogs.platform.boxes.empty() ? "" : dialogs.platform.LastBox().text, c.refused ? entry + c.box : c.box);
    EXPECT_EQ(preview.shown.empty(), c.refused);
  }
}

TEST_F(TableDialogs, WithoutAPlanThereIsNoRun) {
  With<frmBailoutStart>([](frmBailoutStart& dialog) { dialog.cbOK.Press(); });
  EXPECT_THAT(Boxes(), ElementsAre(Numbered("<BailoutNoPlan>")));
  // An empty one, and one that is closed before OK.
  dialogs.platform.boxes.clear();
  dialogs.Open();
  With<frmBailoutStart>([](frmBailoutStart& dialog) { dialog.cbOK.Press(); });
  EXPECT_THAT(Boxes(), ElementsAre(Numbered("<NoLegs>")));
  dialogs.platform.boxes.clear();
  frmWaypointEditor& plan = OpenPlan();
  With<frmBailoutStart>([&](frmBailoutStart& dialog) {
    dialogs.forms.Unload(plan.Tag());
    EXPECT_EQ(dialogs.forms.LoadNewDoc(), plan.Tag());
    dialog.cbOK.Press();
  });
  EXPECT_THAT(Boxes(), ElementsAre(Numbered("<PlanClosed>")));
  EXPECT_THAT(runs.told, IsEmpty());
  EXPECT_EQ(preview.shown, "");
}

/// Runs a dialog and lets `act` work at its n-th look at the events; false when the run did not look so often.
template <class Dialog, class Act>
bool ActAtEvent(test::Dialogs& dialogs, int n, Dialog& dialog, Button& start, Act act) {
  int events = 0;
  int after = 0;
  dialogs.platform.onEvents = [&] {
    if (++events == n) act(dialog);
    if (events > n) ++after;
  };
  start.Press();
  dialogs.platform.onEvents = nullptr;
  EXPECT_EQ(after, 0) << "it ends at once";
  return events >= n;
}

TEST_F(TableDialogs, EveryMomentIsGoodForACancel) {
  const std::int16_t plan = OpenPlan().Tag();
  const std::string before = State(plan);
  int moments = 0;
  for (bool reached = true; reached; ++moments) {
    preview.shown.clear();
    With<frmBailoutStart>([&](frmBailoutStart& dialog) {
      dialog.tbTime.Type("10");
      reached = ActAtEvent(dialogs, moments + 1, dialog, dialog.cbOK, [&](frmBailoutStart& d) {
        if (moments % 2 == 0) d.cbCancel.Press();
        if (moments % 2 == 1) d.Unload(true);  // the window's own close control
      });
    });
    EXPECT_EQ(preview.shown.empty(), reached) << moments;
    EXPECT_EQ(State(plan), before);
  }
  EXPECT_GT(moments, 10);
  moments = 0;
  for (bool reached = true; reached; ++moments) {
    preview.shown.clear();
    With<frmTableExpert>([&](frmTableExpert& dialog) {
      dialog.tbED.Type("12");
      dialog.tbET.Type("10");
      reached = ActAtEvent(dialogs, moments + 1, dialog, dialog.cbStart, [](frmTableExpert& d) { d.cbCancel.Press(); });
    });
    EXPECT_EQ(preview.shown.empty(), reached) << moments;
    EXPECT_EQ(State(plan), before);
  }
  EXPECT_GT(moments, 4);
}

TEST_F(TableDialogs, ThePlanMayBeClosedAndTheProgramMayEndWhileARunLasts) {
  const frmWaypointEditor& plan = OpenPlan();
  With<frmBailoutStart>([&](frmBailoutStart& dialog) {
    int events = 0;
    dialogs.platform.onEvents = [&] {
      if (++events != 3) return;
      dialogs.forms(plan.Tag()).LeaveDocument(true);
      dialogs.forms.Unload(plan.Tag());
      EXPECT_EQ(dialogs.forms.LoadNewDoc(), plan.Tag());
    };
    dialog.cbOK.Press();
  });
  EXPECT_NE(preview.shown, "") << "what it computes from was copied";

  preview.shown.clear();
  OpenPlan();
  With<frmBailoutStart>([&](frmBailoutStart& dialog) {
    dialogs.platform.onEvents = [&] { runs.EndAll(); };
    dialog.cbOK.Press();
  });
  EXPECT_EQ(preview.shown, "");
}

TEST_F(TableDialogs, TheTableExpertRemembersItsGridForEachUnit) {
  dialogs.Open();
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    EXPECT_EQ(dialog.tbSD.Text.Get() + " " + dialog.tbED.Text.Get() + " " + dialog.tbDI.Text.Get(), "9 54 3");
    EXPECT_EQ(dialog.tbST.Text.Get() + " " + dialog.tbET.Text.Get() + " " + dialog.tbTI.Text.Get(), "5 45 5");
    EXPECT_TRUE(dialog.Check1.Value);
    EXPECT_EQ(dialog.Label11.Caption.Get(), Numbered("<ReportMetres>"));
    EXPECT_EQ(dialog.Label13.Caption.Get(), dialogs.Document().Template.Templatename);
    EXPECT_EQ(dialog.Combo1.Items.Get().size(), dialogs.Document().Template.Blends.size());
    EXPECT_EQ(dialog.Label7.Caption.Get(), "21/0");
    dialog.Combo1.Select(5);
    EXPECT_EQ(dialog.Label7.Caption.Get(), "18/45");
    // What is refused is not kept, and takes nothing else with it.
    dialog.tbED.Type("12");
    dialog.tbDI.Type("0");
    dialog.Check1.Set(false);
    dialog.cbStart.Press();
    EXPECT_THAT(Boxes(), ElementsAre(Numbered("<TablesFields+2> 0\r\n\r\n<TablesDepthInterval>")));
    EXPECT_TRUE(dialogs.platform.settings.empty());
    EXPECT_EQ(preview.shown, "");
    EXPECT_EQ(dialog.tbED.Text.Get() + dialog.Label7.Caption.Get(), "1218/45");
    dialog.tbDI.Type("1");
    dialog.cbStart.Press();
  });
  EXPECT_EQ((dialogs.platform.settings[{"TableExpert", "StepM"}]), "1");
  EXPECT_EQ((dialogs.platform.settings[{"TableExpert", "FastDescent"}]), "0");
  EXPECT_EQ((dialogs.platform.settings.count({"TableExpert", "StepF"})), 0U);
  dialogs.platform.settings[{"TableExpert", "StepM"}] = "0";
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    EXPECT_EQ(dialog.tbED.Text.Get() + " " + dialog.tbDI.Text.Get(), "54 3") << "a grid that can't be is not offered";
    dialog.cbCancel.Press();
  });
  dialogs.Document().Template.Metric = false;
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    EXPECT_EQ(dialog.tbSD.Text.Get() + " " + dialog.tbED.Text.Get() + " " + dialog.tbDI.Text.Get(), "30 180 10");
    EXPECT_EQ(dialog.Label11.Caption.Get(), Numbered("<ReportFeet>"));
    EXPECT_FALSE(dialog.Check1.Value);
    dialog.cbCancel.Press();
  });
}

TEST_F(TableDialogs, TheTableExpertPrintsOneTableForEachDepth) {
  dialogs.documents(0).Template.PPO2High = false;
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    dialogs.platform.onEvents = [&] {
      EXPECT_FALSE(dialog.cbStart.Enabled || dialog.Combo1.Enabled || dialog.tbSD.Enabled || dialog.tbTI.Enabled);
      EXPECT_EQ(dialog.cbCancel.Caption.Get(), Numbered("<Abort>"));
    };
    dialog.cbStart.Press();
  });
  // 16 tables, six to a page; some of the deeper ones take two cells.
  EXPECT_GE(report.Pages().Pages(), 3);
  EXPECT_EQ(preview.shown, Numbered("<DecoTables>"));
  EXPECT_THAT(runs.told, ElementsAre("begins 0", "ends"));
  EXPECT_EQ(dialogs.documents(0).Template.DescendRates[0].Rate, Single(18));
}

TEST_F(TableDialogs, TheTableExpertLeavesOutDecoGasesWhoseTickIsAway) {
  dialogs.Open();
  const auto all = dialogs.Document().Template.ChangeGasMixes.size();
  ASSERT_EQ(all, 2U);
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    ASSERT_EQ(dialog.ckDeco.Items.Get().size(), all);
    dialog.ckDeco.Tick(0, false);
    dialog.ckDeco.Tick(1, false);
    // The plan has changed meanwhile: another gas would be left out than was shown.
    std::swap(dialogs.Document().Template.ChangeGasMixes[0], dialogs.Document().Template.ChangeGasMixes[1]);
    dialogs.Document().Template.ChangeGasMixes[0].Depth = 20;
    dialog.cbStart.Press();
    EXPECT_THAT(Boxes(), ElementsAre(Numbered("<GasGone>")));
    for (const auto& item : dialog.ckDeco.Items.Get()) EXPECT_TRUE(item.on) << "those that there are now";
    dialog.ckDeco.Tick(0, false);
    dialog.ckDeco.Tick(1, false);
    dialog.cbStart.Press();
  });
  for (int page = 1; page <= report.Pages().Pages(); ++page) {
    const std::string printed = report.Pages().Page(page);
    EXPECT_THAT(printed, testing::HasSubstr(Numbered("<TableNoDecoGas>")));
    EXPECT_THAT(printed, testing::Not(testing::HasSubstr("\n50/0")));
    EXPECT_THAT(printed, testing::Not(testing::HasSubstr("\n100/0")));
  }
  EXPECT_EQ(dialogs.Document().Template.ChangeGasMixes.size(), all);
}

TEST_F(TableDialogs, OneRunAtATimeWritesItsPages) {
  OpenPlan();
  runs.RunBegins(7);
  With<frmTableExpert>([](frmTableExpert& dialog) {
    dialog.cbStart.Press();
    dialog.Unload();
  });
  With<frmBailoutStart>([](frmBailoutStart& dialog) {
    dialog.cbOK.Press();
    dialog.Unload();
  });
  EXPECT_THAT(Boxes(), ElementsAre(Numbered("<TablesBusy>"), Numbered("<TablesBusy>")));
  EXPECT_THAT(runs.told, ElementsAre("begins 7")) << "no other has begun";
}

TEST_F(TableDialogs, TheTableExpertTakesNoMetresForFeet) {
  const std::int16_t plan = OpenPlan().Tag();
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    dialogs.Document(plan).Template.Metric = false;
    dialog.cbStart.Press();
    EXPECT_THAT(Boxes(), ElementsAre(Numbered("<TablesOtherUnits>")));
    EXPECT_EQ(dialog.tbED.Text.Get(), "180");
    EXPECT_EQ(dialog.Label11.Caption.Get(), Numbered("<ReportFeet>"));
    dialog.Unload();
  });
  EXPECT_THAT(runs.told, IsEmpty());
}

TEST_F(TableDialogs, WhatIsNoGridIsRefusedInWords) {
  dialogs.Open();
  struct Case {
    std::vector<std::string> typed;  ///< depths, then times
    int field;
    std::string reason;
  };
  for (const Case& c :
       {Case{{"54", "9", "3", "5", "45", "5"}, 0, Numbered("<TablesDepthsSwapped>")},
        Case{{"-9", "54", "3", "5", "45", "5"}, 0, Numbered("<TablesStartDepthNegative>")},
        Case{{"-9", "-9", "3", "5", "45", "5"}, 0, Numbered("<TablesStartDepthNegative>")},
        Case{{"9", "20000", "3", "5", "45", "5"}, 1, Numbered("<TablesBeyondPlanning>")},
        Case{{"9", "54", "0.4", "5", "45", "5"}, 2, Numbered("<TablesRounded>\r\n<TablesDepthInterval>")},
        Case{{"1", "1000", "1", "1", "1000", "1"}, 2, Numbered("<TablesTooMany>")},
        Case{{"9", "54", "3", "50", "45", "5"}, 3, Numbered("<TablesTimesSwapped>")},
        Case{{"9", "54", "3", "5", "200000", "5"}, 4, Numbered("<TablesBeyondPlanning>")},
        Case{{"9", "54", "3", "5", "45", "-1"}, 5, Numbered("<TablesTimeInterval>")},
        Case{{"9", "54", "3", "5", "45", "x"}, 5, Numbered("<NoNumber>")}}) {
    SCOPED_TRACE(c.reason);
    dialogs.platform.boxes.clear();
    With<frmTableExpert>([&](frmTableExpert& dialog) {
      TextBox* const fields[] = {&dialog.tbSD, &dialog.tbED, &dialog.tbDI, &dialog.tbST, &dialog.tbET, &dialog.tbTI};
      auto text = c.typed.begin();
      for (TextBox* box : fields) box->Type(*text++);
      dialog.cbStart.Press();
      for (int i = 0; i < 6; ++i) EXPECT_EQ(fields[i]->ForeColor == kRed, i == c.field) << i;
      dialog.Unload();
    });
    EXPECT_THAT(Boxes(), ElementsAre("*StringID " + std::to_string(Text::TablesFields + c.field) + "* " +
                                     c.typed[static_cast<std::size_t>(c.field)] + "\r\n\r\n" + c.reason));
    EXPECT_EQ(dialogs.platform.LastBox().title, Numbered("<TablesTitle>"));
  }
  dialogs.platform.boxes.clear();
  preview.shown.clear();
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    dialog.tbED.Type("9");
    dialog.tbET.Type("5");
    dialog.tbDI.Type("2.5");
    dialog.cbStart.Press();
  });
  EXPECT_THAT(Boxes(), ElementsAre(Numbered("<TablesRounded>\r\n")));
  EXPECT_FALSE(preview.shown.empty()) << "what is rounded is told, and the tables are made";
  // A gas that the plan has lost since the window opened.
  dialogs.platform.boxes.clear();
  dialogs.platform.settings.clear();
  With<frmTableExpert>([&](frmTableExpert& dialog) {
    dialog.Combo1.Select(3);
    dialogs.Document().Template.Blends.resize(2);
    dialog.cbStart.Press();
    EXPECT_EQ(dialog.Combo1.Items.Get().size(), 2U) << "those that there are now";
    dialog.Unload();
  });
  EXPECT_THAT(Boxes(), ElementsAre(Numbered("<GasGone>")));
}

}  // namespace
}  // namespace tav
