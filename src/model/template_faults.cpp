#include "model/template_faults.h"

#include <cmath>
#include <utility>

#include "model/altitude.h"
#include "model/number_text.h"

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

// Texts by number.
constexpr int kSumOfShares = 7941;
constexpr int kOutside = 8155;
constexpr int kHectopascal = 8156;
constexpr int kPercent = 8157;
constexpr int kNegative = 8158;
constexpr int kNotFinite = 7860;
constexpr int kTooLarge = 7861;
constexpr int kStepTooSmall = 7862;
constexpr int kNoSetpoint = 7865;
constexpr int kNoDecoSetpoint = 7866;
constexpr int kAscent = 7869;
constexpr int kDescent = 7870;
constexpr int kNoRate = 7871;
constexpr int kNoRateAtSurface = 7872;
constexpr int kNumberOfRates = 7873;
constexpr int kRateTooSlow = 7874;
constexpr int kRatesOutOfOrder = 7875;
constexpr int kGasNotFinite = 7876;
constexpr int kGasOutside = 7877;
constexpr int kGasEmpty = 7878;
constexpr int kNoGas = 7879;
constexpr int kDepthOfChange = 7880;
constexpr int kLegDepth = 7881;
constexpr int kLegTime = 7882;
constexpr int kLegGas = 7883;
constexpr int kAction = 7884;

class Checker {
 public:
  explicit Checker(const DiveTemplate& diveTemplate) : template_(diveTemplate) {}

  std::vector<TemplateFault> Run() {
    CheckNumbers();
    CheckStops();
    CheckSurface();
    CheckRates(template_.AscendRates, "AscendRates", kAscent);
    CheckRates(template_.DescendRates, "DescendRates", kDescent);
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
      if (CanBe(value) && value < 0) Add(key, {kNegative, {key, FormatPlain(value)}});
    }
  }

  /// Whether a number of a template can be this one. Asked before each run, so the words are made only when it can't.
  static bool CanBe(Single value) { return std::isfinite(value) && std::fabs(value) <= kLargestNumber; }

  static Message NumberFault(const Message& what, Single value) {
    if (!std::isfinite(value)) return {kNotFinite, {what}};
    return {kTooLarge, {what, FormatPlain(value), FormatPlain(kLargestNumber)}};
  }

  void CheckStops() {
    if (std::isfinite(template_.StepSize) && !(template_.StepSize >= Single(kSmallestStep))) {
      Add("StepSize", {kStepTooSmall, {FormatPlain(template_.StepSize), FormatPlain(kSmallestStep)}});
    }
    CheckWithin("LastStop", template_.LastStop, 0, template_.Metric ? 30 : 100);
    for (const Single factor : {template_.GFHigh, template_.GFLow}) {
      if (!CanBe(factor)) continue;
      if (factor < 0) Add("GF", {kNegative, {"GF", FormatPlain(factor)}});
      if (factor >= kLeastPercent) Add("GF", {kPercent, {"GF", FormatPlain(factor), FormatPlain(factor / 100)}});
    }
    if (!template_.OpenCircuit) {
      if (template_.Setpoint == 0) Add("Setpoint", kNoSetpoint);
      if (!template_.OCDeco && template_.DecoSetpoint == 0) Add("DecoSetpoint", kNoDecoSetpoint);
    }
  }

  void CheckWithin(const char* key, Single value, double least, double most) {
    if (!CanBe(value) || (value >= Single(least) && value <= Single(most))) return;
    Add(key, {kOutside, {key, FormatPlain(least), FormatPlain(most), FormatPlain(value)}});
  }

  void CheckPressure(const char* key, Single value) {
    const Single inBar = value / kHectopascalPerBar;
    if (CanBe(value) && inBar >= Single(kLowestPressure) && inBar <= Single(kHighestPressure)) {
      Add(key, {kHectopascal, {key, FormatPlain(value), FormatPlain(inBar)}});
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
      Add(key, {kNoRate, {move}});
      return;
    }
    if (rates.front().Depth > 0) Add(key, {kNoRateAtSurface, {move}});
    for (std::size_t i = 0; i < rates.size(); ++i) {
      const Single depth = rates[i].Depth;
      const Single rate = rates[i].Rate;
      if (!CanBe(depth) || !CanBe(rate)) {
        Add(key, NumberFault({kNumberOfRates, {move}}, CanBe(depth) ? rate : depth));
        continue;
      }
      if (!(rate >= Single(kSlowestRate))) {
        Add(key, {kRateTooSlow, {move, FormatPlain(depth), FormatPlain(rate), FormatPlain(kSlowestRate)}});
      }
      if (i > 0 && !(rates[i].Depth > rates[i - 1].Depth)) Add(key, {kRatesOutOfOrder, {move}});
    }
  }

  static Message GasFault(const GasMix& mix) {
    const auto outside = [](Single percent) { return percent < 0 || percent > 100; };
    if (!std::isfinite(mix.O2) || !std::isfinite(mix.N2) || !std::isfinite(mix.He)) return {kGasNotFinite, {mix.Name}};
    if (outside(mix.O2) || outside(mix.N2) || outside(mix.He)) return {kGasOutside, {mix.Name}};
    const double sum = mix.O2 + mix.N2 + mix.He;
    if (sum == 0) return {kGasEmpty, {mix.Name}};
    if (std::fabs(sum - 100) > kSumTolerance) return {kSumOfShares, {"Blends Available", mix.Name, FormatPlain(sum)}};
    return {};
  }

  void CheckGases() {
    if (template_.Blends.empty()) Add("Blends Available", kNoGas);
    for (std::size_t i = 0; i < template_.Blends.size(); ++i) {
      const Message fault = GasFault(template_.Blends[i]);
      // Air, element 0, has no line of its own.
      if (!fault.IsEmpty()) faults_.push_back({"Blends Available", fault, static_cast<int>(i) - 1});
    }
    for (const GasChange& change : template_.ChangeGasMixes) {
      if (!CanBe(change.Depth)) Add("Change Gas Mixes", NumberFault({kDepthOfChange, {change.Name}}, change.Depth));
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
  if (!(depth >= 0 && depth <= kMaximumDepth)) return {kLegDepth, {FormatPlain(depth), FormatPlain(kMaximumDepth)}};
  if (!(time >= 0 && time <= kMaximumLegTime)) return {kLegTime, {FormatPlain(time), FormatPlain(kMaximumLegTime)}};
  if (mix < 0 || static_cast<std::size_t>(mix) >= diveTemplate.Blends.size()) {
    const int last = static_cast<int>(diveTemplate.Blends.size()) - 1;
    return {kLegGas, {std::to_string(mix), std::to_string(last)}};
  }
  return {};
}

std::vector<Message> PlanFaults(const ClassUseractions& actions, const DiveTemplate& diveTemplate) {
  std::vector<Message> faults;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (actions.getaction(i) != ClassUseractions::kLeg) continue;
    const Message fault = LegFault(actions.gettime(i), actions.getDepth(i), actions.getmixnumber(i), diveTemplate);
    if (!fault.IsEmpty()) faults.emplace_back(kAction, std::vector<Message>{std::to_string(i), fault});
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
