// The gas supply in the long report, for plans that tell their cylinders.

#include "reports/report_blocks.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

/// Where a column stands: its left edge, or its right one for a number.
struct Place {
  double x;
  bool right;
  double width;  ///< of the longest text, cm
};

const std::vector<Place> kGasPlaces{{2.0, false, 2.6}, {4.9, false, 5.2}, {13.2, true, 3.0}, {15.6, true, 2.3},
                                    {18.0, true, 2.3}, {20.4, true, 2.3}, {23.0, true, 2.4}, {23.5, false, 3.5}};
const std::vector<Place> kLegPlaces{{2.9, true, 0.9},  {4.9, true, 1.9},  {6.6, true, 1.6},
                                    {7.2, false, 2.6}, {12.4, true, 2.5}, {15.4, true, 2.9},
                                    {18.2, true, 2.6}, {21.0, true, 2.6}, {21.6, false, 5.4}};

constexpr double kRow = ReportPages::kRow;
constexpr double kHead = 1.7;
constexpr double kPageEnd = ReportPages::kEnd;
constexpr double kTopOfPage = 4.0;

class SupplyTable {
 public:
  /// A row of two lines has a note on its second one.
  SupplyTable(ReportPages& pages, const SupplyTables::Table& table, const std::vector<Place>& places, int linesOfRow)
      : pages_(pages), table_(table), places_(places), height_(linesOfRow * kRow) {}

  Single Write(Single y, const std::string& title, Single titleX) {
    y_ = y + kRow;
    // A head is never alone on its page.
    if (y_ + kHead + height_ > kPageEnd) NextPage();
    Head(title, titleX);
    for (std::size_t i = 1; i < table_.size(); ++i) {
      if (y_ + height_ > kPageEnd) {
        pages_.Outline(top_, y_);
        NextPage();
        Head(title, titleX);
      }
      Row(table_[i], static_cast<int>(i) - 1);
      y_ += height_;
    }
    pages_.Outline(top_, y_);
    return y_;
  }

 private:
  void NextPage() {
    pages_.NewPage();
    y_ = kTopOfPage;
  }

  void Head(const std::string& title, Single titleX) {
    constexpr int kSize = 8;
    pages_.TitleBand(y_, 0.8, title, titleX);
    for (std::size_t i = 0; i < places_.size(); ++i) {
      const std::string& text = table_[0][i].text;
      places_[i].right ? pages_.Right(places_[i].x, y_ + 1.1, text, true, kSize)
                       : pages_.Left(places_[i].x, y_ + 1.1, text, kSize, true);
    }
    top_ = y_ + 0.8;
    y_ += kHead;
  }

  void Row(const std::vector<GridCell>& row, int index) {
    const bool note = height_ > kRow;
    pages_.RowBand(y_, index, {});
    if (note) pages_.RowBand(y_ + kRow, index, {});
    for (std::size_t i = 0; i < places_.size(); ++i) {
      const auto& [x, right, width] = places_[i];
      if (row[i].colour >= 0) pages_.Out().SetForeColor(row[i].colour);
      right ? pages_.Figure(x, y_, row[i].text, width, row[i].bold)
            : pages_.Fitted(x, y_, row[i].text, width, row[i].bold);
      pages_.Out().SetForeColor(kBlack);
    }
    // How the minimum gas is worked out.
    constexpr int kSmall = 8;
    if (note) pages_.Left(places_.at(3).x, y_ + kRow, row.back().text, kSmall);
  }

  ReportPages& pages_;
  const SupplyTables::Table& table_;
  const std::vector<Place>& places_;
  double height_;
  Single y_;    ///< of the next row
  Single top_;  ///< of the table on this page
};

}  // namespace

void WriteSupply(ReportPages& pages, Single y) {
  const DiveTemplate& settings = pages.Template();
  const SupplyTables supply =
      TablesOf(pages.Dive().supply, settings.RMV, AdviceWords(pages.Out().Texts(), pages.Numbers(), settings.Metric));
  if (supply.gases.empty()) return;
  // Where both tables fit on a page of their own, none of them is alone on the next.
  const auto height = [](const SupplyTables::Table& table, int linesOfRow) {
    return table.size() > 1 ? kRow + kHead + static_cast<double>(table.size() - 1) * linesOfRow * kRow : 0.0;
  };
  const double both = height(supply.gases, 1) + height(supply.legs, 2) + (supply.note.empty() ? 0 : 2 * kRow);
  if (y + both > kPageEnd && kTopOfPage + both <= kPageEnd) {
    pages.NewPage();
    y = kTopOfPage - kRow;
  }
  const Single end = SupplyTable(pages, supply.gases, kGasPlaces, 1).Write(y, supply.gasTitle, 12.5);
  Single below = end;
  if (supply.legs.size() > 1) below = SupplyTable(pages, supply.legs, kLegPlaces, 2).Write(end, supply.legTitle, 9.5);
  if (supply.note.empty()) return;
  if (below + 2 * kRow > kPageEnd) {
    pages.NewPage();
    below = kTopOfPage;
  }
  constexpr int kSmall = 8;
  pages.Left(2, below + kRow, supply.note, kSmall);
}

}  // namespace tav
