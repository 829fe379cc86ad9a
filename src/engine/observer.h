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

/// A row that passes a limit of its template.
struct LimitWarning {
  std::int16_t document = -1;  ///< set by who runs the engine for a document
  Single value;                ///< END in depth units, or PPO2
  Single limit;
  Single depth;     ///< of the row
  std::string gas;  ///< breathed there
  bool metric = true;
};

/// A stop that hit its limit of time without clearing.
struct StopLimit {
  std::int16_t document = -1;  ///< set by who runs the engine for a document
  bool metric = true;
  Single depth;
  std::string gas;
  int reason = 0;  ///< number of the text that tells what keeps it
};

/// Told what a run has to say beside its rows. Every operation does nothing unless a listener overrides it.
class EngineObserver {
 public:
  EngineObserver() = default;
  EngineObserver(const EngineObserver&) = delete;
  EngineObserver& operator=(const EngineObserver&) = delete;
  virtual ~EngineObserver() = default;

  /// The END is above the limit; at most once in a run, for the first row where it is.
  virtual void WarnEND(const LimitWarning& /*warning*/) {}
  /// The PPO2, rounded to two places, is above the limit; at most once in a run.
  virtual void WarnPPO2High(const LimitWarning& /*warning*/) {}
  /// The PPO2, rounded to two places, is below the limit; at most once in a run.
  virtual void WarnPPO2Low(const LimitWarning& /*warning*/) {}
  /// A stop ended because it reached its limit: this plan does not decompress.
  virtual void StopHitLimit(const StopLimit& /*stop*/) {}

  /// Whether Trace is to be called for each loaded segment.
  [[nodiscard]] virtual bool WantsTrace() const { return false; }
  virtual void Trace(const TraceSegment& /*segment*/) {}
};

/// Hands all that it is told on to another listener, as said of a document.
class ObserverRelay : public EngineObserver {
 public:
  explicit ObserverRelay(EngineObserver& listener, std::int16_t document = -1)
      : listener_(listener), document_(document) {}

  void WarnEND(const LimitWarning& warning) override { listener_.WarnEND(OfDocument(warning)); }
  void WarnPPO2High(const LimitWarning& warning) override { listener_.WarnPPO2High(OfDocument(warning)); }
  void WarnPPO2Low(const LimitWarning& warning) override { listener_.WarnPPO2Low(OfDocument(warning)); }
  void StopHitLimit(const StopLimit& stop) override { listener_.StopHitLimit(OfDocument(stop)); }
  [[nodiscard]] bool WantsTrace() const override { return listener_.WantsTrace(); }
  void Trace(const TraceSegment& segment) override { listener_.Trace(segment); }

 private:
  template <class Told>
  [[nodiscard]] Told OfDocument(Told told) const {
    told.document = document_;
    return told;
  }

  EngineObserver& listener_;
  std::int16_t document_;
};

}  // namespace tav
