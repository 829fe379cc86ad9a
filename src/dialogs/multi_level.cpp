#include "dialogs/multi_level.h"

namespace tav {
namespace {

constexpr int kTitle = 3080;
constexpr int kHours = 3081;
constexpr int kMinutes = 3082;
constexpr int kCancel = 1609;
constexpr int kOK = 1610;
constexpr int kHoursFault = 3027;
constexpr int kMinutesFault = 3028;
constexpr int kCannotAdd = 7100;
constexpr int kIntervalOnAir = 8306;

}  // namespace

frmMultiLevel::frmMultiLevel(const DialogServices& services) : DialogForm("frmMultiLevel", services) {
  if (const auto active = services.ActiveDocument()) dive_.emplace(services, *active);
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
  Command2.Default = true;
  Command2.Click = [this] { Command2_Click(); };
}

void frmMultiLevel::Form_Load() {
  Localize();
  Caption = T(kTitle);
  Frame1.Caption = T(kTitle);
  Label1.Caption = T(kHours);
  Label2.Caption = T(kMinutes);
  Command1.Caption = T(kCancel);
  Command2.Caption = T(kOK);
  cbIntervalOnAir.Caption = T(kIntervalOnAir);
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
    Box(T(kHoursFault), T(kTitle), BoxIcon::Stop);
    tbHours.SelectAll();
    return;
  }
  const auto minutes = NumberIn(tbMinutes.Text);
  if (!minutes || *minutes > 59 || *minutes < 0) {
    Box(T(kMinutesFault), T(kTitle), BoxIcon::Stop);
    tbMinutes.SelectAll();
    return;
  }
  const Single interval = 60 * *hours + *minutes;
  if (!dive_) {
    Unload();
    return;
  }
  if (!CanAdd()) {
    Box(T(kCannotAdd), T(kTitle), BoxIcon::Stop);
    return;
  }
  services_.forms.AddRepetitiveDive(dive_->Number(), interval, cbIntervalOnAir.Value);
  Unload();
}

bool frmMultiLevel::CanAdd() const { return dive_->IsOpen() && services_.forms(dive_->Number()).CanBeFollowed(); }

}  // namespace tav
