#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/plan_looks.h"

namespace tav {

/// The switches of the view menu for what all graphs show. They are kept in the settings.
class ViewSwitches {
 public:
  /// The entry of a menu that switches a part of the graph on and off.
  struct Extra {
    MenuItem& item;
    bool GraphExtras::*shown;
    const char* setting;
  };

  /// `resetZoom` shows all of the graph in front; false when all of it is shown.
  ViewSwitches(SettingsStore& settings, PlanLooks& looks, std::vector<Extra> extras, MenuItem& fit, ToolButton& fitTool,
               const std::function<bool()>& resetZoom);

  /// Sets the switches as they were left.
  void Load();

 private:
  void ShowExtras();
  void FitPlan(bool fit);
  void Keep(const char* setting, bool on) { settings_.WriteSetting("Settings", setting, on ? "On" : "Off"); }

  SettingsStore& settings_;
  PlanLooks& looks_;
  std::vector<Extra> extras_;
  MenuItem& fit_;
  ToolButton& fitTool_;
};

}  // namespace tav
