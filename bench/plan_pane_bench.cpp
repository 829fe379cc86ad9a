// From a key in a cell of the plan's pane, or a step of a waypoint on the graph, until pane, graph and findings are on
// the screen.

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

/// A waypoint is dragged to and fro by a metre, or moved by keys, each step a change of the plan.
void MoveAWaypoint(benchmark::State& state) {
  test::WindowedProgram program;
  StartWithLegs(program, state.range(0));
  const bool keys = state.range(1) != 0;
  const auto legs = program.program.MainForm().GraphEditsOf(1);
  const std::int16_t leg = 2;
  const auto row = [&] { return program.program.Forms()(1).LastRowOf(leg); };
  bool deeper = false;
  if (!keys) legs->BeginMove(row());
  for (auto _ : state) {
    deeper = !deeper;
    if (keys) legs->BeginMove(row());
    legs->Move(deeper || !keys ? (deeper ? 1 : 2) : -1, 0);
    if (keys) legs->EndMove(true);
    QCoreApplication::processEvents();
  }
  legs->EndMove(false);
}
BENCHMARK(MoveAWaypoint)->ArgNames({"legs", "keys"})->Args({5, 0})->Args({5, 1})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tav::bench
