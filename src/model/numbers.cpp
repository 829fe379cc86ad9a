#include "model/numbers.h"

#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {

Single RoundSingle(Single value, int places) {
  const double scale = std::pow(10.0, places);
  return std::floor(value * scale + 0.5) / scale;
}

Single RoundMinutes(Single minutes) {
  if (minutes < 1.0) return 1.0;
  const double whole = std::floor(minutes);
  return minutes - whole < 0.5 ? whole : whole + 1;
}

std::optional<std::int16_t> RoundToInt16(double value) {
  // nearbyint follows the default rounding mode of the processor: to nearest, halves to even.
  const double rounded = std::nearbyint(value);
  if (!(rounded >= INT16_MIN && rounded <= INT16_MAX)) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

Message FormatMinutes(Single minutes) {
  const double hours = std::floor(minutes / 60);
  const double rest = std::nearbyint(minutes - hours * 60);
  return {Text::HoursAndMinutes, {FormatFixed(hours, 0), FormatFixed(rest, 0)}};
}

}  // namespace tav
