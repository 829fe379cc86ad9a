#pragma once

#include <array>
#include <string>

#include "pages/print_preview.h"
#include "tables/table_info.h"
#include "tables/table_slots.h"

namespace tav {

/// The pages of an output of tables or cards: one is open from the start to the end. Each has the information column,
/// drawn with the first thing that is printed on it, and a page of the grid its cut marks, drawn when it is closed:
/// none leads through what is one piece.
class TablePages {
 public:
  /// cm: what printers reach of a page of 21.0, with room for the last line.
  static constexpr double kSheetBottom = 20.4;

  explicit TablePages(PrintPreview& writer) : writer_(writer) {}

  /// Opens the output and its first page.
  void StartTableOutput();
  /// Closes the page and opens the next one.
  void NextTablePage();
  /// Closes the last page and shows the preview with that text as its title.
  void EndTableOutput(int caption);

  /// The place of the next table in the grid; nothing is opened for it.
  TablePlace PlaceTable(Single width, Single height) { return slots_.PlaceTable(width, height); }
  /// Opens the page of a place in the grid, unless it is the open one; whether it did.
  bool OpenGrid(const TablePlace& place, const TableInfo& info);
  /// What lies between these edges on the open page, in cm, is one piece.
  void KeepWhole(double left, double top, double right, double bottom);
  /// The next cell (from 0, row by row) for a card of the size of a cell; after the sixth comes the next page.
  TablePlace PlaceCard(const TableInfo& info);
  /// The next of so many places abreast as tall as the page, on pages of their own with that head.
  TablePlace PlaceTall(const TableInfo& info, const std::string& head, int abreast);
  /// A page of its own: no cut marks, only the information column.
  void StartWholePage(const TableInfo& info);

  /// Whether the open page is one of the grid that tables stand on.
  [[nodiscard]] bool GridIsOpen() const { return slotPage_ != 0; }
  /// The lower edge of the information column on the open page, cm.
  [[nodiscard]] double ColumnEnd() const { return columnEnd_; }

  /// The marks of the grid on the open page.
  void DrawCutMarks();

 private:
  void Furnish(const TableInfo& info);
  void Close();

  PrintPreview& writer_;
  TableSlots slots_;
  int page_ = 1;
  int slotPage_ = 0;        ///< the grid's page that is open; 0 for none
  int cards_ = 0;           ///< cells taken by cards on the open page; 0 when the page is none of cards
  int tall_ = 0;            ///< tall cards so far
  bool hasMarks_ = false;   ///< the open page is one to cut up
  bool hasColumn_ = false;  ///< it has its information column
  double columnEnd_ = 0;
  /// The pieces of the grid's inner lines that nothing may be cut along: the upright ones of each row, and the one
  /// between the rows in each column.
  std::array<std::array<bool, TableSlots::kColumns>, TableSlots::kRows> upright_{};
  std::array<bool, TableSlots::kColumns> level_{};
};

}  // namespace tav
