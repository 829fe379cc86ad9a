#include "app/what_if_form.h"

#include <algorithm>
#include <cmath>

#include "model/text_id.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"

namespace tav {

frmWhatIf::frmWhatIf(const DialogServices& services, PrintPreview& report, Overlay overlay)
    : DialogForm("frmWhatIf", services), report_(report), overlay_(std::move(overlay)) {
  RemembersPlace = true;
  fgColumns.TextColumns = {0};
  udLonger.Buddy = "tbLonger";
  udDeeper.Buddy = "tbDeeper";
  udLonger.UpClick = [this] { Step(tbLonger, 1, WhatIfWish::kMostMinutes); };
  udLonger.DownClick = [this] { Step(tbLonger, -1, WhatIfWish::kMostMinutes); };
  udDeeper.UpClick = [this] { Step(tbDeeper, 1, WhatIfWish::kMostDepth); };
  udDeeper.DownClick = [this] { Step(tbDeeper, -1, WhatIfWish::kMostDepth); };
  tbLonger.Change = tbDeeper.Change = [this] { TakeWish(); };
  cbGraph.Click = [this] { DrawChosen(); };
  cbSlate.Click = [this] { PrintSlate(); };
  cbCopy.Click = [this] { platform_.clipboard.SetText(AlignedText(table_, std::string::npos)); };
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
}

void frmWhatIf::Form_Load() {
  const std::pair<Control*, int> captions[] = {{&lbLonger, Text::WhatIfLonger},   {&lbMinutes, Text::WhatIfMinutes},
                                               {&lbDeeper, Text::WhatIfDeeper},   {&lbGraph, Text::WhatIfGraph},
                                               {&lbSlate, Text::WhatIfSlateWith}, {&cbSlate, Text::WhatIfSlate},
                                               {&cbCopy, Text::InfoCopy},         {&Command1, Text::PreviewClose}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  cbWith.Items = std::vector<std::string>{T(Text::WhatIfSlateChoices), T(Text::WhatIfSlateChoices + 1),
                                          T(Text::WhatIfSlateChoices + 2)};
  cbWith.ListIndex = ThePlan;
  PlanChanged();
}

void frmWhatIf::Form_Unload() {
  if (document_ != -1) overlay_(document_, {});
}

void frmWhatIf::PlanChanged() {
  const std::int16_t document = services_.ActiveDocument().value_or(-1);
  if (document != document_) {
    if (document_ != -1) overlay_(document_, {});
    cbGraph.ListIndex = -1;
  }
  const bool wasMetric = metric_;
  const bool first = whatIf_ == nullptr;
  document_ = document;
  whatIf_.reset();
  columns_.clear();
  table_ = {};
  Caption = T(Text::WhatIfTitle);
  if (document == -1) {
    ShowColumns();
    ShowNotice({});
    return;
  }
  const SeriesDive dive = services_.forms.Series(document, false).front();
  Caption = T(Text::WhatIfTitle) + ": " + DiveTitle(dive, texts_);
  whatIf_ = std::make_unique<WhatIf>(dive.dive);
  metric_ = TemplateOf(document).Metric;
  lbUnit.Caption = T(metric_ ? Text::Metres : Text::Feet);
  if (first || metric_ != wasMetric) {
    wish_ = WhatIfWish::Usual(metric_);
    tbLonger.Text = Plain(wish_.minutes);
    tbDeeper.Text = Plain(wish_.depth);
  }
  TakeWish();
}

void frmWhatIf::Step(TextBox& field, double step, double most) {
  field.Text = Plain(std::clamp(std::floor(Number(field.Text)) + step, 0.0, most));
  TakeWish();
}

void frmWhatIf::TakeWish() {
  const auto take = [this](TextBox& field, double most, Single& wish) {
    const auto number = NumberIn(field.Text);
    const bool good = number && *number >= 0 && *number <= most;
    field.ForeColor = good ? -1 : kRed;
    if (good) wish = *number;
  };
  take(tbLonger, WhatIfWish::kMostMinutes, wish_.minutes);
  take(tbDeeper, WhatIfWish::kMostDepth, wish_.depth);
  if (whatIf_ == nullptr) return;
  std::vector<std::string> notices;
  if (whatIf_->Fault().IsEmpty()) {
    columns_ = whatIf_->Columns(wish_);
    table_ = TableOf(columns_, wish_, *whatIf_, Words());
    if (whatIf_->AddsAscent()) notices.push_back(T(Text::WhatIfWithAscent));
    for (const WhatIfColumn& column : columns_) {
      if (column.fault.IsEmpty()) continue;
      notices.push_back(T(Text::WhatIfFault, {NameOf(column, Words()), texts_.Words(column.fault)}));
    }
    for (const std::string& warning : table_.warnings) notices.push_back("! " + warning);
  } else {
    notices.push_back(T(Text::WhatIfNothing, {texts_.Words(whatIf_->Fault())}));
  }
  ShowColumns();
  ShowNotice(notices);
}

void frmWhatIf::ShowNotice(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  lbNotice.Caption = text;
  lbNotice.Visible = !text.empty();
}

void frmWhatIf::ShowColumns() {
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(table_.rows.size() + 2);
  std::vector<GridCell> names{{""}};
  std::vector<GridCell> details{{""}};
  for (const WhatIfTable::Head& head : table_.heads) {
    names.push_back({head.name, -1, true});
    details.push_back({head.detail});
  }
  if (!table_.heads.empty()) {
    cells.push_back(names);
    cells.push_back(details);
  }
  for (const WhatIfTable::Row& row : table_.rows) {
    std::vector<GridCell>& line = cells.emplace_back();
    line.push_back({row.Heading(), -1, row.total});
    for (const WhatIfTable::Cell& cell : row.cells) {
      const std::string blank = cell.figure.empty() || cell.note.empty() ? "" : "  ";
      line.push_back({cell.figure + blank + cell.note, cell.bad ? kRed : Colour(-1), cell.bad});
    }
  }
  fgColumns.Cells = cells;

  std::vector<std::string> entries;
  for (const WhatIfTable::Head& head : table_.heads) {
    entries.push_back(head.detail.empty() ? head.name : head.name + " " + head.detail);
  }
  const int chosen = std::clamp(cbGraph.ListIndex.Get(), 0, std::max(0, static_cast<int>(entries.size()) - 1));
  cbGraph.Items = entries;
  cbGraph.ListIndex = entries.empty() ? -1 : chosen;
  for (Control* control : std::initializer_list<Control*>{&cbGraph, &cbWith, &cbSlate, &cbCopy}) {
    control->Enabled = !entries.empty();
  }
  DrawChosen();
}

std::size_t frmWhatIf::Chosen() const { return static_cast<std::size_t>(std::max(0, cbGraph.ListIndex.Get())); }

void frmWhatIf::DrawChosen() {
  if (document_ == -1) return;
  std::vector<PlotPoint> line;
  // The plan itself is on the graph already; the ascent that it lacks is not.
  const std::size_t chosen = Chosen();
  if (chosen < columns_.size() && (chosen > 0 || whatIf_->AddsAscent())) {
    const ClassProfile& rows = columns_[chosen].rows;
    line.reserve(static_cast<std::size_t>(rows.GetLength()) + 1);
    for (std::int16_t i = 0; i <= rows.GetLength(); ++i) line.push_back({rows.GetRunTime(i), rows.getDepth(i)});
    if (line.size() < 2) line.clear();
  }
  overlay_(document_, line);
}

void frmWhatIf::PrintSlate() {
  if (columns_.empty()) return;
  std::vector<WhatIfColumn> chosen{columns_.front()};
  if (cbWith.ListIndex == AllColumns) chosen = columns_;
  if (cbWith.ListIndex == ThePlanAndTheChosen && Chosen() > 0) chosen.push_back(columns_[Chosen()]);
  Slate slate(report_);
  WriteSlates({slate, texts_, platform_.separators}, services_.forms.Series(document_, false).front(), chosen, wish_);
  report_.documentName = services_.Documents()(document_).ProfileName;
}

}  // namespace tav
