#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "persist/format_faults.h"
#include "start/language_table.h"

namespace tav {

/// The table for a locale such as "de_AT.UTF-8" among those of the language folder; the default one when there is none
/// for its language.
std::string TableOfLocale(const std::filesystem::path& programFolder, std::string_view locale);

/// The name of the table of the user's language: that of a code which he tells for once, "de", if it is known; else
/// that of his settings, else that of his environment.
std::string TableOfUser(const std::filesystem::path& programFolder, const std::string& code = {});

/// The locale of messages that the environment names: LC_ALL, LC_MESSAGES or LANG, the first that is set; empty for
/// none.
std::string LocaleOfMessages();
/// The same for another category, "LC_PAPER".
std::string LocaleOf(const char* category);

/// The texts of one language, for programs without a window; the table is read when the first text is asked for. One
/// that can't be read leaves the default language.
class LazyTexts : public TextSource {
 public:
  enum class Language {
    User,     ///< TableOfUser
    Default,  ///< for output that programs read
  };

  /// With a known code, "de", the texts are in that language.
  LazyTexts(std::filesystem::path programFolder, Language language, std::string code = {})
      : programFolder_(std::move(programFolder)), language_(language), code_(std::move(code)) {}

  [[nodiscard]] std::string GetResString(int id) const override;

 private:
  void Read() const;

  std::filesystem::path programFolder_;
  Language language_;
  std::string code_;
  mutable std::shared_ptr<const LanguageTable> table_;  ///< none when not even the default one is there
  mutable bool read_ = false;
};

/// What is odd in a file that was read, for a box: the file, and a line for each, the first ten. Empty for no advice.
std::string AdviceText(const TextSource& texts, const std::filesystem::path& file,
                       const std::vector<FormatFault>& advice);

}  // namespace tav
