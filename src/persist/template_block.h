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

/// The lines of a text on which each key of a template block stands, in order.
using KeyLines = std::map<std::string, std::vector<int>, std::less<>>;

/// The text of a template block: 42 items from "Start Template Block" to "End Template Block", CR LF line ends,
/// numbers with a decimal point. `TemplateFolder`, Air and the gases of the changes are not in it. What is
/// told in comment lines (CommentLines) stands ahead of "Templatename".
std::string WriteTemplateBlock(const DiveTemplate& diveTemplate);

/// Reads from a "Start Template Block" line, which the caller has seen to be there, up to and including the end marker.
/// A key that is absent leaves its field as it is; `Blends` always starts anew from Air. Errors: a flag or the depth of
/// a gas change that is no number, a number that does not fit its field, a list beyond 32,767 entries, a
/// missing end, and what CommentLines finds.
KeyLines ReadTemplateBlock(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults);

/// The line to name for a fault of the record: that of its key, or `blockLine` when the key is absent.
int LineOfFault(const TemplateFault& fault, const KeyLines& lines, int blockLine);

}  // namespace tav
