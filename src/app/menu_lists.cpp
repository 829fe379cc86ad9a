#include "app/menu_lists.h"

#include <utility>

#include "model/number_text.h"

namespace tav {

RecentMenu::RecentMenu(Form& form, const MainServices& services, MenuItem& all,
                       std::function<void(const std::filesystem::path&)> open)
    : form_(form), services_(services), all_(all), open_(std::move(open)) {
  all_.Enabled = !services_.recent.List().empty();
}

void RecentMenu::Add(const std::filesystem::path& file) {
  services_.recent.Add(file);
  Changed();
}

void RecentMenu::Remove(const std::filesystem::path& file) {
  services_.recent.Remove(file);
  Changed();
}

void RecentMenu::Clear() {
  services_.recent.Clear();
  Changed();
}

void RecentMenu::Changed() {
  stale_ = true;
  all_.Enabled = !services_.recent.List().empty();
  services_.view.MenuChanged();
}

const MenuItems& RecentMenu::Items() {
  if (!std::exchange(stale_, false)) return items_;
  items_.clear();
  for (const std::filesystem::path& file : services_.recent.List()) {
    auto item = std::make_unique<MenuItem>(form_, "recent");
    item->Caption = "&" + std::to_string(items_.size() + 1) + " " + ReplaceAll(file.string(), "&", "&&");
    item->Click = [this, file] { open_(file); };
    items_.push_back(std::move(item));
  }
  return items_;
}

PlanMenu::PlanMenu(Form& form, const MainServices& services, MenuItem& rule)
    : form_(form), services_(services), rule_(rule) {
  rule_.Visible = false;
}

void PlanMenu::Follow(std::int16_t document) {
  if (!services_.IsOpen(document)) {
    if (captions_.erase(document) > 0) Changed();
    return;
  }
  std::string caption = services_.forms.Caption(document);
  std::string& listed = captions_[document];
  if (listed == caption) return;
  listed = std::move(caption);
  Changed();
}

void PlanMenu::Changed() {
  stale_ = true;
  rule_.Visible = !captions_.empty();
  services_.view.MenuChanged();
}

void PlanMenu::MarkFront() {
  if (stale_) return;
  auto item = items_.begin();
  for (const auto& [document, caption] : captions_) (*item++)->Checked = services_.Active() == document;
}

const MenuItems& PlanMenu::Items() {
  if (!std::exchange(stale_, false)) return items_;
  items_.clear();
  for (const auto& [document, caption] : captions_) {
    constexpr std::size_t kDigits = 9;
    const std::size_t number = items_.size() + 1;
    const std::string text = ReplaceAll(caption, "&", "&&");
    auto item = std::make_unique<MenuItem>(form_, "plan");
    item->Caption = number <= kDigits ? "&" + std::to_string(number) + " " + text : text;
    item->Click = [this, number = document] { services_.forms.Activate(number); };
    items_.push_back(std::move(item));
  }
  MarkFront();
  return items_;
}

}  // namespace tav
