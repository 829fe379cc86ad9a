#include <algorithm>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <utility>

#include "app/command_search.h"
#include "app/help_pages.h"
#include "dialogs/properties.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(GasMixer, OpensOnceFromTheMenuTheToolBarAndTheTemplateDialog) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.Document().Template.Metric = false;
  const auto mixers = [&] {
    std::vector<frmPartialMix*> open;
    for (const auto& form : p.platform.modeless) {
      if (auto* mixer = dynamic_cast<frmPartialMix*>(form.get())) open.push_back(mixer);
    }
    return open;
  };
  p.Main().mnuMixer.Choose();
  ASSERT_EQ(mixers().size(), 1U);
  frmPartialMix& mixer = *mixers().front();
  EXPECT_EQ(mixer.DesFill.Text.Get(), "2940");
  int front = 0;
  mixer.FrontWanted = [&] { ++front; };
  p.Main().toolMixer.Press();
  p.platform.onModal.emplace_back([](Form& form) {
    auto& dialog = dynamic_cast<frmProperties&>(form);
    dialog.gases.FgGas.Select(1, 0);
    dialog.gases.Command1.Press();
  });
  p.Main().mnuTemplate.Choose();
  EXPECT_EQ(mixers().size(), 1U);
  EXPECT_EQ(front, 2);
  EXPECT_EQ(mixer.DesO2.Text.Get() + "/" + mixer.DesHe.Text.Get() + "/" + mixer.DesN2.Text.Get(), "21/0/79");
  mixer.Command2.Press();
  EXPECT_EQ(mixers().size(), 0U);
  p.Main().mnuMixer.Choose();
  ASSERT_EQ(mixers().size(), 1U);
  EXPECT_EQ(mixers().front()->DesO2.Text.Get(), "21") << "as it was left";
}

TEST(MainMenu, EveryEntryHasATextAndAUniqueKey) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  std::vector<std::string> keys;
  const std::set<std::string> deeper = {"mnuClearRecent", "recent", "example",   "mnuBulhmannB",
                                        "mnuBulhmannC",   "mnuVPM", "mnuHybrid", "mnualgsep"};
  for (const MenuEntry& entry : p.Main().Menu()) {
    EXPECT_EQ(entry.level > 1, deeper.contains(entry.item->Name())) << entry.item->Name();
    EXPECT_FALSE(entry.item->Caption.Get().empty()) << entry.item->Name();
    EXPECT_EQ(entry.item->Caption.Get().find("*StringID"), std::string::npos) << entry.item->Name();
    if (!entry.item->Shortcut.empty()) keys.push_back(entry.item->Shortcut);
  }
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
}

/// What a command has opened: windows, file dialogs, the guide.
std::size_t Opened(const HeadlessPlatform& platform) {
  return platform.modalForms.size() + platform.modeless.size() + platform.fileDialogs.size() +
         platform.helpShown.size();
}

TEST(MainMenu, DotsStandWhereACommandOpensAWindow) {
  const auto started = [](HeadlessProgram& p) {
    const auto file = p.folder.Path() / "plan.tav";
    std::filesystem::copy(HeadlessProgram::Dive("wreck.tav"), file);
    EXPECT_TRUE(p.Start({file.string()}));
    p.Document().Template.TemplateChanged = true;  // else there is nothing to be saved as a template
    p.platform.answers = {BoxAnswer::OK};
    return p.Main().Menu();
  };
  HeadlessProgram first;
  const std::size_t entries = started(first).size();
  for (std::size_t i = 0; i < entries; ++i) {
    HeadlessProgram p;
    const std::vector<MenuEntry> menu = started(p);
    const MenuItem& item = *menu.at(i).item;
    const std::string caption = item.Caption;
    if (!item.Click || !item.Enabled || !item.Visible || &item == &p.Main().mnuExit) continue;
    const std::size_t before = Opened(p.platform);
    item.Choose();
    EXPECT_EQ(Opened(p.platform) > before, caption.ends_with("...")) << caption;
  }
}

