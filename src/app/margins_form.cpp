#include "app/margins_form.h"

#include <utility>

#include "figures/settings_words.h"
#include "model/text_id.h"
#include "reports/margin_picture.h"

namespace tav {

frmMargins::frmMargins(const DialogServices& services, PrintPreview& report, MarginActs acts)
    : DialogForm("frmMargins", services), report_(report), acts_(std::move(acts)) {
  RemembersPlace = true;
  fgLegend.TextColumns = {0, 1};
  fgLegend.HasHeader = false;
  cbLeg.Click = [this] {
    chosen_ = legs_.at(static_cast<std::size_t>(cbLeg.ListIndex.Get()));
    Begin();
  };
  cmMap.Click = [this] { ShowCell(); };
  cmMap.Chosen = [this] { ShowLook(); };
  cmMap.Return = [this] { Compare(); };
  cmMap.More = [this] { GoOn(); };
  for (TextBox* field : {&tbRun, &tbStops, &tbCNS}) field->LostFocus = field->KeyReturn = [this] { TakeLimits(); };
  ckGas.Click = [this] { TakeLimits(); };
  cbTake.Click = [this] { Take(); };
  cbCompare.Click = [this] { Compare(); };
  cbPrint.Click = [this] { Print(); };
  cbExport.Click = [this] { Export(); };
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
}

void frmMargins::Form_Load() {
  const std::pair<Control*, int> captions[] = {
      {&lbLeg, Text::MarginsLeg},         {&lbStay, Text::LongestTitle},  {&cbTake, Text::MarginsTake},
      {&frLimits, Text::MarginsLimits},   {&lbRun, Text::MarginsRun},     {&lbStops, Text::MarginsStops},
      {&lbCNS, Text::MarginsCNS},         {&ckGas, Text::MarginsGas},     {&lbHint, Text::MarginsHint},
      {&cbCompare, Text::MarginsCompare}, {&cbPrint, Text::ComparePrint}, {&cbExport, Text::MarginsExport},
      {&Command1, Text::PreviewClose}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  lbStay.Bold = lbNoStop.Bold = true;
  cmMap.SpokenName = T(Text::MarginsTitle);
  fgLegend.SpokenName = T(Text::MarginsLimits);
  PlanChanged();
}

void frmMargins::Form_Unload() {
  if (std::exchange(looks_, false)) acts_.look({});
}

void frmMargins::PlanChanged() {
  const auto document = services_.ActiveDocument();
  const int opening = document ? services_.forms(*document).Opening() : 0;
  if (document != document_ || opening != opening_) {
    chosen_.reset();
    shown_.reset();
    cmMap.Selected = -1;
  }
  document_ = document;
  opening_ = opening;
  ShowLimits();
  Begin();
}

void frmMargins::Begin() {
  const int rows = work_.Grid().Rows();
  // With other legs the number may be another one's.
  const std::int16_t actions = document_ ? services_.forms(*document_).UserActions.GetLength() : std::int16_t{0};
  if (std::exchange(actions_, actions) != actions) chosen_.reset();
  work_.Begin(document_, chosen_);
  if (work_.Grid().Rows() != rows) cmMap.Selected = -1;  // other units
  if (chosen_ && !(work_.IsThere() && work_.Of().Leg() == *chosen_)) chosen_.reset();
  Caption = T(Text::MarginsTitle) + (document_ ? ": " + services_.forms.Caption(*document_) : "");
  ShowLegs();
  for (Control* control : std::initializer_list<Control*>{&cmMap, &cbTake, &cbCompare, &cbPrint, &cbExport, &cbLeg}) {
    control->Enabled = work_.IsThere();
  }
  ShowMap();
  ShowStay();
  ShowNoStop();
  ShowLook();
}

void frmMargins::GoOn() {
  work_.GoOn();
  ShowMap();
  if (!work_.IsDone()) return;
  ShowStay();
  ShowNoStop();
}

void frmMargins::ShowLegs() {
  legs_.clear();
  std::vector<std::string> names;
  int number = 0;
  if (work_.IsThere()) {
    const ClassUseractions actions = work_.Of().RecordAt(0, 0).UserActions;
    const AdviceWords words = work_.Words();
    for (std::int16_t i = 1; i <= actions.GetLength(); ++i) {
      if (actions.getaction(i) != ClassUseractions::kLeg) continue;
      if (i == work_.Of().Leg()) number = static_cast<int>(legs_.size());
      legs_.push_back(i);
      names.push_back(std::to_string(legs_.size()) + ": " + words.Depth(actions.getDepth(i)) + ", " +
                      words.Short(actions.gettime(i)) + " " + T(Text::WhatIfMinutes));
    }
  }
  cbLeg.Items = names;
  if (!names.empty()) cbLeg.ListIndex = number;
}

void frmMargins::ShowLimits() {
  const DiveLimits limits =
      document_ ? LimitsOf(services_.forms(*document_).Planned().record.Template) : DiveLimits::Usual();
  // What is marked stays until its field holds a limit.
  if (shown_ != limits) limits_.Show(limits);
  shown_ = limits;
  for (Control* control : std::initializer_list<Control*>{&tbRun, &tbStops, &tbCNS, &ckGas}) {
    control->Enabled = document_.has_value();
  }
}

void frmMargins::TakeLimits() {
  if (!IsLoaded() || !document_) return;  // a field that goes away with its window loses the keyboard, too
  DiveTemplate& settings = TemplateOf(*document_);
  const DiveLimits limits = limits_.Read(LimitsOf(settings)).limits;
  if (limits == LimitsOf(settings)) return;
  if (const std::string refusal = acts_.refusal(); !refusal.empty()) {
    limits_.Show(LimitsOf(settings));
    Box(refusal, T(Text::MarginsTitle), BoxIcon::Exclamation);
    return;
  }
  shown_ = limits;
  settings.Limits = limits;
  MarkChanged(*document_);
  services_.applyToProfile();  // the undo history takes the step
}

void frmMargins::ShowMap() {
  cmMap.WantsMore = !work_.IsDone();
  cmMap.Map = work_.Map();
  fgLegend.Cells = work_.Legend();
  lbState.Caption = work_.State();
  ShowCell();
}

void frmMargins::ShowCell() {
  cmMap.ToolTipText = lbCell.Caption = work_.CellText(cmMap.Pointed >= 0 ? cmMap.Pointed : cmMap.Selected);
  cbCompare.Enabled = work_.CanCompare(cmMap.Selected);
}

void frmMargins::ShowLook() {
  const bool other = cmMap.Selected >= 0 && cmMap.Selected != cmMap.Map.Get().marked;
  if (other || std::exchange(looks_, false)) acts_.look(other ? work_.PlanOf(cmMap.Selected) : std::nullopt);
  looks_ = other;
}

void frmMargins::ShowStay() {
  const auto stay = work_.Stay();
  lbLongest.Caption = work_.StayText();
  cbTake.Enabled = stay && stay->minutes > 0 && Single(stay->minutes) != work_.Of().LegTime();
}

void frmMargins::ShowNoStop() {
  lbNoStop.Visible = fgNoStop.Visible = work_.IsThere();
  if (!work_.IsThere()) return;
  const Margins& margins = work_.Of();
  const AdviceWords words = work_.Words();
  const bool none = work_.NoStop() && work_.NoStop()->empty();
  lbNoStop.Caption = none ? NoStopLines({}, margins, words).front() : T(Text::NoStopTitle, {margins.LegGas()});
  fgNoStop.Visible = !none;
  fgNoStop.SpokenName = lbNoStop.Caption.Get();
  std::vector<std::vector<GridCell>> cells{{GridCell{words.LengthUnit()}, GridCell{T(Text::WhatIfMinutes)}}};
  for (const NoStopTime& time : work_.NoStop().value_or(std::vector<NoStopTime>())) {
    const std::string minutes = std::to_string(time.minutes) + (time.minutes == LongestStay::kMost ? "+" : "");
    cells.push_back({GridCell{words.Short(time.depth)}, GridCell{minutes}});
  }
  fgNoStop.Cells = cells;
  fgNoStop.ToolTipText =
      T(Text::NoStopOf, {ComputedWith(margins.Settings(), margins.Model(), margins.IsRepetitive(), texts_, numbers_)});
}

void frmMargins::Take() {
  const auto stay = work_.Stay();
  if (!stay || stay->minutes == 0) return;
  const std::string fault = acts_.setMinutes(work_.Of().Leg(), stay->minutes);
  if (!fault.empty()) Box(fault, T(Text::MarginsTitle), BoxIcon::Exclamation);
}

void frmMargins::Compare() {
  if (!work_.CanCompare(cmMap.Selected)) return;
  if (const auto plan = work_.PlanOf(cmMap.Selected)) acts_.compare(*plan);
}

void frmMargins::Print() {
  if (!work_.IsThere()) return;
  while (!work_.IsDone()) GoOn();
  PrintMargins(report_, services_.forms.Caption(*document_), work_.Of(), work_.Grid(), work_.Cells(), work_.Stay(),
               work_.Words());
}

void frmMargins::Export() {
  if (!work_.IsThere()) return;
  while (!work_.HasMap()) GoOn();
  acts_.save(
      MarginPicture(services_.forms.Caption(*document_), work_.Of(), work_.Grid(), work_.Cells(), work_.Words()));
}

}  // namespace tav
