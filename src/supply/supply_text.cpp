#include "supply/supply_text.h"

namespace tav {
namespace {

constexpr int kGas = 2122;
constexpr int kDepth = 2101;
constexpr int kRunTime = 2103;
constexpr int kTitle = 7635;
constexpr int kLegTitle = 7636;
constexpr int kCylinders = 7637;
constexpr int kFill = 7638;
constexpr int kCarried = 7639;
constexpr int kUsed = 7640;
constexpr int kLeft = 7641;
constexpr int kPressureLeft = 7642;
constexpr int kVerdict = 7643;
constexpr int kLeg = 7644;
constexpr int kMinimum = 7645;
constexpr int kMinimumPressure = 7646;
constexpr int kTurnPressure = 7647;
constexpr int kWorking = 7648;
constexpr int kEnough = 7649;
constexpr int kIntoReserve = 7650;
constexpr int kRunsOut = 7651;
constexpr int kNoCylinder = 7652;
constexpr int kNotBreathed = 7653;
constexpr int kUnknownGas = 7654;
constexpr int kTooLittle = 7655;
constexpr int kNoWayUp = 7656;
constexpr int kWorkingOfTeam = 7657;
constexpr int kWorkingOfOne = 7658;

const std::string kNothing = "--";

using Row = std::vector<GridCell>;

GridCell Marked(std::string text, bool isShort) {
  return isShort ? GridCell{std::move(text), kRed, true} : GridCell{std::move(text)};
}

Row Heads(const std::vector<int>& ids, const AdviceWords& words) {
  Row row;
  row.reserve(ids.size());
  for (const int id : ids) row.push_back({words.T(id)});
  return row;
}

std::string PressureText(const GasStore* store, std::optional<double> pressure, const AdviceWords& words) {
  return store != nullptr && pressure ? words.Gauge(*pressure, store->gaugeInBar) : kNothing;
}

Row GasRow(const GasStore& store, const AdviceWords& words) {
  const bool isShort = IsShort(store);
  const bool hasCylinders = !store.cylinders.empty();
  const auto held = [&](const std::string& text) { return hasCylinders ? text : kNothing; };
  return {Marked(store.gas, isShort),
          {CylindersText(store, words)},
          {PressureText(&store, store.Pressure(store.carried), words)},
          {held(words.Volume(store.carried))},
          {words.Volume(store.used)},
          {held(words.Volume(store.ShownLeft(words.Metric())))},
          Marked(hasCylinders ? words.GaugeDown(*store.Pressure(store.Left()), store.gaugeInBar) : kNothing, isShort),
          Marked(VerdictText(store, words), isShort)};
}

Row LegRow(const GasSupply& supply, const LegSupply& leg, double rmv, const AdviceWords& words) {
  const GasStore* store = supply.Of(leg.gas);
  const bool hasCylinders = store != nullptr && !store->cylinders.empty();
  const bool isShort = IsShort(supply, leg);
  const auto known = [&](const std::string& text) { return leg.decompresses ? text : kNothing; };
  return {{std::to_string(leg.leg)},
          {words.Depth(leg.depth)},
          {words.Fixed(leg.runTime, 1)},
          {leg.gas},
          {hasCylinders ? words.Volume(supply.ShownLeft(leg)) : kNothing},
          Marked(known(words.Volume(leg.ShownMinimum(supply.metric))), isShort),
          Marked(known(hasCylinders ? ToActByText(*store, store->Pressure(leg.Minimum()), words) : kNothing), isShort),
          {hasCylinders ? ToActByText(*store, leg.turnPressure, words) : kNothing},
          Marked(VerdictText(supply, leg, words), isShort),
          {known(WorkingText(supply, leg, rmv, words))}};
}

}  // namespace

std::string ToActByText(const GasStore& store, std::optional<double> pressure, const AdviceWords& words) {
  if (!pressure) return kNothing;
  return words.Gauge(PressureToActBy(*pressure, store.gaugeInBar), store.gaugeInBar);
}

std::string CylindersText(const GasStore& store, const AdviceWords& words) {
  std::string text;
  for (const Cylinder& cylinder : store.cylinders) {
    if (!text.empty()) text += " + ";
    if (cylinder.Count > 1) text += std::to_string(cylinder.Count) + " x ";
    constexpr int kLitres = 7423;
    constexpr int kCubicFeet = 7424;
    text += words.Short(cylinder.Size) + " " + words.T(cylinder.InLitres() ? kLitres : kCubicFeet);
  }
  return text.empty() ? kNothing : text;
}

bool IsShort(const GasStore& store) {
  return store.verdict != GasVerdict::Enough && store.verdict != GasVerdict::NotBreathed;
}

bool IsShort(const GasSupply& supply, const LegSupply& leg) { return !supply.HoldsMinimum(leg); }

std::string VerdictText(const GasStore& store, const AdviceWords& words) {
  switch (store.verdict) {
    case GasVerdict::IntoReserve:
      return words.T(kIntoReserve);
    case GasVerdict::RunsOut:
      return words.T(kRunsOut);
    case GasVerdict::NoCylinder:
      return words.T(kNoCylinder);
    case GasVerdict::NotBreathed:
      return words.T(kNotBreathed);
    case GasVerdict::UnknownGas:
      return words.T(kUnknownGas);
    case GasVerdict::Enough:
      break;
  }
  return words.T(kEnough);
}

std::string VerdictText(const GasSupply& supply, const LegSupply& leg, const AdviceWords& words) {
  const GasStore* store = supply.Of(leg.gas);
  if (!leg.decompresses) return words.T(kNoWayUp);
  if (store == nullptr || store->cylinders.empty()) return words.T(kNoCylinder);
  return words.T(supply.HoldsMinimum(leg) ? kEnough : kTooLittle);
}

std::string WorkingText(const GasSupply& supply, const LegSupply& leg, double rmv, const AdviceWords& words) {
  const SupplyChoice& choice = supply.choice;
  return words.T(choice.team == 1 ? kWorkingOfOne : kWorkingOfTeam,
                 {std::to_string(choice.team), words.Factor(choice.stress), words.Factor(rmv), words.VolumeUnit(),
                  words.Factor(leg.ambient) + " " + words.PressureUnit(), words.Factor(choice.minutes),
                  words.Volume(leg.ascent), words.Volume(leg.sorting)});
}

SupplyTables TablesOf(const GasSupply& supply, double rmv, const AdviceWords& words) {
  SupplyTables tables;
  if (!supply.IsTold()) return tables;
  tables.gasTitle = words.T(kTitle);
  tables.legTitle = words.T(kLegTitle);
  tables.gases.reserve(supply.gases.size() + 1);
  tables.gases.push_back(Heads({kGas, kCylinders, kFill, kCarried, kUsed, kLeft, kPressureLeft, kVerdict}, words));
  for (const GasStore& store : supply.gases) tables.gases.push_back(GasRow(store, words));
  tables.legs.reserve(supply.legs.size() + 1);
  tables.legs.push_back(Heads(
      {kLeg, kDepth, kRunTime, kGas, kLeft, kMinimum, kMinimumPressure, kTurnPressure, kVerdict, kWorking}, words));
  for (const LegSupply& leg : supply.legs) tables.legs.push_back(LegRow(supply, leg, rmv, words));
  return tables;
}

SupplyTables SupplyTablesOf(const PlannedDive& dive, const SupplyChoice& choice, const TextSource& texts,
                            const LocaleSeparators& separators) {
  const DiveTemplate& settings = dive.record.Template;
  return TablesOf(SupplyOf(dive, choice), settings.RMV, AdviceWords(texts, separators, settings.Metric));
}

}  // namespace tav
