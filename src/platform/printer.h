#pragma once

#include <filesystem>
#include <memory>
#include <string>

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

/// Paper, and files that look like paper.
class Printer {
 public:
  virtual ~Printer() = default;

  /// The system's dialogs. False when no printer is installed, or when the user gave up.
  [[nodiscard]] virtual bool HasPrinter() const = 0;
  /// Paper and printer for the jobs to come.
  virtual void SetUp() = 0;
  /// A job on the chosen printer, after the system's own print dialog, with a sheet for a first page of that size;
  /// nullptr when the user gave up. Throws std::runtime_error when the printer can't be used.
  virtual std::unique_ptr<PrintJob> Start(const std::string& title, const PageSize& first) = 0;
  /// A PDF file with embedded fonts. The file appears, or changes, only with EndDoc.
  virtual std::unique_ptr<PrintJob> StartPdf(const std::filesystem::path& file, const std::string& title,
                                             const PageSize& first) = 0;
};

}  // namespace tav
