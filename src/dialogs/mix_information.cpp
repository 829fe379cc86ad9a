#include "dialogs/mix_information.h"

#include <algorithm>

#include "engine/zhl16.h"
#include "model/number_text.h"

namespace tav {
namespace {

/// Metric shares are compared as they are shown, so that the last bit of a rounded share decides nothing.
bool IsAbove(Single a, Single b, bool Metric) {
  return Metric ? ParseLenient(FormatFixed(a, 3)) > ParseLenient(FormatFixed(b, 3)) : a > b;
}

}  // namespace

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
