#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QSettings>
#include <functional>
#include <memory>

#include "desktop/help_window.h"
#include "platform/platform.h"
#include "platform/text_source.h"

class QAction;
class QDialog;
class QMessageBox;
class QPoint;
class QWidget;

namespace tav {

/// Message boxes of Qt, over the window that is active.
class QtBoxes : public MessageBoxes {
 public:
  BoxAnswer Show(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons) override;
  BoxAnswer ShowWithCheck(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons,
                          BoxCheck& check) override;
  BoxAnswer ShowWithChoices(const std::string& text, const std::string& title, BoxIcon icon,
                            const BoxChoices& choices) override;
  /// The texts of the buttons; until they are known, those of Qt.
  void SetTexts(const TextSource& texts) { texts_ = &texts; }

 private:
  BoxAnswer Ask(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons, BoxCheck* check,
                const BoxChoices* choices) const;
  void NameButtons(QMessageBox& box) const;

  const TextSource* texts_ = nullptr;
};

/// The file dialogs of the desktop.
class QtFiles : public FileDialogs {
 public:
  std::filesystem::path Open(const FileDialogRequest& request) override;
  std::filesystem::path Save(const FileDialogRequest& request) override;
};

/// Forms as dialogs over the main window.
class QtWindows : public Windows {
 public:
  QtWindows(QWidget& owner, SettingsStore& settings) : owner_(owner), settings_(settings) {}
  /// F1 was pressed in the window of a form.
  std::function<void(const Form& form)> helpWanted;
  void ShowModal(Form& form) override;
  void Show(const std::shared_ptr<Form>& form) override;
  void PopupMenu(const std::vector<MenuItem*>& items) override;
  void PopupMenuAtFocus(const std::vector<MenuItem*>& items) override;

 private:
  /// What a modal form belongs to: the form that is in front, or the main window.
  [[nodiscard]] QWidget* WindowInFront() const;
  /// The window of a form, not shown yet.
  [[nodiscard]] std::unique_ptr<QDialog> Made(Form& form, QWidget* parent) const;
  void RestorePlace(const Form& form, QWidget& window) const;
  void KeepPlace(const Form& form, const QWidget& window);
  void PopupAt(const QPoint& place, const std::vector<MenuItem*>& items);

  QWidget& owner_;
  SettingsStore& settings_;
};

/// An INI file of the user.
class QtSettings : public SettingsStore {
 public:
  QtSettings() : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("TAV"), QStringLiteral("TAV")) {}
  [[nodiscard]] std::string ReadSetting(const std::string& section, const std::string& name) const override;
  void WriteSetting(const std::string& section, const std::string& name, const std::string& value) override;

 private:
  QSettings settings_;
};

class QtScreen : public Screen {
 public:
  QtScreen() { clock_.start(); }
  void ShowHourglass(bool on) override;
  [[nodiscard]] Room AvailableRoom() const override;
  void DoEvents() override;
  void WaitForEvents() override;
  [[nodiscard]] double Timer() const override { return static_cast<double>(clock_.elapsed()) / 1000.0; }

 private:
  QElapsedTimer clock_;
  bool hourglass_ = false;
};

/// Plays WAV files where Qt Multimedia is installed, else nothing.
class QtSound : public Sound {
 public:
  void Play(const std::filesystem::path& file) override;
};

class QtClipboard : public Clipboard {
 public:
  [[nodiscard]] std::string Text() const override;
  void SetText(const std::string& text) override;
};

class QtEnvironment : public Environment {
 public:
  [[nodiscard]] std::string UserName() const override;
  [[nodiscard]] std::string Locale() const override;
  [[nodiscard]] std::string Today() const override;
  [[nodiscard]] std::filesystem::path TemporaryFolder() const override;
  [[nodiscard]] std::string Logo() const override;
};

/// The help in a window of its own.
class QtHelp : public HelpViewer {
 public:
  explicit QtHelp(QWidget& owner) : owner_(owner) {}
  void ShowHelp(const std::filesystem::path& file, Page page, const std::string& anchor) override;
  /// Known once the language is.
  void SetTexts(const TextSource& texts) { texts_ = &texts; }

 private:
  QWidget& owner_;
  const TextSource* texts_ = nullptr;
  QPointer<HelpWindow> window_;
};

/// A caption of a menu item: its text, and the short cut where the item has one.
void FillAction(const MenuItem& item, QAction& action);

}  // namespace tav
