// Deco tables and bail-outs: computed, made into tables, and written as pages.

#include <benchmark/benchmark.h>

#include "compute/bailout_cuts.h"
#include "compute/square_dives.h"
#include "headless/headless_platform.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"
#include "tables/table_print.h"

namespace tav::bench {
namespace {

/// Asked as a dialog asks: it looks at the clock each time.
class Clock {
 public:
  RunProgress Progress() {
    return [this](int done, int of) {
      asked_ = std::chrono::steady_clock::now();
      benchmark::DoNotOptimize(asked_);
      return done <= of;
    };
  }

 private:
  std::chrono::steady_clock::time_point asked_;
};

enum class Stage { Engine, Cells, Pages };

/// What is done with each set of dives.
class Output {
 public:
  explicit Output(Stage stage) : stage_(stage), writer_(platform_, texts_), print_(writer_, "bench") {
    if (stage_ == Stage::Pages) print_.StartTableOutput();
  }
  void Take(const TableDives& dives) {
    if (stage_ == Stage::Cells) benchmark::DoNotOptimize(MakeSmallTable(dives, "Depth").cells.size());
    if (stage_ == Stage::Pages) print_.PrintTableSet(dives);
  }
  int End() {
    if (stage_ == Stage::Pages) print_.EndTableOutput();
    return writer_.Pages().Pages();
  }

 private:
  Stage stage_;
  HeadlessPlatform platform_;
  TextSource texts_;
  PrintPreview writer_;
  TablePrintModule print_;
};

/// The grid that the dialog offers at first, on air with two deco gases.
void StandardGrid(benchmark::State& state, Stage stage) {
  test::Plans plans;
  Clock clock;
  int dives = 0;
  int pages = 0;
  for (auto _ : state) {
    Output output(stage);
    SquareDives grid = plans.Squares(0, {0, true, {9, 54, 3, 5, 45, 5}});
    dives = 0;
    while (const auto table = grid.Next(clock.Progress())) {
      dives += static_cast<int>(table->dives.size()) - 1;
      output.Take(*table);
    }
    pages = output.End();
  }
  state.counters["dives"] = dives;
  state.counters["pages"] = pages;
}

/// The shipped plan to 100 m, all scenarios.
void Trimix100(benchmark::State& state, Stage stage, double interval) {
  test::Plans plans;
  const auto document = OpenProfile(plans.forms, SourceFolder() / "dives/trimix-100.tav").back();
  Clock clock;
  int dives = 0;
  int pages = 0;
  for (auto _ : state) {
    Output output(stage);
    const BailoutCuts cuts = plans.Cuts(document, interval);
    dives = 0;
    for (int i = 0; i < cuts.Scenarios(); ++i) {
      const auto scenario = cuts.Compute(i, clock.Progress());
      dives += static_cast<int>(scenario->dives.size()) - 1;
      output.Take(*scenario);
    }
    pages = output.End();
  }
  state.counters["dives"] = dives;
  state.counters["pages"] = pages;
}

BENCHMARK_CAPTURE(StandardGrid, engine, Stage::Engine)
    ->Name("tables/standard_grid/engine")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StandardGrid, cells, Stage::Cells)->Name("tables/standard_grid/cells")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StandardGrid, pages, Stage::Pages)->Name("tables/standard_grid/pages")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Trimix100, usual, Stage::Pages, 5)
    ->Name("bailout/trimix_100_usual_interval/pages")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Trimix100, engine, Stage::Engine, 1)
    ->Name("bailout/trimix_100_each_minute/engine")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Trimix100, cells, Stage::Cells, 1)
    ->Name("bailout/trimix_100_each_minute/cells")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Trimix100, pages, Stage::Pages, 1)
    ->Name("bailout/trimix_100_each_minute/pages")
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
