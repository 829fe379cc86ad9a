#include "app/engine_warnings.h"

#include "model/number_text.h"

namespace tav {

void EngineWarnings::Warn(int textBefore, const std::string& value, int textBetween, const std::string& limit,
                          int textAfter, int title) {
  if (silent) return;
  boxes_.Show(texts_.GetResString(textBefore) + value + texts_.GetResString(textBetween) + limit +
                  texts_.GetResString(textAfter),
              texts_.GetResString(title), BoxIcon::Exclamation, BoxButtons::OK);
}

void EngineWarnings::WarnEND(Single end, Single limit, bool Metric) {
  Warn(2400, FormatFixed(end, 0), Metric ? 2401 : 2403, FormatFixed(limit, 0), Metric ? 2402 : 2404, 6160);
}

void EngineWarnings::WarnPPO2High(Single ppo2, Single limit, bool Metric) {
  Warn(2406, FormatFixed(ppo2, 2), Metric ? 2407 : 2409, FormatFixed(limit, 2), Metric ? 2408 : 2412, 6161);
}

void EngineWarnings::WarnPPO2Low(Single ppo2, Single limit, bool Metric) {
  Warn(2406, FormatFixed(ppo2, 2), Metric ? 2410 : 2411, FormatFixed(limit, 2), Metric ? 2408 : 2412, 6162);
}

void EngineWarnings::StopHitLimit(const StopLimit& stop) {
  constexpr int kDoesNotDecompress = 7020;
  if (silent) return;
  boxes_.Show(texts_.GetResString(kDoesNotDecompress) + "\r\n" + stop.reason, "", BoxIcon::Exclamation, BoxButtons::OK);
}

}  // namespace tav
