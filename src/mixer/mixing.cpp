#include "mixer/mixing.h"

#include <algorithm>
#include <cmath>

#include "model/number_text.h"

namespace tav {
namespace {

// Coefficients for litres, bar and moles. Source: CRC Handbook of Chemistry and Physics.
constexpr double kAOxygen = 1.37802;
constexpr double kANitrogen = 1.4084175;
constexpr double kAHelium = 0.034551825;
constexpr double kBOxygen = 0.0318;
constexpr double kBNitrogen = 0.0391;
constexpr double kBHelium = 0.0237;

// Amounts below this, in percent times bar, are what rounding to 32 bits leaves of nothing.
constexpr double kNothing = 0.01;

Single Reciprocal(double o2, double n2, double he, double ofO2, double ofN2, double ofHe) {
  return 1 / (o2 * o2 / ofO2 + n2 * n2 / ofN2 + he * he / ofHe + 2 * o2 * n2 / std::sqrt(ofO2 * ofN2) +
              2 * o2 * he / std::sqrt(ofO2 * ofHe) + 2 * he * n2 / std::sqrt(ofN2 * ofHe));
}

MixShares Fractions(const MixShares& percent) { return {percent.O2 / 100, percent.He / 100, percent.N2 / 100}; }

/// Amounts of the three gases as fractions of their sum.
MixShares Normalised(double o2, double he, double n2) {
  const double sum = o2 + he + n2;
  return {o2 / sum, he / sum, n2 / sum};
}

/// A mix with its coefficients.
struct RealGas {
  explicit RealGas(const MixShares& fractions)
      : mix(fractions),
        a(MixCoefficientA(fractions.O2, fractions.N2, fractions.He)),
        b(MixCoefficientB(fractions.O2, fractions.N2, fractions.He)) {}

  [[nodiscard]] Single Density(Single bar) const { return DensityFromPressure(a, b, bar, kFillTemperature); }
  [[nodiscard]] Single Pressure(Single density) const { return PressureFromDensity(density, kFillTemperature, a, b); }

