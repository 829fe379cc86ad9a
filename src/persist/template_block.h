#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_template.h"
#include "model/template_faults.h"
#include "persist/format_faults.h"
#include "persist/line_reader.h"

namespace tav {

constexpr std::string_view kStartOfBlock = "Start Template Block";
constexpr std::string_view kEndOfBlock = "End Template Block";
/// The key of a gas, which stands there once for each.
constexpr std::string_view kBlendsKey = "Blends Available";

/// The lines of a text on which each key of a template block stands, in order; "# Loop" for what comments tell.
using KeyLines = std::map<std::string, std::vector<int>, std::less<>>;

/// The text of a template block: 42 items from "Start Template Block" to "End Template Block", CR LF line ends,
/// numbers with a decimal point. `TemplateFolder`, Air and the gases of the changes are not in it. What is
/// told in comment lines (CommentLines) stands ahead of "Templatename".
std::string WriteTemplateBlock(const DiveTemplate& diveTemplate);

/// A setting as the block tells it: "LastStop", "3"; "# Loop", "diluent". Numbers are without the blanks that pad them;
/// the gases are one value.
struct BlockValue {
  std::string key;
  std::string value;
};

/// What the block tells that has a bearing on a plan, in its order.
std::vector<BlockValue> BlockValues(const DiveTemplate& diveTemplate);

/// Reads from a "Start Template Block" line, which the caller has seen to be there, up to and including the end marker.
/// What the block does not tell stays as it is in the record; lists that it tells, also empty ones, replace those of
/// the record. Errors: a value that does not begin with a number where one belongs, a flag or the depth of a gas change
/// that is no number, a number that does not fit its field, an entry of a list without ":", gradient factors that are
/// not three values, a list beyond 32,767 entries, a missing end, and what CommentLines finds. Whether the values can
/// be is for TemplateFaults to say.
KeyLines ReadTemplateBlock(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults);

/// The same of the block of a dive. An open-circuit one that tells nothing of a loop becomes a new plan, should it be
/// made one on a rebreather (SetUpNewPlan).
KeyLines ReadDiveBlock(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults);

/// A template may tell a part of the settings; a dive tells all of them.
enum class BlockOf { Template, Dive };

/// The keys that a block lacks: "Metric", "GF". Not told of: the keys without a bearing on a plan ("AutoDecoGas",
/// "CeilingOverride", "Templatename"), and, of a dive, "Blends Available" and "DecoRMV", which files may do without.
std::string MissingKeys(const KeyLines& told, BlockOf block);

/// The line to name for a fault of the record: that of its key, or `blockLine` when the key is absent.
int LineOfFault(const TemplateFault& fault, const KeyLines& lines, int blockLine);

}  // namespace tav
