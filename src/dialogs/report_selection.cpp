#include "dialogs/report_selection.h"

#include "model/text_id.h"

namespace tav {

frmReportSelection::frmReportSelection(const TextSource& texts) : Form("frmReportSelection"), texts_(texts) {
  Command1.Default = true;
  Command1.Click = [this] {
    confirmed_ = true;
    Unload();
  };
  Command2.Cancel = true;
  Command2.Click = [this] { Unload(); };
  Option1.Click = [this] { Option2.Value = false; };
  Option2.Click = [this] { Option1.Value = false; };
}

void frmReportSelection::Form_Load() {
  Caption = texts_.GetResString(Text::SelectionTitle);
  Option1.Caption = texts_.GetResString(Text::SelectionThisDive);
  Option2.Caption = texts_.GetResString(Text::SelectionAllDives);
  Command1.Caption = texts_.GetResString(Text::OK);
  Command2.Caption = texts_.GetResString(Text::Cancel);
  Option1.Value = true;
}

}  // namespace tav
