#include <algorithm>
#include <gtest/gtest.h>

#include "dialogs/properties.h"
#include "model/number_text.h"
#include "plans/profile_commands.h"
#include "support/program_fixture.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(Start, OpensAnEmptyPlanBeforeTheNoticeAndShowsTheWindowAfterIt) {
  HeadlessProgram p;
  bool open = false;
  p.platform.onModal.emplace_back([&](Form& form) {
    auto& notice = dynamic_cast<frmLiability&>(form);
    open = p.platform.documentWindows.size() == 1 && !p.view.shown;
    EXPECT_TRUE(notice.cbSoundOff.Visible);
    EXPECT_FALSE(notice.cbSoundOn.Visible);
    notice.cbSoundOff.Press();
    EXPECT_TRUE(notice.cbSoundOn.Visible);
    notice.cbAgree.Press();
  });
  EXPECT_TRUE(p.program.Main({}));
  EXPECT_TRUE(open);
  EXPECT_TRUE(p.view.shown);
  EXPECT_EQ(p.platform.sounds.size(), 1U);
  EXPECT_EQ(p.platform.documentWindows.at(1).caption, "Plan 1 [Default.tpl]");
  EXPECT_EQ((p.platform.settings[{"", "Sound"}]), "Off");
  EXPECT_TRUE(p.platform.boxes.empty());
}

TEST(Start, EndsWithoutAQuestionWhenTheNoticeIsRefused) {
  HeadlessProgram p;
  p.platform.onModal.emplace_back([](Form& form) { dynamic_cast<frmLiability&>(form).cbNoAgree.Press(); });
  EXPECT_FALSE(p.program.Main({}));
  EXPECT_FALSE(p.view.shown);
  EXPECT_TRUE(p.platform.boxes.empty());
}

TEST(Start, SwitchesShowTheirModels) {
  struct {
    std::vector<std::string> arguments;
    bool vpm, hybrid, separator;
  } const cases[] = {{{}, false, false, false},
                     {{"/vpm"}, true, false, true},
                     {{"/hybrid", "/hybrid"}, false, true, true},
                     {{"/VPM"}, false, false, false},
                     {{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "/vpm"}, false, false, false}};
  for (const auto& each : cases) {
    HeadlessProgram p;
    ASSERT_TRUE(p.Start(each.arguments));
    EXPECT_EQ(p.Main().mnuVPM.Visible, each.vpm);
    EXPECT_EQ(p.Main().mnuHybrid.Visible, each.hybrid);
    EXPECT_EQ(p.Main().mnualgsep.Visible, each.separator);
  }
}

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
  p.Main().Tool(18).Press();
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

TEST(Start, OpensTheFilesThatAreNamedAndReportsThoseThatAreNot) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("trimix-100.tav").string(), "missing.tav"}));
  EXPECT_EQ(p.platform.documentWindows.size(), 2U);
  EXPECT_EQ(p.platform.boxes.size(), 1U);
  EXPECT_EQ(p.Document().ProfileName, "trimix-100.tav");
}

TEST(MainMenu, EveryEntryHasATextAndAUniqueKey) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  std::vector<std::string> keys;
  for (const MenuEntry& entry : p.Main().Menu()) {
    EXPECT_FALSE(entry.item->Caption.Get().empty()) << entry.item->Name();
    EXPECT_EQ(entry.item->Caption.Get().find("*StringID"), std::string::npos) << entry.item->Name();
    if (!entry.item->Shortcut.empty()) keys.push_back(entry.item->Shortcut);
  }
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
  EXPECT_EQ(p.Main().Tool(9).Name(), "OpenCircuit");
  EXPECT_EQ(p.Main().Tool(16).Name(), "Multilevel");
  EXPECT_EQ(p.Main().Tool(20).Name(), "FitPlan");
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
  EXPECT_EQ(main.Tool(9).Image.Get(), "constppo2");
  EXPECT_NE(main.mnuOC.Caption.Get(), caption);
  main.mnuNewProfile.Choose();
  EXPECT_TRUE(main.OpenCircuitMode);
  p.Document().Modified = false;
  p.Document(1).Modified = false;
  p.platform.Activate(1);
  EXPECT_FALSE(main.OpenCircuitMode);
  EXPECT_FALSE(p.Document(1).Modified || p.Document(2).Modified) << "switching windows changes no plan";
  main.mnuOC.Choose();
  EXPECT_EQ(main.mnuOC.Caption.Get(), caption);
}

