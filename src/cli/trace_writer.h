#pragma once

#include <optional>
#include <string>

#include "start/phi_log.h"

namespace tav {

/// Writes the trace of all runs, where it is asked for.
class TraceWriter : public EngineObserver {
 public:
  /// Throws FileError.
  void Open(const std::string& file) { log_.emplace(file); }
  /// Why the file does not hold all of the trace; null when all is well.
  [[nodiscard]] const FileError* Fault() const { return log_ && log_->Fault() ? &*log_->Fault() : nullptr; }

  [[nodiscard]] bool WantsTrace() const override { return log_.has_value(); }
  void Trace(const TraceSegment& segment) override { log_->Write(segment); }

 private:
  std::optional<PhiLog> log_;
};

}  // namespace tav
