#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/compare_form.h"
#include "app/kept_plans.h"
#include "app/margins_form.h"
#include "app/plan_looks.h"
#include "app/what_if_form.h"
#include "app/what_if_lines.h"

namespace tav {

/// The commands that show and report what was computed.
class PlanReports {
 public:
  PlanReports(const MainServices& services, const DialogServices& dialogs, PlanLooks& looks)
      : services_(services),
        dialogs_(dialogs),
        lines_(services.forms, [&looks](auto document, const auto& line) { looks.ShowOverlay(document, line); }),
        kept_(services, looks) {}

  void ShowDiveInformation() const;
  /// The long report of the plan in front. A window that tells how far it is ends it, too; then nothing is shown.
  void ShowGeneralReport() const { static_cast<void>(WriteGeneralReport()); }
  void ShowSlate() const;
  /// Asks for what the sheet of the plan in front tells of it and how it is wished, and shows it.
  void ShowPlanSheet() const;
  /// Prints the sheet of the plan in front, by way of its preview.
  void Print() const;
  /// Opens the comparison of the plan in front, or brings it to the front.
  void ShowWhatIf();
  /// Takes the line of the comparison off the graph of the plan in front.
  void ClearLine();
  /// Keeps the plan in front for comparison. What to tell of it.
  std::string KeepPlan();
  void ClearKept();
  [[nodiscard]] bool HasKept() const { return !kept_.Plans().empty(); }
  /// Opens the window of kept and open plans side by side, or brings it to the front.
  void ShowComparison();
  /// Opens the map of margins of the plan in front, or brings it to the front.
  void ShowMargins(const MarginActs& acts);
  /// Keeps a dive for comparison with the plan in front, and shows the comparison.
  void Compare(const ComparedPlan& plan);
  /// Draws a dive thin over the plan in front, in place of the last one; nothing for none.
  void Look(KeptPlans::Looker looker, std::optional<ComparedPlan> plan);
  /// A document has been changed or closed: that line follows.
  void FollowLine(std::int16_t document) { lines_.Follow(document); }
  /// The plan in front is another one, or has been computed anew: the comparison follows.
  void Follow() const;
  /// Why a stop of a plan lasts as long as it does; empty for a row that is none.
  [[nodiscard]] std::string WhyStop(std::int16_t document, std::int16_t row) const;

 private:
  /// False when nothing is shown.
  [[nodiscard]] bool WriteGeneralReport() const;
  [[nodiscard]] bool WritePlanSheet() const;
  /// Whether a report is to tell all dives of a series; nothing when the user called it off.
  [[nodiscard]] std::optional<bool> WholeSeries(std::int16_t document) const;

  const MainServices& services_;
  const DialogServices& dialogs_;
  WhatIfLines lines_;
  KeptPlans kept_;
  std::weak_ptr<frmWhatIf> whatIf_;
  std::weak_ptr<frmCompare> comparison_;
  std::weak_ptr<frmMargins> margins_;
};

}  // namespace tav
