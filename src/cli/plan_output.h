#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/computed_dive.h"

namespace tav {

/// Takes the models and the trace of the options. Throws FileError when the trace can't be opened.
void ApplyOptions(const OutputOptions& options, PlanSession& session);

/// Gathers computed documents of one file for output, with the findings of each in the words of `texts`. Returns false
/// and writes the reason to `err` when a dive could not be computed.
bool Gather(PlanSession& session, const std::string& file, const std::vector<std::int16_t>& documents,
            const OutputOptions& options, const TextSource& texts, std::vector<ComputedDive>& dives, std::ostream& err);

/// Prints dives in the form asked for, and returns kDoesNotDecompress if one of them does not.
int Print(const std::vector<ComputedDive>& dives, const OutputOptions& options, const TextSource& texts,
          std::ostream& out, std::ostream& err);

}  // namespace tav
