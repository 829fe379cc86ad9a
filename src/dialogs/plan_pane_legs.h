#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/grid.h"
#include "dialogs/plan_entry.h"

namespace tav {

/// The legs in the plan pane, an empty row for one more, and the ascent: what
/// the cells show and what the user does in them and with whole rows.
class PlanPaneLegs : protected PlanPanePart {
 public:
  PlanPaneLegs(Form& form, PlanEntry& entry);

  Grid fgLegs{form_, "fgLegs"};
  enum Column { kNumber, kDepth, kTime, kGas, kPPO2, kEND, kRun };
  CheckBox ckAscent{form_, "ckAscent"};
  Button cbLegs{form_, "cbLegs"};  ///< the menu of the legs
  MenuItem mnuInsertLeg{form_, "mnuInsertLeg"};
  MenuItem mnuDeleteLegs{form_, "mnuDeleteLegs"};
  MenuItem mnuDuplicateLegs{form_, "mnuDuplicateLegs"};
  MenuItem mnuGasOfLegs{form_, "mnuGasOfLegs"};
  MenuItem mnuMoveLegsUp{form_, "mnuMoveLegsUp"};
  MenuItem mnuMoveLegsDown{form_, "mnuMoveLegsDown"};
  MenuItem mnuCopyLegs{form_, "mnuCopyLegs"};
  MenuItem mnuPasteLegs{form_, "mnuPasteLegs"};

  void SetTexts();
  void Show();
  void TakeFocus();
  /// Selects the leg of a row of the profile.
  void SelectRow(std::int16_t row);
  /// Opens the depth of a leg, by the number of its action.
  void EditLeg(std::int16_t action);
  /// Pastes behind the last leg what the clipboard holds of a table. False for a single word, which is for a field.
  bool PasteTable();

 private:
  void WireMenu();
  [[nodiscard]] const LegEntry& Legs() const { return entry_.Legs(); }
  [[nodiscard]] const LegTable& Table() const { return entry_.Legs().Table(); }
  [[nodiscard]] std::vector<MenuItem*> Menu();
  [[nodiscard]] Grid::Editor EditorOf(int line, int column) const;
  [[nodiscard]] std::string Stepped(const std::string& text, int by) const;
  [[nodiscard]] std::vector<GridCell> CellsOf(int row) const;
  [[nodiscard]] std::string RunTimeOf(int row) const;

  [[nodiscard]] std::optional<std::pair<int, int>> Selected() const;
  /// The row that a new leg goes ahead of.
  [[nodiscard]] int InsertedAt() const { return Legs().RowOf(fgLegs.SelectedRow).value_or(Table().EndOfLegs()); }
  void Insert();
  void Delete(int first, int last);
  void Duplicate(int first, int last);
  void Move(int by);
  void OpenGas(int first, int last);
  /// A gas that was chosen in one of several selected legs is that of all. False for another cell.
  bool CommitGas(int line, int column, const std::string& gas);
  void Copy(int first, int last);
  enum class PasteAt { Selection, End };
  void Paste(PasteAt place);
};

}  // namespace tav
