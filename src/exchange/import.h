#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_template.h"
#include "persist/profile_file.h"
#include "platform/text_source.h"

namespace tav {

/// Extensions of what can be imported, in small letters.
constexpr std::string_view kUddfExtension = ".uddf";
constexpr std::string_view kCsvExtension = ".csv";

/// Dives from a file of another kind.
struct ImportedDives {
  ProfileText profile;               ///< ready to be opened; its lines are those of the file
  std::vector<std::string> remarks;  ///< what was simplified or assumed, a sentence each
};

/// Reads a dive log in UDDF, or waypoints where the extension is ".csv", as plans on the settings of a template, each
/// ending with its ascent. A plan that WriteUddf wrote comes back as it was, with its own settings, unless the
/// samples beside it are others by now (ContradictedPlans). Several dives become a series. `dive` counts from 1 and
/// takes one dive alone; 0 takes all.
///
/// Throws FileError, with line and reason in the words of `texts`, for a file that can't be read, is of another form
/// or holds what can't be planned.
ImportedDives ImportFile(const std::filesystem::path& file, const DiveTemplate& settings, int dive,
                         const TextSource& texts);

/// The same for the text of a UDDF file.
ImportedDives ImportUddf(const std::filesystem::path& file, std::string text, const DiveTemplate& settings, int dive,
                         const TextSource& texts);

/// The same for lines of depth, minutes of the leg (its move included) and gas, separated by commas, semicolons or
/// tabs; lines without a number ahead of the first are a heading. Depths are in the units of the template. A leg
/// without a gas breathes that of the leg before, the first one the first gas of the template; further columns are
/// passed over; both are told. A gas is known by its name in any case, and one that the template does not have is made
/// from its name (MixOfName). A cell may stand in quotes, with "" for a quote in it. With semicolons or tabs a comma is
/// a decimal point, too.
ImportedDives ImportCsv(const std::filesystem::path& file, const std::string& text, const DiveTemplate& settings,
                        const TextSource& texts);

}  // namespace tav
