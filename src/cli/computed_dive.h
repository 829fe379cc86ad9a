#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "advice/finding.h"
#include "advice/leaving.h"
#include "advice/stop_reason.h"
#include "cli/command_frame.h"
#include "cli/json_writer.h"
#include "cli/shown.h"
#include "supply/gas_supply.h"

namespace tav {

/// One computed dive, ready for output.
struct ComputedDive {
  std::string file;
  int number = 1;   ///< place in its file, from 1
  int ofDives = 1;  ///< dives of its file
  PlannedDive dive;
  std::vector<Finding> findings;
  std::vector<Finding> told;         ///< the same in the words of the user, where JSON is to show them
  std::vector<StopReason> reasons;   ///< of its stops
  GasSupply supply;                  ///< empty when no cylinders are told
  std::vector<Surfacing> surfacing;  ///< from the end of each row, row 0 included; empty unless asked for
};

/// Adds the dives of a plan, with the findings of each in the words of `texts`. Throws FileError when one could not be
/// computed.
void Gather(CommandFrame& frame, const OpenedPlan& plan, const TextSource& texts, std::vector<ComputedDive>& dives);

/// Prints dives in the form asked for; with `why` a slate tells what each stop waits for.
void Print(CommandFrame& frame, const std::vector<ComputedDive>& dives, bool why, const TextSource& texts);

/// The dives as JSON: {"dives": [{"template": ..., "rows": [...]}, ...]}. Numbers have 7 significant digits. `shown`
/// has what is shown of each dive.
void WriteDivesJson(const std::vector<ComputedDive>& dives, const std::vector<ShownOutput>& shown, std::ostream& out);

/// Findings as JSON, the same wherever they are told.
void WriteFindings(JsonWriter& json, std::string_view name, const std::vector<Finding>& findings);

/// The dives as CSV, one line a row, with a header.
void WriteDivesCsv(const std::vector<ComputedDive>& dives, std::ostream& out);

/// The gas supply as tables, how each minimum gas is worked out below its leg; nothing without one.
void ShowSupply(const ComputedDive& dive, const TextSource& texts, ShownOutput& shown);

/// A dive as divers write it on a slate: settings, legs and stops, totals, gas supply, findings; and with `why` what
/// each stop waits for.
void ShowDive(const ComputedDive& dive, const std::vector<Finding>& findings, bool why, const TextSource& texts,
              ShownOutput& shown);

}  // namespace tav
