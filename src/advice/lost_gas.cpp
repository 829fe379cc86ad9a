#include "advice/lost_gas.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "compute/bailout_cuts.h"
#include "model/text_id.h"

namespace tav {

std::vector<std::string> GasesToLose(const DiveTemplate& settings) {
  std::vector<std::string> gases;
  for (const GasChange& change : settings.ChangeGasMixes) {
    const bool known = FindBlend(change.Name, settings).has_value();
    if (known && std::ranges::find(gases, change.Name) == gases.end()) gases.push_back(change.Name);
  }
  return gases;
}

Message LoseGases(const std::vector<std::string>& gases, DiveRecord& dive) {
  const auto isLost = [&](const std::string& gas) { return std::ranges::find(gases, gas) != gases.end(); };
  // The list may have a gas twice; all of it is in the cylinder that is lost.
  for (std::size_t i = dive.Template.ChangeGasMixes.size(); i-- > 0;) {
    if (isLost(dive.Template.ChangeGasMixes[i].Name)) dive.Template = DropGasChange(dive.Template, static_cast<int>(i));
  }
  std::erase_if(dive.Template.Cylinders, [&](const Cylinder& cylinder) { return isLost(cylinder.Gas); });
  ClassUseractions& actions = dive.UserActions;
  std::optional<std::int16_t> before;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (actions.getaction(i) != ClassUseractions::kLeg) continue;
    const std::string& gas = dive.Template.Blends.at(static_cast<std::size_t>(actions.getmixnumber(i))).Name;
    if (!isLost(gas)) {
      before = actions.getmixnumber(i);
    } else if (before) {
      actions.setuser(i, actions.getDepth(i), actions.gettime(i), *before);
    } else {
      return {Text::WhatIfNoGasBefore, {gas}};
    }
  }
  return {};
}

}  // namespace tav
