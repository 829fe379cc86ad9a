#include "tables/table_pages.h"

#include "model/text_id.h"

namespace tav {
namespace {

constexpr int kCells = TableSlots::kRows * TableSlots::kColumns;

}  // namespace

void TablePages::StartTableOutput() {
  writer_.InitPreview();
  slots_.ClearTableSlots();
  writer_.StartPlainPage();
}

void TablePages::NextTablePage() {
  writer_.PrintPlainFooter("", "");
  writer_.StartPlainPage();
  ++page_;
  cards_ = 0;
  hasMarks_ = false;
  hasColumn_ = false;
  DrawCutMarks();
}

void TablePages::EndTableOutput() {
  writer_.PrintPlainFooter("", "");
  writer_.EndReport(writer_.Texts().GetResString(Text::DecoTables));
}

TablePlace TablePages::PlaceTable(Single width, Single height, const TableInfo& info) {
  const TablePlace place = slots_.PlaceTable(width, height);
  if (!TableSlots::Holds(width)) return place;
  if (place.page != slotPage_ && hasColumn_) NextTablePage();
  slotPage_ = place.page;
  Furnish(info);
  return place;
}

TablePlace TablePages::PlaceCard(const TableInfo& info) {
  // The first card after tables takes a page of its own; without tables the first page is still free.
  const bool pageIsFree = cards_ > 0 ? cards_ < kCells : !hasColumn_;
  if (!pageIsFree) NextTablePage();
  Furnish(info);
  const int row = cards_ / TableSlots::kColumns;
  const int column = cards_ % TableSlots::kColumns;
  ++cards_;
  return {page_, TableSlots::kLeft + column * TableSlots::kCellWidth, TableSlots::kTop + row * TableSlots::kCellHeight};
}

TablePlace TablePages::PlaceTall(const TableInfo& info, const std::string& head) {
  constexpr double kTop = 1.7;
  const int column = tall_++ % TableSlots::kColumns;
  if (column == 0) {
    StartWholePage(info);
    writer_.PrintTextFitted(TableSlots::kLeft + 0.4, 1.0, head, TableSlots::kColumns * TableSlots::kCellWidth - 0.8,
                            "Arial", 12, 1);
  }
  return {page_, TableSlots::kLeft + column * TableSlots::kCellWidth, kTop};
}

void TablePages::StartWholePage(const TableInfo& info) {
  if (hasColumn_) {
    writer_.PrintPlainFooter("", "");
    writer_.StartPlainPage();
    ++page_;
  }
  cards_ = 0;
  slotPage_ = 0;     // tables go on, on the next one
  hasMarks_ = true;  // there is nothing to cut
  hasColumn_ = false;
  Furnish(info);
}

void TablePages::Furnish(const TableInfo& info) {
  DrawCutMarks();
  if (!hasColumn_) PrintTableInfo(writer_, info);
  hasColumn_ = true;
  writer_.SetForeColor(kBlack);
}

void TablePages::DrawCutMarks() {
  if (hasMarks_) return;
  hasMarks_ = true;
  constexpr double kArm = 0.25;  // cm
  for (int row = 0; row <= TableSlots::kRows; ++row) {
    const double y = TableSlots::kTop + row * TableSlots::kCellHeight;
    for (int column = 0; column <= TableSlots::kColumns; ++column) {
      const double x = TableSlots::kLeft + column * TableSlots::kCellWidth;
      // No arm points out of the grid.
      writer_.PrintBoxOutline(x, row > 0 ? y - kArm : y, x, row < TableSlots::kRows ? y + kArm : y);
      writer_.PrintBoxOutline(column > 0 ? x - kArm : x, y, column < TableSlots::kColumns ? x + kArm : x, y);
    }
  }
}

}  // namespace tav
