#include "tables/table_pages.h"

#include <algorithm>
#include <cmath>

namespace tav {
namespace {

constexpr int kCells = TableSlots::kRows * TableSlots::kColumns;

}  // namespace

void TablePages::StartTableOutput() {
  writer_.InitPreview();
  slots_.ClearTableSlots();
  writer_.StartPlainPage();
}

void TablePages::Close() {
  if (hasMarks_) DrawCutMarks();
  writer_.PrintPlainFooter("", "");
}

void TablePages::NextTablePage() {
  Close();
  writer_.StartPlainPage();
  ++page_;
  cards_ = 0;
  slotPage_ = 0;
  hasMarks_ = false;
  hasColumn_ = false;
  upright_ = {};
  level_ = {};
}

void TablePages::EndTableOutput(int caption) {
  Close();
  writer_.EndReport(writer_.Texts().GetResString(caption));
}

bool TablePages::OpenGrid(const TablePlace& place, const TableInfo& info) {
  if (place.page == slotPage_) return false;
  if (hasColumn_) NextTablePage();
  slotPage_ = place.page;
  hasMarks_ = true;
  Furnish(info);
  return true;
}

TablePlace TablePages::PlaceCard(const TableInfo& info) {
  // The first card after tables takes a page of its own; without tables the first page is still free.
  const bool pageIsFree = cards_ > 0 ? cards_ < kCells : !hasColumn_;
  if (!pageIsFree) NextTablePage();
  hasMarks_ = true;
  Furnish(info);
  const int row = cards_ / TableSlots::kColumns;
  const int column = cards_ % TableSlots::kColumns;
  ++cards_;
  return {page_, TableSlots::kLeft + column * TableSlots::kCellWidth, TableSlots::kTop + row * TableSlots::kCellHeight};
}

TablePlace TablePages::PlaceTall(const TableInfo& info, const std::string& head, int abreast) {
  constexpr double kTop = 1.7;
  const int column = tall_++ % abreast;
  if (column == 0) {
    StartWholePage(info);
    writer_.PrintTextFitted(TableSlots::kLeft + 0.4, 1.0, head, TableSlots::kColumns * TableSlots::kCellWidth - 0.8,
                            "Arial", 12, 1);
  }
  return {page_, TableSlots::kLeft + column * TableSlots::kColumns * TableSlots::kCellWidth / abreast, kTop};
}

void TablePages::StartWholePage(const TableInfo& info) {
  if (hasColumn_) NextTablePage();
  Furnish(info);
}

void TablePages::Furnish(const TableInfo& info) {
  if (!hasColumn_) columnEnd_ = PrintTableInfo(writer_, info);
  hasColumn_ = true;
  writer_.SetForeColor(kBlack);
}

void TablePages::KeepWhole(double left, double top, double right, double bottom) {
  const auto cell = [](double at, double from, double size, int count) {
    return static_cast<std::size_t>(std::clamp(std::floor((at - from) / size), 0.0, count - 1.0));
  };
  using Slots = TableSlots;
  const std::size_t firstColumn = cell(left, Slots::kLeft, Slots::kCellWidth, Slots::kColumns);
  const std::size_t lastColumn = cell(right, Slots::kLeft, Slots::kCellWidth, Slots::kColumns);
  const std::size_t firstRow = cell(top, Slots::kTop, Slots::kCellHeight, Slots::kRows);
  const std::size_t lastRow = cell(bottom, Slots::kTop, Slots::kCellHeight, Slots::kRows);
  for (std::size_t column = firstColumn; column <= lastColumn; ++column) {
    for (std::size_t row = firstRow; row <= lastRow; ++row) {
      if (column > firstColumn) upright_.at(row).at(column) = true;
    }
    if (lastRow > firstRow) level_.at(column) = true;
  }
}

void TablePages::DrawCutMarks() {
  using Slots = TableSlots;
  constexpr double kArm = 0.25;  // cm
  writer_.SetForeColor(kBlack);
  // Whether there is an arm along the piece of a line in that row or column. None points out of the grid.
  const auto upright = [&](int line, int row) {
    if (row < 0 || row >= Slots::kRows) return false;
    return line == Slots::kColumns || !upright_.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(line));
  };
  const auto level = [&](int line, int column) {
    return column >= 0 && column < Slots::kColumns && !(line == 1 && level_.at(static_cast<std::size_t>(column)));
  };
  for (int row = 0; row <= Slots::kRows; ++row) {
    const double y = Slots::kTop + row * Slots::kCellHeight;
    for (int column = 0; column <= Slots::kColumns; ++column) {
      const double x = Slots::kLeft + column * Slots::kCellWidth;
      const auto rule = [&](double x1, double y1, double x2, double y2) {
        if (x1 != x2 || y1 != y2) writer_.PrintBoxOutline(x1, y1, x2, y2);
      };
      rule(x, upright(column, row - 1) ? y - kArm : y, x, upright(column, row) ? y + kArm : y);
      rule(level(row, column - 1) ? x - kArm : x, y, level(row, column) ? x + kArm : x, y);
    }
  }
}

}  // namespace tav
