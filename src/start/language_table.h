#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/message_boxes.h"
#include "platform/text_source.h"

namespace tav {

/// The texts of one language by number, from a UTF-8 table: a line `id<TAB>text` each, with \n, \r, \t and \\ as
/// escapes; lines that begin with "#" are comments.
class LanguageTable : public TextSource {
 public:
  /// Reads a table. Throws FileError when the file can't be read or a line is not of the form.
  static LanguageTable Read(const std::filesystem::path& file);

  LanguageTable() = default;
  LanguageTable(LanguageTable&& other) noexcept : texts_(std::move(other.texts_)) {}
  LanguageTable& operator=(LanguageTable&& other) noexcept {
    texts_ = std::move(other.texts_);
    return *this;
  }
  ~LanguageTable() override = default;

  [[nodiscard]] std::string GetResString(int id) const override;
  [[nodiscard]] bool Has(int id) const { return texts_.contains(id); }
  /// The numbers of all texts, in order.
  [[nodiscard]] std::vector<int> Numbers() const;

 private:
  std::unordered_map<int, std::string> texts_;
};

/// The language of the run.
struct Language {
  bool loaded = false;            ///< false: not even the default language is there, and the program must end
  std::filesystem::path library;  ///< the table that was loaded
  std::filesystem::path helpFile;
};

/// Folder of the program's data in which languages lie, and the default one.
constexpr std::string_view kLanguageFolder = "lang";
constexpr std::string_view kDefaultLanguage = "TAV_uk.dll";

/// The languages whose tables lie in the language folder, by their codes, "de", in order.
std::vector<std::string> LanguageCodes(const std::filesystem::path& programFolder);

/// "TAV_de.dll" for "de", and back.
std::string TableOfCode(const std::string& code);
std::string CodeOfTable(const std::string& table);

/// The default language alone, for the command line. Throws FileError.
LanguageTable DefaultTexts(const std::filesystem::path& programFolder);

/// Loads the table of that name into `table`, or with a message the default language. The help file is that of the
/// same base name when it exists, else the default language's.
Language LoadLanguage(const std::filesystem::path& programFolder, const std::string& name, LanguageTable& table,
                      MessageBoxes& boxes);

}  // namespace tav
