#include "mixer/fill_words.h"

#include <algorithm>
#include <cmath>

namespace tav {
namespace {

constexpr int kBar = 6314;
constexpr int kPsi = 6315;
constexpr int kGas = 7401;
constexpr int kFillTo = 7402;
constexpr int kIdealFillTo = 7403;
constexpr int kAmount = 7404;
constexpr int kStart = 7405;
constexpr int kHelium = 7406;
constexpr int kOxygen = 7407;
constexpr int kAir = 7408;
constexpr int kNitrogen = 7409;
constexpr int kMustComeOut = 7410;
constexpr int kDrainTo = 7412;
constexpr int kEvacuateTo = 7413;
constexpr int kNoDraining = 7414;
constexpr int kNothingToAdd = 7415;
constexpr int kOutcome = 7416;
constexpr int kIfIdeal = 7417;
constexpr int kOxygenMisses = 7418;
constexpr int kHeliumMisses = 7419;
constexpr int kAboutPressures = 7420;
constexpr int kNotForIdeal = 7421;
constexpr int kNoDepth = 7422;
constexpr int kLitres = 7423;
constexpr int kCubicFeet = 7424;
constexpr int kMetres = 7425;
constexpr int kFeet = 7426;

}  // namespace

std::string NameOf(FillGas gas, const TextSource& texts) {
  switch (gas) {
    case FillGas::Helium:
      return texts.GetResString(kHelium);
    case FillGas::Oxygen:
      return texts.GetResString(kOxygen);
    case FillGas::Air:
      break;
  }
  return texts.GetResString(kAir);
}

std::string FillWords::Written(const std::string& number) const {
  return decimal_.empty() ? number : ReplaceAll(number, ".", decimal_);
}

std::string FillWords::Number(Single value, int decimals) const { return Written(FormatFixed(value, decimals)); }

std::string FillWords::Unit() const { return T(metric_ ? kBar : kPsi); }

std::vector<std::string> FillWords::Heads(bool amount) const {
  std::vector<std::string> heads{T(kGas), T(kFillTo, {Unit()}), T(kIdealFillTo, {Unit()})};
  if (amount) heads.push_back(T(kAmount, {T(metric_ ? kLitres : kCubicFeet)}));
  return heads;
}

std::vector<std::vector<std::string>> FillWords::Rows(const FillRequest& request, const GaugeList& list,
                                                      const std::optional<CylinderSize>& cylinder) const {
  const std::string start = Written(FormatPlain(request.currentFill));
  std::vector<std::vector<std::string>> rows{Heads(cylinder.has_value()), {T(kStart), start, start}};
  rows.back().resize(rows.front().size());
  const auto ideal = IdealSteps(request, GaugeMark(metric_));
  const auto stepOf = [](const std::vector<FillStep>& steps, FillGas gas) -> const FillStep* {
    const auto found = std::ranges::find(steps, gas, &FillStep::gas);
    return found == steps.end() ? nullptr : &*found;
  };
  const auto to = [this](const FillStep* step) { return step == nullptr ? "-" : Number(step->to, 0); };
  for (const FillGas gas : kFillOrder) {
    const FillStep* real = stepOf(list.steps, gas);
    const FillStep* other = stepOf(ideal, gas);
    if (real == nullptr && other == nullptr) continue;
    rows.push_back({NameOf(gas, texts_), to(real), to(other)});
    if (!cylinder) continue;
    const double amount = real == nullptr ? 0 : real->added * cylinder->FreeGasPerBar(metric_);
    rows.back().push_back(Number(amount, metric_ ? 0 : 1));
  }
  return rows;
}

std::string FillWords::Hindrance(const FillRequest& request, const GaugeList& list) const {
  if (list.Possible()) {
    if (list.steps.empty()) return T(kNothingToAdd);
    return Recalculate(request).AirImpossible ? T(kNotForIdeal) : "";
  }
  std::string gases;
  for (const FillGas gas : list.mustComeOut) {
    gases += (gases.empty() ? "" : ", ") + (gas == FillGas::Air ? T(kNitrogen) : NameOf(gas, texts_));
  }
  std::string text = T(kMustComeOut, {gases}) + " ";
  if (!list.drainTo) return text + T(kNoDraining);
  const double to = *list.drainTo;
  const bool vacuum = to < (metric_ ? 1.0 : kPsiPerBar);
  text += T(vacuum ? kEvacuateTo : kDrainTo, {Number(to, to == std::floor(to) ? 0 : 1), Unit()});
  FillRequest drained = request;
  drained.currentFill = to;
  return Recalculate(drained).AirImpossible ? text + " " + T(kNotForIdeal) : text;
}

std::string FillWords::Depth(Single percentO2, double ppo2) const {
  const auto depth = MaximumOperatingDepth(percentO2, ppo2, metric_);
  return depth ? std::to_string(*depth) + " " + T(metric_ ? kMetres : kFeet) : T(kNoDepth);
}

std::string FillWords::Outcome(const GaugeList& list) const {
  if (list.steps.empty()) return "";
  return T(kOutcome, {Number(list.comesOut.O2, 1), Number(list.comesOut.He, 1), Depth(list.comesOut.O2, 1.4),
                      Depth(list.comesOut.O2, 1.6), Number(1.4, 1), Number(1.6, 1)});
}

std::string FillWords::IfIdeal(const GaugeList& list) const {
  if (list.steps.empty()) return "";
  return T(kIfIdeal, {Number(list.ifIdeal.O2, 1), Number(list.ifIdeal.He, 1)});
}

std::string FillWords::Misses(const FillRequest& request, const GaugeList& list) const {
  const auto text = [&](int id, double by) { return T(id, {(by > 0 ? "+" : "") + Number(by, 1)}); };
  std::string missed;
  if (list.oxygenOff) missed = text(kOxygenMisses, list.comesOut.O2 - request.desired.O2);
  if (list.heliumOff) {
    missed += (missed.empty() ? "" : " ") + text(kHeliumMisses, list.comesOut.He - request.desired.He);
  }
  return missed;
}

std::string FillWords::AboutPressures() const {
  return T(kAboutPressures, {metric_ ? "1" : Number(kPsiPerBar, 1), Unit()});
}

}  // namespace tav
