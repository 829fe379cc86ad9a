#include "supply/supply_text.h"

#include <cmath>
#include <functional>

#include "model/text_id.h"

namespace tav {
namespace {

const std::string kNothing = "--";
constexpr double kNoise = 1e-3;  // bar or psi

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

std::string CylinderText(const Cylinder& cylinder, const AdviceWords& words) {
  return (cylinder.Count > 1 ? std::to_string(cylinder.Count) + " x " : "") + words.Short(cylinder.Size) + " " +
         words.T(cylinder.InLitres() ? Text::Litres : Text::CubicFeet);
}

std::string Joined(const std::vector<std::string>& texts, const std::string& between) {
  std::string text;
  for (const std::string& next : texts) text += (text.empty() ? "" : between) + next;
  return text;
}

/// A pressure as it is told; `breathed` is that of the line that is breathed there.
using Rounding = double (*)(double pressure, bool breathed, bool inBar);
double AsItIs(double pressure, bool /*breathed*/, bool /*inBar*/) { return pressure; }
double Down(double pressure, bool /*breathed*/, bool /*inBar*/) { return std::floor(pressure + kNoise); }
double ToActBy(double pressure, bool breathed, bool inBar) {
  return breathed ? PressureToActBy(pressure, inBar) : std::ceil(pressure - kNoise);
}

/// Each line of cylinders that counts by `told(line, pressure)`; "--" for the others.
std::vector<std::string> GaugeTexts(const GasStore& store, double left, Rounding rounded,
                                    const std::function<std::string(std::size_t line, double pressure)>& told) {
  const GasStore::Gauges gauges = store.At(left);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < gauges.pressures.size(); ++i) {
    const auto pressure = gauges.pressures[i];
    const bool inBar = store.cylinders[i].InLitres();
    texts.push_back(pressure ? told(i, rounded(*pressure, i == gauges.breathed, inBar)) : kNothing);
  }
  return texts;
}

std::string GaugesText(const GasStore& store, double left, Rounding rounded, const AdviceWords& words) {
  if (!store.HasCylinders()) return kNothing;
  const auto number = [&](std::size_t, double pressure) { return words.Fixed(pressure, 0); };
  std::vector<std::string> texts = GaugeTexts(store, left, rounded, number);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool inBar = store.cylinders[i].InLitres();
    // Neighbours share their unit.
    const bool isLast = i + 1 == texts.size() || store.cylinders[i + 1].InLitres() != inBar;
    if (isLast) texts[i] += " " + words.GaugeUnit(inBar);
  }
  return Joined(texts, " / ");
}

/// The same with the cylinders named where they are not those of one line.
std::string GaugesWords(const GasStore& store, double left, Rounding rounded, const AdviceWords& words) {
  if (store.lines.size() == 1) return GaugesText(store, left, rounded, words);
  const auto named = [&](std::size_t line, double pressure) {
    const Cylinder& cylinder = store.cylinders[line];
    return words.T(Text::SupplyPressureIn, {words.Gauge(pressure, cylinder.InLitres()), CylinderText(cylinder, words)});
  };
  return Joined(GaugeTexts(store, left, rounded, named), " + ");
}

/// Nothing is left, and not less: what is printed as 0 shows 0.
double LeftOnGauges(const GasStore& store, const AdviceWords& words) {
  return store.ShownLeft(words.Metric()) >= 0 ? std::max(store.Left(), 0.0) : store.Left();
}

Row GasRow(const GasStore& store, const AdviceWords& words) {
  const bool isShort = IsShort(store);
  const bool hasCylinders = store.HasCylinders();
  const auto held = [&](const std::string& text) { return hasCylinders ? text : kNothing; };
  return {Marked(store.gas, isShort),
          {CylindersText(store, words)},
          {GaugesText(store, store.carried, AsItIs, words)},
          {held(words.Volume(store.carried))},
          {words.Volume(store.ShownBreathed(words.Metric()))},
          {held(words.Volume(store.ShownLeft(words.Metric())))},
          Marked(GaugesText(store, LeftOnGauges(store, words), Down, words), IsShort(store.ofPlan)),
          Marked(store.ofPlan != store.verdict && store.worst.leg > 0
                     ? words.T(Text::SupplyTooLittleForLeg, {std::to_string(store.worst.leg)})
                     : VerdictText(store, words),
                 isShort)};
}

Row LegRow(const GasSupply& supply, const LegSupply& leg, double rmv, const AdviceWords& words) {
  const GasStore* store = supply.Of(leg.gas);
  const bool hasCylinders = store != nullptr && store->HasCylinders();
  const bool isShort = IsShort(supply, leg);
  const auto known = [&](const std::string& text) { return leg.decompresses ? text : kNothing; };
  return {{std::to_string(leg.leg)},
          {words.Depth(leg.depth)},
          {words.Fixed(leg.runTime, 1)},
          {leg.gas},
          {hasCylinders ? words.Volume(supply.ShownLeft(leg)) : kNothing},
          Marked(known(words.Volume(leg.ShownMinimum(supply.metric))), isShort),
          Marked(known(hasCylinders ? ToActByText(*store, leg.Minimum(), words) : kNothing), isShort),
          {hasCylinders ? ToActByText(*store, leg.turnLeft, words) : kNothing},
          Marked(VerdictText(supply, leg, words), isShort),
          {known(WorkingText(supply, leg, rmv, words))}};
}

