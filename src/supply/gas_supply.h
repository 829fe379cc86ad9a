#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "compute/compute.h"
#include "model/cylinder.h"
#include "model/supply_choice.h"
#include "supply/bailout_need.h"
#include "supply/loop_use.h"

/// Whether the cylinders that a diver carries hold what a dive asks for. Gas is ideal, volumes are litres at 1 bar or
/// cubic feet at 1 atmosphere, as the plan counts them.
namespace tav {

enum class GasVerdict {
  Enough,
  IntoReserve,  ///< less is left than the reserve
  RunsOut,      ///< too little: for the plan, for the minimum gas of a leg, or for a way out
  NoCylinder,   ///< breathed, and no cylinder holds it
  NotTold,      ///< the loop's diluent, of which no cylinder is told as bail-out
  NotBreathed,
  UnknownGas,  ///< in a cylinder, and no gas of the template has its name
};

/// A volume as it is printed: in whole litres, or tenths of a cubic foot. Volumes are held against each other in this
/// form, so that what is printed adds up, and no gas is short by what nobody can read.
double ShownVolume(double volume, bool metric);

/// A pressure to act by, in bar or psi: rounded up to 10 bar or 100 psi, which a gauge shows.
double PressureToActBy(double pressure, bool inBar);

/// One gas: what is carried and what the plan asks for of it. On a rebreather that is what the dearest minute to leave
/// the loop asks for; of the diluent only cylinders count that are told as bail-out. Volumes of one gas are one supply;
/// pressures are those of each line of cylinders, on its own gauge. A line of several cylinders is joined by a manifold
/// and evens out.
struct GasStore {
  /// What a line of cylinders holds; nothing for one that does not count.
  struct Line {
    double perPressure = 0;  ///< volume for each bar or psi of its gauge
    double carried = 0;
    double reserve = 0;
    [[nodiscard]] bool Counts() const { return perPressure > 0; }
  };
  /// What the gauges show: a pressure for each line, nothing for one that does not count.
  struct Gauges {
    std::vector<std::optional<double>> pressures;
    std::size_t breathed = 0;  ///< the line that is breathed there
  };

  std::string gas;
  std::vector<Cylinder> cylinders;  ///< in their order of use
  std::vector<Line> lines;          ///< of the cylinders
  bool gaugeInBar = true;           ///< the unit of a pressure for all: of the gauges, of the plan where they differ
  double carried = 0;
  double reserve = 0;
  double used = 0;                     ///< by the plan as it goes
  std::optional<BailOutNeed> bailOut;  ///< on a rebreather: the minute that asks for most of it
  /// What that minute asks for, on open circuit the end of the leg that asks for most: used up to there, the minutes of
  /// sorting out and the way up.
  struct Worst {
    double used = 0;
    double sorting = 0;
    double ascent = 0;
    int leg = 0;  ///< from 1; 0 for none
    [[nodiscard]] double All() const { return used + sorting + ascent; }
    /// As printed: the sum of its printed parts.
    [[nodiscard]] double Shown(bool metric) const {
      return ShownVolume(used, metric) + ShownVolume(sorting, metric) + ShownVolume(ascent, metric);
    }
  } worst;
  GasVerdict ofPlan = GasVerdict::Enough;   ///< of the plan as it goes, on a rebreather with its ways out
  GasVerdict verdict = GasVerdict::Enough;  ///< the same with the minimum gas of each leg
  std::int16_t firstRow = 0;  ///< where it runs out or goes into its reserve, or is first breathed without a cylinder
  std::int16_t lastRow = 0;   ///< the last row that breathes it; 0 when none does

