#pragma once

#include <cstdint>
#include <vector>

#include "controls/grid.h"
#include "dialogs/plan_entry.h"
#include "figures/schedule.h"

namespace tav {

/// The schedule in the plan pane. While the plan does not have what is entered,
/// it is that of before and says so.
class PlanPaneSchedule : protected PlanPanePart {
 public:
  PlanPaneSchedule(Form& form, PlanEntry& entry);

  ResultGrid fgSchedule{form_, "fgSchedule"};
  Label lbTotals{form_, "lbTotals"};
  Button cbCopySchedule{form_, "cbCopySchedule"};

  void SetTexts();
  void Show();
  /// Selects a row of the profile.
  void SelectRow(std::int16_t row);

 private:
  [[nodiscard]] ScheduleWords Words() const;
  [[nodiscard]] ScheduleText Schedule() const;

  std::vector<std::int16_t> rows_;  ///< of the profile, by row of the schedule
};

}  // namespace tav
