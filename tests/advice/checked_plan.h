#pragma once

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advice/plan_check.h"
#include "start/language_table.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

/// Plans of a few legs on the shipped settings, and what the plan check finds in them.
namespace tav::test {

inline const TextSource& English() {
  static const LanguageTable texts = DefaultTexts(SourceFolder());
  return texts;
}

struct TestLeg {
  double depth;
  double time;
  std::string gas = "Air";
};

struct Dive {
  std::vector<TestLeg> legs;
  std::function<void(DiveTemplate&)> change = [](DiveTemplate&) {};
  bool ascent = true;
  ModelChoice model = {};
};

inline std::pair<std::vector<Finding>, ClassProfile> CheckWithRows(const Dive& dive) {
  Plans plans;
  plans.model = dive.model;
  frmWaypointEditor& window = plans.New(dive.change);
  const DiveTemplate& settings = plans.documents(window.Tag()).Template;
  for (const TestLeg& leg : dive.legs) {
    window.SaveUserEnteredWaypoints(leg.time, leg.depth, FindBlend(leg.gas, settings).value(), false);
  }
  if (dive.ascent) window.SaveUserEnteredWaypoints(-1, -1, 0, true);
  window.ReEvaluateUserEnteredWaypoints();
  EXPECT_EQ(window.EvaluationFault(), "");
  const AdviceWords words(English(), {".", ""}, settings.Metric);
  return {CheckPlan(window.Planned(), words), window.InputProfile};
}

inline std::vector<Finding> Check(const Dive& dive) { return CheckWithRows(dive).first; }

inline std::optional<Finding> Of(Rule rule, const std::vector<Finding>& findings) {
  const auto found = std::ranges::find(findings, rule, &Finding::rule);
  return found == findings.end() ? std::nullopt : std::optional(*found);
}

inline std::function<void(DiveTemplate&)> Changes(std::vector<std::pair<std::string, double>> list) {
  return [list](DiveTemplate& t) {
    t.ChangeGasMixes.clear();
    for (const auto& [name, depth] : list) t.ChangeGasMixes.push_back({name, 0, 0, 0, depth});
    ResolveGasChanges(t);
  };
}

inline std::function<void(DiveTemplate&)> Loop(double setpoint, double decoSetpoint) {
  return [=](DiveTemplate& t) {
    t.OpenCircuit = false;
    t.KeepsDiluent = false;
    t.Setpoint = setpoint;
    t.DecoSetpoint = decoSetpoint;
    t.ChangeGasMixes.clear();
  };
}

inline auto Both(std::function<void(DiveTemplate&)> first, std::function<void(DiveTemplate&)> second) {
  return [=](DiveTemplate& t) {
    first(t);
    second(t);
  };
}

inline void NoChanges(DiveTemplate& t) { t.ChangeGasMixes.clear(); }

}  // namespace tav::test
