#pragma once

#include <QPrinter>
#include <memory>

#include "platform/printer.h"

namespace tav {

/// Paper through the system's printers and dialogs, and PDF files.
class QtPrinter : public Printer {
 public:
  [[nodiscard]] bool HasPrinter() const override;
  void SetUp() override;
  std::unique_ptr<PrintJob> Start(const std::string& title, const PageSize& first) override;
  std::unique_ptr<PrintJob> StartPdf(const std::filesystem::path& file, const std::string& title,
                                     const PageSize& first) override;

 private:
  QPrinter& Device();

  std::unique_ptr<QPrinter> device_;  ///< with what the user has set up; made when first needed
};

}  // namespace tav
