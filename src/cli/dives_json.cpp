#include <nlohmann/json.hpp>

#include "cli/computed_dive.h"
#include "model/number_text.h"

namespace tav {
namespace {

using Json = nlohmann::ordered_json;

/// The 7 significant digits of a 32-bit value, not the 17 of its promotion.
double Digits(Single value) { return ParseLenient(FormatPlain(value)); }

Json Array(const Compartments& values) {
  Json array = Json::array();
  for (const Single value : values) array.push_back(Digits(value));
  return array;
}

Json RowJson(const Waypoint& row) {
  return Json{{"depth", Digits(row.Depth)},
              {"segment_time", Digits(row.SegmentTime)},
              {"run_time", Digits(row.RunTime)},
              {"rate", Digits(row.Rate)},
              {"status", row.Status},
              {"mix", row.GasMixName},
              {"mix_number", row.MixNumber},
              {"o2", Digits(row.GasMixO2)},
              {"he", Digits(row.GasMixHe)},
              {"stop_depth", Digits(row.StopDepth)},
              {"stop_time", Digits(row.StopTime)},
              {"ppo2", Digits(row.PPO2)},
              {"cns", Digits(row.CNS)},
              {"otu", Digits(row.OTU)},
              {"total_cns", Digits(row.TotalCNS)},
              {"total_otu", Digits(row.TotalOTU)},
              {"end", Digits(row.END)},
              {"gas_used", Digits(row.GasUsed)},
              {"ceiling", Digits(row.Ceiling)},
              {"gf", Digits(row.GF)},
              {"max_m_value", Digits(row.MaxMValue)},
              {"model_control", row.ModelControl},
              {"do_show", row.DoShow},
              {"end_user_profile", row.EndUserProfile},
              {"percent_compartments", Array(row.PercentCompartments)}};
}

Json DiveJson(const ComputedDive& dive) {
  const DocumentState& document = *dive.document;
  Json json{{"template", document.Template.Templatename},
            {"metric", document.Template.Metric},
            {"surface_interval", Digits(document.SurfaceInterval)},
            {"total_cns", Digits(document.TotalCNS)},
            {"total_otu", Digits(document.TotalOTU)},
            {"n2_compartments", Array(document.N2Compartments)},
            {"he_compartments", Array(document.HeCompartments)},
            {"decompresses", document.Decompresses},
            {"rows", Json::array()}};
  for (int i = 0; i <= dive.rows->GetLength(); ++i) {
    json["rows"].push_back(RowJson(dive.rows->Row(static_cast<std::int16_t>(i))));
  }
  return json;
}

}  // namespace

std::string DivesJson(const std::vector<ComputedDive>& dives) {
  Json json{{"dives", Json::array()}};
  for (const ComputedDive& dive : dives) json["dives"].push_back(DiveJson(dive));
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace tav