TEST(Models, MarksAndFlagsExcludeEachOther) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({"/vpm", "/hybrid"}));
  frmMain& main = p.Main();
  const auto marks = [&] {
    return std::vector<bool>{main.mnuBulhmannB.Checked, main.mnuBulhmannC.Checked, main.mnuVPM.Checked,
                             main.mnuHybrid.Checked};
  };
  main.mnuVPM.Choose();
  EXPECT_EQ(marks(), (std::vector<bool>{false, false, true, false}));
  EXPECT_TRUE(p.program.Forms().Services().model.VPMMode);
  main.mnuHybrid.Choose();
  EXPECT_EQ(marks(), (std::vector<bool>{true, false, false, true}));
  EXPECT_FALSE(p.program.Forms().Services().model.VPMMode);
  EXPECT_TRUE(p.program.Forms().Services().model.HybridMode);
  main.mnuBulhmannC.Choose();
  EXPECT_EQ(marks(), (std::vector<bool>{false, true, false, true}));
  EXPECT_TRUE(p.program.Forms().Services().model.ZHL16C) << "the mark does what it says";
  main.mnuHybrid.Choose();
  EXPECT_FALSE(p.program.Forms().Services().model.HybridMode);
  EXPECT_TRUE(p.program.Forms().Services().model.ZHL16C);
  main.mnuVPM.Choose();
  EXPECT_FALSE(p.program.Forms().Services().model.ZHL16C);
  main.mnuVPM.Choose();
  main.mnuBulhmannC.Choose();
  main.mnuBulhmannB.Choose();
  EXPECT_EQ(marks(), (std::vector<bool>{true, false, false, false}));
  EXPECT_FALSE(p.program.Forms().Services().model.ZHL16C);
}

TEST(BreathingMode, TwiceGivesTheStartAgainAndFollowsTheActiveDocument) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.Main();
  const std::string caption = main.mnuOC.Caption;
  main.mnuOC.Choose();
  EXPECT_FALSE(p.Document().Template.OpenCircuit);
  EXPECT_EQ(main.toolOpenCircuit.Image.Get(), "constppo2");
  EXPECT_NE(main.mnuOC.Caption.Get(), caption);
  main.mnuNewProfile.Choose();
  EXPECT_TRUE(main.OpenCircuitMode);
  p.Document().Modified = false;
  p.Document(1).Modified = false;
  p.Main().Activate(1);
  EXPECT_FALSE(main.OpenCircuitMode);
  EXPECT_FALSE(p.Document(1).Modified || p.Document(2).Modified) << "switching windows changes no plan";
  main.mnuOC.Choose();
  EXPECT_EQ(main.mnuOC.Caption.Get(), caption);
}

TEST(Commands, ThatNeedAPlanAreDisabledWithoutOne) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(20, 20, 0));
  p.Document().Modified = false;
  EXPECT_TRUE(p.Main().CloseDocument(1));
  const std::vector<std::string> usable = {"mnuNewProfile",     "mnuOpen",
                                           "mnuLoadTemplate",   "mnuSaveTemplate",
                                           "mnuTemplate",       "mnuExit",
                                           "mnuBulhmannB",      "mnuBulhmannC",
                                           "mnuConservatism",   "mnuLanguages",
                                           "mnuFitPlan",        "mnuHelpContents",
                                           "mnuHelpSearch",     "mnuSystemInformation",
                                           "mnuContributors",   "mnuHelpAbout",
                                           "mnuGenerateTables", "mnuMixer",
                                           "mnuPlanPane",       "mnuGoToPlan",
                                           "mnuCheckPane",      "mnuMarginsPane",
                                           "mnuViewCeiling",    "mnuViewStopMinutes",
                                           "mnuViewDepths",     "mnuViewTissues",
                                           "mnuImport",         "mnuReopen",
                                           "mnuDefaultLayout",  "mnuViewLanguage",
                                           "mnuDiveSettings",   "mnuCommandSearch",
                                           "mnuViewLight",      "example"};
  for (const MenuEntry& entry : p.Main().Menu()) {
    if (entry.item->Click == nullptr || !entry.item->Visible) continue;
    const bool expected = std::find(usable.begin(), usable.end(), entry.item->Name()) != usable.end();
    EXPECT_EQ(entry.item->Enabled.Get(), expected || entry.item->Name() == "mnuClearRecent") << entry.item->Name();
  }
  const frmMain& main = p.Main();
  for (const ToolButton* tool : {&main.toolSave, &main.toolAscent, &main.toolAscentInfo, &main.toolOpenCircuit,
                                 &main.toolBailout, &main.toolMultilevel}) {
    EXPECT_FALSE(tool->Enabled) << tool->Name();
  }
  p.Main().mnuNewProfile.Choose();
  EXPECT_TRUE(p.Main().mnuSaveProfile.Enabled && p.Main().toolSave.Enabled && p.Main().mnuWindowCascade.Enabled);
}

