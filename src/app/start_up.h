#pragma once

#include <optional>

#include "app/program_folders.h"
#include "model/document_store.h"
#include "persist/text_file.h"

namespace tav {

/// Makes element 0 of the store the default document, from "Default.tpl" alone: what the file does not tell is blank.
/// Returns nothing, or why the file can't be used: it is missing, broken, or can't be planned on. Then, and only
/// then, the values shipped with the program stand in, all of them.
std::optional<FileError> InitDocuments(DocumentStore& documents, const ProgramFolders& folders);

}  // namespace tav
