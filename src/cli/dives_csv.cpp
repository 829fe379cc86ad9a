#include <algorithm>

#include "cli/computed_dive.h"
#include "model/number_text.h"

namespace tav {
namespace {

/// Text in quotes, quotes doubled (RFC 4180).
std::string Field(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return "\"" + ReplaceAll(text, "\"", "\"\"") + "\"";
}

std::string Header() {
  std::string header =
      "file,dive,row,depth,segment_time,run_time,rate,status,mix,mix_number,o2,he,stop_depth,stop_time,ppo2,cns,otu,"
      "total_cns,total_otu,end,gas_used,ceiling,gf,max_m_value,model_control,do_show,end_user_profile,why_compartment,"
      "why_half_time,"
      "why_load,why_tolerated";
  for (std::size_t i = 1; i <= kCompartments; ++i) header += ",percent_" + std::to_string(i);
  return header + "\n";
}

std::string Line(const ComputedDive& dive, std::int16_t index) {
  const Waypoint& row = dive.rows->Row(index);
  std::string line = Field(dive.file) + "," + std::to_string(dive.number) + "," + std::to_string(index);
  const auto add = [&](const std::string& value) { (line += ",") += value; };
  for (const Single value : {row.Depth, row.SegmentTime, row.RunTime, row.Rate}) add(FormatPlain(value));
  add(std::to_string(row.Status));
  add(Field(row.GasMixName));
  add(std::to_string(row.MixNumber));
  for (const Single value : {row.GasMixO2, row.GasMixHe, row.StopDepth, row.StopTime, row.PPO2, row.CNS, row.OTU,
                             row.TotalCNS, row.TotalOTU, row.END, row.GasUsed, row.Ceiling, row.GF, row.MaxMValue}) {
    add(FormatPlain(value));
  }
  add(std::to_string(row.ModelControl));
  add(row.DoShow ? "1" : "0");
  add(row.EndUserProfile ? "1" : "0");
  const auto reason = std::ranges::find(dive.reasons, index, &StopReason::row);
  if (reason == dive.reasons.end()) {
    line += ",,,,";
  } else {
    add(std::to_string(reason->compartment));
    for (const Single value : {reason->halfTimeN2, reason->load, reason->tolerated}) add(FormatPlain(value));
  }
  for (const Single value : row.PercentCompartments) add(FormatPlain(value));
  return line + "\n";
}

}  // namespace

std::string DivesCsv(const std::vector<ComputedDive>& dives) {
  std::string text = Header();
  for (const ComputedDive& dive : dives) {
    for (int i = 0; i <= dive.rows->GetLength(); ++i) text += Line(dive, static_cast<std::int16_t>(i));
  }
  return text;
}

}  // namespace tav
