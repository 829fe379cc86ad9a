#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/single.h"

namespace tav {

constexpr std::size_t kCompartments = 16;

/// One value for each tissue compartment; compartment 1 is element 0.
using Compartments = std::array<Single, kCompartments>;

/// Kinds of row.
namespace RowStatus {
constexpr std::int16_t kLeg = 1;          ///< end of a leg or of its level part
constexpr std::int16_t kDescentBand = 2;  ///< a descent reached a limit of a band of `DescendRates`
constexpr std::int16_t kAscentBand = 3;   ///< an ascent reached a limit of a band of `AscendRates`
constexpr std::int16_t kStop = 4;         ///< decompression stop
constexpr std::int16_t kAscentEnd = -1;   ///< last piece of an ascent
}  // namespace RowStatus

/// Which model set the ceiling of a row.
namespace ModelMarker {
constexpr std::int16_t kNone = 0;
constexpr std::int16_t kVPM = 1;
constexpr std::int16_t kZHL16 = 2;
}  // namespace ModelMarker

/// One row of a profile: the end of one segment. Depths in depth units, times in minutes.
struct Waypoint {
  std::int16_t SegmentNumber = 0;
  Single SegmentTime;  ///< minutes of this segment
  Single RunTime;      ///< minutes from the start of the dive to the end of this segment
  std::string GasMixName;
  Single GasMixO2;  ///< percent
  Single GasMixN2;
  Single GasMixHe;
  Single GasUsed;    ///< volume at surface pressure; 0 on a rebreather
  Single Rate;       ///< depth units per minute, negative going up, 0 when level
  Single Depth;      ///< at the end of the segment
  Single Ceiling;    ///< at the end of the segment
  Single StopTime;   ///< whole minutes, on stop rows only
  Single StopDepth;  ///< on stop rows only
  Single PPO2;       ///< bar or atmospheres, at the end of the segment
  Single CNS;        ///< dose of this segment, a fraction
  Single TotalCNS;
  Single OTU;  ///< dose of this segment
  Single TotalOTU;
  Single END;                          ///< equivalent narcotic depth at the end of the segment
  Compartments PercentCompartments{};  ///< loads as fractions of the surface M-values
  Compartments HeCompartments{};       ///< helium loads, depth units; not kept by a copy
  Compartments N2Compartments{};       ///< nitrogen loads, depth units; not kept by a copy
  std::int16_t Status = 0;
  std::int16_t MixNumber = 0;   ///< index in `Blends`
  bool DoShow = false;          ///< of interest to the reader: the graph marks it
  bool EndUserProfile = false;  ///< last row of the user's plan; the computed ascent follows
  Single MaxMValue;             ///< highest load as a fraction of the M-value at the row's depth
  Single GF;                    ///< gradient factor in force
  std::int16_t ModelControl = ModelMarker::kNone;
};

/// The table on which planner and engine meet: row 0 is the state before the dive, rows 1 to GetLength its segments.
///
/// A plain store. A row outside 0 to GetLength throws std::out_of_range. A 16-bit index bounds the table: NewWayPoint
/// throws std::length_error beyond 32,767 rows. Each field has its two accessors, whether something uses them or not:
/// they are the vocabulary in which rules of a plan are told.
class ClassProfile {
 public:
  ClassProfile() { Class_Initialize(); }

  /// One row: the start row on "Air" with a gradient factor of 1, everything else 0.
  void Class_Initialize();
  /// Adds a row after the last, with `DoShow` true and `GF` 1.
  void NewWayPoint();
  /// Cuts the table back to row 0, whose contents stay.
  void clear() { rows_.resize(1); }
  /// Index of the last row: 0 for a table with only the start row.
  [[nodiscard]] std::int16_t GetLength() const { return static_cast<std::int16_t>(rows_.size() - 1); }
  /// Removes the last row and returns the run time of the row that is last now; 0 if only row 0 is left.
  Single DeleteLast();

