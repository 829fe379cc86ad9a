#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/command_search.h"
#include "app/information_boxes.h"
#include "app/languages_form.h"
#include "app/leaving_form.h"
#include "app/margins_form.h"
#include "app/margins_pane.h"
#include "app/start_forms.h"
#include "app/wait_form.h"
#include "app/what_if_form.h"
#include "dialogs/bailout_start.h"
#include "dialogs/check_pane.h"
#include "dialogs/conservatism.h"
#include "dialogs/cylinders.h"
#include "dialogs/gas_blend.h"
#include "dialogs/general_info.h"
#include "dialogs/multi_level.h"
#include "dialogs/plan_pane.h"
#include "dialogs/plan_sheet_form.h"
#include "dialogs/properties.h"
#include "dialogs/report_selection.h"
#include "dialogs/table_expert.h"
#include "dialogs/waypoint_form.h"
#include "mixer/partial_mix_form.h"
#include "pages/preview_form.h"
#include "pages/print_form.h"
#include "support/program_fixture.h"
#include "support/source_folder.h"

namespace tav::test {

/// Every form of the program, on a plan with waypoints, or on one of the shipped dives.
struct Forms {
  explicit Forms(const std::string& language = "", const std::string& dive = "",
                 const LocaleSeparators& separators = {})
      : program(separators) {
    program.platform.settings[{"", "Language"}] = language;
    program.Start();
    if (dive.empty()) {
      program.Editor().AddUserWaypoint(42.3, 25, 0);
    } else {
      program.Main().OpenFile(HeadlessProgram::Dive(dive).string());
    }
    const DialogServices services{program.program.Forms(), program.platform.Services(), program.program.Texts(), false,
                                  [] {}};
    const Platform platform = program.platform.Services();
    const TextSource& texts = program.program.Texts();
    auto waypoint = std::make_unique<frmWaypointForm>(services);
    waypoint->data(profile, -1);
    forms.push_back(std::move(waypoint));
    forms.push_back(std::make_unique<frmConservatism>(services));
    forms.push_back(std::make_unique<frmCylinders>(services));
    forms.push_back(std::make_unique<frmPlanSheet>(services));
    forms.push_back(std::make_unique<frmProperties>(services));
    forms.push_back(std::make_unique<frmGasBlend>(services));
    forms.push_back(std::make_unique<frmMultiLevel>(services));
    forms.push_back(std::make_unique<frmBailoutStart>(services, reports, host));
    forms.push_back(std::make_unique<frmTableExpert>(services, reports, host));
    forms.push_back(std::make_unique<frmPartialMix>(platform, reports, program.Document().Template));
    forms.push_back(std::make_unique<frmGeneralInfo>(services));
    forms.push_back(std::make_unique<frmCheckPane>(services, [](std::int16_t, std::int16_t, std::int16_t) {}));
    forms.push_back(
        std::make_unique<frmPlanPane>(PlanPaneServices{services, history, [](std::int16_t) { return false; }, [] {},
                                                       [] {}, [](std::int16_t) {}, [](std::int16_t) {}}));
    forms.push_back(std::make_unique<frmWhatIf>(services, reports, lines));
    const MarginActs acts{[](const ComparedPlan&) {}, [](const std::optional<ComparedPlan>&) {},
                          [](std::int16_t, Single) { return std::string(); }, [] { return std::string(); },
                          [](const FilePicture&) {}};
    forms.push_back(std::make_unique<frmMargins>(services, reports, acts));
    forms.push_back(std::make_unique<frmMarginsPane>(services, acts));
    forms.push_back(std::make_unique<frmReportSelection>(texts));
    forms.push_back(std::make_unique<frmWait>(platform, texts));
    forms.push_back(std::make_unique<PrintPrev>(reports, platform));
    forms.back()->Caption = "General report";
    forms.push_back(std::make_unique<PrintPrint>(reports, platform, "plan"));
    forms.push_back(std::make_unique<frmLanguages>(platform, texts, SourceFolder() / "lang"));
    forms.push_back(std::make_unique<frmCommandSearch>(
        texts, std::vector<frmCommandSearch::Command>{{&program.Main().mnuOpen, "File > Open"}}));
    forms.push_back(
        std::make_unique<frmLeaving>(texts, std::vector<std::string>{"wreck.tav", "Plan 2"}, "Leg 1: 30 m"));
    forms.push_back(std::make_unique<frmSplash>(platform, "Tav.wav"));
    forms.push_back(std::make_unique<frmLiability>(platform, texts));
    forms.push_back(std::make_unique<frmAbout>(texts, [] {}));
    forms.push_back(std::make_unique<frmContributers>(texts));
    forms.push_back(std::make_unique<frmSystemInformation>(platform, texts, "information"));
  }

  /// Loads a form; a pane shows the plan.
  void Load(Form& form) {
    form.Load();
    if (auto* pane = dynamic_cast<PaneForm*>(&form)) pane->ShowDocument(program.Active());
  }

  template <class F>
  F& Of() const {
    for (const auto& form : forms) {
      if (auto* found = dynamic_cast<F*>(form.get())) return *found;
    }
    throw std::logic_error("no form of that kind");
  }

  HeadlessProgram program;
  ClassProfile profile;
  LongRuns host;
  WhatIfLines lines{program.program.Forms(), [](std::int16_t, const std::vector<PlotPoint>&) {}};
  UndoHistory history{program.program.Forms()};
  PrintPreview reports{program.platform.Services(), program.program.Texts()};
  std::vector<std::unique_ptr<Form>> forms;
};

/// Looks at a window on each of its pages, as its tabs or its list of categories turn them.
inline void OnEachPage(Form& form, const std::function<void()>& look) {
  bool turned = false;
  const auto turn = [&](auto* pages, std::size_t count) {
    if (pages == nullptr || !pages->Visible || count < 2) return;
    turned = true;
    for (std::size_t i = 0; i < count; ++i) {
      pages->Select(static_cast<int>(i));
      look();
    }
  };
  for (Control* control : form.Controls()) {
    auto* tabs = dynamic_cast<TabStrip*>(control);
    auto* list = dynamic_cast<ListView*>(control);
    turn(tabs, tabs == nullptr ? 0 : tabs->Tabs.Get().size());
    turn(list, list == nullptr ? 0 : list->Items.Get().size());
  }
  if (!turned) look();
}

}  // namespace tav::test
