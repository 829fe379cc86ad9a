#include "app/wait_form.h"

#include <utility>

namespace tav {

frmWait::frmWait(Platform platform, const TextSource& texts)
    : Form("frmWait"), platform_(std::move(platform)), texts_(texts) {
  Blocks = true;
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(true); };
}

void frmWait::Form_Load() {
  Caption = texts_.GetResString(1066);
  Label1.Caption = texts_.GetResString(1067);
  cbCancel.Caption = texts_.GetResString(2711);
  platform_.screen.ShowHourglass(true);
}

void frmWait::Form_Unload() { platform_.screen.ShowHourglass(false); }

bool frmWait::GoOn(const std::string& step) {
  Label1.Caption = step;
  platform_.screen.DoEvents();
  return IsLoaded();
}

}  // namespace tav
