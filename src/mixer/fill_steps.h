#pragma once

#include <string>
#include <vector>

#include "mixer/filling.h"
#include "platform/text_source.h"

/// The other way: what comes out of a fill as it was done.
namespace tav {

/// A gas was filled until the gauge showed a pressure, in the unit of the request.
struct DoneStep {
  std::string name;  ///< as it was typed
  MixShares gas;     ///< percent
  Single to;
};

/// Reads "he@67 o2@86 air@220": steps parted by blanks, commas or semicolons, a gas before each @. A gas is he, o2,
/// air, top (that of the request), its name in the user's language, a usual name such as EAN32, or O2/HE in percent.
/// Throws a MessageError for what is no such list, and for a pressure that does not rise.
std::vector<DoneStep> ParseSteps(const std::string& text, const FillRequest& request, const TextSource& texts,
                                 const LocaleSeparators& separators);

/// The mix in percent after each step, from what the request holds, at its temperature.
std::vector<MixShares> MixesAfter(const std::vector<DoneStep>& steps, const FillRequest& request);

}  // namespace tav
