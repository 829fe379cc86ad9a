#include "desktop/qt_printer.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSetupDialog>
#include <QPdfWriter>
#include <QPrinterInfo>
#include <QtWidgets>
#include <algorithm>

#include "desktop/pdf_labels.h"
#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "model/message.h"
#include "model/text_id.h"
#include "pages/page_units.h"
#include "persist/text_file.h"

namespace tav {
namespace {

constexpr double kCmPerInch = 2.54;
constexpr double kPointsPerInch = 72;
constexpr double kMillimetresPerCm = 10;

QPageLayout::Orientation OrientationOf(const PageSize& page) {
  return page.width > page.height ? QPageLayout::Landscape : QPageLayout::Portrait;
}

/// The paper of a page, by its name where it has one.
QPageLayout LayoutOf(const PageSize& page) {
  const QSizeF upright = QSizeF(std::min(page.width, page.height), std::max(page.width, page.height)) /
                         page::kUnitsPerCm * kMillimetresPerCm;
  return {QPageSize(upright, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch), OrientationOf(page), QMarginsF(),
          QPageLayout::Point};
}

/// Paper is what the user has put into the printer; a file has that of its page.
void PutPaper(QPrinter& printer, const PageSize& page) { printer.setPageOrientation(OrientationOf(page)); }
void PutPaper(QPdfWriter& file, const PageSize& page) { file.setPageLayout(LayoutOf(page)); }

/// Sheets on a device that makes a new page on command.
template <class Device>
class SheetJob : public PrintJob {
 public:
  /// The device is set up for the first page.
  SheetJob(Device& device, const PageSize& first) : device_(device) {
    if (!painter_.begin(&device_)) throw MessageError("", Text::PrinterUnusable);
    MakeSurface(first);
  }

  [[nodiscard]] DrawingSurface& Sheet() override { return *surface_; }
  void NewSheet(const PageSize& page) override {
    PutPaper(device_, page);
    if (!device_.newPage()) throw MessageError("", Text::PrintingFailed);
    MakeSurface(page);
  }

 protected:
  void End() {
    if (painter_.isActive() && !painter_.end()) throw MessageError("", Text::PrintingFailed);
  }

 private:
  void MakeSurface(const PageSize& page) {
    constexpr double kHairLine = 0.6;  // points
    const double dotsPerInch = device_.logicalDpiX() * Scale(page);
    surface_.emplace(painter_, page.width, page.height, page::kUnitsPerCm * kCmPerInch / dotsPerInch);
    surface_->SetPixelsPerPoint(dotsPerInch / kPointsPerInch);
    surface_->SetPenWidth(kHairLine * dotsPerInch / kPointsPerInch);
  }

  /// 1, or less where the sheet is smaller than a page: nothing of a plan may fall off its edge.
  [[nodiscard]] double Scale(const PageSize& page) const {
    const QSizeF sheet = device_.pageLayout().fullRect(QPageLayout::Inch).size() * kCmPerInch * page::kUnitsPerCm;
    return std::min({1.0, sheet.width() / page.width, sheet.height() / page.height});
  }

  Device& device_;
  QPainter painter_;
  std::optional<PainterSurface> surface_;
};

class PaperJob : public SheetJob<QPrinter> {
 public:
  using SheetJob::SheetJob;
  void EndDoc() override { End(); }
};

/// The device of a PDF, apart from its job so that it outlives the painter.
struct PdfDevice {
  QBuffer bytes;
  QPdfWriter writer{&bytes};
};

class PdfJob : private PdfDevice, public SheetJob<QPdfWriter> {
 public:
  PdfJob(std::filesystem::path file, const std::string& title, const PageSize& first)
      : SheetJob<QPdfWriter>(Prepared(*this, title, first), first), file_(std::move(file)) {}

  void EndDoc() override {
    End();
    WriteTextFile(file_, WithPageLabels(bytes.data().toStdString()));
  }

 private:
  static QPdfWriter& Prepared(PdfDevice& device, const std::string& title, const PageSize& first) {
    constexpr int kDotsPerInch = 1200;
    device.bytes.open(QIODevice::WriteOnly);
    device.writer.setTitle(ToQt(title));
    device.writer.setCreator(QStringLiteral("TAV"));
    device.writer.setResolution(kDotsPerInch);
    PutPaper(device.writer, first);
    return device.writer;
  }

  std::filesystem::path file_;
};

}  // namespace

std::vector<InstalledPrinter> QtPrinter::Installed() {
  std::vector<InstalledPrinter> printers;
  for (const QPrinterInfo& printer : QPrinterInfo::availablePrinters()) {
    printers.push_back({FromQt(printer.printerName()), printer.supportedDuplexModes().contains(QPrinter::DuplexAuto)});
  }
  const std::string used = printers.empty() ? "" : FromQt(Device().printerName());
  std::stable_partition(printers.begin(), printers.end(),
                        [&](const InstalledPrinter& printer) { return printer.name == used; });
  return printers;
}

QPrinter& QtPrinter::Device(const std::string& printer) {
  if (!device_) {
    device_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    device_->setPageLayout(LayoutOf({}));
    device_->setFullPage(true);
  }
  if (!printer.empty()) device_->setPrinterName(ToQt(printer));
  return *device_;
}

void QtPrinter::SetUp(const std::string& printer) {
  QPageSetupDialog dialog(&Device(printer), QApplication::activeWindow());
  dialog.exec();
}

std::unique_ptr<PrintJob> QtPrinter::Start(const PrintOrder& order, const PageSize& first) {
  QPrinter& device = Device(order.printer);
  device.setDocName(ToQt(order.title));
  device.setCopyCount(order.copies);
  device.setDuplex(order.bothSides ? QPrinter::DuplexAuto : QPrinter::DuplexNone);
  PutPaper(device, first);  // the dialog may have turned the sheet
  return std::make_unique<PaperJob>(device, first);
}

std::unique_ptr<PrintJob> QtPrinter::StartPdf(const std::filesystem::path& file, const std::string& title,
                                              const PageSize& first) {
  return std::make_unique<PdfJob>(file, title, first);
}

}  // namespace tav
