#include "app/margin_work.h"

#include <algorithm>

#include "model/text_id.h"

namespace tav {
namespace {

constexpr double kSlice = 0.012;  ///< seconds of computing between two looks at the events
// On a loop each minute of the leg is one more to leave it at: the next minute is asked ever more slowly.
constexpr int kMostOnLoop = 90;  ///< minutes
constexpr int kBeyondPlan = 10;

}  // namespace

AdviceWords MarginWork::Words() const { return {services_.texts, services_.platform.separators, metric_}; }

void MarginWork::Begin(std::optional<std::int16_t> document, std::optional<std::int16_t> leg) {
  margins_.reset();
  cells_.clear();
  judged_ = 0;
  stay_ = {};
  cut_ = false;
  shownStay_.reset();
  noStop_.reset();
  done_ = true;
  if (!document) return;
  const PlannedDive dive = services_.forms(*document).Planned();
  metric_ = dive.record.Template.Metric;
  grid_ = MarginGrid::Usual(metric_);
  const ClassUseractions& actions = dive.record.UserActions;
  const bool isLeg = leg && *leg <= actions.GetLength() && actions.getaction(*leg) == ClassUseractions::kLeg;
  margins_ = std::make_unique<Margins>(dive, LimitsOf(dive.record.Template), Words(), isLeg ? leg : std::nullopt);
  done_ = !IsThere();
}

void MarginWork::GoOn() {
  if (done_) return;
  const double end = services_.platform.screen.Timer() + kSlice;
  const auto isTime = [&] { return services_.platform.screen.Timer() < end; };
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
    return;
  }
  bool more = true;
  do {
    more = margins_->Lengthen(stay_);
    cut_ = more && !margins_->Settings().OpenCircuit &&
           stay_.minutes >= std::max(kMostOnLoop, static_cast<int>(margins_->LegTime()) + kBeyondPlan);
  } while (more && !cut_ && isTime());
  if (more && !cut_) return;
  shownStay_ = stay_;
  if (extent_ == Extent::All) noStop_ = margins_->NoStopTimes();
  done_ = true;
}

MarginCell MarginWork::CellOf(std::size_t index, bool losses) const {
  const auto cell = static_cast<int>(index);
  return losses ? margins_->At(Longer(cell), Deeper(cell)) : margins_->Sketched(Longer(cell), Deeper(cell));
}

CellMap::Content MarginWork::Map() const {
  CellMap::Content map;
  if (!IsThere()) return map;
  const AdviceWords words = Words();
  map.columns = grid_.Columns();
  map.rows = grid_.Rows();
  map.overColumns = words.T(Text::MarginsLonger);
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
    map.feet.push_back({static_cast<int>(i % columns), minutes + " " + words.T(Text::WhatIfMinutes)});
  }
  return map;
}

std::vector<std::vector<GridCell>> MarginWork::Legend() const {
  std::vector<std::vector<GridCell>> rows;
  for (const MarginMark& mark : MarginMarks(cells_, Words())) {
    GridCell letter{std::string(1, mark.letter), MarginInk(mark.limit.kind), true};
    letter.fill = MarginColour(mark.limit.kind);
    rows.push_back({letter, GridCell{mark.words}});
  }
  return rows;
}

std::string MarginWork::NameOf(int cell) const {
  const AdviceWords words = Words();
  return SignedFigure(Longer(cell), words) + " " + words.T(Text::WhatIfMinutes) + ", " +
         SignedFigure(Deeper(cell), words) + " " + words.LengthUnit();
}

std::string MarginWork::CellText(int index) const {
  if (index < 0 || index >= static_cast<int>(cells_.size())) return {};
  const MarginCell& cell = cells_[static_cast<std::size_t>(index)];
  const AdviceWords words = Words();
  const bool judged = cell.limit.IsBroken() || index < static_cast<int>(judged_);
  const std::string limit = judged ? WordsWithAmount(cell.limit, words) : words.T(Text::MarginsComputing);
  if (cell.limit.kind == BrokenLimit::Kind::Impossible) return NameOf(index) + ": " + limit;
  return words.T(Text::MarginsCellIs,
                 {SignedFigure(cell.longer, words), SignedFigure(cell.deeper, words) + " " + words.LengthUnit(),
                  words.Short(cell.runTime), words.Short(cell.stops), words.Fixed(cell.cns * 100, 0),
                  words.Fixed(cell.otu, 0)}) +
         "\n" + limit;
}

bool MarginWork::CanCompare(int cell) const {
  return IsThere() && cell >= 0 && cell < static_cast<int>(cells_.size()) &&
         cells_[static_cast<std::size_t>(cell)].limit.kind != BrokenLimit::Kind::Impossible;
}

std::optional<ComparedPlan> MarginWork::PlanOf(int cell) const {
  if (!IsThere() || !IsCell(cell)) return {};
  const DiveRecord record = margins_->RecordAt(Longer(cell), Deeper(cell));
  EngineObserver silent;
  const ComputedPlan computed = Compute(record, margins_->Model(), margins_->Before(), silent);
  ComparedPlan plan(NameOf(cell), {record, computed, margins_->Before()});
  if (!plan.column.fault.IsEmpty()) return {};
  return plan;
}

std::string MarginWork::StayText() const {
  std::string text;
  if (!shownStay_) return text;
  const AdviceWords words = Words();
  if (cut_) {
    return words.T(Text::LongestCut, {std::to_string(shownStay_->minutes), words.Depth(margins_->LegDepth())});
  }
  for (const std::string& line : LongestStayWords(*shownStay_, *margins_, words)) {
    text += (text.empty() ? "" : "\n") + line;
  }
  return text;
}

std::string MarginWork::State() const {
  if (margins_ == nullptr) return {};
  const AdviceWords words = Words();
  if (!margins_->Fault().IsEmpty()) return services_.texts.Words(margins_->Fault());
  if (!done_) return words.T(Text::MarginsComputing);
  std::string text;
  for (const std::string& note : MarginNotes(*margins_, words)) text += (text.empty() ? "" : " ") + note;
  return text;
}

}  // namespace tav