  [[nodiscard]] bool GetEndUserProfile(std::int16_t row) const { return Row(row).EndUserProfile; }
  void SetEndUserProfile(std::int16_t row, bool value) { Row(row).EndUserProfile = value; }
  [[nodiscard]] std::int16_t GetModelControl(std::int16_t row) const { return Row(row).ModelControl; }
  void SetModelControl(std::int16_t row, std::int16_t value) { Row(row).ModelControl = value; }
  [[nodiscard]] Single GetMaxMValue(std::int16_t row) const { return Row(row).MaxMValue; }
  void SetMaxMValue(std::int16_t row, Single value) { Row(row).MaxMValue = value; }
  [[nodiscard]] Single GetGF(std::int16_t row) const { return Row(row).GF; }
  void SetGF(std::int16_t row, Single value) { Row(row).GF = value; }
  [[nodiscard]] std::int16_t GetSegmentNumber(std::int16_t row) const { return Row(row).SegmentNumber; }
  void SetSegmentNumber(std::int16_t row, std::int16_t value) { Row(row).SegmentNumber = value; }
  [[nodiscard]] Single GetSegmentTime(std::int16_t row) const { return Row(row).SegmentTime; }
  void SetSegmentTime(std::int16_t row, Single value) { Row(row).SegmentTime = value; }
  [[nodiscard]] Single GetRunTime(std::int16_t row) const { return Row(row).RunTime; }
  void SetRunTime(std::int16_t row, Single value) { Row(row).RunTime = value; }
  [[nodiscard]] Single getDepth(std::int16_t row) const { return Row(row).Depth; }
  void setDepth(std::int16_t row, Single value) { Row(row).Depth = value; }
  [[nodiscard]] const std::string& GetGasMixName(std::int16_t row) const { return Row(row).GasMixName; }
  void SetGasMixName(std::int16_t row, std::string_view value) { Row(row).GasMixName = value; }
  [[nodiscard]] Single GetGasMixO2(std::int16_t row) const { return Row(row).GasMixO2; }
  void SetGasMixO2(std::int16_t row, Single value) { Row(row).GasMixO2 = value; }
  [[nodiscard]] Single GetGasMixN2(std::int16_t row) const { return Row(row).GasMixN2; }
  void SetGasMixN2(std::int16_t row, Single value) { Row(row).GasMixN2 = value; }
  [[nodiscard]] Single GetGasMixHe(std::int16_t row) const { return Row(row).GasMixHe; }
  void SetGasMixHe(std::int16_t row, Single value) { Row(row).GasMixHe = value; }
  [[nodiscard]] Single getGasUsed(std::int16_t row) const { return Row(row).GasUsed; }
  void SetGasUsed(std::int16_t row, Single value) { Row(row).GasUsed = value; }
  [[nodiscard]] Single GetRate(std::int16_t row) const { return Row(row).Rate; }
  void SetRate(std::int16_t row, Single value) { Row(row).Rate = value; }
  [[nodiscard]] Single GetEND(std::int16_t row) const { return Row(row).END; }
  void SetEND(std::int16_t row, Single value) { Row(row).END = value; }
  [[nodiscard]] Single GetCeiling(std::int16_t row) const { return Row(row).Ceiling; }
  void SetCeiling(std::int16_t row, Single value) { Row(row).Ceiling = value; }
  [[nodiscard]] bool GetDoShow(std::int16_t row) const { return Row(row).DoShow; }
  void SetDoShow(std::int16_t row, bool value) { Row(row).DoShow = value; }
  [[nodiscard]] Single getStopDepth(std::int16_t row) const { return Row(row).StopDepth; }
  void SetStopDepth(std::int16_t row, Single value) { Row(row).StopDepth = value; }
  [[nodiscard]] Single getStopTime(std::int16_t row) const { return Row(row).StopTime; }
  void SetStopTime(std::int16_t row, Single value) { Row(row).StopTime = value; }
  [[nodiscard]] Single GetPPO2(std::int16_t row) const { return Row(row).PPO2; }
  void SetPPO2(std::int16_t row, Single value) { Row(row).PPO2 = value; }
  [[nodiscard]] Single getCNS(std::int16_t row) const { return Row(row).CNS; }
  void setCNS(std::int16_t row, Single value) { Row(row).CNS = value; }
  [[nodiscard]] Single getOTU(std::int16_t row) const { return Row(row).OTU; }
  void SetOTU(std::int16_t row, Single value) { Row(row).OTU = value; }
  [[nodiscard]] Single getTotalCNS(std::int16_t row) const { return Row(row).TotalCNS; }
  void setTotalCNS(std::int16_t row, Single value) { Row(row).TotalCNS = value; }
  [[nodiscard]] Single getTotalOTU(std::int16_t row) const { return Row(row).TotalOTU; }
  void SetTotalOTU(std::int16_t row, Single value) { Row(row).TotalOTU = value; }
  [[nodiscard]] const Compartments& GetPercentCompartments(std::int16_t row) const {
    return Row(row).PercentCompartments;
  }
  void SetPercentCompartments(std::int16_t row, const Compartments& value) { Row(row).PercentCompartments = value; }
  [[nodiscard]] const Compartments& GetHeCompartments(std::int16_t row) const { return Row(row).HeCompartments; }
  void SetHeCompartments(std::int16_t row, const Compartments& value) { Row(row).HeCompartments = value; }
  [[nodiscard]] const Compartments& GetN2Compartments(std::int16_t row) const { return Row(row).N2Compartments; }
  void SetN2Compartments(std::int16_t row, const Compartments& value) { Row(row).N2Compartments = value; }
  [[nodiscard]] std::int16_t GetStatus(std::int16_t row) const { return Row(row).Status; }
  void SetStatus(std::int16_t row, std::int16_t value) { Row(row).Status = value; }
  [[nodiscard]] std::int16_t getmixnumber(std::int16_t row) const { return Row(row).MixNumber; }
  void SetMixNumber(std::int16_t row, std::int16_t value) { Row(row).MixNumber = value; }

  /// Replaces rows 0 to lastRow by those of `source`, without `Ceiling` and the loads. Rows beyond are gone.
  void CopyUntil(const ClassProfile& source, std::int16_t lastRow);
  /// Replaces the table by all rows of `source`. The loads, which only the engine's own table holds, become 0.
  void Copy(const ClassProfile& source) { CopyFrom(source, 0); }
  /// As Copy, but rows before `firstRow`, which the two tables share already, are left alone.
  void CopyFrom(const ClassProfile& source, std::int16_t firstRow);

  /// A whole row, for the engine and for readers of many fields.
  [[nodiscard]] const Waypoint& Row(std::int16_t row) const { return rows_.at(static_cast<std::size_t>(row)); }
  Waypoint& Row(std::int16_t row) { return rows_.at(static_cast<std::size_t>(row)); }
  /// Cuts the table after `lastRow`.
  void CutAfter(std::int16_t lastRow);

 private:
  std::vector<Waypoint> rows_;
};

/// The highest row with `EndUserProfile`, 0 if there is none.
std::int16_t LastUserRow(const ClassProfile& profile);

}  // namespace tav
