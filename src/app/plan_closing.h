#pragma once

#include <cstdint>
#include <string>

#include "app/plan_files.h"

namespace tav {

/// Closes plans, after the questions that keep one from being lost.
class PlanClosing {
 public:
  PlanClosing(const MainServices& services, MainPanes& panes, PlanFiles& files)
      : services_(services), panes_(panes), files_(files) {}

  /// Closes a document as its close control does. False when the user called it off.
  bool Close(std::int16_t document);
  /// One question for all plans with unsaved changes; none is closed. False when the user called it off.
  bool ConfirmAll();
  void CloseAll() const;

 private:
  /// What a close says of the marked cells of a series.
  [[nodiscard]] std::string LostCells(std::int16_t document);
  /// Asks what is to close: this dive of a series, which then leaves it, or all of them.
  bool CloseLaterDive(std::int16_t document);

  const MainServices& services_;
  MainPanes& panes_;
  PlanFiles& files_;
};

}  // namespace tav