TEST(BreathingMode, IsThatOfThePlanWhileAMessageStandsDuringItsOpening) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.WarnByBoxes();
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 20, 0));
  const auto file = p.folder.Path() / "deep-air.tav";
  p.platform.filesChosen.push_back(file);
  ASSERT_TRUE(p.Main().SaveProfileCommand(false));
  HeadlessProgram again;
  ASSERT_TRUE(again.Start());
  int looked = 0;
  again.platform.onBox = [&](const ShownBox&) {
    EXPECT_EQ(again.Main().Tool(9).Image.Get(), "opencircuit");
    ++looked;
  };
  EXPECT_TRUE(again.Main().OpenFile(file));
  EXPECT_GT(looked, 0);
}

TEST(Series, ANewDiveShowsItsIconAtOnce) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(20, 20, 0));
  p.Main().mnuStartAscent.Choose();
  const std::int16_t second = p.program.Forms().AddRepetitiveDive(1, 60);
  EXPECT_TRUE(p.platform.documentWindows.at(second).repetitive);
  EXPECT_FALSE(p.platform.documentWindows.at(1).repetitive);
}

TEST(Commands, ThatNeedAPlanAreDisabledWithoutOne) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(20, 20, 0));
  p.Document().Modified = false;
  EXPECT_TRUE(p.Main().CloseDocument(1));
  const std::vector<std::string> usable = {
      "mnuNewProfile", "mnuOpen",           "mnuLoadTemplate",    "mnuSaveTemplate",      "mnuTemplate",
      "mnuExit",       "mnuBulhmannB",      "mnuBulhmannC",       "mnuConservatism",      "mnuLanguages",
      "mnuFitPlan",    "mnuHelpContents",   "mnuHelpSearch",      "mnuSystemInformation", "mnuContributors",
      "mnuHelpAbout",  "mnuGenerateTables", "mnuMixer",           "mnuPlanPane",          "mnuGoToPlan",
      "mnuCheckPane",  "mnuViewCeiling",    "mnuViewStopMinutes", "mnuViewDepths",        "mnuViewTissues",
      "mnuImport"};
  for (const MenuEntry& entry : p.Main().Menu()) {
    if (entry.item->Click == nullptr || !entry.item->Visible) continue;
    const bool expected = std::find(usable.begin(), usable.end(), entry.item->Name()) != usable.end();
    EXPECT_EQ(entry.item->Enabled.Get(), expected || entry.item->Name() == "mnuClearRecent") << entry.item->Name();
  }
  for (const std::size_t position : {3U, 6U, 7U, 9U, 14U, 16U})
    EXPECT_FALSE(p.Main().Tool(position).Enabled) << position;
  p.Main().mnuNewProfile.Choose();
  EXPECT_TRUE(p.Main().mnuSaveProfile.Enabled && p.Main().Tool(3).Enabled && p.Main().mnuWindowCascade.Enabled);
}

TEST(Commands, FollowThePlan) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.Main();
  const auto states = [&] {
    return std::vector<bool>{main.mnuStartAscent.Enabled, main.Tool(6).Enabled,
                             main.mnuSurface.Enabled,     main.mnucleardecopoints.Enabled,
                             main.mnuUndo.Enabled,        main.mnuDiveInformation.Enabled,
                             main.Tool(7).Enabled};
  };
  EXPECT_EQ(states(), (std::vector<bool>{false, false, false, false, false, false, false}));
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  EXPECT_EQ(states(), (std::vector<bool>{true, true, false, false, true, true, true}));
  main.mnuStartAscent.Choose();
  EXPECT_EQ(states(), (std::vector<bool>{false, false, true, true, true, true, true}));
  main.mnucleardecopoints.Choose();
  EXPECT_EQ(states(), (std::vector<bool>{true, true, false, false, true, true, true}));
}

