#pragma once

#include <initializer_list>
#include <string>

#include "model/number_texts.h"
#include "model/single.h"
#include "platform/text_source.h"

namespace tav {

/// Texts, numbers and units of what the program advises, as divers write them. Units are those of a template.
class AdviceWords {
 public:
  AdviceWords(const TextSource& texts, NumberTexts numbers, bool metric)
      : texts_(texts), numbers_(std::move(numbers)), metric_(metric) {}

  [[nodiscard]] std::string T(int id) const { return texts_.GetResString(id); }
  [[nodiscard]] std::string T(int id, std::initializer_list<std::string> values) const {
    return texts_.Filled(id, values);
  }

  [[nodiscard]] std::string Fixed(double value, int decimals) const { return numbers_.Fixed(value, decimals); }
  /// One decimal where there is one: "22.5", "30".
  [[nodiscard]] std::string Short(double value) const { return numbers_.Short(value); }
  /// Three decimals where there are any: a factor that the reader multiplies with.
  [[nodiscard]] std::string Factor(double value) const;
  /// "57 m", "33.5 ft"
  [[nodiscard]] std::string Depth(double depth) const;
  /// "1.41 bar", "0.10 ata"
  [[nodiscard]] std::string PPO2(double ppo2) const;
  /// "1240 l", "43.8 cu ft"
  [[nodiscard]] std::string Volume(double volume) const;
  /// "187 bar", "2700 psi", for a gauge in bar or psi.
  [[nodiscard]] std::string Gauge(double pressure, bool inBar) const;
  [[nodiscard]] std::string GaugeUnit(bool inBar) const;
  [[nodiscard]] std::string LengthUnit() const;
  [[nodiscard]] std::string PressureUnit() const;
  [[nodiscard]] std::string VolumeUnit() const;
  [[nodiscard]] bool Metric() const { return metric_; }
  [[nodiscard]] const TextSource& Texts() const { return texts_; }
  [[nodiscard]] const NumberTexts& Numbers() const { return numbers_; }

 private:
  const TextSource& texts_;
  NumberTexts numbers_;
  bool metric_;
};

}  // namespace tav
