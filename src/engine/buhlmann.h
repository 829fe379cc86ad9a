#pragma once

#include <cstdint>
#include <vector>

#include "engine/decay_factors.h"
#include "engine/dive_moment.h"
#include "engine/model_choice.h"
#include "engine/observer.h"
#include "model/dive_template.h"
#include "model/profile.h"

namespace tav {

/// One run of the decompression engine: ZH-L16 with gradient factors, VPM or the hybrid of both, on open circuit or a
/// constant-PPO2 rebreather.
///
/// Life of an object: created, started once with Init or InitAfterSurfaceInterval, driven by LoadCompartments or
/// StartBuhlmann, dropped. The template must have no TemplateFaults and the rows no PlanFaults; the
/// callers see to it.
///
/// All pressures inside are in depth units of the template: metres of sea water (bar * 10) or feet (atmospheres * 33).
/// Throws std::length_error when the dive has more rows than a profile holds.
class ClassBuhlmann {
 public:
  /// `settings` and `observer` must outlive the object.
  ClassBuhlmann(const DiveTemplate& settings, const ModelChoice& model, EngineObserver& observer);

  /// Start state of a repetitive dive: the loads of the dive before, after `surfaceInterval` minutes at the surface on
  /// Blends(0), on open circuit or, on a rebreather without `IntervalOnAir`, from the loop. `useC` takes the C
  /// coefficients, else B.
  void InitAfterSurfaceInterval(bool useC, const Compartments& n2Loads, const Compartments& heLoads,
                                Single surfaceInterval);

  /// Start state of a first dive: saturated at the start altitude, or come there from sea level.
  void Init(bool useC);

  /// Replays the rows of a plan, without an ascent. Row 0 of the plan becomes row 0 of the result.
  void LoadCompartments(const ClassProfile& userProfile, ClassProfile& segmentedProfile);

  /// Continues the last LoadCompartments of this object with the rows that the plan has gained since; the result must
  /// hold what that call left. The outcome is the same as that of a replay of all rows by a new object, without its
  /// cost.
  void LoadMore(const ClassProfile& userProfile, ClassProfile& segmentedProfile);

  /// Replays the plan and, if runDeco is set, appends the ascent. `segmentedProfile` comes cleared. forceOC runs the
  /// ascent of a rebreather plan on open circuit, and its rows from `openFrom` on were breathed so; 0 for none. The
  /// loads, the totals and whether the plan decompresses are then those at its end.
  void StartBuhlmann(const ClassProfile& userProfile, ClassProfile& segmentedProfile, bool runDeco, bool forceOC,
                     std::int16_t openFrom = 0);

  /// The steps of a StartBuhlmann, for ways up from many rows of one plan: it begins, rows are loaded in their order,
  /// and a copy of the engine goes on with AscendInto. `segmentedProfile` comes cleared.
  void BeginDive(const Waypoint& start, ClassProfile& segmentedProfile);
  void LoadDive(const ClassProfile& userProfile, std::int16_t first, std::int16_t last, std::int16_t openFrom = 0);
  /// The rows of `more` from its first on, and the ascent, into `way`, which comes cleared: what a StartBuhlmann would
  /// append to the rows loaded so far. `openFrom` is a row of `more`.
  void AscendInto(const ClassProfile& more, bool forceOC, ClassProfile& way, std::int16_t openFrom = 0);

  /// Has the run that follows keep how the dive goes between its rows, too. Its rows are those of any run. To be
  /// called after Init; `moments` must outlive the run.
  void KeepMoments(std::vector<DiveMoment>& moments) { moments_ = &moments; }

  /// Loads as fractions of their M-values at the surface of `EndPressure`, whatever the depth. Returns the largest.
  Single PercentCompartLoad(Compartments& loads) const;

  /// The depth that loads the compartments: with `DepthAdjust`, 3 % and 1 m (3.3 ft) deeper, but for the surface and
  /// the ascent.
  [[nodiscard]] Single Dadjust(Single depth) const;

  [[nodiscard]] const Loads& CurrentLoads() const { return loads_; }
  [[nodiscard]] Single TotalCNS() const { return cnsTotal_; }
  [[nodiscard]] Single TotalOTU() const { return otuTotal_; }
  [[nodiscard]] bool Decompresses() const { return decompresses_; }

 private:
  /// How a ramp is breathed: the setpoint in force matters on a rebreather, the breathing rate on open circuit.
  struct RampKind {
    bool doShow = true;
    bool useSetpoint = true;  ///< `Setpoint`, else `DecoSetpoint`
    bool useDecoRMV = false;  ///< `DecoRMV`, else `RMV`
  };

  /// What a segment adds to its row.
  struct Doses {
    Single gasUsed;
    Single ppo2;
    Single cns;
    Single otu;
    Single end;
  };

  /// A warning shows once a run; what it said is kept, so that a run continued by LoadMore can say it again.
  struct Warning {
    enum class Kind { None, END, PPO2High, PPO2Low };
    Kind kind = Kind::None;
    LimitWarning told;
  };

  /// A time of even breathing: on a level, on a ramp, or without any inert gas.
  struct Stretch {
    enum class Kind { Level, Ramp, Oxygen };
    Kind kind = Kind::Level;
    Single time;        ///< minutes
    Inspired inspired;  ///< at its start
    Inspired change;    ///< of a ramp, depth units per minute
    Single from;        ///< depths of the whole segment, for what happens between its rows
    Single to;
  };

  /// The ceiling of some loads, and which model sets it.
  struct ModelCeiling {
    Single depth;
    std::int16_t marker = ModelMarker::kNone;
  };

