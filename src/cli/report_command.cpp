#include "cli/command_frame.h"
#include "cli/long_work.h"
#include "cli/option_values.h"
#include "cli/page_output.h"
#include "model/text_id.h"
#include "reports/dive_report.h"
#include "reports/plan_sheet.h"
#include "reports/plan_slate.h"
#include "start/user_texts.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Writes the long report of a profile file, all dives or one, as a PDF. The PDF is drawn by tav, the desktop "
    "program, "
    "which needs no display for it.\n"
    "With --svg each page becomes a picture of the size of its paper: PREFIX-1.svg, PREFIX-2.svg and so on, which "
    "tavplan draws itself.\n"
    "With --slate it holds cards to dive by, of the size A6 and four to a page: depth, minutes, run time and gas in "
    "large type, each gas change as a row in white on black.\n"
    "With --sheet it holds the plan sheet, to brief and file: upright pages, for each dive one or two, with the name, "
    "place and notes of the plan, settings, profile, schedule, gas, findings, what becomes of it when it is longer, "
    "deeper or a gas is lost, and a line to sign. The paper is that of the country of LC_ALL, LC_PAPER or LANG.";

constexpr const char* kExamples = R"(
  tavplan report dives/trimix-100.tav --pdf plan.pdf
  tavplan report dives/lake-series.tav --dive 2 --pdf second.pdf
  tavplan report dives/wreck.tav --slate --pdf slate.pdf
  tavplan report dives/wreck.tav --sheet --margins --pdf sheet.pdf
  tavplan report dives/wreck.tav --sheet --svg sheet
)";

struct Given {
  std::string file;
  std::string pdf;
  std::string svg;
  std::string dive;
  bool slate = false;
  bool sheet = false;
  std::string paper;
  bool margins = false;
};

Paper PaperOf(const std::string& name) {
  if (name.empty()) return PaperOfLocale(LocaleOf("LC_PAPER"));
  if (name == "a4") return Paper::A4;
  if (name == "letter") return Paper::Letter;
  throw OptionError({Text::UsageNoneOf, {"--paper", name, "a4, letter"}});
}

void Run(const Given& given, CommandFrame& frame) {
  if (given.pdf.empty() && given.svg.empty()) throw UsageError({Text::UsageMissing, {"--pdf"}});
  const PlanSheetWish sheet{PaperOf(given.paper), given.margins};
  OpenedPlan& plan = frame.OpenPlan(given.file);
  std::vector<SeriesDive> dives;
  for (const std::size_t dive : CommandFrame::Dives(given.dive, plan)) {
    frame.CheckComputed(plan, dive);
    dives.push_back(plan.InSeries(dive));
  }
  PageOutput output(frame, given.pdf);
  LongWork work(frame.Terminal());
  if (given.sheet) {
    PrintPlanSheets(output.Pages(), dives, sheet);
  } else if (given.slate) {
    Slate slate(output.Pages());
    WriteSlates({slate, output.Pages().Texts(), {".", ""}}, dives);
  } else {
    GeneralReport pages(output.Pages(), nullptr, [&](int done, int of) {
      work.Step(done, of);
      return true;
    });
    WriteLongReport(pages, dives);
  }
  const std::string title = std::filesystem::path(given.file).stem().string();
  if (!given.pdf.empty()) output.WritePdf(title, work);
  if (!given.svg.empty()) output.WriteSvg(given.svg, title, work);
}

}  // namespace

Command ReportCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"report",
                  "Write the long report, the plan sheets or the slates of a profile file as a PDF or as pictures",
                  kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      PdfOption(given->pdf, "The file to write"),
      {.name = "--svg",
       .value = "PREFIX",
       .text = "Write each page as a picture, PREFIX-1.svg and on, beside the PDF or in place of it",
       .place = &given->svg},
      DiveOption(given->dive, "all"),
      {"--slate", "", "Write the slates to dive by: cards of the size A6, four to a page", &given->slate},
      {.name = "--sheet",
       .text = "Write the plan sheets: one or two upright pages for each dive",
       .place = &given->sheet,
       .excludes = {"--slate"}},
      {.name = "--paper",
       .value = "a4|letter",
       .text = "Paper of the plan sheets; that of your country if not given",
       .place = &given->paper,
       .offers = "a4 letter",
       .needs = "--sheet"},
      {.name = "--margins",
       .text = "Add the map of margins to each plan sheet",
       .place = &given->margins,
       .needs = "--sheet"},
  };
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
