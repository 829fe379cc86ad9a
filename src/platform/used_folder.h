#pragma once

#include <filesystem>
#include <string>

#include "platform/settings_store.h"

/// The folders that file dialogs start in, each under a name of its own in the settings.
namespace tav {

/// The folder used last; empty, which is the user's documents, at first and when that folder is gone.
std::filesystem::path FolderUsedLast(const SettingsStore& settings, const std::string& name);
/// Keeps the folder of a file that was chosen.
void KeepFolder(SettingsStore& settings, const std::string& name, const std::filesystem::path& file);

}  // namespace tav
