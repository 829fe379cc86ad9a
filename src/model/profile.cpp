#include "model/profile.h"

#include <algorithm>
#include <stdexcept>

namespace tav {

void ClassProfile::Class_Initialize() {
  rows_.assign(1, {});
  Waypoint& start = rows_.front();
  start.GasMixName = "Air";
  start.GasMixO2 = 21;
  start.GasMixN2 = 79;
  start.GF = 1.0;
}

void ClassProfile::NewWayPoint() {
  if (GetLength() == INT16_MAX) throw std::length_error("a dive holds at most 32,767 rows");
  Waypoint& row = rows_.emplace_back();
  row.DoShow = true;
  row.GF = 1.0;
}

Single ClassProfile::DeleteLast() {
  if (GetLength() < 1) return 0;
  rows_.pop_back();
  return rows_.back().RunTime;
}

void ClassProfile::CopyUntil(const ClassProfile& source, std::int16_t lastRow) {
  ClassProfile copy;
  copy.Copy(source);
  copy.CutAfter(lastRow);
  for (Waypoint& row : copy.rows_) row.Ceiling = 0;
  rows_ = std::move(copy.rows_);
}

void ClassProfile::CopyFrom(const ClassProfile& source, std::int16_t firstRow) {
  if (&source == this) return;
  CutAfter(static_cast<std::int16_t>(firstRow - 1));
  rows_.insert(rows_.end(), source.rows_.begin() + firstRow, source.rows_.end());
  for (auto row = rows_.begin() + firstRow; row != rows_.end(); ++row) {
    row->HeCompartments = {};
    row->N2Compartments = {};
  }
}

void ClassProfile::CutAfter(std::int16_t lastRow) {
  const auto size = static_cast<std::size_t>(lastRow + 1);
  if (size < rows_.size()) rows_.resize(size);
}

std::int16_t LastUserRow(const ClassProfile& profile) {
  for (std::int16_t row = profile.GetLength(); row > 0; --row) {
    if (profile.GetEndUserProfile(row)) return row;
  }
  return 0;
}

}  // namespace tav
