#include "app/leaving_form.h"

#include <algorithm>

#include "model/text_id.h"

namespace tav {

frmLeaving::frmLeaving(const TextSource& texts, const std::vector<std::string>& plans, const std::string& lost)
    : Form("frmLeaving"), texts_(texts) {
  std::vector<CheckList::Item> items;
  items.reserve(plans.size());
  for (const std::string& plan : plans) items.push_back({plan});
  ckPlans.Items = items;
  ckPlans.Ticked = [this](int) { ShowSave(); };
  lbLost.Caption = lost;
  lbLost.Visible = !lost.empty();
  cbSave.Default = true;
  cbSave.Click = [this] { Leave(); };
  cbDiscard.Click = [this] {
    auto none = ckPlans.Items.Get();
    for (CheckList::Item& plan : none) plan.on = false;
    ckPlans.Items = none;
    Leave();
  };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(); };
}

void frmLeaving::Form_Load() {
  Caption = texts_.GetResString(Text::UnsavedTitle);
  lbQuestion.Caption = texts_.GetResString(Text::LeavingQuestion);
  ckPlans.SpokenName = texts_.GetResString(Text::UnsavedTitle);
  cbDiscard.Caption = texts_.GetResString(Text::LeavingDiscardAll);
  cbCancel.Caption = texts_.GetResString(Text::Cancel);
  ShowSave();
}

void frmLeaving::ShowSave() {
  const auto& plans = ckPlans.Items.Get();
  const auto ticked = std::ranges::count(plans, true, &CheckList::Item::on);
  const bool all = ticked == std::ssize(plans);
  cbSave.Caption = texts_.GetResString(all ? Text::LeavingSaveAll : Text::LeavingSaveTicked);
  cbSave.Enabled = ticked > 0;
}

void frmLeaving::Leave() {
  confirmed_ = true;
  Unload();
}

}  // namespace tav
