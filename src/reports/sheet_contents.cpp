#include "reports/sheet_contents.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "advice/plan_check.h"
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

/// Of the columns of a comparison those of the sheet; of the bail-outs the one that asks for most gas, of equals the
/// first.
std::vector<WhatIfColumn> ColumnsOfSheet(WhatIf& plan, const WhatIfWish& wish) {
  std::vector<WhatIfColumn> columns = plan.Columns(wish);
  std::optional<double> most;
  for (const WhatIfColumn& column : columns) {
    if (column.kind == Kind::BailOut) most = std::max(most.value_or(0), GasOf(column));
  }
  std::erase_if(columns, [&](const WhatIfColumn& column) {
    if (column.kind != Kind::BailOut) return column.kind == Kind::Both || column.kind == Kind::AllLost;
    if (most != GasOf(column)) return true;
    most.reset();
    return false;
  });
  return columns;
}

std::vector<GasNeed> InOrderOfUse(const WhatIfColumn& column) {
  const std::vector<GasTotal> used = GasTotals(column.rows);
  const auto place = [&](const GasNeed& gas) {
    return std::find_if(used.begin(), used.end(), [&](const GasTotal& total) { return total.Name == gas.mix; });
  };
  std::vector<GasNeed> gases = column.gas;
  std::stable_sort(gases.begin(), gases.end(),
                   [&](const GasNeed& a, const GasNeed& b) { return place(a) < place(b); });
  return gases;
}

/// What is not enough, gas by gas; without cylinders what is breathed.
Cell GasCell(const WhatIfColumn& column, const AdviceWords& words) {
  std::string text;
  for (const std::string& line : ShortGases(column.supply, words)) text += (text.empty() ? "" : "\n") + line;
  if (!text.empty()) return {text, true};
  if (column.supply.IsTold()) return {words.T(Text::SupplyEnough)};
  for (const GasNeed& gas : InOrderOfUse(column)) {
    // A number and its unit stay on one line.
    text += (text.empty() ? "" : ", ") + gas.mix + " " + ReplaceAll(words.Volume(gas.shownBreathed), " ", kNoBreak);
  }
  return {text};
}

std::vector<Cell> VariantRow(const WhatIfColumn& column, const WhatIfWish& wish, const AdviceWords& words) {
  const std::string detail = DetailOf(column, wish, words);
  std::string name = NameOf(column, words) + (detail.empty() ? "" : " " + detail);
  if (column.kind == Kind::BailOut) name = words.T(Text::PlanSheetBailOutMost, {name});
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
  if (dive.dive.plan.rows.GetLength() == 0) return;
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
             words.T(Text::PlanSheetRMV, {words.Factor(t.RMV), words.Factor(t.DecoRMV), words.VolumeUnit()}) + ".";
}

void SheetContents::Schedule() {
  const ScheduleText text(dive.dive.plan.rows, dive.dive.record.Template, ScheduleWordsOf(words.Texts()),
                          words.Numbers());
  const auto heads = text.Heads();
  auto& head = schedule.emplace_back();
  for (std::size_t i = 0; i < heads[0].size(); ++i) head.push_back({heads[0][i] + "\n" + heads[1][i]});
  for (std::size_t i = 0; i < text.Lines().size(); ++i) {
    auto& row = schedule.emplace_back();
    for (const std::string& cell : text.Lines()[i]) row.push_back({cell});
    row[1].bold = row[2].bold = text.Rows()[i].kind == ScheduleRow::Kind::Stop;
    row[4].bold = text.Rows()[i].changesGas;
  }
  totals = text.Totals();
}

void SheetContents::Supply() {
  const DiveTemplate& t = dive.dive.record.Template;
  const GasSupply carried = SupplyOf(dive.dive);
  findings = CheckPlan(CheckedDive(dive.dive), words, carried);
  supply = TablesOf(carried, t.RMV, words);
  if (!t.OpenCircuit || !carried.IsTold()) return;
  constexpr int kRules[] = {Text::TurnAllUsable, Text::TurnHalf, Text::TurnThird};
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
  for (const WhatIfColumn& column : columns) variants.push_back(VariantRow(column, wish, words));
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
