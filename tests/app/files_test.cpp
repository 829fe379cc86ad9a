#include <gtest/gtest.h>

#include "model/number_text.h"
#include "plans/profile_commands.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(Files, SaveAsksForANameOnceAndKeepsTheWindowWhenItFails) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.Main();
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  EXPECT_FALSE(main.Files().SaveActive(false)) << "the dialog was given up";
  p.platform.filesChosen.emplace_back("/nowhere/at/all/plan.tav");
  EXPECT_FALSE(main.Files().SaveActive(false));
  EXPECT_EQ(p.platform.LastBox().icon, BoxIcon::Stop);
  EXPECT_TRUE(p.Document().Modified);
  const auto file = p.folder.Path() / "plan.tav";
  p.platform.filesChosen.push_back(file);
  EXPECT_TRUE(main.Files().SaveActive(false));
  EXPECT_FALSE(p.Document().Modified);
  EXPECT_TRUE(main.Files().SaveActive(false));
  EXPECT_EQ(p.platform.fileDialogs.size(), 3U) << "a plan that has a file is saved without a question";
  EXPECT_EQ(p.Look(1).caption, "plan.tav [Default.tpl]");

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

TEST(Files, ABrokenPlanAddsNoWindow) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto file = p.folder.Path() / "broken.tav";
  std::ofstream(file) << test::FileText(HeadlessProgram::Dive("wreck.tav")).substr(0, 700);
  p.platform.filesChosen.push_back(file);
  p.Main().mnuOpen.Choose();
  EXPECT_EQ(p.Main().OpenDocuments().size(), 1U);
  EXPECT_NE(p.platform.LastBox().text.find(file.string() + ":"), std::string::npos) << p.platform.LastBox().text;
}

TEST(Files, APlanGoesToADiveLogAndComesBackAsANewPlan) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("lake-series.tav").string()}));
  const auto log = p.folder.Path() / "lake.uddf";
  p.platform.filesChosen.push_back(log);
  p.Main().mnuExport.Choose();
  EXPECT_EQ(p.platform.fileDialogs.back().fileName, "lake-series.uddf");
  const std::size_t windows = p.Main().OpenDocuments().size();
  p.platform.filesChosen.push_back(log);
  p.Main().mnuImport.Choose();
  EXPECT_EQ(p.Main().OpenDocuments().size(), windows + 2);
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
  EXPECT_EQ(p.Main().OpenDocuments().size(), 2U);
  EXPECT_NE(p.platform.LastBox().text.find("Dive 1: the log ends at 20.0 m"), std::string::npos)
      << p.platform.LastBox().text;
  std::ofstream(log) << "<uddf>";
  EXPECT_FALSE(p.Main().OpenFile(log));
  EXPECT_EQ(p.Main().OpenDocuments().size(), 2U);
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
  EXPECT_EQ(recent[0]->Caption.Get(), "&1 " + HeadlessProgram::Dive("nitrox.tav").string());
  recent[1]->Choose();
  EXPECT_EQ(p.Document().ProfileName, "wreck.tav");
  p.Main().mnuClearRecent.Choose();
  EXPECT_FALSE(p.Main().mnuRecent.Enabled);
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

}  // namespace
}  // namespace tav
