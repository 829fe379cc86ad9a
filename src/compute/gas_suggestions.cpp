#include "compute/gas_suggestions.h"

#include <algorithm>
#include <cmath>

#include "engine/breathing_gas.h"
#include "engine/zhl16.h"

namespace tav {
namespace {

Single Surface(const DiveTemplate& t) { return t.StartPressure * DepthPerPressure(t.Metric); }

/// The richest oxygen fraction that the PPO2 limit allows; above 1 in shallow water.
Single RichestO2(Single depth, const DiveTemplate& t) {
  const Single limit = t.OpenCircuit ? t.MaxPPO2 : t.Setpoint;
  return RoundDown(limit / ((Surface(t) + depth) / DepthPerPressure(t.Metric)));
}

/// The share of narcotic gas at depth that is as narcotic as air at the END limit.
double NarcoticShare(Single depth, const DiveTemplate& t) { return (Surface(t) + t.MaximalEND) / (Surface(t) + depth); }

Single AtMostOne(Single fraction) { return std::min<double>(fraction, 1.0); }

}  // namespace

Single RoundDown(Single x) {
  const Single hundredths = x * 100;
  return std::floor(hundredths) / 100;
}

std::optional<MixFractions> SuggestNitrox(Single depth, const DiveTemplate& t) {
  const Single o2 = AtMostOne(RichestO2(depth, t));
  const Single n2 = 1 - o2;
  const Single share = NarcoticShare(depth, t) * (t.O2Narcotic ? 1.0 : zhl16::kNitrogenOfAir);
  const bool possible = t.O2Narcotic ? share >= 1 : n2 <= share;
  if (!possible) return std::nullopt;
  return MixFractions{o2, n2, 0};
}

std::optional<MixFractions> SuggestHeliox(Single depth, const DiveTemplate& t) {
  const Single o2 = AtMostOne(RichestO2(depth, t));
  const Single he = 1 - o2;
  if (EquivalentDepthOC(t.Metric, depth, 0, he * 100, t.O2Narcotic, t) > t.MaximalEND) return std::nullopt;
  return MixFractions{o2, 0, he};
}

MixFractions SuggestTrimix(Single depth, const DiveTemplate& t) {
  MixFractions mix;
  mix.O2 = RichestO2(depth, t);
  if (t.O2Narcotic) {
    const Single share = NarcoticShare(depth, t);
    mix.N2 = RoundDown(1 - mix.O2 - (1 - share));
  } else {
    mix.N2 = RoundDown(NarcoticShare(depth, t) * zhl16::kNitrogenOfAir);
    mix.O2 = AtMostOne(mix.O2);
  }
  if (1 - mix.O2 < mix.N2) {
    mix.N2 = 1 - mix.O2;
    mix.He = 0;
  } else {
    mix.He = 1 - mix.N2 - mix.O2;
  }
  mix.He = std::max<double>(mix.He, 0.0);
  mix.O2 = AtMostOne(mix.O2);
  mix.N2 = std::max<double>(mix.N2, 0.0);
  return mix;
}

}  // namespace tav