TEST(Warnings, ComeOnceForAPlanUntilWhatTheyWarnOfChanges) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.WarnByBoxes();
  const auto news = [&] {
    const std::size_t boxes = p.platform.boxes.size();
    p.platform.boxes.clear();
    return boxes;
  };
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 20, 0));
  EXPECT_EQ(news(), 2U) << "PPO2 and END";
  p.Main().mnuStartAscent.Choose();
  EXPECT_EQ(news(), 0U) << "they are those of the leg";
  p.Main().mnuUndo.Choose();
  p.Main().mnuRedo.Choose();
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 0U);
  p.Document().Template.MaxPPO2 = 1.3;
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 1U) << "another limit";
  p.Document().Template.PPO2High = false;
  p.Main().ApplyToProfile();
  p.Document().Template.PPO2High = true;
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 1U) << "it was gone in between";
  while (p.Main().mnuUndo.Enabled) p.Main().mnuUndo.Choose();
  while (p.Main().mnuRedo.Enabled) p.Main().mnuRedo.Choose();
  EXPECT_EQ(news(), 0U) << "undo and redo bring nothing new";

  const auto file = p.folder.Path() / "deep-air.tav";
  p.platform.filesChosen.push_back(file);
  ASSERT_TRUE(p.Main().SaveProfileCommand(false));
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 0U) << "it has a file now";
  ASSERT_TRUE(p.Main().SaveProfileCommand(false));
  EXPECT_TRUE(p.Main().CloseDocument(p.Active()));
  EXPECT_TRUE(p.Main().OpenFile(file));
  EXPECT_EQ(news(), 0U) << "the same plan again";
  EXPECT_TRUE(p.Main().CloseDocument(p.Active()));
  p.Main().mnuNewProfile.Choose();
  p.Document().Template.MaxPPO2 = 1.3;
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 20, 0));
  EXPECT_EQ(news(), 2U) << "another plan with the same number";
}

TEST(FitPlan, IsKeptFromOneStartToTheNext) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_FALSE(p.view.fitPlan);
  p.Main().Tool(20).Press();
  EXPECT_TRUE(p.view.fitPlan && p.Main().mnuFitPlan.Checked);
  HeadlessProgram later;
  later.platform.settings = p.platform.settings;
  ASSERT_TRUE(later.Start());
  EXPECT_TRUE(later.view.fitPlan && later.Main().Tool(20).Checked);
  later.Main().mnuFitPlan.Choose();
  EXPECT_FALSE(later.view.fitPlan || later.Main().Tool(20).Checked);
}

TEST(GraphExtras, AreSwitchedOnTheirOwnAndKept) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const GraphExtras usual{true, true, true, false};
  EXPECT_EQ(p.view.extras, usual);
  const struct {
    MenuItem frmMain::*item;
    bool GraphExtras::*shown;
  } cases[] = {{&frmMain::mnuViewCeiling, &GraphExtras::ceiling},
               {&frmMain::mnuViewStopMinutes, &GraphExtras::stopMinutes},
               {&frmMain::mnuViewDepths, &GraphExtras::depths},
               {&frmMain::mnuViewTissues, &GraphExtras::tissues}};
  GraphExtras expected = usual;
  for (const auto& known : cases) {
    (p.Main().*known.item).Choose();
    expected.*known.shown = !(expected.*known.shown);
    EXPECT_EQ(p.view.extras, expected);
    EXPECT_EQ((p.Main().*known.item).Checked, expected.*known.shown);
  }
  HeadlessProgram later;
  later.platform.settings = p.platform.settings;
  ASSERT_TRUE(later.Start());
  EXPECT_EQ(later.view.extras, expected);
}

TEST(WhyStop, IsToldOfStopsAndOfNothingElse) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(45, 30, 0));
  p.Main().mnuStartAscent.Choose();
  const ClassProfile& rows = p.Editor().InputProfile;
  int stops = 0;
  for (std::int16_t row = 0; row <= rows.GetLength(); ++row) {
    const bool stop = rows.GetStatus(row) == RowStatus::kStop;
    stops += stop ? 1 : 0;
    EXPECT_EQ(p.Main().WhyStop(1, row).empty(), !stop) << row;
  }
  EXPECT_GT(stops, 3);
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

