#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "graph/overlay_line.h"
#include "pages/print_preview.h"
#include "reports/slate.h"
#include "reports/what_if_table.h"

namespace tav {

/// The plan of the active window beside what becomes of it when it gets longer or deeper, or a gas or the loop is lost.
/// The window stays open beside the program and follows the plan; it reads it and never writes it. The chosen column is
/// drawn over the graph.
class frmWhatIf : public DialogForm {
 public:
  using Overlay = std::function<void(std::int16_t document, const std::vector<PlotPoint>& line)>;

  /// `marks` tells the model of the moment.
  /// `overlay` draws a line over the graph of a document.
  frmWhatIf(const DialogServices& services, PrintPreview& report, Overlay overlay);

  Label lbLonger{*this, "lbLonger"};
  TextBox tbLonger{*this, "tbLonger"};
  SpinButton udLonger{*this, "udLonger"};
  Label lbMinutes{*this, "lbMinutes"};
  Label lbDeeper{*this, "lbDeeper"};
  TextBox tbDeeper{*this, "tbDeeper"};
  SpinButton udDeeper{*this, "udDeeper"};
  Label lbUnit{*this, "lbUnit"};
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
  /// Takes both fields; a field that holds no number in its range leaves the columns as they are.
  void TakeWish();
  void ShowColumns();
  void ShowNotice(const std::vector<std::string>& lines);
  void DrawChosen();
  void PrintSlate();
  [[nodiscard]] AdviceWords Words() const { return {texts_, platform_.separators, metric_}; }
  [[nodiscard]] std::size_t Chosen() const;

  PrintPreview& report_;
  Overlay overlay_;
  std::int16_t document_ = -1;  ///< -1 for none
  bool metric_ = true;
  WhatIfWish wish_;
  std::unique_ptr<WhatIf> whatIf_;
  std::vector<WhatIfColumn> columns_;
  WhatIfTable table_;
};

}  // namespace tav
