#include "app/engine_warnings.h"

namespace tav {
namespace {

constexpr int kDoesNotDecompress = 7020;
constexpr int kDepth = 7028;
constexpr int kGas = 7030;

}  // namespace

void EngineWarnings::Warn(const LimitWarning& warning, const Words& words) {
  Show({warning.document, words.title},
       texts_.GetResString(words.before) + Fixed(warning.value, words.decimals) + texts_.GetResString(words.between) +
           Fixed(warning.limit, words.decimals) + texts_.GetResString(words.after) + "\r\n" +
           Place(warning.depth, warning.gas, warning.metric),
       texts_.GetResString(words.title));
}

void EngineWarnings::Show(const Subject& subject, const std::string& text, const std::string& title) {
  if (silent) return;
  if (!inCommand_ && subject.document != -1) {
    if (memory_.IsNews(subject.document, text, returning())) {
      boxes_.Show(text, title, BoxIcon::Exclamation, BoxButtons::OK);
    }
    return;
  }
  // The dives of a command are no plans that could be remembered; nothing is told twice all the same.
  if (silenced_.contains(subject.kind) || !told_.insert(text).second) return;
  constexpr int kSilence = 7329;
  BoxCheck silence{texts_.GetResString(kSilence)};
  boxes_.ShowWithCheck(text, title, BoxIcon::Exclamation, BoxButtons::OK, silence);
  if (silence.ticked) silenced_.insert(subject.kind);
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
  Show({stop.document, kDoesNotDecompress},
       texts_.GetResString(kDoesNotDecompress) + "\r\n" + texts_.GetResString(stop.reason) + "\r\n" +
           Place(stop.depth, stop.gas, stop.metric),
       "");
}

}  // namespace tav
