#include "reports/long_report.h"

#include "figures/loop_state.h"
#include "figures/model_name.h"
#include "pages/page_units.h"

namespace tav {
namespace {

constexpr Colour kHeadGrey = RGB(160, 160, 160);
constexpr Colour kLightBand = RGB(220, 220, 220);
constexpr Colour kWhite = RGB(255, 255, 255);
const std::string kArial = "Arial";

}  // namespace

GeneralReport::GeneralReport(PrintPreview& out, const ModelChoice& model, std::function<void(const std::string&)> step)
    : out_(out), model_(model), numbers_(out.Services().separators), step_(std::move(step)) {}

void GeneralReport::Step(int textId) {
  if (step_) step_(T(6000) + " " + std::to_string(ReportPage_) + " " + T(textId));
}

void GeneralReport::InitLongReport() {
  out_.InitPreview();
  ReportPage_ = 1;
  Step(6001);
}

void GeneralReport::LongReport(const Dive& dive) {
  dive_ = &dive;
  const PrintPreview::Batch batch(out_);
  Step(6002);
  ReportHeader();
  SectionY_ = 4.0;
  PrintInfoHeader();
  for (int i = 0; i < 2; ++i) {
    SectionY_ += 0.5;
    constexpr double kPageEnd = 18.5;
    if (SectionY_ <= kPageEnd) continue;
    SectionY_ = 1.5;
    NewPage();
    TableY_ = SectionY_;
    ProfileHead();
  }
  TableY_ = SectionY_;
  ProfileTable();

  NewPage();
  TableY_ = 5.0;
  DecoY_ = TableY_;
  DecoHead(DecoTable::Bottom);
  DecoRows(DecoTable::Bottom, 6014);
  DecoHead(DecoTable::Stops);
  DecoRows(DecoTable::Stops, 6015);

  NewPage();
  PrintDiveInfoHeader();
  GasTable();
  SupplyBlock();
  ReportFooter();
  dive_ = nullptr;
}

void GeneralReport::ShowLongReport() {
  Step(6017);
  out_.EndReport(T(6018));
}

void GeneralReport::ReportHeader() {
  const bool warn = Template().GFHigh > 1.0 && GradientFactorsAct(Template(), model_);
  const std::string program = T(6081);
  out_.PrintHeader(dive_->title.empty() ? program : program + ", " + dive_->title, T(warn ? 6082 : 6084),
                   T(6083) + out_.Services().environment.Today());
  constexpr double kLoopState = 3.55;  // between the notice and the first band
  const std::string loop = LoopState(Template(), false, out_.Texts());
  if (!loop.empty()) Left(1.9, kLoopState, loop, 8);
  const auto notice = NoticeOf(Profile(), dive_->decompresses);
  if (!notice) return;
  out_.SetForeColor(kRed);
  Left(1.9, 3.1, T(*notice), 12, true);
  out_.SetForeColor(kBlack);
}

void GeneralReport::ReportFooter() {
  out_.PrintFooter(T(6085) + out_.Services().environment.UserName(), T(6086), T(6087),
                   T(6000) + std::to_string(ReportPage_));
  ++ReportPage_;
}

void GeneralReport::NewPage() {
  ReportFooter();
  ReportHeader();
}

void GeneralReport::Left(Single x, Single y, const std::string& text, int size, bool bold) {
  out_.PrintTextLeft(x, y, text, kArial, size, bold ? 1 : 0);
}

void GeneralReport::Right(Single x, Single y, const std::string& text, bool bold) {
  out_.PrintTextRight(x, y, text, kArial, 10, bold ? 1 : 0);
}

void GeneralReport::InWhite(const std::function<void()>& write) {
  out_.SetForeColor(kWhite);
  write();
  out_.SetForeColor(kBlack);
}

void GeneralReport::TitleBand(Single y, Single height, const std::string& title, Single titleX) {
  out_.PrintFilledBox(1.9, y, 27.1, y + height, kHeadGrey);
  Outline(y, y + height);
  Left(titleX, y, title, 18, true);
}

void GeneralReport::RowBand(Single y, int index, const std::vector<std::pair<double, double>>& blackBoxes) {
  constexpr double kRow = 0.5;
  constexpr double kSeparator = 0.03;
  if (index % 2 == 0) out_.PrintFilledBox(1.9, y, 27.1, y + kRow, kLightBand);
  for (const auto& [from, to] : blackBoxes) {
    out_.PrintFilledBox(from, y, to, y + kRow, kBlack);
    out_.PrintFilledBox(from, y + kRow - kSeparator, to, y + kRow, kWhite);
  }
}

void GeneralReport::Fitted(Single x, Single y, const std::string& text, double cm, bool bold) {
  out_.PrintTextFitted(x, y, text, cm, kArial, 10, bold ? 1 : 0);
}

}  // namespace tav
