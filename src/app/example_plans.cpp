#include "app/example_plans.h"

#include <string>
#include <system_error>

#include "model/text_id.h"
#include "plans/profile_commands.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr const char* kFolder = "dives";

struct Example {
  const char* file;
  int text;
};

constexpr Example kExamples[] = {
    {"air-no-stop.tav", Text::ExampleAirNoStop}, {"air-deco.tav", Text::ExampleAirDeco},
    {"nitrox.tav", Text::ExampleNitrox},         {"wreck.tav", Text::ExampleWreck},
    {"trimix-100.tav", Text::ExampleTrimix},     {"rebreather.tav", Text::ExampleRebreather},
    {"lake-series.tav", Text::ExampleLakeSeries}};

}  // namespace

ExamplePlans::ExamplePlans(Form& form, const MainServices& services, MenuItem& all)
    : services_(services), folder_(services.folders.ProgramFolder() / kFolder) {
  for (const Example& example : kExamples) {
    auto item = std::make_unique<MenuItem>(form, "example");
    item->Click = [this, file = folder_ / example.file] { Open(file); };
    items_.push_back(std::move(item));
  }
  all.Visible = AreThere(services);
}

bool ExamplePlans::AreThere(const MainServices& services) {
  std::error_code error;
  return fs::is_directory(services.folders.ProgramFolder() / kFolder, error);
}

void ExamplePlans::SetTexts() {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    items_[i]->Caption = "&" + std::to_string(i + 1) + " " + services_.T(kExamples[i].text);
  }
}

void ExamplePlans::PopUp() const {
  std::vector<MenuItem*> items;
  items.reserve(items_.size());
  for (const auto& item : items_) items.push_back(item.get());
  services_.platform.windows.PopupMenuAtFocus(items);
}

void ExamplePlans::Open(const fs::path& file) const {
  try {
    const auto opened = OpenProfile(services_.forms, file);
    for (const std::int16_t n : opened) {
      services_.Document(n).ProfileFolder.clear();
      services_.Changed(n);
    }
    if (!opened.empty()) services_.history.MarkSaved(opened.front());
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(Text::FileNotOpened), error);
  }
}

}  // namespace tav
