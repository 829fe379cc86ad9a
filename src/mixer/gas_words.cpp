#include "mixer/gas_words.h"

#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {

std::string NameOf(FillGas gas, const FillRequest& request, const TextSource& texts) {
  if (gas == FillGas::Helium) return texts.GetResString(Text::Helium);
  if (gas == FillGas::Oxygen) return texts.GetResString(Text::Oxygen);
  const MixShares& top = request.top;
  if (top.O2 == kAir.O2 && top.He == kAir.He) return texts.GetResString(Text::Air);
  const std::string name = NameOfMix(top.O2, top.He);
  const auto usual = MixOfName(name);
  const bool exact = usual && usual->O2 == top.O2 && usual->He == top.He;
  return exact ? name : FormatPlain(top.O2) + "/" + FormatPlain(top.He);
}

}  // namespace tav
