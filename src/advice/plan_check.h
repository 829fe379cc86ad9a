#pragma once

#include <vector>

#include "advice/checked_dive.h"
#include "advice/finding.h"
#include "compute/breathed_gas.h"
#include "figures/advice_words.h"
#include "supply/gas_supply.h"

namespace tav {

/// What an instructor would mark in a computed dive, the worst first, those of one severity in the order of the dive.
/// Empty for a dive without rows. `supply` is that of the dive; without one, nothing is said of it. It changes nothing
/// and takes some microseconds.
std::vector<Finding> CheckPlan(const CheckedDive& dive, const AdviceWords& words, const GasSupply& supply = {});

/// The parts of the check. Each adds what it finds.
namespace plan_check {

struct Context {
  const CheckedDive& dive;
  const AdviceWords& words;
  const std::vector<BreathedSegment>& segments;
  std::vector<Finding>& findings;
};

/// `Hypoxic`, `Hyperoxic`, `Setpoint` (oxygen_findings.cpp).
void CheckOxygen(const Context& context);
/// `Narcotic`, `Density`, `CounterDiffusion`, `GasName` (gas_findings.cpp).
void CheckGas(const Context& context);
/// `ChangeHidden`, `ChangeSkipped`, `ChangeUnknown`, `ChangeHyperoxic` (change_findings.cpp).
void CheckChanges(const Context& context);
/// `AboveCeiling` (ceiling_findings.cpp).
void CheckCeilings(const Context& context);
/// `DoesNotDecompress`, `LegLengthened`, `LegAtSurface`, `TwoPressures` (leg_findings.cpp).
void CheckLegs(const Context& context);
/// `CNS`, `OTU` (dose_findings.cpp).
void CheckDoses(const Context& context);

/// `SurfacePressure` (surface_findings.cpp).
void CheckSurface(const Context& context);

/// `IntervalOnLoop`, `LoopChanges` (loop_findings.cpp).
void CheckLoop(const Context& context);

/// `GasShort`, `TurnPassed` (supply_findings.cpp).
void CheckSupply(const Context& context, const GasSupply& supply);

}  // namespace plan_check

}  // namespace tav
