// What the graphs of all plans show, as the View menu says.

#include <array>

#include "advice/stop_reason.h"
#include "app/main_form.h"

namespace tav {
namespace {

struct ExtraRow {
  MenuItem frmMain::*item;
  bool GraphExtras::*shown;
  const char* setting;
};

constexpr std::array<ExtraRow, 4> kExtras{{
    {&frmMain::mnuViewCeiling, &GraphExtras::ceiling, "ShowCeiling"},
    {&frmMain::mnuViewStopMinutes, &GraphExtras::stopMinutes, "ShowStopMinutes"},
    {&frmMain::mnuViewDepths, &GraphExtras::depths, "ShowDepths"},
    {&frmMain::mnuViewTissues, &GraphExtras::tissues, "ShowTissues"},
}};

}  // namespace

void frmMain::WireViewCommands() {
  for (const ExtraRow& row : kExtras) {
    (this->*row.item).Click = [this, row] {
      MenuItem& item = this->*row.item;
      item.Checked = !item.Checked;
      services_.platform.settings.WriteSetting("Settings", row.setting, item.Checked ? "On" : "Off");
      ShowGraphExtras();
    };
  }
}

void frmMain::LoadGraphExtras() {
  const GraphExtras usual;
  for (const ExtraRow& row : kExtras) {
    const std::string stored = services_.platform.settings.ReadSetting("Settings", row.setting);
    (this->*row.item).Checked = stored == "On" || (stored != "Off" && usual.*row.shown);
  }
  ShowGraphExtras();
}

void frmMain::ShowGraphExtras() {
  GraphExtras extras;
  for (const ExtraRow& row : kExtras) extras.*row.shown = (this->*row.item).Checked;
  services_.view.ShowExtras(extras);
}

std::string frmMain::WhyStop(std::int16_t document, std::int16_t row) const {
  const frmWaypointEditor& editor = services_.forms(document);
  const CheckedDive dive(editor.Planned());
  for (const StopReason& reason : StopReasons(dive)) {
    if (reason.row != row) continue;
    return TextOf(reason, AdviceWords(services_.texts, services_.platform.separators, dive.settings.Metric));
  }
  return {};
}

}  // namespace tav
