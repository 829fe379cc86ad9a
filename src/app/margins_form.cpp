#include "app/margins_form.h"

#include <algorithm>
#include <utility>

#include "figures/settings_words.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr double kSlice = 0.012;  ///< seconds of computing between two looks at the events

}  // namespace

frmMargins::frmMargins(const DialogServices& services, PrintPreview& report, Acts acts)
    : DialogForm("frmMargins", services), report_(report), acts_(std::move(acts)) {
  RemembersPlace = true;
  fgLegend.TextColumns = {0, 1};
  fgLegend.HasHeader = false;
  cbLeg.Click = [this] {
    chosen_ = legs_.at(static_cast<std::size_t>(cbLeg.ListIndex.Get()));
    Begin();
  };
  cmMap.Click = [this] { ShowCell(); };
  cmMap.Return = [this] { Compare(); };
  cmMap.More = [this] { GoOn(); };
  for (TextBox* field : {&tbRun, &tbStops, &tbCNS}) field->LostFocus = field->KeyReturn = [this] { TakeLimits(); };
  ckGas.Click = [this] { TakeLimits(); };
  cbTake.Click = [this] { Take(); };
  cbCompare.Click = [this] { Compare(); };
  cbPrint.Click = [this] { Print(); };
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
}

void frmMargins::Form_Load() {
  const std::pair<Control*, int> captions[] = {
      {&lbLeg, Text::MarginsLeg},         {&lbStay, Text::LongestTitle},  {&cbTake, Text::MarginsTake},
      {&frLimits, Text::MarginsLimits},   {&lbRun, Text::MarginsRun},     {&lbStops, Text::MarginsStops},
      {&lbCNS, Text::MarginsCNS},         {&ckGas, Text::MarginsGas},     {&lbHint, Text::MarginsHint},
      {&cbCompare, Text::MarginsCompare}, {&cbPrint, Text::ComparePrint}, {&Command1, Text::PreviewClose}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  lbStay.Bold = lbNoStop.Bold = true;
  cmMap.SpokenName = T(Text::MarginsTitle);
  fgLegend.SpokenName = T(Text::MarginsLimits);
  PlanChanged();
}

void frmMargins::PlanChanged() {
  const auto active = services_.ActiveDocument();
  const std::int16_t document = active.value_or(-1);
  const int opening = active ? services_.forms(document).Opening() : 0;
  if (document != document_ || opening != opening_) {
    chosen_.reset();
    cmMap.Selected = -1;
  }
  document_ = document;
  opening_ = opening;
  ShowLimits();
  Begin();
}

void frmMargins::Begin() {
  margins_.reset();
  cells_.clear();
  judged_ = 0;
  stay_.reset();
  noStop_.reset();
  std::string name;
  if (document_ != -1) {
    const frmWaypointEditor& editor = services_.forms(document_);
    const PlannedDive dive = editor.Planned();
    metric_ = dive.record.Template.Metric;
    grid_ = MarginGrid::Usual(metric_);
    const ClassUseractions& actions = dive.record.UserActions;
    const bool isLeg =
        chosen_ && *chosen_ <= actions.GetLength() && actions.getaction(*chosen_) == ClassUseractions::kLeg;
    if (!isLeg) chosen_.reset();
    margins_ = std::make_unique<Margins>(dive, LimitsOf(dive.record.Template), Words(), chosen_);
    name = services_.forms.Caption(document_);
  }
  Caption = T(Text::MarginsTitle) + (name.empty() ? "" : ": " + name);
  const bool there = margins_ != nullptr && margins_->Fault().IsEmpty();
  ShowLegs();
  for (Control* control : std::initializer_list<Control*>{&cmMap, &cbTake, &cbCompare, &cbPrint, &cbLeg}) {
    control->Enabled = there;
  }
  cmMap.WantsMore = there;
  ShowMap();
  ShowStay();
  ShowNoStop();
  ShowCell();
  ShowState();
}

void frmMargins::GoOn() {
  if (margins_ == nullptr || !margins_->Fault().IsEmpty()) {
    cmMap.WantsMore = false;
    return;
  }
  const double end = platform_.screen.Timer() + kSlice;
  const auto isTime = [&] { return platform_.screen.Timer() < end; };
  const std::size_t all = static_cast<std::size_t>(grid_.Columns()) * static_cast<std::size_t>(grid_.Rows());
  if (judged_ < all) {
    do {
      if (cells_.size() < all) {
        cells_.push_back(CellOf(cells_.size(), false));
      } else {
        cells_[judged_] = CellOf(judged_, true);
        ++judged_;
      }
    } while (judged_ < all && isTime());
    ShowMap();
    ShowCell();
  } else {
    LongestStay stay = stay_.value_or(LongestStay());
    bool more = true;
    do {
      more = margins_->Lengthen(stay);
    } while (more && isTime());
    stay_ = stay;
    if (!more) {
      noStop_ = margins_->NoStopTimes();
      cmMap.WantsMore = false;
      ShowStay();
      ShowNoStop();
    }
  }
  ShowState();
}

MarginCell frmMargins::CellOf(std::size_t index, bool losses) const {
  const auto cell = static_cast<int>(index);
  const Single longer = grid_.longer.At(cell % grid_.Columns());
  const Single deeper = grid_.deeper.At(cell / grid_.Columns());
  return losses ? margins_->At(longer, deeper) : margins_->Sketched(longer, deeper);
}

void frmMargins::ShowLegs() {
  legs_.clear();
  std::vector<std::string> names;
  int number = 0;
  if (margins_ != nullptr && margins_->Fault().IsEmpty()) {
    const DiveRecord dive = margins_->RecordAt(0, 0);
    const AdviceWords words = Words();
    for (std::int16_t i = 1; i <= dive.UserActions.GetLength(); ++i) {
      if (dive.UserActions.getaction(i) != ClassUseractions::kLeg) continue;
      if (i == margins_->Leg()) number = static_cast<int>(legs_.size());
      legs_.push_back(i);
      names.push_back(std::to_string(legs_.size()) + ": " + words.Depth(dive.UserActions.getDepth(i)) + ", " +
                      words.Short(dive.UserActions.gettime(i)) + " " + T(Text::WhatIfMinutes));
    }
  }
  cbLeg.Items = names;
  if (!names.empty()) cbLeg.ListIndex = number;
}

void frmMargins::ShowLimits() {
  const DiveLimits limits =
      document_ == -1 ? DiveLimits::Usual() : LimitsOf(services_.forms(document_).Planned().record.Template);
  const auto show = [&](TextBox& field, const std::optional<Single>& limit) {
    field.Text = limit ? Plain(*limit) : "";
    field.ForeColor = -1;
    field.ToolTipText = "";
    field.Enabled = document_ != -1;
  };
  show(tbRun, limits.run);
  show(tbStops, limits.stops);
  show(tbCNS, limits.cns);
  ckGas.Value = limits.gas;
  ckGas.Enabled = document_ != -1;
}

std::optional<Single> frmMargins::Limit(TextBox& field, bool zero, double most, bool& sound) {
  const bool empty = TrimBlanks(field.Text.Get()).empty();
  const auto number = NumberIn(field.Text);
  const bool good = empty || (number && (zero ? *number >= 0 : *number > 0) && *number <= most);
  field.ForeColor = good ? -1 : kRed;
  field.ToolTipText = good ? "" : T(Text::MarginsLimitFault);
  sound = sound && good;
  return empty || !good ? std::nullopt : std::optional<Single>(*number);
}

void frmMargins::TakeLimits() {
  if (document_ == -1) return;
  bool sound = true;
  DiveLimits limits;
  limits.run = Limit(tbRun, false, DiveLimits::kMostMinutes, sound);
  limits.stops = Limit(tbStops, true, DiveLimits::kMostMinutes, sound);
  limits.cns = Limit(tbCNS, false, DiveLimits::kMostCNS, sound);
  limits.gas = ckGas.Value;
  DiveTemplate& settings = TemplateOf(document_);
  if (!sound || limits == LimitsOf(settings)) return;
  settings.Limits = limits;
  MarkChanged(document_);
  services_.applyToProfile();  // the undo history takes the step
}

void frmMargins::ShowMap() {
  CellMap::Content map;
  if (margins_ != nullptr && margins_->Fault().IsEmpty()) {
    const AdviceWords words = Words();
    map.columns = grid_.Columns();
    map.rows = grid_.Rows();
    map.overColumns = T(Text::MarginsLonger);
    int column = -1;
    int row = -1;
    for (int i = 0; i < map.columns; ++i) {
      if (grid_.longer.At(i) == 0) column = i;
      map.columnHeads.push_back(SignedFigure(grid_.longer.At(i), words));
    }
    for (int i = 0; i < map.rows; ++i) {
      if (grid_.deeper.At(i) == 0) row = i;
      map.rowHeads.push_back(SignedFigure(grid_.deeper.At(i), words) + " " + words.LengthUnit());
    }
    if (column >= 0 && row >= 0) map.marked = row * map.columns + column;
    const std::vector<MarginMark> marks = MarginMarks(cells_, words);
    const double step = RunTimeStep(cells_);
    const auto columns = static_cast<std::size_t>(map.columns);
    const std::size_t all = columns * static_cast<std::size_t>(map.rows);
    const auto parts = [&](const MarginCell& cell, const MarginCell& other) {
      const auto here = RunTimeBand(cell, step);
      const auto there = RunTimeBand(other, step);
      return here && there && *here != *there;
    };
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const MarginCell& cell = cells_[i];
      const MarginMark& mark = MarkOf(cell, marks);
      map.cells.push_back({MarginColour(mark.limit.kind), MarginInk(mark.limit.kind), mark.letter,
                           i % columns > 0 && parts(cell, cells_[i - 1]),
                           i >= columns && parts(cell, cells_[i - columns])});
    }
    for (std::size_t i = all - columns; i < cells_.size(); ++i) {
      if (!map.cells[i].edgeAtLeft) continue;
      const std::string minutes = words.Short(RunTimeBand(cells_[i], step).value_or(0) * step);
      map.feet.push_back({static_cast<int>(i % columns), minutes + " " + T(Text::WhatIfMinutes)});
    }
    std::vector<std::vector<GridCell>> legend;
    legend.reserve(marks.size());
    for (const MarginMark& mark : marks) {
      legend.push_back({GridCell{std::string(1, mark.letter), -1, true}, GridCell{mark.words}});
    }
    fgLegend.Cells = legend;
  } else {
    fgLegend.Cells = {};
  }
  cmMap.Map = map;
}

