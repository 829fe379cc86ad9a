#include "cli/command_frame.h"
#include "cli/long_work.h"
#include "cli/page_output.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Writes the long report of a profile file, all dives or one, as a PDF. The PDF is drawn by tav, the desktop "
    "program, "
    "which needs no display for it.\n"
    "With --slate it holds cards to dive by, of the size A6 and four to a page: depth, minutes, run time and gas in "
    "large type, each gas change as a row in white on black.";

constexpr const char* kExamples = R"(
  tavplan report dives/trimix-100.tav --pdf plan.pdf
  tavplan report dives/lake-series.tav --dive 2 --pdf second.pdf
  tavplan report dives/wreck.tav --slate --pdf slate.pdf
)";

struct Given {
  std::string file;
  std::string pdf;
  std::string dive;
  bool slate = false;
};

void Run(const Given& given, CommandFrame& frame) {
  const auto chosen = CommandFrame::Dives(given.dive, frame.OpenPlan(given.file));
  for (const std::int16_t document : chosen) frame.CheckComputed(given.file, document);
  PlanSession& session = frame.Session();
  const SupplyChoice& supply = frame.Common().supply;
  PageOutput output(frame, given.pdf);
  const bool wholeSeries = chosen.size() > 1;
  if (given.slate) {
    Slate slate(output.Pages(), session.Model());
    WriteSlates({slate, session.Forms(), output.Pages().Texts(), {".", ""}, supply}, chosen.front(), wholeSeries);
  } else {
    LongWork work(frame.Terminal());
    GeneralReport pages(output.Pages(), session.Model(),
                        [&](const std::string&) { work.Step(output.Pages().Pages().Pages()); });
    WriteLongReport(pages, session.Forms(), chosen.front(), wholeSeries, [&](std::int16_t dive) {
      return SupplyTablesOf(session.Forms(), dive, supply, frame.Texts(), {".", ""});
    });
  }
  output.WritePdf(std::filesystem::path(given.file).stem().string());
}

}  // namespace

Command ReportCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"report", "Write the long report or the slates of a profile file as a PDF", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      PdfOption(given->pdf, "The file to write", true),
      DiveOption(given->dive, "all"),
      {"--slate", "", "Write the slates to dive by: cards of the size A6, four to a page", &given->slate},
  };
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
