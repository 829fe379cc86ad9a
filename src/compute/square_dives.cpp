#include "compute/square_dives.h"

#include <cmath>

#include "compute/leg_expansion.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav {
namespace {

double CountOf(Single start, Single end, Single step) { return std::floor((end - start) / step) + 1; }

double DiveCount(const TableAxes& axes) {
  return CountOf(axes.StartDepth, axes.EndDepth, axes.DepthStep) * CountOf(axes.StartTime, axes.EndTime, axes.TimeStep);
}

}  // namespace

AxesFault FindAxesFault(const TableAxes& axes) {
  if (axes.StartDepth > axes.EndDepth) return AxesFault::StartDepthBeyondEnd;
  if (axes.DepthStep <= 0) return AxesFault::DepthStepNotPositive;
  if (axes.StartTime > axes.EndTime) return AxesFault::StartTimeBeyondEnd;
  if (axes.TimeStep <= 0) return AxesFault::TimeStepNotPositive;
  if (axes.StartTime < 0) return AxesFault::StartTimeNegative;
  if (axes.EndTime < 0) return AxesFault::EndTimeNegative;
  if (axes.StartDepth < 0) return AxesFault::StartDepthNegative;
  if (axes.EndDepth < 0) return AxesFault::EndDepthNegative;
  if (axes.EndDepth > kMaximumDepth || axes.EndTime > kMaximumLegTime) return AxesFault::OutOfReach;
  if (DiveCount(axes) > kMostSquareDives) return AxesFault::TooManyDives;
  return AxesFault::None;
}

int TextOf(AxesFault fault) {
  switch (fault) {
    case AxesFault::None:
      return 0;
    case AxesFault::StartDepthBeyondEnd:
      return Text::TablesDepthsSwapped;
    case AxesFault::DepthStepNotPositive:
      return Text::TablesDepthInterval;
    case AxesFault::StartTimeBeyondEnd:
      return Text::TablesTimesSwapped;
    case AxesFault::TimeStepNotPositive:
      return Text::TablesTimeInterval;
    case AxesFault::StartTimeNegative:
      return Text::TablesStartTimeNegative;
    case AxesFault::EndTimeNegative:
      return Text::TablesEndTimeNegative;
    case AxesFault::StartDepthNegative:
      return Text::TablesStartDepthNegative;
    case AxesFault::EndDepthNegative:
      return Text::TablesEndDepthNegative;
    case AxesFault::OutOfReach:
      return Text::TablesBeyondPlanning;
    case AxesFault::TooManyDives:
      return Text::TablesTooMany;
  }
  return 0;
}

void setFastTemplate(DiveTemplate& diveTemplate) { diveTemplate.DescendRates = {{1000.0, 0}}; }

SquareDives::SquareDives(const DiveTemplate& settings, const ModelChoice& model, const Wish& wish,
                         EngineObserver& observer)
    : run_(ScratchRun::Start(settings, model), observer),
      fault_(JoinFaults(TemplateFaults(settings))),
      wish_(wish),
      depth_(wish.axes.StartDepth),
      of_(static_cast<int>(DiveCount(wish.axes))) {
  if (wish.fastDescent) setFastTemplate(run_.Template());
}

std::optional<TableDives> SquareDives::Next(const RunProgress& progress) {
  const auto proceed = [&] {
    cancelled_ = cancelled_ || !progress(done_, of_);
    return !cancelled_;
  };
  if (depth_ > wish_.axes.EndDepth || !proceed()) return std::nullopt;
  TableDives result{run_.Template(), std::vector<TableDive>(1)};
  result.model = run_.Model();
  result.descentCounts = !wish_.fastDescent;
  for (Single time = wish_.axes.StartTime; time <= wish_.axes.EndTime; time += wish_.axes.TimeStep) {
    if (!fillProfile(result.dives.emplace_back(), depth_, time, proceed)) return std::nullopt;
    ++done_;
    if (!proceed()) return std::nullopt;
  }
  depth_ += wish_.axes.DepthStep;
  return result;
}

bool SquareDives::fillProfile(TableDive& dive, Single depth, Single time, const std::function<bool()>& proceed) {
  dive.head = time;
  dive.depth = depth;
  const DiveTemplate& settings = run_.Template();
  ClassProfile plan;
  if (wish_.fastDescent) {
    constexpr double kAtOnce = 10000.0;  // depth units per minute
    SaveUserProfile(plan, settings, depth, 0.001, kAtOnce, 0, 0, wish_.mix);
    SaveUserProfile(plan, settings, depth, time, 0, 0, 0, wish_.mix);
  } else {
    Leg leg{0, 0, time, depth, wish_.mix};
    GetSegmentedProfile(leg, settings, plan);
  }
  return run_.Compute(plan, false, dive, proceed);
}

}  // namespace tav
