#include "supply/supply_text.h"

#include "model/text_id.h"

namespace tav {
namespace {

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
    text += words.Short(cylinder.Size) + " " + words.T(cylinder.InLitres() ? Text::Litres : Text::CubicFeet);
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
      return words.T(Text::SupplyIntoReserve);
    case GasVerdict::RunsOut:
      return words.T(Text::SupplyRunsOut);
    case GasVerdict::NoCylinder:
      return words.T(Text::SupplyNoCylinder);
    case GasVerdict::NotBreathed:
      return words.T(Text::SupplyNotBreathed);
    case GasVerdict::UnknownGas:
      return words.T(Text::SupplyUnknownGas);
    case GasVerdict::Enough:
      break;
  }
  return words.T(Text::SupplyEnough);
}

std::string VerdictText(const GasSupply& supply, const LegSupply& leg, const AdviceWords& words) {
  const GasStore* store = supply.Of(leg.gas);
  if (!leg.decompresses) return words.T(Text::SupplyNoWayUp);
  if (store == nullptr || store->cylinders.empty()) return words.T(Text::SupplyNoCylinder);
  return words.T(supply.HoldsMinimum(leg) ? Text::SupplyEnough : Text::SupplyTooLittle);
}

std::string WorkingText(const GasSupply& supply, const LegSupply& leg, double rmv, const AdviceWords& words) {
  const SupplyChoice& choice = supply.choice;
  return words.T(choice.team == 1 ? Text::SupplyWorkingOfOne : Text::SupplyWorkingOfTeam,
                 {std::to_string(choice.team), words.Factor(choice.stress), words.Factor(rmv), words.VolumeUnit(),
                  words.Factor(leg.ambient) + " " + words.PressureUnit(), words.Factor(choice.minutes),
                  words.Volume(leg.ascent), words.Volume(leg.sorting)});
}

SupplyTables TablesOf(const GasSupply& supply, double rmv, const AdviceWords& words) {
  SupplyTables tables;
  if (!supply.IsTold()) return tables;
  tables.gasTitle = words.T(Text::SupplyTitle);
  tables.legTitle = words.T(Text::SupplyLegs);
  tables.gases.reserve(supply.gases.size() + 1);
  tables.gases.push_back(Heads({Text::InfoGas, Text::SupplyCylinders, Text::SupplyFill, Text::SupplyCarried,
                                Text::SupplyUsed, Text::SupplyLeft, Text::SupplyAtEnd, Text::SupplyVerdict},
                               words));
  for (const GasStore& store : supply.gases) tables.gases.push_back(GasRow(store, words));
  tables.legs.reserve(supply.legs.size() + 1);
  tables.legs.push_back(
      Heads({Text::SupplyLeg, Text::InfoDepth, Text::InfoRun, Text::InfoGas, Text::SupplyLeft, Text::SupplyMinimumGas,
             Text::SupplyMinimum, Text::SupplyTurnAt, Text::SupplyVerdict, Text::SupplyWorking},
            words));
  for (const LegSupply& leg : supply.legs) tables.legs.push_back(LegRow(supply, leg, rmv, words));
  return tables;
}

SupplyTables SupplyTablesOf(const PlannedDive& dive, const SupplyChoice& choice, const TextSource& texts,
                            const LocaleSeparators& separators) {
  const DiveTemplate& settings = dive.record.Template;
  return TablesOf(SupplyOf(dive, choice), settings.RMV, AdviceWords(texts, separators, settings.Metric));
}

}  // namespace tav
