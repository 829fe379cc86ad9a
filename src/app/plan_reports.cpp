#include "app/plan_reports.h"

#include <utility>

#include "advice/stop_reason.h"
#include "app/wait_form.h"
#include "dialogs/general_info.h"
#include "dialogs/plan_sheet_form.h"
#include "dialogs/report_selection.h"
#include "model/text_id.h"
#include "pages/print_form.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"

namespace tav {

void PlanReports::ShowDiveInformation() const {
  const auto active = services_.Active();
  if (!active) return;
  frmGeneralInfo window(dialogs_);
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
  Slate slate(services_.report);
  WriteSlates({slate, services_.texts, services_.platform.separators}, services_.forms.Series(*active, *all));
  services_.report.documentName = services_.Document(*active).ProfileName;
}

void PlanReports::ShowPlanSheet() const {
  if (!services_.Active()) return;
  frmPlanSheet dialog(dialogs_);
  services_.platform.windows.ShowModal(dialog);
  if (dialog.PreviewWanted()) static_cast<void>(WritePlanSheet());
}

bool PlanReports::WritePlanSheet() const {
  const auto active = services_.Active();
  if (!active) return false;
  const auto all = WholeSeries(*active);
  if (!all) return false;
  services_.platform.screen.ShowHourglass(true);
  PrintPlanSheets(services_.report, services_.forms.Series(*active, *all),
                  ReadPlanSheetWish(services_.platform.settings));
  services_.platform.screen.ShowHourglass(false);
  services_.report.documentName = services_.Document(*active).ProfileName;
  return true;
}

void PlanReports::ShowWhatIf() {
  if (!services_.Active()) return;
  auto window = whatIf_.lock();
  if (window && window->IsLoaded()) {
    window->BringToFront();
    return;
  }
  window = std::make_shared<frmWhatIf>(dialogs_, services_.report, lines_);
  whatIf_ = window;
  services_.platform.windows.Show(window);
}

void PlanReports::ClearLine() {
  const auto active = services_.Active();
  if (!active) return;
  lines_.Clear(*active);
  Follow();
}

std::string PlanReports::KeepPlan() {
  const auto active = services_.Active();
  if (!active) return {};
  const std::string fault = kept_.Keep(*active);
  Follow();
  return fault.empty() ? services_.texts.Filled(Text::KeptForComparison, {std::to_string(kept_.Plans().size())})
                       : fault;
}

void PlanReports::ClearKept() {
  kept_.Clear();
  Follow();
}

void PlanReports::ShowComparison() {
  if (!services_.Active()) return;
  auto window = comparison_.lock();
  if (window && window->IsLoaded()) {
    window->BringToFront();
    return;
  }
  window = std::make_shared<frmCompare>(dialogs_, services_.report, kept_);
  comparison_ = window;
  services_.platform.windows.Show(window);
}

void PlanReports::ShowMargins(const MarginActs& acts) {
  if (!services_.Active()) return;
  auto window = margins_.lock();
  if (window && window->IsLoaded()) {
    window->BringToFront();
    return;
  }
  window = std::make_shared<frmMargins>(dialogs_, services_.report, acts);
  margins_ = window;
  services_.platform.windows.Show(window);
}

void PlanReports::Compare(const ComparedPlan& plan) {
  if (const auto active = services_.Active()) kept_.Keep(plan, *active);
  if (const auto open = comparison_.lock(); open && open->IsLoaded()) open->PlanChanged();
  ShowComparison();
}

void PlanReports::Look(KeptPlans::Looker looker, std::optional<ComparedPlan> plan) {
  const auto active = services_.Active();
  kept_.Look(looker, active ? std::move(plan) : std::nullopt, active.value_or(0));
}

void PlanReports::Follow() const {
  if (const auto margins = margins_.lock(); margins && margins->IsLoaded()) margins->PlanChanged();
  if (const auto window = comparison_.lock(); window && window->IsLoaded()) window->PlanChanged();
  if (const auto whatIf = whatIf_.lock(); whatIf && whatIf->IsLoaded()) whatIf->PlanChanged();
}

bool PlanReports::WriteGeneralReport() const {
  const auto active = services_.Active();
  if (!active) return false;
  const auto all = WholeSeries(*active);
  if (!all) return false;
  const auto wait = std::make_shared<frmWait>(services_.platform, services_.texts);
  services_.platform.windows.Show(wait);
  constexpr int kRowsBetweenLooks = 25;
  std::string step;
  GeneralReport report(
      services_.report, [&](const std::string& now) { step = now; },
      [&](int done, int of) {
        if (done % kRowsBetweenLooks != 0) return wait->IsLoaded();
        return wait->GoOn(step + "  " + std::to_string(done) + "/" + std::to_string(of));
      });
  const bool written = WriteLongReport(report, services_.forms.Series(*active, *all));
  if (written) {
    services_.report.documentName = services_.Document(*active).ProfileName;
    report.ShowLongReport();
  } else {
    services_.report.InitPreview();  // nothing is left of it
  }
  wait->Unload();
  return written;
}

void PlanReports::Print() const {
  if (!WritePlanSheet()) return;
  PrintPrint dialog(services_.report, services_.platform, services_.report.documentName);
  services_.platform.windows.ShowModal(dialog);
}

std::string PlanReports::WhyStop(std::int16_t document, std::int16_t row) const {
  const frmWaypointEditor& editor = services_.forms(document);
  const CheckedDive dive(editor.Planned());
  const auto texts =
      StopReasonTexts(dive, AdviceWords(services_.texts, services_.platform.separators, dive.settings.Metric));
  const auto found = texts.find(row);
  return found == texts.end() ? std::string() : found->second;
}

}  // namespace tav
