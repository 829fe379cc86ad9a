#include "app/what_if_form.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

#include "app/column_cells.h"
#include "model/text_id.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"

namespace tav {

namespace {

const std::string kSection = "WhatIf";
const std::string kNotShown = "NotShown";
/// More would be a table that nobody reads.
constexpr std::size_t kMostFactors = 8;
constexpr char kBetween = ';';

}  // namespace

frmWhatIf::frmWhatIf(const DialogServices& services, PrintPreview& report, WhatIfLines& lines)
    : DialogForm("frmWhatIf", services), report_(report), lines_(lines) {
  RemembersPlace = true;
  fgColumns.TextColumns = {0};
  udLonger.Buddy = "tbLonger";
  udDeeper.Buddy = "tbDeeper";
  udLonger.UpClick = [this] { Step(tbLonger, 1, WhatIfWish::kMostMinutes); };
  udLonger.DownClick = [this] { Step(tbLonger, -1, WhatIfWish::kMostMinutes); };
  udDeeper.UpClick = [this] { Step(tbDeeper, 1, WhatIfWish::kMostDepth); };
  udDeeper.DownClick = [this] { Step(tbDeeper, -1, WhatIfWish::kMostDepth); };
  tbLonger.Change = tbDeeper.Change = tbFactors.Change = [this] { TakeWish(); };
  ckPick.Ticked = [this](int index) { TakePick(index); };
  cbGraph.Click = [this] { DrawChosen(); };
  cbSlate.Click = [this] { PrintSlate(); };
  cbCopy.Click = [this] { platform_.clipboard.SetText(AlignedText(table_, std::string::npos)); };
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
}

void frmWhatIf::Form_Load() {
  const std::pair<Control*, int> captions[] = {{&lbLonger, Text::WhatIfLonger},   {&lbMinutes, Text::WhatIfMinutes},
                                               {&lbDeeper, Text::WhatIfDeeper},   {&lbGraph, Text::WhatIfGraph},
                                               {&lbFactors, Text::WhatIfFactors}, {&lbPick, Text::WhatIfPick},
                                               {&lbSlate, Text::WhatIfSlateWith}, {&cbSlate, Text::WhatIfSlate},
                                               {&cbCopy, Text::InfoCopy},         {&Command1, Text::PreviewClose}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  cbWith.Items = std::vector<std::string>{T(Text::WhatIfSlateChoices), T(Text::WhatIfSlateChoices + 1),
                                          T(Text::WhatIfSlateChoices + 2)};
  cbWith.ListIndex = ThePlan;
  std::istringstream names(platform_.settings.ReadSetting(kSection, kNotShown));
  for (std::string name; std::getline(names, name, kBetween);) unpicked_.insert(name);
  PlanChanged();
}

void frmWhatIf::Form_Unload() {
  // The ascent that a plan lacks is not a line that was chosen.
  if (document_ != -1 && lines_.Of(document_) == nullptr) lines_.Clear(document_);
}

void frmWhatIf::PlanChanged() {
  const std::int16_t document = services_.ActiveDocument().value_or(-1);
  bool known = false;  // the wish is that of the line on the graph
  if (document != document_) {
    if (document_ != -1 && lines_.Of(document_) == nullptr) lines_.Clear(document_);
    if (const WhatIfLines::Choice* choice = lines_.Of(document)) {
      known = true;
      wish_ = choice->wish;
      std::string factors;
      for (const GradientFactors& pair : wish_.factors) factors += (factors.empty() ? "" : " ") + TextOf(pair);
      tbFactors.Text = factors;
      tbLonger.Text = Plain(wish_.minutes);
      tbDeeper.Text = Plain(wish_.depth);
    }
  }
  const bool wasMetric = metric_;
  const bool first = whatIf_ == nullptr;
  document_ = document;
  whatIf_.reset();
  all_.clear();
  columns_.clear();
  table_ = {};
  Caption = T(Text::WhatIfTitle);
  if (document == -1) {
    ShowPicks();
    ShowColumns();
    ShowNotice({});
    return;
  }
  const SeriesDive dive = services_.forms.Series(document, false).front();
  Caption = T(Text::WhatIfTitle) + ": " + DiveTitle(dive, texts_);
  whatIf_ = std::make_unique<WhatIf>(dive.dive);
  metric_ = TemplateOf(document).Metric;
  lbUnit.Caption = T(metric_ ? Text::Metres : Text::Feet);
  if (!known && (first || metric_ != wasMetric)) {
    const std::vector<GradientFactors> factors = wish_.factors;
    wish_ = WhatIfWish::Usual(metric_);
    wish_.factors = factors;
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
  const auto factors = FactorsTyped();
  tbFactors.ForeColor = factors ? -1 : kRed;
  if (factors) wish_.factors = *factors;
  if (whatIf_ == nullptr) return;
  if (whatIf_->Fault().IsEmpty()) all_ = whatIf_->Columns(wish_);
  ShowPicks();
  Pick();
}

std::optional<std::vector<GradientFactors>> frmWhatIf::FactorsTyped() const {
  std::vector<GradientFactors> typed;
  std::istringstream words(tbFactors.Text.Get());
  for (std::string word; words >> word;) {
    const auto factors = FactorsOf(word);
    if (!factors || typed.size() == kMostFactors) return std::nullopt;
    typed.push_back(*factors);
  }
  return typed;
}

void frmWhatIf::ShowPicks() {
  picks_.clear();
  std::vector<CheckList::Item> items;
  for (const WhatIfColumn& column : all_) {
    using Kind = WhatIfColumn::Kind;
    const std::string name = column.PickName();
    // Gradient factors come and go by their field.
    if (column.kind == Kind::Planned || column.kind == Kind::Factors) continue;
    if (std::ranges::find(picks_, name) != picks_.end()) continue;
    picks_.push_back(name);
    items.push_back({NameOf(column, Words()), !unpicked_.contains(name)});
  }
  ckPick.Items = items;
}

void frmWhatIf::TakePick(int index) {
  const std::string& name = picks_.at(static_cast<std::size_t>(index));
  if (ckPick.Items.Get().at(static_cast<std::size_t>(index)).on) {
    unpicked_.erase(name);
  } else {
    unpicked_.insert(name);
  }
  std::string names;
  for (const std::string& hidden : unpicked_)
    names += (names.empty() ? std::string() : std::string(1, kBetween)) + hidden;
  platform_.settings.WriteSetting(kSection, kNotShown, names);
  Pick();
}

void frmWhatIf::Pick() {
  columns_ = all_;
  std::erase_if(columns_, [this](const WhatIfColumn& column) {
    return column.kind != WhatIfColumn::Kind::Planned && unpicked_.contains(column.PickName());
  });
  std::vector<std::string> notices;
  if (tbFactors.ForeColor == kRed) notices.push_back(T(Text::OptionGradientFactors, {tbFactors.Text}));
  if (whatIf_->Fault().IsEmpty()) {
    table_ = TableOf(columns_, wish_, *whatIf_, Words());
    if (whatIf_->AddsAscent()) notices.push_back(T(Text::WhatIfWithAscent));
    for (const WhatIfColumn& column : columns_) {
      if (column.fault.IsEmpty()) continue;
      notices.push_back(T(Text::WhatIfFault, {NameOf(column, Words()), texts_.Words(column.fault)}));
    }
    for (const std::string& note : table_.notes) notices.push_back("- " + note);
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
  fgColumns.Cells = CellsOf(table_);

  const WhatIfLines::Choice* choice = lines_.Of(document_);
  const auto at = choice == nullptr ? std::nullopt : choice->column.In(columns_);
  std::vector<std::string> entries;
  for (const ColumnTable::Head& head : table_.heads) {
    entries.push_back(head.detail.empty() ? head.name : head.name + " " + head.detail);
  }
  cbGraph.Items = entries;
  cbGraph.ListIndex = entries.empty() ? -1 : static_cast<int>(at.value_or(0));
  for (Control* control : std::initializer_list<Control*>{&cbGraph, &cbWith, &cbSlate, &cbCopy}) {
    control->Enabled = !entries.empty();
  }
  DrawChosen();
}

std::size_t frmWhatIf::Chosen() const { return static_cast<std::size_t>(std::max(0, cbGraph.ListIndex.Get())); }

void frmWhatIf::DrawChosen() {
  if (document_ == -1) return;
  const std::size_t chosen = Chosen();
  // The plan itself is on the graph already; the ascent that it lacks is not.
  if (chosen < columns_.size() && chosen > 0) {
    lines_.Choose(document_, wish_, WhatIfColumnKey::Of(columns_, chosen), columns_[chosen].rows);
  } else if (columns_.empty()) {
    lines_.Show(document_, {});
  } else {
    lines_.Clear(document_);
    if (whatIf_->AddsAscent()) lines_.Show(document_, columns_.front().rows);
  }
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
