#include <ostream>

#include "cli/computed_dive.h"
#include "cli/row_columns.h"
#include "cli/surfacing_output.h"
#include "figures/row_gradients.h"
#include "model/number_text.h"

namespace tav {
namespace {

std::string Header(bool withSurfacing) {
  std::string header = "file,dive,row";
  for (const RowColumn& column : RowColumns()) (header += ",") += column.name;
  header += ",why_compartment,why_half_time,why_load,why_tolerated";
  for (std::size_t i = 1; i <= kCompartments; ++i) header += ",percent_" + std::to_string(i);
  return header + (withSurfacing ? SurfacingCsvHeads() : "") + "\n";
}

std::string WhyCsv(const StopReason& reason) {
  std::string text = "," + std::to_string(reason.compartment);
  for (const Single value : {reason.halfTimeN2, reason.load, reason.tolerated}) text += "," + FormatPlain(value);
  return text;
}

}  // namespace

void WriteDivesCsv(const std::vector<ComputedDive>& dives, std::ostream& out) {
  out << Header(!dives.empty() && !dives.front().surfacing.empty());
  for (const ComputedDive& dive : dives) {
    const std::string place = CsvField(dive.file) + "," + std::to_string(dive.number) + ",";
    auto reason = dive.reasons.begin();
    const ComputedPlan& plan = dive.dive.plan;
    const auto gradients = RowGradients(plan.loadedRows, dive.dive.record.Template, plan.model);
    for (std::size_t i = 0; i < gradients.size(); ++i) {
      const auto number = static_cast<std::int16_t>(i);
      const Waypoint& row = plan.rows.Row(number);
      out << place << i << RowCsv(row, gradients[i]);
      out << (reason != dive.reasons.end() && reason->row == number ? WhyCsv(*reason++) : ",,,,");
      for (const Single value : row.PercentCompartments) out << "," << FormatPlain(value);
      out << (dive.surfacing.empty() ? "" : SurfacingCsv(dive.surfacing[i])) << "\n";
    }
  }
}

}  // namespace tav
