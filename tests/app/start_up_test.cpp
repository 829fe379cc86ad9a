#include "start/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/properties.h"
#include "persist/template_file.h"
#include "start/command_line.h"
#include "start/user_texts.h"
#include "support/english.h"
#include "support/program_fixture.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(CommandLine, IsSplitAtBlanksUpToTheMostArguments) {
  EXPECT_THAT(GetCommandLine(""), IsEmpty());
  EXPECT_THAT(GetCommandLine(" \t "), IsEmpty());
  EXPECT_THAT(GetCommandLine("/vpm \t  /phi\t"), ElementsAre("/vpm", "/phi"));
  EXPECT_THAT(GetCommandLine("a b c  d", 3), ElementsAre("a", "b", "c"));
  EXPECT_EQ(GetCommandLine("1 2 3 4 5 6 7 8 9 10 11").back(), "10");
}

TEST(CommandLine, TurnsOnWhatIsNamedExactly) {
  const Switches all = ParseCommandLine({"/vpm", "/hybrid", "/VeryHighGF", "/phi", "/phi"});
  EXPECT_TRUE(all.SwitchVPM && all.SwitchHybrid && all.VeryHighGF && all.PhiLogOn);
  const Switches none = ParseCommandLine({"/VPM", "/hybrid/phi", "/veryhighgf", "-phi", "plan.tav"});
  EXPECT_FALSE(none.SwitchVPM || none.SwitchHybrid || none.VeryHighGF || none.PhiLogOn);
}

class StartUp : public testing::Test {
 protected:
  StartUp() {
    fs::create_directories(Shipped().parent_path());
    WriteTextFile(Shipped(), WriteTemplateBlock(ShippedDefaultTemplate()));
  }
  [[nodiscard]] fs::path Shipped() const { return scratch_.Path() / "program/template/Default.tpl"; }
  [[nodiscard]] fs::path Own() const { return scratch_.Path() / "user/template/Default.tpl"; }
  /// Why the default template can't be used, in English; empty when it can.
  std::string Init() {
    const StartFaults faults = InitDocuments(documents_, folders_);
    advice_ = AdviceText(test::English(), faults.file.filename(), faults.advice);
    return faults.broken ? test::English().Words(*faults.broken) : "";
  }
  [[nodiscard]] const DiveTemplate& Default() const { return documents_(DocumentStore::DefaultDocument).Template; }

  test::ScratchFolder scratch_;
  ProgramFolders folders_{scratch_.Path() / "program", scratch_.Path() / "user"};
  DocumentStore documents_;
  std::string advice_;
};

TEST_F(StartUp, TakesTheUsersDefaultsBeforeTheShippedOnes) {
  EXPECT_EQ(Init(), "");
  EXPECT_EQ(WriteTemplateBlock(Default()), WriteTemplateBlock(ShippedDefaultTemplate()));
  EXPECT_EQ(documents_(0).TemplateTitle, "Default");
  EXPECT_EQ(advice_, "");
  fs::create_directories(Own().parent_path());
  WriteTextFile(Own(),
                "Start Template Block\nRMV= 22\nGF=1, .8, .2\nOpen Circuit=1\nChange Gas Mixes=\n"
                "Templatename=Mine.tpl\nEnd Template Block\n");
  EXPECT_EQ(Init(), "");
  EXPECT_EQ(Default().RMV, Single(22));
  EXPECT_EQ(Default().DecoRMV, Single(15));
  EXPECT_THAT(Default().ChangeGasMixes, IsEmpty());
  EXPECT_EQ(Default().Templatename, "Mine.tpl");
  // What it does not tell is that of the program, and that is said.
  EXPECT_EQ(Default().StepSize, Single(3));
  EXPECT_EQ(Default().Blends.size(), 8U);
  EXPECT_THAT(advice_, testing::AllOf(HasSubstr("Default.tpl\r\nwas read"), HasSubstr("1: not told here"),
                                      HasSubstr("\"Metric\""), testing::Not(HasSubstr("\"GF\""))));
}

TEST_F(StartUp, FallsBackOnBuiltInDefaultsAndSaysWhy) {
  WriteTextFile(Shipped(), "Start Template Block\nRMV=33\nMetric=?\nEnd Template Block\n");
  EXPECT_THAT(Init(), HasSubstr("Default.tpl:3: \"Metric\" must be 0 or 1"));
  EXPECT_EQ(WriteTemplateBlock(Default()), WriteTemplateBlock(ShippedDefaultTemplate()));
  WriteTextFile(Shipped(), "Start Template Block\nRMV=33\nStepSize=0\nEnd Template Block\n");
  EXPECT_THAT(Init(), HasSubstr("Default.tpl:3: the distance between stops is 0"));
  EXPECT_EQ(WriteTemplateBlock(Default()), WriteTemplateBlock(ShippedDefaultTemplate()));
  fs::remove(Shipped());
  EXPECT_THAT(Init(), HasSubstr("Default.tpl: can't be opened: No such file"));
  EXPECT_EQ(WriteTemplateBlock(Default()), WriteTemplateBlock(ShippedDefaultTemplate()));
}

TEST_F(StartUp, WritesBesideTheProgramOnlyWhereItMay) {
  EXPECT_EQ(folders_.ToWrite("template/My.tpl"), Shipped().parent_path() / "My.tpl");
  // A folder that is not there can't be written either, for any user.
  EXPECT_EQ(folders_.ToWrite("logs/phi.log"), scratch_.Path() / "user/logs/phi.log");
  EXPECT_TRUE(fs::is_directory(scratch_.Path() / "user/logs"));
}

TEST(DefaultTemplate, OfTheDialogIsThereAtTheNextStartWhenTheUserKeepsIt) {
  test::HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto breathe = [&](const char* rate, BoxAnswer keep) {
    p.platform.onModal.emplace_back([&](Form& form) {
      auto& dialog = dynamic_cast<frmProperties&>(form);
      dialog.cbDefault.Press();
      dialog.limits.tbRMV.Type(rate);
      dialog.cbOK.Press();
    });
    p.platform.answers = {keep};
    p.Main().mnuTemplate.Choose();
  };
  const ProgramFolders folders(SourceFolder(), p.folder.Path() / "data");
  const auto nextStart = [&] {
    DocumentStore documents;
    EXPECT_FALSE(InitDocuments(documents, folders).broken);
    return double{documents(DocumentStore::DefaultDocument).Template.RMV};
  };
  breathe("17", BoxAnswer::No);
  EXPECT_EQ(double{p.Document(0).Template.RMV}, 17);
  EXPECT_EQ(double{p.Document().Template.RMV}, 20) << "the plan that is open";
  EXPECT_EQ(nextStart(), 20);
  breathe("18", BoxAnswer::Yes);
  EXPECT_EQ(nextStart(), 18);
  EXPECT_FALSE(p.Document(0).Template.TemplateChanged);

  fs::remove_all(folders.UserFolder());
  WriteTextFile(folders.UserFolder(), "no folder");
  breathe("19", BoxAnswer::Yes);
  EXPECT_THAT(p.platform.LastBox().text, HasSubstr("Default.tpl"));
  EXPECT_EQ(p.platform.LastBox().icon, BoxIcon::Stop);
  EXPECT_TRUE(p.Document(0).Template.TemplateChanged);
}

}  // namespace
}  // namespace tav
