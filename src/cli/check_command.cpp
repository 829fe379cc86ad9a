#include <memory>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/json_writer.h"
#include "cli/shown.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/profile_file.h"
#include "persist/template_file.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Lists all faults of template and profile files with their line numbers: errors, which keep a file from being "
    "used, "
    "and advice, which the other commands tell on standard error, too. A plan must tell all its settings; a template "
    "may "
    "tell some.";

constexpr const char* kExamples = R"(
  tavplan check my.tpl                       all faults of a template, with line numbers
  tavplan check dives/*.tav
)";

bool IsTemplate(const std::string& file, const std::string& text) {
  if (file.ends_with(kTemplateExtension)) return true;
  if (file.ends_with(kProfileExtension)) return false;
  return text.find("\nStart of Profile") == std::string::npos;
}

/// How a rebreather dive whose file says nothing of it is computed.
void AdviseOfLoop(const DiveRecord& dive, bool repetitive, int line, FormatFaults& faults) {
  const DiveTemplate& settings = dive.Template;
  if (settings.OpenCircuit) return;
  if (!settings.KeepsDiluent && !settings.ChangeGasMixes.empty()) faults.Advise(line, Text::FileTakesChanges);
  if (repetitive && !settings.IntervalOnAir) {
    faults.Advise(line, {Text::FileIntervalOnLoop, {FormatPlain(dive.SurfaceInterval)}});
  }
}

FormatFaults Check(const std::string& file) {
  const std::string text = ReadTextFile(file);
  FormatFaults faults(file, FormatFaults::Mode::Collect);
  if (IsTemplate(file, text)) {
    DiveTemplate diveTemplate = ShippedDefaultTemplate();  // as the commands that take a template
    ReadTemplateText(diveTemplate, text, faults);
  } else {
    const ProfileText profile = ReadProfileText(text, faults);
    for (std::size_t i = 0; i < profile.dives.size(); ++i) {
      AdviseOfLoop(profile.dives[i], i > 0, profile.lines[i].block, faults);
    }
    ReportSeriesFaults(profile, faults);
  }
  return faults;
}

void Show(const std::string& file, const FormatFaults& faults, const CommandFrame& frame, ShownOutput& shown) {
  for (const FormatFault& fault : faults.List()) {
    shown.Fault(frame.FaultWords(file, fault), fault.error ? Severity::Danger : Severity::Caution);
  }
  if (faults.List().empty()) shown.Line(file + ": " + frame.Texts().GetResString(Text::NoFaults));
}

void Write(JsonWriter& json, const std::string& file, const FormatFaults& faults, const TextSource& words) {
  json.Member("file", file);
  json.List("faults", [&] {
    for (const FormatFault& fault : faults.List()) {
      json.Object([&] {
        json.Member("line", fault.line);
        json.Member("error", fault.error);
        json.Member("text", words.Words(fault.text));
      });
    }
  });
}

void Run(const std::vector<std::string>& files, CommandFrame& frame) {
  const bool data = frame.Common().json;
  ShownOutput shown(frame.Common());
  JsonWriter json(frame.Out());
  const auto all = [&] {
    for (const std::string& file : files) {
      try {
        const FormatFaults faults = Check(file);
        if (faults.HasErrors()) frame.Mark(ExitStatus::kUnusableInput);
        Show(file, faults, frame, shown);
        frame.Out() << shown.TakeText();
        if (data) json.Object([&] { Write(json, file, faults, frame.DataTexts()); });
      } catch (const FileError& error) {
        frame.Tell(error);  // the other files are checked
      }
    }
  };
  if (!data) return all();
  json.Object([&] {
    json.List("files", all);
    shown.Write(json);
  });
  frame.Out() << "\n";
}

}  // namespace

Command CheckCommand() {
  const auto files = std::make_shared<std::vector<std::string>>();
  Command command{"check", "List all faults of templates and profiles", kDetails, kExamples};
  command.options = {
      {"FILE", "", "Template (.tpl) and profile (.tav) files", files.get(), true, Option::Role::FileToRead, "tav|tpl"}};
  command.AddJson("Print the faults of each file as JSON: line, whether it is an error, text");
  command.run = [files](CommandFrame& frame) { Run(*files, frame); };
  return command;
}

}  // namespace tav
