#pragma once

#include <string>

#include "model/number_text.h"
#include "model/profile.h"

namespace tav::test {

/// All that a run writes into a row, in 9 significant digits where 7 could hide a difference.
inline std::string RowText(const Waypoint& row) {
  std::string text = row.GasMixName + " " + std::to_string(row.Status) + " " + std::to_string(row.MixNumber) +
                     (row.DoShow ? " show" : "") + (row.EndUserProfile ? " end" : "");
  for (const Single value :
       {row.Depth, row.SegmentTime, row.RunTime, row.Rate, row.StopDepth, row.StopTime, row.PPO2, row.CNS, row.OTU,
        row.TotalCNS, row.TotalOTU, row.END, row.GasUsed, row.Ceiling, row.GF, row.MaxMValue}) {
    text += " " + FormatFixed(double{value}, 7);
  }
  for (const Single load : row.PercentCompartments) text += " " + FormatFixed(double{load}, 8);
  return text + "\n";
}

inline std::string RowsText(const ClassProfile& profile) {
  std::string text;
  for (std::int16_t i = 0; i <= profile.GetLength(); ++i) text += RowText(profile.Row(i));
  return text;
}

}  // namespace tav::test
