#include "cli/plannable_file.h"

#include "model/template_faults.h"
#include "persist/format_faults.h"

namespace tav {

ProfileText ReadPlannable(const std::string& file) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ProfileText profile = ReadProfileText(ReadTextFile(file), faults);
  for (std::size_t i = 0; i < profile.dives.size(); ++i) {
    const auto found = TemplateFaults(profile.dives[i].Template);
    if (!found.empty()) {
      faults.Error(LineOfFault(found.front(), profile.lines[i].keys, profile.lines[i].block), JoinFaults(found));
    }
  }
  ReportSeriesFaults(profile, faults);
  return profile;
}

}  // namespace tav
