#include "headless/headless_platform.h"

#include "controls/form.h"

namespace tav {
namespace {

template <class T>
T TakeFirst(std::deque<T>& queue, T otherwise) {
  if (queue.empty()) return otherwise;
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}

}  // namespace

BoxAnswer HeadlessPlatform::Show(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons) {
  boxes.push_back({text, title, icon, buttons, ""});
  if (onBox) onBox(boxes.back());
  return TakeFirst(answers, DismissedAnswer(buttons));
}

BoxAnswer HeadlessPlatform::ShowWithCheck(const std::string& text, const std::string& title, BoxIcon icon,
                                          BoxButtons buttons, BoxCheck& check) {
  const BoxAnswer answer = Show(text, title, icon, buttons);
  boxes.back().check = check.caption;
  check.ticked = TakeFirst(ticks, false);
  return answer;
}

std::filesystem::path HeadlessPlatform::Choose(const FileDialogRequest& request) {
  fileDialogs.push_back(request);
  return TakeFirst(filesChosen, std::filesystem::path());
}

void HeadlessPlatform::ShowModal(Form& form) {
  modalForms.push_back(form.Name());
  form.Load();
  const auto act = TakeFirst(onModal, std::function<void(Form&)>());
  if (act && form.IsLoaded()) act(form);
  form.Unload(true);
}

void HeadlessPlatform::Show(const std::shared_ptr<Form>& form) {
  modeless.push_back(form);
  form->CloseWanted = [this, raw = form.get()] {
    const auto found = std::find_if(modeless.begin(), modeless.end(), [raw](const auto& f) { return f.get() == raw; });
    if (found == modeless.end()) return;
    closed_.push_back(std::move(*found));  // it is still at work in its own Unload
    modeless.erase(found);
  };
  form->Load();
}

std::string HeadlessPlatform::ReadSetting(const std::string& section, const std::string& name) const {
  const auto found = settings.find({section, name});
  return found == settings.end() || found->second.size() > 255 ? "" : found->second;
}

void HeadlessPlatform::WriteSetting(const std::string& section, const std::string& name, const std::string& value) {
  settings[{section, name}] = value;
}

}  // namespace tav
