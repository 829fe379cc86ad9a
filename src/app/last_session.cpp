#include "app/last_session.h"

#include <algorithm>

#include "model/text_id.h"

namespace tav {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSection = "Session";
constexpr const char* kReopen = "ReopenPlans";
constexpr std::size_t kMost = 100;
constexpr std::size_t kLongest = 255;  // that a setting holds

std::string Key(std::size_t index) { return "Plan" + std::to_string(index + 1); }

}  // namespace

LastSession::LastSession(const MainServices& services, PlanFiles& files, MenuItem& reopen)
    : services_(services), files_(files), reopen_(reopen) {
  reopen_.Checked = services_.platform.settings.ReadSetting("Settings", kReopen) != "Off";
  reopen_.Click = [this] {
    reopen_.Checked = !reopen_.Checked;
    services_.platform.settings.WriteSetting("Settings", kReopen, reopen_.Checked ? "On" : "Off");
  };
}

void LastSession::Open(const std::vector<fs::path>& others) {
  begun_ = true;
  for (std::size_t i = 0; i < kMost; ++i) {
    const fs::path file = services_.platform.settings.ReadSetting(kSection, Key(i));
    if (file.empty()) break;
    kept_.push_back(file);
  }
  if (!reopen_.Checked) return;
  bool opened = false;
  for (const fs::path& file : kept_) {
    const auto isThis = [&file](const fs::path& other) { return PlanFiles::Whole(other) == file; };
    if (std::ranges::any_of(others, isThis) || std::ranges::any_of(files_.OpenFiles(), isThis)) continue;
    std::error_code error;
    if (fs::is_regular_file(file, error)) {
      opened = files_.Read(file) || opened;
    } else {
      gone_ += (gone_.empty() ? "" : ", ") + file.string();
    }
  }
  if (opened) CloseEmptyPlan();
}

void LastSession::CloseEmptyPlan() const {
  const std::int16_t first = services_.OpenDocuments().front();
  const DocumentState& plan = services_.Document(first);
  if (plan.ProfileFolder.empty() && !plan.Modified && services_.forms(first).UserActions.GetLength() == 0) {
    services_.forms.Unload(first);
  }
}

void LastSession::TellGone() const {
  if (!gone_.empty()) services_.Status(Text::ReopenGone, gone_);
}

void LastSession::Keep() {
  if (!begun_) return;
  std::vector<fs::path> files = files_.OpenFiles();
  std::erase_if(files, [](const fs::path& file) { return file.string().size() > kLongest; });
  if (files.size() > kMost) files.resize(kMost);
  if (files == kept_) return;
  SettingsStore& settings = services_.platform.settings;
  for (std::size_t i = 0; i < std::max(files.size(), kept_.size()); ++i) {
    settings.WriteSetting(kSection, Key(i), i < files.size() ? files[i].string() : "");
  }
  kept_ = std::move(files);
}

}  // namespace tav
