#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_platform.h"
#include "pages/page_player.h"
#include "pages/print_preview.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

using Kind = RecordingSurface::Kind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A writer on the headless platform, with its file in a folder of the test's own.
class Pages : public testing::Test {
 protected:
  Pages() { platform.temporaryFolder = folder.Path(); }

  [[nodiscard]] std::string Page(int number) const { return writer.Pages().Page(number); }
  std::unique_ptr<RecordingSurface> Shown(int number, double zoom = 1) const {
    auto surface = std::make_unique<RecordingSurface>(16839.9, 11907);
    PagePlayer(writer.Pages()).tempshow(number, *surface, zoom);
    return surface;
  }

  test::ScratchFolder folder;
  HeadlessPlatform platform;
  TextSource texts;
  PrintPreview writer{platform, texts};
};

TEST_F(Pages, ATextStandsInTheFileAsToldAndOnTheSurfaceWhereItWasPut) {
  writer.InitPreview();
  writer.StartPlainPage();
  writer.PrintTextLeft(1.3, 2.2, "left", "Arial", 15, 1);
  writer.PrintTextRight(28.0, 2.9, "right", "Arial", 10, 0);
  writer.PrintPlainFooter("", "");

  EXPECT_EQ(Page(1).substr(0, Page(1).find("#txt_r")),
            "#fn\r\nArial\r\n#fs\r\n15\r\n#fb\r\n1\r\n#y\r\n1247.4\r\n#x\r\n737.1\r\n#txt_l\r\nleft\r\n"
            "#fn\r\nArial\r\n#fs\r\n10\r\n#fb\r\n0\r\n#y\r\n1644.3\r\n#x\r\n15876\r\n");
  const auto drawn = Shown(1)->Of(Kind::PageText);
  ASSERT_EQ(drawn.size(), 4U);
  EXPECT_EQ(drawn[0].font, (TextFont{"Arial", 15, true}));
  EXPECT_NEAR(drawn[0].x0, 737.1, 0.001);
  // Right edge at 28 cm; a letter of the surface is half an em wide.
  EXPECT_NEAR(drawn[1].x0, 15876 - 5 * 100, 0.001);
  EXPECT_EQ(drawn[2].colour, kRed);
}

TEST_F(Pages, ZoomScalesFontsAndNothingElse) {
  writer.InitPreview();
  writer.StartPlainPage();
  writer.PrintTextLeft(1, 1, "x", "Arial", 10, 0);
  writer.PrintPlainFooter("", "");
  const auto text = Shown(1, 0.65)->Of(Kind::PageText).front();
  EXPECT_NEAR(text.font.points, 6.5, 1e-9);
  EXPECT_NEAR(text.x0, 567, 0.001);
}

TEST_F(Pages, CentredTextIsShiftedByItsWidthInThePreviewsOwnFont) {
  writer.InitPreview();
  writer.PrintInCen(11.0, 1.2, "ABCD", "Arial", 30, 1);
  writer.PrintInCen(0.1, 1.2, "ABCD", "Arial", 30, 1);
  ASSERT_EQ(platform.boxes.size(), 1U);  // the second would begin left of the page
  EXPECT_EQ(platform.LastBox().title, "PrintInCen");
  EXPECT_EQ(platform.LastBox().icon, BoxIcon::Stop);
  writer.TemPrint("#endpage");
  std::ifstream file(writer.Pages().Path(), std::ios::binary);
  const std::string all((std::istreambuf_iterator<char>(file)), {});
  // 2.778 of 8.25 pt for the letters, half of them 229 units: 11 x 567 - 229.
  EXPECT_THAT(all, HasSubstr("#x\r\n6008\r\n#txt_c\r\nABCD"));
  EXPECT_THAT(all, Not(HasSubstr("#txt_c\r\nABCD\r\n#fn")));
}

