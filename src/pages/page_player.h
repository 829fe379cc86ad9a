#pragma once

#include <functional>
#include <string_view>

#include "pages/page_file.h"
#include "platform/page_size.h"
#include "platform/printer.h"

namespace tav {

/// Replays the pages of a report on a surface whose lengths are page units. A file that others have written into draws
/// what it says, and nothing worse: lines that are no command are passed over, numbers are kept within bounds.
class PagePlayer {
 public:
  explicit PagePlayer(const PageFile& file) : file_(file) {}

  /// Draws one page (from 1) on a cleared surface; a page that is not there leaves it empty. `ZoomScale` scales the
  /// sizes of fonts, which are points of the surface: its real height in twips / 11907.
  void tempshow(int page, DrawingSurface& target, double ZoomScale) const;

  /// The size of one page (from 1): landscape A4 for one that is not there or tells a size that no paper has.
  [[nodiscard]] PageSize SizeOf(int page) const;

  /// What a run of PrintPages asks and tells.
  struct PrintProgress {
    std::function<void(int page)> SistemaBarra;  ///< a page begins; pending events may run
    std::function<bool()> CancelPrint;           ///< stop before the next page; what has begun is finished
  };
  /// Prints a range of pages, each on a sheet, and ends the job. Pages that the file does not have are left out.
  /// Throws std::runtime_error when the printer fails.
  void PrintPages(int firstPage, int lastPage, PrintJob& job, const PrintProgress& progress) const;

 private:
  const PageFile& file_;
};

/// Draws the commands of one page. Font sizes are multiplied by `ZoomScale`.
void PlayPage(std::string_view lines, DrawingSurface& target, double ZoomScale);

}  // namespace tav
