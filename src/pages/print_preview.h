#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "model/number_texts.h"
#include "model/single.h"
#include "pages/arial_measure.h"
#include "pages/page_file.h"
#include "pages/scratch_folder.h"
#include "platform/colour.h"
#include "platform/page_size.h"
#include "platform/platform.h"
#include "platform/text_source.h"

namespace tav {

/// What the writer tells the window that shows its pages. Each operation does nothing unless a window overrides it.
class PreviewWindow {
 public:
  PreviewWindow() = default;
  PreviewWindow(const PreviewWindow&) = delete;
  PreviewWindow& operator=(const PreviewWindow&) = delete;
  virtual ~PreviewWindow() = default;

  /// A new report begins: the window of the one before goes away.
  virtual void ClosePreview() {}
  /// The number of pages written so far.
  virtual void setPageMax(int /*pages*/) {}
  /// The report is whole.
  virtual void ShowPreview(const std::string& /*caption*/) {}
};

/// What the writer works with. All of it outlives it.
struct PageServices {
  MessageBoxes& boxes;
  const Environment& environment;
  NumberTexts numbers;
  ArialMeasure measure = {};
};

/// Writes reports as page description files. Report code calls the operations and draws nothing; PagePlayer replays the
/// pages on a screen or on paper.
///
/// Lengths are centimetres on the page, font sizes points, `bold` is 0 or 1, colours are
/// red + 256 x green + 65536 x blue. Every line is in the file when the call that wrote it returns, or the Batch around
/// it ends. A page is closed by one of the two footers. A file that can't be written is told once, by EndReport.
class PrintPreview {
 public:
  PrintPreview(PageServices services, const TextSource& texts);
  PrintPreview(const Platform& platform, const TextSource& texts)
      : PrintPreview(PageServices{platform.boxes, platform.environment, platform.separators}, texts) {}
  PrintPreview(const PrintPreview&) = delete;
  PrintPreview& operator=(const PrintPreview&) = delete;
  /// Removes the scratch folder.
  ~PrintPreview();

  /// While one is alive, lines are gathered; they are in the file when it ends. For calls that write thousands.
  class Batch {
   public:
    explicit Batch(PrintPreview& writer) : writer_(writer) { ++writer_.batches_; }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    ~Batch() {
      if (--writer_.batches_ == 0) writer_.file_.Flush();
    }

   private:
    PrintPreview& writer_;
  };

  /// The window that shows the pages; nullptr for none. It outlives the writer or is taken away first.
  PreviewWindow* window = nullptr;

  /// The name of what is reported, for titles and file names; empty at the start of each report.
  std::string documentName;

  // File and pages.
  /// Empties the file and closes the window of the report before. Every report calls it first.
  void InitPreview();
  void TemPrint(std::string_view line);
  void CountPages();
  /// Opens a page without anything on it. CloseBarePage ends one that has no footer of this class.
  void StartPlainPage(const PageSize& size = {});
  /// Opens a page with the framed title band.
  void PrintHeader(const std::string& left, const std::string& centre, const std::string& right);
  /// The framed bottom band; closes the page.
  void PrintFooter(const std::string& left, const std::string& line1, const std::string& line2,
                   const std::string& right);
  /// Two small red lines; closes the page.
  void PrintPlainFooter(const std::string& line1, const std::string& line2);
  void CloseBarePage();
  /// Shows the window with that caption; or says what could not be written.
  void EndReport(const std::string& caption);

  // Drawing.
  void PrintTextLeft(Single x, Single y, const std::string& text, const std::string& fontName, int fontSize, int bold);
  /// x is the right edge.
  void PrintTextRight(Single x, Single y, const std::string& text, const std::string& fontName, int fontSize, int bold);
  /// Text that takes `width` cm at most: in letters smaller than `fontSize`, on the same line, and what is too long for
  /// those of size `smallest` is cut in its middle.
  void PrintTextFitted(Single x, Single y, const std::string& text, double width, const std::string& fontName,
                       int fontSize, int bold, int smallest = 6);
  /// The text moves to the left by half the width that it has in the preview's own font, "Arial" 8.25 regular: what is
  /// larger sits right of its centre.
  void PrintInCen(Single x, Single y, const std::string& text, const std::string& fontName, int fontSize, int bold);
  void PrintFilledBox(Single x1, Single y1, Single x2, Single y2, Colour colour);
  /// A box, or with a height or width of 0 a rule, in the ink of the moment.
  void PrintBoxOutline(Single x1, Single y1, Single x2, Single y2);
  void SetForeColor(Colour colour);
  /// `picture` holds the bytes of a picture file.
  void PrintPicture(const std::string& picture, Single x, Single y, Single width, Single height);

  [[nodiscard]] const PageFile& Pages() const { return file_; }
  /// The scratch folder, readable by the user alone; empty until the first report.
  [[nodiscard]] const std::filesystem::path& TempPath() const { return folder_.Path(); }
  [[nodiscard]] const TextSource& Texts() const { return texts_; }
  [[nodiscard]] const PageServices& Services() const { return services_; }

 private:
  void Text(std::string_view keyword, Single left, Single y, const std::string& text, const std::string& fontName,
            int fontSize, int bold);
  void Box(Single x1, Single y1, Single x2, Single y2, std::string_view fill, const std::string& colour,
           std::string_view style);
  void Lines(std::initializer_list<std::string_view> lines);
  [[nodiscard]] std::string Units(Single cm) const;

  PageServices services_;
  const TextSource& texts_;
  ScratchFolder folder_;
  PageFile file_;
  int pictures_ = 0;
  int batches_ = 0;
};

}  // namespace tav
