// The map of the dives round a plan: 31 by 19 of them, each with its losses.

#include <benchmark/benchmark.h>
#include <string>

#include "advice/margins.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav::bench {
namespace {

void Map(benchmark::State& state, const std::string& dive, int threads) {
  test::Plans plans;
  const auto document = OpenProfile(plans.forms, SourceFolder() / "dives" / dive).back();
  const TextSource texts;
  const AdviceWords words(texts, {".", ""}, true);
  for (auto _ : state) {
    const Margins margins(plans.Planned(document), DiveLimits::Usual(), words);
    benchmark::DoNotOptimize(margins.Cells(MarginGrid::Usual(true), threads));
  }
}
BENCHMARK_CAPTURE(Map, trimix_100, "trimix-100.tav", 1)
    ->Name("margins/trimix_100")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Map, trimix_100_on_two, "trimix-100.tav", 2)
    ->Name("margins/trimix_100/two_threads")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Map, rebreather, "rebreather.tav", 1)
    ->Name("margins/rebreather_with_every_minute")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// What a window can show first: the same dives without their losses.
void Sketch(benchmark::State& state) {
  test::Plans plans;
  const auto document = OpenProfile(plans.forms, SourceFolder() / "dives" / "trimix-100.tav").back();
  const TextSource texts;
  const AdviceWords words(texts, {".", ""}, true);
  const MarginGrid grid = MarginGrid::Usual(true);
  for (auto _ : state) {
    const Margins margins(plans.Planned(document), DiveLimits::Usual(), words);
    for (int i = 0; i < grid.Columns() * grid.Rows(); ++i) {
      benchmark::DoNotOptimize(
          margins.Sketched(grid.longer.At(i % grid.Columns()), grid.deeper.At(i / grid.Columns())));
    }
  }
}
BENCHMARK(Sketch)->Name("margins/trimix_100/without_losses")->Unit(benchmark::kMillisecond);

/// The longest stay of a leg.
void Longest(benchmark::State& state) {
  test::Plans plans;
  const auto document = OpenProfile(plans.forms, SourceFolder() / "dives" / "trimix-100.tav").back();
  const TextSource texts;
  const AdviceWords words(texts, {".", ""}, true);
  const Margins margins(plans.Planned(document), DiveLimits::Usual(), words);
  for (auto _ : state) benchmark::DoNotOptimize(margins.Longest());
}
BENCHMARK(Longest)->Name("margins/trimix_100/longest_stay")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
