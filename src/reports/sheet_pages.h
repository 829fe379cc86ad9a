#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "pages/print_preview.h"
#include "platform/page_size.h"

/// Upright pages with blocks that flow down them. Lengths are cm from the top left corner of the paper.
namespace tav {

/// How a text stands there.
struct SheetStyle {
  int points = 9;
  bool bold = false;
  Colour ink = kBlack;
};

/// Pages that are laid out first and written when all is there, so that each can tell how many there are.
class SheetPages {
 public:
  static constexpr double kMargin = 1.8;

  SheetPages(PrintPreview& out, const PageSize& paper) : out_(out), paper_(paper) {}

  [[nodiscard]] double Left() const { return kMargin; }
  [[nodiscard]] double Right() const;
  [[nodiscard]] double Width() const { return Right() - Left(); }
  /// Where blocks begin and end.
  [[nodiscard]] double Top(std::size_t page) const { return page == 0 ? kMargin - 0.3 : kMargin + 0.7; }
  [[nodiscard]] double Bottom() const;

  void Put(std::size_t page, double x, double y, const std::string& text, const SheetStyle& style);
  /// `x` is the right edge.
  void PutRight(std::size_t page, double x, double y, const std::string& text, const SheetStyle& style);
  void Box(std::size_t page, double left, double top, double right, double bottom, Colour colour);
  void Rule(std::size_t page, double left, double right, double y, Colour ink = kBlack);
  /// `picture` holds the bytes of a picture file.
  void Picture(std::size_t page, const std::string& picture, double x, double y, double width, double height);

  [[nodiscard]] double Width(const std::string& text, const SheetStyle& style) const;
  /// The text in lines of that width; what is too long for one, a word or none, is broken between letters.
  [[nodiscard]] std::vector<std::string> Lines(const std::string& text, double width, const SheetStyle& style) const;
  /// As much of a text as one line of that width holds, with dots in the middle where letters are left out.
  [[nodiscard]] std::string Fitted(const std::string& text, double width, const SheetStyle& style) const;
  [[nodiscard]] PrintPreview& Out() { return out_; }
  [[nodiscard]] std::size_t Count() const { return pages_.size(); }

  /// Writes all pages: above those behind the first `title` and `date`, at the foot of each what a plan is and which
  /// page it is of so many.
  void Write(const std::string& title, const std::string& date, std::size_t of);

 private:
  using Stroke = std::function<void(PrintPreview& out)>;
  void Add(std::size_t page, Stroke stroke);
  void Foot(std::size_t page, std::size_t of);

  PrintPreview& out_;
  PageSize paper_;
  std::vector<std::vector<Stroke>> pages_;
};

/// The height of a line, cm.
constexpr double LineHeight(int points) { return points * 2.54 / 72 * 1.2; }

/// A part of the width of the pages, filled from the top to the bottom, page after page.
class SheetColumn {
 public:
  SheetColumn(SheetPages& pages, double left, double right) : pages_(pages), left_(left), right_(right) {
    y_ = pages.Top(0);
  }
  /// Begins where another one has come to.
  SheetColumn(const SheetColumn& above, double left, double right)
      : pages_(above.pages_), left_(left), right_(right), page_(above.page_), y_(above.y_) {}

  [[nodiscard]] double Left() const { return left_; }
  [[nodiscard]] double Width() const { return right_ - left_; }
  [[nodiscard]] SheetPages& Pages() { return pages_; }
  [[nodiscard]] std::size_t Page() const { return page_; }
  [[nodiscard]] double Y() const { return y_; }

  void Space(double height) { y_ += height; }
  /// Turns the page when there is less room than that. False where there was enough.
  bool Need(double height);
  /// The place of a block of that height, which the column goes on below.
  double Take(double height);
  /// Goes on below another column, too.
  void Below(const SheetColumn& other);

  /// A title with a rule below it. `follows` cm of its block stay with it, as far as a page has them.
  void Heading(const std::string& text, double follows);
  /// A text in as many lines as it takes.
  void Paragraph(const std::string& text, const SheetStyle& style) { Marked("", text, style); }
  /// The same with a bold mark ahead of its first line.
  void Marked(const std::string& mark, const std::string& text, const SheetStyle& style);

  struct Cell {
    std::string text;
    bool bold = false;
  };
  struct TableColumn {
    double share;        ///< of the width
    bool right = false;  ///< as numbers stand, which are set smaller rather than broken
    bool whole = false;  ///< the same of texts, as far as they can be read then
  };
  /// A table whose first row is its head, which stands again on each page. Texts go on in further lines of their cell.
  void Table(const std::vector<TableColumn>& columns, const std::vector<std::vector<Cell>>& rows, int points);
  /// How high it is on one page.
  [[nodiscard]] double HeightOf(const std::vector<TableColumn>& columns, const std::vector<std::vector<Cell>>& rows,
                                int points) const;

 private:
  /// A row as it is drawn: the lines of each cell.
  struct Lines {
    SheetStyle style;
    bool head = false;
    std::vector<std::vector<std::string>> cells;
    std::vector<SheetStyle> styles;
    [[nodiscard]] double Height() const;
  };
  [[nodiscard]] int HeadPoints(const std::vector<TableColumn>& columns, const std::vector<Cell>& head,
                               int points) const;
  [[nodiscard]] Lines LinesOf(const std::vector<TableColumn>& columns, const std::vector<Cell>& row, int points,
                              bool head) const;
  void Row(const std::vector<TableColumn>& columns, const Lines& row);

  SheetPages& pages_;
  double left_;
  double right_;
  std::size_t page_ = 0;
  double y_ = 0;
};

}  // namespace tav
