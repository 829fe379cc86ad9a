// The longest stay and the times without a stop on a landscape page.

#include "model/text_id.h"
#include "pages/wrapped_text.h"
#include "reports/margin_map.h"

namespace tav {
namespace {

// cm
constexpr double kLeft = 1.9;
constexpr double kRight = 27.1;
constexpr double kLine = 0.6;
constexpr double kBottom = 17.5;
constexpr double kColumn = 5;

const std::string kArial = "Arial";

}  // namespace

void PrintLongest(PrintPreview& out, const std::string& plan, const Margins& margins,
                  const std::optional<LongestStay>& stay, const std::vector<NoStopTime>& times,
                  const AdviceWords& words) {
  const std::string title = stay ? words.T(Text::LongestTitle) : words.T(Text::NoStopTitle, {margins.LegGas()});
  out.InitPreview();
  out.PrintHeader(words.T(Text::ReportProgram), title, words.T(Text::ReportDate) + out.Services().environment.Today());
  out.PrintTextFitted(kLeft, 3.3, MarginHead(plan, margins, words), kRight - kLeft, kArial, 12, 1);
  double y = 4.5;
  const auto tell = [&](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      for (const std::string& line : WrappedText(text, kRight - kLeft, {kArial, 12, false}, out.Services().measure)) {
        out.PrintTextLeft(kLeft, y, line, kArial, 12, 0);
        y += kLine;
      }
    }
    y += kLine / 2;
  };
  if (stay) {
    tell(LongestStayWords(*stay, margins, words));
    tell(JudgeNotes(margins, words));
  } else {
    const auto lines = NoStopLines(times, margins, words);
    tell({lines.back()});
  }
  const double top = y;
  double x = kLeft;
  for (const NoStopTime& time : times) {
    if (y > kBottom) {
      y = top;
      x += kColumn;
    }
    out.PrintTextRight(x + 1.8, y, words.Depth(time.depth), kArial, 12, 0);
    const std::string minutes = std::to_string(time.minutes) + (time.minutes == LongestStay::kMost ? "+" : "");
    out.PrintTextRight(x + 4, y, minutes + " " + words.T(Text::WhatIfMinutes), kArial, 12, 0);
    y += kLine;
  }
  out.PrintFooter(words.T(Text::ReportPrintedBy) + out.Services().environment.UserName(), words.T(Text::ReportAid),
                  words.T(Text::ReportRisk), words.T(Text::ReportPage) + "1");
  out.EndReport(title);
}

}  // namespace tav
