#include "figures/loop_state.h"

namespace tav {

std::string LoopState(const DiveTemplate& settings, bool repetitive, const TextSource& texts) {
  constexpr int kKeepsDiluent = 8307;
  constexpr int kTakesChanges = 8308;
  constexpr int kIntervalOnAir = 8309;
  constexpr int kIntervalOnLoop = 8310;
  if (settings.OpenCircuit) return {};
  std::string state = texts.GetResString(settings.KeepsDiluent ? kKeepsDiluent : kTakesChanges);
  if (repetitive) state += ", " + texts.GetResString(settings.IntervalOnAir ? kIntervalOnAir : kIntervalOnLoop);
  return state;
}

}  // namespace tav
