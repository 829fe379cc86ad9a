// How the program is left, and what it finds at its next start.

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/leaving_form.h"
#include "pages/preview_form.h"
#include "pages/print_form.h"
#include "plans/profile_commands.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using test::HeadlessProgram;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Names = std::vector<std::string>;

Names OpenPlans(HeadlessProgram& p) {
  Names names;
  for (const std::int16_t document : p.Main().OpenDocuments()) names.push_back(p.Document(document).ProfileName);
  return names;
}

/// Two plans with a file of their own each, which a test may change.
class Leaving : public testing::Test {
 protected:
  Leaving() {
    for (const fs::path& file : {wreck_, nitrox_}) fs::copy(HeadlessProgram::Dive(file.filename().string()), file);
  }
  /// A program that goes on with the settings of the one before.
  HeadlessProgram& Start(const Names& arguments = {}) {
    std::map<std::pair<std::string, std::string>, std::string> settings;
    if (p_) settings = p_->platform.settings;
    p_ = std::make_unique<HeadlessProgram>();
    p_->platform.settings = settings;
    EXPECT_TRUE(p_->Start(arguments));
    return *p_;
  }

  const test::ScratchFolder folder_;
  const fs::path wreck_ = folder_.Path() / "wreck.tav";
  const fs::path nitrox_ = folder_.Path() / "nitrox.tav";
  std::unique_ptr<HeadlessProgram> p_;
};

TEST_F(Leaving, AsksOnceForAllPlansWithUnsavedChanges) {
  struct Choice {
    std::function<void(frmLeaving&)> act;
    bool leaves;
    bool wreckSaved;
    bool nitroxSaved;
  };
  const Choice choices[] = {
      {[](frmLeaving& box) { box.cbCancel.Press(); }, false, false, false},
      {[](frmLeaving& box) { box.cbDiscard.Press(); }, true, false, false},
      {[](frmLeaving& box) {
         box.ckPlans.Tick(0, false);
         EXPECT_EQ(box.cbSave.Caption.Get(), "Save those with a tick");
         box.cbSave.Press();
       },
       true, false, true},
      {[](frmLeaving& box) { box.cbSave.Press(); }, true, true, true},
  };
  for (const Choice& choice : choices) {
    SCOPED_TRACE(&choice - choices);
    p_.reset();
    HeadlessProgram& p = Start({wreck_.string(), nitrox_.string()});
    const Names before{test::FileText(wreck_), test::FileText(nitrox_)};
    for (const std::int16_t document : std::initializer_list<std::int16_t>{2, 3}) {
      p.program.Forms()(document).mnuclearlastwaypoint();
      ASSERT_TRUE(p.Document(document).Modified);
    }
    int questions = 0;
    p.platform.onModal.emplace_back([&](Form& form) {
      ++questions;
      auto& box = dynamic_cast<frmLeaving&>(form);
      EXPECT_EQ(box.ckPlans.Items.Get().size(), 2U);
      choice.act(box);
    });
    EXPECT_EQ(p.Main().Unload(true), choice.leaves);
    EXPECT_EQ(questions, 1);
    EXPECT_THAT(p.platform.boxes, IsEmpty());
    EXPECT_EQ(test::FileText(wreck_) != before[0], choice.wreckSaved);
    EXPECT_EQ(test::FileText(nitrox_) != before[1], choice.nitroxSaved);
    EXPECT_EQ(p.Main().OpenDocuments().empty(), choice.leaves);
  }
}

TEST_F(Leaving, TheNextStartOpensThePlansOfTheLastSession) {
  Start({wreck_.string(), nitrox_.string()});
  p_->Main().Unload();
  EXPECT_EQ(OpenPlans(Start()), (Names{"wreck.tav", "nitrox.tav"})) << "in the place of the empty plan";
  p_->Main().Unload();
  EXPECT_EQ(OpenPlans(Start({nitrox_.string()})), (Names{"nitrox.tav", "wreck.tav"})) << "none of them twice";
  EXPECT_EQ(p_->Document().ProfileName, "nitrox.tav");
  p_->Main().Unload();
  fs::remove(wreck_);
  EXPECT_EQ(OpenPlans(Start()), Names{"nitrox.tav"});
  EXPECT_THAT(p_->Main().sbStatusBar.Caption.Get(), HasSubstr(wreck_.string()));
  EXPECT_THAT(p_->platform.boxes, IsEmpty());
  p_->Main().mnuReopen.Choose();
  p_->Main().Unload();
  EXPECT_EQ(OpenPlans(Start()), Names{"Plan 1"});
  p_->Main().mnuReopen.Choose();
  p_->Main().Unload();
  EXPECT_EQ(OpenPlans(Start()), Names{"Plan 1"}) << "that session had no file";
}

