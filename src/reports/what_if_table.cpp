#include "reports/what_if_table.h"

#include <algorithm>
#include <functional>
#include <map>

#include "figures/dive_figures.h"
#include "figures/schedule.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"
#include "supply/supply_text.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

using Kind = WhatIfColumn::Kind;

/// A leg, or a minute on a loop, has a way up that never ends.
bool HasNoWayUp(const GasSupply& supply) {
  return supply.neverUp || std::ranges::any_of(supply.legs, [](const LegSupply& leg) { return !leg.decompresses; });
}

/// What a dive does at one depth of its ascent.
using Stops = std::map<double, WhatIfTable::Cell, std::greater<>>;

Stops StopsOf(const WhatIfColumn& column, const DiveTemplate& settings, const AdviceWords& words) {
  Stops stops;
  for (const ScheduleRow& row : ScheduleOf(column.rows, settings)) {
    const bool stop = row.kind == ScheduleRow::Kind::Stop;
    if (!stop && row.kind != ScheduleRow::Kind::GasChange) continue;
    WhatIfTable::Cell& cell = stops[row.depth];
    // A plan that goes down again comes to a depth twice.
    if (stop) cell.figure += (cell.figure.empty() ? "" : "+") + words.Short(row.minutes.value_or(0));
    if (row.changesGas) cell.note += (cell.note.empty() ? "" : " ") + row.gas;
  }
  return stops;
}

class Builder {
 public:
  Builder(const std::vector<WhatIfColumn>& columns, const WhatIf& of, const AdviceWords& words)
      : columns_(columns), settings_(of.Settings()), before_(of.Before()), words_(words) {}

  WhatIfTable Build(const WhatIfWish& wish) {
    for (const WhatIfColumn& column : columns_) {
      table_.heads.push_back({NameOf(column, words_), DetailOf(column, wish, words_)});
    }
    StopRows();
    Total(Text::WhatIfRunTime, words_.T(Text::WhatIfMinutes),
          [this](const DiveFigures& figures, const WhatIfColumn& column) {
            WhatIfTable::Cell cell{words_.Short(figures.runTime), "", false};
            if (!column.decompresses) cell = {cell.figure, words_.T(Text::WhatIfEndless), true};
            return cell;
          });
    Total(Text::WhatIfStops, words_.T(Text::WhatIfMinutes), [this](const DiveFigures& figures, const WhatIfColumn&) {
      return WhatIfTable::Cell{words_.Short(figures.stopTime), "", false};
    });
    Total(Text::WhatIfCNS, "%", [this](const DiveFigures& figures, const WhatIfColumn&) {
      return WhatIfTable::Cell{words_.Fixed(figures.CNS * 100, 0), "", figures.CNS >= 1};
    });
    Total(Text::WhatIfOTU, "", [this](const DiveFigures& figures, const WhatIfColumn&) {
      return WhatIfTable::Cell{words_.Fixed(figures.OTU, 0), "", false};
    });
    GasRows();
    Warnings(wish);
    return std::move(table_);
  }

