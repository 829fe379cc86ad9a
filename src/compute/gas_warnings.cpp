#include "compute/gas_warnings.h"

#include "engine/breathing_gas.h"
#include "model/numbers.h"

namespace tav {
namespace {

using Kind = GasWarning::Kind;

/// Of one row.
struct Judgement {
  Single depth;
  Single ppo2;
};

/// `MinPPO2` is meant for the sea: air is no worse than what the diver breathes on the shore of a mountain lake.
bool IsTooPoor(const BreathedSegment& segment, const DiveTemplate& settings) {
  constexpr double kAirO2 = 21;
  const bool air = segment.openCircuit && segment.end->GasMixO2 >= kAirO2 && settings.MinPPO2 <= kAirO2 / 100;
  return !air && RoundSingle(segment.LeastPPO2At(segment.Shallower()), 2) < settings.MinPPO2;
}

/// The rows of the plan tell it at adjusted depths, those of the ascent at true ones.
double HighestPPO2(const BreathedSegment& segment, const BreathedDive& dive) {
  const bool ofPlan = segment.row <= dive.lastUserRow;
  return segment.PPO2At(ofPlan ? AdjustedDepth(segment.Deeper(), dive.settings) : segment.Deeper());
}

std::optional<Judgement> Judge(Kind kind, const BreathedSegment& segment, const BreathedDive& dive,
                               const JudgedRows& judged) {
  constexpr double kRounding = 0.02;  // bar: oxygen at 6 m has 1.61
  const Single low = segment.LeastPPO2At(segment.Shallower());
  const Single high = HighestPPO2(segment, dive);
  switch (kind) {
    case Kind::LowPPO2:
      if (IsTooPoor(segment, dive.settings)) return Judgement{segment.Shallower(), low};
      break;
    case Kind::HighPPO2:
      if (RoundSingle(RoundSingle(high, 2) - segment.ppo2Limit, 2) > RoundSingle(kRounding, 2)) {
        return Judgement{segment.Deeper(), high};
      }
      break;
    case Kind::LostGas:
      if (segment.openCircuit && segment.row >= judged.lostFrom && segment.end->GasMixName == judged.lost) {
        return Judgement{segment.Deeper(), high};
      }
      break;
  }
  return std::nullopt;
}

void Extend(GasWarning& warning, const Judgement& found) {
  const bool low = warning.kind == Kind::LowPPO2;
  if (warning.kind == Kind::HighPPO2) warning.from = MaxSingle(warning.from, found.depth);
  warning.to = low ? MinSingle(warning.to, found.depth) : found.depth;
  warning.ppo2 = low ? MinSingle(warning.ppo2, found.ppo2) : MaxSingle(warning.ppo2, found.ppo2);
}

}  // namespace

const char* IdOf(GasWarning::Kind kind) {
  switch (kind) {
    case Kind::LowPPO2:
      return "low_ppo2";
    case Kind::HighPPO2:
      return "high_ppo2";
    case Kind::LostGas:
      return "lost_gas";
  }
  return "";
}

std::vector<GasWarning> GasWarnings(const BreathedDive& dive, const JudgedRows& judged) {
  std::vector<GasWarning> warnings;
  const std::vector<BreathedSegment> segments = BreathedSegments(dive);
  for (const Kind kind : {Kind::LowPPO2, Kind::HighPPO2, Kind::LostGas}) {
    bool open = false;  // the row before has it, too
    for (const BreathedSegment& segment : segments) {
      const bool isJudged = judged.descents || !(segment.end->Rate > 0);
      const auto found = isJudged ? Judge(kind, segment, dive, judged) : std::nullopt;
      if (found && open && warnings.back().gas == segment.end->GasMixName) {
        GasWarning& warning = warnings.back();
        warning.lastRow = segment.row;
        Extend(warning, *found);
      } else if (found) {
        warnings.push_back(
            {kind, segment.row, segment.row, found->depth, found->depth, found->ppo2, segment.end->GasMixName});
      }
      open = found.has_value();
    }
  }
  return warnings;
}

std::vector<GasWarning> GasWarnings(const TableDives& family, const TableDive& dive) {
  const std::int16_t lastOfPlan = LastUserRow(dive.profile);
  return GasWarnings({dive.profile, family.diveTemplate, lastOfPlan, dive.openFrom},
                     {family.descentCounts, family.lost, static_cast<std::int16_t>(lastOfPlan + 1)});
}

}  // namespace tav
