#include "tables/small_tables.h"

#include <algorithm>
#include <utility>

#include "compute/breathed_gas.h"
#include "model/number_text.h"
#include "model/numbers.h"

namespace tav {
namespace {

std::string Whole(Single value) { return FormatFixed(value, 0); }
std::string Exact(Single depth) { return FormatPlain(RoundSingle(depth, 1)); }

/// Whether the ascent has a row of its own where profile row i ends: a level stretch, or a change of gas on the way.
bool HasRow(const ClassProfile& profile, std::int16_t i) {
  const auto next = static_cast<std::int16_t>(i + 1);
  return profile.GetRate(i) == 0 ||
         (profile.getmixnumber(i) != profile.getmixnumber(next) && profile.getStopTime(next) == 0);
}

/// Fills the cells of one table.
class Builder {
 public:
  Builder(const TableDives& profiles, const std::string& depthHead)
      : profiles_(profiles), last_(profiles.dives.back().profile), lastRow_(CountTableRows(profiles)) {
    AddRow("Mix", depthHead, depthHead);
  }

  SmallTable Build() {
    AddRows();
    for (std::size_t dive = 1; dive < profiles_.dives.size(); ++dive) {
      table_.cells[0][dive + 2] = Whole(profiles_.dives[dive].head);
    }
    for (std::size_t dive = 0; dive < profiles_.dives.size(); ++dive) FillColumn(dive);
    table_.cells.resize(std::min(table_.cells.size(), static_cast<std::size_t>(lastRow_) + 1));
    table_.depths.resize(table_.cells.size());
    for (std::size_t dive = 1; dive < profiles_.dives.size(); ++dive) {
      const ClassProfile& profile = profiles_.dives[dive].profile;
      table_.totals.push_back(Whole(profile.GetRunTime(profile.GetLength())));
      if (!profiles_.dives[dive].decompresses) {
        table_.no_decompression.push_back({dive - 1, table_.cells[0][dive + 2], "", ""});
      }
    }
    table_.maximalEND = profiles_.diveTemplate.MaximalEND;
    return std::move(table_);
  }

 private:
  void AddRow(const Waypoint& gas, Single depth) { AddRow(MixLabel(gas), Whole(depth), Exact(depth)); }
  void AddRow(const std::string& mix, const std::string& depth, const std::string& exact) {
    auto& row = table_.cells.emplace_back(profiles_.dives.size() + 2);
    row[TableColumn::kMix] = mix;
    row[TableColumn::kDepth] = depth;
    table_.depths.push_back(exact);
  }

  void AddRows() {
    const std::int16_t length = last_.GetLength();
    // A dive of fewer rows (a moment after the start, or at the surface) has its bottom in its last one.
    const std::int16_t bottom = std::min<std::int16_t>(2, length);
    AddRow(last_.Row(bottom), last_.getDepth(bottom));
    if (length >= 3 && last_.getmixnumber(2) != last_.getmixnumber(3)) {
      AddRow(last_.Row(3), last_.getDepth(2));
    }
    for (std::int16_t i = 3; i < length; ++i) {
      if (HasRow(last_, i)) AddRow(last_.Row(static_cast<std::int16_t>(i + 1)), last_.getDepth(i));
    }
  }

