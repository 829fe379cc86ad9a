#include "exchange/plan_samples.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "compute/compute.h"
#include "exchange/si_units.h"

namespace tav {
namespace {

using Samples = std::vector<LoggedDive::Sample>;

/// What an export of each dive writes; nothing for one that can't be computed.
std::vector<Samples> SamplesOf(const std::vector<DiveRecord>& series, const ModelChoice& model) {
  EngineObserver silent;
  const std::vector<ComputedPlan> plans = ComputeSeries(series, model, silent);
  std::vector<Samples> all(plans.size());
  for (std::size_t i = 0; i < plans.size(); ++i) {
    if (!plans[i].fault.IsEmpty()) continue;
    const ClassProfile& rows = plans[i].rows;
    all[i].reserve(static_cast<std::size_t>(rows.GetLength()) + 1);
    for (std::int16_t row = 0; row <= rows.GetLength(); ++row) {
      all[i].push_back({rows.GetRunTime(row), si::Metres(rows.getDepth(row), series[i].Template.Metric)});
    }
  }
  return all;
}

bool Same(const LoggedDive::Sample& logged, const LoggedDive::Sample& planned) {
  constexpr double kDepth = 0.1 + 1e-3;                         // m
  constexpr double kTime = (1 + 1e-2) / si::kSecondsPerMinute;  // min
  constexpr double kDigits = 1e-6;                              // an export writes seven of them
  // A number that is none differs from every other.
  return std::fabs(logged.metres - planned.metres) <= kDepth &&
         std::fabs(logged.minutes - planned.minutes) <= kTime + kDigits * planned.minutes;
}

bool BeginsWith(const Samples& logged, const Samples& planned) {
  return logged.size() >= planned.size() &&
         std::equal(planned.begin(), planned.end(), logged.begin(),
                    [](const auto& plan, const auto& log) { return Same(log, plan); });
}

/// The legs ahead of the first ascent, which no load changes.
DiveRecord LegsAlone(const DiveRecord& dive) {
  DiveRecord legs{dive.Template, 0, {}};
  const ClassUseractions& actions = dive.UserActions;
  for (std::int16_t i = 1; i <= actions.GetLength() && actions.getaction(i) == ClassUseractions::kLeg; ++i) {
    legs.UserActions.NewAction();
    legs.UserActions.setuser(i, actions.getDepth(i), actions.gettime(i), actions.getmixnumber(i));
  }
  return legs;
}

}  // namespace

std::set<int> ContradictedPlans(const DiveLog& log, const std::map<int, DiveRecord>& plans) {
  // The series from its first dive on, as long as each dive has its plan.
  std::vector<DiveRecord> series;
  std::set<int> open;
  bool whole = !log.dives.empty() && log.dives.front().longInterval;
  for (const LoggedDive& logged : log.dives) {
    const auto plan = plans.find(logged.number);
    whole = whole && plan != plans.end();
    if (plan == plans.end()) continue;
    if (whole) series.push_back(plan->second);
    if (!logged.samples.empty()) open.insert(logged.number);
  }
  const int ofSeries = static_cast<int>(series.size());
  const auto logged = [&](int number) -> const Samples& {
    return log.dives[static_cast<std::size_t>(number) - 1].samples;
  };
  for (const ModelChoice& model :
       {ModelChoice{false, false, false}, ModelChoice{true, false, false}, ModelChoice{false, true, false},
        ModelChoice{false, false, true}, ModelChoice{false, true, true}}) {
    if (open.empty() || *open.begin() > ofSeries) break;
    const std::vector<Samples> planned = SamplesOf(series, model);
    for (int number = 1; number <= ofSeries; ++number) {
      const Samples& samples = planned[static_cast<std::size_t>(number) - 1];
      const bool known = samples.empty() || samples.size() == logged(number).size();
      if (known && BeginsWith(logged(number), samples)) open.erase(number);
    }
  }
  for (auto number = open.upper_bound(ofSeries); number != open.end();) {
    const Samples legs = SamplesOf({LegsAlone(plans.at(*number))}, {}).front();
    number = BeginsWith(logged(*number), legs) ? open.erase(number) : std::next(number);
  }
  return open;
}

}  // namespace tav
