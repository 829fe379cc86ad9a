#include "cli/gas_needs.h"

#include <optional>
#include <string_view>

#include "supply/supply_text.h"

namespace tav {
namespace {

/// The word of a verdict for scripts; nothing where there is none.
std::optional<std::string_view> NameOfVerdict(const std::optional<GasVerdict>& verdict) {
  if (!verdict || *verdict == GasVerdict::NotTold) return std::nullopt;
  if (*verdict == GasVerdict::IntoReserve) return "reserve";
  return IsShort(*verdict) ? "short" : "enough";
}

}  // namespace

void WriteGasNeeds(JsonWriter& json, const std::vector<GasNeed>& gases) {
  json.List("gas", [&] {
    for (const GasNeed& gas : gases) {
      json.Object([&] {
        json.Member("mix", gas.mix);
        json.Member("used", gas.used);
        json.Member("carried", gas.carried);
        const auto verdict = NameOfVerdict(gas.verdict);
        json.Member("enough", verdict ? std::optional(*verdict == "enough") : std::nullopt);
        json.Member("need", gas.need);
        json.Member("verdict", verdict);
      });
    }
  });
}

}  // namespace tav
