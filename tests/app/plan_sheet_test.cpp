// Name, place and notes of a plan, and its sheet.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/plan_sheet_form.h"
#include "dialogs/report_selection.h"
#include "pages/preview_form.h"
#include "pages/print_form.h"
#include "persist/profile_file.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

class PlanSheetDialog : public testing::Test {
 protected:
  PlanSheetDialog() {
    program_.Start();
    program_.Main().OpenFile(HeadlessProgram::Dive("lake-series.tav").string());
  }
  /// Opens the dialog, and acts on it.
  void Open(const std::function<void(frmPlanSheet&)>& act) {
    program_.platform.onModal.emplace_back([act](Form& form) { act(dynamic_cast<frmPlanSheet&>(form)); });
    program_.Main().mnuPlanSheet.Choose();
  }
  PlanTexts& TextsOf(std::int16_t document) { return program_.Document(document).Template.Texts; }

  HeadlessProgram program_;
};

TEST_F(PlanSheetDialog, KeepsItsTextsWithTheFirstDiveAsOneStepOfUndo) {
  const std::int16_t last = program_.Active();
  const std::int16_t first = program_.program.Forms()(last).getFirstProfile();
  ASSERT_NE(first, last);
  const PlanTexts texts{"North wall", "Mooring 3", "slack 11:30\nchannel 72"};
  Open([](frmPlanSheet& form) {
    form.tbName.Type(" North wall ");
    form.tbPlace.Type("Mooring 3");
    form.tbNotes.Type("slack 11:30\r\nchannel 72\n");
    form.cbOK.Press();
    EXPECT_FALSE(form.IsLoaded());
  });
  EXPECT_EQ(TextsOf(first), texts);
  EXPECT_EQ(TextsOf(last), PlanTexts());
  program_.Main().Activate(first);
  program_.Main().mnuUndo.Choose();
  EXPECT_EQ(TextsOf(first), PlanTexts());
  program_.Main().mnuRedo.Choose();
  EXPECT_EQ(TextsOf(first), texts);
  const std::filesystem::path file = program_.folder.Path() / "named.tav";
  program_.platform.filesChosen = {file};
  program_.Main().mnuSaveProfileAs.Choose();
  EXPECT_EQ(ReadProfileFile(file).dives.front().Template.Texts, texts);
}

TEST_F(PlanSheetDialog, RefusesWhatCanNotBeKept) {
  const std::int16_t first = program_.program.Forms()(program_.Active()).getFirstProfile();
  Open([this](frmPlanSheet& form) {
    form.tbName.Type(std::string(101, 'x'));
    form.cbPreview.Press();
    EXPECT_TRUE(form.IsLoaded());
    EXPECT_THAT(program_.platform.boxes.back().text, testing::HasSubstr("Name has 101 letters, 100 at most"));
    form.tbName.Type("reef");
    form.tbNotes.Type(
        "a\x01"
        "b");
    form.cbOK.Press();
    EXPECT_THAT(program_.platform.boxes.back().text, testing::HasSubstr("Notes holds a character"));
    form.cbCancel.Press();
  });
  EXPECT_EQ(TextsOf(first), PlanTexts());
}

TEST_F(PlanSheetDialog, ShowsTheSheetOnThePaperThatIsRemembered) {
  program_.Main().Activate(program_.program.Forms()(program_.Active()).getFirstProfile());
  const auto thisDive = [](Form& form) { dynamic_cast<frmReportSelection&>(form).Command1.Press(); };
  program_.platform.onModal.emplace_back([](Form& form) {
    auto& dialog = dynamic_cast<frmPlanSheet&>(form);
    dialog.cmbPaper.Select(1);
    dialog.cbPreview.Press();
  });
  program_.platform.onModal.emplace_back(thisDive);
  program_.Main().mnuPlanSheet.Choose();
  const auto sizeShown = [this] {
    const auto& preview = dynamic_cast<PrintPrev&>(*program_.platform.modeless.back());
    EXPECT_EQ(preview.Caption.Get(), "Plan sheet");
    return preview.Prv.Size;
  };
  EXPECT_EQ(sizeShown(), UprightPage(Paper::Letter));
  // Ctrl+P has the same sheet, and goes on to the printer.
  program_.platform.onModal.emplace_back(thisDive);
  program_.platform.answers = {BoxAnswer::Yes};
  program_.platform.onModal.emplace_back([](Form& form) { dynamic_cast<PrintPrint&>(form).Command1.Press(); });
  program_.Main().mnuPrint.Choose();
  EXPECT_EQ(sizeShown(), UprightPage(Paper::Letter));
  const auto& sheets = program_.platform.printer.jobs.back()->sheets;
  EXPECT_EQ(sheets.front()->Width(), UprightPage(Paper::Letter).width);
}

TEST(PaperOfLocale, IsThatOfItsCountry) {
  for (const char* locale : {"en_US.UTF-8", "es_MX", "fr_CA@euro"}) EXPECT_EQ(PaperOfLocale(locale), Paper::Letter);
  for (const char* locale : {"", "C", "POSIX", "en", "de_AT.UTF-8", "en_GB"})
    EXPECT_EQ(PaperOfLocale(locale), Paper::A4);
}

}  // namespace
}  // namespace tav
