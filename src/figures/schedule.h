#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/dive_template.h"
#include "model/number_texts.h"
#include "model/profile.h"
#include "model/text_columns.h"
#include "platform/text_source.h"

namespace tav {

/// A line of a schedule: what the diver does, and what the gauges show at its end.
struct ScheduleRow {
  enum class Kind { Descent, Level, Ascent, GasChange, Stop, Surface };
  Kind kind = Kind::Level;
  std::int16_t row = 0;           ///< of the profile
  Single depth;                   ///< depth units
  std::optional<Single> minutes;  ///< nothing for a gas change and for the surface
  Single runTime;                 ///< minutes
  std::string gas;
  Single PPO2;
  bool changesGas = false;  ///< the line before is on another gas
};

/// The lines of a dive: each leg of the plan, each stop, each gas change of the ascent that has no stop of its own, the
/// surface. The moves between stops are left out.
std::vector<ScheduleRow> ScheduleOf(const ClassProfile& profile, const DiveTemplate& diveTemplate);

/// The words around the figures; those of the command line unless others are set.
struct ScheduleWords {
  std::array<std::string, 6> kinds{"descent", "level", "ascent", "switch", "stop", "surface"};  ///< by Kind
  std::array<std::string, 5> heads{"Depth", "Time", "Run", "Gas", "PPO2"};
  std::string totals = "Run time %1 min, stops %2 min, CNS %3 %, OTU %4";
  std::string carried = "Of this carried over from the dive before: CNS %1 %, OTU %2";
  std::string gases = "Gas %1";
  std::string noAscent = "No ascent has been asked for.";
  std::string minutes = "min", metres = "m", feet = "ft", bar = "bar", atmospheres = "ata", litres = "l",
              cubicFeet = "cu ft";
};

/// The words in the language of the texts.
ScheduleWords ScheduleWordsOf(const TextSource& texts);

/// The schedule of a dive in figures as divers write them: "22.2", and "25" without a decimal.
class ScheduleText {
 public:
  /// All that is handed over must outlive the object, but the words and the numbers.
  ScheduleText(const ClassProfile& profile, const DiveTemplate& diveTemplate, ScheduleWords words = {},
               NumberTexts numbers = {});

  [[nodiscard]] const std::vector<ScheduleRow>& Rows() const { return rows_; }
  /// Kind, depth, time, run time, gas and PPO2 of each row.
  using Line = std::array<std::string, 6>;
  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  /// Two lines: names and units.
  [[nodiscard]] std::array<Line, 2> Heads() const;
  /// How the texts of a line stand in columns.
  [[nodiscard]] static std::vector<TextColumns::Column> Columns();
  /// Rows from `first` to `last`, as far as there are such, as lines of text whose columns are aligned with blanks,
  /// below the heads.
  [[nodiscard]] std::string Aligned(std::size_t first, std::size_t last) const;
  [[nodiscard]] std::string Aligned() const { return Aligned(0, lines_.size()); }
  /// Run time, stops, doses, what of them was carried over, and the gas of each mix; a line that says so when there is
  /// no ascent.
  [[nodiscard]] std::vector<std::string> Totals() const;

 private:
  [[nodiscard]] std::string GasesUsed() const;

  const ClassProfile& profile_;
  const DiveTemplate& template_;
  ScheduleWords words_;
  NumberTexts numbers_;
  std::vector<ScheduleRow> rows_;
  std::vector<Line> lines_;
};

}  // namespace tav
