#include "start/user_texts.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <system_error>

#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "start/program_folders.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

/// The language that the window program keeps in its settings; empty for none. They are its INI file, whose values of
/// the section without a name stand under "General".
std::string StoredLanguage() {
  std::string text;
  try {
    text = ReadTextFile(SettingsFolder() / "TAV.ini");
  } catch (const FileError&) {
    return {};
  }
  constexpr std::string_view kKey = "Language=";
  LineReader lines(text);
  bool general = false;
  while (const auto line = lines.Next()) {
    if (line->starts_with('[')) general = *line == "[General]";
    if (general && line->starts_with(kKey)) return std::string(line->substr(kKey.size()));
  }
  return {};
}

bool IsKnown(const fs::path& programFolder, const std::string& code) {
  return !code.empty() && std::ranges::binary_search(LanguageCodes(programFolder), code);
}

/// Throws FileError. A table that has been read stays: a page in a browser runs many commands, each of which needs it.
std::shared_ptr<const LanguageTable> TableIn(const fs::path& file) {
  static std::map<fs::path, std::shared_ptr<const LanguageTable>> tables;
  std::shared_ptr<const LanguageTable>& table = tables[file];
  if (!table) table = std::make_shared<const LanguageTable>(LanguageTable::Read(file));
  return table;
}

}  // namespace

std::string TableOfLocale(const fs::path& programFolder, std::string_view locale) {
  const std::string name = "TAV_" + std::string(locale.substr(0, locale.find_first_of("_.@-"))) + ".dll";
  std::error_code error;
  const bool known =
      name.find('/') == std::string::npos && fs::is_regular_file(programFolder / kLanguageFolder / name, error);
  return known ? name : std::string(kDefaultLanguage);
}

std::string TableOfUser(const fs::path& programFolder, const std::string& code) {
  if (IsKnown(programFolder, code)) return TableOfCode(code);
  const std::string stored = StoredLanguage();
  return stored.empty() ? TableOfLocale(programFolder, LocaleOfMessages()) : stored;
}

std::string LocaleOfMessages() { return LocaleOf("LC_MESSAGES"); }

std::string LocaleOf(const char* category) {
  for (const char* name : {"LC_ALL", category, "LANG"}) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing here sets the environment
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

void LazyTexts::Read() const {
  read_ = true;
  const bool byUser = language_ == Language::User || IsKnown(programFolder_, code_);
  const std::string name = byUser ? TableOfUser(programFolder_, code_) : std::string(kDefaultLanguage);
  const fs::path folder = programFolder_ / kLanguageFolder;
  try {
    table_ = TableIn(folder / name);
    return;
  } catch (const FileError&) {
    if (name == kDefaultLanguage) return;
  }
  try {
    table_ = TableIn(folder / kDefaultLanguage);
  } catch (const FileError&) {
    return;  // every text is its number then
  }
}

std::string LazyTexts::GetResString(int id) const {
  if (!read_) Read();
  return table_ ? table_->GetResString(id) : TextSource::GetResString(id);
}

std::string AdviceText(const TextSource& texts, const std::filesystem::path& file,
                       const std::vector<FormatFault>& advice) {
  constexpr std::size_t kMost = 10;
  if (advice.empty()) return {};
  std::string text = texts.Filled(Text::ReadBut, {file.string()}) + "\r\n";
  for (std::size_t i = 0; i < std::min(advice.size(), kMost); ++i) {
    text += "\r\n" + std::to_string(advice[i].line) + ": " + texts.Words(advice[i].text);
  }
  return advice.size() > kMost ? text + "\r\n..." : text;
}

}  // namespace tav
