#pragma once

#include <cstdint>

#include "dialogs/dialog_form.h"
#include "reports/plan_sheet.h"

namespace tav {

/// How the sheet is wished, as the settings keep it; the paper is that of the user's country until he has chosen one.
PlanSheetWish ReadPlanSheetWish(const SettingsStore& settings);

/// Name, place and notes of the plan in front, which its sheet tells, and how that is wished. OK and Preview put them
/// into the first dive of the series, as one step of its undo.
class frmPlanSheet : public DialogForm {
 public:
  explicit frmPlanSheet(const DialogServices& services);

  Label lbName{*this, "lbName"};
  TextBox tbName{*this, "tbName"};
  Label lbPlace{*this, "lbPlace"};
  TextBox tbPlace{*this, "tbPlace"};
  Label lbNotes{*this, "lbNotes"};
  TextBox tbNotes{*this, "tbNotes"};  ///< in lines
  Label lbHelp{*this, "lbHelp"};
  Label lbPaper{*this, "lbPaper"};
  ComboBox cmbPaper{*this, "cmbPaper"};
  CheckBox ckMargins{*this, "ckMargins"};
  Button cbPreview{*this, "cbPreview"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  /// The user wants to see the sheet.
  [[nodiscard]] bool PreviewWanted() const { return previewWanted_; }

 protected:
  void Form_Load() override;

 private:
  /// False when a text can't be kept.
  bool Take();

  std::int16_t first_ = 0;  ///< document of the first dive
  bool previewWanted_ = false;
};

}  // namespace tav
