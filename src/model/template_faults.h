#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/dive_template.h"
#include "model/message.h"
#include "model/user_actions.h"

namespace tav {

/// Why a record can't be planned on. `key` is the key of the field in a template block, so that a reader can name the
/// line, `occurrence` tells which of several lines of that key, from 0, or is -1; `text` is a sentence without its full
/// stop; a face makes words of it.
struct TemplateFault {
  std::string key;
  Message text;
  int occurrence = -1;
};

/// Every reason for which the engine would fail, loop or give a wrong number on this template, and every number that
/// can only be a slip: a number that is not finite or beyond 1,000,000; a step between stops below 0.1; a last stop
/// outside 0 to 30 m or 100 ft; a surface pressure outside 0.3 to 1.2 bar or atmospheres; an altitude outside -500 to
/// 6,000 m; a rate table without an entry at the surface, out of order or with a rate below 0.1; a gas without content,
/// with a share outside 0 to 100 % or whose shares are not 100 % within 0.5; a gradient factor that is negative or 2
/// and more; a negative RMV, END, PPO2 limit or setpoint; a rebreather without a setpoint. Empty for a sound template.
/// All readers, dialogs and the engine ask here, so that they agree.
std::vector<TemplateFault> TemplateFaults(const DiveTemplate& diveTemplate);

/// The pressure that an altitude usually has, where it is more than 0.05 bar from the one told for it: one of the two
/// is wrong. Nothing where they agree.
std::optional<Single> ContradictedPressure(Single altitude, Single pressure, bool metric);

/// The longest leg and the deepest depth that a plan may hold, far beyond any dive: minutes and depth units.
constexpr double kMaximumLegTime = 100000;
constexpr double kMaximumDepth = 10000;

/// The longest surface interval, minutes (a year and a half).
constexpr double kMaximumSurfaceInterval = 1000000;

/// Why a leg can't be planned: a negative or too large time or depth, a gas that the template does not have. Empty for
/// a sound leg, and for every ascent command.
Message LegFault(Single time, Single depth, std::int16_t mix, const DiveTemplate& diveTemplate);

/// The faults of all legs, each with the number of its action: "action 3: ...".
std::vector<Message> PlanFaults(const ClassUseractions& actions, const DiveTemplate& diveTemplate);

/// "a; b; c"
Message JoinFaults(const std::vector<TemplateFault>& faults);

}  // namespace tav
