#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/drawing_surface.h"
#include "platform/page_size.h"

namespace tav {

/// A print job under way: pages that go out when it ends. Dropped without EndDoc it prints what was drawn so far, too.
class PrintJob {
 public:
  virtual ~PrintJob() = default;

  /// The sheet in hand, of which (0, 0) is the corner of the paper. Lengths in 1/567 cm.
  [[nodiscard]] virtual DrawingSurface& Sheet() = 0;
  /// Ejects the sheet and begins the next, for a page of that size. Throws std::runtime_error when the printer fails.
  virtual void NewSheet(const PageSize& page) = 0;
  /// Sends the job. Throws std::runtime_error when that fails.
  virtual void EndDoc() = 0;
};

/// A printer that is installed.
struct InstalledPrinter {
  std::string name;
  bool bothSides = false;  ///< can print on both sides of a sheet
};

/// What a job is told.
struct PrintOrder {
  std::string title;    ///< names the job
  std::string printer;  ///< of those that are installed
  int copies = 1;
  bool bothSides = false;
};

/// Paper, and files that look like paper.
class Printer {
 public:
  virtual ~Printer() = default;

  /// Those that are installed, the one used last or the system's own choice first.
  [[nodiscard]] virtual std::vector<InstalledPrinter> Installed() = 0;
  /// The system's dialog of paper and trays for the jobs to come on a printer; on the first of them without a name.
  virtual void SetUp(const std::string& printer) = 0;
  /// A job with a sheet for a first page of that size. Throws std::runtime_error when the printer can't be used.
  virtual std::unique_ptr<PrintJob> Start(const PrintOrder& order, const PageSize& first) = 0;
  /// A PDF file with embedded fonts. The file appears, or changes, only with EndDoc.
  virtual std::unique_ptr<PrintJob> StartPdf(const std::filesystem::path& file, const std::string& title,
                                             const PageSize& first) = 0;
};

}  // namespace tav
