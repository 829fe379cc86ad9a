#include "exchange/log_plan.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>

#include "exchange/dive_legs.h"
#include "exchange/si_units.h"
#include "model/altitude.h"
#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr double kSameShare = 0.1 + 1e-6;  // per cent

/// One dive on its way to a plan.
class OneDive {
 public:
  OneDive(const DiveLog& log, const LoggedDive& dive, DiveTemplate& settings, const TextSource& texts,
          std::vector<std::string>& remarks)
      : log_(log), dive_(dive), settings_(settings), texts_(texts), remarks_(remarks) {}

  LogFault Run(ClassUseractions& actions) {
    for (const auto& [element, number, unit] : dive_.readAs) Tell(Text::ImportReadAs, element, number, unit);
    for (const std::string& mode : dive_.otherModes) Tell(Text::ImportModeNotPlanned, mode);
    const std::vector<GasFrom> gases = Gases();
    TakeLoop();
    TakeSurface();
    TakeCylinders();
    TakeChanges();
    const DiveLegs made = LegsOfSamples(dive_.samples, gases, settings_);
    if (made.legs.empty()) return {Text::ImportNoDepths};
    if (made.legs.size() >= INT16_MAX) return {Text::ImportTooManyLegs};
    for (const LogLeg& leg : made.legs) {
      actions.NewAction();
      actions.setuser(actions.GetLength(), leg.depth, std::round(leg.minutes * 100) / 100, leg.mix);
    }
    actions.NewAction();
    actions.setdeco(actions.GetLength());
    const bool one = made.legs.size() == 1;
    Tell(one ? Text::ImportOneLeg : Text::ImportLegs, std::to_string(dive_.samples.size()),
         std::to_string(made.legs.size()), Depth(made.deviation));
    if (made.endDepth > 0) Tell(Text::ImportEndsBelow, Depth(made.endDepth));
    return {};
  }

 private:
  void Tell(int text, const std::string& second = "", const std::string& third = "", const std::string& fourth = "") {
    remarks_.push_back(texts_.Filled(text, {std::to_string(dive_.number), second, third, fourth}));
  }
  [[nodiscard]] std::string Depth(double depth) const {
    return FormatFixed(depth, 1) + (settings_.Metric ? " m" : " ft");
  }

  /// The blend of the template with the shares of a gas of the log; a new one where there is none.
  std::int16_t Blend(std::size_t mix) {
    const auto known = blendOf_.find(mix);
    if (known != blendOf_.end()) return known->second;
    const LoggedMix& gas = log_.mixes[mix];
    const auto same = [&](const GasMix& blend) {
      return std::fabs(blend.O2 - gas.o2) <= kSameShare && std::fabs(blend.He - gas.he) <= kSameShare;
    };
    auto found = std::find_if(settings_.Blends.begin(), settings_.Blends.end(), same);
    if (found == settings_.Blends.end()) {
      const std::string name = FreeName(gas);
      found = settings_.Blends.insert(found, {name, gas.o2, 100 - gas.o2 - gas.he, gas.he});
      Tell(Text::ImportGasAdded, name, FormatFixed(gas.o2, 1), FormatFixed(gas.he, 1));
    }
    const auto index = static_cast<std::int16_t>(found - settings_.Blends.begin());
    blendOf_[mix] = index;
    return index;
  }

  /// The name that the log gives, where it can be one; else the usual name of such a gas.
  [[nodiscard]] std::string FreeName(const LoggedMix& gas) const {
    constexpr std::size_t kLongest = 40;
    const bool good = BlendNameFault(gas.name).empty() && gas.name.size() <= kLongest;
    const std::string name = good ? gas.name : NameOfMix(gas.o2, gas.he);
    std::string free = name;
    for (int i = 2; FindBlend(free, settings_); ++i) free = name + " " + std::to_string(i);
    return free;
  }

  std::vector<GasFrom> Gases() {
    std::vector<GasFrom> gases{{0, 0}};
    bool told = false;
    for (const LoggedDive::Switch& change : dive_.switches) {
      const std::int16_t mix = Blend(change.mix);
      if (!told) {
        gases.front().mix = mix;  // also where it is told a moment after the start
        told = true;
      } else if (mix != gases.back().mix) {
        gases.push_back({change.minutes, mix});
      }
    }
    if (told) return gases;
    const auto holds = [](const LoggedDive::Tank& tank) { return tank.mix.has_value(); };
    const auto tank = std::find_if(dive_.tanks.begin(), dive_.tanks.end(), holds);
    if (tank != dive_.tanks.end()) {
      gases.front().mix = Blend(*tank->mix);
    } else if (log_.mixes.size() == 1) {
      gases.front().mix = Blend(0);
    }
    const std::string& name = settings_.Blends[static_cast<std::size_t>(gases.front().mix)].Name;
    Tell(Text::ImportNoGas, name);
    return gases;
  }

