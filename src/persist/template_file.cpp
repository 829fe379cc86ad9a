#include "persist/template_file.h"

#include "model/path_text.h"
#include "persist/default_template.h"
#include "persist/line_reader.h"

namespace tav {

KeyLines ReadTemplateText(DiveTemplate& diveTemplate, std::string_view text, FormatFaults& faults) {
  LineReader lines(text);
  LineReader first = lines;
  if (first.Next() != "Start Template Block") {
    faults.Error(1, "a template begins with the line \"Start Template Block\"");
  }
  KeyLines keys = ReadTemplateBlock(diveTemplate, lines, faults);
  if (!lines.SkipBlankLines()) {
    faults.Advise(lines.LineNumber() + 1, "what follows the end of the template is ignored");
  }
  return keys;
}

void LoadTemplateFile(DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  DiveTemplate read = diveTemplate;
  read.Templatename = SplitPath(file.string(), PathPart::FileName);
  read.TemplateFolder = SplitPath(file.string(), PathPart::DriveFolder);
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ReadTemplateText(read, ReadTextFile(file), faults);
  read.TemplateChanged = false;
  diveTemplate = std::move(read);
}

void SaveTemplateFile(const DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  WriteTextFile(file, WriteTemplateBlock(diveTemplate));
}

DiveTemplate ShippedDefaultTemplate() {
  DiveTemplate shipped;
  FormatFaults faults("Default.tpl", FormatFaults::Mode::StopAtFirstError);
  ReadTemplateText(shipped, kDefaultTemplate, faults);
  return shipped;
}

}  // namespace tav
