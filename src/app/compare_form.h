#pragma once

#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "app/kept_plans.h"
#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "pages/print_preview.h"
#include "reports/comparison_table.h"

namespace tav {

/// The plan of the active window beside those that are kept and others that are open, with what is different. The
/// window stays open beside the program and follows the plan; it reads it and never writes it.
class frmCompare : public DialogForm {
 public:
  frmCompare(const DialogServices& services, PrintPreview& report, KeptPlans& kept);

  Label lbPick{*this, "lbPick"};
  CheckList ckPick{*this, "ckPick"};  ///< the kept plans, then the other open ones
  Label lbNotice{*this, "lbNotice"};
  ResultGrid fgColumns{*this, "fgColumns"};
  Button cbKeep{*this, "cbKeep"};
  Button cbClear{*this, "cbClear"};
  Button cbPrint{*this, "cbPrint"};
  Button cbCopy{*this, "cbCopy"};
  Button Command1{*this, "Command1"};  ///< close

  /// A plan has been computed anew, another window is the active one, or a plan has been kept.
  void PlanChanged();

 protected:
  void Form_Load() override;

 private:
  void TakePick(int index);

  PrintPreview& report_;
  KeptPlans& kept_;
  using Other = std::pair<std::int16_t, int>;  ///< a document, and which of its openings
  std::vector<Other> others_;                  ///< those of the last ticks
  std::set<Other> othersShown_;
  ColumnTable table_;
};

}  // namespace tav
