#include <algorithm>
#include <optional>

#include "advice/passing.h"
#include "advice/plan_check.h"
#include "engine/breathing_gas.h"
#include "model/text_id.h"
#include "supply/supply_text.h"

namespace tav::plan_check {
namespace {

class SupplyCheck {
 public:
  SupplyCheck(const Context& context, const GasSupply& supply)
      : context_(context), words_(context.words), supply_(supply) {}

  void Run() {
    for (const GasStore& store : supply_.gases) CheckStore(store);
    for (const LegSupply& leg : supply_.legs) CheckLeg(leg);
    if (supply_.neverUp) {
      const std::int16_t row = RowAt(*supply_.neverUp);
      context_.findings.push_back({Rule::GasShort, Severity::Danger, row, row,
                                   words_.T(Text::BailOutNeverEnds, {words_.Short(*supply_.neverUp)})});
    }
    for (const GasStore& store : supply_.gases) CheckTurn(store);
  }

 private:
  [[nodiscard]] double Shown(double volume) const { return ShownVolume(volume, supply_.metric); }

  /// A gas of which a way out from the loop asks for most.
  void CheckBailOut(const GasStore& store) {
    const double left = store.ShownLeft(supply_.metric);
    const double reserve = Shown(store.reserve);
    const auto add = [&](Severity severity, int text, const std::string& asked, const std::string& there,
                         const std::string& lacking) {
      const BailOutNeed& way = *store.bailOut;
      context_.findings.push_back(
          {Rule::GasShort, severity, way.row, way.row,
           words_.T(text, {store.gas, words_.Depth(way.depth), words_.Short(way.moment), asked, there, lacking})});
    };
    const std::string need = words_.Volume(store.ShownNeed(supply_.metric));
    if (store.verdict == GasVerdict::RunsOut && left >= 0) return;  // its way out never ends, which is told
    if (store.verdict == GasVerdict::RunsOut) {
      add(Severity::Danger, Text::BailOutTooLittle, need, words_.Volume(store.carried), words_.Volume(-left));
    } else if (store.verdict == GasVerdict::IntoReserve) {
      add(Severity::Danger, Text::BailOutIntoReserve, words_.Volume(left), words_.Volume(reserve),
          words_.Volume(reserve - left));
    } else if (store.verdict == GasVerdict::NoCylinder) {
      add(Severity::Danger, Text::BailOutNoCylinder, need, "", "");
    } else if (store.verdict == GasVerdict::NotTold) {
      add(Severity::Note, Text::BailOutNotTold, need, "", "");
    }
  }

  void CheckStore(const GasStore& store) {
    if (store.bailOut) return CheckBailOut(store);
    const auto add = [&](std::string text) {
      context_.findings.push_back({Rule::GasShort, Severity::Danger, store.firstRow, store.lastRow, std::move(text)});
    };
    const double left = store.ShownLeft(supply_.metric);
    if (store.ofPlan == GasVerdict::RunsOut && left >= 0) return;
    if (store.ofPlan == GasVerdict::NotTold) {
      // Breathed at stops on open circuit.
      const Waypoint& before = context_.dive.Before(store.firstRow);
      context_.findings.push_back(
          {Rule::GasShort, Severity::Caution, store.firstRow, store.lastRow,
           words_.T(Text::BailOutNotTold, {store.gas, words_.Depth(before.Depth), words_.Short(before.RunTime),
                                           words_.Volume(Shown(store.used))})});
    } else if (store.ofPlan == GasVerdict::RunsOut) {
      const Passing at = PassingOf(store.gas, store.carried);
      add(words_.T(Text::GasRunsOut, {store.gas, words_.Depth(at.depth), words_.Short(at.time),
                                      words_.Volume(store.used), words_.Volume(store.carried), words_.Volume(-left)}));
    } else if (store.ofPlan == GasVerdict::IntoReserve) {
      const Passing at = PassingOf(store.gas, store.carried - store.reserve);
      add(words_.T(Text::GasIntoReserve, {store.gas, words_.Depth(at.depth), words_.Short(at.time), words_.Volume(left),
                                          words_.Volume(store.reserve), words_.Volume(Shown(store.reserve) - left)}));
    } else if (store.ofPlan == GasVerdict::NoCylinder) {
      const Waypoint& before = context_.dive.Before(store.firstRow);
      add(words_.T(Text::GasWithoutCylinder,
                   {store.gas, words_.Depth(before.Depth), words_.Short(before.RunTime), words_.Volume(store.used)}));
    }
  }

