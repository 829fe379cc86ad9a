#include "app/recovery.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

#include "dialogs/plan_pane.h"
#include "plans/profile_commands.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using test::HeadlessProgram;
using testing::HasSubstr;

std::vector<std::string> Kept(const Recovery& recovery) {
  std::vector<std::string> originals;
  for (const Recovery::Copy& copy : recovery.Orphans()) originals.push_back(copy.original.string());
  return originals;
}

// Within one process, so that the two have one number, as programs in two containers may.
TEST(RecoveryCopies, AreThoseOfProgramsThatHaveEnded) {
  const test::ScratchFolder folder;
  const Recovery later(folder.Path());
  using Names = std::vector<std::string>;
  {
    Recovery running(folder.Path());
    EXPECT_TRUE(running.Keep(1, "text", "/plans/wreck.tav"));
    EXPECT_TRUE(running.Keep(2, "text", "Plan 2"));
    EXPECT_EQ(Kept(running), Names()) << "its own";
    EXPECT_EQ(Kept(later), Names()) << "those of one that runs";
    running.Drop(2);
  }
  EXPECT_EQ(Kept(later), Names{"/plans/wreck.tav"});
  Recovery own(folder.Path());
  EXPECT_TRUE(own.Keep(1, "text", "/plans/cave.tav"));
  EXPECT_EQ(Kept(own), Names{"/plans/wreck.tav"});
  for (const Recovery::Copy& copy : own.Orphans()) Recovery::Remove(copy);
  EXPECT_EQ(Kept(own), Names());
  own.Drop(1);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1) << "its lock";
}

/// What is left behind by a program that was ended while a plan was open.
class Lost : public testing::Test {
 protected:
  /// `act` on a started program; then it is lost, and the next one starts with the answer to its offer.
  void Lose(const std::function<void(HeadlessProgram&)>& act, BoxAnswer answer) {
    const test::ScratchFolder copies;
    {
      HeadlessProgram lost;
      ASSERT_TRUE(lost.Start());
      act(lost);
      lost.Main().Copies().Keep();
      fs::copy(SettingsFolder(), copies.Path(), fs::copy_options::recursive);
    }
    next_.emplace();
    kept_ = SettingsFolder();
    fs::create_directories(kept_.parent_path());
    fs::copy(copies.Path(), kept_, fs::copy_options::recursive);
    next_->platform.answers = {answer};
    ASSERT_TRUE(next_->Start());
  }
  [[nodiscard]] std::size_t Copies() const {
    std::size_t copies = 0;
    for (const auto& entry : fs::directory_iterator(kept_)) copies += entry.path().extension() == ".tav" ? 1U : 0U;
    return copies;
  }

  const test::ScratchFolder folder_;
  fs::path kept_;
  std::optional<HeadlessProgram> next_;
};

TEST_F(Lost, APlanThatHasAFileGoesOnAsThatFile) {
  const fs::path file = folder_.Path() / "plan.tav";
  fs::copy(HeadlessProgram::Dive("wreck.tav"), file);
  std::string series;
  Lose(
      [&](HeadlessProgram& p) {
        EXPECT_TRUE(p.Main().OpenFile(file));
        EXPECT_TRUE(p.Editor().AddUserWaypoint(5, 3, 0));
        series = ProfileFileText(p.program.Forms(), p.Active());
      },
      BoxAnswer::Yes);
  EXPECT_THAT(next_->platform.boxes.at(0).text, HasSubstr(file.string()));
  EXPECT_EQ(next_->Look(next_->Active()).caption, "plan.tav [Default.tpl]");
  EXPECT_EQ(next_->Document().TemplateTitle, "plan.tav");
  EXPECT_TRUE(next_->Document().Modified);
  EXPECT_EQ(Copies(), 1U) << "one of the new program";
  EXPECT_TRUE(next_->Main().Files().SaveActive(false));
  EXPECT_TRUE(next_->platform.fileDialogs.empty()) << "no file of another folder is proposed";
  EXPECT_EQ(test::FileText(file), series);
  EXPECT_EQ(Copies(), 0U);
}

