#include <algorithm>
#include <filesystem>
#include <ostream>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/page_output.h"
#include "cli/plan_input.h"
#include "cli/plan_session.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"
#include "start/user_texts.h"

namespace tav {

int ReportCommand(const ReportOptions& report, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    PlanSession session(texts);
    session.Model() = options.Model();
    const auto documents = OpenProfile(session.Forms(), report.file, ReadPlannable(report.file, texts, err));
    const auto chosen = ChosenDives(report.dive, documents);
    bool decompress = true;
    for (const std::int16_t document : chosen) {
      const std::string& fault = session.Forms()(document).EvaluationFault();
      if (!fault.empty()) throw FileError(report.file, 0, fault);
      decompress = decompress && session.Documents()(document).Decompresses;
    }
    PageOutput output(folders, report.pdf);
    const bool wholeSeries = chosen.size() > 1;
    if (report.slate) {
      Slate slate(output.Pages(), session.Model());
      WriteSlates({slate, session.Forms(), output.Pages().Texts(), {".", ""}, options.supply}, chosen.front(),
                  wholeSeries);
    } else {
      GeneralReport pages(output.Pages(), session.Model());
      WriteLongReport(pages, session.Forms(), chosen.front(), wholeSeries, options.supply);
    }
    output.WritePdf(std::filesystem::path(report.file).stem().string());
    return decompress ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    return Refused(error, "report", texts, err);
  }
}

}  // namespace tav
