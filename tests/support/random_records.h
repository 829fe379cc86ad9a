#pragma once

#include <cstring>
#include <random>
#include <string>

#include "model/dive_template.h"
#include "model/user_actions.h"

/// Records with any content that their types allow and a file can hold.
namespace tav::test {

/// Any finite 32-bit number but 0, of any magnitude.
inline Single RandomSingle(std::mt19937& random) {
  while (true) {
    const auto bits = static_cast<std::uint32_t>(random());
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (value - value == 0 && value != 0) return static_cast<double>(value);
  }
}

/// 1 to 9 characters, blanks inside, none of `without`.
inline std::string RandomName(std::mt19937& random, const std::string& without) {
  std::string name;
  const std::size_t length = 1 + random() % 9;
  while (name.size() < length) {
    const char c = static_cast<char>(' ' + random() % 95);
    const bool end = name.empty() || name.size() + 1 == length;
    if (without.find(c) == std::string::npos && !(end && c == ' ')) name += c;
  }
  return name;
}

inline DiveTemplate RandomTemplate(std::mt19937& random) {
  DiveTemplate t;
  for (Single* number :
       {&t.StartAltitude, &t.StartPressure, &t.EndAltitude, &t.EndPressure, &t.StepSize, &t.LastStop, &t.Setpoint,
        &t.DecoSetpoint, &t.RMV, &t.DecoRMV, &t.MinPPO2, &t.MaxPPO2, &t.DecoPPO2, &t.MaximalEND, &t.GFHigh, &t.GFLow}) {
    *number = RandomSingle(random);
  }
  for (bool* flag :
       {&t.AdeptedToHeight, &t.Metric, &t.OpenCircuit, &t.OCDeco, &t.KeepsDiluent, &t.IntervalOnAir, &t.O2Narcotic,
        &t.AutoDecoGas, &t.CeilingOverride, &t.UseGF, &t.DepthAdjust, &t.PPO2Low, &t.PPO2High, &t.MaxEnd}) {
    *flag = random() % 2 == 0;
  }
  t.TimeToHeight = static_cast<std::int16_t>(random());
  t.Templatename = RandomName(random, "");
  for (auto* rates : {&t.AscendRates, &t.DescendRates}) {
    rates->resize(random() % 4);
    for (RateEntry& entry : *rates) entry = {0, 0, RandomSingle(random), RandomSingle(random)};
  }
  t.Blends = {AirMix()};
  for (std::size_t n = random() % 5; n > 0; --n) {
    t.Blends.push_back({RandomName(random, ":,"), RandomSingle(random), RandomSingle(random), RandomSingle(random)});
  }
  t.ChangeGasMixes.resize(random() % 4);
  for (GasChange& change : t.ChangeGasMixes) {
    change.Name = t.Blends[random() % t.Blends.size()].Name;
    change.Depth = RandomSingle(random);
  }
  t.Cylinders.resize(random() % 4);
  for (Cylinder& cylinder : t.Cylinders) {
    cylinder.Gas = t.Blends[random() % t.Blends.size()].Name;
    cylinder.Count = static_cast<std::int16_t>(1 + random() % 99);
    cylinder.Size = static_cast<double>(1 + random() % 2400) / 8;
    if (random() % 2 == 0) cylinder.RatedPressure = static_cast<double>(1 + random() % 4000);
    cylinder.Fill = static_cast<double>(random() % 3500) / 4;
    cylinder.Reserve = cylinder.Fill / 4;
  }
  return t;
}

/// Legs that the template has the gas for, and ascents.
inline ClassUseractions RandomActions(std::mt19937& random, const DiveTemplate& diveTemplate) {
  std::uniform_real_distribution<double> upTo1;
  ClassUseractions actions;
  for (std::size_t n = random() % 6; n > 0; --n) {
    actions.NewAction();
    const auto mix = static_cast<std::int16_t>(random() % diveTemplate.Blends.size());
    actions.setuser(actions.GetLength(), 10000 * upTo1(random), 100000 * upTo1(random), mix);
    if (random() % 3 == 0) actions.setdeco(actions.GetLength());
  }
  return actions;
}

}  // namespace tav::test
