#include "start/language_table.h"

#include <algorithm>
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

constexpr std::string_view kTableStart = "TAV_";
constexpr std::string_view kTableExtension = ".dll";

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

std::vector<int> LanguageTable::Numbers() const {
  std::vector<int> numbers;
  numbers.reserve(texts_.size());
  for (const auto& [id, text] : texts_) numbers.push_back(id);
  std::ranges::sort(numbers);
  return numbers;
}

std::vector<std::string> LanguageCodes(const std::filesystem::path& programFolder) {
  std::vector<std::string> codes;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(programFolder / kLanguageFolder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with(kTableStart) && name.ends_with(kTableExtension)) codes.push_back(CodeOfTable(name));
  }
  std::ranges::sort(codes);
  return codes;
}

std::string TableOfCode(const std::string& code) {
  return std::string(kTableStart) + code + std::string(kTableExtension);
}

std::string CodeOfTable(const std::string& table) {
  const std::size_t around = kTableStart.size() + kTableExtension.size();
  return table.size() < around ? std::string() : table.substr(kTableStart.size(), table.size() - around);
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
