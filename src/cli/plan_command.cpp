#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_output.h"
#include "start/user_texts.h"

namespace tav {
int PlanCommand(const std::vector<std::string>& files, const OutputOptions& options, const ProgramFolders& folders,
                std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  // What programs read is English in every language; CSV has no words of a dive, they go to the user.
  const LazyTexts words(folders.ProgramFolder(),
                        options.form == OutputForm::Json ? LazyTexts::Language::Default : LazyTexts::Language::User);
  PlanSession session(texts);
  std::vector<ComputedDive> dives;
  int status = ExitStatus::kFine;
  try {
    ApplyOptions(options, session);
  } catch (const FileError& error) {
    err << texts.Words(error) << "\n";
    return ExitStatus::kUnusableInput;
  }
  for (const std::string& file : files) {
    try {
      const auto documents = OpenProfile(session.Forms(), file, ReadPlannable(file, texts, err));
      if (!Gather(session, file, documents, options, words, dives, err)) status = ExitStatus::kUnusableInput;
    } catch (const std::exception& error) {
      err << texts.Words(error) << "\n";
      status = ExitStatus::kUnusableInput;
    }
  }
  if (dives.empty()) return status;
  return std::max(status, Print(dives, options, words, out, err));
}

}  // namespace tav
