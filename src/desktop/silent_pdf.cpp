#include "desktop/silent_pdf.h"

#include <QGuiApplication>
#include <QtGlobal>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "app/program_folders.h"
#include "app/user_texts.h"
#include "desktop/qt_printer.h"
#include "report/page_player.h"

namespace tav {
namespace {

constexpr int kArguments = 7;

int Fail(const std::string& reason) {
  std::fprintf(stderr, "tav: %s\n", reason.c_str());
  constexpr int kUnusable = 2;
  return kUnusable;
}

}  // namespace

bool WantsSilentPdf(int argc, char** argv) { return argc > 1 && std::string_view(argv[1]) == "--pages"; }

int SilentPdf(int argc, char** argv) {
  if (argc != kArguments || std::string_view(argv[3]) != "--pdf" || std::string_view(argv[5]) != "--title") {
    return Fail("--pages FILE --pdf OUT --title TITLE is how a page file becomes a PDF");
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  PageFile pages;
  if (!pages.Open(argv[2])) return Fail(std::string(argv[2]) + ": the file can't be read, or holds no page");
  try {
    QtPrinter printer;
    PagePlayer(pages).PrintPages(1, pages.Pages(), *printer.StartPdf(argv[4], argv[6]),
                                 {[](int) {}, [] { return false; }});
  } catch (const std::exception& error) {
    return Fail(LazyTexts(ProgramFolders::OfThisProgram().ProgramFolder(), LazyTexts::Language::User).Words(error));
  }
  return 0;
}

}  // namespace tav
