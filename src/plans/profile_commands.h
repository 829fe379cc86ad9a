#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "persist/profile_file.h"
#include "persist/text_file.h"
#include "plans/document_forms.h"

namespace tav {

/// Opens a profile file: each dive becomes a document, linked into a series and computed; the last one is in front.
/// Returns their numbers in order. Throws FileError when the file can't be read or is broken; then no document is added
/// and none is changed.
std::vector<std::int16_t> OpenProfile(DocumentForms& forms, const std::filesystem::path& file);

/// The same for a profile that has been read already. `computed` is called after each dive, with its document.
std::vector<std::int16_t> OpenProfile(DocumentForms& forms, const std::filesystem::path& file,
                                      const ProfileText& profile,
                                      const std::function<void(std::int16_t)>& computed = nullptr);

/// The series of a document as the text of a profile file.
std::string ProfileFileText(DocumentForms& forms, std::int16_t document);

/// Saves the whole series of a document, whole or not at all; then its dives bear the name of the file and are not
/// modified any more. Returns what the save could not keep of the file. Throws FileError; then nothing has changed.
SaveNotes SaveProfile(DocumentForms& forms, std::int16_t document, const std::filesystem::path& file);

}  // namespace tav
