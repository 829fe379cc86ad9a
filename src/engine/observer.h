#pragma once

#include <cstdint>
#include <string>

#include "engine/compartment_kernels.h"
#include "model/single.h"

namespace tav {

/// One loaded segment, for the trace.
struct TraceSegment {
  bool constantPPO2 = false;  ///< a rebreather segment
  bool constantDepth = false;
  bool setpointAboveStart = false;  ///< a rebreather ramp that begins where the setpoint can't be reached
  Single from;                      ///< depth at the start, as the compartments see it
  Single to;
  Single time;                   ///< minutes
  Single rate;                   ///< depth units per minute, signed
  const Loads* loads = nullptr;  ///< at the end of the segment; valid during the call
};

/// A stop that hit its limit of time without clearing.
struct StopLimit {
  Single depth;
  std::string gas;
  std::string reason;
};

/// Told what a run has to say beside its rows. Every operation does nothing unless a listener overrides it.
class EngineObserver {
 public:
  EngineObserver() = default;
  EngineObserver(const EngineObserver&) = delete;
  EngineObserver& operator=(const EngineObserver&) = delete;
  virtual ~EngineObserver() = default;

  /// The END in depth units is above the limit; at most once in a run.
  virtual void WarnEND(Single /*end*/, Single /*limit*/, bool /*Metric*/) {}
  /// The PPO2, rounded to two places, is above the limit; at most once in a run.
  virtual void WarnPPO2High(Single /*ppo2*/, Single /*limit*/, bool /*Metric*/) {}
  /// The PPO2, rounded to two places, is below the limit; at most once in a run.
  virtual void WarnPPO2Low(Single /*ppo2*/, Single /*limit*/, bool /*Metric*/) {}
  /// A stop ended because it reached its limit: this plan does not decompress.
  virtual void StopHitLimit(const StopLimit& /*stop*/) {}

  /// Whether Trace is to be called for each loaded segment.
  [[nodiscard]] virtual bool WantsTrace() const { return false; }
  virtual void Trace(const TraceSegment& /*segment*/) {}
};

}  // namespace tav