std::string frmMargins::NameOf(const MarginCell& cell) const {
  const AdviceWords words = Words();
  return SignedFigure(cell.longer, words) + " " + T(Text::WhatIfMinutes) + ", " + SignedFigure(cell.deeper, words) +
         " " + words.LengthUnit();
}

void frmMargins::ShowCell() {
  const auto isThere = [this](int cell) { return cell >= 0 && cell < static_cast<int>(cells_.size()); };
  const int selected = cmMap.Selected;
  const int looked = isThere(cmMap.Pointed) ? cmMap.Pointed : selected;
  std::string text;
  if (isThere(looked)) {
    const MarginCell& cell = cells_[static_cast<std::size_t>(looked)];
    const AdviceWords words = Words();
    const std::string limit = WordsWithAmount(cell.limit, words);
    if (cell.limit.kind == BrokenLimit::Kind::Impossible) {
      text = NameOf(cell) + ": " + limit;
    } else {
      text = words.T(Text::MarginsCellIs,
                     {SignedFigure(cell.longer, words), SignedFigure(cell.deeper, words) + " " + words.LengthUnit(),
                      words.Short(cell.runTime), words.Short(cell.stops), words.Fixed(cell.cns * 100, 0),
                      words.Fixed(cell.otu, 0)}) +
             "\n" + limit;
    }
  }
  lbCell.Caption = text;
  cmMap.ToolTipText = text;
  cbCompare.Enabled =
      isThere(selected) && cells_[static_cast<std::size_t>(selected)].limit.kind != BrokenLimit::Kind::Impossible;
}

