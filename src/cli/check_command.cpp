#include <ostream>

#include "app/user_texts.h"
#include "cli/commands.h"
#include "model/number_text.h"
#include "persist/profile_file.h"
#include "persist/template_file.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kAdvice = 7955;
constexpr int kNoFaults = 7956;
constexpr int kLoopTakesChanges = 8311;
constexpr int kIntervalOnLoop = 8312;

bool IsTemplate(const std::string& file, const std::string& text) {
  if (file.ends_with(kTemplateExtension)) return true;
  if (file.ends_with(kProfileExtension)) return false;
  return text.find("\nStart of Profile") == std::string::npos;
}

void CheckTemplate(const std::string& text, FormatFaults& faults) {
  DiveTemplate diveTemplate;
  const KeyLines keys = ReadTemplateText(diveTemplate, text, faults);
  ReportTemplateFaults(diveTemplate, keys, 1, faults);
}

/// How a rebreather dive whose file says nothing of it is computed.
void AdviseOfLoop(const DiveRecord& dive, bool repetitive, int line, FormatFaults& faults) {
  const DiveTemplate& settings = dive.Template;
  if (settings.OpenCircuit) return;
  if (!settings.KeepsDiluent && !settings.ChangeGasMixes.empty()) faults.Advise(line, kLoopTakesChanges);
  if (repetitive && !settings.IntervalOnAir) {
    faults.Advise(line, {kIntervalOnLoop, {FormatPlain(dive.SurfaceInterval)}});
  }
}

void CheckProfile(const std::string& text, FormatFaults& faults) {
  const ProfileText profile = ReadProfileText(text, faults);
  for (std::size_t i = 0; i < profile.dives.size(); ++i) {
    ReportTemplateFaults(profile.dives[i].Template, profile.lines[i].keys, profile.lines[i].block, faults);
    AdviseOfLoop(profile.dives[i], i > 0, profile.lines[i].block, faults);
  }
  ReportSeriesFaults(profile, faults);
}

/// True when the file can be used.
bool Check(const std::string& file, const TextSource& texts, std::ostream& out) {
  const std::string text = ReadTextFile(file);
  FormatFaults faults(file, FormatFaults::Mode::Collect);
  if (IsTemplate(file, text)) {
    CheckTemplate(text, faults);
  } else {
    CheckProfile(text, faults);
  }
  for (const FormatFault& fault : faults.List()) {
    out << file << ":" << fault.line << ": "
        << (fault.error ? texts.Words(fault.text) : texts.Words({kAdvice, {fault.text}})) << "\n";
  }
  if (faults.List().empty()) out << file << ": " << texts.GetResString(kNoFaults) << "\n";
  return !faults.HasErrors();
}

}  // namespace

int CheckCommand(const std::vector<std::string>& files, const ProgramFolders& folders, std::ostream& out,
                 std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  int status = ExitStatus::kFine;
  for (const std::string& file : files) {
    try {
      if (!Check(file, texts, out)) status = ExitStatus::kUnusableInput;
    } catch (const FileError& error) {
      err << texts.Words(error) << "\n";
      status = ExitStatus::kUnusableInput;
    }
  }
  return status;
}

}  // namespace tav
