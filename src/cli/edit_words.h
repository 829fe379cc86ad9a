#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "model/dive_template.h"
#include "model/user_actions.h"

/// What the changes of a plan have in common.
namespace tav {

struct Pair {
  std::string before;
  std::string behind;
};

/// The two sides of the first `sign`, neither of them empty. Throws OptionError, which names the form that `option`
/// has.
Pair Parted(const std::string& text, char sign, const char* option, const char* form);

/// Whether an action of these, from 1, is a leg and no ascent.
bool IsLeg(std::int16_t action, const ClassUseractions& actions);

/// The place in the list of a gas that is not Air; throws OptionError for another.
std::size_t GasToAlter(const std::string& name, const std::string& option, const DiveTemplate& settings);

/// The name of a gas in the list, which takes in one that only its name tells.
std::string KnownName(const std::string& typed, DiveTemplate& settings);

}  // namespace tav
