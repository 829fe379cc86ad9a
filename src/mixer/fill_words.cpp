#include "mixer/fill_words.h"

#include <algorithm>
#include <cmath>

#include "mixer/gas_words.h"
#include "model/text_id.h"

namespace tav {
namespace {

bool WithAir(const FillRequest& request) { return request.top.O2 == kAir.O2 && request.top.He == kAir.He; }

void Append(std::string& text, const std::string& sentence) { text += (text.empty() ? "" : " ") + sentence; }

}  // namespace

std::string FillWords::Unit() const { return T(metric_ ? Text::Bar : Text::Psi); }

std::string FillWords::Degrees(Single celsius) const {
  if (metric_) return T(Text::Degrees, {Plain(celsius)});
  return T(Text::DegreesBoth, {Plain(celsius), Number(celsius * 9 / 5 + 32, 0)});
}

std::vector<std::string> FillWords::Heads(const std::optional<Single>& warm, bool amount) const {
  std::vector<std::string> heads{T(Text::FillGas), T(Text::FillTo, {Unit()})};
  if (warm) heads.push_back(T(Text::FillWarmTo, {T(Text::Degrees, {Plain(*warm)}), Unit()}));
  heads.push_back(T(Text::FillIfIdeal, {Unit()}));
  if (amount) heads.push_back(T(Text::FillAmount, {T(metric_ ? Text::Litres : Text::CubicFeet)}));
  return heads;
}

std::vector<std::vector<std::string>> FillWords::Rows(const FillAdvice& advice,
                                                      const std::optional<CylinderSize>& cylinder) const {
  const FillRequest& request = advice.from;
  std::vector<std::vector<std::string>> rows{Heads(request.warm, cylinder.has_value())};
  if (!advice.list.possible) return rows;
  const std::string start = Plain(request.currentFill);
  rows.push_back({T(advice.Drains() ? Text::FillDrained : Text::FillStart), start});
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
  if (list.possible) return list.steps.empty() ? T(Text::FillNothing) : "";
  std::string gases;
  for (const FillGas gas : list.mustComeOut) {
    gases +=
        (gases.empty() ? "" : ", ") + (gas == FillGas::Top ? T(Text::Nitrogen) : NameOf(gas, advice.asked, texts_));
  }
  std::string text = T(Text::FillMustComeOut, {gases});
  if (list.drainTo) {
    const double to = *list.drainTo;
    const bool vacuum = to < (metric_ ? 1.0 : kPsiPerBar);
    Append(text,
           T(vacuum ? Text::FillEvacuateTo : Text::FillDrainTo, {Number(to, to == std::floor(to) ? 0 : 1), Unit()}));
  } else {
    Append(text, T(Text::FillNoDraining, {NameOf(FillGas::Top, advice.asked, texts_)}));
  }
  if (list.nearest) {
    Append(text, T(Text::FillNearest, {Number(list.nearest->O2, 1), Number(list.nearest->He, 1)}));
  }
  return text;
}

std::string FillWords::Depth(Single percentO2, double ppo2) const {
  const auto depth = MaximumOperatingDepth(percentO2, ppo2, metric_);
  return depth ? std::to_string(*depth) + " " + T(metric_ ? Text::Metres : Text::Feet) : T(Text::FillNoDepth);
}

std::string FillWords::WithDepths(int id, const MixShares& mix) const {
  return T(id, {Number(mix.O2, 1), Number(mix.He, 1), Depth(mix.O2, 1.4), Depth(mix.O2, 1.6), Number(1.4, 1),
                Number(1.6, 1)});
}

std::string FillWords::Outcome(const FillAdvice& advice) const {
  return advice.list.steps.empty() ? "" : WithDepths(Text::FillOutcome, advice.list.comesOut);
}

std::string FillWords::OutcomeOfSteps(const MixShares& mix) const { return WithDepths(Text::StepsGive, mix); }

std::string FillWords::IfIdeal(const FillAdvice& advice) const {
  if (advice.list.steps.empty() || IdealSteps(advice.from, GaugeMark(metric_)).empty()) return "";
  return T(Text::FillOutcomeIfIdeal, {Number(advice.list.byIdealSteps.O2, 1), Number(advice.list.byIdealSteps.He, 1)});
}

std::string FillWords::Misses(const FillAdvice& advice) const {
  const auto text = [&](int id, double by) { return T(id, {(by > 0 ? "+" : "") + Number(by, 1)}); };
  const GaugeList& list = advice.list;
  std::string missed;
  if (list.oxygenOff) missed = text(Text::FillOxygenOff, list.comesOut.O2 - advice.from.desired.O2);
  if (list.heliumOff) Append(missed, text(Text::FillHeliumOff, list.comesOut.He - advice.from.desired.He));
  return missed;
}

std::string FillWords::Warm(const FillAdvice& advice) const {
  const FillRequest& request = advice.from;
  if (!request.warm || advice.list.steps.empty()) return "";
  const FillStep& last = advice.list.steps.back();
  return T(Text::FillWarm,
           {Degrees(*request.warm), Number(last.warm, 0), Unit(), Number(last.to, 0), Degrees(request.celsius)});
}

std::string FillWords::AboutPressures(const FillRequest& request) const {
  return T(Text::FillAbsolute, {metric_ ? "1" : Number(kPsiPerBar, 1), Unit()}) + " " +
         T(Text::FillTemperature, {Degrees(request.celsius)});
}

std::string FillWords::AboutAirTop(const FillResult& result, const FillRequest& request) const {
  std::string text = WithAir(request) ? "" : T(Text::FillWithAir);
  std::string gases;
  for (const auto& [amount, name] :
       {std::pair(result.Heneed, Text::Helium), {result.AirO2, Text::Oxygen}, {result.Air, Text::Nitrogen}}) {
    if (amount < 0) gases += (gases.empty() ? "" : ", ") + T(name);
  }
  if (!gases.empty()) Append(text, T(Text::FillOutOfReach, {gases}));
  return text;
}

std::string FillWords::AboutVanDerWaals(const FillResult& result, const FillRequest& request) const {
  std::string text = WithAir(request) ? "" : T(Text::FillWithAir);
  const auto negative = [](const std::string& figure) { return figure.starts_with('-'); };
  if (negative(result.IdealTopO2) || negative(result.IdealTopHe) || negative(result.IdealTopN2)) {
    Append(text, T(Text::FillNoPressure));
  }
  return text;
}

}  // namespace tav
