#pragma once

#include <set>

#include "exchange/logged_dive.h"
#include "exchange/uddf_document.h"

namespace tav {

/// All dives of a UDDF file, in its order. A number that is none, is not finite or lies outside what a dive can have, a
/// sample ahead of the one before, a gas that is not defined, or twice in two ways, and shares that are no whole are
/// errors. Some programs write what is no SI: the pressure of a surface or a setpoint is taken for the unit in which it
/// can be one, which is told; a share above 1 for per cent, a tank of 1 or more for litres and a tank pressure up to
/// 1,000 for bar, none of which could be meant otherwise.
///
/// Of a dive with a plan only its plan and the depths and times of its samples are read, as they are: a plan may be
/// what no logged dive is. The plans of the dives of these numbers are passed over: they are logged dives.
DiveLog ReadDiveLog(const UddfDocument& document, const std::set<int>& withoutPlan = {});

}  // namespace tav
