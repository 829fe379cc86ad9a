#include "app/start_up.h"

#include "persist/template_file.h"

namespace tav {

std::string InitDocuments(DocumentStore& documents, const ProgramFolders& folders) {
  DocumentState& standard = documents(DocumentStore::DefaultDocument);
  standard.Modified = false;
  standard.TemplateTitle = "Default";
  standard.Template = ShippedDefaultTemplate();
  try {
    LoadTemplateFile(standard.Template, folders.Find("template/Default.tpl"));
  } catch (const FileError& error) {
    return error.what();
  }
  return {};
}

}  // namespace tav
