// The ways up from every whole minute of a dive: what a rebreather's bail-out is judged by, and leaving now.

#include <benchmark/benchmark.h>
#include <chrono>

#include "advice/leaving.h"
#include "baseline.h"
#include "compute/breathed_gas.h"
#include "compute/plan_cut.h"
#include "plans/profile_commands.h"
#include "supply/bailout_need.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav::bench {
namespace {

/// The shipped dive to 100 m, on a loop or on open circuit.
struct Deep {
  explicit Deep(bool openCircuit) : document(OpenProfile(plans.forms, SourceFolder() / "dives/trimix-100.tav").back()) {
    DiveTemplate& settings = plans.documents(document).Template;
    settings.OpenCircuit = openCircuit;
    settings.KeepsDiluent = true;
    plans.forms(document).ReEvaluateUserEnteredWaypoints();
  }

  test::Plans plans;
  std::int16_t document;
};

/// Bare arithmetic of the dive and of the ways up from each minute of it, without minutes to sort things out.
double BareWays(const PlannedDive& dive) {
  const ClassProfile& rows = dive.plan.rows;
  double stopMinutes = 0;
  double count = 0;
  const auto add = [&](const ClassProfile& way) {
    for (std::int16_t i = 1; i <= way.GetLength(); ++i) stopMinutes += way.getStopTime(i);
    count += way.GetLength();
  };
  const EngineRun run{dive.record.Template,
                      dive.plan.model,
                      dive.before,
                      dive.record.SurfaceInterval,
                      false,
                      true,
                      FirstOpenRow(rows, dive.record.Template)};
  WaysUp ways(run, rows);
  add(rows);
  std::int16_t row = 1;
  for (int time = 1; time <= rows.GetRunTime(rows.GetLength()); ++time) {
    while (rows.GetRunTime(row) < time) ++row;
    if (const auto way = ways.FromMoment(row, time, 0, rows.Row(row).MixNumber)) add(*way);
  }
  return BareArithmetic(stopMinutes, count);
}

template <class Work>
void EachMinute(benchmark::State& state, bool openCircuit, Work work) {
  Deep deep(openCircuit);
  const PlannedDive dive = deep.plans.Planned(deep.document);
  const double bare = BareWays(dive);
  const auto start = std::chrono::steady_clock::now();
  for (auto _ : state) work(dive);
  const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - start;
  state.counters["minutes"] = double{dive.plan.rows.GetRunTime(dive.plan.rows.GetLength())};
  state.counters["x_bare"] = took.count() / static_cast<double>(state.iterations()) / bare;
}

void BailOutOfALoop(benchmark::State& state) {
  EachMinute(state, false, [](const PlannedDive& dive) { benchmark::DoNotOptimize(BailOutNeedsOf(dive, 0)); });
}
BENCHMARK(BailOutOfALoop)->Name("ways_up/loop_100m_each_minute")->Unit(benchmark::kMillisecond);

void LeavingOpenCircuit(benchmark::State& state) {
  EachMinute(state, true, [](const PlannedDive& dive) {
    Leaving leaving(dive);
    const ClassProfile& rows = dive.plan.rows;
    for (int time = 1; time <= rows.GetRunTime(rows.GetLength()); ++time) benchmark::DoNotOptimize(leaving.At(time));
  });
}
BENCHMARK(LeavingOpenCircuit)->Name("ways_up/trimix_100_each_minute")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
