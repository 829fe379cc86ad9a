#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "model/cylinder.h"
#include "model/supply_choice.h"
#include "supply/cylinder_sets.h"

namespace tav {

/// The cylinders that the diver carries on the active plan, and how the gas for the way up is reckoned. While one
/// types, the verdict for each gas and the minimum gas of each leg follow. OK puts the cylinders into the plan, as one
/// step of undo, with the choice, which the settings keep for new plans. The order of the rows is that in which the
/// cylinders of one gas are breathed. Sets of cylinders can be taken into the table, saved and deleted; the settings
/// keep them, whether the plan takes them or not.
class frmCylinders : public DialogForm {
 public:
  explicit frmCylinders(const DialogServices& services);

  Grid fgCylinders{*this, "fgCylinders"};
  Label lbKind{*this, "lbKind"};
  ComboBox cmbKind{*this, "cmbKind"};  ///< usual cylinders
  Button cbAdd{*this, "cbAdd"};
  Button cbRemove{*this, "cbRemove"};
  Button cbUp{*this, "cbUp"};  ///< moves the row of the selected cell
  Button cbDown{*this, "cbDown"};
  Label lbSet{*this, "lbSet"};
  ComboBox cmbSet{*this, "cmbSet"};  ///< the user's own sets, then the usual ones
  Button cbTakeSet{*this, "cbTakeSet"};
  Button cbDeleteSet{*this, "cbDeleteSet"};
  Label lbSetName{*this, "lbSetName"};
  TextBox tbSetName{*this, "tbSetName"};
  Button cbSaveSet{*this, "cbSaveSet"};
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
  Label lbLoop{*this, "lbLoop"};    ///< what the loop of a rebreather itself uses
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
  [[nodiscard]] std::string BailOutText(const std::string& gas, bool told) const;
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
  void EnableRowButtons();
  /// The units of the cylinders into the heads.
  void NameUnits();
  void PutRows(const std::vector<Cylinder>& cylinders);
  void MoveRow(int by);
  /// Of the gases that the plan breathes, the first without a cylinder.
  [[nodiscard]] std::string MissingGas() const;
  /// One that it can breathe, or has a cylinder of.
  [[nodiscard]] bool IsGasOfPlan(const std::string& gas) const;

  // Sets of cylinders.
  void WireSets();
  void FillSets(const std::string& chosen = "");
  /// Whether the rows are sound.
  void EnableSetButtons(bool sound);
  void TakeSet();
  void SaveSet();
  void DeleteSet();
  [[nodiscard]] std::string SetName() const;
  [[nodiscard]] bool IsOwnSet() const { return cmbSet.ListIndex >= 0 && cmbSet.ListIndex < ownSets_; }

  std::int16_t document_ = 0;
  std::vector<CylinderSet> sets_;  ///< as the list has them: first the user's own
  int ownSets_ = 0;
  std::string setsFault_;  ///< what the settings have that is no set
};

}  // namespace tav
