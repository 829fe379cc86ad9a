#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "model/number_text.h"
#include "persist/profile_file.h"
#include "persist/template_file.h"
#include "start/user_texts.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kNoFaults = 7956;
constexpr int kLoopTakesChanges = 8311;
constexpr int kIntervalOnLoop = 8312;

bool IsTemplate(const std::string& file, const std::string& text) {
  if (file.ends_with(kTemplateExtension)) return true;
  if (file.ends_with(kProfileExtension)) return false;
  return text.find("\nStart of Profile") == std::string::npos;
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

/// True when the file can be used.
bool Check(const std::string& file, const TextSource& texts, std::ostream& out) {
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
  TellFaults(file, faults.List(), texts, out);
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
