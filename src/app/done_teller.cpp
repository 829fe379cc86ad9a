#include "app/done_teller.h"

#include <utility>

#include "model/text_id.h"

namespace tav {
namespace {

// Within the class, Text is what the clipboard holds.
constexpr int kCopied = Text::StatusCopied;
constexpr int kPrinted = Text::StatusPrinted;
constexpr int kWritten = Text::StatusWritten;

/// A job that says so when it has gone out.
class ToldJob : public PrintJob {
 public:
  ToldJob(std::unique_ptr<PrintJob> job, std::function<void()> tell) : job_(std::move(job)), tell_(std::move(tell)) {}
  [[nodiscard]] DrawingSurface& Sheet() override { return job_->Sheet(); }
  void NewSheet(const PageSize& page) override { job_->NewSheet(page); }
  void EndDoc() override {
    job_->EndDoc();
    tell_();
  }

 private:
  std::unique_ptr<PrintJob> job_;
  std::function<void()> tell_;
};

}  // namespace

Platform DoneTeller::Services(Windows& windows) {
  return {platform_.boxes, platform_.files, windows, platform_.settings,    platform_.screen,    platform_.sound,
          platform_.help,  *this,           *this,   platform_.environment, platform_.separators};
}

void DoneTeller::SetText(const std::string& text) {
  platform_.clipboard.SetText(text);
  tell_(kCopied, "");
}

std::unique_ptr<PrintJob> DoneTeller::Start(const PrintOrder& order, const PageSize& first) {
  return std::make_unique<ToldJob>(platform_.printer.Start(order, first), [this] { tell_(kPrinted, ""); });
}

std::unique_ptr<PrintJob> DoneTeller::StartPdf(const std::filesystem::path& file, const std::string& title,
                                               const PageSize& first) {
  return std::make_unique<ToldJob>(platform_.printer.StartPdf(file, title, first),
                                   [this, name = file.filename().string()] { tell_(kWritten, name); });
}

}  // namespace tav
