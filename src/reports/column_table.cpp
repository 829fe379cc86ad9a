#include "reports/column_table.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "figures/dive_figures.h"
#include "figures/schedule.h"
#include "model/cylinder.h"
#include "model/numbers.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/units.h"
#include "model/utf8.h"
#include "supply/supply_text.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

using Kind = WhatIfColumn::Kind;

bool IsInOtherUnits(const AdviceWords& words, const WhatIfColumn& column) {
  return words.Metric() != column.record.Template.Metric;
}

/// A depth of a column in the units of the words, to a tenth where they are others.
double InUnitsOf(const AdviceWords& words, const WhatIfColumn& column, double depth) {
  if (!IsInOtherUnits(words, column)) return depth;
  return RoundSingle(depth * (words.Metric() ? kMetresPerFoot : kFeetPerMetre), 1);
}

/// A leg, or a minute on a loop, has a way up that never ends.
bool HasNoWayUp(const GasSupply& supply) {
  return supply.neverUp || std::ranges::any_of(supply.legs, [](const LegSupply& leg) { return !leg.decompresses; });
}

/// What a dive does at one depth of its ascent.
using Stops = std::map<double, ColumnTable::Cell, std::greater<>>;

Stops StopsOf(const WhatIfColumn& column, const AdviceWords& words) {
  Stops stops;
  for (const ScheduleRow& row : ScheduleOf(column.rows, column.record.Template)) {
    const bool stop = row.kind == ScheduleRow::Kind::Stop;
    if (!stop && row.kind != ScheduleRow::Kind::GasChange) continue;
    ColumnTable::Cell& cell = stops[InUnitsOf(words, column, row.depth)];
    // A plan that goes down again comes to a depth twice.
    if (stop) cell.figure += (cell.figure.empty() ? "" : "+") + words.Short(row.minutes.value_or(0));
    if (row.changesGas) cell.note += (cell.note.empty() ? "" : " ") + row.gas;
  }
  return stops;
}

ColumnTable::Cell Figure(const AdviceWords& words, double value, int decimals) {
  ColumnTable::Cell cell{words.Fixed(value, decimals)};
  cell.value = RoundSingle(value, decimals);
  return cell;
}

/// Minutes: a tenth where there is one.
ColumnTable::Cell Minutes(const AdviceWords& words, double value) {
  ColumnTable::Cell cell{words.Short(value)};
  cell.value = RoundSingle(value, 1);
  return cell;
}

}  // namespace

ColumnTableBuilder::ColumnTableBuilder(std::vector<Column> columns, const AdviceWords& words)
    : columns_(std::move(columns)), words_(words) {
  for (const Column& column : columns_) table_.heads.push_back(column.head);
}

void ColumnTableBuilder::AddRow(const std::string& label, const std::vector<std::string>& texts) {
  ColumnTable::Row row{label, "", {}, false, true};
  for (const std::string& text : texts) row.cells.push_back({text});
  table_.rows.push_back(std::move(row));
}

void ColumnTableBuilder::AddStops() {
  std::vector<Stops> stops;
  Stops depths;
  for (const auto& [column, head, before] : columns_) {
    stops.push_back(StopsOf(column, words_));
    for (const auto& [depth, cell] : stops.back()) depths[depth];
  }
  for (const auto& [depth, none] : depths) {
    ColumnTable::Row row{words_.T(Text::WhatIfStop, {words_.Depth(depth)}), words_.T(Text::WhatIfMinutes), {}, false};
    bool stop = false;
    for (const Stops& own : stops) {
      const auto found = own.find(depth);
      row.cells.push_back(found == own.end() ? ColumnTable::Cell() : found->second);
      stop = stop || !row.cells.back().figure.empty();
    }
    // No column stops there, some only change their gas.
    if (!stop) {
      row.label = words_.T(Text::SwitchTo, {words_.Depth(depth)});
      row.unit.clear();
    }
    table_.rows.push_back(std::move(row));
  }
}

template <class CellOf>
void ColumnTableBuilder::Total(int label, const std::string& unit, CellOf cellOf) {
  ColumnTable::Row row{words_.T(label), unit, {}, true};
  for (const auto& [column, head, before] : columns_) {
    if (column.fault.IsEmpty()) {
      row.cells.push_back(cellOf(FiguresOf(column.rows), column));
    } else {
      row.cells.push_back({"", label == Text::WhatIfRunTime ? words_.T(Text::WhatIfImpossible) : "", true});
    }
  }
  table_.rows.push_back(std::move(row));
}