TEST(Files, SaveAsksForANameOnceAndKeepsTheWindowWhenItFails) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.Main();
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  EXPECT_FALSE(main.SaveProfileCommand(false)) << "the dialog was given up";
  p.platform.filesChosen.emplace_back("/nowhere/at/all/plan.tav");
  EXPECT_FALSE(main.SaveProfileCommand(false));
  EXPECT_EQ(p.platform.LastBox().icon, BoxIcon::Stop);
  EXPECT_TRUE(p.Document().Modified);
  const auto file = p.folder.Path() / "plan.tav";
  p.platform.filesChosen.push_back(file);
  EXPECT_TRUE(main.SaveProfileCommand(false));
  EXPECT_FALSE(p.Document().Modified);
  EXPECT_TRUE(main.SaveProfileCommand(false));
  EXPECT_EQ(p.platform.fileDialogs.size(), 3U) << "a plan that has a file is saved without a question";
  EXPECT_EQ(p.platform.documentWindows.at(1).caption, "plan.tav [Default.tpl]");

  HeadlessProgram again;
  ASSERT_TRUE(again.Start({file.string()}));
  EXPECT_EQ(again.Editor().UserActions, p.Editor().UserActions);
}

TEST(Files, DialogsStartInTheFolderUsedLastAndAtFirstInTheDocuments) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto asked = [](HeadlessProgram& program) {
    std::vector<std::filesystem::path> folders;
    program.platform.fileDialogs.clear();
    for (MenuItem* item : {&program.Main().mnuOpen, &program.Main().mnuSaveProfileAs, &program.Main().mnuExportPng,
                           &program.Main().mnuLoadTemplate}) {
      item->Choose();
      folders.push_back(program.platform.fileDialogs.back().folder);
    }
    return folders;
  };
  using Folders = std::vector<std::filesystem::path>;
  EXPECT_EQ(asked(p), Folders(4)) << "no folder: the documents";

  const auto plans = p.folder.Path() / "plans";
  const auto templates = p.folder.Path() / "templates";
  std::filesystem::create_directory(plans);
  std::filesystem::create_directory(templates);
  std::filesystem::copy(HeadlessProgram::Dive("wreck.tav"), plans);
  std::filesystem::copy(SourceFolder() / "template/Imperial.tpl", templates);
  EXPECT_TRUE(p.Main().OpenFile(plans / "wreck.tav"));
  EXPECT_TRUE(p.Main().OpenFile(templates / "Imperial.tpl"));
  p.Main().mnuNewProfile.Choose();
  EXPECT_EQ(asked(p), (Folders{plans, plans, plans, templates}));

  HeadlessProgram later;
  later.platform.settings = p.platform.settings;
  ASSERT_TRUE(later.Start());
  EXPECT_EQ(asked(later), (Folders{plans, plans, plans, templates}));
  std::filesystem::remove_all(plans);
  EXPECT_EQ(asked(later), (Folders{"", "", "", templates})) << "a folder that is gone";
}

TEST(Templates, AShippedOneIsSavedAmongTheUsersOwn) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.Document().Template.TemplateChanged = true;
  p.platform.answers = {BoxAnswer::OK};
  p.Main().mnuSaveTemplate.Choose();
  ASSERT_EQ(p.platform.fileDialogs.size(), 1U);
  EXPECT_EQ(p.platform.fileDialogs[0].folder, p.folder.Path() / "data/template");
  EXPECT_TRUE(std::filesystem::is_directory(p.platform.fileDialogs[0].folder));
  const auto mine = p.folder.Path() / "mine";
  std::filesystem::create_directory(mine);
  p.platform.answers = {BoxAnswer::OK};
  p.platform.filesChosen.push_back(mine / "Cave.tpl");
  p.Main().mnuSaveTemplate.Choose();
  p.platform.answers = {BoxAnswer::OK};
  p.Main().mnuSaveTemplate.Choose();
  EXPECT_EQ(p.platform.fileDialogs.back().folder, mine / "");
}

TEST(Files, ABrokenPlanAddsNoWindow) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto file = p.folder.Path() / "broken.tav";
  std::ofstream(file) << test::FileText(HeadlessProgram::Dive("wreck.tav")).substr(0, 700);
  p.platform.filesChosen.push_back(file);
  p.Main().mnuOpen.Choose();
  EXPECT_EQ(p.platform.documentWindows.size(), 1U);
  EXPECT_NE(p.platform.LastBox().text.find(file.string() + ":"), std::string::npos) << p.platform.LastBox().text;
}