  void TakeLoop() {
    settings_.OpenCircuit = !dive_.rebreather;
    if (!dive_.rebreather) return;
    if (dive_.leavesLoop) Tell(Text::ImportLeavesLoop);
    if (dive_.setpoints.empty()) return;
    // The one in force longest; a plan has one on the dive and one at its stops.
    std::map<double, double> minutesAt;
    for (std::size_t i = 0; i < dive_.setpoints.size(); ++i) {
      const bool last = i + 1 == dive_.setpoints.size();
      const double end = last ? dive_.samples.back().minutes : dive_.setpoints[i + 1].minutes;
      minutesAt[dive_.setpoints[i].bar] += end - dive_.setpoints[i].minutes;
    }
    const auto shorter = [](const auto& a, const auto& b) { return a.second < b.second; };
    const double bar = std::max_element(minutesAt.begin(), minutesAt.end(), shorter)->first;
    const double told = si::FromPascal(bar * si::kPascalPerBar, settings_.Metric);
    settings_.Setpoint = settings_.DecoSetpoint = std::round(told * 100) / 100;
    Tell(Text::ImportSetpoint, FormatFixed(settings_.Setpoint, 2) + (settings_.Metric ? " bar" : " ata"));
  }

  /// The pressure at the surface where it is another one than the template's.
  void TakeSurface() {
    if (!dive_.altitude && !dive_.surfacePressure) return;
    const bool metric = settings_.Metric;
    Single altitude = dive_.altitude ? si::FromMetres(*dive_.altitude, metric) : double{settings_.StartAltitude};
    Single pressure = AltitudeToPressure(altitude, metric);
    if (dive_.surfacePressure) {
      pressure = si::FromPascal(*dive_.surfacePressure * si::kPascalPerBar, metric);
      if (!dive_.altitude) altitude = static_cast<double>(PressureToAltitude(pressure, metric).value_or(0));
    }
    constexpr double kWeather = 0.03;  // bar
    if (std::fabs(pressure - settings_.StartPressure) <= kWeather) return;
    settings_.StartAltitude = settings_.EndAltitude = altitude;
    settings_.StartPressure = settings_.EndPressure = pressure;
    Tell(Text::ImportSurfacePressure, FormatFixed(pressure, 3) + (metric ? " bar" : " ata"));
  }

  void TakeCylinders() {
    std::vector<Cylinder> cylinders;
    bool leftOut = false;
    for (const LoggedDive::Tank& tank : dive_.tanks) {
      if (!tank.mix || tank.litres <= 0 || tank.bar <= 0) continue;
      Cylinder cylinder;
      cylinder.Gas = settings_.Blends[static_cast<std::size_t>(Blend(*tank.mix))].Name;
      cylinder.Size = std::round(tank.litres * 10) / 10;
      cylinder.Fill = std::round(tank.bar);
      const auto same = std::find_if(cylinders.begin(), cylinders.end(), [&](Cylinder other) {
        other.Count = 1;
        return other == cylinder;
      });
      if (same != cylinders.end()) cylinder.Count = static_cast<std::int16_t>(std::min(same->Count + 1, 1000));
      if (!CylinderFault(cylinder).IsEmpty()) {
        leftOut = true;
      } else if (same != cylinders.end()) {
        *same = cylinder;
      } else {
        cylinders.push_back(cylinder);
      }
    }
    if (leftOut) Tell(Text::ImportCylinderLeftOut);
    if (!cylinders.empty()) settings_.Cylinders = cylinders;
  }

  /// The ascent changes to what the diver had alone.
  void TakeChanges() {
    const auto had = [this](const GasChange& change) {
      const auto blend = FindBlend(change.Name, settings_);
      return std::any_of(blendOf_.begin(), blendOf_.end(), [&](const auto& gas) { return blend == gas.second; });
    };
    auto& changes = settings_.ChangeGasMixes;
    const std::size_t before = changes.size();
    changes.erase(std::remove_if(changes.begin(), changes.end(), std::not_fn(had)), changes.end());
    if (changes.size() < before) Tell(Text::ImportChangesLeftOut);
  }

  const DiveLog& log_;
  const LoggedDive& dive_;
  DiveTemplate& settings_;
  const TextSource& texts_;
  std::vector<std::string>& remarks_;
  std::map<std::size_t, std::int16_t> blendOf_;
};

}  // namespace

LogFault LogPlanner::Plan(const LoggedDive& dive, DiveRecord& record, std::vector<std::string>& remarks) const {
  record.Template = settings_;
  return OneDive(log_, dive, record.Template, texts_, remarks).Run(record.UserActions);
}

}  // namespace tav
