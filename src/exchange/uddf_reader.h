#pragma once

#include "exchange/logged_dive.h"
#include "exchange/uddf_document.h"

namespace tav {

/// All dives of a UDDF file, in its order. A number that is none, is not finite or lies outside what a dive can have, a
/// sample ahead of the one before, and a gas that is not defined are errors. Some programs write what is no SI: an
/// oxygen pressure up to 20 is taken for bar, a share above 1 for per cent, a tank of 1 or more for litres and a tank
/// pressure up to 1,000 for bar, none of which could be meant otherwise.
DiveLog ReadDiveLog(const UddfDocument& document);

}  // namespace tav
