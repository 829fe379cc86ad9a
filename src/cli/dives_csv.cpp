#include <ostream>

#include "cli/computed_dive.h"
#include "cli/row_columns.h"
#include "model/number_text.h"

namespace tav {
namespace {

std::string Header() {
  std::string header = "file,dive,row";
  for (const RowColumn& column : RowColumns()) (header += ",") += column.name;
  header += ",why_compartment,why_half_time,why_load,why_tolerated";
  for (std::size_t i = 1; i <= kCompartments; ++i) header += ",percent_" + std::to_string(i);
  return header + "\n";
}

std::string WhyCsv(const StopReason& reason) {
  std::string text = "," + std::to_string(reason.compartment);
  for (const Single value : {reason.halfTimeN2, reason.load, reason.tolerated}) text += "," + FormatPlain(value);
  return text;
}

}  // namespace

void WriteDivesCsv(const std::vector<ComputedDive>& dives, std::ostream& out) {
  out << Header();
  for (const ComputedDive& dive : dives) {
    const std::string place = CsvField(dive.file) + "," + std::to_string(dive.number) + ",";
    auto reason = dive.reasons.begin();
    for (int i = 0; i <= dive.dive.plan.rows.GetLength(); ++i) {
      const Waypoint& row = dive.dive.plan.rows.Row(static_cast<std::int16_t>(i));
      out << place << i << RowCsv(row);
      out << (reason != dive.reasons.end() && reason->row == i ? WhyCsv(*reason++) : ",,,,");
      for (const Single value : row.PercentCompartments) out << "," << FormatPlain(value);
      out << "\n";
    }
  }
}

}  // namespace tav
