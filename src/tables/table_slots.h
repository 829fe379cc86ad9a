#pragma once

#include <array>

#include "model/single.h"

namespace tav {

/// Where a small table stands: page from 1, and its top left corner in cm from that of the page.
struct TablePlace {
  int page = 1;
  Single x;
  Single y;
};

/// The grid of cells on the pages of small tables: 3 columns by 2 rows, right of the information column. Gives each
/// table in turn the first place that is free. It only reckons: whoever prints turns the pages.
class TableSlots {
 public:
  static constexpr int kRows = 2;
  static constexpr int kColumns = 3;
  static constexpr double kCellWidth = 7.4;   ///< cm
  static constexpr double kCellHeight = 9.5;  ///< cm
  static constexpr double kLeft = 6.0;        ///< cm, of the grid
  static constexpr double kTop = 1.0;         ///< cm, of the grid

  /// The place of a table of that width and height in cm; its cells are taken. A table too tall for the lower row comes
  /// to the next page at the place that it had on this one, and takes no cell there; so does one that is too wide for
  /// the grid, at the left edge of the page.
  TablePlace PlaceTable(Single width, Single height);
  /// Whether the grid is wide enough for a table.
  [[nodiscard]] static bool Holds(Single width) { return width <= kColumns * kCellWidth; }
  /// All cells of the page are free again.
  void ClearTableSlots() { taken_ = {}; }

 private:
  struct Cell {
    std::size_t row = 0;
    std::size_t column = 0;
  };

  Cell FirstFree();
  void Take(const Cell& cell, std::size_t columns);
  void TakeForHeight(const Cell& cell, double height);
  void NextPage();

  std::array<std::array<bool, kColumns>, kRows> taken_{};
  int page_ = 1;
};

}  // namespace tav
