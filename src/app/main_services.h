#pragma once

#include <filesystem>
#include <string>

#include "app/main_view.h"
#include "app/recent_files.h"
#include "app/recovery.h"
#include "dialogs/dialog_services.h"
#include "dialogs/long_runs.h"
#include "engine/model_choice.h"
#include "pages/print_preview.h"
#include "plans/undo_history.h"
#include "start/command_line.h"
#include "start/language_table.h"
#include "start/program_folders.h"

namespace tav {

/// What the main window works with. All of it outlives it.
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
  std::string systemInformation;  ///< of the window system, lines of text
};

}  // namespace tav
