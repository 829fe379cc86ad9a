#include "app/plan_reports.h"

#include "advice/stop_reason.h"
#include "app/wait_form.h"
#include "dialogs/general_info.h"
#include "dialogs/report_selection.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"
#include "supply/supply_text.h"

namespace tav {

void PlanReports::ShowDiveInformation() const {
  const auto active = services_.Active();
  if (!active) return;
  // The model that made the rows: another one that is marked meanwhile has not computed them yet.
  frmGeneralInfo window(dialogs_, services_.forms(*active).EvaluatedWith());
  services_.platform.windows.ShowModal(window);
}

std::optional<bool> PlanReports::WholeSeries(std::int16_t document) const {
  const frmWaypointEditor& editor = services_.forms(document);
  if (editor.PrevProfile == -1 && editor.NextProfile == -1) return false;
  frmReportSelection selection(services_.texts);
  services_.platform.windows.ShowModal(selection);
  if (!selection.Confirmed()) return std::nullopt;
  return !selection.ReportCurrentDive();
}

void PlanReports::ShowSlate() const {
  const auto active = services_.Active();
  if (!active) return;
  const auto all = WholeSeries(*active);
  if (!all) return;
  Slate slate(services_.report, services_.forms(*active).EvaluatedWith());
  WriteSlates({slate, services_.forms, services_.texts, services_.platform.separators,
               ReadSupplyChoice(services_.platform.settings)},
              *active, *all);
  services_.report.documentName = services_.Document(*active).ProfileName;
}

void PlanReports::ShowWhatIf() {
  if (!services_.Active()) return;
  auto window = whatIf_.lock();
  if (window && window->IsLoaded()) {
    window->BringToFront();
    return;
  }
  window = std::make_shared<frmWhatIf>(
      dialogs_, services_.report, [this] { return services_.model; },
      [this](std::int16_t document, const std::vector<PlotPoint>& line) { looks_.ShowOverlay(document, line); });
  whatIf_ = window;
  services_.platform.windows.Show(window);
}

void PlanReports::Follow() const {
  if (const auto whatIf = whatIf_.lock(); whatIf && whatIf->IsLoaded()) whatIf->PlanChanged();
}

void PlanReports::ShowGeneralReport() const {
  const auto active = services_.Active();
  if (!active) return;
  const auto all = WholeSeries(*active);
  if (!all) return;
  const auto wait = std::make_shared<frmWait>(services_.platform, services_.texts);
  services_.platform.windows.Show(wait);
  struct Ended {};
  try {
    GeneralReport report(services_.report, services_.forms(*active).EvaluatedWith(), [&wait](const std::string& step) {
      if (!wait->GoOn(step)) throw Ended();
    });
    const SupplyChoice choice = ReadSupplyChoice(services_.platform.settings);
    WriteLongReport(report, services_.forms, *active, *all, [&](std::int16_t dive) {
      return SupplyTablesOf(services_.forms, dive, choice, services_.texts, services_.platform.separators);
    });
    services_.report.documentName = services_.Document(*active).ProfileName;
    report.ShowLongReport();
  } catch (const Ended&) {
    services_.report.InitPreview();  // nothing is left of it
  }
  wait->Unload();
}

std::string PlanReports::WhyStop(std::int16_t document, std::int16_t row) const {
  const frmWaypointEditor& editor = services_.forms(document);
  const CheckedDive dive(editor, services_.Document(document));
  for (const StopReason& reason : StopReasons(dive)) {
    if (reason.row != row) continue;
    return TextOf(reason, AdviceWords(services_.texts, services_.platform.separators, dive.settings.Metric));
  }
  return {};
}

}  // namespace tav
