#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tav {

/// A sentence of the help in the language of the user. The names of commands and options are the same in all.
using HelpWords = std::function<std::string(const std::string& english)>;

/// The words of the language whose table has that name, "TAV_de.dll", from the file "TAV_de.cli" beside it: a line
/// `English<TAB>translation` each. What the file does not tell stays English.
HelpWords HelpWordsOf(const std::filesystem::path& programFolder, const std::string& table);

}  // namespace tav
