#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/done_teller.h"
#include "app/engine_warnings.h"
#include "app/main_form.h"
#include "app/open_windows.h"
#include "app/start_forms.h"
#include "pages/preview_form.h"

namespace tav {

/// The program from its entry point to the first empty document: owns the documents and all that works on them.
class Program : private EditorDisplay {
 public:
  Program(Platform platform, MainView& view, ProgramFolders folders, std::string systemInformation);
  ~Program() override;

  /// Starts: language, documents, switches, splash, main window with its first document, notice. `arguments` are those
  /// of the command line; a file among them is opened. False when the program is to end: no language, or the notice
  /// was refused.
  bool Main(const std::vector<std::string>& arguments);

  /// The language has changed while the program runs.
  std::function<void()> languageChanged;

  [[nodiscard]] bool HasMainForm() const { return mainForm_ != nullptr; }
  [[nodiscard]] frmMain& MainForm() { return *mainForm_; }
  [[nodiscard]] DocumentForms& Forms() { return forms_; }
  [[nodiscard]] const TextSource& Texts() const { return texts_; }
  /// The table of the language that was loaded.
  [[nodiscard]] const std::filesystem::path& LanguageFile() const { return language_.library; }
  [[nodiscard]] const LocaleSeparators& Separators() const { return platform_.separators; }

 private:
  // EditorDisplay
  void StateChanged(std::int16_t document) override;
  void ShowStatus(int textId) override { ShowStatus(texts_.GetResString(textId)); }
  void ShowStatus(const std::string& text);
  void ShowHourglass(bool on) override { platform_.screen.ShowHourglass(on); }

  bool LoadLanguageOfUser();
  void SpeakAnew();
  void ReadCommandLine(const std::vector<std::string>& arguments);
  /// Lets the splash stand until that moment of the screen, or until the user ends it.
  void StaySplash(const Form& splash, double until);

  OpenWindows windows_;
  DoneTeller teller_;
  Platform platform_;
  MainView& view_;
  ProgramFolders folders_;
  std::string systemInformation_;
  LanguageTable texts_;
  Language language_;
  Switches switches_;
  DocumentStore documents_;
  ModelChoice model_;
  EngineWarnings warnings_;
  DocumentForms forms_;
  UndoHistory history_;
  RecentFiles recent_;
  Recovery recovery_;
  PrintPreview report_;
  PreviewWindows preview_{report_, platform_};
  PrintPreview tables_;
  PreviewWindows tablesPreview_{tables_, platform_};
  LongRuns runs_{[this](bool running) { running ? warnings_.CommandBegins() : warnings_.CommandEnds(); }};
  std::map<std::int16_t, int> evaluations_;  ///< of the open documents: which one has been taken note of
  std::unique_ptr<frmMain> mainForm_;
};

}  // namespace tav
