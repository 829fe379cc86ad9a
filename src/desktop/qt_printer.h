#pragma once

#include <QPrinter>
#include <memory>

#include "platform/printer.h"

namespace tav {

/// Paper through the system's printers and dialogs, and PDF files.
class QtPrinter : public Printer {
 public:
  [[nodiscard]] std::vector<InstalledPrinter> Installed() override;
  void SetUp(const std::string& printer) override;
  std::unique_ptr<PrintJob> Start(const PrintOrder& order, const PageSize& first) override;
  std::unique_ptr<PrintJob> StartPdf(const std::filesystem::path& file, const std::string& title,
                                     const PageSize& first) override;

 private:
  /// The device, on that printer; on the one used last without a name.
  QPrinter& Device(const std::string& printer = "");

  std::unique_ptr<QPrinter> device_;  ///< with what the user has set up; made when first needed
};

}  // namespace tav