TEST(CommandSearch, FindsByWordsAndRunsWhatCanBeChosen) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto search = [&](const std::function<void(frmCommandSearch&)>& act) {
    p.platform.onModal.emplace_back([&act](Form& form) { act(dynamic_cast<frmCommandSearch&>(form)); });
    p.Main().mnuCommandSearch.Choose();
  };
  search([&](frmCommandSearch& box) {
    EXPECT_GT(box.fgCommands.Cells.Get().size(), 40U);
    box.tbWords.Type("SLATE");
    ASSERT_EQ(box.fgCommands.Cells.Get().size(), 1U);
    EXPECT_EQ(box.fgCommands.Cells.Get()[0][0].text, "Report > Slate");
    EXPECT_EQ(box.fgCommands.Cells.Get()[0][1].text, "Ctrl+Shift+I");
    box.tbWords.Type("no such words");
    EXPECT_TRUE(box.lbNone.Visible && !box.cbOK.Enabled);
    box.tbWords.Type("window tile");
    ASSERT_EQ(box.fgCommands.Cells.Get().size(), 2U);
    box.tbWords.PressDown();
    box.tbWords.PressDown();  // the last one
    box.cbOK.Press();
  });
  EXPECT_EQ(p.view.arrangements, std::vector<Arrangement>{Arrangement::TileVertical});
  search([&](frmCommandSearch& box) {
    box.tbWords.Type("undo");  // there is nothing to be undone
    EXPECT_NE(box.fgCommands.Cells.Get().at(0)[0].colour, -1);
    box.fgCommands.PressReturn(0);
    EXPECT_TRUE(box.IsLoaded());
    box.cbCancel.Press();
  });
}

TEST(Commands, FollowThePlan) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.Main();
  const auto states = [&] {
    return std::vector<bool>{main.mnuStartAscent.Enabled,     main.toolAscent.Enabled, main.mnuSurface.Enabled,
                             main.mnucleardecopoints.Enabled, main.mnuUndo.Enabled,    main.mnuDiveInformation.Enabled,
                             main.toolAscentInfo.Enabled};
  };
  EXPECT_EQ(states(), (std::vector<bool>{false, false, false, false, false, false, false}));
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  EXPECT_EQ(states(), (std::vector<bool>{true, true, false, false, true, true, true}));
  main.mnuStartAscent.Choose();
  EXPECT_EQ(states(), (std::vector<bool>{false, false, true, true, true, true, true}));
  main.mnucleardecopoints.Choose();
  EXPECT_EQ(states(), (std::vector<bool>{true, true, false, false, true, true, true}));
}

TEST(Undo, GoesBackToTheOpenedPlanAndForwardAgain) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.Main();
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  main.mnuStartAscent.Choose();
  const ClassProfile dived = p.Editor().InputProfile;
  p.Document().Template.GFLow = 0.2;
  p.Editor().ReEvaluateUserEnteredWaypoints();
  main.mnuUndo.Choose();
  EXPECT_EQ(double{p.Document().Template.GFLow}, double{Single(0.3)});
  ASSERT_EQ(p.Editor().InputProfile.GetLength(), dived.GetLength());
  EXPECT_EQ(double{p.Editor().InputProfile.GetRunTime(dived.GetLength())}, double{dived.GetRunTime(dived.GetLength())});
  main.mnuUndo.Choose();
  main.mnuUndo.Choose();
  EXPECT_EQ(p.Editor().UserActions.GetLength(), 0);
  EXPECT_FALSE(main.mnuUndo.Enabled);
  for (int i = 0; i < 3; ++i) main.mnuRedo.Choose();
  EXPECT_EQ(double{p.Document().Template.GFLow}, double{Single(0.2)});
  EXPECT_EQ(p.Editor().UserActions.GetLength(), 2);
  EXPECT_FALSE(main.mnuRedo.Enabled);
}