TEST_F(Leaving, ARecoveredPlanIsNotOpenedTwice) {
  const fs::path copies = folder_.Path() / "copies";
  Start({wreck_.string()});
  p_->program.Forms()(2).mnuclearlastwaypoint();
  p_->Main().KeepForNextStart();
  fs::copy(SettingsFolder(), copies, fs::copy_options::recursive);
  const auto settings = p_->platform.settings;
  p_ = std::make_unique<HeadlessProgram>();
  fs::create_directories(SettingsFolder());
  fs::copy(copies, SettingsFolder(), fs::copy_options::recursive);
  p_->platform.settings = settings;
  p_->platform.answers = {BoxAnswer::Yes};
  ASSERT_TRUE(p_->Start());
  EXPECT_EQ(OpenPlans(*p_), (Names{"Plan 1", "wreck.tav"}));
  EXPECT_TRUE(p_->Document(2).Modified);
}

TEST_F(Leaving, WhatAnotherProgramDoesWithTheFileIsTold) {
  HeadlessProgram& p = Start({wreck_.string(), nitrox_.string()});
  const std::string& status = p.Main().sbStatusBar.Caption.Get();
  // Nothing unsaved: it is read again, and what was in front stays there.
  fs::copy(HeadlessProgram::Dive("rebreather.tav"), wreck_, fs::copy_options::overwrite_existing);
  p.Main().CameToFront();
  EXPECT_EQ(status, "Read again, another program has changed it: wreck.tav");
  EXPECT_EQ(p.Document().ProfileName, "nitrox.tav");
  EXPECT_FALSE(p.Document(2).Template.OpenCircuit);
  EXPECT_FALSE(p.Document(2).Modified);
  // Something unsaved: it is only told, and asked before it is overwritten.
  p.Editor().mnuclearlastwaypoint();
  fs::copy(wreck_, nitrox_, fs::copy_options::overwrite_existing);
  p.Main().CameToFront();
  EXPECT_EQ(status, "Another program has changed it, the plan here has changes of its own: nitrox.tav");
  const std::string theirs = test::FileText(nitrox_);
  for (const auto& [answer, files] : {std::pair(BoxAnswer::Cancel, 0U), {BoxAnswer::No, 1U}}) {
    p.platform.answers = {answer};
    EXPECT_FALSE(p.Main().Files().SaveActive(false));
    EXPECT_EQ(p.platform.fileDialogs.size(), files) << "the second asks for another name";
    EXPECT_EQ(test::FileText(nitrox_), theirs);
  }
  p.platform.answers = {BoxAnswer::Yes};
  EXPECT_TRUE(p.Main().Files().SaveActive(false));
  EXPECT_EQ(test::FileText(nitrox_), ProfileFileText(p.program.Forms(), p.Active()));
  const std::size_t asked = p.platform.boxes.size();
  EXPECT_TRUE(p.Main().Files().SaveActive(false));
  EXPECT_EQ(p.platform.boxes.size(), asked) << "what it has written itself";
  fs::last_write_time(nitrox_, fs::file_time_type::clock::now() - std::chrono::hours(24));
  p.Main().CameToFront();
  EXPECT_EQ(status, "Saved") << "a file that is touched is not changed";
  // Gone, and half written.
  fs::remove(nitrox_);
  p.Main().CameToFront();
  EXPECT_EQ(status, "The file is gone, the plan is unsaved now: nitrox.tav");
  EXPECT_TRUE(p.Document().Modified);
  std::ofstream(wreck_) << "half a file";
  p.Main().CameToFront();
  EXPECT_THAT(status, HasSubstr("wreck.tav"));
  EXPECT_EQ(p.platform.boxes.size(), asked);
  EXPECT_FALSE(p.Document(2).Template.OpenCircuit) << "as it was read";
}

TEST_F(Leaving, TheStatusBarTellsWhatWasDoneUntilTheNextCommand) {
  HeadlessProgram& p = Start({wreck_.string()});
  frmMain& main = p.Main();
  const std::string& status = main.sbStatusBar.Caption.Get();
  main.mnuSaveProfile.Choose();
  EXPECT_EQ(status, "Saved");
  main.mnuViewDepths.Choose();
  EXPECT_EQ(status, "Ready");
  p.platform.filesChosen = {folder_.Path() / "wreck.uddf", folder_.Path() / "wreck.svg", folder_.Path() / "wreck.pdf"};
  main.mnuExport.Choose();
  EXPECT_EQ(status, "Written to wreck.uddf");
  main.mnuExportSvg.Choose();
  EXPECT_EQ(status, "Written to wreck.svg");
  main.mnuGeneralReport.Choose();
  dynamic_cast<PrintPrev&>(*p.platform.modeless.back()).cbPdf.Press();
  EXPECT_EQ(status, "Written to wreck.pdf");
  p.platform.answers = {BoxAnswer::Yes};
  p.platform.onModal.emplace_back([](Form& form) { dynamic_cast<PrintPrint&>(form).Command1.Press(); });
  main.mnuPrint.Choose();
  EXPECT_EQ(status, "Sent to the printer");
}

}  // namespace
}  // namespace tav
