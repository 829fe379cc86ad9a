// The gas supply in the long report, for plans that tell their cylinders.

#include <array>

#include "reports/long_report.h"

namespace tav {
namespace {

/// Where a column stands: its left edge, or its right one for a number.
struct Place {
  double x;
  bool right;
  double width;  ///< of the longest text, cm
};

constexpr std::array<Place, 8> kGasPlaces{{{2.0, false, 2.6},
                                           {4.9, false, 6.4},
                                           {13.2, true, 0},
                                           {15.6, true, 0},
                                           {18.0, true, 0},
                                           {20.4, true, 0},
                                           {23.0, true, 0},
                                           {23.5, false, 3.5}}};
constexpr std::array<Place, 9> kLegPlaces{{{2.9, true, 0},
                                           {4.9, true, 0},
                                           {6.6, true, 0},
                                           {7.2, false, 2.6},
                                           {12.4, true, 0},
                                           {15.4, true, 0},
                                           {18.2, true, 0},
                                           {21.0, true, 0},
                                           {21.6, false, 5.4}}};

constexpr double kRow = 0.5;
constexpr double kHead = 1.7;
constexpr double kPageEnd = 16.8;
constexpr double kTopOfPage = 4.0;
constexpr double kTitleX = 12.5;

Place PlaceOf(std::size_t column, bool legs) { return legs ? kLegPlaces.at(column) : kGasPlaces.at(column); }

}  // namespace

void GeneralReport::SupplyBlock() {
  const SupplyTables& supply = dive_->supply;
  if (supply.gases.empty()) return;
  SupplyTable(supply.gases, supply.gasTitle, false);
  if (supply.legs.size() > 1) SupplyTable(supply.legs, supply.legTitle, true);
}

void GeneralReport::SupplyHead(const SupplyTables::Table& table, const std::string& title) {
  const bool legs = &table == &dive_->supply.legs;
  const Single y = SectionY_;
  TitleBand(y, 0.8, title, legs ? kTitleX - 3 : kTitleX);
  const std::size_t columns = legs ? kLegPlaces.size() : kGasPlaces.size();
  for (std::size_t i = 0; i < columns; ++i) {
    const Place place = PlaceOf(i, legs);
    if (place.right) {
      out_.PrintTextRight(place.x, y + 1.1, table[0][i].text, "Arial", 8, 1);
    } else {
      Left(place.x, y + 1.1, table[0][i].text, 8, true);
    }
  }
  TableTop_ = y + 0.8;
  SectionY_ += kHead;
}

void GeneralReport::SupplyTable(const SupplyTables::Table& table, const std::string& title, bool twoLines) {
  const double height = twoLines ? 2 * kRow : kRow;
  SectionY_ += kRow;
  // A head is never alone on its page.
  if (SectionY_ + kHead + height > kPageEnd + kRow) {
    NewPage();
    SectionY_ = kTopOfPage;
  }
  SupplyHead(table, title);
  for (std::size_t i = 1; i < table.size(); ++i) {
    if (SectionY_ + height > kPageEnd + kRow) {
      Outline(TableTop_, SectionY_);
      NewPage();
      SectionY_ = kTopOfPage;
      SupplyHead(table, title);
    }
    SupplyRow(table[i], static_cast<int>(i) - 1, twoLines);
    SectionY_ += height;
  }
  Outline(TableTop_, SectionY_);
}

void GeneralReport::SupplyRow(const std::vector<GridCell>& row, int index, bool twoLines) {
  const Single y = SectionY_;
  RowBand(y, index, {});
  if (twoLines) RowBand(y + kRow, index, {});
  const std::size_t columns = twoLines ? kLegPlaces.size() : kGasPlaces.size();
  for (std::size_t i = 0; i < columns; ++i) {
    const Place place = PlaceOf(i, twoLines);
    if (row[i].colour >= 0) out_.SetForeColor(row[i].colour);
    if (place.right) {
      Right(place.x, y, row[i].text, row[i].bold);
    } else {
      Fitted(place.x, y, row[i].text, place.width, row[i].bold);
    }
    out_.SetForeColor(kBlack);
  }
  // How the minimum gas is worked out.
  constexpr int kSmall = 8;
  if (twoLines) Left(kLegPlaces.at(3).x, y + kRow, row.back().text, kSmall);
}

}  // namespace tav
