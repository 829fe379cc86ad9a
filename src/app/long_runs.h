#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "app/engine_warnings.h"
#include "dialogs/long_run.h"

namespace tav {

/// The run of a dialog that is under way, as the program sees it: whose commands are held back, and that it must end
/// when the program does. There is one at most.
class LongRuns : public RunHost {
 public:
  explicit LongRuns(EngineWarnings& warnings) : warnings_(warnings) {}

  void RunBegins(std::int16_t document) override {
    document_ = document;
    warnings_.CommandBegins();
    if (changed) changed();
  }
  void RunEnds() override {
    document_.reset();
    warnings_.CommandEnds();
    if (changed) changed();
  }
  [[nodiscard]] bool MustEnd() const override { return ending_; }

  [[nodiscard]] bool IsRunning() const override { return document_.has_value(); }
  /// The commands of this document wait for the end of a run.
  [[nodiscard]] bool Holds(std::int16_t document) const { return document_ == document; }
  /// The program ends; nothing may begin any more.
  void EndAll() { ending_ = true; }

  std::function<void()> changed;  ///< what commands can be chosen has changed

 private:
  EngineWarnings& warnings_;
  std::optional<std::int16_t> document_;
  bool ending_ = false;
};

}  // namespace tav