TEST_F(Pages, TheLineRuleLooksOnlyAtWhetherColourAndStyleAreEmpty) {
  struct Case {
    std::string colour, style;
    Kind kind;
    Colour drawn;
  };
  for (const Case& c :
       {Case{"", "", Kind::Line, 255}, Case{"", "B", Kind::Box, 255}, Case{"", "BF", Kind::Box, 255},
        Case{"10526880", "", Kind::FilledBox, RGB(160, 160, 160)},
        Case{"10526880", "B", Kind::FilledBox, RGB(160, 160, 160)}, Case{"FF", "BF", Kind::FilledBox, 0}}) {
    RecordingSurface surface(1, 1);
    PlayPage("#ForeColor\r\n255\r\n#line\r\n1\r\n2,5\r\n3\r\n4.5\r\n" + c.colour + "\r\n" + c.style + "\r\n", surface,
             1);
    ASSERT_EQ(surface.strokes.size(), 1U);
    EXPECT_EQ(surface.strokes[0], (RecordingSurface::Stroke{c.kind, 1, 2.5, 3, 4.5, c.drawn, ""}))
        << c.colour << c.style;
  }
}

TEST_F(Pages, AFileOfACommaLocaleIsReadInAnyLocale) {
  platform.separators = {",", "."};
  PrintPreview german(platform, texts);
  german.InitPreview();
  german.StartPlainPage();
  german.PrintTextLeft(2.9, 1, "x", "Arial", 10, 0);
  german.PrintPlainFooter("", "");
  EXPECT_THAT(german.Pages().Page(1), HasSubstr("1644,3"));
  RecordingSurface surface(1, 1);
  PagePlayer(german.Pages()).tempshow(1, surface, 1);
  EXPECT_NEAR(surface.strokes.front().x0, 1644.3, 0.001);
}

TEST_F(Pages, PicturesAreFilesBesideThePagesAndAMissingOneLeavesItsPlaceToTheLast) {
  writer.InitPreview();
  writer.StartPlainPage();
  writer.PrintPicture("one", 0.8, 2.0, 5.05, 2.0);
  writer.PrintPicture("two", 0.8, 5.0, 5.05, 2.0);
  writer.PrintPlainFooter("", "");
  auto pictures = Shown(1)->Of(Kind::Picture);
  ASSERT_EQ(pictures.size(), 2U);
  EXPECT_NE(pictures[0].text, pictures[1].text);
  EXPECT_NEAR(pictures[0].x1 - pictures[0].x0, 5.05 * 567, 0.001);
  std::filesystem::remove(pictures[1].text);
  EXPECT_EQ(Shown(1)->Of(Kind::Picture)[1].text, pictures[0].text);

  writer.InitPreview();  // the next report
  EXPECT_FALSE(std::filesystem::exists(pictures[0].text));
}

TEST_F(Pages, NoTextBeginsOrEndsAPage) {
  writer.InitPreview();
  writer.StartPlainPage();
  const std::vector<std::string> texts_{"wreck\r\n#endpage\r\n#startpage", "#endpage", "#startpage", "#txt_l"};
  for (const std::string& text : texts_) writer.PrintTextLeft(1, 1, text, "Arial", 10, 0);
  writer.PrintPlainFooter("", "");
  EXPECT_EQ(writer.Pages().Pages(), 1);
  EXPECT_THAT(Shown(1)->Texts(),
              ElementsAre("wreck  #endpage  #startpage", " #endpage", " #startpage", "#txt_l", "", ""));
}

TEST_F(Pages, AFileOfOthersIsIndexedByItsOwnLines) {
  const auto opened = [&](const std::string& text) {
    std::ofstream(folder.Path() / "pages", std::ios::binary) << text;
    auto file = std::make_unique<PageFile>();
    const bool usable = file->Open(folder.Path() / "pages");
    EXPECT_EQ(usable, file->Pages() > 0);
    return file;
  };
  EXPECT_EQ(opened("#startpage\na\n#endpage\n#startpage\nb\n#endpage\n")->Page(2), "b\n");
  const auto unclosed = opened("#startpage\r\na\r\n#startpage\r\nb");
  EXPECT_EQ(unclosed->Page(1), "a\r\n");
  EXPECT_EQ(unclosed->Page(2), "b");
  EXPECT_EQ(opened("#endpage\r\n")->Pages(), 0);
  EXPECT_FALSE(PageFile().Open(folder.Path() / "none"));
}

