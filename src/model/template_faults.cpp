#include "model/template_faults.h"

#include <cmath>
#include <utility>

#include "model/number_text.h"

namespace tav {
namespace {

// Stops closer than a tenth of a unit mean nothing in water, and a step near 0 would give stops without end.
constexpr double kSmallestStep = 0.1;

// Slower than this a move takes longer than the longest leg; far below, its time has no place in 32 bits.
constexpr double kSlowestRate = 0.1;

// Far above any depth, pressure or volume; what lies far beyond overflows the 32 bits of a result.
constexpr double kLargestNumber = 1e6;

class Checker {
 public:
  explicit Checker(const DiveTemplate& diveTemplate) : template_(diveTemplate) {}

  std::vector<TemplateFault> Run() {
    CheckNumbers();
    CheckStops();
    CheckPressures();
    CheckRates(template_.AscendRates, "AscendRates", "ascent");
    CheckRates(template_.DescendRates, "DescendRates", "descent");
    CheckGases();
    return std::move(faults_);
  }

 private:
  void Add(std::string key, std::string text) { faults_.push_back({std::move(key), std::move(text)}); }

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
      if (const std::string fault = NumberFault(value); !fault.empty()) Add(key, std::string(key) + " " + fault);
    }
  }

  /// Why no number of a template can be this one; empty when it can.
  static std::string NumberFault(Single value) {
    if (!std::isfinite(value)) return "is not a finite number";
    if (std::fabs(value) > kLargestNumber)
      return "is " + FormatPlain(value) + ", beyond " + FormatPlain(kLargestNumber);
    return {};
  }

  void CheckStops() {
    if (std::isfinite(template_.StepSize) && !(template_.StepSize >= Single(kSmallestStep))) {
      Add("StepSize", "the distance between stops is " + FormatPlain(template_.StepSize) + ", it must be at least 0.1");
    }
    if (template_.LastStop < 0) Add("LastStop", "the last stop is " + FormatPlain(template_.LastStop) + ", below 0");
    if (template_.UseGF && (template_.GFHigh < 0 || template_.GFLow < 0)) Add("GF", "a gradient factor is below 0");
    if (!template_.OpenCircuit) {
      if (!(template_.Setpoint > 0)) Add("Setpoint", "a rebreather needs a setpoint above 0");
      if (!template_.OCDeco && !(template_.DecoSetpoint > 0)) {
        Add("DecoSetpoint", "a rebreather needs a setpoint above 0 for its stops");
      }
    }
  }

  void CheckPressures() {
    if (!(template_.StartPressure > 0)) Add("StartPressure", "the surface pressure at the start must be above 0");
    if (!(template_.EndPressure > 0)) Add("EndPressure", "the surface pressure at the end must be above 0");
  }

  void CheckRates(const std::vector<RateEntry>& rates, const std::string& key, const std::string& what) {
    if (rates.empty()) {
      Add(key, "there is no " + what + " rate");
      return;
    }
    if (rates.front().Depth > 0) Add(key, "the " + what + " rates have no entry at depth 0");
    for (std::size_t i = 0; i < rates.size(); ++i) {
      std::string fault = NumberFault(rates[i].Depth);
      if (fault.empty()) fault = NumberFault(rates[i].Rate);
      const bool finite = fault.empty();
      if (!finite) Add(key, fault.insert(0, "a number of the " + what + " rates "));
      if (finite && !(rates[i].Rate >= Single(kSlowestRate))) {
        Add(key, "the " + what + " rate from depth " + FormatPlain(rates[i].Depth) + " is " +
                     FormatPlain(rates[i].Rate) + ", it must be at least 0.1");
      }
      if (i > 0 && finite && !(rates[i].Depth > rates[i - 1].Depth)) {
        Add(key, "the " + what + " rates are not in rising order of depth");
      }
    }
  }

  static std::string GasFault(const GasMix& mix) {
    const auto outside = [](Single percent) { return percent < 0 || percent > 100; };
    std::string fault;
    if (!std::isfinite(mix.O2) || !std::isfinite(mix.N2) || !std::isfinite(mix.He)) {
      fault = "holds a number that is not finite";
    } else if (outside(mix.O2) || outside(mix.N2) || outside(mix.He)) {
      fault = "has a percentage outside 0 to 100";
    } else if (mix.O2 + mix.N2 + mix.He == 0) {
      fault = "is empty";
    }
    return fault.empty() ? fault : "gas \"" + mix.Name + "\" " + fault;
  }

  void CheckGases() {
    if (template_.Blends.empty()) Add("Blends Available", "there is no gas");
    for (std::size_t i = 0; i < template_.Blends.size(); ++i) {
      const std::string fault = GasFault(template_.Blends[i]);
      // Air, element 0, has no line of its own.
      if (!fault.empty()) faults_.push_back({"Blends Available", fault, static_cast<int>(i) - 1});
    }
    for (const GasChange& change : template_.ChangeGasMixes) {
      const std::string fault = NumberFault(change.Depth);
      if (!fault.empty()) Add("Change Gas Mixes", "the depth of the change to \"" + change.Name + "\" " + fault);
    }
  }

  const DiveTemplate& template_;
  std::vector<TemplateFault> faults_;
};

}  // namespace

std::vector<TemplateFault> TemplateFaults(const DiveTemplate& diveTemplate) { return Checker(diveTemplate).Run(); }

std::string LegFault(Single time, Single depth, std::int16_t mix, const DiveTemplate& diveTemplate) {
  if (!(depth >= 0 && depth <= kMaximumDepth)) {
    return "a leg to depth " + FormatPlain(depth) + ", outside 0 to " + FormatPlain(kMaximumDepth);
  }
  if (!(time >= 0 && time <= kMaximumLegTime)) {
    return "a leg of " + FormatPlain(time) + " minutes, outside 0 to " + FormatPlain(kMaximumLegTime);
  }
  if (mix < 0 || static_cast<std::size_t>(mix) >= diveTemplate.Blends.size()) {
    return "a leg on gas number " + std::to_string(mix) + ", but the gases are numbered 0 to " +
           std::to_string(static_cast<int>(diveTemplate.Blends.size()) - 1);
  }
  return {};
}

std::vector<std::string> PlanFaults(const ClassUseractions& actions, const DiveTemplate& diveTemplate) {
  std::vector<std::string> faults;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (actions.getaction(i) != ClassUseractions::kLeg) continue;
    const std::string fault = LegFault(actions.gettime(i), actions.getDepth(i), actions.getmixnumber(i), diveTemplate);
    if (!fault.empty()) faults.push_back("action " + std::to_string(i) + ": " + fault);
  }
  return faults;
}

std::string JoinFaults(const std::vector<TemplateFault>& faults) {
  std::string joined;
  for (const TemplateFault& fault : faults) joined += (joined.empty() ? "" : "; ") + fault.text;
  return joined;
}

std::string JoinFaults(const std::vector<std::string>& faults) {
  std::string joined;
  for (const std::string& fault : faults) joined += (joined.empty() ? "" : "; ") + fault;
  return joined;
}

}  // namespace tav
