#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "dialogs/pane_form.h"
#include "dialogs/plan_entry.h"
#include "dialogs/plan_pane_gases.h"
#include "dialogs/plan_pane_legs.h"
#include "dialogs/plan_pane_schedule.h"
#include "dialogs/plan_pane_settings.h"

namespace tav {

/// The plan in front as a table: the settings of the dive that are changed most,
/// its gases, a line to enter a leg with, its legs as cells that are typed over,
/// and the schedule.
/// Every text that makes sense is computed while it is typed; what can't be
/// planned is marked in its cell and told of in a line, never by a box, and the
/// plan as it was before is shown as such. A cell that is left with a text that
/// is refused has its former one again. A leg that has no other text yet stays
/// marked, and the plan as it was stays in force, until the cell is filled or
/// the entry is given up; the entry outlives a look at another plan.
class frmPlanPane : public PaneForm {
  PlanEntry entry_;  // what the parts show

 public:
  explicit frmPlanPane(PlanPaneServices services);

  PlanPaneSettings settings{*this, entry_};
  PlanPaneGases gases{*this, entry_};

  // The quick line: a dive with its ascent on an empty plan, else one more leg.
  TextBox tbQuickDepth{*this, "tbQuickDepth"};
  Label lbQuickDepthUnit{*this, "lbQuickDepthUnit"};
  TextBox tbQuickTime{*this, "tbQuickTime"};
  Label lbQuickTimeUnit{*this, "lbQuickTimeUnit"};
  ComboBox cbQuickGas{*this, "cbQuickGas"};
  Button cbQuick{*this, "cbQuick"};
  Button cbExamples{*this, "cbExamples"};  ///< of an empty plan

  PlanPaneLegs legs{*this, entry_};
  Label lbFault{*this, "lbFault"};  ///< why the plan does not take what was entered
  PlanPaneSchedule schedule{*this, entry_};

  void ShowDocument(std::optional<std::int16_t> document) override;
  /// The model of the program has been changed.
  void ShowModel() { settings.Show(); }
  void SelectRow(std::int16_t row) override;
  void TakeFocus() override;
  void Finish() override { entry_.Finish(); }
  /// For edits of the legs that are made elsewhere.
  PlanEntry& Entry() { return entry_; }
  /// Opens the depth of a leg, by the number of its action.
  void EditLeg(std::int16_t action) { legs.EditLeg(action); }

  /// Why a plan does not have what is entered; empty when it has. Graph and
  /// figures are then as before.
  [[nodiscard]] std::string Refusal(std::int16_t document) const { return entry_.Refusal(document); }
  /// The marked cells of a plan, a sentence a line: legs that a file would not
  /// hold. Empty when there are none.
  [[nodiscard]] std::string MarkedCells(std::int16_t document) const { return entry_.MarkedCells(document); }
  /// Plans with marked cells count as changed, whatever else has been done to
  /// them.
  void MarkUnfinished() const { entry_.MarkUnfinished(); }
  /// Gives up the entry of a plan with marked cells. False when there are none.
  bool GiveUp(std::int16_t document) { return entry_.GiveUp(document); }

 protected:
  void Form_Load() override;

 private:
  void Show();
  void ShowQuickLine();
  void Quick();
  void ClearQuickLine();

  std::optional<std::pair<std::int16_t, int>> quickOf_;  ///< the plan that the quick line is for: document and opening
};

}  // namespace tav