 private:
  void StopRows() {
    std::vector<Stops> stops;
    Stops depths;
    for (const WhatIfColumn& column : columns_) {
      stops.push_back(StopsOf(column, settings_, words_));
      for (const auto& [depth, cell] : stops.back()) depths[depth];
    }
    for (const auto& [depth, none] : depths) {
      WhatIfTable::Row row{words_.T(Text::WhatIfStop, {words_.Depth(depth)}), words_.T(Text::WhatIfMinutes), {}, false};
      bool stop = false;
      for (const Stops& own : stops) {
        const auto found = own.find(depth);
        row.cells.push_back(found == own.end() ? WhatIfTable::Cell() : found->second);
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
  void Total(int label, const std::string& unit, CellOf cellOf) {
    WhatIfTable::Row row{words_.T(label), unit, {}, true};
    for (const WhatIfColumn& column : columns_) {
      if (column.fault.IsEmpty()) {
        row.cells.push_back(cellOf(FiguresOf(column.rows), column));
      } else {
        row.cells.push_back({"", label == Text::WhatIfRunTime ? words_.T(Text::WhatIfImpossible) : "", true});
      }
    }
    table_.rows.push_back(std::move(row));
  }

  void GasRows() {
    std::vector<const GasNeed*> gases;
    for (const WhatIfColumn& column : columns_) {
      for (const GasNeed& need : column.gas) {
        if (std::ranges::none_of(gases, [&](const GasNeed* known) { return known->mix == need.mix; })) {
          gases.push_back(&need);
        }
      }
    }
    for (const GasNeed* gas : gases) {
      WhatIfTable::Row row{gas->mix, words_.VolumeUnit(), {}, true};
      WhatIfTable::Row minimum{words_.T(Text::WhatIfMinimum, {gas->mix}), words_.VolumeUnit(), {}, true};
      if (gas->carried && *gas->carried > 0) {
        row.label = words_.T(Text::WhatIfCarried, {gas->mix, words_.Volume(*gas->carried)});
        row.unit.clear();
      }
      bool asked = false;
      for (const WhatIfColumn& column : columns_) {
        const auto need = std::ranges::find(column.gas, gas->mix, &GasNeed::mix);
        const bool there = need != column.gas.end();
        row.cells.push_back(there ? GasCell(need->shownBreathed, need->ofPlan) : WhatIfTable::Cell());
        const bool more = there && need->verdict && need->shownNeed > need->shownBreathed;
        minimum.cells.push_back(more ? GasCell(need->shownNeed, need->verdict) : WhatIfTable::Cell());
        asked = asked || more;
      }
      table_.rows.push_back(std::move(row));
      if (asked) table_.rows.push_back(std::move(minimum));
    }
  }

  [[nodiscard]] WhatIfTable::Cell GasCell(double volume, const std::optional<GasVerdict>& verdict) const {
    WhatIfTable::Cell cell{words_.Fixed(volume, words_.Metric() ? 0 : 1), "", false};
    if (!verdict) return cell;
    cell.note = VerdictText(*verdict, words_);
    cell.bad = IsShort(*verdict);
    return cell;
  }

  /// The dangers of the plan check, but for the PPO2, and the same lines as below bail-out tables and on cards.
  void Warnings(const WhatIfWish& wish) {
    const RemarkWords words = RemarkWordsOf(words_.Texts(), words_.Metric(), words_.Numbers());
    for (const WhatIfColumn& column : columns_) {
      std::string name = NameOf(column, words_);
      if (column.kind == Kind::BailOut) {
        name += " " + DetailOf(column, wish, words_);
        if (column.fault.IsEmpty()) table_.notes.push_back(name + ": " + WayOutText(column.minute, words_.Texts()));
      }
      for (const Finding& danger : DangersOf(column, before_, words_)) {
        if (danger.rule == Rule::Hypoxic || danger.rule == Rule::Hyperoxic) continue;
        // The verdicts of the gases stand in their rows, but for a way up that never ends.
        if (danger.rule == Rule::GasShort && !HasNoWayUp(column.supply)) continue;
        table_.warnings.push_back(name + ": " + danger.text);
      }
      for (const GasWarning& warning : column.warnings) {
        table_.warnings.push_back(name + ": " + WarningText(warning, words) + " (" + warning.gas + ")");
      }
    }
  }

  const std::vector<WhatIfColumn>& columns_;
  const DiveTemplate& settings_;
  const EndState* before_;
  const AdviceWords& words_;
  WhatIfTable table_;
};

}  // namespace

std::string NameOf(const WhatIfColumn& column, const AdviceWords& words) {
  switch (column.kind) {
    case Kind::Lost:
      return words.T(Text::WhatIfLost, {column.lost});
    case Kind::AllLost:
      return words.T(Text::WhatIfAllLost);
    case Kind::Factors:
      return "GF " + words.Short(column.factors.low * 100) + "/" + words.Short(column.factors.high * 100);
    default:
      return words.T(Text::WhatIfKinds + static_cast<int>(column.kind));
  }
}

std::string DetailOf(const WhatIfColumn& column, const WhatIfWish& wish, const AdviceWords& words) {
  std::string longer = words.T(Text::WhatIfLongerBy, {words.Short(wish.minutes)});
  std::string deeper = words.T(Text::WhatIfDeeperBy, {words.Depth(wish.depth)});
  switch (column.kind) {
    case Kind::Longer:
      return longer;
    case Kind::Deeper:
      return deeper;
    case Kind::Both:
      return longer + " " + deeper;
    case Kind::BailOut:
      return column.rows.GetLength() == 0
                 ? ""
                 : words.T(Text::WhatIfMoment, {words.Short(column.minute.moment), words.Depth(column.depth)});
    default:
      return {};
  }
}

WhatIfTable TableOf(const std::vector<WhatIfColumn>& columns, const WhatIfWish& wish, const WhatIf& of,
                    const AdviceWords& words) {
  return Builder(columns, of, words).Build(wish);
}

std::string AlignedText(const WhatIfTable& table, std::size_t width) {
  std::size_t labels = 0;
  for (const WhatIfTable::Row& row : table.rows) labels = std::max(labels, Letters(row.Heading()));
  struct Widths {
    std::size_t figure = 3;
    std::size_t note = 0;
    std::size_t all = 0;
  };
  std::vector<Widths> widths(table.heads.size());
  for (std::size_t c = 0; c < widths.size(); ++c) {
    for (const WhatIfTable::Row& row : table.rows) {
      widths[c].figure = std::max(widths[c].figure, Letters(row.cells[c].figure));
      widths[c].note = std::max(widths[c].note, Letters(row.cells[c].note));
    }
    widths[c].all =
        std::max({widths[c].figure + 1 + widths[c].note, Letters(table.heads[c].name), Letters(table.heads[c].detail)});
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
    for (const WhatIfTable::Row& row : table.rows) {
      if (row.total && !totals) text += "\n";
      totals = row.total;
      line(row.Heading(),
           [&](std::size_t c) { return AtRight(row.cells[c].figure, widths[c].figure) + " " + row.cells[c].note; });
    }
    first = end;
  }
  if (!table.notes.empty() || !table.warnings.empty()) text += "\n";
  for (const std::string& note : table.notes) text += Wrapped("- " + note, 2, width);
  for (const std::string& warning : table.warnings) text += Wrapped("! " + warning, 2, width);
  return text;
}

}  // namespace tav
