#pragma once

#include <string>

#include "advice/margins.h"
#include "cli/command.h"
#include "cli/json_writer.h"
#include "cli/opened_plan.h"

namespace tav {

/// The limits of margins and of the longest stay, as the options give them; what they leave open is that of the plan.
struct LimitWish {
  std::string leg;
  std::string run;
  std::string stops;
  std::string cns;
  bool noGas = false;

  [[nodiscard]] DiveLimits On(const DiveTemplate& settings) const;
};

/// --leg, --max-run, --max-stops, --max-cns, --no-gas.
void AddLimits(Command& command, LimitWish& wish);

/// The action that --leg names; nothing without it. Legs count from 1, and ascents between them do not. Throws
/// OptionError for a number that no leg has.
std::optional<std::int16_t> LegOf(const LimitWish& wish, const ClassUseractions& actions);

/// "limits" and "gas_judged".
void WriteLimits(JsonWriter& json, const Margins& margins);

}  // namespace tav
