#include <benchmark/benchmark.h>
#include <chrono>
#include <string>
#include <vector>

#include "baseline.h"
#include "compute/leg_expansion.h"
#include "engine/buhlmann.h"
#include "persist/profile_file.h"
#include "support/plan_fixture.h"

namespace tav::bench {
namespace {

/// A square dive on a gas of the default template; the deco gases are those of its list.
struct SquareDive {
  double depth;
  double time;
  std::string gas;
};

/// The work of one plan: its rows as the user planned them, ready for the engine.
struct ReadyPlan {
  ReadyPlan(test::Plans& plans, const SquareDive& dive) {
    const DiveTemplate& settings = plans.documents(1).Template;
    Leg leg{0, 0, dive.time, dive.depth, FindBlendIndex(dive.gas, settings)};
    GetSegmentedProfile(leg, settings, rows);
  }

  ClassProfile rows;
};

/// Runs the engine on a plan and returns stop-minutes and rows.
struct Size {
  double stopMinutes = 0;
  double rows = 0;
};

void Compute(test::Plans& plans, const ReadyPlan& plan, ClassProfile& result) {
  result.clear();
  ClassBuhlmann engine(plans.documents(1).Template, plans.model, plans.observer);
  engine.Init(false);
  engine.StartBuhlmann(plan.rows, result, true, false);
}

Size SizeOf(const ClassProfile& result) {
  Size size{0, static_cast<double>(result.GetLength())};
  for (std::int16_t i = 1; i <= result.GetLength(); ++i) size.stopMinutes += result.getStopTime(i);
  return size;
}

/// Times `dives`, and tells how far above the bare arithmetic the time lies.
void Plan(benchmark::State& state, const std::vector<SquareDive>& dives, bool withDecoGases) {
  test::Plans plans;
  plans.New([&](DiveTemplate& t) {
    t.PPO2High = t.PPO2Low = t.MaxEnd = false;
    if (!withDecoGases) t.ChangeGasMixes.clear();
    if (withDecoGases) t.ChangeGasMixes.push_back({"Tx21/35", 21, 44, 35, 57});
  });
  std::vector<ReadyPlan> ready;
  Size size;
  ClassProfile result;
  for (const SquareDive& dive : dives) {
    ready.emplace_back(plans, dive);
    Compute(plans, ready.back(), result);
    const Size one = SizeOf(result);
    size = {size.stopMinutes + one.stopMinutes, size.rows + one.rows};
  }
  const double bare = BareArithmetic(size.stopMinutes, size.rows);
  const auto start = std::chrono::steady_clock::now();
  for (auto _ : state) {
    for (const ReadyPlan& plan : ready) {
      Compute(plans, plan, result);
      benchmark::DoNotOptimize(result.GetLength());
    }
  }
  const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - start;
  state.counters["stop_min"] = size.stopMinutes;
  state.counters["rows"] = size.rows;
  state.counters["x_bare"] = took.count() / static_cast<double>(state.iterations()) / bare;
}

void Air40(benchmark::State& state) { Plan(state, {{40, 20, "Air"}}, false); }
void Trimix60(benchmark::State& state) { Plan(state, {{60, 25, "Tx18/45"}}, true); }
void Trimix100(benchmark::State& state) { Plan(state, {{100, 20, "Tx10/70"}}, true); }

void AirGrid(benchmark::State& state) {
  std::vector<SquareDive> dives;
  for (int depth = 9; depth <= 54; depth += 3) {
    for (int time = 5; time <= 45; time += 5) {
      dives.push_back({static_cast<double>(depth), static_cast<double>(time), "Air"});
    }
  }
  Plan(state, dives, false);
}

void ReEvaluate200Legs(benchmark::State& state) {
  test::Plans plans;
  frmWaypointEditor& window = plans.New([](DiveTemplate& t) { t.PPO2High = t.PPO2Low = t.MaxEnd = false; });
  for (int leg = 0; leg < 200; ++leg) {
    window.SaveUserEnteredWaypoints(3, 20 + leg % 7 * 3, 1, false);
  }
  for (auto _ : state) {
    window.ReEvaluateUserEnteredWaypoints();
    benchmark::DoNotOptimize(window.InputProfile.GetLength());
  }
  state.counters["rows"] = window.InputProfile.GetLength();
}

std::string ProfileOf1000Actions() {
  ClassUseractions actions;
  for (int i = 0; i < 1000; ++i) {
    actions.NewAction();
    actions.setuser(actions.GetLength(), 10 + i % 50 + 0.5, 2.25, 1);
  }
  return WriteDiveRecord(ShippedDefaultTemplate(), 0, actions);
}

void ReadProfile(benchmark::State& state) {
  const std::string text = ProfileOf1000Actions();
  for (auto _ : state) {
    FormatFaults faults("bench.tav", FormatFaults::Mode::StopAtFirstError);
    benchmark::DoNotOptimize(ReadProfileText(text, faults));
  }
}

void WriteProfile(benchmark::State& state) {
  FormatFaults faults("bench.tav", FormatFaults::Mode::StopAtFirstError);
  const ProfileText profile = ReadProfileText(ProfileOf1000Actions(), faults);
  const DiveRecord& dive = profile.dives.front();
  for (auto _ : state) {
    benchmark::DoNotOptimize(WriteDiveRecord(dive.Template, dive.SurfaceInterval, dive.UserActions));
  }
}

BENCHMARK(Air40)->Name("plan/air_40m_20min");
BENCHMARK(Trimix60)->Name("plan/trimix_60m_25min");
BENCHMARK(Trimix100)->Name("plan/trimix_100m_20min");
BENCHMARK(AirGrid)->Name("plan/air_grid_16x9");
BENCHMARK(ReEvaluate200Legs)->Name("edit/reevaluate_200_legs");
BENCHMARK(ReadProfile)->Name("file/read_1000_actions");
BENCHMARK(WriteProfile)->Name("file/write_1000_actions");

}  // namespace
}  // namespace tav::bench

BENCHMARK_MAIN();
