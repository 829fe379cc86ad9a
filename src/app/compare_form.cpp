#include "app/compare_form.h"

#include <utility>

#include "app/column_cells.h"
#include "model/text_id.h"
#include "reports/dive_report.h"

namespace tav {

frmCompare::frmCompare(const DialogServices& services, PrintPreview& report, KeptPlans& kept)
    : DialogForm("frmCompare", services), report_(report), kept_(kept) {
  RemembersPlace = true;
  fgColumns.TextColumns = {0};
  ckPick.Ticked = [this](int index) { TakePick(index); };
  cbKeep.Click = [this] {
    if (const auto active = services_.ActiveDocument()) kept_.Keep(*active);
    PlanChanged();
  };
  cbClear.Click = [this] {
    kept_.Clear();
    PlanChanged();
  };
  cbPrint.Click = [this] { PrintComparison(report_, table_); };
  cbCopy.Click = [this] { platform_.clipboard.SetText(AlignedText(table_, std::string::npos)); };
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
}

void frmCompare::Form_Load() {
  const std::pair<Control*, int> captions[] = {{&lbPick, Text::CompareShow},   {&cbKeep, Text::CompareKeep},
                                               {&cbClear, Text::CompareClear}, {&cbPrint, Text::ComparePrint},
                                               {&cbCopy, Text::InfoCopy},      {&Command1, Text::PreviewClose}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  PlanChanged();
}

void frmCompare::TakePick(int index) {
  const auto place = static_cast<std::size_t>(index);
  const bool on = ckPick.Items.Get().at(place).on;
  if (place < kept_.Plans().size()) {
    kept_.Show(place, on);
  } else {
    const Other& other = others_.at(place - kept_.Plans().size());
    if (on) {
      othersShown_.insert(other);
    } else {
      othersShown_.erase(other);
    }
  }
  PlanChanged();
}

void frmCompare::PlanChanged() {
  const auto active = services_.ActiveDocument();
  std::vector<ComparedPlan> plans;  // what was kept, then what has become of it, then others
  std::vector<CheckList::Item> items;
  for (const KeptPlans::Kept& kept : kept_.Plans()) {
    items.push_back({kept.plan.name + ": " + kept.plan.detail, kept.shown});
    if (kept.shown) plans.push_back(kept.plan);
  }
  std::string name;
  std::string fault;
  bool metric = true;
  if (active) {
    plans.push_back(kept_.AsItIs(*active));
    name = plans.back().name;
    fault = texts_.Words(plans.back().column.fault);
    metric = plans.back().Settings().Metric;
  }
  others_.clear();
  for (const std::int16_t document : kept_.OpenDocuments()) {
    if (document == active) continue;
    const SeriesDive dive = services_.forms.Series(document, false).front();
    if (!WhatIf(dive.dive).Fault().IsEmpty()) continue;
    const Other other{document, services_.forms(document).Opening()};
    others_.push_back(other);
    const bool shown = othersShown_.contains(other);
    items.push_back({DiveTitle(dive, texts_), shown});
    if (shown) plans.push_back(kept_.AsItIs(document));
  }
  Caption = T(Text::CompareTitle) + (name.empty() ? "" : ": " + name);
  ckPick.Items = items;
  const bool there = active.has_value() && fault.empty();
  table_ = there ? ComparisonTable(plans, AdviceWords(texts_, platform_.separators, metric)) : ColumnTable();
  std::string notice = fault.empty() && plans.size() < 2 ? T(Text::CompareNothing) : fault;
  for (const auto* lines : {&table_.notes, &table_.warnings}) {
    for (const std::string& line : *lines) notice += (notice.empty() ? "" : "\n") + line;
  }
  lbNotice.Caption = notice;
  lbNotice.Visible = !notice.empty();
  fgColumns.Cells = CellsOf(table_);
  cbKeep.Enabled = cbCopy.Enabled = cbPrint.Enabled = there;
  cbClear.Enabled = !kept_.Plans().empty();
}

}  // namespace tav
