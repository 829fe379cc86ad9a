#include "app/languages_form.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "controls/localize_form.h"
#include "model/text_id.h"
#include "persist/text_file.h"
#include "start/language_table.h"
#include "start/user_texts.h"

namespace tav {

frmLanguages::frmLanguages(Platform platform, const TextSource& texts, std::filesystem::path folder,
                           std::function<void()> changed)
    : Form("frmLanguages"),
      platform_(std::move(platform)),
      texts_(texts),
      folder_(std::move(folder)),
      changed_(std::move(changed)) {
  Command1.Default = true;
  Command1.Click = [this] { Command1_Click(); };
  Command2.Cancel = true;
  Command2.Click = [this] { Unload(); };
}

void frmLanguages::Form_Load() {
  LocalizeForm(*this, texts_);
  Caption = texts_.GetResString(Text::Language);
  Command1.Caption = texts_.GetResString(Text::OK);
  Command2.Caption = texts_.GetResString(Text::Cancel);
  Frame1.Caption = texts_.GetResString(Text::LanguagesChoice);
  Label1.Caption = texts_.GetResString(Text::LanguagesRestart);

  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with("TAV_") && name.ends_with(".dll")) files_.push_back(name);
  }
  std::sort(files_.begin(), files_.end());

  std::string current = platform_.settings.ReadSetting("", "Language");
  if (current.empty()) current = TableOfLocale(folder_.parent_path(), platform_.environment.Locale());
  std::vector<std::string> names;
  std::erase_if(files_, [&](const std::string& file) {
    try {
      names.push_back(LanguageTable::Read(folder_ / file).GetResString(Text::LanguageName));
      return false;
    } catch (const FileError& fault) {
      platform_.boxes.Show(texts_.Filled(Text::LanguageNotFound, {(folder_ / file).string(), texts_.Words(fault)}), "",
                           BoxIcon::None, BoxButtons::OK);
      return true;
    }
  });
  Option1.Items = names;
  const auto chosen = std::find(files_.begin(), files_.end(), current);
  current_ = chosen == files_.end() ? -1 : static_cast<int>(chosen - files_.begin());
  Option1.SelectedItem = current_;
}

void frmLanguages::Command1_Click() {
  const int chosen = Option1.SelectedItem;
  if (chosen >= 0) platform_.settings.WriteSetting("", "Language", files_.at(static_cast<std::size_t>(chosen)));
  Unload();
  if (chosen >= 0 && chosen != current_ && changed_) changed_();
}

}  // namespace tav
