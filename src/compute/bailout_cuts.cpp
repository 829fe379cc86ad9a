#include "compute/bailout_cuts.h"

#include <cmath>
#include <stdexcept>

#include "compute/breathed_gas.h"
#include "compute/leg_ends.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {

DiveTemplate DropGasChange(const DiveTemplate& source, int index) {
  DiveTemplate copy = source;
  std::vector<GasChange>& changes = copy.ChangeGasMixes;
  if (index < 0 || index >= static_cast<int>(changes.size())) return copy;
  changes.erase(changes.begin() + index);
  if (changes.empty()) changes.emplace_back();
  return copy;
}

BailoutCuts::BailoutCuts(const PlannedDive& dive, const ModelChoice& model, Single interval, EngineObserver& observer,
                         CutMoments moments)
    : start_(dive, model),
      observer_(observer),
      plan_(dive.plan.rows),
      openFrom_(FirstOpenRow(plan_, start_.settings)),
      interval_(interval == 0 ? Single(1) : interval),
      fault_(dive.plan.fault) {
  if (fault_.IsEmpty() && plan_.GetLength() == 0) fault_ = Text::NoLegs;
  if (!fault_.IsEmpty()) return;
  if (moments == CutMoments::LegEnds) {
    legEnds_.emplace();
    std::size_t rows = 0;
    for (const LegEnd& end : LegEndsOf(dive)) {
      legEnds_->push_back(end.row);
      rows += static_cast<std::size_t>(end.row);
    }
    if (legEnds_->empty()) fault_ = Text::NoLegs;
    if (rows > kMostRows) fault_ = {Text::TooManyLegRows, {std::to_string(kMostRows)}};
    return;
  }
  fault_ = SizeFault();
  intervalIsAtFault_ = !fault_.IsEmpty();
}

Message BailoutCuts::SizeFault() const {
  if (plan_.GetRunTime(plan_.GetLength()) / interval_ > kMostCuts) {
    return {Text::TooManyCuts, {FormatPlain(interval_), std::to_string(kMostCuts)}};
  }
  const std::vector<Moment> moments = RegularMoments();
  if (moments.empty()) return {Text::IntervalBeyondPlan, {FormatPlain(interval_)}};
  std::size_t rows = 0;
  for (const Moment& moment : moments) rows += static_cast<std::size_t>(moment.row);
  if (rows <= kMostRows) return {};
  return {Text::TooManyCutRows, {FormatPlain(interval_), std::to_string(kMostRows)}};
}

std::vector<BailoutCuts::Moment> BailoutCuts::Moments() const {
  if (!legEnds_) return RegularMoments();
  std::vector<Moment> moments;
  for (const std::int16_t row : *legEnds_) moments.push_back({plan_.GetRunTime(row), row, row == plan_.GetLength()});
  return moments;
}

std::vector<BailoutCuts::Moment> BailoutCuts::RegularMoments() const {
  std::vector<Moment> moments;
  const std::int16_t last = plan_.GetLength();
  const Single end = plan_.GetRunTime(last);
  std::int16_t row = 1;
  for (Single time = interval_; time <= end; time += interval_) {
    while (plan_.GetRunTime(row) < time) ++row;
    moments.push_back({time, row, false});
  }
  const bool endIsCut = !moments.empty() && moments.back().time == end;
  if (!endIsCut && plan_.getDepth(last) != 0) moments.push_back({end, last, true});
  return moments;
}

ClassProfile BailoutCuts::PlanUntil(const Moment& moment) const {
  ClassProfile cut;
  cut.CopyUntil(plan_, moment.row);
  if (!moment.atEnd) cut.Row(moment.row) = CutRow(cut, moment.time, moment.row);
  return cut;
}

bool BailoutCuts::Ascend(ScratchRun& run, const Moment& moment, TableDive& dive,
                         const std::function<bool()>& proceed) const {
  const ClassProfile cut = PlanUntil(moment);
  dive.head = moment.time;
  dive.depth = cut.getDepth(moment.row);
  // On a rebreather whose stops are on open circuit the loop was left before a cut among them.
  const std::int16_t openFrom = !start_.settings.OpenCircuit && moment.row >= openFrom_ ? openFrom_ : 0;
  return run.Compute(cut, true, dive, proceed, openFrom);
}

TableDives BailoutCuts::Without(int scenario, ScratchRun& run) const {
  TableDives result{DropGasChange(start_.settings, scenario), {}, true};
  if (scenario < Scenarios() - 1) {
    result.lost = start_.settings.ChangeGasMixes[static_cast<std::size_t>(scenario)].Name;
  }
  run.Template() = result.diveTemplate;
  result.model = run.Model();
  return result;
}

std::optional<TableDives> BailoutCuts::Longest(int scenario, const RunProgress& progress) const {
  ScratchRun run(start_, observer_);
  TableDives result = Without(scenario, run);
  const std::vector<Moment> moments = Moments();
  const auto of = static_cast<int>(moments.size());
  int done = 0;
  double longest = -1;
  TableDive dive;
  for (const Moment& moment : moments) {
    if (!Ascend(run, moment, dive, [&] { return progress(done, of); }) || !progress(++done, of)) return std::nullopt;
    const double minutes = dive.decompresses ? dive.profile.GetRunTime(dive.profile.GetLength()) - dive.head : HUGE_VAL;
    if (minutes <= longest) continue;
    longest = minutes;
    result.dives = {TableDive{}, dive};
  }
  result.dives.front().profile = plan_;
  return result;
}

std::optional<TableDives> BailoutCuts::Compute(int scenario, const RunProgress& progress) const {
  ScratchRun run(start_, observer_);
  TableDives result = Without(scenario, run);
  const std::vector<Moment> moments = Moments();
  result.dives.resize(1 + moments.size());
  result.dives.front().profile = plan_;
  int done = 0;
  const auto proceed = [&] { return progress(done, static_cast<int>(moments.size())); };
  for (const Moment& moment : moments) {
    if (!Ascend(run, moment, result.dives[static_cast<std::size_t>(done) + 1], proceed)) return std::nullopt;
    ++done;
    if (!proceed()) return std::nullopt;
  }
  return result;
}

TableDive BailoutCuts::At(Single moment) const {
  for (const Moment& each : Moments()) {
    if (each.time != moment) continue;
    ScratchRun run(start_, observer_);
    TableDive dive;
    Ascend(run, each, dive, [] { return true; });
    return dive;
  }
  throw std::out_of_range("no moment of a cut");
}

void BailoutCuts::Visit(const std::function<bool(const TableDive& cut)>& visit) const {
  ScratchRun run(start_, observer_);
  TableDive dive;
  for (const Moment& moment : Moments()) {
    Ascend(run, moment, dive, [] { return true; });
    if (!visit(dive)) return;
  }
}

}  // namespace tav
