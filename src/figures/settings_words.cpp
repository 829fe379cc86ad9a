#include "figures/settings_words.h"

#include "figures/model_name.h"

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

std::string FactorRange(const DiveTemplate& settings, const NumberTexts& numbers) {
  return numbers.Fixed(settings.GFLow, 2) + "-" + numbers.Fixed(settings.GFHigh, 2);
}

std::string Setpoints(const DiveTemplate& settings, const NumberTexts& numbers) {
  return numbers.Fixed(settings.Setpoint, 2) + "/" + numbers.Fixed(settings.DecoSetpoint, 2);
}

std::string ComputedWith(const DiveTemplate& settings, const ModelChoice& model, const std::string& circuit,
                         bool repetitive, const TextSource& texts) {
  constexpr int kDepthsAdjusted = 7965;
  constexpr int kStopsOnOpenCircuit = 7968;
  std::string line = ModelName(model);
  const auto add = [&line](const std::string& part) { line += ", " + part; };
  if (GradientFactorsAct(settings, model)) {
    add("GF " + FormatFixed(Single(settings.GFLow * 100), 0) + "/" + FormatFixed(Single(settings.GFHigh * 100), 0));
  }
  if (settings.DepthAdjust) add(texts.GetResString(kDepthsAdjusted));
  add(circuit);
  if (settings.OpenCircuit) return line;
  if (settings.OCDeco) add(texts.GetResString(kStopsOnOpenCircuit));
  add(LoopState(settings, repetitive, texts));
  return line;
}

std::string ComputedWith(const DiveTemplate& settings, const ModelChoice& model, bool repetitive,
                         const TextSource& texts) {
  constexpr int kOpenCircuit = 7966;
  constexpr int kRebreather = 7967;
  const std::string circuit =
      settings.OpenCircuit ? texts.GetResString(kOpenCircuit)
                           : texts.Filled(kRebreather, {Setpoints(settings, {}) + (settings.Metric ? " bar" : " atm")});
  return ComputedWith(settings, model, circuit, repetitive, texts);
}

}  // namespace tav