std::string LoopText(const LoopUse& loop, const AdviceWords& words) {
  if (!(loop.oxygen > 0)) return {};
  std::string diluents;
  for (const auto& [gas, volume] : loop.diluents) {
    diluents += (diluents.empty() ? "" : " + ") + words.Volume(volume) + " " + gas;
  }
  return words.T(Text::SupplyOfLoop, {words.Volume(loop.oxygen), diluents,
                                      words.Volume(kLoopLitres / (words.Metric() ? 1 : kLitresInCubicFoot))});
}

}  // namespace

std::string ToActByText(const GasStore& store, std::optional<double> left, const AdviceWords& words) {
  return left ? GaugesText(store, *left, ToActBy, words) : kNothing;
}

std::string ToActByWords(const GasStore& store, double left, const AdviceWords& words) {
  return GaugesWords(store, left, ToActBy, words);
}

std::string LeftWords(const GasStore& store, double left, const AdviceWords& words) {
  return GaugesWords(store, left, Down, words);
}

std::string CylindersText(const GasStore& store, const AdviceWords& words) {
  std::vector<std::string> texts;
  for (const Cylinder& cylinder : store.cylinders) texts.push_back(CylinderText(cylinder, words));
  return texts.empty() ? kNothing : Joined(texts, " + ");
}

bool IsShort(GasVerdict verdict) {
  return verdict != GasVerdict::Enough && verdict != GasVerdict::NotBreathed && verdict != GasVerdict::NotTold;
}

bool IsShort(const GasStore& store) { return IsShort(store.verdict); }
bool IsShort(const GasSupply& supply, const LegSupply& leg) { return IsShort(supply.VerdictOf(leg)); }

std::string VerdictText(const GasStore& store, const AdviceWords& words) { return VerdictText(store.verdict, words); }

std::string VerdictText(GasVerdict verdict, const AdviceWords& words) {
  switch (verdict) {
    case GasVerdict::NotTold:
      return words.T(Text::SupplyNotTold);
    case GasVerdict::IntoReserve:
      return words.T(Text::SupplyIntoReserve);
    case GasVerdict::RunsOut:
      return words.T(Text::SupplyTooLittle);
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
  return leg.decompresses ? VerdictText(supply.VerdictOf(leg), words) : words.T(Text::SupplyNoWayUp);
}

std::string WayOutText(const DearMinute& minute, const TextSource& texts) {
  std::string text;
  const auto add = [&](const std::string& part) { text += (text.empty() ? "" : ". ") + part; };
  if (minute.neverUp) add(texts.GetResString(Text::SupplyNoWayUp));
  if (minute.longest) add(texts.GetResString(Text::WayOutLongest));
  std::string gases;
  for (const std::string& gas : minute.gases) gases += (gases.empty() ? "" : ", ") + gas;
  if (!gases.empty()) add(texts.Filled(Text::WayOutMost, {gases}));
  return text;
}

std::string WorkingText(const GasSupply& supply, const LegSupply& leg, double rmv, const AdviceWords& words) {
  const SupplyChoice& choice = supply.choice;
  if (!leg.turns && leg.sorting == 0) {
    const double breathing = choice.team * choice.stress * rmv;
    return words.T(Text::BailOutWayUp,
                   {words.Factor(breathing), words.VolumeUnit(), words.Factor(leg.ascent / breathing),
                    words.PressureUnit(), words.Volume(leg.ascent)});
  }
  return words.T(choice.team == 1 ? Text::SupplyWorkingOfOne : Text::SupplyWorkingOfTeam,
                 {std::to_string(choice.team), words.Factor(choice.stress), words.Factor(rmv), words.VolumeUnit(),
                  words.Factor(leg.ambient) + " " + words.PressureUnit(), words.Factor(choice.minutes),
                  words.Volume(leg.ascent), words.Volume(leg.sorting)});
}

SupplyTables TablesOf(const GasSupply& supply, double rmv, const AdviceWords& words) {
  SupplyTables tables;
  if (!supply.IsTold()) return tables;
  tables.gasTitle = words.T(Text::SupplyTitle);
  const bool waysOut = !supply.waysOut.empty();
  const std::vector<LegSupply>& legs = waysOut ? supply.waysOut : supply.legs;
  tables.legTitle = words.T(waysOut ? Text::BailOutTitle : Text::SupplyLegs);
  tables.gases.reserve(supply.gases.size() + 1);
  tables.gases.push_back(
      Heads({Text::InfoGas, Text::SupplyCylinders, Text::SupplyFill, Text::SupplyCarried,
             waysOut ? Text::SupplyNeeded : Text::SupplyUsed, Text::SupplyLeft, Text::SupplyAtEnd, Text::SupplyVerdict},
            words));
  for (const GasStore& store : supply.gases) tables.gases.push_back(GasRow(store, words));
  tables.legs.reserve(legs.size() + 1);
  tables.legs.push_back(Heads(
      {waysOut ? Text::BailOutNumber : Text::SupplyLeg, Text::InfoDepth, Text::InfoRun, Text::InfoGas, Text::SupplyLeft,
       Text::SupplyMinimumGas, Text::SupplyMinimum, Text::SupplyTurnAt, Text::SupplyVerdict, Text::SupplyWorking},
      words));
  for (const LegSupply& leg : legs) tables.legs.push_back(LegRow(supply, leg, rmv, words));
  tables.note = LoopText(supply.loop, words);
  return tables;
}

SupplyTables SupplyTablesOf(const PlannedDive& dive, const TextSource& texts, const LocaleSeparators& separators) {
  const DiveTemplate& settings = dive.record.Template;
  return TablesOf(SupplyOf(dive), settings.RMV, AdviceWords(texts, separators, settings.Metric));
}

}  // namespace tav
