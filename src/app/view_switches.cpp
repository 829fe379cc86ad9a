#include "app/view_switches.h"

#include <utility>

namespace tav {
namespace {

constexpr const char* kFitPlan = "FitPlan";  // the setting

}  // namespace

ViewSwitches::ViewSwitches(SettingsStore& settings, PlanLooks& looks, std::vector<Extra> extras, MenuItem& fit,
                           ToolButton& fitTool, const std::function<bool()>& resetZoom)
    : settings_(settings), looks_(looks), extras_(std::move(extras)), fit_(fit), fitTool_(fitTool) {
  for (const Extra& extra : extras_) {
    extra.item.Click = [this, extra] {
      extra.item.Checked = !extra.item.Checked;
      Keep(extra.setting, extra.item.Checked);
      ShowExtras();
    };
  }
  fit_.Click = fitTool_.Click = [this, resetZoom] {
    if (fit_.Checked && resetZoom()) return;
    FitPlan(!fit_.Checked);
    Keep(kFitPlan, fit_.Checked);
  };
}

void ViewSwitches::Load() {
  const GraphExtras usual;
  for (const Extra& extra : extras_) {
    const std::string stored = settings_.ReadSetting("Settings", extra.setting);
    extra.item.Checked = stored == "On" || (stored != "Off" && usual.*extra.shown);
  }
  ShowExtras();
  FitPlan(settings_.ReadSetting("Settings", kFitPlan) != "Off");
}

void ViewSwitches::ShowExtras() {
  GraphExtras extras;
  for (const Extra& extra : extras_) extras.*extra.shown = extra.item.Checked;
  looks_.ShowExtras(extras);
}

void ViewSwitches::FitPlan(bool fit) {
  fit_.Checked = fit;
  fitTool_.Checked = fit;
  looks_.FitPlan(fit);
}

}  // namespace tav
