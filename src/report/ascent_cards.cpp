#include "report/ascent_cards.h"

#include <algorithm>

#include "model/numbers.h"
#include "report/dive_figures.h"

namespace tav {
namespace {

std::string Whole(Single value) { return FormatFixed(value, 0); }

class Card {
 public:
  Card(const TableDive& cut, const TableDives& scenario, const LocaleSeparators& separators)
      : cut_(cut),
        numbers_(separators),
        settings_(scenario.diveTemplate),
        lost_(scenario.lost),
        rows_(cut.profile),
        bottom_(LastUserRow(rows_)) {
    late_ = rows_.GetRunTime(bottom_) - cut.head;
  }

  AscentCard Make() {
    card_.moment = Whole(cut_.head);
    card_.depth = Depth(cut_.depth);
    card_.decompresses = cut_.decompresses;
    Leave();
    for (auto i = static_cast<std::int16_t>(bottom_ + 1); i <= rows_.GetLength(); ++i) {
      const Waypoint& row = rows_.Row(i);
      const bool last = i == rows_.GetLength();
      if (row.StopTime != 0) {
        Add(row, Whole(row.StopTime), row);
      } else if (last || ChangesOnTheWay(i)) {
        Add(row, "", last ? row : Next(i));
      }
      Count(row);
    }
    for (const auto& [name, volume] : used_) {
      card_.needed.push_back({name, numbers_.Fixed(Single(volume), settings_.Metric ? 0 : 1)});
    }
    return std::move(card_);
  }

 private:
  [[nodiscard]] const Waypoint& Next(std::int16_t i) const { return rows_.Row(static_cast<std::int16_t>(i + 1)); }

  /// The gas behind row i is another one, and no stop there tells it.
  [[nodiscard]] bool ChangesOnTheWay(std::int16_t i) const {
    return Next(i).GasMixName != rows_.Row(i).GasMixName && Next(i).StopTime == 0;
  }

  /// A depth with a decimal only where it has one.
  [[nodiscard]] std::string Depth(Single value) const { return numbers_.Plain(RoundSingle(value, 1)); }

  /// The first line: where and when the ascent begins, and on what; a stop there comes in the next line.
  void Leave() {
    const Waypoint& start = rows_.Row(bottom_);
    gas_ = start.GasMixName;
    if (bottom_ < rows_.GetLength()) Add(start, "", Next(bottom_));
  }

  /// A line for the depth of `place`, on the gas of `breathed`.
  void Add(const Waypoint& place, const std::string& stop, const Waypoint& breathed) {
    CardRow& row = card_.rows.emplace_back();
    row.depth = Depth(place.Depth);
    row.stop = stop;
    row.runTime = Whole(place.RunTime - late_);
    row.gas = breathed.GasMixName;
    row.gasChanges = row.gas != gas_;
    gas_ = row.gas;
    row.lostGas = place.Depth > 0 && lost_ && row.gas == *lost_;
    if (place.Depth == 0) row.gas.clear();  // nothing is breathed from a cylinder any more
    const Single surface = settings_.EndPressure;
    const double ppo2 = (surface + place.Depth / DepthPerPressure(settings_.Metric)) * breathed.GasMixO2 / 100;
    row.lowPPO2 = RoundSingle(ppo2, 2) < settings_.MinPPO2 && place.Depth > 0;
  }

  void Count(const Waypoint& row) {
    auto gas = std::find_if(used_.begin(), used_.end(), [&](const auto& used) { return used.first == row.GasMixName; });
    if (gas == used_.end()) gas = used_.insert(gas, {row.GasMixName, 0.0});
    gas->second += row.GasUsed;
  }

  const TableDive& cut_;
  NumberTexts numbers_;
  const DiveTemplate& settings_;
  const std::optional<std::string>& lost_;
  const ClassProfile& rows_;
  std::int16_t bottom_;
  Single late_;
  std::string gas_;
  std::vector<std::pair<std::string, double>> used_;
  AscentCard card_;
};

}  // namespace

std::vector<AscentCard> MakeAscentCards(const TableDives& cuts, const LocaleSeparators& separators) {
  std::vector<AscentCard> cards;
  for (std::size_t i = 1; i < cuts.dives.size(); ++i) {
    if (cuts.dives[i].depth > 0) cards.push_back(Card(cuts.dives[i], cuts, separators).Make());
  }
  return cards;
}

}  // namespace tav
