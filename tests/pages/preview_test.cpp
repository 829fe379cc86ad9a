#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_platform.h"
#include "pages/preview_form.h"
#include "pages/print_form.h"
#include "support/scratch_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::HasSubstr;

/// A report of five pages in its preview.
class Preview : public testing::Test {
 protected:
  Preview() { platform.temporaryFolder = folder.Path(); }

  PrintPrev& Show(int pages = 5) {
    writer.InitPreview();
    for (int page = 1; page <= pages; ++page) {
      writer.StartPlainPage();
      writer.PrintTextLeft(1, 1, "page " + std::to_string(page), "Arial", 10, 0);
      writer.PrintPlainFooter("", "");
    }
    writer.EndReport("General report");
    return dynamic_cast<PrintPrev&>(*platform.modeless.back());
  }
  /// The text on the page that is shown, and the size of its font.
  static std::pair<std::string, double> Seen(PrintPrev& preview) {
    RecordingSurface surface(16839.9, 11907);
    preview.Prv.Draw(surface, preview.Prv.Zoom);
    return {surface.strokes.front().text, surface.strokes.front().font.points};
  }

  test::ScratchFolder folder;
  HeadlessPlatform platform;
  TextSource texts;
  PrintPreview writer{platform, texts};
  PreviewWindows windows{writer, platform};
};

TEST_F(Preview, TurnsPagesWithinTheReport) {
  PrintPrev& preview = Show();
  struct Case {
    PrintPrev::Command command;
    const char* page;
  };
  for (const Case& c :
       {Case{PrintPrev::Previous, "page 1"}, Case{PrintPrev::Next, "page 2"}, Case{PrintPrev::Last, "page 5"},
        Case{PrintPrev::Next, "page 5"}, Case{PrintPrev::Previous, "page 4"}, Case{PrintPrev::First, "page 1"}}) {
    preview.Cmd_Click(c.command);
    EXPECT_EQ(Seen(preview).first, c.page);
  }
  EXPECT_EQ(preview.lbPage.Caption.Get(), Numbered("<PreviewPage>1<PreviewOf>5"));
}

TEST_F(Preview, ZoomsBetweenATenthAndABitAboveTheRealSize) {
  PrintPrev& preview = Show();
  EXPECT_NEAR(preview.ZoomFactor(), 0.65, 1e-6);
  EXPECT_NEAR(Seen(preview).second, 6.5, 1e-5);
  for (int i = 0; i < 20; ++i) preview.Cmd_Click(PrintPrev::ZoomIn);
  EXPECT_NEAR(preview.ZoomFactor(), 0.65 / std::pow(0.9, 5), 1e-5);  // the first step past 1.0
  for (int i = 0; i < 60; ++i) preview.Cmd_Click(PrintPrev::ZoomOut);
  EXPECT_GT(preview.ZoomFactor(), 0.1 * 0.9);
  EXPECT_LE(preview.ZoomFactor(), 0.1);
}

TEST_F(Preview, KeepsZoomAndSizeForTheNextReport) {
  struct Case {
    const char* stored;
    double opens;
  };
  for (const Case& c : {Case{"0.66", 0.66}, Case{"1.60", 0.65}, Case{"0.00", 0.65}, Case{"", 0.65}, Case{"x", 0.65}}) {
    platform.settings[{"Preview", "ZoomFactor"}] = c.stored;
    EXPECT_NEAR(Show().ZoomFactor(), c.opens, 1e-6) << c.stored;
    platform.settings.erase({"Preview", "ZoomFactor"});
    windows.ClosePreview();
  }
  PrintPrev& preview = Show();
  preview.Cmd_Click(PrintPrev::ZoomIn);
  preview.Width = 12345;
  writer.InitPreview();  // the next report closes it
  EXPECT_TRUE(platform.modeless.empty());
  EXPECT_EQ((platform.settings[{"Preview", "ZoomFactor"}]), "0.72");
  EXPECT_EQ((platform.settings[{"Preview", "Width"}]), "12345");
}

TEST_F(Preview, SavesAPdfOfAllPagesUnderTheNameOfThePlan) {
  writer.documentName = "";
  PrintPrev& preview = Show();
  writer.documentName = "wreck.tav";
  preview.cbPdf.Press();  // given up
  EXPECT_TRUE(platform.printer.jobs.empty());
  EXPECT_EQ(platform.fileDialogs.back().fileName, "wreck.pdf");
  platform.filesChosen.push_back("/tmp/plan.pdf");
  preview.cbPdf.Press();
  ASSERT_EQ(platform.printer.jobs.size(), 1U);
  EXPECT_EQ(platform.printer.jobs[0]->file, "/tmp/plan.pdf");
  EXPECT_EQ(platform.printer.jobs[0]->sheets.size(), 5U);
  EXPECT_NEAR(platform.printer.jobs[0]->sheets[0]->Width() / 1440 * 2.54, 29.7, 0.01) << "A4 on its side";
  EXPECT_NEAR(platform.printer.jobs[0]->sheets[0]->Height() / 1440 * 2.54, 21, 0.01);
  EXPECT_THAT(platform.printer.jobs[0]->title, HasSubstr("wreck"));
  preview.cbPdf.Press();
  EXPECT_EQ(platform.fileDialogs.back().folder, "/tmp") << "the folder used last";
}

