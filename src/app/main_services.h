#pragma once

#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/main_view.h"
#include "app/recent_files.h"
#include "app/recovery.h"
#include "dialogs/dialog_services.h"
#include "dialogs/long_runs.h"
#include "engine/model_choice.h"
#include "pages/print_preview.h"
#include "persist/text_file.h"
#include "plans/undo_history.h"
#include "start/command_line.h"
#include "start/language_table.h"
#include "start/program_folders.h"

namespace tav {

// The folders that file dialogs of plans and of templates start in, by their names in the settings.
inline constexpr const char* kPlanFolder = "PlanFolder";
inline constexpr const char* kTemplateFolder = "TemplateFolder";

/// What the main window and its parts work with, and short ways to it. All of it outlives them.
struct MainServices {
  DocumentForms& forms;
  Platform platform;
  const TextSource& texts;
  ModelChoice& model;
  const ProgramFolders& folders;
  const Switches& switches;
  const Language& language;
  UndoHistory& history;
  RecentFiles& recent;
  Recovery& recovery;
  MainView& view;
  PrintPreview& report;
  PrintPreview& tables;  ///< pages of their own, so that a report may be written while a run of tables lasts
  LongRuns& runs;
  std::string systemInformation;                   ///< of the window system, lines of text
  std::function<void()> speakAnew;                 ///< puts the language of the settings in force
  std::function<void(const std::string&)> status;  ///< shows a text in the status bar

  /// The document in front; nothing when none is open.
  [[nodiscard]] std::optional<std::int16_t> Active() const { return forms.Active(); }
  [[nodiscard]] DocumentState& Document(std::int16_t document) const { return forms.Services().documents(document); }
  [[nodiscard]] bool IsOpen(std::int16_t document) const {
    return document != DocumentStore::DefaultDocument && !Document(document).SlotFree;
  }
  /// By their numbers.
  [[nodiscard]] std::vector<std::int16_t> OpenDocuments() const;
  [[nodiscard]] std::string T(int id) const { return texts.GetResString(id); }
  /// What shows a document is to follow it: something of it has been set that no operation of the plan tells of.
  void Changed(std::int16_t document) const { forms.Services().display.StateChanged(document); }
  /// What was done, or is to be known, in the status bar until the next command; "%1" of a text is `value`.
  void Status(const std::string& text) const { status(text); }
  void Status(int id, const std::string& value = "") const { status(texts.Filled(id, {value})); }
  void Tell(const std::string& text, BoxIcon icon) const { platform.boxes.Show(text, "", icon, BoxButtons::OK); }
  /// Tells that something failed, in these words, and why.
  void TellFailure(const std::string& what, const std::exception& error) const {
    Tell(what + "\r\n" + texts.Words(error), BoxIcon::Stop);
  }
  /// Tells what a save could not keep of the file that was there.
  void TellNotes(const std::filesystem::path& file, const SaveNotes& notes) const;
};

}  // namespace tav
