#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace tav {

/// The run of a dialog that is under way, as the program sees it: whose commands are held back, and that it must end
/// when the program does. There is one at most.
class LongRuns {
 public:
  /// `told` hears of the begin of each run and of its end: in between warnings can be silenced.
  explicit LongRuns(std::function<void(bool running)> told = [](bool) {}) : told_(std::move(told)) {}

  void RunBegins(std::int16_t document) { Set(document); }
  void RunEnds() { Set(std::nullopt); }
  /// A run is under way: another one would write into its pages.
  [[nodiscard]] bool IsRunning() const { return document_.has_value(); }
  /// The commands of this document wait for the end of a run.
  [[nodiscard]] bool Holds(std::int16_t document) const { return document_ == document; }
  /// The program ends; nothing may begin any more.
  void EndAll() { ending_ = true; }
  [[nodiscard]] bool MustEnd() const { return ending_; }

  std::function<void()> changed;  ///< what commands can be chosen has changed

 private:
  void Set(std::optional<std::int16_t> document) {
    document_ = document;
    told_(IsRunning());
    if (changed) changed();
  }

  std::function<void(bool running)> told_;
  std::optional<std::int16_t> document_;
  bool ending_ = false;
};

}  // namespace tav
