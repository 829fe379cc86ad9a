#pragma once

#include <cmath>
#include <random>
#include <string>

#include "model/dive_template.h"
#include "model/user_actions.h"

/// Records with any content that can be planned on and a file can hold.
namespace tav::test {

/// From `least` to `most`, small parts as often as large ones.
inline Single RandomWithin(std::mt19937& random, double least, double most) {
  std::uniform_real_distribution<double> upTo1;
  return least + (most - least) * std::pow(upTo1(random), 1 + random() % 8);
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
  for (Single* pressure : {&t.StartPressure, &t.EndPressure}) *pressure = RandomWithin(random, 0.3, 1.2);
  for (Single* altitude : {&t.StartAltitude, &t.EndAltitude}) *altitude = RandomWithin(random, -500, 6000);
  for (Single* factor : {&t.GFHigh, &t.GFLow}) *factor = RandomWithin(random, 0, 1.99);
  for (Single* number : {&t.StepSize, &t.Setpoint, &t.DecoSetpoint, &t.RMV, &t.DecoRMV, &t.MinPPO2, &t.MaxPPO2,
                         &t.DecoPPO2, &t.MaximalEND}) {
    *number = RandomWithin(random, 0.1, 1e6);
  }
  t.LastStop = RandomWithin(random, 0, 30);
  for (bool* flag :
       {&t.AdeptedToHeight, &t.Metric, &t.OpenCircuit, &t.OCDeco, &t.KeepsDiluent, &t.IntervalOnAir, &t.O2Narcotic,
        &t.AutoDecoGas, &t.CeilingOverride, &t.UseGF, &t.DepthAdjust, &t.PPO2Low, &t.PPO2High, &t.MaxEnd}) {
    *flag = random() % 2 == 0;
  }
  t.TimeToHeight = static_cast<std::int16_t>(random());
  t.Templatename = RandomName(random, "");
  for (auto* rates : {&t.AscendRates, &t.DescendRates}) {
    rates->resize(1 + random() % 4);
    Single depth = RandomWithin(random, -10, 0);
    for (RateEntry& entry : *rates) {
      entry = {RandomWithin(random, 0.1, 1e6), depth};
      depth += 1 + RandomWithin(random, 0, 1000);
    }
  }
  t.Blends = {AirMix()};
  for (std::size_t n = random() % 5; n > 0; --n) {
    const Single o2 = RandomWithin(random, 0, 100);
    const Single he = RandomWithin(random, 0, 100 - o2);
    t.Blends.push_back({RandomName(random, ":,"), o2, 100 - o2 - he, he});
  }
  t.ChangeGasMixes.resize(random() % 4);
  for (GasChange& change : t.ChangeGasMixes) {
    change.Name = t.Blends[random() % t.Blends.size()].Name;
    change.Depth = RandomWithin(random, 0, 1e6);
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
  if (random() % 2 == 0) t.Texts = {RandomName(random, ""), RandomName(random, ""), ""};
  for (std::size_t n = random() % 4; n > 0; --n) t.Texts.notes += RandomName(random, "") + (n > 1 ? "\n" : "");
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
