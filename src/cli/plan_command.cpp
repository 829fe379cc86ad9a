#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_output.h"

namespace tav {
int PlanCommand(const std::vector<std::string>& files, const OutputOptions& options, std::ostream& out,
                std::ostream& err) {
  PlanSession session;
  std::vector<ComputedDive> dives;
  int status = ExitStatus::kFine;
  try {
    ApplyOptions(options, session);
  } catch (const FileError& error) {
    err << error.what() << "\n";
    return ExitStatus::kUnusableInput;
  }
  for (const std::string& file : files) {
    try {
      std::vector<std::vector<std::string>> notes;
      const auto documents = OpenProfile(session.Forms(), file, ReadPlannable(file),
                                         [&](std::int16_t) { notes.push_back(session.Notes().Take()); });
      if (!Gather(session, file, documents, notes, dives, err)) status = ExitStatus::kUnusableInput;
    } catch (const std::exception& error) {
      err << error.what() << "\n";
      status = ExitStatus::kUnusableInput;
    }
  }
  if (dives.empty()) return status;
  return std::max(status, Print(dives, options.form, out, err));
}

}  // namespace tav
