#pragma once

#include <filesystem>

namespace tav {

/// Lets Qt's own windows (files, printer, colours, the menus of fields) speak the language of a table of the program,
/// as far as Qt's translations are installed. `table` is its file, "TAV_de.dll".
void SpeakLanguageOf(const std::filesystem::path& table);

}  // namespace tav
