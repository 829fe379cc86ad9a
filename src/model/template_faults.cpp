#include "model/template_faults.h"

#include <cmath>
#include <utility>

#include "model/altitude.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {
namespace {

// Stops closer than a tenth of a unit mean nothing in water, and a step near 0 would give stops without end.
constexpr double kSmallestStep = 0.1;

// Slower than this a move takes longer than the longest leg; far below, its time has no place in 32 bits.
constexpr double kSlowestRate = 0.1;

// Far above any depth, pressure or volume; what lies far beyond overflows the 32 bits of a result.
constexpr double kLargestNumber = 1e6;

// Surface pressures of shores, bar or atmospheres: with room above sea level, and the highest lakes far within.
constexpr double kLowestPressure = 0.3;
constexpr double kHighestPressure = 1.2;
constexpr double kHectopascalPerBar = 1000;

// From here on a gradient factor is taken for per cent.
constexpr double kLeastPercent = 2;

// Of 100 %: shares are often written in whole numbers.
constexpr double kSumTolerance = 0.5;

class Checker {
 public:
  explicit Checker(const DiveTemplate& diveTemplate) : template_(diveTemplate) {}

  std::vector<TemplateFault> Run() {
    CheckNumbers();
    CheckStops();
    CheckSurface();
    CheckRates(template_.AscendRates, "AscendRates", Text::Ascent);
    CheckRates(template_.DescendRates, "DescendRates", Text::Descent);
    CheckGases();
    return std::move(faults_);
  }

 private:
  void Add(std::string key, Message text) { faults_.push_back({std::move(key), std::move(text)}); }

  void CheckNumbers() {
    const std::pair<const char*, Single> numbers[] = {{"Setpoint", template_.Setpoint},
                                                      {"DecoSetpoint", template_.DecoSetpoint},
                                                      {"MinPPO2", template_.MinPPO2},
                                                      {"Maximal END", template_.MaximalEND},
                                                      {"MaxPPO2", template_.MaxPPO2},
                                                      {"DecoPPO2", template_.DecoPPO2},
                                                      {"StartAltitude", template_.StartAltitude},
                                                      {"StartPressure", template_.StartPressure},
                                                      {"EndAltitude", template_.EndAltitude},
                                                      {"EndPressure", template_.EndPressure},
                                                      {"RMV", template_.RMV},
                                                      {"DecoRMV", template_.DecoRMV},
                                                      {"StepSize", template_.StepSize},
                                                      {"LastStop", template_.LastStop},
                                                      {"GF", template_.GFHigh},
                                                      {"GF", template_.GFLow}};
    for (const auto& [key, value] : numbers) {
      if (!CanBe(value)) Add(key, NumberFault(key, value));
    }
    const std::pair<const char*, Single> amounts[] = {
        {"Setpoint", template_.Setpoint}, {"DecoSetpoint", template_.DecoSetpoint},
        {"MinPPO2", template_.MinPPO2},   {"MaxPPO2", template_.MaxPPO2},
        {"DecoPPO2", template_.DecoPPO2}, {"Maximal END", template_.MaximalEND},
        {"RMV", template_.RMV},           {"DecoRMV", template_.DecoRMV}};
    for (const auto& [key, value] : amounts) {
      if (CanBe(value) && value < 0) Add(key, {Text::KeyNegative, {key, FormatPlain(value)}});
    }
  }

  /// Whether a number of a template can be this one. Asked before each run, so the words are made only when it can't.
  static bool CanBe(Single value) { return std::isfinite(value) && std::fabs(value) <= kLargestNumber; }

  static Message NumberFault(const Message& what, Single value) {
    if (!std::isfinite(value)) return {Text::NotFinite, {what}};
    return {Text::BeyondRange, {what, FormatPlain(value), FormatPlain(kLargestNumber)}};
  }

  void CheckStops() {
    if (std::isfinite(template_.StepSize) && !(template_.StepSize >= Single(kSmallestStep))) {
      Add("StepSize", {Text::StepTooSmall, {FormatPlain(template_.StepSize), FormatPlain(kSmallestStep)}});
    }
    CheckWithin("LastStop", template_.LastStop, 0, template_.Metric ? 30 : 100);
    for (const Single factor : {template_.GFHigh, template_.GFLow}) {
      if (!CanBe(factor)) continue;
      if (factor < 0) Add("GF", {Text::KeyNegative, {"GF", FormatPlain(factor)}});
      if (factor >= kLeastPercent)
        Add("GF", {Text::KeyPercent, {"GF", FormatPlain(factor), FormatPlain(factor / 100)}});
    }
    if (!template_.OpenCircuit) {
      if (template_.Setpoint == 0) Add("Setpoint", Text::NoSetpoint);
      if (!template_.OCDeco && template_.DecoSetpoint == 0) Add("DecoSetpoint", Text::NoDecoSetpoint);
    }
  }

  void CheckWithin(const char* key, Single value, double least, double most) {
    if (!CanBe(value) || (value >= Single(least) && value <= Single(most))) return;
    Add(key, {Text::KeyOutside, {key, FormatPlain(least), FormatPlain(most), FormatPlain(value)}});
  }

  void CheckPressure(const char* key, Single value) {
    const Single inBar = value / kHectopascalPerBar;
    if (CanBe(value) && inBar >= Single(kLowestPressure) && inBar <= Single(kHighestPressure)) {
      Add(key, {Text::KeyHectopascal, {key, FormatPlain(value), FormatPlain(inBar)}});
    } else {
      CheckWithin(key, value, kLowestPressure, kHighestPressure);
    }
  }

