#include "reports/report_pages.h"

#include <algorithm>

#include "figures/model_name.h"
#include "figures/settings_words.h"
#include "model/text_id.h"
#include "pages/page_units.h"

namespace tav {
namespace {

constexpr Colour kHeadGrey = RGB(160, 160, 160);
constexpr Colour kLightBand = RGB(220, 220, 220);
constexpr Colour kWhite = RGB(255, 255, 255);
const std::string kArial = "Arial";

}  // namespace

ReportPages::ReportPages(PrintPreview& out, const ReportDive& dive, int number)
    : out_(out), dive_(dive), number_(number) {
  Header();
}

void ReportPages::NewPage() {
  Footer();
  Header();
}

int ReportPages::Close() {
  Footer();
  return number_;
}

void ReportPages::Header() {
  const bool warn = Template().GFHigh > 1.0 && GradientFactorsAct(Template(), Model());
  const std::string program = T(Text::ReportProgram);
  out_.PrintHeader(dive_.title.empty() ? program : program + ", " + dive_.title,
                   T(warn ? Text::ReportHighFactor : Text::ReportTitle),
                   T(Text::ReportDate) + out_.Services().environment.Today());
  constexpr double kLoopState = 3.55;  // between the notice and the first band
  const std::string loop = LoopState(Template(), dive_.repetitive, out_.Texts());
  if (!loop.empty()) Left(1.9, kLoopState, loop, 8);
  const auto notice = NoticeOf(Profile(), dive_.decompresses);
  if (!notice) return;
  out_.SetForeColor(kRed);
  Left(1.9, 3.1, T(*notice), 12, true);
  out_.SetForeColor(kBlack);
}

void ReportPages::Footer() {
  out_.PrintFooter(T(Text::ReportPrintedBy) + out_.Services().environment.UserName(), T(Text::ReportAid),
                   T(Text::ReportRisk), T(Text::ReportPage) + std::to_string(number_));
  ++number_;
}

void ReportPages::Left(Single x, Single y, const std::string& text, int size, bool bold) {
  out_.PrintTextLeft(x, y, text, kArial, size, bold ? 1 : 0);
}

void ReportPages::Right(Single x, Single y, const std::string& text, bool bold, int size) {
  out_.PrintTextRight(x, y, text, kArial, size, bold ? 1 : 0);
}

void ReportPages::Fitted(Single x, Single y, const std::string& text, double cm, bool bold) {
  out_.PrintTextFitted(x, y, text, cm, kArial, 10, bold ? 1 : 0);
}

void ReportPages::Figure(Single x, Single y, const std::string& text, double cm, bool bold) {
  WidthOf(text, bold) <= cm ? Right(x, y, text, bold) : Fitted(x - cm, y, text, cm, bold);
}

double ReportPages::WidthOf(const std::string& text, bool bold) const {
  constexpr double kSize = 10;
  return out_.Services().measure.TextWidth(text, {kArial, kSize, bold}) / page::kUnitsPerCm;
}

void ReportPages::InWhite(const std::function<void()>& write) {
  out_.SetForeColor(kWhite);
  write();
  out_.SetForeColor(kBlack);
}

void ReportPages::Band(Single y, Single height) {
  out_.PrintFilledBox(1.9, y, 27.1, y + height, kHeadGrey);
  Outline(y, y + height);
}

void ReportPages::TitleBand(Single y, Single height, const std::string& title, Single titleX) {
  Band(y, height);
  Left(titleX, y, title, 18, true);
}

void ReportPages::SmallHead(Single x, Single y, const std::string& text, double next, bool bold) {
  constexpr int kSize = 8;
  constexpr double kGap = 0.08;
  out_.PrintTextFitted(x, y, text, next - x - kGap, kArial, kSize, bold ? 1 : 0);
}

void ReportPages::Heads(const std::vector<Head>& heads, Single y, Single unitY) {
  constexpr int kSize = 8;
  for (std::size_t i = 0; i < heads.size(); ++i) {
    const Head& head = heads[i];
    const auto write = [&](Single x, Single at, int text, bool bold) {
      head.right ? Right(x, at, T(text), bold, kSize) : Left(x, at, T(text), kSize, bold);
    };
    if (!head.right && i + 1 < heads.size() && !heads[i + 1].right) {
      SmallHead(head.x, y, T(head.head), heads[i + 1].x, true);
    } else {
      write(head.x, y, head.head, true);
    }
    if (head.unit != 0) write(head.x + head.unitShift, unitY, head.unit, false);
  }
}

void ReportPages::RowBand(Single y, int index, const Boxes& blackBoxes) {
  constexpr double kSeparator = 0.03;
  if (index % 2 == 0) out_.PrintFilledBox(1.9, y, 27.1, y + kRow, kLightBand);
  for (const auto& [from, to] : blackBoxes) {
    out_.PrintFilledBox(from, y, to, y + kRow, kBlack);
    out_.PrintFilledBox(from, y + kRow - kSeparator, to, y + kRow, kWhite);
  }
}

bool ReportPages::OnBlack(const Boxes& boxes, double x) {
  return std::ranges::any_of(boxes, [x](const auto& box) { return x >= box.first && x < box.second; });
}

std::string ReportPages::FactorOf(const Waypoint& row) const {
  const std::string factor = Numbers().Fixed(Single(row.GF * 100), 0);
  return row.GF == 1.0 || factor == "100" || !GradientFactorsAct(Template(), Model()) ? "--" : factor;
}

}  // namespace tav
