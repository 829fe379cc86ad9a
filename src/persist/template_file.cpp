#include "persist/template_file.h"

#include "model/number_text.h"
#include "model/path_text.h"
#include "model/text_id.h"
#include "persist/default_template.h"
#include "persist/line_reader.h"

namespace tav {
namespace {

void AdviseOfPressure(const std::string& key, Single altitude, Single pressure, const DiveTemplate& diveTemplate,
                      const KeyLines& keys, int blockLine, FormatFaults& faults) {
  const auto usual = ContradictedPressure(altitude, pressure, diveTemplate.Metric);
  if (!usual) return;
  faults.Advise(
      LineOfFault({key, {}}, keys, blockLine),
      {Text::AltitudeContradicts, {key, FormatPlain(pressure), FormatPlain(altitude), FormatFixed(*usual, 3)}});
}

}  // namespace

KeyLines ReadTemplateText(DiveTemplate& diveTemplate, std::string_view text, FormatFaults& faults) {
  LineReader lines(text);
  LineReader first = lines;
  if (!IsMarker(first.Next(), kStartOfBlock)) {
    faults.Error(1, {Text::TemplateBegins, {std::string(kStartOfBlock)}});
  }
  KeyLines keys = ReadTemplateBlock(diveTemplate, lines, faults);
  const std::string missing = MissingKeys(keys, BlockOf::Template);
  if (!missing.empty()) faults.Advise(1, {Text::NotTold, {missing}});
  ReportTemplateFaults(diveTemplate, keys, BlockOf::Template, 1, faults);
  if (!lines.SkipBlankLines()) {
    faults.Advise(lines.LineNumber() + 1, Text::TemplateEndIgnored);
  }
  return keys;
}

void ReportTemplateFaults(const DiveTemplate& diveTemplate, const KeyLines& keys, BlockOf block, int blockLine,
                          FormatFaults& faults) {
  for (const TemplateFault& fault : TemplateFaults(diveTemplate)) {
    // A dive that lacks a key is refused for that; the empty value in its place is no fault of its own.
    if (block == BlockOf::Template || keys.contains(fault.key))
      faults.Error(LineOfFault(fault, keys, blockLine), fault.text);
  }
  AdviseOfPressure("StartPressure", diveTemplate.StartAltitude, diveTemplate.StartPressure, diveTemplate, keys,
                   blockLine, faults);
  AdviseOfPressure("EndPressure", diveTemplate.EndAltitude, diveTemplate.EndPressure, diveTemplate, keys, blockLine,
                   faults);
}

std::vector<FormatFault> LoadTemplateFile(DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  DiveTemplate read = diveTemplate;
  read.Templatename = SplitPath(file.string(), PathPart::FileName);
  read.TemplateFolder = SplitPath(file.string(), PathPart::DriveFolder);
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ReadTemplateText(read, ReadTextFile(file), faults);
  read.Texts = diveTemplate.Texts;  // they are those of a plan
  read.TemplateChanged = false;
  diveTemplate = std::move(read);
  return faults.List();
}

SaveNotes SaveTemplateFile(const DiveTemplate& diveTemplate, const std::filesystem::path& file) {
  DiveTemplate withoutTexts = diveTemplate;
  withoutTexts.Texts = {};
  return WriteTextFile(file, WriteTemplateBlock(withoutTexts));
}

DiveTemplate ShippedDefaultTemplate() {
  DiveTemplate shipped;
  FormatFaults faults("Default.tpl", FormatFaults::Mode::StopAtFirstError);
  ReadTemplateText(shipped, kDefaultTemplate, faults);
  return shipped;
}

}  // namespace tav
