#include "reports/slate_rows.h"

#include <algorithm>

#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"
#include "model/numbers.h"

namespace tav {
namespace {

using Kind = SlateRow::Kind;

class Builder {
 public:
  Builder(const ClassProfile& profile, const DiveTemplate& settings, const NumberTexts& numbers)
      : profile_(profile), settings_(settings), numbers_(numbers), lastUserRow_(LastUserRow(profile)) {}

  SlateRows Build() {
    for (std::int16_t i = 1; i <= profile_.GetLength(); ++i) {
      const Waypoint& row = profile_.Row(i);
      const Waypoint& before = profile_.Row(static_cast<std::int16_t>(i - 1));
      const bool leg = i <= lastUserRow_ && !IsStop(row);
      if (row.GasMixName != gas_ || OnLoop(row) != loop_) ChangeGas(row, before.Depth, i <= lastUserRow_);
      if (leg) {
        if (EndsLeg(i)) AddLeg(row);
      } else if (IsStop(row)) {
        Add(Kind::Stop, row, row.StopTime);
      } else if (i == profile_.GetLength()) {
        Add(Kind::Surface, row, 0);
      }
    }
    if (legs_ < 2) DropLegs();
    return std::move(made_);
  }

 private:
  [[nodiscard]] std::string Short(Single value) const { return numbers_.Short(value); }

  [[nodiscard]] bool OnLoop(const Waypoint& row) const { return !settings_.OpenCircuit && !(row.GasUsed > 0); }

  /// Nothing of the leg follows: neither its level part nor a next band of rates.
  [[nodiscard]] bool EndsLeg(std::int16_t i) const {
    const Waypoint& row = profile_.Row(i);
    if (row.Status != RowStatus::kLeg && row.Status != RowStatus::kStop) return false;
    if (i == lastUserRow_) return true;
    const Waypoint& next = profile_.Row(static_cast<std::int16_t>(i + 1));
    return next.Depth != row.Depth || next.Rate != 0 || next.GasMixName != row.GasMixName;
  }

  [[nodiscard]] SlateRow Made(Kind kind, const Waypoint& row) const {
    SlateRow made;
    made.kind = kind;
    made.depth = Short(row.Depth);
    made.runTime = Short(row.RunTime);
    made.gas = row.GasMixName;
    made.loop = OnLoop(row);
    made.PPO2 = numbers_.Fixed(row.PPO2, 2);
    return made;
  }

  void Add(Kind kind, const Waypoint& row, Single minutes) {
    SlateRow made = Made(kind, row);
    if (kind == Kind::Surface) {
      made.gas.clear();
    } else {
      made.minutes = Short(minutes);
    }
    made_.rows.push_back(std::move(made));
  }

  void AddLeg(const Waypoint& row) {
    ++legs_;
    Add(Kind::Leg, row, row.SegmentTime);
    if (legs_ > 1 && row.Depth < deepest_) return;
    deepest_ = row.Depth;
    made_.bottom = made_.rows.back();
  }

  /// The PPO2 told is the highest until the end of the row: on the way up that of the change, on the way down that of
  /// the depth to come.
  void ChangeGas(const Waypoint& row, Single depth, bool planned) {
    gas_ = row.GasMixName;
    loop_ = OnLoop(row);
    SlateRow change = Made(Kind::Gas, row);
    change.depth = Short(depth);
    if (!loop_) {
      const Single surface = planned ? settings_.StartPressure : settings_.EndPressure;
      const Single there = PPO2AtDepth(depth, surface, row.GasMixO2 / 100, settings_.Metric);
      change.PPO2 = numbers_.Fixed(MaxSingle(there, row.PPO2), 2);
    }
    made_.rows.push_back(std::move(change));
  }

  /// One leg stands at the head, with the gas that it is dived on.
  void DropLegs() {
    auto end = made_.rows.begin();
    while (end != made_.rows.end() && end->kind != Kind::Leg) ++end;
    if (end == made_.rows.end()) return;
    const bool oneGas = end - made_.rows.begin() == 1;
    made_.rows.erase(oneGas ? made_.rows.begin() : end, end + 1);
  }

  const ClassProfile& profile_;
  const DiveTemplate& settings_;
  const NumberTexts& numbers_;
  std::int16_t lastUserRow_;
  std::string gas_;
  bool loop_ = false;
  int legs_ = 0;
  Single deepest_;
  SlateRows made_;
};

}  // namespace

SlateRows SlateRowsOf(const ClassProfile& profile, const DiveTemplate& settings, const NumberTexts& numbers) {
  return Builder(profile, settings, numbers).Build();
}

}  // namespace tav
