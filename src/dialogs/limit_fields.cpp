#include "dialogs/limit_fields.h"

#include "model/text_id.h"

namespace tav {

void LimitFields::Show(const DiveLimits& limits) {
  const auto show = [&](TextBox& field, const std::optional<Single>& limit) {
    field.Text = limit ? Plain(*limit) : "";
    field.ForeColor = -1;
    field.ToolTipText = "";
  };
  show(fields_.run, limits.run);
  show(fields_.stops, limits.stops);
  show(fields_.cns, limits.cns);
  fields_.gas.Value = limits.gas;
}

LimitFields::Entry LimitFields::Read(const DiveLimits& now) {
  Entry entry;
  const auto read = [&](TextBox& field, std::optional<Single> DiveLimits::*limit) {
    DiveLimits alone;
    const auto number = NumberIn(field.Text);
    if (number) alone.*limit = Single(*number);
    const bool good = (number && IsSound(alone)) || TrimBlanks(field.Text.Get()).empty();
    field.ForeColor = good ? -1 : kRed;
    field.ToolTipText = good ? "" : T(Text::MarginsLimitFault);
    entry.sound = entry.sound && good;
    entry.limits.*limit = good ? alone.*limit : now.*limit;
  };
  read(fields_.run, &DiveLimits::run);
  read(fields_.stops, &DiveLimits::stops);
  read(fields_.cns, &DiveLimits::cns);
  entry.limits.gas = fields_.gas.Value;
  return entry;
}

}  // namespace tav
