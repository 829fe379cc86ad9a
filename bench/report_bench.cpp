// Reports as page files.

#include <benchmark/benchmark.h>
#include <filesystem>

#include "headless/headless_platform.h"
#include "plans/profile_commands.h"
#include "reports/dive_report.h"
#include "reports/plan_sheet.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav::bench {
namespace {

/// The long report of three dives: 100 m on trimix, and twice more on what the dive before left.
void LongReportOfASeries(benchmark::State& state) {
  test::Plans plans;
  const std::filesystem::path file = SourceFolder() / "dives/trimix-100.tav";
  std::int16_t last = OpenProfile(plans.forms, file).front();
  const ClassUseractions actions = plans.forms(last).UserActions;
  constexpr double kInterval = 180;
  for (int i = 0; i < 2; ++i) {
    last = plans.forms.AddRepetitiveDive(last, kInterval);
    plans.forms(last).UserActions = actions;
    plans.forms(last).ReEvaluateUserEnteredWaypoints();
  }
  HeadlessPlatform platform;
  TextSource texts;
  PrintPreview writer(platform, texts);
  GeneralReport report(writer);
  for (auto _ : state) WriteLongReport(report, plans.forms.Series(last));
  state.counters["pages"] = writer.Pages().Pages();
}
BENCHMARK(LongReportOfASeries)->Unit(benchmark::kMillisecond);

/// The sheet of the dive to 100 m with 22 stops on two pages.
void PlanSheet(benchmark::State& state) {
  test::Plans plans;
  const std::int16_t document = OpenProfile(plans.forms, SourceFolder() / "dives/trimix-100.tav").front();
  HeadlessPlatform platform;
  TextSource texts;
  PrintPreview writer(platform, texts);
  for (auto _ : state) PrintPlanSheets(writer, plans.forms.Series(document, true), {});
  state.counters["pages"] = writer.Pages().Pages();
}
BENCHMARK(PlanSheet)->Unit(benchmark::kMillisecond);

/// A file of so many pages of 40 lines, counted after each and the last one read.
void FileOfPages(benchmark::State& state) {
  HeadlessPlatform platform;
  TextSource texts;
  PrintPreview writer(platform, texts);
  for (auto _ : state) {
    writer.InitPreview();
    for (int page = 0; page < state.range(0); ++page) {
      writer.StartPlainPage();
      for (int line = 0; line < 40; ++line) writer.PrintTextLeft(2, line / 2.0, "a line of a page", "Arial", 10, 0);
      writer.PrintPlainFooter("", "");
    }
    benchmark::DoNotOptimize(writer.Pages().Page(writer.Pages().Pages()));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(FileOfPages)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace
}  // namespace tav::bench