void ColumnTableBuilder::AddTotals() {
  const std::string minutes = words_.T(Text::WhatIfMinutes);
  Total(Text::WhatIfRunTime, minutes, [this](const DiveFigures& figures, const WhatIfColumn& column) {
    ColumnTable::Cell cell = Minutes(words_, figures.runTime);
    if (!column.decompresses) cell = {cell.figure, words_.T(Text::WhatIfEndless), true};
    return cell;
  });
  Total(Text::WhatIfStops, minutes,
        [this](const DiveFigures& figures, const WhatIfColumn&) { return Minutes(words_, figures.stopTime); });
  Total(Text::WhatIfCNS, "%", [this](const DiveFigures& figures, const WhatIfColumn&) {
    ColumnTable::Cell cell = Figure(words_, figures.CNS * 100, 0);
    cell.bad = figures.CNS >= 1;
    return cell;
  });
  Total(Text::WhatIfOTU, "",
        [this](const DiveFigures& figures, const WhatIfColumn&) { return Figure(words_, figures.OTU, 0); });
}

void ColumnTableBuilder::AddGases(Carried carried) {
  std::vector<const GasNeed*> gases;
  for (const auto& [column, head, before] : columns_) {
    const auto add = [&](const GasNeed& need) {
      if (std::ranges::none_of(gases, [&](const GasNeed* known) { return known->mix == need.mix; })) {
        gases.push_back(&need);
      }
    };
    // In the order in which they are breathed, then what is only kept ready.
    for (const GasTotal& breathed : GasTotals(column.rows)) {
      const auto need = std::ranges::find(column.gas, breathed.Name, &GasNeed::mix);
      if (need != column.gas.end()) add(*need);
    }
    for (const GasNeed& need : column.gas) add(need);
  }
  for (const GasNeed* gas : gases) {
    ColumnTable::Row row{gas->mix, words_.VolumeUnit(), {}, true};
    ColumnTable::Row minimum{words_.T(Text::WhatIfMinimum, {gas->mix}), words_.VolumeUnit(), {}, true};
    const auto carriesOther = [&](const Column& told) {
      const auto need = std::ranges::find(told.column.gas, gas->mix, &GasNeed::mix);
      return need != told.column.gas.end() && need->carried != gas->carried;
    };
    const bool ofAll = carried == Carried::OfTheFirst || std::ranges::none_of(columns_, carriesOther);
    if (ofAll && gas->carried && *gas->carried > 0) {
      row.label = words_.T(Text::WhatIfCarried, {gas->mix, words_.Volume(*gas->carried)});
      row.unit.clear();
    }
    bool asked = false;
    for (const auto& [column, head, before] : columns_) {
      const auto need = std::ranges::find(column.gas, gas->mix, &GasNeed::mix);
      const bool there = need != column.gas.end();
      row.cells.push_back(there ? GasCell(column, need->shownBreathed, need->ofPlan) : ColumnTable::Cell());
      const bool more = there && need->verdict && need->shownNeed > need->shownBreathed;
      minimum.cells.push_back(more ? GasCell(column, need->shownNeed, need->verdict) : ColumnTable::Cell());
      asked = asked || more;
    }
    table_.rows.push_back(std::move(row));
    if (asked) table_.rows.push_back(std::move(minimum));
  }
}

ColumnTable::Cell ColumnTableBuilder::GasCell(const WhatIfColumn& column, double volume,
                                              const std::optional<GasVerdict>& verdict) const {
  if (IsInOtherUnits(words_, column)) volume *= words_.Metric() ? kLitresInCubicFoot : 1 / kLitresInCubicFoot;
  ColumnTable::Cell cell = Figure(words_, volume, words_.Metric() ? 0 : 1);
  if (!verdict) return cell;
  cell.note = VerdictText(*verdict, words_);
  cell.bad = IsShort(*verdict);
  return cell;
}

void ColumnTableBuilder::AddWarnings() {
  for (const auto& [column, head, before] : columns_) {
    std::string name = head.name;
    if (column.kind == Kind::BailOut) {
      name += " " + head.detail;
      if (column.fault.IsEmpty()) table_.notes.push_back(name + ": " + WayOutText(column.minute, words_.Texts()));
    }
    name += ": ";
    for (const std::string& warning : WarningsOf(column, before, words_)) table_.warnings.push_back(name + warning);
  }
}

