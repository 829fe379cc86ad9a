#include "cli/command_frame.h"
#include "cli/long_work.h"
#include "cli/page_output.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"

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
  OpenedPlan& plan = frame.OpenPlan(given.file);
  std::vector<SeriesDive> dives;
  for (const std::size_t dive : CommandFrame::Dives(given.dive, plan)) {
    frame.CheckComputed(plan, dive);
    dives.push_back(plan.InSeries(dive));
  }
  PageOutput output(frame, given.pdf);
  LongWork work(frame.Terminal());
  if (given.slate) {
    Slate slate(output.Pages());
    WriteSlates({slate, output.Pages().Texts(), {".", ""}}, dives);
  } else {
    GeneralReport pages(output.Pages(), nullptr, [&](int done, int of) {
      work.Step(done, of);
      return true;
    });
    WriteLongReport(pages, dives);
  }
  output.WritePdf(std::filesystem::path(given.file).stem().string(), work);
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
