#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tav {

enum class Severity { Danger, Caution, Note };

/// What the plan check looks for.
enum class Rule {
  Hypoxic,            ///< too little oxygen
  Hyperoxic,          ///< too much
  AboveCeiling,       ///< a leg of the user's leads above the ceiling, of the model or of the gradient factors
  DoesNotDecompress,  ///< a stop never clears
  Narcotic,
  CNS,
  OTU,
  Density,           ///< the gas is heavy to breathe
  CounterDiffusion,  ///< nitrogen comes where helium goes
  ChangeHidden,      ///< a gas change that an earlier entry of the list keeps from ever being made
  ChangeUnknown,     ///< a gas change to a name that no gas has
  ChangeHyperoxic,   ///< a gas change that is too deep for the gas
  Setpoint,          ///< a setpoint that the depth can't give
  LegLengthened,     ///< the move takes longer than the leg
  LegAtSurface,
  GasShort,         ///< the cylinders don't hold what is needed
  ChangeSkipped,    ///< a gas change between two depths that the ascent comes to, or above its last stop
  TwoPressures,     ///< the dive starts at another surface pressure than it ends at
  TurnPassed,       ///< the plan goes on past the pressure to turn at
  SurfacePressure,  ///< a surface pressure that is not that of its altitude
  IntervalOnLoop,   ///< a surface interval that is reckoned on the loop
  LoopChanges,      ///< the loop takes the gases of the change list as diluents
  GasName,          ///< the name of a gas tells another content
};

/// "hypoxic", "hyperoxic", ...: the name of a rule in files for scripts. It never changes.
std::string_view IdOf(Rule rule);
/// "danger", "caution", "note"
std::string_view IdOf(Severity severity);

/// One thing that an instructor would mark in a plan.
struct Finding {
  Rule rule = Rule::Hypoxic;
  Severity severity = Severity::Note;
  std::int16_t firstRow = 0;  ///< the rows that it concerns; 0 to 0 when it is about the plan as a whole
  std::int16_t lastRow = 0;
  std::string text;  ///< what, where, by how much, and what mends it
  double by = 0;     ///< of Hypoxic, Hyperoxic, AboveCeiling: how far beyond the limit, bar, atmospheres or depth units
  friend bool operator==(const Finding&, const Finding&) = default;
};

}  // namespace tav
