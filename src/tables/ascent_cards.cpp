#include "tables/ascent_cards.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "figures/dive_figures.h"
#include "model/numbers.h"

namespace tav {
namespace {

std::string Whole(Single value) { return FormatFixed(value, 0); }

class Card {
 public:
  Card(const TableDive& cut, const TableDives& scenario, NumberTexts numbers, const WayOutSupply* supply)
      : cut_(cut),
        numbers_(std::move(numbers)),
        settings_(scenario.diveTemplate),
        rows_(cut.profile),
        supply_(supply),
        bottom_(LastUserRow(rows_)) {
    late_ = rows_.GetRunTime(bottom_) - cut.head;
    // What was before the diver leaves is not on the card.
    for (GasWarning& warning : GasWarnings(scenario, cut)) {
      if (warning.lastRow >= bottom_) card_.warnings.push_back(std::move(warning));
    }
  }

  AscentCard Make() {
    card_.moment = numbers_.Plain(RoundSingle(cut_.head, 2));
    card_.depth = Depth(cut_.depth);
    card_.decompresses = cut_.decompresses;
    Leave();
    for (auto i = static_cast<std::int16_t>(bottom_ + 1); i <= rows_.GetLength(); ++i) {
      const Waypoint& row = rows_.Row(i);
      const bool last = i == rows_.GetLength();
      if (row.StopTime != 0) {
        Add(i, Whole(row.StopTime), i);
      } else if (last || ChangesOnTheWay(i)) {
        Add(i, "", last ? i : Behind(i));
      }
      Count(row);
    }
    Gases();
    return std::move(card_);
  }

 private:
  static std::int16_t Behind(std::int16_t i) { return static_cast<std::int16_t>(i + 1); }

  /// The gas behind row i is another one, and no stop there tells it.
  [[nodiscard]] bool ChangesOnTheWay(std::int16_t i) const {
    const Waypoint& next = rows_.Row(Behind(i));
    return next.GasMixName != rows_.Row(i).GasMixName && next.StopTime == 0;
  }

  /// A depth with a decimal only where it has one.
  [[nodiscard]] std::string Depth(Single value) const { return numbers_.Plain(RoundSingle(value, 1)); }

  /// The first line: where and when the ascent begins, and on what; a stop there comes in the next line.
  void Leave() {
    gas_ = rows_.Row(bottom_).GasMixName;
    if (bottom_ == rows_.GetLength()) return;
    Add(bottom_, "", Behind(bottom_));
    card_.rows.back().runTime = card_.moment;
  }

  /// A line for the depth at which a row ends, on the gas of another.
  void Add(std::int16_t place, const std::string& stop, std::int16_t breathed) {
    constexpr double kNoise = 0.001;  // minutes
    const Single depth = rows_.getDepth(place);
    CardRow& row = card_.rows.emplace_back();
    row.depth = Depth(depth);
    row.stop = stop;
    row.runTime = Whole(std::ceil(rows_.GetRunTime(place) - late_ - kNoise));
    row.gas = rows_.GetGasMixName(breathed);
    row.gasChanges = row.gas != gas_;
    gas_ = row.gas;
    if (depth == 0) {
      row.gas.clear();  // nothing is breathed from a cylinder any more
      return;
    }
    row.warned = std::ranges::any_of(card_.warnings, [&](const GasWarning& w) { return w.Concerns(breathed); });
  }

  void Count(const Waypoint& row) {
    auto gas = std::find_if(used_.begin(), used_.end(), [&](const auto& used) { return used.first == row.GasMixName; });
    if (gas == used_.end()) gas = used_.insert(gas, {row.GasMixName, 0.0});
    gas->second += row.GasUsed;
  }

  void Gases() {
    const std::vector<GasStore> stores = supply_ == nullptr ? std::vector<GasStore>() : supply_->Of(settings_, cut_);
    for (const auto& [name, used] : used_) {
      double volume = used;
      if (const auto store = std::ranges::find(stores, name, &GasStore::gas); store != stores.end()) {
        if (store->bailOut) volume = store->Need();
        if (!settings_.Cylinders.empty()) card_.supply.push_back(*store);
      }
      card_.needed.push_back({name, numbers_.Fixed(Single(volume), settings_.Metric ? 0 : 1)});
    }
  }

  const TableDive& cut_;
  NumberTexts numbers_;
  const DiveTemplate& settings_;
  const ClassProfile& rows_;
  const WayOutSupply* supply_;
  std::int16_t bottom_;
  Single late_;
  std::string gas_;
  std::vector<std::pair<std::string, double>> used_;
  AscentCard card_;
};

}  // namespace

std::vector<AscentCard> MakeAscentCards(const TableDives& cuts, const NumberTexts& numbers,
                                        const WayOutSupply* supply) {
  std::vector<AscentCard> cards;
  for (std::size_t i = 1; i < cuts.dives.size(); ++i) {
    if (cuts.dives[i].depth > 0) cards.push_back(Card(cuts.dives[i], cuts, numbers, supply).Make());
  }
  return cards;
}

}  // namespace tav
