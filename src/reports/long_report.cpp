#include "reports/long_report.h"

#include <algorithm>

#include "model/text_id.h"
#include "reports/report_blocks.h"

namespace tav {

GeneralReport::GeneralReport(PrintPreview& out, std::function<void(const std::string&)> step, ReportProgress progress)
    : out_(out), step_(std::move(step)), progress_(std::move(progress)) {}

void GeneralReport::Step(int textId, int page) {
  const auto t = [this](int id) { return Texts().GetResString(id); };
  if (step_) step_(t(Text::ReportPage) + " " + std::to_string(page) + " " + t(textId));
}

void GeneralReport::InitLongReport(int rows) {
  out_.InitPreview();
  ReportPage_ = 1;
  done_ = 0;
  of_ = rows;
  Step(Text::ReportPreparing, ReportPage_);
}

bool GeneralReport::LongReport(const Dive& dive) {
  constexpr double kTop = 4.0;
  const PrintPreview::Batch batch(out_);
  of_ = std::max(of_, done_ + dive.profile.GetLength() + 1);
  Step(Text::ReportReading, ReportPage_);
  ReportPages pages(out_, dive, ReportPage_);
  const Single settingsEnd = WriteSettings(pages, kTop);
  Step(Text::ReportWritingProfile, pages.Number());
  if (!WriteProfile(pages, settingsEnd + 1.0, [this] { return ++done_, !progress_ || progress_(done_, of_); })) {
    return false;
  }
  pages.NewPage();
  Step(Text::ReportWritingBottom, pages.Number());
  WriteStops(pages, 5.0);
  pages.NewPage();
  WriteSupply(pages, WriteGases(pages, WriteSummary(pages, kTop)));
  ReportPage_ = pages.Close();
  return true;
}

void GeneralReport::ShowLongReport() {
  Step(Text::ReportComplete, ReportPage_);
  out_.EndReport(Texts().GetResString(Text::GeneralReport));
}

}  // namespace tav