  void FillColumn(std::size_t dive) {
    const ClassProfile& profile = profiles_.dives[dive].profile;
    std::vector<const Waypoint*> told(table_.cells.size());  // the stop that each row tells
    const auto rowOf = [&](const Waypoint& stop) {
      return FindDepthRow(table_.cells, Whole(stop.StopDepth), lastRow_);
    };
    CheckDescent(dive);
    for (std::int16_t k = 0; k <= profile.GetLength(); ++k) {
      const Waypoint& stop = profile.Row(k);
      if (stop.StopTime == 0) continue;
      const int row = rowOf(stop);
      const Waypoint* leftOut = &stop;
      if (row != -1) leftOut = std::exchange(told[static_cast<std::size_t>(row)], &stop);
      if (leftOut != nullptr) Remark(table_.left_out, dive, *leftOut, Whole(leftOut->StopTime));
    }
    for (std::int16_t k = 0; k <= profile.GetLength(); ++k) {
      const Waypoint& stop = profile.Row(k);
      if (stop.StopTime == 0) continue;
      const int found = rowOf(stop);
      if (found == -1 || told[static_cast<std::size_t>(found)] != &stop) continue;
      const auto at = static_cast<std::size_t>(found);
      auto& row = table_.cells[at];
      row[dive + 2] = Whole(stop.StopTime);
      if (found == 1) Remark(table_.bottom, dive, stop, Whole(stop.StopTime));
      if (MixLabel(stop) != row[TableColumn::kMix]) Remark(table_.other_gas, dive, stop, MixLabel(stop));
      if (Exact(stop.StopDepth) != table_.depths[at]) Remark(table_.other_depth, dive, stop, table_.depths[at]);
    }
    if (dive == 0) return;
    CheckBottom(dive);
    for (GasWarning& warning : GasWarnings(profiles_, profiles_.dives[dive])) {
      table_.warnings.push_back({dive - 1, table_.cells[0][dive + 2], std::move(warning)});
    }
  }

  /// A square dive that is still on its way down when its bottom time is over goes on down.
  void CheckDescent(std::size_t dive) {
    if (profiles_.bailout || dive == 0) return;
    const ClassProfile& profile = profiles_.dives[dive].profile;
    const Waypoint& bottom = profile.Row(LastUserRow(profile));
    constexpr double kNoise = 0.01;  // minutes
    if (!(bottom.Rate > 0) || bottom.RunTime <= profiles_.dives[dive].head + kNoise) return;
    table_.long_descent.push_back({dive - 1, table_.cells[0][dive + 2], "", FormatFixed(bottom.RunTime, 1)});
  }

  /// Its gas may be narcotic or heavy to breathe. That of a plan that is cut is told by the plan.
  void CheckBottom(std::size_t dive) {
    if (profiles_.bailout) return;
    constexpr double kNoise = 0.1;  // depth units
    const TableDive& column = profiles_.dives[dive];
    const DiveTemplate& settings = profiles_.diveTemplate;
    const std::int16_t last = LastUserRow(column.profile);
    for (const BreathedSegment& segment : BreathedSegments({column.profile, settings, last, column.openFrom})) {
      if (segment.row != last) continue;
      BottomRemark remark{dive - 1, table_.cells[0][dive + 2]};
      if (segment.end->END - settings.MaximalEND > kNoise) remark.end = segment.end->END;
      const double density = DensityAt(segment, segment.end->Depth, settings.Metric);
      if (density > kDensityRecommended) remark.density = density;
      if (remark.end > 0 || remark.density > 0) table_.bottoms.push_back(remark);
    }
  }

  /// A remark on a stop of a dive that has a column.
  void Remark(std::vector<StopRemark>& list, std::size_t dive, const Waypoint& stop, const std::string& what) {
    if (dive == 0) return;
    list.push_back(
        {dive - 1, table_.cells[0][dive + 2], Whole(stop.StopDepth), what, Exact(stop.StopDepth), MixLabel(stop)});
  }

  const TableDives& profiles_;
  const ClassProfile& last_;
  int lastRow_;
  SmallTable table_;
};

}  // namespace

std::string MixLabel(const Waypoint& row) { return Whole(row.GasMixO2) + "/" + Whole(row.GasMixHe); }

std::int16_t CountTableRows(const TableDives& profiles) {
  const ClassProfile& last = profiles.dives.back().profile;
  std::int16_t count = 1;
  for (std::int16_t i = 2; i < last.GetLength(); ++i) {
    if (HasRow(last, i)) ++count;
  }
  return count;
}

int FindDepthRow(const TableCells& cells, std::string_view depthText, int lastRow) {
  const int end = std::min(lastRow, static_cast<int>(cells.size()) - 1);
  for (int row = 0; row <= end; ++row) {
    if (cells[static_cast<std::size_t>(row)][TableColumn::kDepth] == depthText) return row;
  }
  return -1;
}

SmallTable MakeSmallTable(const TableDives& profiles, const std::string& depthHead) {
  return Builder(profiles, depthHead).Build();
}

}  // namespace tav
