#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/margins_pane.h"
#include "app/plan_looks.h"
#include "dialogs/check_pane.h"
#include "dialogs/plan_pane.h"

namespace tav {

/// The panes beside the graphs: shown, hidden, remembered, and brought up to date with the plan in front.
class MainPanes {
 public:
  /// A pane with the entry of the view menu that shows and hides it; the mark of the entry tells whether it is shown.
  struct Pane {
    PaneForm& form;
    MenuItem& entry;
    bool atFirst = true;  ///< shown at the very first start, beside the graphs; else below them when it is asked for
  };
  /// What shows and hides them.
  struct Commands {
    MenuItem& plan;
    MenuItem& check;
    MenuItem& margins;
    MenuItem& goToPlan;
    Button& findings;  ///< in the status bar: how many there are
  };

  /// `editTemplate` and `examples`, which may be empty, are commands of the plan pane.
  MainPanes(const MainServices& services, const DialogServices& dialogs, PlanLooks& looks, const Commands& commands,
            std::function<void()> editTemplate, std::function<void()> examples, MarginActs margins);

  [[nodiscard]] const std::vector<Pane>& All() const { return panes_; }
  frmPlanPane& PlanPane() { return planPane_; }
  frmCheckPane& CheckPane() { return checkPane_; }
  frmMarginsPane& MarginsPane() { return marginsPane_; }

  /// Shows those that were shown when they were kept, where they were; as at the very first start without such.
  void Restore();
  void Keep() const;
  /// As at the very first start.
  void DefaultLayout();
  /// The user has shown or hidden a pane by its own means.
  void Shown(const PaneForm& shown, bool isShown);
  void TextsChanged();
  /// The plan in front is another one, or has been computed anew.
  void Follow();
  /// Ends what is being entered, as a change of its plan.
  void Finish();
  /// The marked cells of a series, which a file of it would not hold; empty when there are none.
  [[nodiscard]] std::string MarkedCells(std::int16_t document);
  /// Marks a row of the plan in front.
  void SelectRow(std::int16_t row);
  /// The leg of the plan in front that a row belongs to, by its action; nothing for a row of an ascent.
  [[nodiscard]] std::optional<std::int16_t> LegAt(std::int16_t row) const;
  /// The same for the row that a leg ends with.
  [[nodiscard]] std::optional<std::int16_t> LegEndingAt(std::int16_t row) const;
  /// Opens the leg that a row belongs to in the plan pane.
  void EditLegOf(std::int16_t row);

 private:
  [[nodiscard]] PlanPaneServices PaneServices(const DialogServices& dialogs, std::function<void()> editTemplate,
                                              std::function<void()> examples);
  void Show(const Pane& pane, bool shown);
  void ShowAndFocus(const Pane& pane);
  void ShowFindings();
  /// What the plan pane refuses has changed: check and graph follow.
  void ShowRefusal(std::int16_t document);

  const MainServices& services_;
  PlanLooks& looks_;
  Button& findings_;
  frmPlanPane planPane_;
  frmCheckPane checkPane_;
  frmMarginsPane marginsPane_;
  std::vector<Pane> panes_;
};

}  // namespace tav
