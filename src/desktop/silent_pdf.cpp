#include "desktop/silent_pdf.h"

#include <QGuiApplication>
#include <QtGlobal>
#include <cstdio>
#include <exception>
#include <functional>
#include <string_view>

#include "desktop/qt_printer.h"
#include "model/text_id.h"
#include "pages/page_player.h"
#include "persist/text_file.h"
#include "start/program_folders.h"
#include "start/user_texts.h"

namespace tav {
namespace {

constexpr int kArguments = 7;

int Fail(const std::exception& error) {
  const LazyTexts texts(ProgramFolders::OfThisProgram().ProgramFolder(), LazyTexts::Language::User);
  std::fprintf(stderr, "tav: %s\n", texts.Words(error).c_str());
  constexpr int kUnusable = 2;
  return kUnusable;
}

/// Tells whoever started this program how far it is.
std::function<void(int)> TellPage(int pages) {
  return [pages](int page) { std::fprintf(stderr, "page %d of %d\n", page, pages); };
}

}  // namespace

bool WantsSilentPdf(int argc, char** argv) { return argc > 1 && std::string_view(argv[1]) == "--pages"; }

int SilentPdf(int argc, char** argv) {
  if (argc != kArguments || std::string_view(argv[3]) != "--pdf" || std::string_view(argv[5]) != "--title") {
    return Fail(MessageError("", {Text::PdfUsage, {"--pages FILE --pdf OUT --title TITLE"}}));
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  PageFile pages;
  if (!pages.Open(argv[2])) return Fail(FileError(argv[2], 0, Text::NoPageFile));
  try {
    QtPrinter printer;
    const PagePlayer player(pages);
    player.PrintPages(1, pages.Pages(), *printer.StartPdf(argv[4], argv[6], player.SizeOf(1)),
                      {TellPage(pages.Pages()), [] { return false; }});
  } catch (const std::exception& error) {
    return Fail(error);
  }
  return 0;
}

}  // namespace tav
