#pragma once

#include <string>
#include <vector>

#include "advice/leaving.h"
#include "cli/json_writer.h"
#include "cli/shown.h"
#include "figures/schedule.h"

/// What leaving a dive at the end of each row takes, beside the row.
namespace tav {

/// "surfacing": {"open": {"time", "gas": [{"mix", "volume"}]}, "loop": {"time"}}, either null where there is no such
/// way: a member of an object that is open.
void WriteSurfacing(JsonWriter& json, const Surfacing& surfacing);

/// The columns of CSV, each with a comma ahead, and what stands in them: minutes, volumes as "EAN50 610.2; Oxygen 120",
/// minutes on the loop. Empty where there is no such way.
std::string SurfacingCsvHeads();
std::string SurfacingCsv(const Surfacing& surfacing);

/// Adds columns to the heads and rows of a schedule. `surfacing` has an element for each row of the profile.
void AddSurfacing(const ScheduleText& schedule, const std::vector<Surfacing>& surfacing, const AdviceWords& words,
                  ShownOutput::Table& table, std::vector<TextColumns::Column>& columns);

}  // namespace tav