TEST(Files, APlanGoesToADiveLogAndComesBackAsANewPlan) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("lake-series.tav").string()}));
  const auto log = p.folder.Path() / "lake.uddf";
  p.platform.filesChosen.push_back(log);
  p.Main().mnuExport.Choose();
  EXPECT_EQ(p.platform.fileDialogs.back().fileName, "lake-series.uddf");
  const std::size_t windows = p.platform.documentWindows.size();
  p.platform.filesChosen.push_back(log);
  p.Main().mnuImport.Choose();
  EXPECT_EQ(p.platform.documentWindows.size(), windows + 2);
  EXPECT_EQ(p.Document().ProfileName, "lake.tav");
  EXPECT_TRUE(p.Document().ProfileFolder.empty());
  const std::int16_t first = p.Editor().getFirstProfile();
  EXPECT_TRUE(p.Document(first).Modified);
  EXPECT_EQ(ProfileFileText(p.program.Forms(), first), test::FileText(HeadlessProgram::Dive("lake-series.tav")));
  EXPECT_TRUE(p.platform.boxes.empty());
}

TEST(Files, AnImportSaysWhatItSimplifiedOrWhyItFails) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto log = p.folder.Path() / "log.uddf";
  std::ofstream(log) << "<uddf><profiledata><repetitiongroup><dive><samples>"
                        "<waypoint><depth>20</depth><divetime>100</divetime></waypoint>"
                        "<waypoint><depth>20</depth><divetime>900</divetime></waypoint>"
                        "</samples></dive></repetitiongroup></profiledata></uddf>";
  EXPECT_TRUE(p.Main().OpenFile(log));
  EXPECT_EQ(p.platform.documentWindows.size(), 2U);
  EXPECT_NE(p.platform.LastBox().text.find("Dive 1: the log ends at 20.0 m"), std::string::npos)
      << p.platform.LastBox().text;
  std::ofstream(log) << "<uddf>";
  EXPECT_FALSE(p.Main().OpenFile(log));
  EXPECT_EQ(p.platform.documentWindows.size(), 2U);
  EXPECT_NE(p.platform.LastBox().text.find(log.string() + ":1: "), std::string::npos) << p.platform.LastBox().text;
}

TEST(Files, RecentPlansAreInTheMenuNewestFirst) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("wreck.tav").string(), HeadlessProgram::Dive("nitrox.tav").string()}));
  std::vector<MenuItem*> recent;
  for (const MenuEntry& entry : p.Main().Menu()) {
    if (entry.item->Name() == "recent") recent.push_back(entry.item);
  }
  ASSERT_EQ(recent.size(), 2U);
  EXPECT_EQ(recent[0]->Caption.Get(), HeadlessProgram::Dive("nitrox.tav").string());
  recent[1]->Choose();
  EXPECT_EQ(p.Document().ProfileName, "wreck.tav");
  p.Main().mnuClearRecent.Choose();
  EXPECT_FALSE(p.Main().mnuRecent.Enabled);
}

TEST(WindowMenu, ListsTheOpenPlansAndLeadsToThem) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("lake-series.tav").string()}));
  const auto plans = [&] {
    std::vector<std::string> captions;
    for (const MenuEntry& entry : p.Main().Menu()) {
      if (entry.item->Name() == "plan")
        captions.push_back((entry.item->Checked ? "* " : "") + entry.item->Caption.Get());
    }
    return captions;
  };
  using Captions = std::vector<std::string>;
  EXPECT_EQ(plans(), (Captions{"&1 Plan 1 [Default.tpl]", "&2 lake-series.tav [Default.tpl]",
                               "* &3 lake-series.tav Dive:2 [Default.tpl] Surface Interval: 2 hrs :0 min"}));
  for (const MenuEntry& entry : p.Main().Menu()) {
    if (entry.item->Name() == "plan" && entry.item->Caption.Get().starts_with("&2")) entry.item->Choose();
  }
  EXPECT_EQ(p.Active(), 2);
  p.platform.filesChosen.push_back(p.folder.Path() / "R&D.tav");
  EXPECT_TRUE(p.Main().SaveProfileCommand(true));
  EXPECT_EQ(plans()[1], "* &2 R&&D.tav [Default.tpl]");
  EXPECT_TRUE(p.Main().CloseDocument(2));
  EXPECT_EQ(plans(), Captions{"* &1 Plan 1 [Default.tpl]"});
  EXPECT_TRUE(p.Main().CloseDocument(1));
  EXPECT_EQ(plans(), Captions{});
  EXPECT_FALSE(p.Main().mnuWindowBar2.Visible);
}

