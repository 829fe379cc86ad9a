#pragma once

#include <optional>

#include "compute/gas_suggestions.h"
#include "model/dive_template.h"

namespace tav {

/// What the panel of the waypoint dialog tells of a mix at a depth.
struct MixInformation {
  enum class Kind { Nitrox, Trimix, Heliox };

  bool possible = true;  ///< false: no mix of this kind keeps the limits
  bool narcotic = true;  ///< false: nothing in the mix is narcotic, and there is no END
  Single END;            ///< depth units, 0 or more
  Single PPO2;           ///< bar or atmospheres
  bool endTooDeep = false;
  bool ppo2TooHigh = false;
};

/// What a diver must see of a gas before going to a depth on it. On a rebreather the gas is the diluent, which must not
/// hold more oxygen than the setpoint.
struct GasFigures {
  Single PPO2;                ///< of the open gas, bar or atmospheres
  Single breathedPPO2;        ///< the same, or that of the loop: its setpoint as far as the depth allows it
  Single END;                 ///< depth units, 0 or more
  std::optional<Single> MOD;  ///< where the PPO2 reaches its limit, to a tenth below; nothing for a gas without oxygen
  bool ppo2TooHigh = false;   ///< all marks judge the figures as they are shown: PPO2 to 0.01, END to 0.1
  bool ppo2TooLow = false;    ///< on open circuit alone
  bool endTooDeep = false;
};
GasFigures FiguresAt(Single depth, const GasMix& mix, const DiveTemplate& t);

/// END and PPO2 of a mix (fractions) at a depth, with the pressures of the template: PPO2 = (S + d) O2 / k, and
/// END = (S + d) N2 / 0.79 - S, or with narcotic oxygen (S + d) (O2 + N2) - S, where S is the surface pressure in depth
/// units and k those to the bar or atmosphere. `edited`: the user has typed the mix, so that it is never impossible.
MixInformation InformationOf(MixInformation::Kind kind, const MixFractions& mix, Single depth, const DiveTemplate& t,
                             bool edited);

}  // namespace tav
