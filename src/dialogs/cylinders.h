#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "model/cylinder.h"
#include "model/supply_choice.h"

namespace tav {

/// The cylinders that the diver carries on the active plan, and how the gas for the way up is reckoned. While one
/// types, the verdict for each gas and the minimum gas of each leg follow. OK puts the cylinders into the plan, as one
/// step of undo, with the choice, which the settings keep for new plans.
class frmCylinders : public DialogForm {
 public:
  explicit frmCylinders(const DialogServices& services);

  Grid fgCylinders{*this, "fgCylinders"};
  Label lbKind{*this, "lbKind"};
  ComboBox cmbKind{*this, "cmbKind"};  ///< usual cylinders
  Button cbAdd{*this, "cbAdd"};
  Button cbRemove{*this, "cbRemove"};
  Frame frTeam{*this, "frTeam"};
  Label lbTeam{*this, "lbTeam"};
  TextBox tbTeam{*this, "tbTeam"};
  Label lbStress{*this, "lbStress"};
  TextBox tbStress{*this, "tbStress"};
  Label lbMinutes{*this, "lbMinutes"};
  TextBox tbMinutes{*this, "tbMinutes"};
  Label lbRule{*this, "lbRule"};
  ComboBox cmbRule{*this, "cmbRule"};
  Label lbGases{*this, "lbGases"};
  ResultGrid fgSupply{*this, "fgSupply"};
  Label lbLegs{*this, "lbLegs"};
  ResultGrid fgLegs{*this, "fgLegs"};
  Label lbFault{*this, "lbFault"};  ///< what is wrong in the table or the fields
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  void cbAdd_Click();
  void cbRemove_Click();
  void cbOK_Click();

 protected:
  void Form_Load() override;

 private:
  enum Column : std::uint8_t { Gas, Count, Size, Unit, Rated, Fill, Reserve, BailOut };

  void Wire();
  void FillFields();
  [[nodiscard]] std::vector<std::string> RowOf(const Cylinder& cylinder) const;
  void CommitCell(int row, int column, const std::string& text);
  [[nodiscard]] bool InLitres(int row) const;
  /// The cylinder of a row; the column of a cell that can't be, and why, otherwise.
  struct Fault {
    int column = -1;
    std::string reason;
  };
  [[nodiscard]] Cylinder ReadRow(int row, Fault& fault) const;
  /// Reads all rows, marks cells that can't be and returns the first fault; empty when there is none.
  std::string ReadRows(std::vector<Cylinder>& cylinders);
  std::string ReadChoice(SupplyChoice& choice);
  /// Both.
  std::string ReadAll(std::vector<Cylinder>& cylinders, SupplyChoice& choice);
  /// Brings the verdicts in line with what is typed.
  void Show();
  /// Of the gases that the plan breathes, the first without a cylinder.
  [[nodiscard]] std::string MissingGas() const;

  std::int16_t document_ = 0;
};

}  // namespace tav
