#pragma once

#include <span>
#include <string>
#include <variant>

#include "cli/json_writer.h"
#include "compute/gas_warnings.h"
#include "engine/gradient_factors.h"
#include "engine/model_choice.h"
#include "model/profile.h"

namespace tav {

/// A figure of a row: its name in JSON and CSV, where it stands, and its unit in words.
struct RowColumn {
  const char* name;
  std::variant<Single Waypoint::*, std::int16_t Waypoint::*, bool Waypoint::*, std::string Waypoint::*,
               Single GradientsInUse::*>
      member;
  const char* unit;
};

/// All of them, in the order of the output. The loads of the compartments follow.
std::span<const RowColumn> RowColumns();

/// The figures of a row as members of an object that is open.
void WriteRow(JsonWriter& json, const Waypoint& row, const GradientsInUse& gradients);

/// The rows of a dive with their loads, row 0 included, as the member "rows".
void WriteRows(JsonWriter& json, const ClassProfile& profile, const DiveTemplate& settings, const ModelChoice& model);

/// The values as a list.
void WriteLoads(JsonWriter& json, const char* name, const Compartments& values);

/// The figures of a row as CSV, each with a comma ahead.
std::string RowCsv(const Waypoint& row, const GradientsInUse& gradients);

/// Text in quotes where it needs them, quotes doubled (RFC 4180).
std::string CsvField(const std::string& text);

/// "what": "low_ppo2", "gas", "from", "to", "ppo2": members of an object that is open.
void WriteWarning(JsonWriter& json, const GasWarning& warning);

}  // namespace tav
