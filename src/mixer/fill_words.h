#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "mixer/fill_advice.h"
#include "model/number_texts.h"
#include "platform/text_source.h"

namespace tav {

/// The size of a cylinder, for the amounts of gas: water volume in litres, or cubic feet of gas at a rated pressure in
/// psi.
struct CylinderSize {
  Single volume;
  Single ratedPressure;  ///< of no meaning for litres

  /// What a litre of gas in each litre of the cylinder, at 1 bar, is in all: litres at 1 bar, or cubic feet at one
  /// atmosphere.
  [[nodiscard]] double FreeGas(bool metric) const {
    return metric ? double{volume} : volume * kPsiPerBar / ratedPressure / kBarPerAtmosphere;
  }
};

/// The list to fill by in words and rows: what window, sheet and command line say. A text that there is no need for is
/// empty.
class FillWords {
 public:
  /// Numbers take the decimal separator; units follow `metric`.
  FillWords(const TextSource& texts, NumberTexts numbers, bool metric)
      : texts_(texts), numbers_(std::move(numbers)), metric_(metric) {}

  /// The heads of the list: gas, pressure to fill to, the same in a warm cylinder and for ideal gases, amount.
  [[nodiscard]] std::vector<std::string> Heads(const std::optional<Single>& warm, bool amount) const;
  /// The list as rows of a table, the heads first. Amounts are told with a cylinder size alone.
  [[nodiscard]] std::vector<std::vector<std::string>> Rows(const FillAdvice& advice,
                                                           const std::optional<CylinderSize>& cylinder) const;
  /// What keeps the fill from being possible and what helps; that there is nothing to fill.
  [[nodiscard]] std::string Hindrance(const FillAdvice& advice) const;
  /// The mix that the list gives, with its MOD.
  [[nodiscard]] std::string Outcome(const FillAdvice& advice) const;
  /// What the pressures for ideal gases would really give.
  [[nodiscard]] std::string IfIdeal(const FillAdvice& advice) const;
  /// What misses the wanted mix because of the rounding.
  [[nodiscard]] std::string Misses(const FillAdvice& advice) const;
  /// To what a warm cylinder is filled, and to what it settles.
  [[nodiscard]] std::string Warm(const FillAdvice& advice) const;
  /// That pressures are absolute, what a gauge reads, and at which temperature.
  [[nodiscard]] std::string AboutPressures(const FillRequest& request) const;
  /// What stands beside the block for ideal gases: which gas would have to come out.
  [[nodiscard]] std::string AboutAirTop(const FillResult& result, const FillRequest& request) const;
  /// What stands beside the van der Waals block: that a figure below 0 is no pressure.
  [[nodiscard]] std::string AboutVanDerWaals(const FillResult& result, const FillRequest& request) const;
  /// The mix that steps as they were done give.
  [[nodiscard]] std::string OutcomeOfSteps(const MixShares& mix) const;

  [[nodiscard]] std::string Unit() const;

 private:
  [[nodiscard]] std::string T(int id) const { return texts_.GetResString(id); }
  /// The text of an ID with "%1", "%2", ... replaced.
  [[nodiscard]] std::string T(int id, std::initializer_list<std::string> values) const {
    return texts_.Filled(id, values);
  }
  [[nodiscard]] std::string Number(Single value, int decimals) const { return numbers_.Fixed(value, decimals); }
  [[nodiscard]] std::string Plain(Single value) const { return numbers_.Plain(value); }
  [[nodiscard]] std::string Degrees(Single celsius) const;
  [[nodiscard]] std::string Depth(Single percentO2, double ppo2) const;
  [[nodiscard]] std::string WithDepths(int id, const MixShares& mix) const;

  const TextSource& texts_;
  NumberTexts numbers_;
  bool metric_;
};

}  // namespace tav
