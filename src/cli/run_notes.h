#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/observer.h"
#include "persist/phi_log.h"

namespace tav {

/// Collects what the engine has to say about a dive: each warning once, however often the dive is replayed.
class RunNotes : public EngineObserver {
 public:
  void WarnEND(const LimitWarning& warning) override;
  void WarnPPO2High(const LimitWarning& warning) override;
  void WarnPPO2Low(const LimitWarning& warning) override;
  void StopHitLimit(const StopLimit& stop) override;
  [[nodiscard]] bool WantsTrace() const override { return trace_.has_value(); }
  void Trace(const TraceSegment& segment) override { trace_->Write(segment); }

  /// Opens the trace file; throws FileError.
  void OpenTrace(const std::string& file) { trace_.emplace(file); }

  /// The notes since the last call.
  std::vector<std::string> Take();

 private:
  void Note(const std::string& text);

  std::vector<std::string> notes_;
  std::optional<PhiLog> trace_;
};

}  // namespace tav
