#pragma once

#include <algorithm>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "headless/headless_printer.h"
#include "model/not_copied.h"
#include "platform/platform.h"

/// A window system without windows, for tests and for machines without a display: boxes are recorded and answered from
/// a script, modal forms are handed to a callback that clicks and types, the settings live in memory.
namespace tav {

struct ShownBox {
  std::string text;
  std::string title;
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::OK;
  std::string check = {};  ///< caption of the check box in it
};

class HeadlessPlatform : NotCopied,
                         private MessageBoxes,
                         private FileDialogs,
                         private Windows,
                         private SettingsStore,
                         private Screen,
                         private Sound,
                         private HelpViewer,
                         private Clipboard,
                         private Environment {
 public:
  ~HeadlessPlatform() override = default;

  operator Platform() { return Services(); }  // NOLINT(google-explicit-constructor): it is one
  Platform Services() { return {*this, *this, *this, *this, *this, *this, *this, *this, printer, *this, separators}; }

  // What has happened.
  std::vector<ShownBox> boxes;
  [[nodiscard]] ShownBox LastBox() const { return boxes.empty() ? ShownBox() : boxes.back(); }
  std::vector<FileDialogRequest> fileDialogs;
  std::vector<std::shared_ptr<Form>> modeless;  ///< those still loaded, oldest first
  std::vector<std::string> modalForms;          ///< the names of all shown
  std::vector<MenuItem*> popup;                 ///< of the last pop-up
  std::vector<std::filesystem::path> sounds;
  struct HelpShown {
    std::filesystem::path file;
    HelpViewer::Page page;
    std::string anchor;
  };
  std::vector<HelpShown> helpShown;
  std::string clipboardText;
  std::map<std::pair<std::string, std::string>, std::string> settings;
  bool hourglass = false;
  HeadlessPrinter printer;

  // What is to happen.
  std::deque<bool> ticks;                          ///< whether the check boxes of the next boxes are ticked
  std::deque<BoxAnswer> answers;                   ///< of the next boxes; Cancel (or OK alone) when used up
  std::deque<std::filesystem::path> filesChosen;   ///< of the next file dialogs; empty gives up
  std::deque<std::function<void(Form&)>> onModal;  ///< acts for the user in the next modal forms
  std::function<void(const ShownBox&)> onBox;      ///< looks around while a box stands
  std::function<void()> onEvents;                  ///< acts for the user when pending events are handled
  LocaleSeparators separators;
  std::string locale;  ///< of the desktop
  std::filesystem::path temporaryFolder = std::filesystem::temp_directory_path();

 private:
  BoxAnswer Show(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons) override;
  BoxAnswer ShowWithCheck(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons,
                          BoxCheck& check) override;
  std::filesystem::path Open(const FileDialogRequest& request) override { return Choose(request); }
  std::filesystem::path Save(const FileDialogRequest& request) override { return Choose(request); }
  std::filesystem::path Choose(const FileDialogRequest& request);
  void ShowModal(Form& form) override;
  void Show(const std::shared_ptr<Form>& form) override;
  void PopupMenu(const std::vector<MenuItem*>& items) override { popup = items; }
  void PopupMenuAtFocus(const std::vector<MenuItem*>& items) override { popup = items; }
  [[nodiscard]] std::string ReadSetting(const std::string& section, const std::string& name) const override;
  void WriteSetting(const std::string& section, const std::string& name, const std::string& value) override;
  void ShowHourglass(bool on) override { hourglass = on; }
  [[nodiscard]] Room AvailableRoom() const override { return {28800, 16200}; }
  void DoEvents() override {
    if (onEvents) onEvents();
  }
  void WaitForEvents() override {}
  [[nodiscard]] double Timer() const override { return seconds_++; }  // every look at the clock takes a second
  void Play(const std::filesystem::path& file) override { sounds.push_back(file); }
  void ShowHelp(const std::filesystem::path& file, HelpViewer::Page page, const std::string& anchor) override {
    helpShown.push_back({file, page, anchor});
  }
  [[nodiscard]] std::string Text() const override { return clipboardText; }
  void SetText(const std::string& text) override { clipboardText = text; }
  [[nodiscard]] std::string UserName() const override { return "diver"; }
  [[nodiscard]] std::string Locale() const override { return locale; }
  [[nodiscard]] std::string Today() const override { return "2026-05-01"; }
  [[nodiscard]] std::filesystem::path TemporaryFolder() const override { return temporaryFolder; }
  [[nodiscard]] std::string Logo() const override { return "<svg/>"; }

  std::vector<std::shared_ptr<Form>> closed_;
  mutable double seconds_ = 0;
};

}  // namespace tav