void frmMargins::ShowStay() {
  const bool done = stay_.has_value() && !cmMap.WantsMore;
  std::string text;
  if (done) {
    for (const std::string& line : LongestStayWords(*stay_, *margins_, Words()))
      text += (text.empty() ? "" : "\n") + line;
  }
  lbLongest.Caption = text;
  cbTake.Enabled = done && stay_->minutes > 0 && Single(stay_->minutes) != margins_->LegTime();
}

void frmMargins::ShowNoStop() {
  const AdviceWords words = Words();
  lbNoStop.Visible = fgNoStop.Visible = margins_ != nullptr && margins_->Fault().IsEmpty();
  if (!lbNoStop.Visible) return;
  lbNoStop.Caption = T(Text::NoStopTitle, {margins_->LegGas()});
  fgNoStop.SpokenName = lbNoStop.Caption.Get();
  std::vector<std::vector<GridCell>> cells{{GridCell{words.LengthUnit()}, GridCell{T(Text::WhatIfMinutes)}}};
  for (const NoStopTime& time : noStop_.value_or(std::vector<NoStopTime>())) {
    const std::string minutes = std::to_string(time.minutes) + (time.minutes == LongestStay::kMost ? "+" : "");
    cells.push_back({GridCell{words.Short(time.depth)}, GridCell{minutes}});
  }
  fgNoStop.Cells = cells;
  fgNoStop.ToolTipText =
      T(Text::NoStopOf, {ComputedWith(margins_->Settings(), margins_->Model(), margins_->IsRepetitive(), texts_)});
}

