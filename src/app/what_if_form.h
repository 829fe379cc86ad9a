#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/what_if_lines.h"
#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "pages/print_preview.h"
#include "reports/slate.h"
#include "reports/what_if_table.h"

namespace tav {

/// The plan of the active window beside what becomes of it when it gets longer or deeper, or a gas or the loop is lost.
/// The window stays open beside the program and follows the plan; it reads it and never writes it. The chosen column is
/// drawn over the graph and stays there when the window is closed. Which columns are shown is kept in the settings.
class frmWhatIf : public DialogForm {
 public:
  /// `lines` draws over the graphs.
  frmWhatIf(const DialogServices& services, PrintPreview& report, WhatIfLines& lines);

  Label lbLonger{*this, "lbLonger"};
  TextBox tbLonger{*this, "tbLonger"};
  SpinButton udLonger{*this, "udLonger"};
  Label lbMinutes{*this, "lbMinutes"};
  Label lbDeeper{*this, "lbDeeper"};
  TextBox tbDeeper{*this, "tbDeeper"};
  SpinButton udDeeper{*this, "udDeeper"};
  Label lbUnit{*this, "lbUnit"};
  Label lbFactors{*this, "lbFactors"};
  TextBox tbFactors{*this, "tbFactors"};  ///< "40/85 30/70", per cent
  Label lbPick{*this, "lbPick"};
  CheckList ckPick{*this, "ckPick"};  ///< which columns are shown; the plan is always
  Label lbNotice{*this, "lbNotice"};  ///< what can't be computed, and that an ascent was added
  ResultGrid fgColumns{*this, "fgColumns"};
  Label lbGraph{*this, "lbGraph"};
  ComboBox cbGraph{*this, "cbGraph"};  ///< the column that is drawn over the graph; the first is the plan itself
  Label lbSlate{*this, "lbSlate"};
  ComboBox cbWith{*this, "cbWith"};  ///< what the slate tells
  Button cbSlate{*this, "cbSlate"};
  Button cbCopy{*this, "cbCopy"};
  Button Command1{*this, "Command1"};  ///< close

  enum SlateWith { ThePlan, ThePlanAndTheChosen, AllColumns };

  /// A plan has been computed anew, or another window is the active one.
  void PlanChanged();
  [[nodiscard]] const std::vector<WhatIfColumn>& Columns() const { return columns_; }

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Step(TextBox& field, double step, double most);
  /// Takes the fields; a field that holds nothing that can be leaves the columns as they are.
  void TakeWish();
  [[nodiscard]] std::optional<std::vector<GradientFactors>> FactorsTyped() const;
  void ShowPicks();
  void TakePick(int index);
  /// The columns that are ticked, of all.
  void Pick();
  void ShowColumns();
  void ShowNotice(const std::vector<std::string>& lines);
  void DrawChosen();
  void PrintSlate();
  [[nodiscard]] AdviceWords Words() const { return {texts_, platform_.separators, metric_}; }
  [[nodiscard]] std::size_t Chosen() const;

  PrintPreview& report_;
  WhatIfLines& lines_;
  std::int16_t document_ = -1;  ///< -1 for none
  bool metric_ = true;
  WhatIfWish wish_;
  std::unique_ptr<WhatIf> whatIf_;
  std::vector<WhatIfColumn> all_;
  std::vector<std::string> picks_;  ///< names of the ticks, in their order
  std::set<std::string> unpicked_;  ///< names of columns that are not shown
  std::vector<WhatIfColumn> columns_;
  ColumnTable table_;
};

}  // namespace tav
