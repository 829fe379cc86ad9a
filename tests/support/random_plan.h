#pragma once

#include <gtest/gtest.h>
#include <random>
#include <string>

#include "compute/compute.h"
#include "persist/profile_file.h"
#include "persist/template_file.h"

/// Plans as divers make them, at random: laws are tried on thousands.
namespace tav::test {

struct RandomPlan {
  DiveTemplate settings;
  ClassUseractions actions;
};

/// One to four legs and the ascent.
inline RandomPlan MakePlan(std::mt19937& random) {
  const auto pick = [&](auto... values) {
    const double list[] = {static_cast<double>(values)...};
    return list[random() % sizeof...(values)];
  };
  RandomPlan plan;
  plan.settings = ShippedDefaultTemplate();
  DiveTemplate& t = plan.settings;
  t.PPO2High = t.PPO2Low = t.MaxEnd = false;
  t.OpenCircuit = random() % 3 != 0;
  t.OCDeco = random() % 4 == 0;
  t.Setpoint = pick(1.0, 1.2, 1.3, 1.4);
  t.DecoSetpoint = pick(1.2, 1.3, 1.5);
  t.GFHigh = pick(0.7, 0.8, 0.85, 0.95, 1.0);
  t.GFLow = pick(0.1, 0.2, 0.3, 0.5, 0.7);
  t.StepSize = pick(2, 3, 5);
  t.LastStop = pick(3, 4, 6);
  t.StartPressure = pick(0.75, 0.9, 1.01325);
  t.EndPressure = pick(0.7, 0.9, 1.01325);
  t.DepthAdjust = random() % 8 == 0;
  if (random() % 3 == 0) t.ChangeGasMixes.clear();
  const int legs = 1 + static_cast<int>(random() % 4);
  for (int i = 0; i < legs; ++i) {
    plan.actions.NewAction();
    const double depth = 10 + static_cast<int>(random() % 600) / 10.0;
    const double time = 5 + static_cast<int>(random() % 250) / 10.0;
    plan.actions.setuser(plan.actions.GetLength(), depth, time, static_cast<std::int16_t>(random() % 8));
  }
  plan.actions.NewAction();
  plan.actions.setdeco(plan.actions.GetLength());
  return plan;
}

/// Of a plan that can be computed.
inline ComputedPlan Computed(const RandomPlan& plan, const ModelChoice& model = {}) {
  EngineObserver silent;
  ComputedPlan computed = Compute({plan.settings, 0, plan.actions}, model, nullptr, silent);
  EXPECT_EQ(computed.fault.Raw(), "") << WriteDiveRecord(plan.settings, 0, plan.actions);
  return computed;
}

/// The plan as a file that can be opened, for the message of a test that fails.
inline std::string File(const RandomPlan& plan) { return WriteDiveRecord(plan.settings, 0, plan.actions); }

}  // namespace tav::test
