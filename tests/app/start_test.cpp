#include <gtest/gtest.h>

#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(Start, OpensAnEmptyPlanBeforeTheNoticeAndShowsTheWindowAfterIt) {
  HeadlessProgram p;
  bool open = false;
  p.platform.onModal.emplace_back([&](Form& form) {
    auto& notice = dynamic_cast<frmLiability&>(form);
    open = p.Main().OpenDocuments().size() == 1 && !p.view.shown;
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
  EXPECT_EQ(p.Look(1).caption, "Plan 1 [Default.tpl]");
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

TEST(Start, OpensTheFilesThatAreNamedAndReportsThoseThatAreNot) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("trimix-100.tav").string(), "missing.tav"}));
  EXPECT_EQ(p.Main().OpenDocuments().size(), 2U);
  EXPECT_EQ(p.platform.boxes.size(), 1U);
  EXPECT_EQ(p.Document().ProfileName, "trimix-100.tav");
}

}  // namespace
}  // namespace tav
