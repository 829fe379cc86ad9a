#pragma once

#include "model/number_text.h"
#include "platform/clipboard.h"
#include "platform/environment.h"
#include "platform/file_dialogs.h"
#include "platform/help_viewer.h"
#include "platform/message_boxes.h"
#include "platform/printer.h"
#include "platform/screen.h"
#include "platform/settings_store.h"
#include "platform/sound.h"
#include "platform/text_font.h"
#include "platform/windows.h"

namespace tav {

/// All services of the window system, handed down from where the program starts. They outlive everything above.
struct Platform {
  MessageBoxes& boxes;
  FileDialogs& files;
  Windows& windows;
  SettingsStore& settings;
  Screen& screen;
  Sound& sound;
  HelpViewer& help;
  Clipboard& clipboard;
  Printer& printer;
  Environment& environment;
  LocaleSeparators separators;  ///< of the user's locale
};

}  // namespace tav
