#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "mixer/gauge_list.h"
#include "model/number_text.h"
#include "platform/text_source.h"

namespace tav {

/// The size of a cylinder, for the amounts of gas: water volume in litres, or cubic feet of gas at a rated pressure in
/// psi.
struct CylinderSize {
  Single volume;
  Single ratedPressure;  ///< of no meaning for litres

  /// Litres, or cubic feet, of free gas in the cylinder for each bar.
  [[nodiscard]] double FreeGasPerBar(bool metric) const {
    return metric ? double{volume} : volume * kPsiPerBar / ratedPressure;
  }
};

/// The list to fill by in words and rows: what window, sheet and command line say.
class FillWords {
 public:
  /// Numbers take the decimal separator; units follow `metric`.
  FillWords(const TextSource& texts, const LocaleSeparators& separators, bool metric)
      : texts_(texts), decimal_(separators.decimal), metric_(metric) {}

  /// The heads of the list: gas, pressure to fill to, the same for ideal gases, and the amount when asked for.
  [[nodiscard]] std::vector<std::string> Heads(bool amount) const;
  /// The list as rows of a table, the heads first. Amounts are told with a cylinder size alone.
  [[nodiscard]] std::vector<std::vector<std::string>> Rows(const FillRequest& request, const GaugeList& list,
                                                           const std::optional<CylinderSize>& cylinder) const;
  /// What keeps the fill from being possible and what helps; that there is nothing to fill; else empty.
  [[nodiscard]] std::string Hindrance(const FillRequest& request, const GaugeList& list) const;
  /// The mix that the list gives, with its MOD; empty for an empty list.
  [[nodiscard]] std::string Outcome(const GaugeList& list) const;
  /// What it would give if the gases were ideal: so far may a real fill be off; empty for an empty list.
  [[nodiscard]] std::string IfIdeal(const GaugeList& list) const;
  /// What misses the wanted mix; empty when nothing does.
  [[nodiscard]] std::string Misses(const FillRequest& request, const GaugeList& list) const;
  /// That pressures are absolute, and what a gauge reads.
  [[nodiscard]] std::string AboutPressures() const;

  [[nodiscard]] std::string Unit() const;

 private:
  [[nodiscard]] std::string T(int id) const { return texts_.GetResString(id); }
  /// The text of an ID with "%1", "%2", ... replaced.
  [[nodiscard]] std::string T(int id, std::initializer_list<std::string> values) const {
    return texts_.Filled(id, values);
  }
  [[nodiscard]] std::string Written(const std::string& number) const;
  [[nodiscard]] std::string Number(Single value, int decimals) const;
  [[nodiscard]] std::string Depth(Single percentO2, double ppo2) const;

  const TextSource& texts_;
  std::string decimal_;
  bool metric_;
};

/// The name of a gas of the list, from the texts.
std::string NameOf(FillGas gas, const TextSource& texts);

}  // namespace tav