void frmMargins::ShowState() {
  std::string text;
  if (margins_ != nullptr && !margins_->Fault().IsEmpty()) {
    text = texts_.Words(margins_->Fault());
  } else if (cmMap.WantsMore) {
    text = T(Text::MarginsComputing);
  } else if (margins_ != nullptr) {
    for (const std::string& note : MarginNotes(*margins_, Words())) text += (text.empty() ? "" : " ") + note;
  }
  lbState.Caption = text;
}

void frmMargins::Take() {
  if (!stay_ || stay_->minutes == 0 || document_ == -1) return;
  const std::string fault = acts_.setMinutes(margins_->Leg(), stay_->minutes);
  if (!fault.empty()) Box(fault, T(Text::MarginsTitle), BoxIcon::Exclamation);
}

void frmMargins::Compare() {
  const int selected = cmMap.Selected;
  if (!cbCompare.Enabled || selected < 0) return;
  const MarginCell cell = cells_[static_cast<std::size_t>(selected)];
  const frmWaypointEditor& editor = services_.forms(document_);
  const PlannedDive plan = editor.Planned();
  const DiveRecord record = margins_->RecordAt(cell.longer, cell.deeper);
  EngineObserver silent;
  const ComputedPlan computed = Compute(record, margins_->Model(), plan.before, silent);
  acts_.compare(ComparedPlan(NameOf(cell), {record, computed, plan.before}));
}

void frmMargins::Print() {
  if (margins_ == nullptr || !margins_->Fault().IsEmpty()) return;
  while (cmMap.WantsMore) GoOn();
  PrintMargins(report_, services_.forms.Caption(document_), *margins_, grid_, cells_, stay_.value_or(LongestStay()),
               Words());
}

}  // namespace tav
