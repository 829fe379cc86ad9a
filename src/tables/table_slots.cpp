#include "tables/table_slots.h"

#include <algorithm>

namespace tav {
namespace {

constexpr double kGridWidth = TableSlots::kColumns * TableSlots::kCellWidth;
constexpr double kMargin = 0.3;         // cm between the edge of a cell and a table
constexpr double kRightLimit = 24.0;    // cm, how far a table of two cells may reach
constexpr double kRoomForTotals = 2.0;  // cm under a table that must be left in its cell

}  // namespace

TablePlace TableSlots::PlaceTable(Single width, Single height) {
  while (true) {
    const Cell cell = FirstFree();
    const double left = kLeft + static_cast<double>(cell.column) * kCellWidth;
    TablePlace place{page_, 0, kTop + static_cast<double>(cell.row) * kCellHeight + kMargin};
    if (width <= kCellWidth) {
      place.x = left + (kCellWidth - width) / 2;
      Take(cell, 1);
      TakeForHeight(cell, height);
    } else if (width <= 2 * kCellWidth) {
      place.x = left + kMargin;
      Take(cell, 2);
      TakeForHeight(cell, height);
      if (place.x + width > kRightLimit) continue;
    } else if (width <= kGridWidth) {
      place.x = kLeft + (kGridWidth - width) / 2;
      Take(cell, 3);
    } else {
      NextPage();
    }
    place.page = page_;
    return place;
  }
}

TableSlots::Cell TableSlots::FirstFree() {
  for (std::size_t row = 0; row < kRows; ++row) {
    for (std::size_t column = 0; column < kColumns; ++column) {
      if (!taken_[row][column]) return {row, column};
    }
  }
  NextPage();
  return {};
}

void TableSlots::Take(const Cell& cell, std::size_t columns) {
  const std::size_t end = std::min<std::size_t>(cell.column + columns, kColumns);
  for (std::size_t column = cell.column; column < end; ++column) taken_[cell.row][column] = true;
}

void TableSlots::TakeForHeight(const Cell& cell, double height) {
  if (cell.row == 0) {
    if (height + kRoomForTotals > kCellHeight) taken_[1][cell.column] = true;
  } else if (height > kCellHeight) {
    NextPage();
  }
}

void TableSlots::NextPage() {
  ++page_;
  ClearTableSlots();
}

}  // namespace tav
