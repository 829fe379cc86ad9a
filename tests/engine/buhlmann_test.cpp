#include "engine/buhlmann.h"

#include <cmath>
#include <gtest/gtest.h>

#include "engine/vpm.h"
#include "persist/template_file.h"
#include "support/source_folder.h"

namespace tav {
namespace {

/// Counts and keeps what a run says.
struct Listener : EngineObserver {
  void WarnEND(const LimitWarning& w) override { said.push_back("END " + std::to_string(std::lround(w.value))); }
  void WarnPPO2High(const LimitWarning& w) override { said.push_back("high " + std::to_string(w.limit)); }
  void WarnPPO2Low(const LimitWarning& w) override { said.push_back("low " + std::to_string(w.limit)); }
  void StopHitLimit(const StopLimit& stop) override { stuck.push_back(stop); }
  std::vector<std::string> said;
  std::vector<StopLimit> stuck;
};

/// One document with the shipped template, and plans made by hand.
struct Bench {
  Bench() {
    Template() = ShippedDefaultTemplate();
    Template().PPO2High = Template().PPO2Low = Template().MaxEnd = false;
  }

  DiveTemplate& Template() { return settings; }

  void Row(double depth, double rate, double time, std::int16_t mix, std::int16_t status = RowStatus::kLeg) {
    plan.NewWayPoint();
    Waypoint& row = plan.Row(plan.GetLength());
    row.Depth = depth;
    row.Rate = rate;
    row.SegmentTime = time;
    row.MixNumber = mix;
    row.GasMixName = Template().Blends[static_cast<std::size_t>(mix)].Name;
    row.Status = status;
  }
  void Square(double depth, double minutes, std::int16_t mix = 0) {
    Row(depth, 18, 0, mix);
    Row(depth, 0, minutes, mix);
  }

  void Run(bool forceOC = false) {
    ClassBuhlmann engine(settings, model, listener);
    engine.Init(false);
    result.clear();
    engine.StartBuhlmann(plan, result, true, forceOC);
    decompresses = engine.Decompresses();
  }

  [[nodiscard]] std::vector<double> StopDepths() const {
    std::vector<double> depths;
    for (std::int16_t i = 1; i <= result.GetLength(); ++i) {
      if (result.GetStatus(i) == RowStatus::kStop) depths.push_back(result.getStopDepth(i));
    }
    return depths;
  }
  [[nodiscard]] const Waypoint& Last() const { return result.Row(result.GetLength()); }

