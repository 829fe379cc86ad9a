#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "model/document_store.h"
#include "persist/format_faults.h"
#include "start/program_folders.h"

namespace tav {

/// What is wrong with "Default.tpl".
struct StartFaults {
  std::filesystem::path file;
  std::optional<FileError> broken;  ///< why it can't be used: it is missing, broken, or can't be planned on
  std::vector<FormatFault> advice;  ///< what is odd in it, and which keys it lacks
};

/// Takes what "Default.tpl" tells into settings, which are those shipped with the program.
StartFaults LoadDefaultTemplate(DiveTemplate& settings, const ProgramFolders& folders);

/// Makes element 0 of the store the default document, by these.
StartFaults InitDocuments(DocumentStore& documents, const ProgramFolders& folders);

}  // namespace tav
