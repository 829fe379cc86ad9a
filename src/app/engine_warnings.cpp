#include "app/engine_warnings.h"

#include "model/text_id.h"

namespace tav {

void EngineWarnings::Warn(const LimitWarning& warning, const Words& words) {
  Show({warning.document, words.title},
       texts_.GetResString(words.before) + Fixed(warning.value, words.decimals) + texts_.GetResString(words.between) +
           Fixed(warning.limit, words.decimals) + texts_.GetResString(words.after) + "\r\n" +
           Place(warning.depth, warning.gas, warning.metric),
       texts_.GetResString(words.title));
}

void EngineWarnings::Show(const Subject& subject, const std::string& told, const std::string& title) {
  if (silent) return;
  const std::string plan = subject.document == -1 ? "" : elsewhere(subject.document);
  const std::string text = plan.empty() ? told : plan + "\r\n" + told;
  if (!inCommand_ && subject.document != -1) {
    if (memory_.IsNews(subject.document, told, returning())) {
      boxes_.Show(text, title, BoxIcon::Exclamation, BoxButtons::OK);
    }
    return;
  }
  // The dives of a command are no plans that could be remembered; nothing is told twice all the same.
  if (silenced_.contains(subject.kind) || !told_.insert(text).second) return;
  BoxCheck silence{texts_.GetResString(Text::WarnNoMore)};
  boxes_.ShowWithCheck(text, title, BoxIcon::Exclamation, BoxButtons::OK, silence);
  if (silence.ticked) silenced_.insert(subject.kind);
}

std::string EngineWarnings::Place(Single depth, const std::string& gas, bool metric) const {
  return texts_.GetResString(Text::Depth) + ": " + Fixed(depth, 1) + (metric ? " m" : " ft") + ", " +
         texts_.GetResString(Text::Gas) + ": " + gas;
}

void EngineWarnings::WarnEND(const LimitWarning& warning) {
  Warn(warning, warning.metric
                    ? Words{Text::WarningEND, Text::WarningDeeperMetres, Text::WarningMetres, 0, Text::ENDTooDeep}
                    : Words{Text::WarningEND, Text::WarningDeeperFeet, Text::WarningFeet, 0, Text::ENDTooDeep});
}

void EngineWarnings::WarnPPO2High(const LimitWarning& warning) {
  Warn(warning, warning.metric
                    ? Words{Text::WarningPPO2, Text::WarningAboveBar, Text::WarningBar, 2, Text::PPO2TooHigh}
                    : Words{Text::WarningPPO2, Text::WarningAboveAta, Text::WarningAta, 2, Text::PPO2TooHigh});
}

void EngineWarnings::WarnPPO2Low(const LimitWarning& warning) {
  Warn(warning, warning.metric
                    ? Words{Text::WarningPPO2, Text::WarningBelowBar, Text::WarningBar, 2, Text::PPO2TooLow}
                    : Words{Text::WarningPPO2, Text::WarningBelowAta, Text::WarningAta, 2, Text::PPO2TooLow});
}

void EngineWarnings::StopHitLimit(const StopLimit& stop) {
  Show({stop.document, Text::DoesNotDecompress},
       texts_.GetResString(Text::DoesNotDecompress) + "\r\n" + texts_.GetResString(stop.reason) + "\r\n" +
           Place(stop.depth, stop.gas, stop.metric),
       "");
}

}  // namespace tav
