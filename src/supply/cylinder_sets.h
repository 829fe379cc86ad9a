#pragma once

#include <span>
#include <string>
#include <vector>

#include "model/cylinder.h"
#include "model/message.h"
#include "platform/settings_store.h"

namespace tav {

/// A cylinder as divers call it, without a gas.
struct UsualCylinder {
  const char* name;
  std::int16_t count;
  double size;
  double rated;  ///< psi; 0 for litres
  double fill;
  double reserve;
  [[nodiscard]] Cylinder With(const std::string& gas) const { return {gas, count, size, rated, fill, reserve, false}; }
};

std::span<const UsualCylinder> UsualCylinders();
/// The one to begin with.
std::size_t UsualCylinderOf(bool metric);

/// Cylinders that are carried together, in their order of use.
struct CylinderSet {
  Message name;
  std::vector<Cylinder> cylinders;  ///< a gas without a name is to be chosen
};

/// Those that the program brings along.
std::vector<CylinderSet> UsualSets(bool metric);

/// The user's own sets, section "CylinderSets". A broken entry is passed over; `fault` tells the first one.
std::vector<CylinderSet> ReadCylinderSets(const SettingsStore& settings, Message& fault);
void WriteCylinderSets(SettingsStore& settings, const std::vector<CylinderSet>& sets);

}  // namespace tav
