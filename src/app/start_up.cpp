#include "app/start_up.h"

#include "persist/template_file.h"

namespace tav {

std::optional<FileError> InitDocuments(DocumentStore& documents, const ProgramFolders& folders) {
  DocumentState& standard = documents(DocumentStore::DefaultDocument);
  standard.Modified = false;
  standard.TemplateTitle = "Default";
  standard.Template = {};
  try {
    LoadPlannableTemplate(standard.Template, folders.Find("template/Default.tpl"));
  } catch (const FileError& error) {
    standard.Template = ShippedDefaultTemplate();
    return error;
  }
  return {};
}

}  // namespace tav
