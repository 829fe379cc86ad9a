#include "app/engine_warnings.h"

namespace tav {
namespace {

constexpr int kDoesNotDecompress = 7020;
constexpr int kDepth = 7028;
constexpr int kGas = 7030;

}  // namespace

void EngineWarnings::Warn(const LimitWarning& warning, const Words& words) {
  Show(warning.document,
       texts_.GetResString(words.before) + Fixed(warning.value, words.decimals) + texts_.GetResString(words.between) +
           Fixed(warning.limit, words.decimals) + texts_.GetResString(words.after) + "\r\n" +
           Place(warning.depth, warning.gas, warning.metric),
       texts_.GetResString(words.title));
}

void EngineWarnings::Show(std::int16_t document, const std::string& text, const std::string& title) {
  if (!silent && memory_.IsNews(document, text, returning()))
    boxes_.Show(text, title, BoxIcon::Exclamation, BoxButtons::OK);
}

std::string EngineWarnings::Place(Single depth, const std::string& gas, bool metric) const {
  return texts_.GetResString(kDepth) + ": " + Fixed(depth, 1) + (metric ? " m" : " ft") + ", " +
         texts_.GetResString(kGas) + ": " + gas;
}

void EngineWarnings::WarnEND(const LimitWarning& warning) {
  Warn(warning, warning.metric ? Words{2400, 2401, 2402, 0, 6160} : Words{2400, 2403, 2404, 0, 6160});
}

void EngineWarnings::WarnPPO2High(const LimitWarning& warning) {
  Warn(warning, warning.metric ? Words{2406, 2407, 2408, 2, 6161} : Words{2406, 2409, 2412, 2, 6161});
}

void EngineWarnings::WarnPPO2Low(const LimitWarning& warning) {
  Warn(warning, warning.metric ? Words{2406, 2410, 2408, 2, 6162} : Words{2406, 2411, 2412, 2, 6162});
}

void EngineWarnings::StopHitLimit(const StopLimit& stop) {
  Show(stop.document,
       texts_.GetResString(kDoesNotDecompress) + "\r\n" + stop.reason + "\r\n" +
           Place(stop.depth, stop.gas, stop.metric),
       "");
}

}  // namespace tav