std::vector<std::string> WarningsOf(const WhatIfColumn& column, const EndState* before, const AdviceWords& words,
                                    const WhatIfColumn* beside) {
  using Of = std::pair<int, std::string>;  // what, and of which gas
  const auto ofDanger = [](const WhatIfColumn& of, const Finding& danger) {
    return Of(static_cast<int>(danger.rule),
              danger.firstRow > of.rows.GetLength() ? "" : of.rows.GetGasMixName(danger.firstRow));
  };
  // What the other column has is told there, each once, and only in so far as this one is not worse.
  const auto covers = [](const GasWarning& there, const GasWarning& here) {
    const auto shallowest = [](const GasWarning& warning) { return std::min(warning.from, warning.to); };
    const auto deepest = [](const GasWarning& warning) { return std::max(warning.from, warning.to); };
    return there.kind == here.kind && there.gas == here.gas && shallowest(there) <= shallowest(here) &&
           deepest(there) >= deepest(here);
  };
  std::multiset<Of> dangers;
  std::vector<GasWarning> warnings;
  if (beside != nullptr) {
    for (const Finding& danger : DangersOf(*beside, before, words)) dangers.insert(ofDanger(*beside, danger));
    warnings = beside->warnings;
  }
  std::vector<std::string> texts;
  for (const Finding& danger : DangersOf(column, before, words)) {
    if (danger.rule == Rule::Hypoxic || danger.rule == Rule::Hyperoxic) continue;
    // The verdicts of the gases stand in their rows, but for a way up that never ends.
    if (danger.rule == Rule::GasShort && !HasNoWayUp(column.supply)) continue;
    const auto told = dangers.find(ofDanger(column, danger));
    if (told == dangers.end()) {
      texts.push_back(danger.text);
    } else {
      dangers.erase(told);
    }
  }
  const RemarkWords remarks = RemarkWordsOf(words.Texts(), words.Metric(), words.Numbers());
  for (const GasWarning& warning : column.warnings) {
    const auto told = std::ranges::find_if(warnings, [&](const GasWarning& there) { return covers(there, warning); });
    if (told == warnings.end()) {
      texts.push_back(WarningText(warning, remarks) + " (" + warning.gas + ")");
    } else {
      warnings.erase(told);
    }
  }
  return texts;
}

std::string AlignedText(const ColumnTable& table, std::size_t width) {
  std::size_t labels = 0;
  for (const ColumnTable::Row& row : table.rows) labels = std::max(labels, Letters(row.Heading()));
  struct Widths {
    std::size_t figure = 3;
    std::size_t note = 0;
    std::size_t all = 0;
  };
  std::vector<Widths> widths(table.heads.size());
  for (std::size_t c = 0; c < widths.size(); ++c) {
    for (const ColumnTable::Row& row : table.rows) {
      if (row.words) {
        widths[c].all = std::max(widths[c].all, Letters(row.cells[c].figure));
        continue;
      }
      widths[c].figure = std::max(widths[c].figure, Letters(row.cells[c].figure));
      widths[c].note = std::max(widths[c].note, Letters(row.cells[c].note));
    }
    widths[c].all = std::max({widths[c].all, widths[c].figure + 1 + widths[c].note, Letters(table.heads[c].name),
                              Letters(table.heads[c].detail)});
  }
  std::string text;
  for (std::size_t first = 0; first < widths.size();) {
    std::size_t end = first;
    std::size_t taken = labels;
    while (end < widths.size() && (end == first || taken + 2 + widths[end].all <= width)) {
      taken += 2 + widths[end].all;
      ++end;
    }
    const auto line = [&](const std::string& label, const auto& cellOf) {
      std::string made = AtLeft(label, labels);
      for (std::size_t c = first; c < end; ++c) made += "  " + AtLeft(cellOf(c), widths[c].all);
      made.erase(made.find_last_not_of(' ') + 1);
      text += made + "\n";
    };
    if (first > 0) text += "\n";
    line("", [&](std::size_t c) { return table.heads[c].name; });
    line("", [&](std::size_t c) { return table.heads[c].detail; });
    bool totals = false;
    for (const ColumnTable::Row& row : table.rows) {
      if (row.total && !totals) text += "\n";
      totals = row.total;
      line(row.Heading(), [&](std::size_t c) {
        const ColumnTable::Cell& cell = row.cells[c];
        return row.words ? cell.figure : AtRight(cell.figure, widths[c].figure) + " " + cell.note;
      });
    }
    first = end;
  }
  if (!table.notes.empty() || !table.warnings.empty()) text += "\n";
  for (const std::string& note : table.notes) text += Wrapped("- " + note, 2, width);
  for (const std::string& warning : table.warnings) text += Wrapped("! " + warning, 2, width);
  return text;
}

}  // namespace tav
