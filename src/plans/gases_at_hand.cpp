#include "plans/gases_at_hand.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tav {

std::vector<GasAtHand> GasesAtHand(const DiveTemplate& diveTemplate, const ClassUseractions& actions) {
  std::vector<GasAtHand> gases;
  const std::vector<GasChange>& changes = diveTemplate.ChangeGasMixes;
  std::vector<std::size_t> deepestFirst(changes.size());
  std::iota(deepestFirst.begin(), deepestFirst.end(), std::size_t{0});
  std::ranges::stable_sort(deepestFirst,
                           [&](std::size_t a, std::size_t b) { return changes[a].Depth > changes[b].Depth; });
  const auto addGas = [&](const std::string& name) {
    if (std::ranges::find(gases, name, &GasAtHand::name) != gases.end()) return;
    const auto change =
        std::ranges::find_if(deepestFirst, [&](std::size_t place) { return changes[place].Name == name; });
    gases.push_back({name, change == deepestFirst.end() ? std::nullopt : std::optional(*change)});
  };
  for (int i = 1; i <= actions.GetLength(); ++i) {
    const auto action = static_cast<std::int16_t>(i);
    const std::int16_t mix = actions.getmixnumber(action);
    const bool known = mix >= 0 && static_cast<std::size_t>(mix) < diveTemplate.Blends.size();
    if (known && actions.getaction(action) == ClassUseractions::kLeg) {
      addGas(diveTemplate.Blends[static_cast<std::size_t>(mix)].Name);
    }
  }
  for (const std::size_t place : deepestFirst) {
    if (std::ranges::find(gases, std::optional(place), &GasAtHand::change) == gases.end()) {
      gases.push_back({changes[place].Name, place});
    }
  }
  for (const GasMix& gas : diveTemplate.Blends) addGas(gas.Name);
  return gases;
}

Single DeepestOnWayUp(const GasMix& gas, const DiveTemplate& diveTemplate) {
  constexpr double kRounding = 0.02;  // bar, as in every check: oxygen at 6 m has 1.61
  if (gas.O2 <= 0 || diveTemplate.StepSize <= 0) return 0;
  const double ambient = 100.0 * (diveTemplate.DecoPPO2 + kRounding) / gas.O2;
  const double depth = (ambient - diveTemplate.EndPressure) * DepthPerPressure(diveTemplate.Metric);
  const double steps = std::floor(depth / diveTemplate.StepSize);
  return std::max(0.0, steps * diveTemplate.StepSize);
}

void BreatheOnWayUp(const GasAtHand& gas, Single depth, DiveTemplate& diveTemplate) {
  std::vector<GasChange>& changes = diveTemplate.ChangeGasMixes;
  if (gas.change) {
    changes.at(*gas.change).Depth = depth;
  } else {
    changes.push_back({gas.name, 0, 0, 0, depth});
  }
  // The ascent takes the first gas of the list whose depth is that of the diver or deeper.
  std::ranges::stable_sort(changes, {}, [](const GasChange& change) { return double{change.Depth}; });
  ResolveGasChanges(diveTemplate);
}

}  // namespace tav
