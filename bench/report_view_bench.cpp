// What the user waits for when he looks at results: the information window, a page of a report, a PDF.

#include <QImage>
#include <QtWidgets>
#include <benchmark/benchmark.h>
#include <filesystem>

#include "desktop/form_binder.h"
#include "desktop/qt_printer.h"
#include "desktop/qt_surface.h"
#include "dialogs/general_info.h"
#include "pages/page_player.h"
#include "pages/page_units.h"
#include "plans/profile_commands.h"
#include "reports/dive_report.h"
#include "support/dialog_fixture.h"
#include "support/source_folder.h"

namespace tav::bench {
namespace {

std::filesystem::path Trimix() { return SourceFolder() / "dives/trimix-100.tav"; }

void FillInformationWindow(benchmark::State& state) {
  test::Dialogs dialogs;
  const std::int16_t dive = OpenProfile(dialogs.forms, Trimix()).front();
  dialogs.forms.Activate(dive);
  frmGeneralInfo form(dialogs.Services());
  const auto dialog = MakeDialog(form, nullptr);
  form.Load();
  dialog->show();
  QCoreApplication::processEvents();
  for (auto _ : state) {
    form.fginfo.Cells = {};
    form.setthefirstprofile();
    QCoreApplication::processEvents();
  }
  state.counters["rows"] = dialogs.forms(dive).InputProfile.GetLength();
}
BENCHMARK(FillInformationWindow)->Name("screen/information_window")->Unit(benchmark::kMicrosecond);

/// The long report of one dive, written once.
class Report {
 public:
  Report() {
    const std::int16_t dive = OpenProfile(dialogs_.forms, Trimix()).front();
    GeneralReport report(writer_);
    WriteLongReport(report, dialogs_.forms.Series(dive, false));
  }
  [[nodiscard]] const PageFile& Pages() const { return writer_.Pages(); }

 private:
  test::Dialogs dialogs_;
  PrintPreview writer_{dialogs_.platform, dialogs_.texts};
};

/// A full page at real size; the argument is the scale of the display in per cent.
void ShowPage(benchmark::State& state) {
  const Report report;
  const double scale = static_cast<double>(state.range(0)) / 100;
  const QSize size(static_cast<int>(page::kWidth / kUnitsPerPixel), static_cast<int>(page::kHeight / kUnitsPerPixel));
  QImage image(size * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  QPainter painter(&image);
  PainterSurface surface(painter, page::kWidth, page::kHeight);
  const PagePlayer player(report.Pages());
  for (auto _ : state) player.tempshow(2, surface, 1.0);
}
BENCHMARK(ShowPage)->Name("screen/report_page")->Arg(100)->Arg(200)->Unit(benchmark::kMicrosecond);

/// 21 pages: the seven of the report three times.
void WritePdf(benchmark::State& state) {
  const Report report;
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "tav-bench.pdf";
  for (auto _ : state) {
    QtPrinter printer;
    const auto job = printer.StartPdf(file, "bench", {});
    for (int copy = 0; copy < 3; ++copy) {
      for (int page = 1; page <= report.Pages().Pages(); ++page) {
        if (copy + page > 1) job->NewSheet({});
        PlayPage(report.Pages().Page(page), job->Sheet(), 1.0);
      }
    }
    job->EndDoc();
  }
  std::filesystem::remove(file);
}
BENCHMARK(WritePdf)->Name("pdf/21_pages")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