TEST(Templates, LoadingOneWithoutAPlanSetsWhatNewPlansBeginWith) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Main().CloseDocument(1));
  const auto imperial = SourceFolder() / "template/Imperial.tpl";
  p.platform.filesChosen.push_back(imperial);
  p.Main().mnuLoadTemplate.Choose();
  EXPECT_FALSE(p.Document(0).Template.Metric);
  p.Main().mnuNewProfile.Choose();
  EXPECT_EQ(p.Active(), 1) << "the slot is used again";
  EXPECT_FALSE(p.Document().Template.Metric);
}

TEST(Templates, OneThatTellsAPartChangesNothingElse) {
  for (const bool planOpen : {true, false}) {
    SCOPED_TRACE(planOpen);
    HeadlessProgram p;
    ASSERT_TRUE(p.Start());
    if (!planOpen) p.Main().CloseDocument(1);
    const auto file = p.folder.Path() / "part.tpl";
    std::ofstream(file) << "Start Template Block\nRMV=33\nBlends Available=EAN32: 32/ 68/ 0/\nEnd Template Block\n";
    p.platform.filesChosen.push_back(file);
    p.Main().mnuLoadTemplate.Choose();
    const DiveTemplate& t = p.Document(planOpen ? 1 : 0).Template;
    EXPECT_EQ(double{t.RMV}, 33);
    EXPECT_EQ(double{t.DecoRMV}, 15);
    EXPECT_EQ(double{t.StepSize}, 3);
    EXPECT_TRUE(t.Metric && t.OpenCircuit);
    EXPECT_EQ(t.Blends.size(), 2U) << "the list of gases is that of the file";
    EXPECT_NE(p.platform.LastBox().text.find("not told here"), std::string::npos);
  }
}

TEST(Opening, TellsWhatIsOddInAPlanThatItOpens) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto file = p.folder.Path() / "odd.tav";
  std::ofstream(file) << ReplaceAll(test::FileText(HeadlessProgram::Dive("wreck.tav")), "# Properties",
                                    "# Cylinder=Air: 2/ 12/");
  EXPECT_TRUE(p.Main().OpenFile(file));
  EXPECT_NE(p.platform.LastBox().text.find("25: passed over: a cylinder: "), std::string::npos)
      << p.platform.LastBox().text;
}

TEST(Templates, OneInOtherUnitsCanTakeTheWaypointsAlong) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  p.platform.filesChosen.push_back(SourceFolder() / "template/Imperial.tpl");
  p.platform.answers = {BoxAnswer::Yes};
  p.Main().mnuLoadTemplate.Choose();
  EXPECT_FALSE(p.Document().Template.Metric);
  const ClassProfile& rows = p.Editor().InputProfile;
  EXPECT_EQ(double{rows.getDepth(rows.GetLength())}, double{Single(98.4)});
  p.Main().mnuUndo.Choose();
  EXPECT_TRUE(p.Document().Template.Metric);
  EXPECT_EQ(double{p.Editor().UserActions.getDepth(1)}, 30) << "both go back in one step";
}

TEST(Templates, ABrokenOneLeavesThePlanAlone) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto file = p.folder.Path() / "broken.tpl";
  std::ofstream(file) << "Start Template Block\r\nMetric=perhaps\r\nEnd Template Block\r\n";
  p.platform.filesChosen.push_back(file);
  p.Main().mnuLoadTemplate.Choose();
  EXPECT_NE(p.platform.LastBox().text.find("is not a valid template file, ignored"), std::string::npos);
  EXPECT_TRUE(p.Document().Template.Metric);
  EXPECT_FALSE(p.Document().Modified);
}

TEST(Help, OpensTheGuideOfTheLanguage) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.Main().mnuHelpSearch.Choose();
  ASSERT_EQ(p.platform.helpShown.size(), 1U);
  EXPECT_EQ(p.platform.helpShown[0].first.filename(), "TAV_uk.hlp");
  EXPECT_EQ(p.platform.helpShown[0].second, HelpViewer::Page::Search);
}

}  // namespace
}  // namespace tav
