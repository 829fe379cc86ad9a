#include "advice/comparison.h"

#include <algorithm>
#include <map>

#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/template_block.h"

namespace tav {
namespace {

/// The gases of each plan that not all plans have, name and shares.
std::vector<std::string> OwnGases(const std::vector<ComparedPlan>& plans) {
  const auto isIn = [](const GasMix& mix, const ComparedPlan& plan) {
    return std::ranges::any_of(plan.Settings().Blends, [&](const GasMix& other) {
      return mix.Name == other.Name && mix.O2 == other.O2 && mix.N2 == other.N2 && mix.He == other.He;
    });
  };
  std::vector<std::string> gases;
  for (const ComparedPlan& plan : plans) {
    std::string own;
    for (const GasMix& mix : plan.Settings().Blends) {
      if (std::ranges::all_of(plans, [&](const ComparedPlan& other) { return isIn(mix, other); })) continue;
      own += (own.empty() ? "" : ", ") + mix.Name + " " + FormatPlain(mix.O2) + "/" + FormatPlain(mix.He);
    }
    gases.push_back(own);
  }
  return gases;
}

}  // namespace

ComparedPlan::ComparedPlan(std::string planName, const PlannedDive& plan, int number)
    : name(std::move(planName)), dive(number), column(WhatIf(plan).Planned()), model(plan.plan.model) {
  if (plan.before != nullptr) before = *plan.before;
}

std::vector<DifferingSetting> DifferingSettings(const std::vector<ComparedPlan>& plans) {
  std::vector<std::string> keys;
  std::vector<std::map<std::string, std::string>> told;
  for (const ComparedPlan& plan : plans) {
    std::map<std::string, std::string>& values = told.emplace_back();
    for (const BlockValue& setting : BlockValues(plan.Settings())) {
      values[setting.key] = setting.value;
      if (std::ranges::find(keys, setting.key) == keys.end()) keys.push_back(setting.key);
    }
  }
  std::vector<DifferingSetting> settings;
  for (const std::string& key : keys) {
    std::vector<std::string> values;
    for (const auto& plan : told) {
      const auto found = plan.find(key);
      values.push_back(found == plan.end() ? "" : found->second);
    }
    if (std::ranges::all_of(values, [&](const std::string& value) { return value == values.front(); })) continue;
    if (key == kBlendsKey) {
      values = OwnGases(plans);
      // The same gases in another order.
      if (std::ranges::all_of(values, &std::string::empty)) continue;
    }
    settings.push_back({key, values});
  }
  return settings;
}

std::string DeepestLeg(const ComparedPlan& plan, const AdviceWords& words) {
  const ClassUseractions& actions = plan.column.record.UserActions;
  const std::int16_t deepest = DeepestLegOf(actions);
  if (deepest == 0) return {};
  return words.Depth(actions.getDepth(deepest)) + ", " + words.Short(actions.gettime(deepest)) + " " +
         words.T(Text::WhatIfMinutes);
}

}  // namespace tav
