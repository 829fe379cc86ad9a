// A comparison on landscape pages.

#include <algorithm>
#include <sstream>

#include "model/text_columns.h"
#include "model/text_id.h"
#include "reports/comparison_table.h"

namespace tav {
namespace {

// cm
constexpr double kLeft = 1.9;
constexpr double kRight = 27.1;
constexpr double kTop = 3.4;
constexpr double kBottom = 17.1;  // the footer begins below
constexpr double kRow = 0.5;
constexpr double kLabel = 6.2;
constexpr std::size_t kColumns = 4;  ///< on a page
constexpr double kColumn = (kRight - kLeft - kLabel) / kColumns;
constexpr double kGap = 0.2;

const std::string kArial = "Arial";

class Pages {
 public:
  Pages(PrintPreview& out, const ColumnTable& table) : out_(out), table_(table) {}

  void Write() {
    out_.InitPreview();
    for (std::size_t from = 0; from < table_.heads.size(); from += kColumns) {
      NewPage();
      Columns(from, std::min(table_.heads.size(), from + kColumns));
    }
    y_ += kGap;
    for (const auto* lines : {&table_.notes, &table_.warnings}) {
      for (const std::string& line : *lines) Line(line);
    }
    Close();
    out_.EndReport(T(Text::CompareTitle));
  }

 private:
  void NewPage() {
    Close();
    ++page_;
    out_.PrintHeader(T(Text::ReportProgram), T(Text::CompareTitle),
                     T(Text::ReportDate) + out_.Services().environment.Today());
    y_ = kTop;
  }

  void Close() {
    if (page_ == 0) return;
    out_.PrintFooter(T(Text::ReportPrintedBy) + out_.Services().environment.UserName(), T(Text::ReportAid),
                     T(Text::ReportRisk), T(Text::ReportPage) + std::to_string(page_));
  }

  void Columns(std::size_t from, std::size_t to) {
    const auto x = [from](std::size_t column) { return kLeft + kLabel + kColumn * static_cast<double>(column - from); };
    const auto heads = [&] {
      for (std::size_t i = from; i < to; ++i) {
        Fitted(x(i), table_.heads[i].name, kColumn, 10, true);
        y_ += kRow;
        Fitted(x(i), table_.heads[i].detail, kColumn, 9);
        y_ -= kRow;
      }
      y_ += 2 * kRow;
      Rule();
    };
    heads();
    bool total = false;
    for (const ColumnTable::Row& row : table_.rows) {
      if (y_ + kRow > kBottom) {
        NewPage();
        heads();
      } else if (row.total && !total) {
        Rule();
      }
      total = row.total;
      Fitted(kLeft, row.Heading(), kLabel, 10);
      for (std::size_t i = from; i < to; ++i) {
        const ColumnTable::Cell& cell = row.cells[i];
        if (cell.bad) out_.SetForeColor(kRed);
        Fitted(x(i), cell.All(), kColumn, 10, cell.differs);
        if (cell.bad) out_.SetForeColor(kBlack);
      }
      y_ += kRow;
    }
  }

  void Line(const std::string& text) {
    constexpr std::size_t kLetters = 140;
    std::istringstream lines(Wrapped(text, 2, kLetters));
    for (std::string line; std::getline(lines, line);) {
      if (y_ + kRow > kBottom) NewPage();
      Fitted(kLeft, line, kRight - kLeft, 9);
      y_ += kRow;
    }
  }

  void Rule() {
    out_.PrintBoxOutline(kLeft, y_, kRight, y_);
    y_ += kGap / 2;
  }

  void Fitted(double x, const std::string& text, double width, int size, bool bold = false) {
    out_.PrintTextFitted(x, y_, text, width - kGap, kArial, size, bold ? 1 : 0);
  }

  [[nodiscard]] std::string T(int id) const { return out_.Texts().GetResString(id); }

  PrintPreview& out_;
  const ColumnTable& table_;
  int page_ = 0;
  double y_ = kTop;
};

}  // namespace

void PrintComparison(PrintPreview& out, const ColumnTable& table) {
  const PrintPreview::Batch batch(out);
  Pages(out, table).Write();
}

}  // namespace tav
