#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/model_choice.h"
#include "model/dive_template.h"
#include "model/number_texts.h"
#include "model/profile.h"

/// What windows and reports tell of a computed dive: sums over its rows, and the texts of single figures. Each is
/// worked out here, so that no two outputs differ.
namespace tav {

/// What was breathed of one gas of the template.
struct GasTotal {
  std::string Name;
  Single O2;     ///< percent
  Single He;     ///< percent
  Single total;  ///< litres or cubic feet at surface pressure
};

/// One element for each name of a gas, in the order in which they are breathed first.
std::vector<GasTotal> GasTotals(const ClassProfile& profile);

/// One element for each blend with a total that is not 0, in the order of `Blends`. A name that stands there twice gets
/// what its rows used in both.
std::vector<GasTotal> GasTotals(const ClassProfile& profile, const DiveTemplate& diveTemplate);

/// A stop of the ascent that was computed. The stops of an ascent that further legs follow have become legs of the
/// plan.
inline bool IsStop(const Waypoint& row) { return row.StopDepth != 0; }

/// Sums and extremes over the rows of a dive. Of a repetitive dive the doses have what the dives before it left.
struct DiveFigures {
  Single runTime;   ///< minutes
  Single stopTime;  ///< minutes of all stops
  Single CNS;       ///< a fraction
  Single OTU;
  Single carriedCNS;  ///< what the dives before it left of them
  Single carriedOTU;
  Single highestPPO2;
  Single lowestPPO2;       ///< of all rows
  Single lowestPPO2Below;  ///< of all rows but the start row
  Single highestEND;
  Single deepest;
};
DiveFigures FiguresOf(const ClassProfile& profile);

/// The dives before it have left doses.
inline bool CarriesDoses(const DiveFigures& figures) { return figures.carriedCNS > 0 || figures.carriedOTU > 0; }

/// The plan ends under water: no ascent has been computed.
bool LacksAscent(const ClassProfile& profile);

/// What must be said ahead of all figures of a dive, a text by number: it does not decompress, it has no ascent.
std::optional<int> NoticeOf(const ClassProfile& profile, bool decompresses);

/// The texts for kinds of row, by number.
struct StatusTexts {
  int first = 0;              ///< of status 0; those of 1 to 5 follow
  std::optional<int> hidden;  ///< of the pieces of an ascent that are of no interest
  int ascent = 0;
  int descent = 0;
};
/// The number of the text for the kind of a row; nothing for a row without one.
std::optional<int> StatusTextOf(const Waypoint& row, const StatusTexts& texts);

/// Which of the models in force set the ceiling of a row; nothing when none did.
std::optional<std::string> ModelOfRow(const Waypoint& row, const ModelChoice& model);

}  // namespace tav
