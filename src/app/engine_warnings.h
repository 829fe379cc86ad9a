#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "engine/observer.h"
#include "persist/phi_log.h"
#include "platform/message_boxes.h"
#include "platform/text_source.h"

namespace tav {

/// What the engine says during a run of the desktop program: warnings as boxes, the trace to its file.
class EngineWarnings : public EngineObserver {
 public:
  EngineWarnings(MessageBoxes& boxes, const TextSource& texts) : boxes_(boxes), texts_(texts) {}

  void WarnEND(Single end, Single limit, bool Metric) override;
  void WarnPPO2High(Single ppo2, Single limit, bool Metric) override;
  void WarnPPO2Low(Single ppo2, Single limit, bool Metric) override;
  /// The first stop that hit its limit since the notice was last taken.
  void StopHitLimit(const StopLimit& stop) override;
  [[nodiscard]] bool WantsTrace() const override { return trace_.has_value(); }
  void Trace(const TraceSegment& segment) override { trace_->Write(segment); }

  /// Throws FileError.
  void OpenTrace(const std::filesystem::path& file) { trace_.emplace(file); }

  /// Boxes are held back while plans are computed that the user did not ask to see, and by tests.
  bool silent = false;

 private:
  void Warn(int textBefore, const std::string& value, int textBetween, const std::string& limit, int textAfter,
            int title);

  MessageBoxes& boxes_;
  const TextSource& texts_;
  std::optional<PhiLog> trace_;
};

}  // namespace tav
