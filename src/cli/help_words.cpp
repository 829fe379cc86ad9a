#include "cli/help_words.h"

#include <map>

#include "model/message.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "start/language_table.h"

namespace tav {

HelpWords HelpWordsOf(const std::filesystem::path& programFolder, const std::string& table) {
  std::map<std::string, std::string, std::less<>> known;
  try {
    const auto file = (programFolder / kLanguageFolder / table).replace_extension(".cli");
    const std::string text = ReadTextFile(file);
    LineReader lines(text);
    while (const auto line = lines.Next()) {
      const std::size_t tab = line->find('\t');
      if (tab != std::string_view::npos) known.emplace(line->substr(0, tab), line->substr(tab + 1));
    }
  } catch (const FileError&) {
    known.clear();
  }
  return [known = std::move(known)](const std::string& english) {
    const auto found = known.find(english);
    return found == known.end() ? english : found->second;
  };
}

}  // namespace tav
