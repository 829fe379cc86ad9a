#include "controls/form.h"

#include <algorithm>
#include <utility>

namespace tav {

// A control joins its form when it is made, and leaves it when it ends.
Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form_.controls_.push_back(this);
}

Control::~Control() { std::erase(form_.controls_, this); }

void TextBox::Type(const std::string& text) {
  if (!CanAct() || Locked) return;
  Text = text;
  Fire(Change);
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](auto* c) { return c->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::LoadAnew() {
  std::vector<std::function<void()>> entries;
  for (Control* control : controls_) {
    if (auto* text = dynamic_cast<TextBox*>(control)) {
      entries.emplace_back([text, was = text->Text.Get()] {
        if (text->Text.Get() != was) text->Type(was);
      });
    } else if (auto* check = dynamic_cast<CheckBox*>(control)) {
      entries.emplace_back([check, was = check->Value.Get()] {
        if (check->Value != was) check->Set(was);
      });
    } else if (auto* combo = dynamic_cast<ComboBox*>(control)) {
      entries.emplace_back([combo, was = combo->ListIndex.Get()] {
        if (combo->ListIndex != was) combo->Select(was);
      });
    }
  }
  Load();
  for (const auto& enterAgain : entries) enterAgain();
}

bool Form::Unload(bool byUser) {
  if (!loaded_) return true;
  if (!Form_QueryUnload(byUser)) return false;
  if (!loaded_) return true;
  loaded_ = false;
  Form_Unload();
  if (CloseWanted) CloseWanted();
  return true;
}

}  // namespace tav