  MixShares mix;
  Single a;
  Single b;
};

/// Fills helium first, then oxygen, then air, all at the temperature of the result.
void VanDerWaalsFill(const FillRequest& request, double currentBar, double desiredBar, double scale,
                     FillResult& result) {
  if (request.current.O2 <= 0 || request.desired.O2 <= 0) return;
  RealGas state(Fractions(request.current));
  const RealGas wanted(Fractions(request.desired));
  Single density = state.Density(currentBar);
  MolesAdded added = MolesToAdd(wanted.mix, state.mix, wanted.Density(desiredBar), density);
  if (added.He > 0) {
    const Single withHelium = density + added.He;
    const MixShares& x = state.mix;
    state = RealGas(Normalised(x.O2 * density, x.He * density + added.He, x.N2 * density));
    const Single pressure = state.Pressure(withHelium);
    result.IdealTopHe = FormatFixed(Single(pressure * scale), 1);
    density = state.Density(pressure);
  } else {
    result.IdealTopHe = "0";
  }
  added = MolesToAdd(wanted.mix, state.mix, wanted.Density(desiredBar), density);
  const MixShares& x = state.mix;
  const Single withOxygen = density + added.O2;
  Single pressure = 0;
  // Below 0 where more oxygen would have to come out than there is gas: the figure then tells how far it is from
  // possible. Nothing at all in the cylinder has no shares to reckon with.
  if (withOxygen != 0) {
    const RealGas gas(Normalised(x.O2 * density + added.O2, x.He * density, x.N2 * density));
    pressure = gas.Pressure(withOxygen);
  }
  const double helium = ParseLenient(result.IdealTopHe);
  result.IdealTopO2 = FormatFixed(Single((pressure - currentBar) * scale - helium), 1);
  result.IdealTopN2 = FormatFixed(Single((desiredBar - currentBar - pressure) * scale), 1);
}

}  // namespace

MixShares MixOf(Single o2, Single he) {
  constexpr double kFinest = 1e4;
  return {o2, he, std::round((100 - o2 - he) * kFinest) / kFinest};
}

Single MixCoefficientA(Single o2, Single n2, Single he) {
  return Reciprocal(o2, n2, he, kAOxygen, kANitrogen, kAHelium);
}

Single MixCoefficientB(Single o2, Single n2, Single he) {
  return Reciprocal(o2, n2, he, kBOxygen, kBNitrogen, kBHelium);
}

Single DensityFromPressure(Single a, Single b, Single p, Single t) {
  if (p <= 0) return 0;
  const Single c = kGasConstant * t + b * p;
  const double q = 2 * a * a * a + 27 * a * a * b * b * p - 9 * a * a * b * c;
  const double r = 3 * a * b * c - a * a;
  const double s = std::sqrt(q * q + 4 * r * r * r);
  const Single w = std::cbrt(q + s);
  const double k = std::cbrt(2.0);
  return 1 / (3 * b) + w / (3 * k * a * b) - k * r / (3 * a * b * w);
}

Single PressureFromDensity(Single n, Single t, Single a, Single b) {
  return n * kGasConstant * t / (1 - n * b) - a * n * n;
}

MolesAdded MolesToAdd(const MixShares& desired, const MixShares& current, Single desiredDensity,
                      Single currentDensity) {
  const double air = (desired.N2 * desiredDensity - current.N2 * currentDensity) / kRealAirN2;
  return {(desired.O2 * desiredDensity - current.O2 * currentDensity) - air * kRealAirO2, air,
          desired.He * desiredDensity - current.He * currentDensity};
}

FillResult Recalculate(const FillRequest& request) {
  const double scale = request.metric ? 1.0 : kPsiPerBar;
  const Single currentBar = request.currentFill / scale;
  const Single desiredBar = request.desiredFill / scale;
  const auto need = [&](Single desired, Single current) -> Single {
    return desired * desiredBar - current * currentBar;
  };
  FillResult result;
  const auto orNothing = [](Single amount) -> Single { return std::fabs(amount) < kNothing ? Single(0) : amount; };
  const Single o2 = need(request.desired.O2, request.current.O2);
  const Single n2 = need(request.desired.N2, request.current.N2);
  result.Heneed = orNothing(need(request.desired.He, request.current.He));
  result.AirO2 = orNothing(o2 - n2 * kIdealAirO2 / kIdealAirN2);
  result.Air = orNothing(n2 / kIdealAirN2);
  VanDerWaalsFill(request, currentBar, desiredBar, scale, result);
  result.AirImpossible = result.AirO2 < 0 || result.Air < 0 || result.Heneed < 0;
  if (result.Air >= 0 && result.Heneed >= 0) {
    const auto shown = [&](Single percentBar) { return FormatFixed(Single(percentBar / 100 * scale), 1); };
    result.AirTopO2 = shown(result.AirO2);
    result.AirTopHe = shown(result.Heneed);
    result.AirTopAir = shown(result.Air);
  }
  for (std::string* label : {&result.IdealTopO2, &result.IdealTopHe, &result.IdealTopN2}) {
    if (label->empty()) *label = "0";
  }
  return result;
}

PercentageFields UpdateMix(const std::string& o2Text, const std::string& heText, const LocaleSeparators& separators) {
  const auto percentage = [&](const std::string& text, bool& reset) -> Single {
    if (TrimBlanks(text).empty()) return 0;
    const auto value = ParseLocaleNumber(text, separators);
    reset = !(value && *value >= 0 && *value <= 100);
    return reset ? Single(0) : Single(*value);
  };
  PercentageFields fields;
  const Single o2 = percentage(o2Text, fields.o2Reset);
  fields.mix = MixOf(o2, percentage(heText, fields.heReset));
  fields.over100 = fields.mix.N2 < 0;
  return fields;
}

}  // namespace tav