TEST_F(Pages, APaperThatNobodyHasIsTakenForTheUsualOne) {
  const struct {
    const char* paper;
    double width;
  } kPapers[] = {{"2835\n68040", 2835},  // 5 cm to 120 cm
                 {"2830\n20000", PageSize().width},
                 {"20000\n68050", PageSize().width},
                 {"x\n20000", PageSize().width}};
  for (const auto& [paper, width] : kPapers) {
    std::ofstream(folder.Path() / "pages") << "#startpage\n#paper\n" << paper << "\n#endpage\n";
    PageFile file;
    ASSERT_TRUE(file.Open(folder.Path() / "pages"));
    EXPECT_EQ(PagePlayer(file).SizeOf(1).width, width) << paper;
  }
}

TEST_F(Pages, TheScratchFolderIsTheUsersAlone) {
  std::filesystem::path path;
  {
    PrintPreview own(platform, texts);
    own.InitPreview();
    path = own.TempPath();
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(path).permissions() & (perms::group_all | perms::others_all), perms::none);
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Pages, WhatAKilledProcessLeftIsTakenAwayAndNothingElse) {
  // No process has a number beyond the largest of the system.
  const std::pair<const char*, bool> folders[] = {{"tav-pages-99999999-abcdef", false},
                                                  {"tav", true},
                                                  {"tav-pages-x", true},
                                                  {"tav-pages-1-abcdef", true}};  // process 1 is always there
  for (const auto& [name, stays] : folders) {
    std::filesystem::create_directory(folder.Path() / name);
    std::ofstream(folder.Path() / name / "file") << "x";
  }
  writer.InitPreview();
  for (const auto& [name, stays] : folders) EXPECT_EQ(std::filesystem::exists(folder.Path() / name), stays) << name;
}

TEST_F(Pages, AReportThatCanNotBeWrittenEndsWithOneMessage) {
  platform.temporaryFolder = folder.Path() / "gone";
  struct Window : PreviewWindow {
    void ShowPreview(const std::string& /*caption*/) override { shown = true; }
    bool shown = false;
  } window;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/proc");  // where no folder can be made, not even by root
  writer.window = &window;
  writer.InitPreview();
  writer.StartPlainPage();
  writer.PrintPlainFooter("", "");
  writer.EndReport("Report");
  std::filesystem::current_path(before);
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_THAT(platform.LastBox().text, HasSubstr("/proc: "));
  EXPECT_FALSE(window.shown);
}

/// Pages "1" to "5", printed.
class Printing : public Pages {
 protected:
  Printing() {
    writer.InitPreview();
    for (int page = 1; page <= 5; ++page) {
      writer.StartPlainPage();
      writer.PrintTextLeft(1, 1, std::to_string(page), "Arial", 10, 0);
      writer.TemPrint("#endpage");
    }
  }
  /// The first text of each sheet.
  std::vector<std::string> Print(int first, int last, int cancelAtPage = 0) {
    HeadlessPrinter printer;
    bool cancel = false;
    announced.clear();
    PagePlayer(writer.Pages())
        .PrintPages(first, last, *printer.Start({"plan", "Office"}, {}),
                    {[&](int page) {
                       announced.push_back(page);
                       cancel = page == cancelAtPage;
                     },
                     [&] { return cancel; }});
    std::vector<std::string> sheets;
    for (const auto& sheet : printer.jobs.front()->sheets) {
      sheets.push_back(sheet->strokes.empty() ? "" : sheet->strokes.front().text);
    }
    EXPECT_TRUE(printer.jobs.front()->ended);
    return sheets;
  }
  std::vector<int> announced;
};

TEST_F(Printing, PrintsTheRangeAndNoEmptySheet) {
  EXPECT_THAT(Print(2, 3), ElementsAre("2", "3"));
  EXPECT_THAT(announced, ElementsAre(2, 3));
  EXPECT_THAT(Print(5, 5), ElementsAre("5"));
  EXPECT_THAT(Print(4, 9), ElementsAre("4", "5"));
  EXPECT_THAT(Print(3, 3, 1), ElementsAre("3"));
}

TEST_F(Printing, ACancelLetsTheBegunPageFinish) { EXPECT_THAT(Print(1, 4, 2), ElementsAre("1", "2")); }

TEST_F(Printing, APageThatIsNotThereIsEmpty) {
  EXPECT_THAT(Shown(6)->strokes, IsEmpty());
  EXPECT_THAT(Shown(0)->strokes, IsEmpty());
  EXPECT_EQ(Shown(5)->strokes.size(), 1U);
}

}  // namespace
}  // namespace tav
