#include "start/start_up.h"

#include "persist/template_file.h"

namespace tav {

StartFaults LoadDefaultTemplate(DiveTemplate& settings, const ProgramFolders& folders) {
  StartFaults faults{folders.Find("template/Default.tpl"), {}, {}};
  try {
    faults.advice = LoadTemplateFile(settings, faults.file);
  } catch (const FileError& error) {
    faults.broken = error;
  }
  return faults;
}

StartFaults InitDocuments(DocumentStore& documents, const ProgramFolders& folders) {
  DocumentState& standard = documents(DocumentStore::DefaultDocument);
  standard.Modified = false;
  standard.TemplateTitle = "Default";
  standard.Template = ShippedDefaultTemplate();
  return LoadDefaultTemplate(standard.Template, folders);
}

}  // namespace tav
