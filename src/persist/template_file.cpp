#include "persist/template_file.h"

#include "model/path_text.h"
#include "persist/default_template.h"
#include "persist/line_reader.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kNoBeginning = 7947;
constexpr int kIgnoredEnd = 7948;

void Load(DiveTemplate& diveTemplate, const std::filesystem::path& file, bool plannable) {
  DiveTemplate read = diveTemplate;
  read.Templatename = SplitPath(file.string(), PathPart::FileName);
  read.TemplateFolder = SplitPath(file.string(), PathPart::DriveFolder);
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  const KeyLines keys = ReadTemplateText(read, ReadTextFile(file), faults);
  if (plannable) ReportTemplateFaults(read, keys, 1, faults);
  read.TemplateChanged = false;
  diveTemplate = std::move(read);
}

}  // namespace

KeyLines ReadTemplateText(DiveTemplate& diveTemplate, std::string_view text, FormatFaults& faults) {
  LineReader lines(text);
  LineReader first = lines;
  if (first.Next() != "Start Template Block") {
    faults.Error(1, {kNoBeginning, {"Start Template Block"}});
  }
  KeyLines keys = ReadTemplateBlock(diveTemplate, lines, faults);
  if (!lines.SkipBlankLines()) {
    faults.Advise(lines.LineNumber() + 1, kIgnoredEnd);
  }
  return keys;
}

void ReportTemplateFaults(const DiveTemplate& diveTemplate, const KeyLines& keys, int blockLine, FormatFaults& faults) {
  for (const TemplateFault& fault : TemplateFaults(diveTemplate)) {
    faults.Error(LineOfFault(fault, keys, blockLine), fault.text);
  }
}

void LoadTemplateFile(DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  Load(diveTemplate, file, false);
}

void LoadPlannableTemplate(DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  Load(diveTemplate, file, true);
}

SaveNotes SaveTemplateFile(const DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  return WriteTextFile(file, WriteTemplateBlock(diveTemplate));
}

DiveTemplate ShippedDefaultTemplate() {
  DiveTemplate shipped;
  FormatFaults faults("Default.tpl", FormatFaults::Mode::StopAtFirstError);
  ReadTemplateText(shipped, kDefaultTemplate, faults);
  return shipped;
}

}  // namespace tav
