#pragma once

#include <string>
#include <vector>

namespace tav {

/// The words of --circuit.
constexpr const char* kOpenCircuit = "open";
constexpr const char* kClosedCircuit = "closed";

/// Changes of a plan as they are typed, in the order in which they are made. Legs have the numbers of their actions
/// before any change.
struct PlanEdits {
  std::string dive;     ///< the one that is edited, from 1; the last for an empty text
  std::string addDive;  ///< surface interval ahead of a new last dive, which is edited then
  bool removeDive = false;
  std::string interval;
  std::string circuit;                    ///< kOpenCircuit or kClosedCircuit
  std::vector<std::string> settings;      ///< lines of a template block; "# Name=" takes these lines away
  std::string altitude;                   ///< with the surface pressure that it usually has
  std::string endAltitude;                ///< the same of that which the ascent returns to
  std::vector<std::string> gases;         ///< NAME, NAME:O2/HE
  std::vector<std::string> renamedGases;  ///< OLD=NEW
  std::vector<std::string> removedGases;
  std::vector<std::string> changes;  ///< DEPTH:GAS; all of them, where any is told
  bool noChanges = false;
  std::vector<std::string> endedChanges;  ///< GAS
  std::vector<std::string> depths;        ///< GAS=DEPTH: from where the gas is breathed on the way up
  std::vector<std::string> cylinders;     ///< as `new` takes them; all of them, where any is told
  bool noCylinders = false;
  std::vector<std::string> cylinderParts;     ///< N:PART=VALUE, N as before the command
  std::vector<std::string> removedCylinders;  ///< N
  std::vector<std::string> addedCylinders;    ///< GAS
  std::vector<std::string> removedLegs;       ///< N, also of an ascent that is not the last action
  std::vector<std::string> legs;              ///< N=DEPTH:TIME[@GAS]; without a gas the leg keeps its own
  std::vector<std::string> insertedLegs;  ///< N=DEPTH:TIME[@GAS], ahead of leg N; one more than the last for the end
  std::vector<std::string> addedLegs;     ///< DEPTH:TIME[@GAS]; without a gas that of the leg before
  std::vector<std::string> movedLegs;     ///< N=M: to the place of leg or ascent M
};

}  // namespace tav
