#pragma once

#include <string>

#include "app/program_folders.h"
#include "model/document_store.h"

namespace tav {

/// Makes element 0 of the store the default document, from "Default.tpl" alone: what the file does not tell is blank.
/// Returns an empty text, or why the file can't be used: it is missing, broken, or can't be planned on. Then, and only
/// then, the values shipped with the program stand in, all of them.
std::string InitDocuments(DocumentStore& documents, const ProgramFolders& folders);

}  // namespace tav
