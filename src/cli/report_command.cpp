#include <algorithm>
#include <filesystem>
#include <ostream>
#include <stdexcept>

#include "advice/plan_slate.h"
#include "advice/supply_text.h"
#include "app/user_texts.h"
#include "cli/commands.h"
#include "cli/page_output.h"
#include "cli/plan_input.h"
#include "cli/plan_session.h"
#include "report/dive_report.h"

namespace tav {

int ReportCommand(const ReportOptions& report, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    PlanSession session(texts);
    session.Model() = {options.vpm, options.hybrid};
    const auto documents = OpenProfile(session.Forms(), report.file, ReadPlannable(report.file));
    const int dives = static_cast<int>(documents.size());
    if (report.dive < 0 || report.dive > dives) {
      throw FileError(
          report.file, 0,
          "--dive " + std::to_string(report.dive) + " is not among its " + std::to_string(dives) + " dives");
    }
    const std::int16_t chosen = documents[static_cast<std::size_t>(std::max(0, report.dive - 1))];
    bool decompress = true;
    for (const std::int16_t document : documents) {
      if (report.dive != 0 && document != chosen) continue;
      const std::string& fault = session.Forms()(document).EvaluationFault();
      if (!fault.empty()) throw FileError(report.file, 0, fault);
      decompress = decompress && session.Documents()(document).Decompresses;
    }
    PageOutput output(folders, report.pdf);
    const ModelMarks marks{!options.vpm, false, options.hybrid, options.vpm};
    const bool wholeSeries = report.dive == 0 && dives > 1;
    if (report.slate) {
      Slate slate(output.Pages(), marks);
      WriteSlates({slate, session.Forms(), output.Pages().Texts(), {".", ""}, options.supply}, chosen, wholeSeries);
    } else {
      GeneralReport pages(output.Pages(), marks, nullptr);
      WriteLongReport(pages, session.Forms(), chosen, wholeSeries, [&](std::int16_t dive) {
        return SupplyTablesOf(session.Forms(), dive, options.supply, texts, {".", ""});
      });
    }
    output.WritePdf(std::filesystem::path(report.file).stem().string());
    return decompress ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    err << texts.Words(error) << "\n";
    return ExitStatus::kUnusableInput;
  }
}

}  // namespace tav