  void CheckSurface() {
    CheckPressure("StartPressure", template_.StartPressure);
    CheckPressure("EndPressure", template_.EndPressure);
    for (const auto& [key, altitude] :
         {std::pair{"StartAltitude", template_.StartAltitude}, std::pair{"EndAltitude", template_.EndAltitude}}) {
      CheckWithin(key, altitude, template_.Metric ? -500 : -1640, template_.Metric ? 6000 : 19685);
    }
  }

  /// `move` is the text of "ascent" or "descent".
  void CheckRates(const std::vector<RateEntry>& rates, const std::string& key, int move) {
    if (rates.empty()) {
      Add(key, {Text::NoRate, {move}});
      return;
    }
    if (rates.front().Depth > 0) Add(key, {Text::NoRateAtSurface, {move}});
    for (std::size_t i = 0; i < rates.size(); ++i) {
      const Single depth = rates[i].Depth;
      const Single rate = rates[i].Rate;
      if (!CanBe(depth) || !CanBe(rate)) {
        Add(key, NumberFault({Text::NumberOfRates, {move}}, CanBe(depth) ? rate : depth));
        continue;
      }
      if (!(rate >= Single(kSlowestRate))) {
        Add(key, {Text::RateTooSlow, {move, FormatPlain(depth), FormatPlain(rate), FormatPlain(kSlowestRate)}});
      }
      if (i > 0 && !(rates[i].Depth > rates[i - 1].Depth)) Add(key, {Text::RatesNotInOrder, {move}});
    }
  }

  static Message GasFault(const GasMix& mix) {
    const auto outside = [](Single percent) { return percent < 0 || percent > 100; };
    if (!std::isfinite(mix.O2) || !std::isfinite(mix.N2) || !std::isfinite(mix.He))
      return {Text::GasNotFinite, {mix.Name}};
    if (outside(mix.O2) || outside(mix.N2) || outside(mix.He)) return {Text::GasOutside, {mix.Name}};
    const double sum = mix.O2 + mix.N2 + mix.He;
    if (sum == 0) return {Text::GasEmpty, {mix.Name}};
    if (std::fabs(sum - 100) > kSumTolerance)
      return {Text::KeySumOfShares, {"Blends Available", mix.Name, FormatPlain(sum)}};
    return {};
  }

  void CheckGases() {
    if (template_.Blends.empty()) Add("Blends Available", Text::NoGas);
    for (std::size_t i = 0; i < template_.Blends.size(); ++i) {
      const Message fault = GasFault(template_.Blends[i]);
      // Air, element 0, has no line of its own.
      if (!fault.IsEmpty()) faults_.push_back({"Blends Available", fault, static_cast<int>(i) - 1});
    }
    for (const GasChange& change : template_.ChangeGasMixes) {
      if (!CanBe(change.Depth))
        Add("Change Gas Mixes", NumberFault({Text::DepthOfChange, {change.Name}}, change.Depth));
    }
  }

  const DiveTemplate& template_;
  std::vector<TemplateFault> faults_;
};

}  // namespace

std::vector<TemplateFault> TemplateFaults(const DiveTemplate& diveTemplate) { return Checker(diveTemplate).Run(); }

std::optional<Single> ContradictedPressure(Single altitude, Single pressure, bool metric) {
  constexpr double kTolerance = 0.05;  // bar: what weather makes of a day
  constexpr double kBarPerAtmosphere = 1.01325;
  const Single usual = AltitudeToPressure(altitude, metric);
  const double apart = std::fabs(usual - pressure) * (metric ? 1 : kBarPerAtmosphere);
  return apart > kTolerance ? std::optional(usual) : std::nullopt;
}

Message LegFault(Single time, Single depth, std::int16_t mix, const DiveTemplate& diveTemplate) {
  if (!(depth >= 0 && depth <= kMaximumDepth))
    return {Text::LegDepth, {FormatPlain(depth), FormatPlain(kMaximumDepth)}};
  if (!(time >= 0 && time <= kMaximumLegTime))
    return {Text::LegTime, {FormatPlain(time), FormatPlain(kMaximumLegTime)}};
  if (mix < 0 || static_cast<std::size_t>(mix) >= diveTemplate.Blends.size()) {
    const int last = static_cast<int>(diveTemplate.Blends.size()) - 1;
    return {Text::LegGas, {std::to_string(mix), std::to_string(last)}};
  }
  return {};
}

std::vector<Message> PlanFaults(const ClassUseractions& actions, const DiveTemplate& diveTemplate) {
  std::vector<Message> faults;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (actions.getaction(i) != ClassUseractions::kLeg) continue;
    const Message fault = LegFault(actions.gettime(i), actions.getDepth(i), actions.getmixnumber(i), diveTemplate);
    if (!fault.IsEmpty()) faults.emplace_back(Text::ActionFault, std::vector<Message>{std::to_string(i), fault});
  }
  return faults;
}

Message JoinFaults(const std::vector<TemplateFault>& faults) {
  std::vector<Message> texts;
  texts.reserve(faults.size());
  for (const TemplateFault& fault : faults) texts.push_back(fault.text);
  return Message::List(std::move(texts));
}

}  // namespace tav
