#include "figures/settings_words.h"

#include <cmath>

#include "figures/model_name.h"
#include "model/altitude.h"
#include "model/text_id.h"

namespace tav {

std::string LoopState(const DiveTemplate& settings, bool repetitive, const TextSource& texts) {
  if (settings.OpenCircuit) return {};
  std::string state = texts.GetResString(settings.KeepsDiluent ? Text::SettingKeepsDiluent : Text::SettingTakesChanges);
  if (repetitive)
    state +=
        ", " + texts.GetResString(settings.IntervalOnAir ? Text::SettingIntervalOnAir : Text::SettingIntervalOnLoop);
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
  std::string line = ModelName(model);
  const auto add = [&line](const std::string& part) { line += ", " + part; };
  if (GradientFactorsAct(settings, model)) {
    add("GF " + FormatFixed(Single(settings.GFLow * 100), 0) + "/" + FormatFixed(Single(settings.GFHigh * 100), 0));
  }
  if (settings.DepthAdjust) add(texts.GetResString(Text::HeadDepthsAdjusted));
  add(circuit);
  if (settings.OpenCircuit) return line;
  if (settings.OCDeco) add(texts.GetResString(Text::HeadStopsOpen));
  add(LoopState(settings, repetitive, texts));
  return line;
}

std::string ComputedWith(const DiveTemplate& settings, const ModelChoice& model, bool repetitive,
                         const TextSource& texts, const NumberTexts& numbers) {
  const std::string circuit =
      settings.OpenCircuit
          ? texts.GetResString(Text::HeadOpenCircuit)
          : texts.Filled(Text::HeadLoop, {Setpoints(settings, numbers) + (settings.Metric ? " bar" : " ata")});
  return ComputedWith(settings, model, circuit, repetitive, texts);
}

std::string SettingsLine(const DiveTemplate& settings, const ModelChoice& model, bool repetitive,
                         const TextSource& texts, const NumberTexts& numbers) {
  const auto length = [&](Single value) { return numbers.Short(value) + (settings.Metric ? " m" : " ft"); };
  const auto place = [&](Single altitude, Single pressure) {
    const std::string told = " (" + numbers.Fixed(pressure, 3) + (settings.Metric ? " bar)" : " ata)");
    if (altitude != 0) return length(altitude) + told;
    // At sea level, too, a plan can be computed for the pressure of a day.
    constexpr double kRounding = 0.01;
    const bool usual = std::fabs(double{pressure} - double{AltitudeToPressure(0, settings.Metric)}) < kRounding;
    return texts.GetResString(Text::HeadSeaLevel) + (usual ? "" : told);
  };
  const std::string start = place(settings.StartAltitude, settings.StartPressure);
  std::string line = ComputedWith(settings, model, repetitive, texts, numbers) + ", " +
                     (settings.AdeptedToHeight ? start : texts.Filled(Text::HeadNotAdapted, {start}));
  if (settings.EndPressure != settings.StartPressure) {
    line += ", " + texts.Filled(Text::HeadEndsAt, {place(settings.EndAltitude, settings.EndPressure)});
  }
  return line + ", " + texts.Filled(Text::HeadStops, {length(settings.StepSize), length(settings.LastStop)});
}

}  // namespace tav
