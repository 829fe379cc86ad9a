#include "app/wait_form.h"

#include <utility>

#include "model/text_id.h"

namespace tav {

frmWait::frmWait(Platform platform, const TextSource& texts)
    : Form("frmWait"), platform_(std::move(platform)), texts_(texts) {
  Blocks = true;
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(true); };
}

void frmWait::Form_Load() {
  Caption = texts_.GetResString(Text::WaitTitle);
  Label1.Caption = texts_.GetResString(Text::WaitComputing);
  cbCancel.Caption = texts_.GetResString(Text::Abort);
  platform_.screen.ShowHourglass(true);
}

void frmWait::Form_Unload() { platform_.screen.ShowHourglass(false); }

bool frmWait::GoOn(const std::string& step) {
  Label1.Caption = step;
  platform_.screen.DoEvents();
  return IsLoaded();
}

}  // namespace tav
