#include "tables/way_out_supply.h"

#include "model/text_id.h"
#include "supply/supply_text.h"

namespace tav {

WayOutSupply::WayOutSupply(const PlannedDive& dive) : record_(dive.record), plan_(dive.plan) {
  if (dive.before != nullptr) before_ = *dive.before;
}

ClassProfile WayOutSupply::Breathed(const TableDive& cut) const {
  ClassProfile rows;
  const auto add = [&](const Waypoint& row, double share) {
    rows.NewWayPoint();
    Waypoint& added = rows.Row(rows.GetLength());
    added = row;
    added.GasUsed = row.GasUsed * share;
  };
  double begun = 0;
  for (std::int16_t i = 1; i <= plan_.rows.GetLength() && begun < cut.head; ++i) {
    const double end = plan_.rows.GetRunTime(i);
    add(plan_.rows.Row(i), end > cut.head ? (cut.head - begun) / (end - begun) : 1);
    begun = end;
  }
  for (std::int16_t i = LastUserRow(cut.profile); i < cut.profile.GetLength(); ++i) {
    add(cut.profile.Row(static_cast<std::int16_t>(i + 1)), 1);
  }
  return rows;
}

std::vector<GasStore> WayOutSupply::Of(const DiveTemplate& settings, const TableDive& cut) const {
  DiveRecord record = record_;
  record.Template = settings;
  const SupplyChoice choice = SupplyChoiceOf(settings);
  const PlannedDive dive{record, plan_, before_ ? &*before_ : nullptr};
  return StoresOf(Breathed(cut), settings, settings.Cylinders, BailOutNeedsOf(dive, choice.minutes, cut.head),
                  choice.team * choice.stress * settings.RMV, &plan_.rows);
}

std::string GasNote(const GasStore& store, const AdviceWords& words, const std::string& when) {
  std::string volume = words.Volume(store.ShownNeed(words.Metric()));
  if (store.carried > 0) volume = words.T(Text::WhatIfCarried, {volume, words.Volume(store.carried)});
  return store.gas + ": " + VerdictText(store, words) + (when.empty() ? "" : " " + when) + ", " + volume;
}

}  // namespace tav
