#pragma once

#include <map>
#include <set>

#include "exchange/logged_dive.h"
#include "model/dive_record.h"

namespace tav {

/// The numbers of the dives whose samples are not those that the plan beside them gives: another count, a depth that
/// differs by more than 0.1 m or a time by more than a second, which log books round to. The schedule is computed with
/// each model, for a plan does not tell its own. Of a dive whose dive before is not in the log with its plan only the
/// legs up to the first ascent are held against the samples, since loads that nobody knows made its stops. A dive
/// without samples contradicts nothing.
///
/// `plans` has the plan of each dive of the log, up to some dive, that has one, by its number.
std::set<int> ContradictedPlans(const DiveLog& log, const std::map<int, DiveRecord>& plans);

}  // namespace tav
