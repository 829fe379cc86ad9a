// The commands of the main window that show and report what was computed.

#include "app/main_form.h"
#include "app/wait_form.h"
#include "dialogs/general_info.h"
#include "dialogs/report_selection.h"
#include "report/dive_report.h"

namespace tav {

ModelMarks frmMain::Marks() const {
  return {mnuBulhmannB.Checked, mnuBulhmannC.Checked, mnuHybrid.Checked, mnuVPM.Enabled};
}

void frmMain::ShowDiveInformation() {
  if (!Active()) return;
  frmGeneralInfo window(Dialogs(), Marks());
  services_.platform.windows.ShowModal(window);
}

void frmMain::ShowGeneralReport() {
  const auto active = Active();
  if (!active) return;
  const frmWaypointEditor& editor = services_.forms(*active);
  bool all = false;
  if (editor.PrevProfile != -1 || editor.NextProfile != -1) {
    frmReportSelection selection(services_.texts);
    services_.platform.windows.ShowModal(selection);
    if (!selection.Confirmed()) return;
    all = !selection.ReportCurrentDive();
  }
  const auto wait = std::make_shared<frmWait>(services_.platform, services_.texts);
  services_.platform.windows.Show(wait);
  services_.platform.screen.DoEvents();
  GeneralReport report(services_.report, Marks(), [&wait](const std::string& step) { wait->Label1.Caption = step; });
  WriteLongReport(report, services_.forms, *active, all);
  services_.report.documentName = Document(*active).ProfileName;
  report.ShowLongReport();
  wait->Unload();
}

}  // namespace tav
