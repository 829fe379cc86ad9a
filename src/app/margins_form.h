#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "app/margin_work.h"
#include "controls/cell_map.h"
#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "dialogs/limit_fields.h"
#include "pages/print_preview.h"

namespace tav {

/// How far the dive of the active window may go wrong: the map of the dives round it, the longest stay and the times
/// without a stop. The window stays open beside the program and follows the plan. It computes when nothing else is to
/// do, some cells at a time, and begins again with the next change. Limits that are typed are kept with the plan.
class frmMargins : public DialogForm {
 public:
  frmMargins(const DialogServices& services, PrintPreview& report, MarginActs acts);

  Label lbLeg{*this, "lbLeg"};
  ComboBox cbLeg{*this, "cbLeg"};
  CellMap cmMap{*this, "cmMap"};
  Label lbCell{*this, "lbCell"};    ///< the dive of the cell that is looked at
  Label lbState{*this, "lbState"};  ///< computing; what can't be; what is not judged
  Label lbStay{*this, "lbStay"};
  Label lbLongest{*this, "lbLongest"};
  Button cbTake{*this, "cbTake"};
  Frame frLimits{*this, "frLimits"};
  Label lbRun{*this, "lbRun"};
  TextBox tbRun{*this, "tbRun"};
  Label lbStops{*this, "lbStops"};
  TextBox tbStops{*this, "tbStops"};
  Label lbCNS{*this, "lbCNS"};
  TextBox tbCNS{*this, "tbCNS"};
  CheckBox ckGas{*this, "ckGas"};
  ResultGrid fgLegend{*this, "fgLegend"};
  Label lbNoStop{*this, "lbNoStop"};
  ResultGrid fgNoStop{*this, "fgNoStop"};
  Label lbHint{*this, "lbHint"};
  Button cbCompare{*this, "cbCompare"};
  Button cbPrint{*this, "cbPrint"};
  Button cbExport{*this, "cbExport"};
  Button Command1{*this, "Command1"};  ///< close

  /// A plan has been computed anew, or another window is the active one.
  void PlanChanged();
  [[nodiscard]] const MarginWork& Work() const { return work_; }

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  /// Takes up a plan or a leg anew, and forgets what was computed.
  void Begin();
  void GoOn();
  void ShowLegs();
  void ShowLimits();
  void TakeLimits();
  void ShowMap();
  void ShowCell();
  void ShowStay();
  void ShowNoStop();
  void ShowLook();
  void Take();
  void Compare();
  void Print();
  void Export();

  PrintPreview& report_;
  MarginActs acts_;
  MarginWork work_{services_, MarginWork::Extent::All};
  LimitFields limits_{platform_, texts_, {tbRun, tbStops, tbCNS, ckGas}};
  std::optional<std::int16_t> document_;
  int opening_ = 0;
  std::int16_t actions_ = 0;            ///< of the plan, legs and ascents
  std::optional<DiveLimits> shown_;     ///< in the fields, but for those that are marked
  std::vector<std::int16_t> legs_;      ///< actions, in the order of the list
  bool looks_ = false;                  ///< a dive of the map is drawn over the plan
  std::optional<std::int16_t> chosen_;  ///< the leg that the user has chosen; else the deepest
};

}  // namespace tav