  DiveTemplate settings;
  ModelChoice model;
  Listener listener;
  ClassProfile plan;
  ClassProfile result;
  bool decompresses = true;
};

TEST(StartRow, IsAtTheSurfaceThatTheDiveStartsFrom) {
  Bench bench;
  bench.Template().StartPressure = 0.8;
  bench.Template().EndPressure = 1.0;
  bench.Square(30, 20);
  bench.plan.Row(0).PPO2 = 0.5;
  bench.plan.Row(0).CNS = 12;
  ClassBuhlmann replay(bench.settings, bench.model, bench.listener);
  replay.Init(false);
  replay.LoadCompartments(bench.plan, bench.result);
  EXPECT_NEAR(bench.result.GetPPO2(0), 0.8 * 0.21, 1e-6);
  EXPECT_EQ(bench.result.getCNS(0), Single(12));
  bench.Run();
  EXPECT_NEAR(bench.result.GetPPO2(0), 0.8 * 0.21, 1e-6);
  EXPECT_EQ(bench.result.getCNS(0), Single(12));
}

TEST(StartState, IsSaturatedAtTheSurfacePressure) {
  Bench bench;
  bench.Template().StartPressure = 1.0;
  ClassBuhlmann engine(bench.settings, bench.model, bench.listener);
  engine.Init(false);
  for (const Single load : engine.CurrentLoads().N2) EXPECT_EQ(double{load}, double{Single((10 - 0.527) * 0.79)});
  for (const Single load : engine.CurrentLoads().He) EXPECT_EQ(double{load}, 0);
}

// A journey that takes weeks ends as saturated as one that never began; a short one leaves sea level loads.
TEST(StartState, AfterTravelLiesBetweenSeaLevelAndTheAltitude) {
  for (const int minutes : {0, 1, 30, 120, 32767}) {
    SCOPED_TRACE(minutes);
    Bench bench;
    bench.Template().StartAltitude = 3000;
    bench.Template().StartPressure = 0.7154;
    bench.Template().AdeptedToHeight = false;
    bench.Template().TimeToHeight = static_cast<std::int16_t>(minutes);
    ClassBuhlmann engine(bench.settings, bench.model, bench.listener);
    engine.Init(false);
    const double seaLevel = (10.13 - 0.527) * 0.79;
    const double adapted = (7.154 - 0.527) * 0.79;
    for (const Single load : engine.CurrentLoads().N2) {
      EXPECT_LE(load, seaLevel + 1e-4);
      EXPECT_GE(load, adapted - 1e-2);
    }
    // The slowest tissue after a minute, the fastest after weeks.
    if (minutes <= 1) {
      EXPECT_NEAR(engine.CurrentLoads().N2[15], seaLevel, 0.01);
    }
    if (minutes == 32767) {
      EXPECT_NEAR(engine.CurrentLoads().N2[0], adapted, 0.05);
    }
  }
}

TEST(SurfaceInterval, OfZeroKeepsTheLoadsAndOneHalfTimeHalvesTheRest) {
  Bench bench;
  Compartments n2;
  Compartments he;
  n2.fill(15);
  he.fill(4);
  for (const double minutes : {0.0, 109.0}) {
    ClassBuhlmann engine(bench.settings, bench.model, bench.listener);
    engine.InitAfterSurfaceInterval(false, n2, he, minutes);
    const double air = (10.1325 - 0.527) * 0.79;
    // Compartment 9 has a nitrogen half-time of 109 minutes.
    EXPECT_NEAR(engine.CurrentLoads().N2[8], minutes == 0 ? 15 : air + (15 - air) / 2, 1e-4);
    EXPECT_NEAR(engine.CurrentLoads().He[8], 4 * std::exp2(-minutes / 41.2), 1e-4);
  }
}

TEST(SurfaceInterval, OnARebreatherBreathesNoInertGas) {
  Bench bench;
  bench.Template().OpenCircuit = false;
  Compartments n2;
  n2.fill(15);
  ClassBuhlmann engine(bench.settings, bench.model, bench.listener);
  engine.InitAfterSurfaceInterval(false, n2, {}, 109);
  EXPECT_NEAR(engine.CurrentLoads().N2[8], 7.5, 1e-4);
}

TEST(Rebreather, InertGasesShareWhatTheSetpointLeaves) {
  Bench bench;
  bench.Template().OpenCircuit = false;
  bench.Template().Setpoint = 1.3;
  const std::int16_t trimix = FindBlendIndex("Tx18/45", bench.Template());
  bench.Square(60, 100000, trimix);  // saturated
  bench.Run();
  const double inert = 70.1325 - 13 - 0.527;
  EXPECT_NEAR(bench.result.GetN2Compartments(2)[0], inert * 37 / 82, 0.01);
  EXPECT_NEAR(bench.result.GetHeCompartments(2)[0], inert * 45 / 82, 0.01);
  EXPECT_EQ(double{bench.result.GetPPO2(2)}, double{Single(1.3)});
  EXPECT_EQ(double{bench.result.getGasUsed(2)}, 0);
}

// Near the surface the loop holds oxygen alone, whatever the direction, and with an oxygen diluent everywhere.
TEST(Rebreather, LoadsOnlyFallWhereNoInertGasIsBreathed) {
  struct Move {
    double from;
    double to;
    double rate;
    std::string gas;
  };
  for (const Move& move : {Move{2, 0, -3, "Air"}, Move{0, 2, 18, "Air"}, Move{0, 60, 18, "Oxygen"}}) {
    SCOPED_TRACE(move.gas + " to " + std::to_string(move.to));
    Bench bench;
    bench.Template().OpenCircuit = false;
    const std::int16_t mix = FindBlendIndex(move.gas, bench.Template());
    if (move.from > 0) bench.Row(move.from, 18, 0, mix);
    bench.Row(move.to, move.rate, 0, mix);
    ClassBuhlmann engine(bench.settings, bench.model, bench.listener);
    engine.Init(false);
    engine.LoadCompartments(bench.plan, bench.result);
    double before = (10.1325 - 0.527) * 0.79;
    for (std::int16_t i = 1; i <= bench.result.GetLength(); ++i) {
      const double after = bench.result.GetN2Compartments(i)[0];
      const double time = bench.result.GetSegmentTime(i);
      EXPECT_NEAR(after, before * std::exp2(-time / 5), 1e-4);
      before = after;
    }
  }
}

TEST(DepthAdjust, DeepensThePlanButNotTheSurfaceNorTheAscent) {
  Bench bench;
  bench.Template().DepthAdjust = true;
  ClassBuhlmann engine(bench.settings, bench.model, bench.listener);
  engine.Init(false);
  EXPECT_EQ(double{engine.Dadjust(0)}, 0);
  EXPECT_NEAR(engine.Dadjust(10), 11.3, 1e-5);
  bench.Template().Metric = false;
  EXPECT_NEAR(engine.Dadjust(100), 106.3, 1e-4);
  bench.Template().Metric = true;
  bench.Square(30, 20);
  bench.Run();
  EXPECT_NEAR(bench.result.GetPPO2(2), (31.9 + 10.1325) / 10 * 0.21, 1e-5);
  EXPECT_NEAR(bench.Last().PPO2, 1.01325 * bench.Last().GasMixO2 / 100, 1e-5);
}

struct StopGrid {
  double step;
  double last;
  double depth;
  double minutes;
  std::vector<double> stops;  // from the first one found up
};

TEST(Stops, LieOnTheGridAndEndAtTheLastStop) {
  const StopGrid kGrids[] = {{3, 6, 30, 60, {9, 6}},  {3, 4, 30, 60, {9, 6, 4}}, {3, 3, 30, 60, {9, 6, 3}},
                             {5, 6, 30, 60, {10, 6}}, {3, 0, 30, 60, {9, 6, 3}}, {2, 5, 30, 60, {8, 6, 5}}};
  for (const StopGrid& grid : kGrids) {
    SCOPED_TRACE(testing::Message() << "step " << grid.step << " last " << grid.last);
    Bench bench;
    bench.Template().ChangeGasMixes.clear();
    bench.Template().GFLow = 0.85;
    bench.Template().StepSize = grid.step;
    bench.Template().LastStop = grid.last;
    bench.Square(grid.depth, grid.minutes);
    bench.Run();
    std::vector<double> stops = bench.StopDepths();
    ASSERT_GE(stops.size(), grid.stops.size());
    stops.erase(stops.begin(), stops.end() - static_cast<std::ptrdiff_t>(grid.stops.size()));
    EXPECT_EQ(stops, grid.stops);
    EXPECT_EQ(double{bench.Last().Depth}, 0);
  }
}

// From 31 m the first candidate is 27 and not 30: 31 / 3 - 0.5 lies below 10.
TEST(Stops, FirstCandidateLeavesHalfAStep) {
  for (const auto& [depth, candidate] : {std::pair{30.0, 27.0}, {31.0, 27.0}, {33.0, 30.0}, {31.5, 30.0}, {4.0, 0.0}}) {
    Bench bench;
    bench.Square(depth, 1);
    bench.Run();
    EXPECT_EQ(double{bench.result.getDepth(3)}, candidate) << "from " << depth;
  }
}

TEST(Stops, LastAWholeMinuteOfRunTimeAtLeast) {
  Bench bench;
  bench.Square(45, 25);
  bench.Run();
  for (std::int16_t i = 1; i <= bench.result.GetLength(); ++i) {
    if (bench.result.GetStatus(i) != RowStatus::kStop) continue;
    EXPECT_GE(bench.result.getStopTime(i), 1);
    EXPECT_EQ(std::fmod(bench.result.GetRunTime(i), 1.0), 0) << "row " << i;
    const double held = bench.result.GetRunTime(i) - bench.result.GetRunTime(static_cast<std::int16_t>(i - 1));
    EXPECT_GT(held, 0.001) << "a stop that is reported must be held";
  }
}

// Whatever the run time at which a stop begins, its first minute ends with the next whole one.
TEST(Stops, OfOneMinuteLastNoLonger) {
  int ofOneMinute = 0;
  for (int n = 0; n < 40; ++n) {
    Bench bench;
    bench.Square(60, 20 + n * 0.025);
    bench.Run();
    for (std::int16_t i = 1; i <= bench.result.GetLength(); ++i) {
      if (bench.result.GetStatus(i) != RowStatus::kStop || bench.result.getStopTime(i) != 1) continue;
      const double held = bench.result.GetRunTime(i) - bench.result.GetRunTime(static_cast<std::int16_t>(i - 1));
      EXPECT_LT(held, 1.0011) << "row " << i << " of the plan of " << 20 + n * 0.025 << " minutes";
      ++ofOneMinute;
    }
  }
  EXPECT_GT(ofOneMinute, 100);
}

TEST(GasSwitch, TakesTheFirstEntryThatFitsAndIsKnown) {
  struct Order {
    std::vector<std::pair<std::string, double>> changes;
    std::string gasAtSix;
    std::string gasAtTwelve;
  };
  const Order kOrders[] = {{{{"Oxygen", 6}, {"EAN50", 21}}, "Oxygen", "EAN50"},
                           {{{"EAN50", 21}, {"Oxygen", 6}}, "EAN50", "EAN50"},
                           {{{"Nitrox", 21}, {"Oxygen", 6}}, "Oxygen", "Air"}};
  for (const Order& order : kOrders) {
    Bench bench;
    bench.Template().ChangeGasMixes.clear();
    for (const auto& [name, depth] : order.changes) {
      bench.Template().ChangeGasMixes.push_back({name, 0, 0, 0, depth});
    }
    bench.Square(50, 30);
    bench.Run();
    for (std::int16_t i = 1; i <= bench.result.GetLength(); ++i) {
      const double stop = bench.result.getStopDepth(i);
      const std::string& gas = bench.result.GetGasMixName(i);
      EXPECT_TRUE(stop != 6 || gas == order.gasAtSix) << gas;
      EXPECT_TRUE(stop != 12 || gas == order.gasAtTwelve) << gas;
    }
  }
}

TEST(GradientFactors, RunFromTheFirstStopToTheSurface) {
  Bench bench;
  bench.Square(50, 30);
  bench.Run();
  const double first = bench.StopDepths().front();
  for (std::int16_t i = 1; i <= bench.result.GetLength(); ++i) {
    if (bench.result.GetStatus(i) != RowStatus::kStop) continue;
    const double next = std::max(bench.result.getStopDepth(i) - 3, 0.0);
    EXPECT_NEAR(bench.result.GetGF(i), 0.85 - 0.55 * next / first, 1e-5);
    EXPECT_LE(bench.result.GetCeiling(i), next);
  }
  EXPECT_NEAR(bench.Last().GF, 0.85, 1e-6);

  bench.Template().UseGF = false;
  bench.Run();
  for (std::int16_t i = 0; i <= bench.result.GetLength(); ++i) EXPECT_EQ(double{bench.result.GetGF(i)}, 1);
}

TEST(BailOut, RunsTheAscentOfARebreatherPlanOnOpenCircuit) {
  for (const bool forced : {false, true}) {
    Bench bench;
    bench.Template().OpenCircuit = false;
    bench.Square(50, 30, FindBlendIndex("Tx18/45", bench.Template()));
    bench.Run(forced);
    EXPECT_EQ(double{bench.result.getGasUsed(2)}, 0);
    EXPECT_EQ(bench.Last().GasUsed > 0, forced);
  }
}

TEST(Warnings, ShowOnceARunAndStopsHaveTheirOwnLimit) {
  Bench bench;
  bench.Template().MaxEnd = bench.Template().PPO2High = bench.Template().PPO2Low = true;
  bench.Template().MaximalEND = 25;
  bench.Template().MaxPPO2 = 1.45;
  bench.Template().DecoPPO2 = 1.6;
  bench.Square(50, 10);
  bench.Square(54, 10);
  bench.Run();
  EXPECT_EQ(bench.listener.said, (std::vector<std::string>{"END 50", "high 1.600000"}));
}

// At 60 m the nitrogen of air alone forbids 30 m with hardly any over-pressure allowed: waiting never helps.
TEST(Warnings, LeaveTheShippedGasesAloneAtTheirOwnStops) {
  for (const char* name : {"Default.tpl", "Imperial.tpl"}) {
    SCOPED_TRACE(name);
    Bench bench;
    LoadTemplateFile(bench.Template(), SourceFolder() / "template" / name);
    bench.Template().MaxEnd = false;
    bench.Template().MaxPPO2 = 3;  // moves are judged by it, and the first one from 21 m passes the shipped 1.4
    bench.Square(bench.Template().Metric ? 40 : 130, 40);
    bench.Run();
    EXPECT_EQ(bench.Last().GasMixName, "Oxygen");
    EXPECT_EQ(bench.listener.said, std::vector<std::string>());
  }
}

TEST(StopLimit, EndsAStopThatNeverClears) {
  Bench bench;
  bench.Template().ChangeGasMixes.clear();
  bench.Template().EndPressure = 0.3;
  bench.Template().GFLow = bench.Template().GFHigh = 0.1;
  bench.Template().LastStop = 30;
  bench.Template().StepSize = 30;
  bench.Square(60, 30);
  bench.Run();
  ASSERT_FALSE(bench.listener.stuck.empty());
  EXPECT_EQ(double{bench.listener.stuck.front().depth}, 60);
  EXPECT_EQ(bench.listener.stuck.front().gas, "Air");
  EXPECT_FALSE(bench.decompresses);
  EXPECT_EQ(double{bench.Last().Depth}, 0);
}

// Pressure crushes the nuclei: the radius falls with depth, without a step where they become impermeable (9.2 atm).
TEST(Bubbles, RadiusFallsSteadilyWithDepth) {
  for (const bool metric : {true, false}) {
    const double unit = metric ? 1 : 3.3;
    double before = 1.0;
    for (int depth = 0; depth <= 200; ++depth) {
      ClassVPMGF vpm;
      vpm.SetVPMValues(0.0179, 0.257, 1.0, 1.0, metric);
      vpm.VPMStart(depth * unit);
      const double radius = vpm.GetMicron();
      EXPECT_LT(radius, depth == 0 ? 1.000001 : before) << depth;
      EXPECT_GT(radius, before * 0.9) << depth;
      before = radius;
    }
  }
}

TEST(Models, TellWhichOneSetTheCeiling) {
  Bench bench;
  bench.Square(50, 30);
  for (const auto& [vpm, hybrid] : {std::pair{false, false}, {true, false}, {false, true}}) {
    bench.model = {vpm, hybrid};
    bench.Run();
    bool bubbles = false;
    bool dissolved = false;
    for (std::int16_t i = 3; i <= bench.result.GetLength(); ++i) {
      bubbles |= bench.result.GetModelControl(i) == ModelMarker::kVPM;
      dissolved |= bench.result.GetModelControl(i) == ModelMarker::kZHL16;
    }
    EXPECT_EQ(bubbles, vpm || hybrid);
    EXPECT_EQ(dissolved, !vpm);
  }
}

}  // namespace
}  // namespace tav
