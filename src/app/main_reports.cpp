// The commands of the main window that show and report what was computed.

#include "app/main_form.h"
#include "app/wait_form.h"
#include "dialogs/general_info.h"
#include "dialogs/report_selection.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"

namespace tav {

void frmMain::ShowDiveInformation() {
  const auto active = Active();
  if (!active) return;
  // The model that made the rows: another one that is marked meanwhile has not computed them yet.
  frmGeneralInfo window(Dialogs(), services_.forms(*active).EvaluatedWith());
  services_.platform.windows.ShowModal(window);
}

std::optional<bool> frmMain::WholeSeries(std::int16_t document) {
  const frmWaypointEditor& editor = services_.forms(document);
  if (editor.PrevProfile == -1 && editor.NextProfile == -1) return false;
  frmReportSelection selection(services_.texts);
  services_.platform.windows.ShowModal(selection);
  if (!selection.Confirmed()) return std::nullopt;
  return !selection.ReportCurrentDive();
}

void frmMain::ShowSlate() {
  const auto active = Active();
  if (!active) return;
  const auto all = WholeSeries(*active);
  if (!all) return;
  Slate slate(services_.report, services_.forms(*active).EvaluatedWith());
  WriteSlates({slate, services_.texts, services_.platform.separators, ReadSupplyChoice(services_.platform.settings)},
              services_.forms.Series(*active, *all));
  services_.report.documentName = Document(*active).ProfileName;
}

void frmMain::ShowWhatIf() {
  if (!Active()) return;
  auto window = whatIf_.lock();
  if (window && window->IsLoaded()) {
    window->BringToFront();
    return;
  }
  window = std::make_shared<frmWhatIf>(
      Dialogs(), services_.report, [this] { return services_.model; },
      [this](std::int16_t document, const std::vector<PlotPoint>& line) {
        services_.view.ShowOverlay(document, line);
      });
  whatIf_ = window;
  services_.platform.windows.Show(window);
}

void frmMain::ShowGeneralReport() {
  const auto active = Active();
  if (!active) return;
  const auto all = WholeSeries(*active);
  if (!all) return;
  const auto wait = std::make_shared<frmWait>(services_.platform, services_.texts);
  services_.platform.windows.Show(wait);
  services_.platform.screen.DoEvents();
  GeneralReport report(services_.report, services_.forms(*active).EvaluatedWith(),
                       [&wait](const std::string& step) { wait->Label1.Caption = step; });
  WriteLongReport(report, services_.forms.Series(*active, *all), ReadSupplyChoice(services_.platform.settings));
  services_.report.documentName = Document(*active).ProfileName;
  report.ShowLongReport();
  wait->Unload();
}

}  // namespace tav
