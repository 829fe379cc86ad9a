#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/grid_cell.h"
#include "figures/advice_words.h"
#include "supply/gas_supply.h"

/// The gas supply in words and tables, the same in windows, on paper and in the terminal.
namespace tav {

/// "2 x 12 l", "1 x 80 cu ft (3000 psi)"; the cylinders of one gas joined by " + ".
std::string CylindersText(const GasStore& store, const AdviceWords& words);

/// "enough", "into reserve", "too little", ...
std::string VerdictText(GasVerdict verdict, const AdviceWords& words);
std::string VerdictText(const GasStore& store, const AdviceWords& words);
std::string VerdictText(const GasSupply& supply, const LegSupply& leg, const AdviceWords& words);
/// Whether a verdict is one to act on.
bool IsShort(GasVerdict verdict);
bool IsShort(const GasStore& store);
bool IsShort(const GasSupply& supply, const LegSupply& leg);

/// What the gauges show when a volume is left, of all lines of cylinders in their order of use: "50 / 110 bar". That of
/// the breathed one is a pressure to act by (PressureToActBy).
std::string ToActByText(const GasStore& store, std::optional<double> left, const AdviceWords& words);
/// The same as a sentence says it: "50 bar in 2 x 12 l + 110 bar in 7 l".
std::string ToActByWords(const GasStore& store, double left, const AdviceWords& words);
/// And what is left of the gas, rounded down.
std::string LeftWords(const GasStore& store, double left, const AdviceWords& words);

/// "Longest way up. Most gas: EAN50, Oxygen"
std::string WayOutText(const DearMinute& minute, const TextSource& texts);

/// How the minimum gas of a leg is worked out: "2 divers x 2 x 20 l/min x 7.013 bar x 2 min = 1122 l, + ascent 1240 l".
/// The product and the sum are those of the figures that stand there. `rmv` is that of the template.
std::string WorkingText(const GasSupply& supply, const LegSupply& leg, double rmv, const AdviceWords& words);

/// What a report or a window tells of the gas supply of a dive: texts in rows, row 0 the heads; what is short is red
/// and bold. Without rows there is nothing to tell.
struct SupplyTables {
  using Table = std::vector<std::vector<GridCell>>;
  /// Gas, cylinders, fill, carried, used, left, pressure left, verdict.
  Table gases;
  /// Leg, depth, run time, gas, left, minimum gas, as a pressure, turn pressure, verdict, how the minimum is worked
  /// out.
  Table legs;
  std::string gasTitle;
  std::string legTitle;
  /// What the loop of a rebreather itself uses, and that it is an estimate.
  std::string note;
};

/// Columns of text in them; the others are numbers.
const std::vector<int> kSupplyTextColumns{0, 1, 7};
const std::vector<int> kLegTextColumns{3, 8, 9};

/// All of it in two tables; both without rows when there is no supply.
SupplyTables TablesOf(const GasSupply& supply, double rmv, const AdviceWords& words);

/// The tables of a computed dive with the cylinders of its template.
SupplyTables SupplyTablesOf(const PlannedDive& dive, const TextSource& texts, const LocaleSeparators& separators);

}  // namespace tav
