#include "dialogs/mix_information.h"

#include <algorithm>
#include <cmath>

#include "engine/breathing_gas.h"
#include "engine/zhl16.h"
#include "model/number_text.h"
#include "model/numbers.h"

namespace tav {
namespace {

/// Metric shares are compared as they are shown, so that the last bit of a rounded share decides nothing.
bool IsAbove(Single a, Single b, bool Metric) {
  return Metric ? ParseLenient(FormatFixed(a, 3)) > ParseLenient(FormatFixed(b, 3)) : a > b;
}

}  // namespace

GasFigures FiguresAt(Single depth, const GasMix& mix, const DiveTemplate& t) {
  const Single oxygen = mix.O2 / 100;
  const Single limit = t.OpenCircuit ? t.MaxPPO2 : t.Setpoint;
  GasFigures figures;
  figures.PPO2 = PPO2AtDepth(depth, t.StartPressure, oxygen, t.Metric);
  const Single pure = PPO2AtDepth(depth, t.StartPressure, 1, t.Metric);
  figures.breathedPPO2 = t.OpenCircuit ? figures.PPO2 : std::min(t.Setpoint, pure);
  figures.END = EquivalentDepthOC(t.Metric, depth, mix.N2, mix.He, t.O2Narcotic, t);
  if (oxygen > 0) {
    const Single tenths = 10 * DepthPerPressure(t.Metric) * (limit / oxygen - t.StartPressure);
    // 1199.9999, for 1.3 bar of 10 %, is 1200.
    figures.MOD = std::max(std::floor(RoundSingle(tenths, 2)), 0.0) / 10;
  }
  const Single shown = RoundSingle(figures.PPO2, 2);
  figures.ppo2TooHigh = shown > RoundSingle(limit, 2);
  figures.ppo2TooLow = t.OpenCircuit && shown < RoundSingle(t.MinPPO2, 2);
  figures.endTooDeep = RoundSingle(figures.END, 1) > RoundSingle(t.MaximalEND, 1);
  return figures;
}

MixInformation InformationOf(MixInformation::Kind kind, const MixFractions& mix, Single depth, const DiveTemplate& t,
                             bool edited) {
  const double k = DepthPerPressure(t.Metric);
  const Single surface = t.StartPressure * k;
  const Single ambient = surface + depth;
  MixInformation told;
  told.PPO2 = ambient * mix.O2 / k;
  const Single byNitrogen = ambient * (mix.N2 / zhl16::kNitrogenOfAir) - surface;
  const Single byBoth = ambient * (mix.O2 + mix.N2) - surface;
  switch (kind) {
    case MixInformation::Kind::Nitrox:
      if (t.O2Narcotic) {
        told.END = edited ? depth : byBoth;
        told.possible = edited || (!IsAbove(1 - mix.O2, mix.N2, true) && told.END - 1 <= t.MaximalEND);
      } else {
        told.END = byNitrogen;
        told.possible = edited || !IsAbove(1 - mix.O2, mix.N2, t.Metric);
      }
      break;
    case MixInformation::Kind::Trimix:
      told.END = t.O2Narcotic ? byBoth : byNitrogen;
      break;
    case MixInformation::Kind::Heliox:
      told.narcotic = t.O2Narcotic;
      told.END = ambient * mix.O2 - surface;
      break;
  }
  told.END = std::max<double>(told.END, 0.0);
  told.endTooDeep = told.narcotic && told.END > t.MaximalEND;
  told.ppo2TooHigh = told.PPO2 > t.MaxPPO2;
  return told;
}

}  // namespace tav
