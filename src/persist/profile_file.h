#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_record.h"
#include "persist/format_faults.h"
#include "persist/template_block.h"

namespace tav {

/// Extension of profile files.
constexpr std::string_view kProfileExtension = ".tav";

/// Where the parts of a record stand in its file, for messages.
struct DiveRecordLines {
  int block = 0;             ///< "Start Template Block"
  KeyLines keys;             ///< of the block
  std::vector<int> actions;  ///< of each action; element 0 is action 1
};

struct ProfileText {
  std::vector<DiveRecord> dives;
  std::vector<DiveRecordLines> lines;  ///< one for each dive
  std::vector<FormatFault> advice;     ///< of a file that was read: what is odd in it
};

/// The text of one dive record: template block, "Start of Profile", surface interval, actions, "End of Profile".
std::string WriteDiveRecord(const DiveTemplate& diveTemplate, Single surfaceInterval, const ClassUseractions& actions);

/// The records of dives one after another: the text of a profile file.
std::string WriteProfileText(const std::vector<DiveRecord>& dives);

/// Reads all dive records of a text; blank lines after the last are tolerated. Errors, beside those of the block: no
/// dive at all, more than 32,766 dives or 32,767 actions, a missing marker, a dive that lacks settings (MissingKeys) or
/// can't be planned on (TemplateFaults), an action that is not four fields, depth, time, number of a gas and 0 or 1, a
/// leg that can't be planned (LegFault), a surface interval outside 0 to 1,000,000 minutes.
ProfileText ReadProfileText(std::string_view text, FormatFaults& faults);

/// Reads a profile file. Throws FileError at the first fault; nothing is returned of a broken file.
ProfileText ReadProfileFile(const std::filesystem::path& file);

/// A dive that does not end with its ascent leaves no loads for the dive behind it: an error at that dive.
void ReportSeriesFaults(const ProfileText& profile, FormatFaults& faults);

}  // namespace tav
