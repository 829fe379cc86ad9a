#pragma once

#include <string>

#include "pages/print_preview.h"
#include "tables/table_info.h"
#include "tables/table_slots.h"

namespace tav {

/// The pages of an output of tables or cards: one is open from the start to the end. Each has the cut marks of the grid
/// and the information column, drawn once, with the first thing that is printed on it.
class TablePages {
 public:
  explicit TablePages(PrintPreview& writer) : writer_(writer) {}

  /// Opens the output and its first page.
  void StartTableOutput();
  /// Closes the page and opens the next one.
  void NextTablePage();
  /// Closes the last page and shows the preview.
  void EndTableOutput();

  /// The place of the next table. Its page is open when this returns, unless the grid can't hold its width.
  TablePlace PlaceTable(Single width, Single height, const TableInfo& info);
  /// The next cell (from 0, row by row) for a card of the size of a cell; after the sixth comes the next page.
  TablePlace PlaceCard(const TableInfo& info);
  /// The next of three places as tall as the page, on pages of their own with that head.
  TablePlace PlaceTall(const TableInfo& info, const std::string& head);
  /// A page of its own: no cut marks, only the information column.
  void StartWholePage(const TableInfo& info);

  [[nodiscard]] int Page() const { return page_; }

  /// The marks of the grid on the open page.
  void DrawCutMarks();

 private:
  void Furnish(const TableInfo& info);

  PrintPreview& writer_;
  TableSlots slots_;
  int page_ = 1;
  int slotPage_ = 1;  ///< the grid's page that is open; grids that only hold what is too wide for them take no paper
  int cards_ = 0;     ///< cells taken by cards on the open page; 0 when the page is none of cards
  int tall_ = 0;      ///< tall cards so far
  bool hasMarks_ = false;   ///< the open page has its cut marks
  bool hasColumn_ = false;  ///< and its information column
};

}  // namespace tav
