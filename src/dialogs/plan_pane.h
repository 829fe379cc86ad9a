#pragma once

#include <functional>
#include <optional>
#include <string>

#include "dialogs/pane_form.h"
#include "plan/leg_table.h"
#include "plan/plan_trial.h"
#include "report/schedule.h"

namespace tav {

/// What the plan pane works with. All of it outlives it.
struct PlanPaneServices {
  DialogServices dialogs;
  UndoHistory& history;
  /// The plan can't be changed: a run of tables computes from it.
  std::function<bool(std::int16_t document)> held;
  std::function<void()> editTemplate;
  /// A change has become one of the document.
  std::function<void()> kept;
};

/// The plan in front as a table: a line to enter a dive with, and its schedule. A text that can't be planned is told of
/// in a line, never by a box, and the plan stays as it was.
class frmPlanPane : public PaneForm {
 public:
  explicit frmPlanPane(PlanPaneServices services);

  // The quick line: a dive with its ascent on an empty plan, else one more leg.
  TextBox tbQuickDepth{*this, "tbQuickDepth"};
  Label lbQuickDepthUnit{*this, "lbQuickDepthUnit"};
  TextBox tbQuickTime{*this, "tbQuickTime"};
  Label lbQuickTimeUnit{*this, "lbQuickTimeUnit"};
  ComboBox cbQuickGas{*this, "cbQuickGas"};
  Button cbQuick{*this, "cbQuick"};
  Label lbFault{*this, "lbFault"};  ///< why the plan does not take what was entered

  ResultGrid fgSchedule{*this, "fgSchedule"};
  Label lbTotals{*this, "lbTotals"};
  Button cbCopySchedule{*this, "cbCopySchedule"};

  void ShowDocument(std::optional<std::int16_t> document) override;
  void TakeFocus() override;

 protected:
  void Form_Load() override;

 private:
  void Wire();
  void Quick();
  void ShowQuickLine();
  void ShowSchedule();
  [[nodiscard]] ScheduleWords Words() const;
  [[nodiscard]] ScheduleText Schedule() const;
  /// The rows are those of the plan; nothing is being entered any more.
  void Reload();
  /// Puts the rows in force, unless they can't be planned: then the reason is shown. True when they are.
  bool TryRows();
  void ShowFault(const std::string& reason);
  [[nodiscard]] const frmWaypointEditor& Editor() const { return services_.forms(*document_); }
  [[nodiscard]] const DiveTemplate& Template() const { return TemplateOf(*document_); }
  [[nodiscard]] std::string LengthUnit() const { return Template().Metric ? "m" : "ft"; }

  PlanPaneServices pane_;
  PlanTrial trial_;
  LegTable table_;
  std::optional<std::int16_t> document_;  ///< the one that is shown
};

}  // namespace tav
