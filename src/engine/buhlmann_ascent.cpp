#include <cmath>

#include "engine/breathing_gas.h"
#include "engine/buhlmann.h"
#include "engine/vpm.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

// A gas whose inert pressure at the stop is above what the next stop allows never clears it. Four days at one stop is
// far beyond any dive.
constexpr double kLongestStop = 6000;

// Run times are kept in 32 bits and their ramps in thirds of minutes: 61.99999 is 62. Taken as it stands it would give
// a stop that is reported as a minute and never held.
constexpr double kTimeNoise = 0.001;

/// The next whole minute of the run time, one whole minute on from a whole run time.
Single NextWholeMinute(Single runTime) {
  const Single end = RoundMinutes(runTime + 0.5);
  return end - runTime < kTimeNoise ? end + 1.0 : double{end};
}

}  // namespace

ClassBuhlmann::ModelCeiling ClassBuhlmann::CeilingOf(const Loads& loads) const {
  const double surface = ToDepthUnits(template_->EndPressure);
  ModelCeiling ceiling;
  if (!model_.VPMMode) {
    ceiling = {kernels_.DeepestCeiling(loads, mValues_, gradientFactor_, surface), ModelMarker::kZHL16};
  }
  if (model_.VPMMode || model_.HybridMode) {
    const Single bubbles = std::fmax(kernels_.LargestLoad(loads) - vpmGradient_ - surface, 0.0);
    if (model_.VPMMode || bubbles > ceiling.depth) ceiling = {bubbles, ModelMarker::kVPM};
  }
  return ceiling;
}

Single ClassBuhlmann::Ceiling() {
  if (ceilingKnown_) return ceiling_;
  const ModelCeiling ceiling = CeilingOf(loads_);
  ceiling_ = ceiling.depth;
  modelMarker_ = ceiling.marker;
  ceilingKnown_ = true;
  return ceiling_;
}

void ClassBuhlmann::SetGradientFactor(Single factor) {
  gradientFactor_ = factor;
  ceilingKnown_ = false;
}

Single ClassBuhlmann::MaxMValueAt(Single depth) const {
  Compartments fractions;
  return kernels_.MValueFractions(loads_, mValues_, ToDepthUnits(template_->EndPressure) + depth, fractions);
}

Single ClassBuhlmann::FirstCandidate(Single currentDepth) const {
  const Single stop = std::floor(currentDepth / template_->StepSize - 0.5) * template_->StepSize;
  if (!(stop > 0)) return 0;
  if (stop >= template_->LastStop) return stop;
  return currentDepth > template_->LastStop ? template_->LastStop : Single(0);
}

Single ClassBuhlmann::NextCandidate(Single stop) const {
  if (stop - template_->StepSize < template_->LastStop) {
    // The ascent never turns downward: from the last stop, or from above it, comes the surface.
    return stop <= template_->LastStop ? Single(0) : template_->LastStop;
  }
  return stop - template_->StepSize;
}

void ClassBuhlmann::Ascend(Single currentDepth, Single maximumDepth) {
  const Single surfacePressure = template_->EndPressure;
  lastStopBelowBottom_ = template_->LastStop >= currentDepth && currentDepth > template_->StepSize;
  vpmGradient_ = VPMGradient(maximumDepth, surfacePressure, template_->Metric);
  decoPhase_ = true;
  ceilingKnown_ = false;
  if (template_->UseGF) SetGradientFactor(template_->GFLow);

  // Free ascent: as long as the ceiling allows the next candidate.
  Single stop = FirstCandidate(currentDepth);
  while (Ceiling() <= stop) {
    status_ = RowStatus::kAscentEnd;
    ChangeToDecoGas(currentDepth);
    AscendByRates(currentDepth, stop, surfacePressure, {stop == 0, true, false});
    maximumMValue_ = MaxMValueAt(stop);
    if (stop == 0) return;
    currentDepth = stop;
    stop = NextCandidate(stop);
  }

  // Stops. The line of gradient factors runs from the first stop to the surface.
  Single thisStop = currentDepth;
  Single nextStop = stop;
  Single slope = 0;
  if (thisStop > 0) slope = (template_->GFHigh - template_->GFLow) / -thisStop;
  if (template_->OCDeco) openCircuit_ = true;
  while (true) {
    // The diver waits for the next stop, so the factor in force is the one of that depth.
    if (template_->UseGF) SetGradientFactor(slope * nextStop + template_->GFHigh);
    ChangeToDecoGas(thisStop);
    status_ = RowStatus::kStop;
    DecoStop(thisStop, nextStop, surfacePressure);
    currentDepth = thisStop;
    thisStop = nextStop;
    status_ = RowStatus::kAscentEnd;
    AscendByRates(currentDepth, thisStop, surfacePressure, {true, false, true});
    maximumMValue_ = MaxMValueAt(thisStop);
    if (thisStop == 0) return;
    nextStop = NextCandidate(thisStop);
  }
}

