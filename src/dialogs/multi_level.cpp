#include "dialogs/multi_level.h"

#include "model/text_id.h"

namespace tav {

frmMultiLevel::frmMultiLevel(const DialogServices& services) : DialogForm("frmMultiLevel", services) {
  if (const auto active = services.ActiveDocument()) dive_.emplace(services, *active);
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
  Command2.Default = true;
  Command2.Click = [this] { Command2_Click(); };
}

void frmMultiLevel::Form_Load() {
  Localize();
  Caption = T(Text::IntervalTitle);
  Frame1.Caption = T(Text::IntervalTitle);
  Label1.Caption = T(Text::IntervalHours);
  Label2.Caption = T(Text::IntervalMinutes);
  Command1.Caption = T(Text::TemplateCancel);
  Command2.Caption = T(Text::TemplateOK);
  cbIntervalOnAir.Caption = T(Text::IntervalOnAir);
  cbIntervalOnAir.Value = true;
  cbIntervalOnAir.Visible = dive_ && !services_.Documents()(dive_->Number()).Template.OpenCircuit;
  tbHours.Text = "0";
  tbMinutes.Text = "0";
  tbHours.SelectAll();
}

void frmMultiLevel::Command2_Click() {
  // Text that is no number counts as out of range.
  const auto hours = NumberIn(tbHours.Text);
  if (!hours || *hours > 24 || *hours < 0) {
    Box(T(Text::IntervalHoursFault), T(Text::IntervalTitle), BoxIcon::Stop);
    tbHours.SelectAll();
    return;
  }
  const auto minutes = NumberIn(tbMinutes.Text);
  if (!minutes || *minutes > 59 || *minutes < 0) {
    Box(T(Text::IntervalMinutesFault), T(Text::IntervalTitle), BoxIcon::Stop);
    tbMinutes.SelectAll();
    return;
  }
  const Single interval = 60 * *hours + *minutes;
  if (!dive_) {
    Unload();
    return;
  }
  if (!CanAdd()) {
    Box(T(Text::IntervalNotAdded), T(Text::IntervalTitle), BoxIcon::Stop);
    return;
  }
  services_.forms.AddRepetitiveDive(dive_->Number(), interval, cbIntervalOnAir.Value);
  Unload();
}

bool frmMultiLevel::CanAdd() const { return dive_->IsOpen() && services_.forms(dive_->Number()).CanBeFollowed(); }

}  // namespace tav