TEST_F(Preview, APdfThatCanNotBeWrittenIsAMessage) {
  PrintPrev& preview = Show();
  platform.filesChosen.push_back("/tmp/plan.pdf");
  platform.printer.fails = "disk full";
  preview.cbPdf.Press();
  EXPECT_EQ(platform.LastBox().text, Numbered("<PdfNotWritten>\r\ndisk full"));
  EXPECT_FALSE(platform.hourglass);
}

/// The dialog on a report of five pages.
class PrintDialog : public Preview {
 protected:
  PrintDialog() {
    Show();
    dialog.Load();
  }
  PrintPrint dialog{writer, platform, "wreck"};
};

TEST_F(PrintDialog, PrintsTheRangeAfterItsQuestion) {
  platform.answers = {BoxAnswer::Yes};
  dialog.sPag.Select(1);
  dialog.ePag.Select(2);
  dialog.Command1.Press();
  EXPECT_EQ(platform.LastBox().text, Numbered("<PrintFromPage>\t2\n<PrintToPage>\t3?"));
  ASSERT_EQ(platform.printer.jobs.size(), 1U);
  EXPECT_EQ(platform.printer.jobs[0]->sheets.size(), 2U);
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(PrintDialog, AFirstPageBehindTheLastPrintsThatPageAlone) {
  platform.answers = {BoxAnswer::Yes};
  dialog.sPag.Select(2);
  dialog.ePag.Select(1);
  dialog.Command1.Press();
  EXPECT_EQ(platform.LastBox().text, Numbered("<PrintOnePage>"));
  EXPECT_EQ(platform.printer.jobs.at(0)->sheets.size(), 1U);
}

TEST_F(PrintDialog, ACancelLetsThePageFinishAndTheJobEnd) {
  platform.answers = {BoxAnswer::Yes};
  int pages = 0;
  platform.onEvents = [&] {
    EXPECT_TRUE(dialog.Command2.Bold && platform.hourglass);
    if (++pages == 2) dialog.Command2.Press();
  };
  dialog.Command1.Press();
  EXPECT_EQ(platform.printer.jobs.at(0)->sheets.size(), 2U);
  EXPECT_TRUE(platform.printer.jobs.at(0)->ended);
  EXPECT_FALSE(dialog.IsLoaded() || platform.hourglass);
  EXPECT_EQ(dialog.ProgressBar1.Value.Get(), 40);
}

TEST_F(PrintDialog, SaysWhatThePrinterReports) {
  platform.answers = {BoxAnswer::Yes};
  platform.printer.fails = "out of paper";
  dialog.Command1.Press();
  EXPECT_EQ(platform.LastBox().text, Numbered("<PrinterFailed>\r\nout of paper"));
  EXPECT_FALSE(platform.hourglass || dialog.Command2.Bold) << "there is nothing to cancel";
}

TEST_F(PrintDialog, SendsTheCopiesToTheChosenPrinter) {
  platform.printer.printers = {{"Office", true}, {"Boat", false}};
  platform.answers = {BoxAnswer::Yes};
  PrintPrint second(writer, platform, "wreck");
  second.Load();
  second.ckBothSides.Set(true);
  second.cmbCopies.Select(2);
  second.cmbPrinter.Select(1);
  EXPECT_FALSE(second.ckBothSides.Enabled) << "the printer of the boat has no duplex";
  second.Command1.Press();
  const PrintOrder& order = platform.printer.orders.at(0);
  EXPECT_EQ(order.printer, "Boat");
  EXPECT_EQ(order.copies, 3);
  EXPECT_FALSE(order.bothSides);
}

TEST_F(PrintDialog, ClosesWithoutPrintingOnNoAndWithoutAPrinterItSaysSo) {
  platform.answers = {BoxAnswer::No};
  dialog.Command1.Press();
  EXPECT_TRUE(platform.printer.jobs.empty());
  EXPECT_FALSE(dialog.IsLoaded());

  platform.printer.printers.clear();
  platform.answers = {BoxAnswer::Yes};
  PrintPrint second(writer, platform, "wreck");
  second.Load();
  second.Command1.Press();
  EXPECT_EQ(platform.LastBox().text, Numbered("<NoPrinter>"));
  EXPECT_TRUE(platform.printer.jobs.empty());
  EXPECT_FALSE(platform.hourglass);
}

}  // namespace
}  // namespace tav