TEST(Help, OpensTheGuideOfTheLanguage) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.Main().mnuHelpSearch.Choose();
  ASSERT_EQ(p.platform.helpShown.size(), 1U);
  EXPECT_EQ(p.platform.helpShown[0].file.filename(), "TAV_uk.hlp");
  EXPECT_EQ(p.platform.helpShown[0].page, HelpViewer::Page::Search);
}

// Each form with a page of its own opens it; the page is in every guide, since their anchors are the same.
TEST(Help, OpensThePageOfAForm) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const std::string guide = ReadTextFile(SourceFolder() / "lang/TAV_uk.hlp");
  const std::set<std::string> without = {"frmSplash", "frmWait"};
  for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / "src/desktop/forms")) {
    const std::string form = entry.path().stem().string();
    const std::string page = HelpPageOf(form);
    EXPECT_EQ(page.empty(), without.contains(form)) << form;
    EXPECT_TRUE(page.empty() || guide.find("<a name=\"" + page + "\">") != std::string::npos) << form;
  }
  // Windows whose names mislead: the surface interval, and the waypoint dialog.
  EXPECT_EQ(HelpPageOf("frmMultiLevel"), "series");
  EXPECT_EQ(HelpPageOf("frmWaypointForm"), "waypoint-dialog");
  // F1 in a pane opens the page of the pane, elsewhere in the main window that of the guide's beginning.
  p.view.focused = nullptr;
  p.Main().mnuHelpContents.Choose();
  p.view.focused = &p.Main().Panes().PlanPane();
  p.Main().mnuHelpContents.Choose();
  ASSERT_EQ(p.platform.helpShown.size(), 2U);
  EXPECT_EQ(p.platform.helpShown[0].anchor, "");
  EXPECT_EQ(p.platform.helpShown[1].anchor, "plan-pane");
}

// Every example comes up computed, as a plan without a file that asks nothing when it is closed.
TEST(Examples, AreOpenedAsNewPlans) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmPlanPane& pane = p.Main().Panes().PlanPane();
  EXPECT_TRUE(pane.cbExamples.Visible);
  pane.cbExamples.Click();
  const std::vector<MenuItem*> examples = p.platform.popup;
  ASSERT_EQ(examples.size(), 7U);
  for (MenuItem* example : examples) {
    example->Choose();
    EXPECT_EQ(p.Document().ProfileFolder, "") << example->Caption.Get();
    EXPECT_FALSE(p.Document().Modified) << example->Caption.Get();
    EXPECT_GT(p.Editor().InputProfile.GetLength(), 5) << example->Caption.Get();
    EXPECT_FALSE(pane.cbExamples.Visible);
  }
  EXPECT_THAT(p.platform.boxes, testing::IsEmpty());
}

// A plan is computed at each key: whatever follows it does so once.
TEST(Commands, FollowEachChangeOnce) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const std::int16_t plan = p.Active();
  frmPlanPane& pane = p.Main().Panes().PlanPane();
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"waypoint", [&] { p.Editor().AddUserWaypoint(30, 20, 0); }},
      {"ascent", [&] { p.Main().mnuStartAscent.Choose(); }},
      {"a key in a cell", [&] { pane.legs.fgLegs.Type(1, PlanPaneLegs::kTime, "25"); }},
      {"breathing mode", [&] { p.Main().mnuOC.Choose(); }},
      {"clear", [&] { p.Main().mnuclearallwaypoints.Choose(); }},
  };
  for (const auto& [what, change] : changes) {
    pane.Finish();
    p.view.changes.clear();
    const int evaluation = p.Editor().Evaluation();
    change();
    EXPECT_GT(p.Editor().Evaluation(), evaluation) << what;
    EXPECT_EQ(p.view.changes[plan], 1) << what;
  }
}

}  // namespace
}  // namespace tav
