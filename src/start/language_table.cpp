#include "start/language_table.h"

#include <charconv>
#include <system_error>

#include "model/text_id.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"

namespace tav {
namespace {

std::string Unescape(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char escaped = text[++i];
    plain += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped == 't' ? '\t' : escaped;
  }
  return plain;
}

bool TryRead(const std::filesystem::path& file, LanguageTable& table) {
  try {
    table = LanguageTable::Read(file);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

LanguageTable LanguageTable::Read(const std::filesystem::path& file) {
  const std::string text = ReadTextFile(file);
  LanguageTable table;
  LineReader lines(text);
  while (const auto line = lines.Next()) {
    if (line->empty() || line->front() == '#') continue;
    const std::size_t tab = line->find('\t');
    int id = 0;
    const char* end = line->data() + (tab == std::string_view::npos ? 0 : tab);
    const auto parsed = std::from_chars(line->data(), end, id);
    if (tab == std::string_view::npos || parsed.ec != std::errc() || parsed.ptr != end) {
      throw FileError(file, lines.LineNumber(), Text::LanguageLineFault);
    }
    table.texts_[id] = Unescape(line->substr(tab + 1));
  }
  return table;
}

std::string LanguageTable::GetResString(int id) const {
  const auto found = texts_.find(id);
  return found == texts_.end() || found->second.empty() ? TextSource::GetResString(id) : found->second;
}

LanguageTable DefaultTexts(const std::filesystem::path& programFolder) {
  return LanguageTable::Read(programFolder / kLanguageFolder / kDefaultLanguage);
}

Language LoadLanguage(const std::filesystem::path& programFolder, const std::string& name, LanguageTable& table,
                      MessageBoxes& boxes) {
  const std::filesystem::path folder = programFolder / kLanguageFolder;
  Language language;
  language.library = folder / name;
  // No language is there yet, so these two messages are English in every case.
  if (!TryRead(language.library, table)) {
    boxes.Show("Language DLL " + language.library.string() + " not found using default language", "", BoxIcon::None,
               BoxButtons::OK);
    language.library = folder / kDefaultLanguage;
    if (!TryRead(language.library, table)) {
      boxes.Show("Language DLL " + language.library.string() + " not found. Default language is also not found", "",
                 BoxIcon::None, BoxButtons::OK);
      return language;
    }
  }
  language.loaded = true;
  const std::string base = name.substr(0, name.size() < 4 ? 0 : name.size() - 4);
  language.helpFile = folder / (base + ".hlp");
  std::error_code error;
  if (!std::filesystem::is_regular_file(language.helpFile, error)) language.helpFile = folder / "TAV_uk.hlp";
  return language;
}

}  // namespace tav
