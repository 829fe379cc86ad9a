// What the main window works out after each change of a plan, beside the schedule.

#include <benchmark/benchmark.h>

#include "advice/plan_check.h"
#include "start/language_table.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav::bench {
namespace {

/// A trimix dive to 100 m on five gases, each in a cylinder.
struct DeepDive {
  DeepDive()
      : texts(DefaultTexts(SourceFolder())), window(plans.New([](DiveTemplate& t) {
          t.ChangeGasMixes.push_back({"Tx21/35", 0, 0, 0, 57});
          ResolveGasChanges(t);
          for (const GasMix& blend : t.Blends) t.Cylinders.push_back({blend.Name, 2, 12, 0, 200, 50});
        })) {
    const DiveTemplate& t = plans.documents(window.Tag()).Template;
    window.SaveUserEnteredWaypoints(5, 57, FindBlendIndex("Tx21/35", t), false);
    window.SaveUserEnteredWaypoints(20, 100, FindBlendIndex("Tx10/70", t), false);
    window.SaveUserEnteredWaypoints(-1, -1, 0, true);
    window.ReEvaluateUserEnteredWaypoints();
  }

  test::Plans plans;
  LanguageTable texts;
  frmWaypointEditor& window;
};

/// To stay under 0.1 ms.
void PlanCheckOf100m(benchmark::State& state) {
  DeepDive dive;
  const GasSupply supply = SupplyOf(dive.window.Planned());
  const AdviceWords words(dive.texts, {".", ""}, true);
  for (auto _ : state) {
    benchmark::DoNotOptimize(CheckPlan(dive.window.Planned(), words, supply));
  }
}
BENCHMARK(PlanCheckOf100m)->Unit(benchmark::kMicrosecond);

/// One run of the engine for each leg.
void GasSupplyOf100m(benchmark::State& state) {
  DeepDive dive;
  for (auto _ : state) benchmark::DoNotOptimize(SupplyOf(dive.window.Planned()));
}
BENCHMARK(GasSupplyOf100m)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tav::bench
