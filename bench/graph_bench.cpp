// What the user waits for while planning: a change of the plan until it is on the screen, and a step of a drag.

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <array>
#include <benchmark/benchmark.h>

#include "desktop/graph_view.h"
#include "support/plan_fixture.h"

namespace tav::bench {
namespace {

/// A plan of five legs on trimix to 100 m with its ascent, in a window of usual size.
class ShownPlan {
 public:
  ShownPlan()
      : editor_(plans_.New([](DiveTemplate& t) { t.PPO2High = t.PPO2Low = t.MaxEnd = false; })),
        view_(plans_.forms, editor_.Tag(), {[](Single, Single) {}, [](std::int16_t) {}, [] {}}) {
    struct Leg {
      double depth;
      double minutes;
      const char* gas;
    };
    constexpr std::array<Leg, 5> kLegs{
        {{30, 3, "EAN32"}, {100, 17, "Tx10/70"}, {75, 5, "Tx10/70"}, {60, 5, "Tx18/45"}, {45, 5, "Tx21/35"}}};
    const DiveTemplate& settings = plans_.documents(editor_.Tag()).Template;
    for (const Leg& leg : kLegs) {
      editor_.SaveUserEnteredWaypoints(leg.minutes, leg.depth, FindBlendIndex(leg.gas, settings), false);
    }
    editor_.ReEvaluateUserEnteredWaypoints();
    editor_.StartDeco();
    view_.resize(1280, 900);
    view_.show();
    QCoreApplication::processEvents();
    for (QWidget* widget : view_.findChildren<QWidget*>()) {
      if (widget->hasMouseTracking()) grid_ = widget;
    }
  }

  frmWaypointEditor& Editor() { return editor_; }
  GraphView& View() { return view_; }

  void Mouse(QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, grid_->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid_, &event);
  }
  void Show(const GraphExtras& extras) {
    PlanLook look;
    look.extras = extras;
    view_.Follow(look);
  }

 private:
  test::Plans plans_;
  frmWaypointEditor& editor_;
  GraphView view_;
  QWidget* grid_ = nullptr;
};

void ReEvaluateAndRedraw(benchmark::State& state) {
  ShownPlan plan;
  for (auto _ : state) {
    plan.Editor().ReEvaluateUserEnteredWaypoints();
    plan.View().Redraw();
    QCoreApplication::processEvents();
  }
  state.counters["rows"] = plan.Editor().InputProfile.GetLength();
}

/// With the map of the tissues below the plot.
void ReEvaluateAndRedrawTissues(benchmark::State& state) {
  ShownPlan plan;
  plan.Show({.tissues = true});
  for (auto _ : state) {
    plan.Editor().ReEvaluateUserEnteredWaypoints();
    plan.View().Redraw();
    QCoreApplication::processEvents();
  }
}

/// The same plan once more, as after a scroll: nothing is worked out anew.
void Redraw(benchmark::State& state) {
  ShownPlan plan;
  plan.Show({.tissues = state.range(0) != 0});
  for (auto _ : state) {
    plan.View().Redraw();
    QCoreApplication::processEvents();
  }
}

void DragStep(benchmark::State& state) {
  ShownPlan plan;
  plan.Mouse(QEvent::MouseButtonPress, {600, 60});
  double x = 300;
  for (auto _ : state) {
    x = x < 1000 ? x + 7 : 300;
    plan.Mouse(QEvent::MouseMove, {x, 100 + x / 3});
    QCoreApplication::processEvents();
  }
}

/// The pointer at any minute, back and forth: figures of the moment, the ways up, and their line.
void ReadOut(benchmark::State& state) {
  ShownPlan plan;
  double x = 100;
  for (auto _ : state) {
    x = x < 540 ? x + 437 : x - 431;
    plan.Mouse(QEvent::MouseMove, {x, 300});
    QCoreApplication::processEvents();
  }
}

BENCHMARK(ReEvaluateAndRedraw)->Name("screen/reevaluate_and_redraw")->Unit(benchmark::kMicrosecond);
BENCHMARK(ReEvaluateAndRedrawTissues)->Name("screen/reevaluate_and_redraw_tissues")->Unit(benchmark::kMicrosecond);
BENCHMARK(Redraw)->Name("screen/redraw")->ArgName("tissues")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadOut)->Name("screen/read_out")->Unit(benchmark::kMicrosecond);
BENCHMARK(DragStep)->Name("screen/drag_step")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tav::bench

int main(int argc, char** argv) {
  // Painted into memory: a screen of the machine would be measured otherwise.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
