#include "mixer/gerg_2008.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "mixer/gerg_2008_terms.h"

namespace tav {
namespace {

using gerg::PureGas;
using gerg::Term;

constexpr double kBarPerKilopascal = 0.01;

constexpr std::array<const PureGas*, 3> kGases = {&gerg::kNitrogen, &gerg::kOxygen, &gerg::kHelium};

/// A pair of gases with what of its combination does not hang on the shares.
struct PairOfGases {
  std::size_t i;
  std::size_t j;
  gerg::Pair pair;
  double volume;       ///< (Dc_i^(-1/3) + Dc_j^(-1/3))^3 / 8, l/mol
  double temperature;  ///< sqrt(Tc_i Tc_j), K
};

PairOfGases Paired(std::size_t i, std::size_t j, const gerg::Pair& pair) {
  const PureGas& a = *kGases[i];
  const PureGas& b = *kGases[j];
  const double root = 1 / std::cbrt(a.criticalDensity) + 1 / std::cbrt(b.criticalDensity);
  return {i, j, pair, root * root * root / 8, std::sqrt(a.criticalTemperature * b.criticalTemperature)};
}

const std::array<PairOfGases, 3>& Pairs() {
  static const std::array<PairOfGases, 3> pairs = {
      Paired(0, 1, gerg::kNitrogenOxygen), Paired(0, 2, gerg::kNitrogenHelium), Paired(1, 2, gerg::kOxygenHelium)};
  return pairs;
}

double PowerOf(double base, int exponent) {
  double power = 1;
  for (; exponent > 0; --exponent) power *= base;
  return power;
}

/// A mix at a temperature: what stays when the density changes.
class MixAt {
 public:
  MixAt(const Contents& contents, double kelvin) : kelvin_(kelvin) {
    const double sum = contents.Sum();
    shares_ = {contents.N2 / sum, contents.O2 / sum, contents.He / sum};
    double temperature = 0;
    for (std::size_t i = 0; i < kGases.size(); ++i) {
      volume_ += shares_[i] * shares_[i] / kGases[i]->criticalDensity;
      temperature += shares_[i] * shares_[i] * kGases[i]->criticalTemperature;
    }
    for (const PairOfGases& each : Pairs()) {
      const double a = shares_[each.i];
      const double b = shares_[each.j];
      if (a <= 0 || b <= 0) continue;
      const auto part = [&](double beta, double gamma) {
        return 2 * a * b * beta * gamma * (a + b) / (beta * beta * a + b);
      };
      volume_ += part(each.pair.betaV, each.pair.gammaV) * each.volume;
      temperature += part(each.pair.betaT, each.pair.gammaT) * each.temperature;
    }
    const double logTau = std::log(temperature / kelvin);
    std::size_t next = 0;
    for (std::size_t i = 0; i < kGases.size(); ++i) {
      for (const Term& term : kGases[i]->terms) {
        factors_[next++] = shares_[i] > 0 ? shares_[i] * term.n * std::exp(term.t * logTau) : 0;
      }
    }
  }

  struct Compressibility {
    double z = 1;
    double slope = 1;  ///< of density times z
  };
  /// 1 + delta d(alpha_r) / d(delta), with its derivative.
  [[nodiscard]] Compressibility At(double density) const {
    const double delta = density * volume_;
    const std::array<double, 4> powers = {0, delta, delta * delta, delta * delta * delta};
    const auto power = [&](int c) { return c < 4 ? powers.at(static_cast<std::size_t>(c)) : PowerOf(delta, c); };
    Compressibility result;
    std::size_t next = 0;
    for (std::size_t i = 0; i < kGases.size(); ++i) {
      int lastC = 0;
      double raised = 0;  // delta^c
      double damping = 1;
      for (const Term& term : kGases[i]->terms) {
        const double factor = factors_[next++];
        if (shares_[i] <= 0) continue;
        if (term.c != lastC) {
          lastC = term.c;
          raised = power(term.c);
          damping = std::exp(-raised);
        }
        const double inner = term.d - term.c * raised;
        const double value = factor * PowerOf(delta, term.d) * damping;
        result.z += value * inner;
        result.slope += value * (inner * (1 + inner) - term.c * term.c * raised);
      }
    }
    return result;
  }

  /// bar for 1 mol/l of an ideal gas.
  [[nodiscard]] double IdealBar() const { return kGergGasConstant * kelvin_ * kBarPerKilopascal; }

 private:
  static constexpr std::size_t kTerms =
      std::size(gerg::kNitrogenTerms) + std::size(gerg::kOxygenTerms) + std::size(gerg::kHeliumTerms);

  double kelvin_;
  std::array<double, 3> shares_{};
  double volume_ = 0;  ///< 1 / reducing density, l/mol
  std::array<double, kTerms> factors_{};
};

}  // namespace

double CompressibilityOf(const Contents& contents, double kelvin) {
  const double density = contents.Sum();
  return density > 0 ? MixAt(contents, kelvin).At(density).z : 1;
}

double PressureOf(const Contents& contents, double kelvin) {
  const double density = contents.Sum();
  return density * kGergGasConstant * kelvin * kBarPerKilopascal * CompressibilityOf(contents, kelvin);
}

Contents ContentsAt(const Contents& mix, double bar, double kelvin) {
  if (bar <= 0) return {};
  const MixAt gas(mix, kelvin);
  // Newton's method between bounds: beyond the densities that 1000 bar reach the terms of a high power run wild.
  double low = 0;
  double high = 35;
  double density = std::min(bar / gas.IdealBar(), high / 2);
  constexpr int kMostSteps = 100;
  for (int i = 0; i < kMostSteps; ++i) {
    const auto [z, slope] = gas.At(density);
    const double miss = density * z * gas.IdealBar() - bar;
    (miss < 0 ? low : high) = density;
    double better = density - miss / (slope * gas.IdealBar());
    if (!(better > low && better < high)) better = (low + high) / 2;
    const double step = std::fabs(better - density);
    density = better;
    constexpr double kSmallest = 1e-14;
    if (step <= kSmallest * density) break;
  }
  return density / mix.Sum() * mix;
}

}  // namespace tav
