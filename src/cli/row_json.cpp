#include "cli/row_json.h"

#include "model/number_text.h"

namespace tav {

double Digits(Single value) { return ParseLenient(FormatPlain(value)); }

Json ArrayJson(const Compartments& values) {
  Json array = Json::array();
  for (const Single value : values) array.push_back(Digits(value));
  return array;
}

namespace {

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
              {"percent_compartments", ArrayJson(row.PercentCompartments)}};
}

}  // namespace

Json RowsJson(const ClassProfile& profile) {
  Json rows = Json::array();
  for (int i = 0; i <= profile.GetLength(); ++i) rows.push_back(RowJson(profile.Row(static_cast<std::int16_t>(i))));
  return rows;
}

std::string Written(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json WarningJson(const GasWarning& warning) {
  return {{"what", IdOf(warning.kind)},
          {"gas", warning.gas},
          {"from", Digits(warning.from)},
          {"to", Digits(warning.to)},
          {"ppo2", Digits(warning.ppo2)}};
}

}  // namespace tav
