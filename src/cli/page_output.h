#pragma once

#include <filesystem>
#include <string>

#include "cli/command_frame.h"
#include "cli/long_work.h"
#include "pages/print_preview.h"

namespace tav {

/// Reports of tavplan: the pages are written here, and drawn into a PDF by the desktop program, which needs no display
/// for that. So tavplan itself starts without a window system.
class PageOutput {
 public:
  /// `out` is the PDF to be written. Throws FileError where it is a file that the command reads.
  PageOutput(CommandFrame& frame, std::filesystem::path out);

  [[nodiscard]] PrintPreview& Pages() { return pages_; }
  /// Draws what has been written, a step of the work for each page. Throws std::runtime_error, whose text is one line
  /// that names the file, and Interrupted.
  void WritePdf(const std::string& title, LongWork& work) const;

 private:
  struct KeptBoxes : MessageBoxes {
    BoxAnswer Show(const std::string& text, const std::string&, BoxIcon, BoxButtons buttons) override {
      if (first.empty()) first = text;
      return DismissedAnswer(buttons);
    }
    std::string first;
  };
  class Machine : public Environment {
   public:
    explicit Machine(std::filesystem::path logo) : logo_(std::move(logo)) {}
    [[nodiscard]] std::string UserName() const override;
    [[nodiscard]] std::string Today() const override;
    [[nodiscard]] std::filesystem::path TemporaryFolder() const override;
    [[nodiscard]] std::string Logo() const override;

   private:
    std::filesystem::path logo_;
  };

  std::filesystem::path out_;
  const TextSource& texts_;
  KeptBoxes boxes_;
  Machine machine_;
  PrintPreview pages_;
};

}  // namespace tav
