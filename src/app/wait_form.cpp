#include "app/wait_form.h"

#include <utility>

namespace tav {

frmWait::frmWait(Platform platform, const TextSource& texts)
    : Form("frmWait"), platform_(std::move(platform)), texts_(texts) {}

void frmWait::Form_Load() {
  Caption = texts_.GetResString(1066);
  Label1.Caption = texts_.GetResString(1067);
  platform_.screen.ShowHourglass(true);
}

void frmWait::Form_Unload() { platform_.screen.ShowHourglass(false); }

}  // namespace tav