  /// How a stop waits: breathed pressures, waiting step in minutes, and what to report if it never clears.
  struct StopWait {
    Inspired inspired;
    Single step;
    int reason = 0;  ///< number of the text that tells what keeps the ceiling
  };

  // Start state (buhlmann.cpp).
  void AltitudeSegment(Single altitude, Single time);
  void TravelToAltitude();

  // Replay (buhlmann.cpp).
  /// Row 0 of a result: at the surface that the dive starts from, with the doses that it starts with.
  void FillStartRow(const Waypoint& start, Waypoint& result) const;
  void LoadRows(const ClassProfile& userProfile, std::int16_t first);

  // Segments (buhlmann_segments.cpp).
  void ConstantSegment(Single depth, Single time, Single surfacePressure, bool doShow);
  void OCConstantSegment(Single depth, Single time, Single surfacePressure, bool doShow);
  void CCConstantSegment(Single depth, Single time, Single surfacePressure, bool doShow);
  void RateSegment(Single from, Single to, Single rate, Single surfacePressure, const RampKind& kind);
  void OCRateSegment(Single from, Single to, Single rate, Single surfacePressure, const RampKind& kind);
  void CCRateSegment(Single from, Single to, Single rate, Single surfacePressure, const RampKind& kind);
  /// Of a time at one depth, as the model takes it, on open circuit and on the loop.
  [[nodiscard]] Doses OCDoses(Single depth, Single time, Single rmv, Single surfacePressure) const;
  [[nodiscard]] Doses CCDoses(Single depth, Single time, Single setpoint) const;
  void Breathe(const Stretch& stretch);
  void LoadStretch(Loads& loads, const Stretch& stretch, Single time);
  void WriteSegmentRow(Single depth, Single rate, const Doses& doses, bool isStop, bool doShow);
  void Warn(Single depth, const Doses& doses, bool isStop);
  void WarnOnce(const Warning& warning);
  void Announce(const Warning& warning);
  void Trace(bool constantPPO2, bool constantDepth, Single from, Single to, Single rate, bool setpointAboveStart);

  // Between rows (buhlmann_moments.cpp).
  /// Keeps the moments within a stretch that begins with these loads.
  void KeepStretch(const Loads& before, const Stretch& stretch);
  /// Keeps the moment at which a row ends; row 0 is the start.
  void KeepRow(std::int16_t row, Single depth);
  [[nodiscard]] DiveMoment MomentOf(const Loads& loads, Single time, Single depth) const;

  // Ascent (buhlmann_ascent.cpp).
  void Ascend(Single currentDepth, Single maximumDepth);
  [[nodiscard]] Single FirstCandidate(Single currentDepth) const;
  [[nodiscard]] Single NextCandidate(Single stop) const;
  [[nodiscard]] ModelCeiling CeilingOf(const Loads& loads) const;
  Single Ceiling();
  void SetGradientFactor(Single factor);
  /// The loads, for a loading that is about to change them: the ceiling known so far no longer holds.
  Loads& ChangingLoads() {
    ceilingKnown_ = false;
    return loads_;
  }
  [[nodiscard]] Single MaxMValueAt(Single depth) const;
  void AscendByRates(Single from, Single to, Single surfacePressure, const RampKind& kind);
  [[nodiscard]] std::int16_t DecoGasAt(Single depth) const;
  void ChangeToDecoGas(Single depth);
  void DecoStop(Single depth, Single nextStop, Single surfacePressure);
  void OCDecoStop(Single depth, Single nextStop, Single surfacePressure);
  void CCDecoStop(Single depth, Single nextStop, Single surfacePressure);
  Single Wait(Single depth, Single nextStop, const StopWait& wait);

  // Gas in use.
  [[nodiscard]] const GasMix& Mix() const { return template_->Blends.at(static_cast<std::size_t>(currentMix_)); }
  [[nodiscard]] Single FractionO2() const { return Mix().O2 / 100; }
  [[nodiscard]] Inspired OpenCircuitInspired(Single ambient) const;
  [[nodiscard]] Inspired RebreatherInspired(Single ambient, Single setpoint) const;
  [[nodiscard]] double ToDepthUnits(double pressure) const { return pressure * DepthPerPressure(template_->Metric); }
  [[nodiscard]] Single Vapour() const;

  const DiveTemplate* template_;
  ModelChoice model_;
  EngineObserver& observer_;
  const CompartmentKernels& kernels_;
  bool tracing_;

  MValueCoefficients mValues_;
  DecayFactors decay_;
  Loads loads_;

  ClassProfile* result_ = nullptr;
  std::int16_t segmentNumber_ = 0;
  Single segmentTime_;
  Single runTime_;
  std::int16_t currentMix_ = 0;
  bool openCircuit_ = true;
  Single previousDepth_;
  Single maximumDepth_;
  std::int16_t status_ = 0;
  Single maximumMValue_;
  Single gradientFactor_ = 1.0;
  bool decoPhase_ = false;
  Single vpmGradient_;
  std::int16_t modelMarker_ = ModelMarker::kNone;
  bool ceilingKnown_ = false;  // a stop and the row written for it ask for the same ceiling
  Single ceiling_;
  Single otuTotal_;
  Single cnsTotal_;
  bool decompresses_ = true;
  bool lastStopBelowBottom_ = false;  ///< the ascent begins no deeper than LastStop, and waits there for the surface
  std::vector<DiveMoment>* moments_ = nullptr;
  Single rowTime_;      // run time at the start of the segment
  Single stretchTime_;  // run time at the start of the stretch

  std::array<Warning, 3> warnings_;  // in the order in which they were shown
  std::size_t warningCount_ = 0;
};

}  // namespace tav
