#pragma once

#include <cstdint>

#include "app/plan_files.h"

namespace tav {

/// Copies of unsaved plans while the program runs, and what is offered of them after it was lost.
class PlanRecovery {
 public:
  PlanRecovery(const MainServices& services, PlanFiles& files) : services_(services), files_(files) {}

  /// Keeps copies of all plans with unsaved changes.
  void Keep() const;
  /// Offers the plans that a process lost which has ended.
  void Offer() const;

 private:
  /// A series has changes that are in no file, by its first dive; those that are only on trial count.
  [[nodiscard]] bool IsUnsaved(std::int16_t document) const;
  [[nodiscard]] bool KeepCopyOf(std::int16_t document) const;
  /// Opens a copy. True when it is a plan of this program now, with a copy of its own.
  [[nodiscard]] bool Recover(const Recovery::Copy& copy) const;

  const MainServices& services_;
  PlanFiles& files_;
};

}  // namespace tav
