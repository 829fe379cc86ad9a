#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/cylinder.h"
#include "model/dive_limits.h"
#include "model/plan_texts.h"
#include "model/single.h"
#include "model/supply_choice.h"

namespace tav {

/// One breathing gas of a template. Its index in `Blends` is the mix number of legs and rows.
struct GasMix {
  std::string Name;
  Single O2;  ///< percent
  Single N2;  ///< percent
  Single He;  ///< percent
};

/// One band of a rate table: from `Depth` downward, until the next deeper entry, the diver moves at `Rate`.
struct RateEntry {
  Single Rate;   ///< depth units per minute, above 0
  Single Depth;  ///< depth units
};

/// A planned gas switch of the ascent: at `Depth` and above, the blend named `Name`.
struct GasChange {
  std::string Name;
  Single O2;  ///< percent, copied from the blend of that name; zeros when there is none
  Single N2;
  Single He;
  Single Depth;  ///< depth units
};

/// All settings of a dive. Numbers are in the unit system of `Metric`: metres, bar, litres; or feet, atmospheres,
/// cubic feet. Gradient factors are fractions. The record has no range checks of its own: TemplateFaults tells
/// whether it can be planned on.
struct DiveTemplate {
  Single StartAltitude;           ///< altitude of the dive, length units
  Single StartPressure;           ///< surface pressure there; the plan is computed on it
  std::int16_t TimeToHeight = 0;  ///< minutes of travel from sea level, used when not `AdeptedToHeight`
  bool AdeptedToHeight = false;   ///< the diver is saturated at `StartPressure`
  Single EndAltitude;             ///< altitude that the ascent returns to
  Single EndPressure;             ///< surface pressure there; ceilings and stops are computed on it
  bool TemplateChanged = false;   ///< edited since it was loaded; not stored
  std::string TemplateFolder;     ///< folder of the template file with its trailing separator; not stored
  std::string Templatename;       ///< name of the template file
  bool Metric = false;
  Single StepSize;                        ///< distance between stops
  Single LastStop;                        ///< depth of the shallowest stop
  std::vector<GasChange> ChangeGasMixes;  ///< in the order in which they are tried
  bool OpenCircuit = false;               ///< false: constant-PPO2 rebreather
  Single Setpoint;                        ///< PPO2 of the rebreather on the dive
  Single DecoSetpoint;                    ///< PPO2 of the rebreather at stops
  bool OCDeco = false;                    ///< a rebreather dive does its stops on open circuit
  bool KeepsDiluent = false;              ///< `ChangeGasMixes` are for open circuit, not diluents of the loop
  bool IntervalOnAir = false;             ///< a rebreather's surface interval is spent on air, not on the loop
  bool WasOnLoop = false;                 ///< an open-circuit plan keeps these two for the way back to the loop
  Single RMV;                             ///< volume breathed per minute at surface pressure, on the dive
  Single DecoRMV;                         ///< the same during decompression
  Single MinPPO2;                         ///< low limit of the PPO2 warning
  Single MaxPPO2;                         ///< high limit of the PPO2 warning on the dive
  Single DecoPPO2;                        ///< high limit of the PPO2 warning at stops
  Single MaximalEND;                      ///< limit of the END warning, depth units
  bool O2Narcotic = false;                ///< oxygen counts as narcotic in the END
  bool AutoDecoGas = false;               ///< the template dialog keeps the depths of the gas switches
  bool CeilingOverride = false;           ///< kept and written; nothing reads it
  bool UseGF = false;
  bool DepthAdjust = false;             ///< conservatism by added depth
  Single GFHigh;                        ///< gradient factor at the surface
  Single GFLow;                         ///< gradient factor at the first stop
  std::vector<RateEntry> AscendRates;   ///< in rising order of `Depth`, the first at 0
  std::vector<RateEntry> DescendRates;  ///< in rising order of `Depth`, the first at 0
  std::vector<GasMix> Blends;           ///< element 0 is always "Air"
  bool PPO2Low = false;                 ///< the low-PPO2 warning is on
  bool PPO2High = false;                ///< the high-PPO2 warning is on
  bool MaxEnd = false;                  ///< the END warning is on
  std::vector<Cylinder> Cylinders;      ///< what the diver carries; none when not told
  std::optional<SupplyChoice> Team;     ///< how gas for the worst is reckoned; as usual when not told
  std::optional<int> KeptTeam;        ///< a team of that number came from the other circuit and goes back there with it
  std::optional<DiveLimits> Limits;   ///< of margins and the longest stay; as usual when not told
  PlanTexts Texts;                    ///< of the first dive of a series: what the diver says of the plan
  std::vector<std::string> Comments;  ///< lines "# Name=value" of names that nothing here knows, kept as they stood
};

/// How the gas for the way up is reckoned on a plan: as it tells, else as usual on its circuit.
inline SupplyChoice SupplyChoiceOf(const DiveTemplate& diveTemplate) {
  return diveTemplate.Team.value_or(SupplyChoice::Usual(diveTemplate.OpenCircuit));
}

/// What the diver of a plan will not go beyond: as it tells, else as usual.
inline DiveLimits LimitsOf(const DiveTemplate& diveTemplate) {
  return diveTemplate.Limits.value_or(DiveLimits::Usual());
}

/// The gas that stands first in every list: "Air", 21 / 79 / 0.
GasMix AirMix();

/// Copies every field; an empty list is copied as an empty one.
void CopyDiveTemplate(const DiveTemplate& source, DiveTemplate& destination);

/// How a new rebreather plan differs from one in a file that says nothing of it: it keeps its diluent, and its surface
/// interval is spent on air. It changes nothing for open circuit.
void SetUpNewPlan(DiveTemplate& diveTemplate);

/// The plan goes over to open circuit or the loop, and its team with it (ForCircuit). What holds on the loop stays;
/// to the other circuit and back changes nothing.
void SetCircuit(DiveTemplate& diveTemplate, bool openCircuit);

/// Index of the first blend with exactly that name, if there is one.
std::optional<std::int16_t> FindBlend(std::string_view name, const DiveTemplate& diveTemplate);

/// Index of the first blend with exactly that name, or 0, which is Air.
std::int16_t FindBlendIndex(std::string_view name, const DiveTemplate& diveTemplate);

/// The reason why a name can't be given to a blend: it is empty, or holds a character that the file format uses as a
/// separator (":" and ","), a line break or blanks at its ends. Empty for a good name.
std::string BlendNameFault(std::string_view name);

/// Fills O2, N2 and He of each gas change from the blend of its name, each rounded to 7 digits; of two blends with one
/// name the last counts. A change to a name without a blend keeps what it has; these names are returned.
std::vector<std::string> ResolveGasChanges(DiveTemplate& diveTemplate);

/// Depth units per unit of pressure: 10 m per bar, 33 ft per atmosphere.
inline double DepthPerPressure(bool Metric) { return Metric ? 10.0 : 33.0; }

}  // namespace tav
