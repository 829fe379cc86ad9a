#include "figures/dive_figures.h"

#include <algorithm>

#include "figures/model_name.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {

std::vector<GasTotal> GasTotals(const ClassProfile& profile) {
  std::vector<GasTotal> totals;
  for (int i = 1; i <= profile.GetLength(); ++i) {
    const Waypoint& row = profile.Row(static_cast<std::int16_t>(i));
    auto gas = std::ranges::find(totals, row.GasMixName, &GasTotal::Name);
    if (gas == totals.end()) gas = totals.insert(gas, {row.GasMixName, row.GasMixO2, row.GasMixHe, 0});
    gas->total += row.GasUsed;
  }
  return totals;
}

std::vector<GasTotal> GasTotals(const ClassProfile& profile, const DiveTemplate& diveTemplate) {
  const std::vector<GasTotal> breathed = GasTotals(profile);
  std::vector<GasTotal> totals;
  for (const GasMix& blend : diveTemplate.Blends) {
    const auto gas = std::ranges::find(breathed, blend.Name, &GasTotal::Name);
    if (gas != breathed.end() && gas->total != 0) totals.push_back({blend.Name, blend.O2, blend.He, gas->total});
  }
  return totals;
}

DiveFigures FiguresOf(const ClassProfile& profile) {
  constexpr double kAboveAll = 50000;
  DiveFigures figures;
  figures.lowestPPO2Below = kAboveAll;
  for (std::int16_t i = 0; i <= profile.GetLength(); ++i) {
    const Waypoint& row = profile.Row(i);
    figures.CNS += row.CNS;
    figures.OTU += row.OTU;
    figures.highestPPO2 = MaxSingle(figures.highestPPO2, row.PPO2);
    figures.highestEND = MaxSingle(figures.highestEND, row.END);
    figures.deepest = MaxSingle(figures.deepest, row.Depth);
    if (i > 0) figures.lowestPPO2Below = MinSingle(figures.lowestPPO2Below, row.PPO2);
    if (IsStop(row)) figures.stopTime += row.StopTime;
  }
  figures.carriedCNS = profile.Row(0).CNS;
  figures.carriedOTU = profile.Row(0).OTU;
  figures.lowestPPO2 = MinSingle(figures.lowestPPO2Below, profile.Row(0).PPO2);
  figures.runTime = profile.Row(profile.GetLength()).RunTime;
  return figures;
}

bool LacksAscent(const ClassProfile& profile) {
  const std::int16_t last = profile.GetLength();
  return last > 0 && LastUserRow(profile) == last && profile.getDepth(last) > 0;
}

std::optional<int> NoticeOf(const ClassProfile& profile, bool decompresses) {
  // Without an ascent, what a former one did says nothing.
  if (LacksAscent(profile)) return Text::LacksAscent;
  if (!decompresses) return Text::DoesNotDecompress;
  return std::nullopt;
}

std::optional<int> StatusTextOf(const Waypoint& row, const StatusTexts& texts) {
  constexpr std::int16_t kLast = 5;
  if (row.Status >= 0 && row.Status <= kLast) return texts.first + row.Status;
  if (!row.DoShow) return texts.hidden;
  if (row.Rate < 0) return texts.ascent;
  if (row.Rate > 0) return texts.descent;
  return std::nullopt;
}

std::optional<std::string> ModelOfRow(const Waypoint& row, const ModelChoice& model) {
  if (row.ModelControl == ModelMarker::kVPM) return "VPM";
  if (row.ModelControl == ModelMarker::kZHL16) return TableName(model);
  return std::nullopt;
}

}  // namespace tav
