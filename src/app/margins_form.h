#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "advice/margins.h"
#include "app/kept_plans.h"
#include "controls/cell_map.h"
#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "pages/print_preview.h"
#include "reports/margin_map.h"

namespace tav {

/// How far the dive of the active window may go wrong: the map of the dives round it, the longest stay and the times
/// without a stop. The window stays open beside the program and follows the plan. It computes when nothing else is to
/// do, some cells at a time, and begins again with the next change. Limits that are typed are kept with the plan.
class frmMargins : public DialogForm {
 public:
  struct Acts {
    /// Keeps a dive for comparison and shows the comparison.
    std::function<void(const ComparedPlan& plan)> compare;
    /// Gives a leg of the plan in front other minutes, in one step of undo. Why it can't be, or nothing.
    std::function<std::string(std::int16_t action, Single minutes)> setMinutes;
  };
  frmMargins(const DialogServices& services, PrintPreview& report, Acts acts);

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
  Button Command1{*this, "Command1"};  ///< close

  /// A plan has been computed anew, or another window is the active one.
  void PlanChanged();
  [[nodiscard]] const std::vector<MarginCell>& Cells() const { return cells_; }
  [[nodiscard]] const std::optional<LongestStay>& Stay() const { return stay_; }

 protected:
  void Form_Load() override;

 private:
  /// Takes up a plan or a leg anew, and forgets what was computed.
  void Begin();
  /// Computes for some milliseconds: the map without losses, then with them, then the longest stay and the times
  /// without a stop.
  void GoOn();
  [[nodiscard]] MarginCell CellOf(std::size_t index, bool losses) const;
  void ShowLegs();
  void ShowLimits();
  void TakeLimits();
  void ShowMap();
  void ShowCell();
  void ShowStay();
  void ShowNoStop();
  void ShowState();
  void Take();
  void Compare();
  void Print();
  [[nodiscard]] AdviceWords Words() const { return {texts_, platform_.separators, metric_}; }
  /// "+6 min, +2 m"
  [[nodiscard]] std::string NameOf(const MarginCell& cell) const;
  /// The limit in a field; nothing in an empty one. A text that is none is marked, and `sound` is false then.
  [[nodiscard]] std::optional<Single> Limit(TextBox& field, bool zero, double most, bool& sound);

  PrintPreview& report_;
  Acts acts_;
  std::int16_t document_ = -1;  ///< -1 for none
  int opening_ = 0;
  bool metric_ = true;
  std::vector<std::int16_t> legs_;      ///< actions, in the order of the list
  std::optional<std::int16_t> chosen_;  ///< the leg that the user has chosen; else the deepest
  std::unique_ptr<Margins> margins_;
  MarginGrid grid_ = MarginGrid::Usual(true);
  std::vector<MarginCell> cells_;  ///< from `judged_` on as they are without their losses
  std::size_t judged_ = 0;
  std::optional<LongestStay> stay_;
  std::optional<std::vector<NoStopTime>> noStop_;
};

}  // namespace tav
