#pragma once

#include <filesystem>
#include <string>

#include "cli/command_frame.h"
#include "cli/long_work.h"
#include "pages/print_preview.h"

namespace tav {

/// Reports of tavplan: the pages are written here, and drawn into a PDF by the desktop program, which needs no display
/// for that. So tavplan itself starts without a window system. SVG pictures it draws itself.
class PageOutput {
 public:
  /// `out` is the PDF to be written, empty for none. Throws FileError where it is a file that the command reads.
  PageOutput(CommandFrame& frame, std::filesystem::path out);

  [[nodiscard]] PrintPreview& Pages() { return pages_; }
  /// Draws what has been written, a step of the work for each page. Throws std::runtime_error, whose text is one line
  /// that names the file, and Interrupted.
  void WritePdf(const std::string& title, LongWork& work) const;
  /// Draws each page as a picture of its own, `prefix`-1.svg, `prefix`-2.svg, ... Throws FileError.
  void WriteSvg(const std::string& prefix, const std::string& title, LongWork& work) const;

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

  /// Throws FileError for pages that could not be written.
  void CheckPages(const std::filesystem::path& file) const;

  CommandFrame& frame_;
  std::filesystem::path out_;
  const TextSource& texts_;
  KeptBoxes boxes_;
  Machine machine_;
  PrintPreview pages_;
};

}  // namespace tav
