#include "figures/gas_words.h"

#include "model/text_id.h"

namespace tav {
namespace {

constexpr const char* kAirName = "Air";
constexpr const char* kOxygenName = "Oxygen";

}  // namespace

std::string GasWords(const std::string& gas, const TextSource& texts) {
  return gas == kOxygenName ? texts.GetResString(Text::GasOxygen) : GasSign(gas, texts);
}

std::string GasSign(const std::string& gas, const TextSource& texts) {
  if (gas == kOxygenName) return "O2";
  return gas == kAirName ? texts.GetResString(Text::GasAir) : gas;
}

}  // namespace tav