void ClassBuhlmann::AscendByRates(Single from, Single to, Single surfacePressure, const RampKind& kind) {
  const std::vector<RateEntry>& bands = template_->AscendRates;
  for (auto band = bands.rbegin(); band != bands.rend(); ++band) {
    if (from <= band->Depth) continue;
    if (to > band->Depth) {
      if (to == from) return;
      status_ = RowStatus::kAscentEnd;
      RateSegment(from, to, -band->Rate, surfacePressure, kind);
      return;
    }
    status_ = RowStatus::kAscentBand;
    RateSegment(from, band->Depth, -band->Rate, surfacePressure, kind);
    from = band->Depth;
  }
}

std::int16_t ClassBuhlmann::DecoGasAt(Single depth) const {
  for (const GasChange& change : template_->ChangeGasMixes) {
    if (depth > change.Depth) continue;
    if (const auto mix = FindBlend(change.Name, *template_)) return *mix;
  }
  return -1;
}

void ClassBuhlmann::ChangeToDecoGas(Single depth) {
  if (!openCircuit_ && template_->KeepsDiluent) return;
  const std::int16_t mix = DecoGasAt(depth);
  if (mix != -1) currentMix_ = mix;
}

void ClassBuhlmann::DecoStop(Single depth, Single nextStop, Single surfacePressure) {
  if (openCircuit_) {
    OCDecoStop(depth, nextStop, surfacePressure);
  } else {
    CCDecoStop(depth, nextStop, surfacePressure);
  }
}

Single ClassBuhlmann::Wait(Single depth, Single nextStop, const StopWait& wait) {
  Loads before;
  if (moments_ != nullptr) before = loads_;
  const Single end = NextWholeMinute(runTime_);
  Single waited = end - runTime_;
  runTime_ = end;
  kernels_.LoadConstant(ChangingLoads(), wait.inspired, decay_.For(waited));
  const CompartmentPair& stepFactors = decay_.For(wait.step);
  while (Ceiling() > nextStop) {
    if (waited >= kLongestStop) {
      decompresses_ = false;
      observer_.StopHitLimit(
          {-1, template_->Metric, depth, Mix().Name, lastStopBelowBottom_ ? Text::LastStopKeepsDown : wait.reason});
      break;
    }
    waited += wait.step;
    runTime_ += wait.step;
    kernels_.LoadConstant(ChangingLoads(), wait.inspired, stepFactors);
  }
  if (moments_ != nullptr) {
    KeepStretch(before, {Stretch::Kind::Level, runTime_ - stretchTime_, wait.inspired, {}, depth, depth});
  }
  return waited;
}

void ClassBuhlmann::OCDecoStop(Single depth, Single nextStop, Single surfacePressure) {
  const Single ambient = ToDepthUnits(surfacePressure) + depth;
  Single time = Wait(depth, nextStop, {OpenCircuitInspired(ambient), 1.0, Text::GasKeepsCeiling});
  // The row never tells less than a minute, while only the rest of the minute was loaded.
  if (time < 1) time = 1.0;
  segmentTime_ = time;
  WriteSegmentRow(depth, 0, OCDoses(depth, time, template_->DecoRMV, surfacePressure), true, true);
}

void ClassBuhlmann::CCDecoStop(Single depth, Single nextStop, Single surfacePressure) {
  const Single setpoint = template_->DecoSetpoint;
  const Single ambient = ToDepthUnits(surfacePressure) + depth;
  const Single time = Wait(depth, nextStop, {RebreatherInspired(ambient, setpoint), 0.1, Text::LoopKeepsCeiling});
  segmentTime_ = time;
  WriteSegmentRow(depth, 0, CCDoses(depth, time, setpoint), true, true);
}

}  // namespace tav
