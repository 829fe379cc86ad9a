#pragma once

#include <span>
#include <string>
#include <variant>

#include "cli/json_writer.h"
#include "compute/gas_warnings.h"
#include "model/profile.h"

namespace tav {

/// A figure of a row: its name in JSON and CSV, where it stands, and its unit in words.
struct RowColumn {
  const char* name;
  std::variant<Single Waypoint::*, std::int16_t Waypoint::*, bool Waypoint::*, std::string Waypoint::*> member;
  const char* unit;
};

/// All of them, in the order of the output. The loads of the compartments follow.
std::span<const RowColumn> RowColumns();

/// The figures of a row as members of an object that is open.
void WriteRow(JsonWriter& json, const Waypoint& row);

/// The rows of a dive, row 0 included, as the member "rows".
void WriteRows(JsonWriter& json, const ClassProfile& profile);

/// The values as a list.
void WriteLoads(JsonWriter& json, const char* name, const Compartments& values);

/// The figures of a row as CSV, each with a comma ahead.
std::string RowCsv(const Waypoint& row);

/// Text in quotes where it needs them, quotes doubled (RFC 4180).
std::string CsvField(const std::string& text);

/// "what": "low_ppo2", "gas", "from", "to", "ppo2": members of an object that is open.
void WriteWarning(JsonWriter& json, const GasWarning& warning);

}  // namespace tav