  /// Where more than a volume of a gas has been breathed.
  [[nodiscard]] Passing PassingOf(const std::string& gas, double volume) const {
    const ClassProfile& rows = context_.dive.rows;
    double used = 0;
    Passing last{rows.GetRunTime(rows.GetLength()), rows.getDepth(rows.GetLength())};
    for (const BreathedSegment& segment : context_.segments) {
      const Waypoint& row = *segment.end;
      if (row.GasMixName != gas) continue;
      last = {row.RunTime, row.Depth};
      if (used + row.GasUsed > volume) {
        const double ramp = OnRamp(segment, row.Depth);
        const auto partOf = [&](double share) {
          if (!(ramp > 0)) return share * row.GasUsed;
          return OnRamp(segment, segment.from + (row.Depth - segment.from) * share) / ramp * row.GasUsed;
        };
        return PassingIn(context_.dive.Before(segment.row), row, volume - used, partOf);
      }
      used += row.GasUsed;
    }
    return last;
  }

  [[nodiscard]] double OnRamp(const BreathedSegment& segment, double to) const {
    if (segment.end->Rate == 0 || to == segment.from) return 0;
    return GasUsedOnRamp(segment.from, to, segment.end->Rate, 1, segment.surface, supply_.metric);
  }

  void CheckLeg(const LegSupply& leg) {
    const GasStore* store = supply_.Of(leg.gas);
    // A reserve that is gone into has a finding of its gas.
    if (store == nullptr || store->cylinders.empty() || supply_.VerdictOf(leg) != GasVerdict::RunsOut) return;
    const std::string number = std::to_string(leg.leg);
    const std::string depth = words_.Depth(leg.depth);
    const std::string time = words_.Short(leg.runTime);
    std::string text;
    if (!leg.decompresses) {
      text = words_.T(Text::LegNoWayUp, {leg.gas, number, depth, time});
    } else {
      const double left = supply_.ShownLeft(leg);
      const double minimum = leg.ShownMinimum(supply_.metric);
      text = words_.T(left < 0 ? Text::LegGasGone : Text::LegBelowMinimum,
                      {leg.gas, number, depth, time, words_.Volume(std::abs(left)), words_.Volume(minimum),
                       words_.Volume(minimum - left)});
    }
    context_.findings.push_back({Rule::GasShort, Severity::Danger, leg.row, leg.row, std::move(text)});
  }

  /// The first leg that leads past the pressure to turn at. Where all that is usable may be used, that is the minimum
  /// gas or the reserve, which have findings of their own.
  void CheckTurn(const GasStore& store) {
    if (supply_.choice.rule == TurnRule::AllUsable) return;
    const auto passes = [&](const LegSupply& leg) { return leg.gas == store.gas && supply_.PassesTurn(leg); };
    const auto found = std::ranges::find_if(supply_.legs, passes);
    if (found == supply_.legs.end()) return;
    const LegSupply& leg = *found;
    const Passing at = PassingOf(store.gas, store.carried - store.LeftToActBy(*leg.turnLeft));
    context_.findings.push_back(
        {Rule::TurnPassed, Severity::Caution, RowAt(at.time), leg.row,
         words_.T(Text::TurnPassed,
                  {store.gas, ToActByWords(store, *leg.turnLeft, words_), words_.Short(at.time),
                   std::to_string(leg.leg), words_.Short(leg.runTime), LeftWords(store, leg.left, words_)})});
  }

  [[nodiscard]] std::int16_t RowAt(Single time) const {
    const auto& segments = context_.segments;
    const auto found =
        std::ranges::find_if(segments, [&](const BreathedSegment& segment) { return segment.end->RunTime >= time; });
    return found == segments.end() ? segments.back().row : found->row;
  }

  const Context& context_;
  const AdviceWords& words_;
  const GasSupply& supply_;
};

}  // namespace

void CheckSupply(const Context& context, const GasSupply& supply) { SupplyCheck(context, supply).Run(); }

}  // namespace tav::plan_check
