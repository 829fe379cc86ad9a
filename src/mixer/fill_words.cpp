#include "mixer/fill_words.h"

#include <algorithm>
#include <cmath>

#include "mixer/gas_words.h"

namespace tav {
namespace {

constexpr int kBar = 6314;
constexpr int kPsi = 6315;
constexpr int kGas = 7401;
constexpr int kFillTo = 7402;
constexpr int kIdealFillTo = 7403;
constexpr int kAmount = 7404;
constexpr int kStart = 7405;
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
constexpr int kNoDepth = 7422;
constexpr int kLitres = 7423;
constexpr int kCubicFeet = 7424;
constexpr int kMetres = 7425;
constexpr int kFeet = 7426;
constexpr int kTemperature = 8401;
constexpr int kOutOfReach = 8403;
constexpr int kNoPressure = 8404;
constexpr int kBlockTakesAir = 8405;
constexpr int kNearest = 8406;
constexpr int kWarm = 8407;
constexpr int kWarmFillTo = 8408;
constexpr int kDrained = 8409;
constexpr int kDegrees = 8410;
constexpr int kDegreesBoth = 8411;
constexpr int kStepsGive = 8414;

bool WithAir(const FillRequest& request) { return request.top.O2 == kAir.O2 && request.top.He == kAir.He; }

void Append(std::string& text, const std::string& sentence) { text += (text.empty() ? "" : " ") + sentence; }

}  // namespace

std::string FillWords::Unit() const { return T(metric_ ? kBar : kPsi); }

std::string FillWords::Degrees(Single celsius) const {
  if (metric_) return T(kDegrees, {Plain(celsius)});
  return T(kDegreesBoth, {Plain(celsius), Number(celsius * 9 / 5 + 32, 0)});
}

std::vector<std::string> FillWords::Heads(const std::optional<Single>& warm, bool amount) const {
  std::vector<std::string> heads{T(kGas), T(kFillTo, {Unit()})};
  if (warm) heads.push_back(T(kWarmFillTo, {T(kDegrees, {Plain(*warm)}), Unit()}));
  heads.push_back(T(kIdealFillTo, {Unit()}));
  if (amount) heads.push_back(T(kAmount, {T(metric_ ? kLitres : kCubicFeet)}));
  return heads;
}

std::vector<std::vector<std::string>> FillWords::Rows(const FillAdvice& advice,
                                                      const std::optional<CylinderSize>& cylinder) const {
  const FillRequest& request = advice.from;
  std::vector<std::vector<std::string>> rows{Heads(request.warm, cylinder.has_value())};
  if (!advice.list.possible) return rows;
  const std::string start = Plain(request.currentFill);
  rows.push_back({T(advice.Drains() ? kDrained : kStart), start});
  if (request.warm) rows.back().emplace_back();
  rows.back().push_back(start);
  rows.back().resize(rows.front().size());
  const auto ideal = IdealSteps(request, GaugeMark(metric_));
  const auto stepOf = [](const std::vector<FillStep>& steps, FillGas gas) -> const FillStep* {
    const auto found = std::ranges::find(steps, gas, &FillStep::gas);
    return found == steps.end() ? nullptr : &*found;
  };
  for (const FillGas gas : kFillOrder) {
    const FillStep* real = stepOf(advice.list.steps, gas);
    const FillStep* other = stepOf(ideal, gas);
    if (real == nullptr && other == nullptr) continue;
    rows.push_back({NameOf(gas, request, texts_), real == nullptr ? "-" : Number(real->to, 0)});
    if (request.warm) rows.back().push_back(real == nullptr ? "-" : Number(real->warm, 0));
    rows.back().push_back(other == nullptr ? "-" : Number(other->to, 0));
    if (!cylinder) continue;
    const double amount = real == nullptr ? 0 : real->added * cylinder->FreeGas(metric_);
    rows.back().push_back(Number(amount, metric_ ? 0 : 1));
  }
  return rows;
}

std::string FillWords::Hindrance(const FillAdvice& advice) const {
  const GaugeList& list = advice.AsAsked();
  if (list.possible) return list.steps.empty() ? T(kNothingToAdd) : "";
  std::string gases;
  for (const FillGas gas : list.mustComeOut) {
    gases += (gases.empty() ? "" : ", ") + (gas == FillGas::Top ? T(kNitrogen) : NameOf(gas, advice.asked, texts_));
  }
  std::string text = T(kMustComeOut, {gases});
  if (list.drainTo) {
    const double to = *list.drainTo;
    const bool vacuum = to < (metric_ ? 1.0 : kPsiPerBar);
    Append(text, T(vacuum ? kEvacuateTo : kDrainTo, {Number(to, to == std::floor(to) ? 0 : 1), Unit()}));
  } else {
    Append(text, T(kNoDraining, {NameOf(FillGas::Top, advice.asked, texts_)}));
  }
  if (list.nearest) {
    Append(text, T(kNearest, {Number(list.nearest->O2, 1), Number(list.nearest->He, 1)}));
  }
  return text;
}

std::string FillWords::Depth(Single percentO2, double ppo2) const {
  const auto depth = MaximumOperatingDepth(percentO2, ppo2, metric_);
  return depth ? std::to_string(*depth) + " " + T(metric_ ? kMetres : kFeet) : T(kNoDepth);
}

std::string FillWords::WithDepths(int id, const MixShares& mix) const {
  return T(id, {Number(mix.O2, 1), Number(mix.He, 1), Depth(mix.O2, 1.4), Depth(mix.O2, 1.6), Number(1.4, 1),
                Number(1.6, 1)});
}

std::string FillWords::Outcome(const FillAdvice& advice) const {
  return advice.list.steps.empty() ? "" : WithDepths(kOutcome, advice.list.comesOut);
}

std::string FillWords::OutcomeOfSteps(const MixShares& mix) const { return WithDepths(kStepsGive, mix); }

std::string FillWords::IfIdeal(const FillAdvice& advice) const {
  if (advice.list.steps.empty() || IdealSteps(advice.from, GaugeMark(metric_)).empty()) return "";
  return T(kIfIdeal, {Number(advice.list.byIdealSteps.O2, 1), Number(advice.list.byIdealSteps.He, 1)});
}

std::string FillWords::Misses(const FillAdvice& advice) const {
  const auto text = [&](int id, double by) { return T(id, {(by > 0 ? "+" : "") + Number(by, 1)}); };
  const GaugeList& list = advice.list;
  std::string missed;
  if (list.oxygenOff) missed = text(kOxygenMisses, list.comesOut.O2 - advice.from.desired.O2);
  if (list.heliumOff) Append(missed, text(kHeliumMisses, list.comesOut.He - advice.from.desired.He));
  return missed;
}

std::string FillWords::Warm(const FillAdvice& advice) const {
  const FillRequest& request = advice.from;
  if (!request.warm || advice.list.steps.empty()) return "";
  const FillStep& last = advice.list.steps.back();
  return T(kWarm, {Degrees(*request.warm), Number(last.warm, 0), Unit(), Number(last.to, 0), Degrees(request.celsius)});
}

std::string FillWords::AboutPressures(const FillRequest& request) const {
  return T(kAboutPressures, {metric_ ? "1" : Number(kPsiPerBar, 1), Unit()}) + " " +
         T(kTemperature, {Degrees(request.celsius)});
}

std::string FillWords::AboutAirTop(const FillResult& result, const FillRequest& request) const {
  std::string text = WithAir(request) ? "" : T(kBlockTakesAir);
  std::string gases;
  for (const auto& [amount, name] :
       {std::pair(result.Heneed, kHelium), {result.AirO2, kOxygen}, {result.Air, kNitrogen}}) {
    if (amount < 0) gases += (gases.empty() ? "" : ", ") + T(name);
  }
  if (!gases.empty()) Append(text, T(kOutOfReach, {gases}));
  return text;
}

std::string FillWords::AboutVanDerWaals(const FillResult& result, const FillRequest& request) const {
  std::string text = WithAir(request) ? "" : T(kBlockTakesAir);
  const auto negative = [](const std::string& figure) { return figure.starts_with('-'); };
  if (negative(result.IdealTopO2) || negative(result.IdealTopHe) || negative(result.IdealTopN2)) {
    Append(text, T(kNoPressure));
  }
  return text;
}

}  // namespace tav
