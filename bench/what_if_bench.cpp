// The comparison of a plan with what may become of it.

#include <benchmark/benchmark.h>
#include <string>

#include "plans/profile_commands.h"
#include "reports/what_if_table.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav::bench {
namespace {

/// What the window does when its plan has changed: all columns and their table. `wish` alone is a press of an arrow.
void Columns(benchmark::State& state, const std::string& dive, bool wishAlone) {
  test::Plans plans;
  const auto document = OpenProfile(plans.forms, SourceFolder() / "dives" / dive).back();
  const TextSource texts;
  const AdviceWords words(texts, {".", ""}, true);
  const WhatIfWish wish;
  WhatIf kept(plans.Planned(document));
  std::size_t columns = 0;
  const auto work = [&](WhatIf& whatIf) {
    const auto made = whatIf.Columns(wish);
    columns = made.size();
    benchmark::DoNotOptimize(TableOf(made, wish, whatIf, words));
  };
  work(kept);
  for (auto _ : state) {
    if (wishAlone) {
      work(kept);
    } else {
      WhatIf whatIf(plans.Planned(document));
      work(whatIf);
    }
  }
  state.counters["columns"] = static_cast<double>(columns);
}
BENCHMARK_CAPTURE(Columns, trimix_100, "trimix-100.tav", false)
    ->Name("what_if/trimix_100")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Columns, trimix_100_wish, "trimix-100.tav", true)
    ->Name("what_if/trimix_100/other_wish")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Columns, rebreather, "rebreather.tav", false)
    ->Name("what_if/rebreather_with_bailout")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Columns, rebreather_wish, "rebreather.tav", true)
    ->Name("what_if/rebreather/other_wish")
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
