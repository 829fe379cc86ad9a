#pragma once

#include <cstdint>
#include <memory>

#include "app/main_panes.h"
#include "mixer/partial_mix_form.h"

namespace tav {

/// The dialogs that the main window opens on the plan in front.
class PlanDialogs {
 public:
  PlanDialogs(const MainServices& services, const DialogServices& dialogs, MainPanes& panes)
      : services_(services), dialogs_(dialogs), panes_(panes) {}

  void ShowConservatism() const;
  void ShowCylinders() const;
  void ShowMultiLevel() const;
  void ShowBailout(bool modal) const;
  void ShowTableExpert() const;
  void EditTemplate() const;
  /// Opens the gas mixer, or brings it to the front.
  frmPartialMix& ShowMixer();
  /// The dialog for a waypoint at the depth of the last row.
  void AddWaypoint();
  /// The dialog for a waypoint, with depth (depth units) and time (minutes) set; then the plan takes it.
  void EnterWaypoint(Single depth, Single segmentTime);
  /// Shows a row in the waypoint dialog.
  void ViewRow(std::int16_t row);

 private:
  /// A dialog may add a gas to the plan though it is called off.
  void Follow() const;

  const MainServices& services_;
  const DialogServices& dialogs_;
  MainPanes& panes_;
  std::weak_ptr<frmPartialMix> mixer_;
};

}  // namespace tav