TEST_F(Lost, AFileThatWasWrittenSinceIsNotOverwrittenUnasked) {
  const fs::path file = folder_.Path() / "plan.tav";
  fs::copy(HeadlessProgram::Dive("wreck.tav"), file);
  const std::string saved = test::FileText(file);
  Lose(
      [&](HeadlessProgram& p) {
        EXPECT_TRUE(p.Main().OpenFile(file));
        EXPECT_TRUE(p.Editor().AddUserWaypoint(5, 3, 0));
        fs::last_write_time(file, fs::file_time_type::clock::now() + std::chrono::hours(1));
      },
      BoxAnswer::Yes);
  next_->platform.answers = {BoxAnswer::Cancel};
  EXPECT_FALSE(next_->Main().Files().SaveActive(false));
  EXPECT_EQ(test::FileText(file), saved);
  next_->platform.answers = {BoxAnswer::Yes};
  EXPECT_TRUE(next_->Main().Files().SaveActive(false));
  EXPECT_NE(test::FileText(file), saved);
}

TEST_F(Lost, APlanThatHadNoneAsksForIt) {
  Lose([](HeadlessProgram& p) { EXPECT_TRUE(p.Editor().AddUserWaypoint(42.3, 20, 0)); }, BoxAnswer::Yes);
  EXPECT_EQ(double{next_->Editor().UserActions.getDepth(1)}, double{Single(42.3)});
  EXPECT_EQ(next_->Document().ProfileName, "Plan 1");
  EXPECT_TRUE(next_->Document().Modified);
  EXPECT_FALSE(next_->Main().Files().SaveActive(false));
  ASSERT_EQ(next_->platform.fileDialogs.size(), 1U);
  EXPECT_EQ(next_->platform.fileDialogs[0].fileName, "Plan 1");
}

TEST_F(Lost, AnOfferIsPutOffOrDeclined) {
  const auto plan = [](HeadlessProgram& p) { EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0)); };
  Lose(plan, BoxAnswer::Cancel);
  EXPECT_EQ(Copies(), 1U);
  Lose(plan, BoxAnswer::No);
  EXPECT_EQ(Copies(), 0U);
  EXPECT_EQ(next_->Main().OpenDocuments().size(), 1U);
}

TEST_F(Lost, WhatIsBeingTypedIsKept) {
  Lose(
      [](HeadlessProgram& p) {
        EXPECT_TRUE(p.Main().OpenFile(HeadlessProgram::Dive("wreck.tav")));
        p.Main().Panes().PlanPane().legs.fgLegs.Type(1, PlanPaneLegs::kTime, "7");
      },
      BoxAnswer::Yes);
  EXPECT_EQ(double{next_->Editor().UserActions.gettime(1)}, 7);
}

// A folder in the place of the next copy stands for a disk that is full.
TEST(Recovery, TheOldCopyStaysUntilANewOneIsWhole) {
  HeadlessProgram p;
  fs::create_directories(SettingsFolder());
  fs::copy(HeadlessProgram::Dive("wreck.tav"), SettingsFolder() / "recovery-older-1.tav");
  p.platform.answers = {BoxAnswer::Cancel, BoxAnswer::Yes};
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  p.Main().Copies().Keep();
  for (const auto& entry : fs::directory_iterator(SettingsFolder())) {
    const std::string name = entry.path().filename().string();
    if (name.ends_with("-1.tav") && !name.starts_with("recovery-older"))
      fs::create_directory(SettingsFolder() / (name.substr(0, name.size() - 5) + "2.tav"));
  }
  p.Main().Copies().Offer();
  EXPECT_EQ(p.Document().ProfileName, "Plan 2") << "its own name is lost, that of the copy is none";
  EXPECT_TRUE(p.Document().Modified);
  EXPECT_TRUE(fs::exists(SettingsFolder() / "recovery-older-1.tav"));
}

}  // namespace
}  // namespace tav