  /// What must be there, come what may.
  [[nodiscard]] double Need() const { return bailOut ? worst.All() : std::max(used, worst.All()); }
  [[nodiscard]] double ShownNeed(bool metric) const {
    return bailOut ? worst.Shown(metric) : std::max(ShownVolume(used, metric), worst.Shown(metric));
  }
  /// What the plan breathes, or on a rebreather the way out that asks for more.
  [[nodiscard]] double Breathed() const { return bailOut ? worst.All() : used; }
  [[nodiscard]] double ShownBreathed(bool metric) const {
    return bailOut ? worst.Shown(metric) : ShownVolume(used, metric);
  }
  [[nodiscard]] double Left() const { return carried - Breathed(); }
  /// In whole litres or tenths of a cubic foot, as printed: the difference of what is printed beside it.
  [[nodiscard]] double ShownLeft(bool metric) const { return ShownVolume(carried, metric) - ShownBreathed(metric); }
  /// Any that count.
  [[nodiscard]] bool HasCylinders() const;
  /// The gauges when a volume is left. Each line is breathed down to its reserve, then the next one; when all are
  /// there, the reserves in the same order. What is more than all is told as the first one's, what is lacking as that
  /// of the last one, below 0.
  [[nodiscard]] Gauges At(double left) const;
  /// What the gauge of the line that is breathed then shows, in the unit for all; nothing without cylinders.
  [[nodiscard]] std::optional<double> Pressure(double left) const;
  /// What is left when that gauge shows its pressure to act by; there must be cylinders.
  [[nodiscard]] double LeftToActBy(double left) const;
};

/// What must be left at the end of a leg, or at the moment at which a loop is left, and when to turn. The way up is
/// computed from there, after the minutes of
/// sorting out, on open circuit with the gas changes of the template, until the next gas or the surface.
struct LegSupply {
  int leg = 1;           ///< from 1
  std::int16_t row = 0;  ///< where it ends
  Single depth;
  Single runTime;
  std::string gas;                 ///< breathed there
  double ambient = 0;              ///< bar or atmospheres
  double sorting = 0;              ///< volume of the minutes at depth, for the whole team
  double ascent = 0;               ///< volume of the way up on this gas, for the whole team
  bool turns = true;               ///< the gas is breathed up to there; else it is bail-out, untouched
  bool decompresses = true;        ///< else the way up never ends, and no gas is enough
  double left = 0;                 ///< what the plan leaves of the gas there; 0 without cylinders
  double used = 0;                 ///< of the gas up to there
  std::optional<double> turnLeft;  ///< what is left when to turn; nothing without cylinders, and from a loop, which
                                   ///< uses none of it

  /// team x stress x RMV x (minutes at depth + the way up)
  [[nodiscard]] double Minimum() const { return sorting + ascent; }
  /// As printed: the sum of its printed parts.
  [[nodiscard]] double ShownMinimum(bool metric) const {
    return ShownVolume(sorting, metric) + ShownVolume(ascent, metric);
  }
};

struct GasSupply {
  std::vector<GasStore> gases;  ///< in the order of the template, then those that it lacks; empty: nothing was told
  std::vector<LegSupply> legs;  ///< those that end below the surface; on a rebreather none: `gases` have their ways out
  std::vector<LegSupply> waysOut;  ///< on a rebreather, for each gas of a way out the minute that asks for most of it
  std::optional<Single> neverUp;   ///< the first minute of a rebreather dive whose way out never ends
  LoopUse loop;                    ///< an estimate that nothing is judged by
  SupplyChoice choice;
  bool metric = true;  ///< volumes are litres, else cubic feet

  [[nodiscard]] bool IsTold() const { return !gases.empty(); }
  /// nullptr for a gas without use and cylinders.
  [[nodiscard]] const GasStore* Of(const std::string& gas) const;
  /// What the plan leaves of its gas at the end of a leg, as printed; 0 without cylinders.
  [[nodiscard]] double ShownLeft(const LegSupply& leg) const;
  /// Whether the cylinders hold the minimum gas of a leg when it ends, or of a way out. RunsOut for too little, or
  /// where the way up never ends.
  [[nodiscard]] GasVerdict VerdictOf(const LegSupply& leg) const;
  /// The plan goes past the pressure to turn at before a leg ends.
  [[nodiscard]] bool PassesTurn(const LegSupply& leg) const;
};

/// A gas that legs of a rebreather plan are dived with on the loop: its cylinders count only if told as bail-out.
bool IsDiluent(const std::string& gas, const ClassProfile& plan, const DiveTemplate& settings);

/// What rows breathe of each gas and what the cylinders hold of it, without those that have neither. `plan` tells the
/// diluents where the rows are those of a way out of it.
std::vector<GasStore> StoresOf(const ClassProfile& rows, const DiveTemplate& settings,
                               const std::vector<Cylinder>& cylinders, const BailOutNeeds& bailOut = {},
                               double breathing = 0, const ClassProfile* plan = nullptr);

/// The supply of a computed dive with the cylinders and the choice of its template, or with others. Empty when there
/// are no cylinders or no rows. Takes a way up for each leg, on a rebreather one for each minute.
GasSupply SupplyOf(const PlannedDive& dive);
GasSupply SupplyOf(const PlannedDive& dive, const SupplyChoice& choice, const std::vector<Cylinder>& cylinders);

}  // namespace tav
