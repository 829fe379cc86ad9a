#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_template.h"
#include "persist/format_faults.h"
#include "persist/template_block.h"
#include "persist/text_file.h"

namespace tav {

/// Extension of template files.
constexpr std::string_view kTemplateExtension = ".tpl";

/// Reads a template file: one block, over the settings that the record holds. On any fault, also of a template that
/// can't be planned on, the record stays as it is and FileError tells file, line and reason. On success `Templatename`
/// is that of the block, or the file's name where the block has none, `TemplateFolder` is the file's folder with its
/// trailing separator, and `TemplateChanged` is cleared; what is odd in the file, and which keys it lacks, is returned.
std::vector<FormatFault> LoadTemplateFile(DiveTemplate& diveTemplate, const std::filesystem::path& file);

/// Writes a file with one block, whole or not at all. Returns what the save could not keep of the file. Throws
/// FileError.
SaveNotes SaveTemplateFile(const DiveTemplate& diveTemplate, const std::filesystem::path& file);

/// The same from text, with all faults and advice, collecting or throwing as `faults` says. Returns the lines of its
/// keys.
KeyLines ReadTemplateText(DiveTemplate& diveTemplate, std::string_view text, FormatFaults& faults);

/// The faults of the settings themselves (TemplateFaults) with the lines of their values, and advice of altitudes that
/// contradict their pressures. The one judge of what can be planned on, for all who read a block.
void ReportTemplateFaults(const DiveTemplate& diveTemplate, const KeyLines& keys, BlockOf block, int blockLine,
                          FormatFaults& faults);

/// The template that is shipped as "Default.tpl", from within the program: what it falls back on when that file is
/// missing or broken.
DiveTemplate ShippedDefaultTemplate();

}  // namespace tav
