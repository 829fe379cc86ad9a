#include "cli/row_columns.h"

#include "figures/row_gradients.h"
#include "model/number_text.h"

namespace tav {
namespace {

constexpr RowColumn kColumns[] = {
    {"depth", &Waypoint::Depth, "depth units, at the end of the segment"},
    {"segment_time", &Waypoint::SegmentTime, "minutes"},
    {"run_time", &Waypoint::RunTime, "minutes, at the end of the segment"},
    {"rate", &Waypoint::Rate, "depth units per minute, negative going up"},
    {"status", &Waypoint::Status,
     "1 a leg, 2 or 3 the limit of a band of rates on the way down or up, 4 a stop, -1 the end of an ascent"},
    {"mix", &Waypoint::GasMixName, "name of the gas"},
    {"mix_number", &Waypoint::MixNumber, "its place in the template, from 0"},
    {"o2", &Waypoint::GasMixO2, "per cent"},
    {"he", &Waypoint::GasMixHe, "per cent"},
    {"stop_depth", &Waypoint::StopDepth, "depth units, of stops"},
    {"stop_time", &Waypoint::StopTime, "minutes, of stops"},
    {"ppo2", &Waypoint::PPO2, "bar or atmospheres, at the end of the segment"},
    {"cns", &Waypoint::CNS, "a fraction, of the segment"},
    {"otu", &Waypoint::OTU, "of the segment"},
    {"total_cns", &Waypoint::TotalCNS, "a fraction, so far"},
    {"total_otu", &Waypoint::TotalOTU, "so far"},
    {"end", &Waypoint::END, "depth units, the equivalent narcotic depth"},
    {"gas_used", &Waypoint::GasUsed, "litres or cubic feet at the surface"},
    {"ceiling", &Waypoint::Ceiling, "depth units"},
    {"gf", &Waypoint::GF, "a fraction, the gradient factor in force"},
    {"max_m_value", &Waypoint::MaxMValue, "the highest load, a fraction of the M-value at that depth"},
    {"model_control", &Waypoint::ModelControl, "1 where VPM set the ceiling, 2 where ZH-L16 did, 0 where none did"},
    {"do_show", &Waypoint::DoShow, "of interest to a reader"},
    {"end_user_profile", &Waypoint::EndUserProfile, "the last row ahead of the computed ascent"},
    {"gf99", &GradientsInUse::gf99,
     "a fraction, of the 16 compartments the largest (load - ambient) / (M-value - ambient) at that depth"},
    {"surface_gf", &GradientsInUse::surfaceGF, "the same fraction at the surface of the end of the dive"},
};

/// Hands the figure of a row to `take`.
void Visit(const RowColumn& column, const Waypoint& row, const GradientsInUse& gradients, const auto& take) {
  std::visit(
      [&](auto member) {
        if constexpr (std::is_same_v<decltype(member), Single GradientsInUse::*>) {
          take(gradients.*member);
        } else {
          take(row.*member);
        }
      },
      column.member);
}

std::string Csv(Single value) { return FormatPlain(value); }
std::string Csv(std::int16_t value) { return std::to_string(value); }
std::string Csv(bool value) { return value ? "1" : "0"; }
std::string Csv(const std::string& value) { return CsvField(value); }

}  // namespace

std::span<const RowColumn> RowColumns() { return kColumns; }

void WriteLoads(JsonWriter& json, const char* name, const Compartments& values) {
  json.List(name, [&] {
    for (const Single value : values) json.Value(value);
  });
}

void WriteRow(JsonWriter& json, const Waypoint& row, const GradientsInUse& gradients) {
  for (const RowColumn& column : kColumns) {
    Visit(column, row, gradients, [&](const auto& value) { json.Member(column.name, value); });
  }
  WriteLoads(json, "percent_compartments", row.PercentCompartments);
}

void WriteRows(JsonWriter& json, const ClassProfile& profile, const DiveTemplate& settings, const ModelChoice& model) {
  json.List("rows", [&] {
    std::int16_t row = 0;
    for (const GradientsInUse& gradients : RowGradients(profile, settings, model)) {
      json.Object([&] { WriteRow(json, profile.Row(row++), gradients); });
    }
  });
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return "\"" + ReplaceAll(text, "\"", "\"\"") + "\"";
}

std::string RowCsv(const Waypoint& row, const GradientsInUse& gradients) {
  std::string line;
  for (const RowColumn& column : kColumns) {
    Visit(column, row, gradients, [&](const auto& value) { line += "," + Csv(value); });
  }
  return line;
}

void WriteWarning(JsonWriter& json, const GasWarning& warning) {
  json.Member("what", IdOf(warning.kind));
  json.Member("gas", warning.gas);
  json.Member("from", warning.from);
  json.Member("to", warning.to);
  json.Member("ppo2", warning.ppo2);
}

}  // namespace tav
