#include <gtest/gtest.h>

#include "persist/template_file.h"
#include "plans/profile_commands.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(Closing, AsksOncePerSeriesAndCancelKeepsEverything) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("lake-series.tav").string()}));
  EXPECT_TRUE(p.Editor().AddUserWaypoint(5, 10, 0)) << "a leg behind the ascent of the second dive";
  p.platform.answers = {BoxAnswer::Cancel};
  EXPECT_FALSE(p.Main().Unload(true));
  EXPECT_EQ(p.platform.boxes.size(), 1U);
  EXPECT_EQ(p.Main().OpenDocuments().size(), 3U);
  p.platform.answers = {BoxAnswer::No};
  EXPECT_TRUE(p.Main().Unload(true));
  EXPECT_EQ(p.platform.boxes.size(), 2U);
  EXPECT_TRUE(p.Main().OpenDocuments().empty());
  EXPECT_TRUE((p.platform.settings.contains({"Settings", "MainLeft"})));
}

/// A file with a series of three dives, open in the program as documents 2, 3 and 4.
class LaterDive : public testing::Test {
 protected:
  LaterDive() {
    std::ofstream(file_) << Dive(0, 40) << Dive(60, 30) << Dive(90, 20);
    EXPECT_TRUE(p_.Start({file_.string()}));
  }
  static std::string Dive(double interval, double depth) {
    ClassUseractions actions;
    actions.NewAction();
    actions.setuser(1, depth, 20, 0);
    actions.NewAction();
    actions.setdeco(2);
    return WriteDiveRecord(ShippedDefaultTemplate(), interval, actions);
  }
  bool Close(std::int16_t document, BoxAnswer answer) {
    p_.platform.answers = {answer};
    return p_.Main().CloseDocument(document);
  }
  std::string Series(std::int16_t document) { return ProfileFileText(p_.program.Forms(), document); }
  [[nodiscard]] std::vector<std::string> Captions() {
    std::vector<std::string> captions;
    for (const std::int16_t document : p_.Main().OpenDocuments()) {
      const std::string caption = p_.Look(document).caption;
      if (document > 1) captions.push_back(caption.substr(0, caption.find(" [")));
    }
    return captions;
  }

  HeadlessProgram p_;
  const std::filesystem::path file_ = p_.folder.Path() / "three.tav";
};

TEST_F(LaterDive, LeavesItsSeriesOnlyWhenItsUserSaysSo) {
  const struct {
    std::int16_t document;
    BoxAnswer answer;
    std::vector<std::string> left;
    std::string file;  ///< what the next save writes; empty when nothing is left
  } cases[] = {
      {3, BoxAnswer::Cancel, {"three.tav Dive:1", "three.tav Dive:2", "three.tav Dive:3"}, Series(2)},
      {4, BoxAnswer::Cancel, {"three.tav Dive:1", "three.tav Dive:2", "three.tav Dive:3"}, Series(2)},
      {3, BoxAnswer::Yes, {"three.tav Dive:1", "three.tav Dive:2"}, Dive(0, 40) + Dive(90, 20)},
      {4, BoxAnswer::Yes, {"three.tav Dive:1", "three.tav Dive:2"}, Dive(0, 40) + Dive(60, 30)},
      {3, BoxAnswer::No, {}, ""},
  };
  const std::string whole = test::FileText(file_);
  for (const auto& known : cases) {
    SCOPED_TRACE(std::to_string(known.document) + ": " + std::to_string(static_cast<int>(known.answer)));
    p_.platform.boxes.clear();
    EXPECT_EQ(Close(known.document, known.answer), known.answer != BoxAnswer::Cancel);
    ASSERT_EQ(p_.platform.boxes.size(), 1U);
    EXPECT_NE(p_.platform.boxes[0].text.find("its dive " + std::to_string(known.document - 1)), std::string::npos);
    EXPECT_EQ(Captions(), known.left);
    EXPECT_EQ(test::FileText(file_), whole) << "no close shortens a file";
    if (known.file.empty()) break;
    EXPECT_EQ(Series(2), known.file);
    EXPECT_EQ(p_.Document(2).Modified, known.answer == BoxAnswer::Yes);
    if (known.answer != BoxAnswer::Yes) continue;
    EXPECT_EQ(p_.Active(), known.document - 1) << "where Undo brings it back";
    p_.Main().mnuUndo.Choose();
    EXPECT_EQ(Series(2), whole);
    p_.Main().Activate(static_cast<std::int16_t>(known.document - 1));
    p_.Main().mnuRedo.Choose();
    EXPECT_EQ(Series(2), known.file);
    p_.Main().Activate(static_cast<std::int16_t>(known.document - 1));
    p_.Main().mnuUndo.Choose();
    ASSERT_EQ(Series(2), whole);
    p_.Document(2).Modified = false;
  }
}

TEST_F(LaterDive, ComesBackWithWhatItsOwnUndoKnows) {
  const Single runTime = p_.program.Forms()(4).CurrentRunTime();
  p_.Main().Activate(3);
  p_.Document(3).Template.GFHigh = 0.7;
  p_.Main().ApplyToProfile();
  const std::string changed = Series(2);
  EXPECT_TRUE(Close(4, BoxAnswer::Yes));
  EXPECT_TRUE(Close(3, BoxAnswer::Yes));
  EXPECT_EQ(Series(2), Dive(0, 40));
  p_.Main().mnuUndo.Choose();  // dive 2
  p_.Main().mnuUndo.Choose();  // dive 3
  EXPECT_EQ(Series(2), changed);
  EXPECT_EQ(p_.Editor().DiveNumber, 3);
  p_.Main().Activate(p_.Editor().PrevProfile);
  p_.Main().mnuUndo.Choose();  // the gradient factor
  EXPECT_EQ(Series(2), test::FileText(file_));
  EXPECT_EQ(double{p_.program.Forms()(p_.Editor().NextProfile).CurrentRunTime()}, double{runTime});
}

}  // namespace
}  // namespace tav
