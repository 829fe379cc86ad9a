#include "reports/sheet_contents.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "advice/plan_check.h"
#include "compute/breathed_gas.h"
#include "figures/dive_figures.h"
#include "figures/schedule.h"
#include "figures/settings_words.h"
#include "model/text_id.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"
#include "reports/what_if_table.h"

namespace tav {
namespace {

using Cell = SheetColumn::Cell;
using Kind = WhatIfColumn::Kind;

constexpr std::string_view kNoBreak = "\u00A0";

double GasOf(const WhatIfColumn& column) {
  return std::accumulate(column.gas.begin(), column.gas.end(), 0.0,
                         [](double sum, const GasNeed& gas) { return sum + gas.shownBreathed; });
}

bool IsNotTold(const GasStore& store) { return store.verdict == GasVerdict::NotTold && store.Need() > 0; }

/// It ends, on gas that is there, with nothing that must not be breathed.
bool IsSound(const WhatIfColumn& bailOut) {
  const auto missing = [](const GasStore& store) { return IsShort(store) || IsNotTold(store); };
  return bailOut.fault.IsEmpty() && bailOut.decompresses && bailOut.warnings.empty() &&
         std::ranges::none_of(bailOut.supply.gases, missing);
}

/// Of the columns of a comparison those of the sheet; of the bail-outs the one that asks for most gas, of equals the
/// first, each one without an end, and while that one is sound each that is not.
std::vector<WhatIfColumn> ColumnsOfSheet(WhatIf& plan, const WhatIfWish& wish) {
  std::vector<WhatIfColumn> columns = plan.Columns(wish);
  const WhatIfColumn* most = nullptr;
  for (const WhatIfColumn& column : columns) {
    if (column.kind == Kind::BailOut && (most == nullptr || GasOf(column) > GasOf(*most))) most = &column;
  }
  std::vector<WhatIfColumn> chosen;
  for (const WhatIfColumn& column : columns) {
    if (column.kind == Kind::Both || column.kind == Kind::AllLost) continue;
    const bool ends = column.fault.IsEmpty() && column.decompresses;
    if (column.kind == Kind::BailOut && &column != most && ends && (IsSound(column) || !IsSound(*most))) continue;
    chosen.push_back(column);
  }
  return chosen;
}

/// "3 m/min, below 6 m 10 m/min"
std::string RatesOf(const std::vector<RateEntry>& rates, const AdviceWords& words) {
  std::string text;
  for (const RateEntry& entry : rates) {
    const std::string rate = words.Depth(entry.Rate) + "/min";
    if (!text.empty()) text += ", ";
    text += entry.Depth > 0 ? words.T(Text::RateBelow, {words.Depth(entry.Depth), rate}) : rate;
  }
  return text;
}

std::vector<GasNeed> InOrderOfUse(const WhatIfColumn& column) {
  const std::vector<GasTotal> used = GasTotals(column.rows);
  const auto place = [&](const GasNeed& gas) {
    return std::find_if(used.begin(), used.end(), [&](const GasTotal& total) { return total.Name == gas.mix; });
  };
  std::vector<GasNeed> gases = column.gas;
  std::stable_sort(gases.begin(), gases.end(), [&](const GasNeed& a, const GasNeed& b) { return place(a) < place(b); });
  return gases;
}

/// What is not enough, gas by gas; without cylinders what is breathed.
Cell GasCell(const WhatIfColumn& column, const AdviceWords& words) {
  std::string text;
  for (const std::string& line : ShortGases(column.supply, words)) text += (text.empty() ? "" : "\n") + line;
  for (const GasStore& store : column.supply.gases) {
    if (!IsNotTold(store)) continue;
    text += (text.empty() ? "" : "\n") + store.gas + " " + words.Volume(store.ShownNeed(words.Metric())) + " " +
            words.T(Text::SupplyNotTold);
  }
  if (!text.empty()) return {text, true};
  if (column.supply.IsTold()) return {words.T(Text::SupplyEnough)};
  for (const GasNeed& gas : InOrderOfUse(column)) {
    // A gas, its number and the unit stay on one line.
    text += (text.empty() ? "" : ", ") + ReplaceAll(gas.mix + " " + words.Volume(gas.shownBreathed), " ", kNoBreak);
  }
  // From a loop it is what the dearest way out asks for, not what the dive breathes.
  const bool ofWayOut = !column.record.Template.OpenCircuit && column.kind != Kind::BailOut && !text.empty();
  return {ofWayOut ? words.T(Text::PlanSheetBailOut, {text}) : text};
}

std::vector<Cell> VariantRow(const WhatIfColumn& column, bool asksMost, const WhatIfWish& wish,
                             const AdviceWords& words) {
  const std::string detail = DetailOf(column, wish, words);
  std::string name = NameOf(column, words) + (detail.empty() ? "" : " " + detail);
  if (asksMost) name = words.T(Text::PlanSheetBailOutMost, {name});
  if (!column.fault.IsEmpty()) return {{name}, {}, {}, {}, {}, {words.Texts().Words(column.fault)}};
  const DiveFigures figures = FiguresOf(column.rows);
  Single first = 0;
  for (std::int16_t i = column.rows.GetLength(); i > 0; --i) {
    if (IsStop(column.rows.Row(i))) first = column.rows.getStopDepth(i);
  }
  const bool ends = column.decompresses;
  return {{name},
          {ends ? words.Short(figures.runTime) : words.T(Text::WhatIfEndless), !ends},
          {ends ? words.Short(figures.stopTime) : ""},
          {first > 0 ? words.Depth(first) : "--"},
          {words.Fixed(figures.CNS * 100, 0), figures.CNS >= 1},
          GasCell(column, words)};
}

}  // namespace

SheetContents::SheetContents(const SeriesDive& seriesDive, const AdviceWords& adviceWords)
    : dive(seriesDive), words(adviceWords) {
  Head();
  Settings();
  if (dive.dive.plan.rows.GetLength() == 0) {
    notice = words.T(Text::NoLegs);
    return;
  }
  moments = dive.dive.Moments();
  Schedule();
  Supply();
  Variants();
}

void SheetContents::Head() {
  const std::string number = std::to_string(dive.number);
  if (dive.texts.name.empty()) {
    title = DiveTitle(dive, words.Texts());
  } else {
    title = dive.texts.name + (dive.ofDives == 1 ? "" : ", " + words.T(Text::DiveOfSeries, {number}));
    file = dive.file;
  }
  if (dive.ofDives > 1) {
    file = words.T(dive.number > 1 ? Text::HeadDiveAfter : Text::HeadDiveOf,
                   {dive.file, number, std::to_string(dive.ofDives), words.Short(dive.dive.record.SurfaceInterval)});
  }
  const ComputedPlan& plan = dive.dive.plan;
  const auto told = NoticeOf(plan.rows, plan.end.Decompresses);
  if (told && plan.rows.GetLength() > 0) notice = words.T(*told);
}

void SheetContents::Settings() {
  const DiveTemplate& t = dive.dive.record.Template;
  settings = SettingsLine(t, dive.dive.plan.model, dive.dive.before != nullptr, words.Texts(), words.Numbers()) + ". " +
             words.T(Text::PlanSheetPPO2, {words.Fixed(t.MinPPO2, 2), words.PPO2(t.MaxPPO2), words.PPO2(t.DecoPPO2)}) +
             ", " + words.T(Text::PlanSheetEND, {words.Depth(t.MaximalEND)}) + ", " +
             words.T(Text::PlanSheetRMV, {words.Factor(t.RMV), words.Factor(t.DecoRMV), words.VolumeUnit()}) + ". " +
             words.T(Text::RatesOfPlan, {RatesOf(t.AscendRates, words), RatesOf(t.DescendRates, words)}) + ".";
}

void SheetContents::Schedule() {
  const ScheduleText text(dive.dive.plan.rows, dive.dive.record.Template, ScheduleWordsOf(words.Texts()),
                          words.Numbers());
  const auto heads = text.Heads();
  auto& head = schedule.emplace_back();
  for (std::size_t i = 0; i < heads[0].size(); ++i) head.push_back({heads[0][i] + "\n" + heads[1][i]});
  const std::int16_t openFrom = FirstOpenRow(dive.dive.plan.rows, dive.dive.record.Template);
  bool onLoop = openFrom > 1;
  for (std::size_t i = 0; i < text.Lines().size(); ++i) {
    const ScheduleRow& told = text.Rows()[i];
    auto& row = schedule.emplace_back();
    for (const std::string& cell : text.Lines()[i]) row.push_back({cell});
    row[1].bold = row[2].bold = told.kind == ScheduleRow::Kind::Stop;
    row[4].bold = told.changesGas;
    if (dive.dive.record.Template.OpenCircuit) continue;
    const bool loop = told.row + (told.kind == ScheduleRow::Kind::GasChange ? 1 : 0) < openFrom;
    row[4].text += " " + words.T(loop ? Text::SlateLoop : Text::OnOpenCircuit);
    row[4].bold = row[4].bold || loop != onLoop;
    onLoop = loop;
  }
  totals = text.Totals();
}

void SheetContents::Supply() {
  const DiveTemplate& t = dive.dive.record.Template;
  const GasSupply carried = SupplyOf(dive.dive);
  findings = CheckPlan(CheckedDive(dive.dive), words, carried);
  supply = TablesOf(carried, t.RMV, words);
  if (!t.OpenCircuit || !carried.IsTold()) return;
  constexpr int kRules[] = {Text::TurnAfterAll, Text::TurnAfterHalf, Text::TurnAfterThird};
  const SupplyChoice& choice = carried.choice;
  team = words.T(Text::PlanSheetTeam,
                 {std::to_string(choice.team), words.Factor(choice.stress), words.Factor(choice.minutes),
                  words.T(kRules[static_cast<std::size_t>(choice.rule)])});
}

void SheetContents::Variants() {
  WhatIf plan(dive.dive);
  if (!plan.Fault().IsEmpty()) return;
  const WhatIfWish wish = WhatIfWish::Usual(words.Metric());
  const std::vector<WhatIfColumn> columns = ColumnsOfSheet(plan, wish);
  const std::string minutes = "\n" + words.T(Text::WhatIfMinutes);
  variants = {{{""},
               {words.T(Text::WhatIfRunTime) + minutes},
               {words.T(Text::WhatIfStops) + minutes},
               {words.T(Text::PlanSheetFirstStop)},
               {words.T(Text::WhatIfCNS) + "\n%"},
               {words.T(Text::Gas)}}};
  const auto most = std::ranges::max_element(
      columns, {}, [](const WhatIfColumn& column) { return column.kind == Kind::BailOut ? GasOf(column) : -1; });
  for (const WhatIfColumn& column : columns) {
    variants.push_back(VariantRow(column, column.kind == Kind::BailOut && &column == &*most, wish, words));
  }
  if (plan.AddsAscent()) remarks.push_back(words.T(Text::WhatIfWithAscent));
  for (const WhatIfColumn& column : columns) {
    if (column.kind == Kind::Planned || !column.fault.IsEmpty()) continue;
    // What the plan has stands among the findings.
    for (const std::string& warning : WarningsOf(column, plan.Before(), words, &columns.front())) {
      remarks.push_back(NameOf(column, words) + ": " + warning);
    }
  }
}

}  // namespace tav
