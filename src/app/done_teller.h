#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace tav {

/// Clipboard and printer of a platform that tell when something has been done with them, whichever window did it.
class DoneTeller : private Clipboard, private Printer {
 public:
  /// `tell` gets the number of a text, and the file that goes into it, if any.
  DoneTeller(Platform platform, std::function<void(int text, const std::string& file)> tell)
      : platform_(std::move(platform)), tell_(std::move(tell)) {}

  /// The platform with them, and with those windows, in the place of its own.
  [[nodiscard]] Platform Services(Windows& windows);

 private:
  [[nodiscard]] std::string Text() const override { return platform_.clipboard.Text(); }
  void SetText(const std::string& text) override;
  [[nodiscard]] std::vector<InstalledPrinter> Installed() override { return platform_.printer.Installed(); }
  void SetUp(const std::string& printer) override { platform_.printer.SetUp(printer); }
  std::unique_ptr<PrintJob> Start(const PrintOrder& order, const PageSize& first) override;
  std::unique_ptr<PrintJob> StartPdf(const std::filesystem::path& file, const std::string& title,
                                     const PageSize& first) override;

  Platform platform_;
  std::function<void(int, const std::string&)> tell_;
};

}  // namespace tav
