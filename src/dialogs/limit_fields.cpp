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

std::optional<DiveLimits> LimitFields::Read() {
  bool sound = true;
  const auto read = [&](TextBox& field, std::optional<Single> DiveLimits::*limit) {
    DiveLimits alone;
    const auto number = NumberIn(field.Text);
    if (number) alone.*limit = Single(*number);
    const bool good = (number && IsSound(alone)) || TrimBlanks(field.Text.Get()).empty();
    field.ForeColor = good ? -1 : kRed;
    field.ToolTipText = good ? "" : T(Text::MarginsLimitFault);
    sound = sound && good;
    return alone.*limit;
  };
  DiveLimits limits;
  limits.run = read(fields_.run, &DiveLimits::run);
  limits.stops = read(fields_.stops, &DiveLimits::stops);
  limits.cns = read(fields_.cns, &DiveLimits::cns);
  limits.gas = fields_.gas.Value;
  return sound ? std::optional(limits) : std::nullopt;
}

}  // namespace tav
