#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <random>

#include "compute/compute.h"
#include "model/number_text.h"
#include "model/template_faults.h"
#include "support/random_plan.h"

// A slip in a plan or a template is refused with file and line, or gives the schedule of the values that stand there:
// thousands of slips are made in the text, and in a record beside it that no reader has touched.

namespace tav {
namespace {

using test::RandomPlan;
using Random = std::mt19937;

template <class List>
const auto& OneOf(const List& list, Random& random) {
  return list[random() % std::size(list)];
}

/// A slip: the text with it, the plan as its values say, and what must come of it.
struct Mutant {
  RandomPlan typed;
  std::string text;
  bool refused = false;  ///< it can't be read, whatever the values are
  bool advice = false;   ///< it is read as told, and that is said
};

/// Puts `value` in place of what stands behind `key`, in its line.
void Put(Mutant& mutant, const std::string& key, const std::string& value) {
  const std::size_t line = mutant.text.find("\r\n" + key + "=");
  ASSERT_NE(line, std::string::npos) << key;
  const std::size_t begin = line + 3 + key.size();
  mutant.text.replace(begin, mutant.text.find("\r\n", begin) - begin, value);
}

void Drop(Mutant& mutant, const std::string& key) {
  const std::size_t line = mutant.text.find("\r\n" + key + "=");
  ASSERT_NE(line, std::string::npos) << key;
  mutant.text.erase(line, mutant.text.find("\r\n", line + 2) - line);
}

constexpr double kValues[] = {0, -1, 0.16, 0.3, 0.5, 0.85, 1,  1.013, 1.2, 1.25, 1.3,     1.6,  2,    3,   3.5,
                              5, 6,  9,    15,  18,  21,   30, 40,    85,  99,   1013.25, 5000, 9000, 1e5, 2e6};

/// A number as people write it. Strict places take none of the odd ones.
std::string Written(double value, bool strict, Mutant& mutant, Random& random) {
  const std::string plain = FormatPlain(value);
  switch (random() % 12) {
    case 0:
      return "  " + plain + "\t";
    case 1:
      return FormatPadded(value);
    case 2:
      return plain + "e0";
    case 3:
      mutant.refused = true;
      return OneOf(std::array{"", " ", "x", "-", "about 3", ".", "nan", "inf"}, random);
    case 4:
      mutant.refused = true;
      return "1,5";
    case 5:
      if (plain.find('E') == std::string::npos) {
        (strict ? mutant.refused : mutant.advice) = true;
        return plain + OneOf(std::array{" m", "bar", "_", " 2", "'"}, random);
      }
      return plain;
    default:
      return plain;
  }
}

struct NumberField {
  const char* key;
  Single DiveTemplate::*field;
};
constexpr NumberField kNumbers[] = {{"Setpoint", &DiveTemplate::Setpoint},
                                    {"DecoSetpoint", &DiveTemplate::DecoSetpoint},
                                    {"MinPPO2", &DiveTemplate::MinPPO2},
                                    {"MaxPPO2", &DiveTemplate::MaxPPO2},
                                    {"DecoPPO2", &DiveTemplate::DecoPPO2},
                                    {"Maximal END", &DiveTemplate::MaximalEND},
                                    {"StartAltitude", &DiveTemplate::StartAltitude},
                                    {"EndAltitude", &DiveTemplate::EndAltitude},
                                    {"StartPressure", &DiveTemplate::StartPressure},
                                    {"EndPressure", &DiveTemplate::EndPressure},
                                    {"RMV", &DiveTemplate::RMV},
                                    {"DecoRMV", &DiveTemplate::DecoRMV},
                                    {"StepSize", &DiveTemplate::StepSize},
                                    {"LastStop", &DiveTemplate::LastStop}};

void NumberSlip(Mutant& mutant, Random& random) {
  const NumberField& number = OneOf(kNumbers, random);
  const double value = OneOf(kValues, random);
  mutant.typed.settings.*number.field = value;
  Put(mutant, number.key, Written(value, false, mutant, random));
  // A DecoRMV of 0 is the mark of files from before there was one.
  if (mutant.typed.settings.DecoRMV == 0) mutant.typed.settings.DecoRMV = mutant.typed.settings.RMV;
}

struct FlagField {
  const char* key;
  bool DiveTemplate::*field;
};
constexpr FlagField kFlags[] = {{"OCDeco", &DiveTemplate::OCDeco},
                                {"Open Circuit", &DiveTemplate::OpenCircuit},
                                {"AdeptedToHeight", &DiveTemplate::AdeptedToHeight},
                                {"DepthAdjust", &DiveTemplate::DepthAdjust},
                                {"O2Narcotic", &DiveTemplate::O2Narcotic}};

void FlagSlip(Mutant& mutant, Random& random) {
  const FlagField& flag = OneOf(kFlags, random);
  const bool value = random() % 2 == 0;
  mutant.typed.settings.*flag.field = value;
  mutant.refused = random() % 3 == 0;
  Put(mutant, flag.key,
      mutant.refused ? OneOf(std::array{"", "yes", "true", "1,", "0 1", "on"}, random)
      : value        ? OneOf(std::array{"1", " 1 ", "1.0", "+1"}, random)
                     : OneOf(std::array{"0", " 0", "0.0", "-0"}, random));
}

void FactorSlip(Mutant& mutant, Random& random) {
  DiveTemplate& t = mutant.typed.settings;
  t.UseGF = random() % 4 != 0;
  t.GFHigh = OneOf(kValues, random);
  t.GFLow = OneOf(kValues, random);
  const std::string flag = t.UseGF ? "1," : "0,";
  Put(mutant, "GF", flag + Written(t.GFHigh, false, mutant, random) + "," + Written(t.GFLow, false, mutant, random));
  // "1,5" is then one value too many, or two values where one was meant.
}

void RateSlip(Mutant& mutant, Random& random) {
  const bool up = random() % 2 == 0;
  std::vector<RateEntry>& rates = up ? mutant.typed.settings.AscendRates : mutant.typed.settings.DescendRates;
  rates.clear();
  std::string text;
  for (std::size_t n = random() % 4; n > 0; --n) {
    const RateEntry entry{OneOf(kValues, random), rates.empty() ? 0 : OneOf(kValues, random)};
    text += Written(entry.Depth, false, mutant, random) + (random() % 12 == 0 ? mutant.refused = true, "" : ":") +
            Written(entry.Rate, false, mutant, random) + ",";
    rates.push_back(entry);
  }
  if (!text.empty() && !mutant.refused && random() % 6 == 0) {
    // What stands behind the last comma is not read, and that is said.
    text.pop_back();
    rates.pop_back();
    mutant.advice = true;
  }
  Put(mutant, up ? "AscendRates" : "DescendRates", text);
}

void GasSlip(Mutant& mutant, Random& random) {
  GasMix& mix = mutant.typed.settings.Blends.at(1);
  for (Single* share : {&mix.O2, &mix.N2, &mix.He})
    *share = OneOf(std::array{0.0, 16.0, 21.0, 34.0, 45.0, 50.0, 79.0}, random);
  if (random() % 2 == 0) mix.N2 = 100 - mix.O2 - mix.He;
  Put(mutant, "Blends Available",
      mix.Name + ":" + Written(mix.O2, false, mutant, random) + "/" + Written(mix.N2, false, mutant, random) + "/" +
          Written(mix.He, false, mutant, random) + "/");
}

void ChangeSlip(Mutant& mutant, Random& random) {
  std::vector<GasChange>& changes = mutant.typed.settings.ChangeGasMixes;
  changes.clear();
  std::string text;
  for (std::size_t n = random() % 4; n > 0; --n) {
    const bool known = random() % 6 != 0;
    changes.push_back({known ? OneOf(mutant.typed.settings.Blends, random).Name : "nitrox", 0, 0, 0,
                       OneOf(std::array{3.0, 6.0, 9.0, 21.0, 21.5, 40.0}, random)});
    mutant.advice = mutant.advice || !known;
    text += Written(changes.back().Depth, true, mutant, random) + ":" + changes.back().Name + ",";
  }
  Put(mutant, "Change Gas Mixes", text);
}

/// A line that a dive must have; a template then has the program's own value there.
void LineSlip(Mutant& mutant, bool dive, Random& random) {
  const NumberField& number = OneOf(kNumbers, random);
  DiveTemplate& t = mutant.typed.settings;
  Drop(mutant, number.key);
  if (number.field == &DiveTemplate::DecoRMV) {
    t.DecoRMV = t.RMV;
    return;
  }
  mutant.refused = dive;
  mutant.advice = true;
  t.*number.field = ShippedDefaultTemplate().*number.field;
}

void ActionSlip(Mutant& mutant, Random& random) {
  const double depth = OneOf(std::array{12.0, 18.5, 30.0, 45.0, -3.0, 20000.0}, random);
  const double time = OneOf(std::array{3.0, 12.5, 40.0, -3.0, 2e5}, random);
  const int mix = static_cast<int>(random() % 10);
  static const char* const kEnds[] = {"0,", "0", " 0 ,", "0.0,"};
  static const char* const kBadEnds[] = {"", ",", "2,", "0.4,", "-1,", "0,0,", "leg,", "0;"};
  const bool bad = random() % 4 == 0;
  const auto number = [&](double value) { return bad ? FormatPlain(value) : Written(value, true, mutant, random); };
  const std::string numbers = number(depth) + "," + number(time) + ",";
  mutant.refused = mutant.refused || bad;
  std::string line = numbers + std::to_string(mix) + "," + (bad ? OneOf(kBadEnds, random) : OneOf(kEnds, random));
  if (random() % 10 == 0) line = ReplaceAll(line, ",", ";"), mutant.refused = true;
  const std::size_t first = mutant.text.find("\r\n", mutant.text.find("SurfTime")) + 2;
  mutant.text.replace(first, mutant.text.find("\r\n", first) - first, line);
  mutant.typed.actions.setuser(1, depth, time, static_cast<std::int16_t>(mix));
}

Mutant MakeMutant(bool dive, Random& random) {
  Mutant mutant;
  mutant.typed = test::MakePlan(random);
  mutant.typed.settings.OpenCircuit = random() % 2 == 0;
  mutant.text = dive ? test::File(mutant.typed) : WriteTemplateBlock(mutant.typed.settings);
  switch (random() % (dive ? 8 : 7)) {
    case 0:
    case 1:
      NumberSlip(mutant, random);
      break;
    case 2:
      FlagSlip(mutant, random);
      break;
    case 3:
      FactorSlip(mutant, random);
      break;
    case 4:
      RateSlip(mutant, random);
      break;
    case 5:
      random() % 2 == 0 ? GasSlip(mutant, random) : ChangeSlip(mutant, random);
      break;
    case 6:
      LineSlip(mutant, dive, random);
      break;
    default:
      ActionSlip(mutant, random);
  }
  return mutant;
}

/// What was read and the advice with it; nothing with the line of the fault when it was refused.
struct Outcome {
  std::optional<RandomPlan> plan;
  std::vector<FormatFault> advice;
  int line = 0;
};

Outcome Read(const Mutant& mutant, bool dive) {
  FormatFaults faults("x", FormatFaults::Mode::StopAtFirstError);
  Outcome outcome;
  try {
    outcome.plan = mutant.typed;
    if (dive) {
      DiveRecord record = ReadProfileText(mutant.text, faults).dives.at(0);
      outcome.plan = RandomPlan{record.Template, record.UserActions};
    } else {
      outcome.plan->settings = ShippedDefaultTemplate();
      ReadTemplateText(outcome.plan->settings, mutant.text, faults);
    }
    outcome.advice = faults.List();
  } catch (const FileError& error) {
    outcome.plan.reset();
    outcome.line = error.Line();
  }
  return outcome;
}

/// Every row as text.
std::string Schedule(const RandomPlan& plan) {
  EngineObserver silent;
  const ComputedPlan computed = Compute({plan.settings, 0, plan.actions}, {}, nullptr, silent);
  if (!computed.fault.IsEmpty()) return "none: " + computed.fault.Raw();
  std::string text;
  const ClassProfile& rows = computed.rows;
  for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
    text += FormatPlain(rows.getDepth(i)) + " " + FormatPlain(rows.GetRunTime(i)) + " " + rows.GetGasMixName(i) + " " +
            FormatPlain(rows.getTotalCNS(i)) + " " + FormatPlain(rows.Row(i).GasUsed) + "\n";
  }
  return text;
}

TEST(Mutants, AreRefusedWithTheirLineOrGiveTheScheduleOfTheirValues) {
  Random random(18);
  int refused = 0;
  int told = 0;
  for (int n = 0; n < 2000; ++n) {
    const bool dive = n % 2 == 0;
    const Mutant mutant = MakeMutant(dive, random);
    ASSERT_FALSE(testing::Test::HasFatalFailure());
    const Outcome outcome = Read(mutant, dive);
    const bool sound = !mutant.refused && TemplateFaults(mutant.typed.settings).empty() &&
                       PlanFaults(mutant.typed.actions, mutant.typed.settings).empty();
    ASSERT_EQ(outcome.plan.has_value(), sound) << mutant.text;
    if (!sound) {
      ASSERT_GE(outcome.line, 1) << mutant.text;
      ++refused;
      continue;
    }
    if (mutant.advice) {
      ASSERT_FALSE(outcome.advice.empty()) << mutant.text;
      ++told;
    }
    ASSERT_EQ(Schedule(*outcome.plan), Schedule(mutant.typed)) << mutant.text;
  }
  // The campaign tries what it says: all three outcomes in numbers.
  EXPECT_GT(refused, 500);
  EXPECT_LT(refused, 1700);
  EXPECT_GT(told, 30);
}

}  // namespace
}  // namespace tav
