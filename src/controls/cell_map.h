#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "controls/controls.h"

namespace tav {

/// A map of coloured cells, row by row, of which one is looked at: by the pointer, or by arrow keys.
class CellMap : public Control {
 public:
  using Control::Control;

  struct Cell {
    Colour colour = 0;
    Colour ink = 0;
    char letter = ' ';
    bool edgeAtLeft = false;  ///< a line parts it from the cell at its left
    bool edgeAbove = false;
    friend bool operator==(const Cell&, const Cell&) = default;
  };
  /// A word under a column.
  struct Foot {
    int column = 0;
    std::string text;
    friend bool operator==(const Foot&, const Foot&) = default;
  };
  struct Content {
    int columns = 0;
    int rows = 0;
    std::vector<Cell> cells;  ///< those that are there so far
    std::vector<std::string> columnHeads;
    std::vector<std::string> rowHeads;
    std::string overColumns;  ///< what the heads of the columns count
    std::vector<Foot> feet;  ///< begin at the left edge of their columns, the first ones where there is no room for all
    int marked = -1;         ///< stands in a thick frame
    friend bool operator==(const Content&, const Content&) = default;
  };
  Property<Content> Map{Changed};
  Property<int> Selected{Changed, -1};  ///< a cell; -1 for none

  Property<int> Pointed{Changed, -1};  ///< the cell under the pointer; -1 for none

  Event Click;   ///< the user looks at another cell, or the pointer has left
  Event Chosen;  ///< another cell has been selected, by a click or by the arrow keys
  Event Return;  ///< and wants it: Return, or a double click

  /// Something is still to be computed: the view fires `More` whenever it has nothing else to do.
  Property<bool> WantsMore{Changed};
  Event More;

  void Select(int cell) {
    // One that is still to come can be selected.
    if (!CanAct() || cell < 0 || cell >= Map.Get().columns * Map.Get().rows || cell == Selected) return;
    Selected = cell;
    Fire(Click);
    Fire(Chosen);
  }
  void Point(int cell) {
    const bool there = CanAct() && cell >= 0 && cell < static_cast<int>(Map.Get().cells.size());
    const int pointed = there ? cell : -1;
    if (pointed == Pointed) return;
    Pointed = pointed;
    Fire(Click);
  }
  /// An arrow key: by so many columns and rows, never beyond the map.
  void Step(int columns, int rows) {
    const Content& map = Map.Get();
    if (map.columns < 1) return;
    const int from = Selected >= 0 ? Selected.Get() : map.marked >= 0 ? map.marked : 0;
    const int column = std::clamp(from % map.columns + columns, 0, map.columns - 1);
    const int row = std::clamp(from / map.columns + rows, 0, map.rows - 1);
    Select(row * map.columns + column);
  }
  void PressReturn() {
    if (CanAct() && Selected >= 0) Fire(Return);
  }
  void GoOn() const { Fire(More); }
};

}  // namespace tav
