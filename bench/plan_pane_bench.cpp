// From a key in a cell of the plan's pane until pane, graph and findings are on the screen.

#include <QApplication>
#include <benchmark/benchmark.h>
#include <string>

#include "support/windowed_program.h"

namespace tav::bench {
namespace {

/// A program with a trimix plan of that many legs and its ascent. Those behind the fifth go up and down by a metre.
void StartWithLegs(test::WindowedProgram& program, std::int64_t legs) {
  program.Start();
  program.window.resize(1280, 900);
  program.window.show();
  frmWaypointEditor& plan = program.program.Forms()(1);
  const DiveTemplate& settings = program.program.Forms().Services().documents(1).Template;
  const auto add = [&](double depth, double minutes, const char* gas) {
    plan.SaveUserEnteredWaypoints(minutes, depth, FindBlendIndex(gas, settings), false);
  };
  add(30, 3, "EAN32");
  add(100, 10, "Tx10/70");
  add(75, 5, "Tx10/70");
  add(60, 5, "Tx18/45");
  add(45, 5, "Tx21/35");
  for (std::int64_t leg = 5; leg < legs; ++leg) add(leg % 2 == 0 ? 45 : 46, 0.2, "Tx21/35");
  plan.ReEvaluateUserEnteredWaypoints();
  plan.StartDeco();
  QCoreApplication::processEvents();
}

void KeyInACell(benchmark::State& state) {
  test::WindowedProgram program;
  StartWithLegs(program, state.range(0));
  frmPlanPane& pane = program.program.MainForm().Panes().PlanPane();
  bool longer = false;
  for (auto _ : state) {
    longer = !longer;
    pane.legs.fgLegs.Type(2, PlanPaneLegs::kTime, longer ? "11" : "10");
    QCoreApplication::processEvents();
  }
  pane.legs.fgLegs.Restore();
}
BENCHMARK(KeyInACell)->Arg(5)->Arg(200)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
