#include "controls/localize_form.h"

#include <limits>
#include <optional>

#include "model/number_text.h"
#include "model/numbers.h"

namespace tav {
namespace {

std::optional<int> StrictId(const std::string& text) {
  const auto number = ParseStrict(text);
  return number ? RoundToInt16(*number) : std::nullopt;
}

std::optional<int> LenientId(const std::string& text) {
  const auto id = RoundToInt16(ParseLenient(text));
  if (!id || *id <= 0) return std::nullopt;
  return *id;
}

void Replace(Property<std::string>& text, std::optional<int> id, const TextSource& texts) {
  if (id) text = texts.GetResString(*id);
}

}  // namespace

void LocalizeForm(Form& form, const TextSource& texts) {
  Replace(form.Caption, StrictId(form.Tag), texts);
  for (Control* control : form.Controls()) {
    if (dynamic_cast<MenuItem*>(control) != nullptr) {
      Replace(control->Caption, StrictId(control->Caption), texts);
    } else if (dynamic_cast<ToolButton*>(control) != nullptr) {
      Replace(control->ToolTipText, StrictId(control->ToolTipText), texts);
    } else if (dynamic_cast<Label*>(control) != nullptr) {
      Replace(control->Caption, StrictId(control->Tag), texts);
    } else {
      Replace(control->Caption, LenientId(control->Tag), texts);
      Replace(control->ToolTipText, LenientId(control->ToolTipText), texts);
    }
  }
}

}  // namespace tav
