#pragma once

#include <string>

#include "app/program_folders.h"
#include "model/document_store.h"

namespace tav {

/// Makes element 0 of the store the default document, from "Default.tpl". Returns an empty text, or why that file
/// could not be used; then the values shipped with the program stand in.
std::string InitDocuments(DocumentStore& documents, const ProgramFolders& folders);

}  // namespace tav
