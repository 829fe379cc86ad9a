#include "engine/breathing_gas.h"
#include "engine/buhlmann.h"
#include "engine/oxygen_dose.h"
#include "model/numbers.h"

namespace tav {

void ClassBuhlmann::ConstantSegment(Single depth, Single time, Single surfacePressure, bool doShow) {
  if (openCircuit_) {
    OCConstantSegment(depth, time, surfacePressure, doShow);
  } else {
    CCConstantSegment(depth, time, surfacePressure, doShow);
  }
}

void ClassBuhlmann::RateSegment(Single from, Single to, Single rate, Single surfacePressure, const RampKind& kind) {
  if (openCircuit_) {
    OCRateSegment(from, to, rate, surfacePressure, kind);
  } else {
    CCRateSegment(from, to, rate, surfacePressure, kind);
  }
}

ClassBuhlmann::Doses ClassBuhlmann::OCDoses(Single depth, Single time, Single rmv, Single surfacePressure) const {
  const bool metric = template_->Metric;
  const Single fO2 = FractionO2();
  return {GasUsedAtDepth(depth, time, rmv, surfacePressure, metric), PPO2AtDepth(depth, surfacePressure, fO2, metric),
          CNSAtDepth(depth, time, fO2, surfacePressure, metric), OTUAtDepth(depth, time, fO2, surfacePressure, metric),
          EquivalentDepthOC(metric, depth, Mix().N2, Mix().He, template_->O2Narcotic, *template_)};
}

ClassBuhlmann::Doses ClassBuhlmann::CCDoses(Single depth, Single time, Single setpoint) const {
  const bool metric = template_->Metric;
  return {0, setpoint, CNSForPPO2(setpoint, time, metric), OTUForPPO2(setpoint, time, metric),
          EquivalentDepthCC(metric, setpoint, depth, Mix().He, Mix().N2, template_->O2Narcotic, *template_)};
}

void ClassBuhlmann::OCConstantSegment(Single depth, Single time, Single surfacePressure, bool doShow) {
  const Single adjusted = Dadjust(depth);
  segmentTime_ = time;
  runTime_ += time;
  const Single ambient = ToDepthUnits(surfacePressure) + adjusted;
  Breathe({Stretch::Kind::Level, time, OpenCircuitInspired(ambient), {}, depth, depth});
  if (tracing_) Trace(false, true, adjusted, adjusted, 0, false);

  WriteSegmentRow(depth, 0, OCDoses(adjusted, time, template_->RMV, surfacePressure), false, doShow);
}

void ClassBuhlmann::CCConstantSegment(Single depth, Single time, Single surfacePressure, bool doShow) {
  const Single adjusted = Dadjust(depth);
  segmentTime_ = time;
  runTime_ += time;
  const Single ambient = ToDepthUnits(surfacePressure) + adjusted;
  Breathe({Stretch::Kind::Level, time, RebreatherInspired(ambient, template_->Setpoint), {}, depth, depth});
  if (tracing_) Trace(true, true, adjusted, adjusted, 0, false);

  WriteSegmentRow(depth, 0, CCDoses(adjusted, time, template_->Setpoint), false, doShow);
}

void ClassBuhlmann::OCRateSegment(Single from, Single to, Single rate, Single surfacePressure, const RampKind& kind) {
  const bool metric = template_->Metric;
  const Single start = Dadjust(from);
  const Single end = Dadjust(to);
  const Single time = (end - start) / rate;
  segmentTime_ = time;
  runTime_ += time;

  const Single fO2 = FractionO2();
  const Single rmv = kind.useDecoRMV ? template_->DecoRMV : template_->RMV;
  const Doses doses{GasUsedOnRamp(start, end, rate, rmv, surfacePressure, metric),
                    PPO2AtDepth(end, surfacePressure, fO2, metric),
                    CNSOnRamp(start, end, rate, fO2, surfacePressure, metric),
                    OTUOnRamp(start, end, rate, fO2, surfacePressure, metric),
                    EquivalentDepthOC(metric, to, Mix().N2, Mix().He, template_->O2Narcotic, *template_)};

  const Single ambient = ToDepthUnits(surfacePressure) + start;
  const Inspired change{Mix().He * rate / 100, Mix().N2 * rate / 100};
  Breathe({Stretch::Kind::Ramp, time, OpenCircuitInspired(ambient), change, from, to});
  if (tracing_) Trace(false, false, start, end, rate, false);
  WriteSegmentRow(to, rate, doses, false, kind.doShow);
}

void ClassBuhlmann::CCRateSegment(Single from, Single to, Single rate, Single surfacePressure, const RampKind& kind) {
  const bool metric = template_->Metric;
  const double surface = ToDepthUnits(surfacePressure);
  Single start = Dadjust(from);
  const Single end = Dadjust(to);
  segmentTime_ = (end - start) / rate;
  runTime_ += segmentTime_;

  Single setpoint = kind.useSetpoint ? template_->Setpoint : template_->DecoSetpoint;
  Single ambient = surface + start;
  Single time = segmentTime_;
  Doses doses;
  const bool setpointAboveStart = !(ToDepthUnits(setpoint) < ambient);
  bool reachesSetpoint = true;
  if (setpointAboveStart) {
    // Above the depth at which the ambient pressure equals the setpoint the loop holds pure oxygen, and no inert gas
    // is breathed. A ramp that stays there, as every ascent from there does, is oxygen to its end.
    const Single setpointDepth = ToDepthUnits(setpoint) - surface;
    reachesSetpoint = rate > 0 && end > setpointDepth;
    const Single oxygenTime = reachesSetpoint ? Single((setpointDepth - from) / rate) : segmentTime_;
    Breathe({Stretch::Kind::Oxygen, oxygenTime, {}, {}, from, to});
    setpoint = template_->Setpoint;
    doses.cns = CNSForPPO2(setpoint, oxygenTime, metric);
    doses.otu = OTUForPPO2(setpoint, oxygenTime, metric);
    start = setpointDepth;
    ambient = surface + start;
    time = (end - start) / rate;
  }
  if (reachesSetpoint) {
    const double oxygen = ToDepthUnits(setpoint);
    const Single inert = Mix().N2 + Mix().He;
    const Single shareN2 = inert == 0 ? 0.0 : double{Mix().N2} / inert;
    const Single shareHe = inert == 0 ? 0.0 : double{Mix().He} / inert;
    const Single dry = ambient - oxygen - Vapour();
    Breathe({Stretch::Kind::Ramp, time, {dry * shareHe, dry * shareN2}, {shareHe * rate, shareN2 * rate}, from, to});
    doses.cns += CNSForPPO2(setpoint, time, metric);
    doses.otu += OTUForPPO2(setpoint, time, metric);
  }
  doses.ppo2 = setpoint;
  doses.end = EquivalentDepthCC(metric, setpoint, to, Mix().He, Mix().N2, template_->O2Narcotic, *template_);
  if (tracing_) Trace(true, false, Dadjust(from), end, rate, setpointAboveStart);
  WriteSegmentRow(to, rate, doses, false, kind.doShow);
}

void ClassBuhlmann::Breathe(const Stretch& stretch) {
  if (moments_ != nullptr) KeepStretch(loads_, stretch);
  LoadStretch(ChangingLoads(), stretch, stretch.time);
}

void ClassBuhlmann::LoadStretch(Loads& loads, const Stretch& stretch, Single time) {
  switch (stretch.kind) {
    case Stretch::Kind::Level:
      kernels_.LoadConstant(loads, stretch.inspired, decay_.For(time));
      break;
    case Stretch::Kind::Ramp:
      kernels_.LoadRamp(loads, stretch.inspired, stretch.change, time, RateConstants(), decay_.For(time));
      break;
    case Stretch::Kind::Oxygen:
      kernels_.LoadDecay(loads, decay_.For(time));
      break;
  }
}

void ClassBuhlmann::WriteSegmentRow(Single depth, Single rate, const Doses& doses, bool isStop, bool doShow) {
  Warn(depth, doses, isStop);
  ++segmentNumber_;
  result_->NewWayPoint();
  Waypoint& row = result_->Row(result_->GetLength());
  row.SegmentNumber = segmentNumber_;
  row.Depth = depth;
  row.SegmentTime = segmentTime_;
  row.Rate = rate;
  row.RunTime = runTime_;
  row.MixNumber = currentMix_;
  row.GasMixName = Mix().Name;
  row.GasMixO2 = Mix().O2;
  row.GasMixN2 = Mix().N2;
  row.GasMixHe = Mix().He;
  if (isStop) {
    row.StopDepth = depth;
    row.StopTime = RoundMinutes(segmentTime_);
  }
  row.N2Compartments = loads_.N2;
  row.HeCompartments = loads_.He;
  PercentCompartLoad(row.PercentCompartments);
  row.Status = status_;
  row.GasUsed = doses.gasUsed;
  row.PPO2 = doses.ppo2;
  row.CNS = doses.cns;
  row.OTU = doses.otu;
  otuTotal_ += doses.otu;
  cnsTotal_ += doses.cns;
  row.TotalCNS = cnsTotal_;
  row.TotalOTU = otuTotal_;
  row.MaxMValue = maximumMValue_;
  row.GF = gradientFactor_;
  row.DoShow = doShow;
  row.Ceiling = Ceiling();
  row.END = doses.end;
  row.ModelControl = modelMarker_;
  if (moments_ != nullptr) KeepRow(result_->GetLength(), depth);
}

void ClassBuhlmann::Warn(Single depth, const Doses& doses, bool isStop) {
  using Kind = Warning::Kind;
  const auto warn = [&](Kind kind, Single value, Single limit) {
    WarnOnce({kind, {-1, value, limit, depth, Mix().Name, template_->Metric}});
  };
  if (template_->MaxEnd && doses.end > template_->MaximalEND) warn(Kind::END, doses.end, template_->MaximalEND);
  const Single ppo2 = RoundSingle(doses.ppo2, 2);
  const Single highest = isStop ? template_->DecoPPO2 : template_->MaxPPO2;
  if (template_->PPO2High && ppo2 > highest) warn(Kind::PPO2High, doses.ppo2, highest);
  if (template_->PPO2Low && ppo2 < template_->MinPPO2) warn(Kind::PPO2Low, doses.ppo2, template_->MinPPO2);
}

void ClassBuhlmann::WarnOnce(const Warning& warning) {
  for (std::size_t i = 0; i < warningCount_; ++i) {
    if (warnings_[i].kind == warning.kind) return;
  }
  warnings_[warningCount_++] = warning;
  Announce(warning);
}

void ClassBuhlmann::Announce(const Warning& warning) {
  switch (warning.kind) {
    case Warning::Kind::None:
      break;
    case Warning::Kind::END:
      observer_.WarnEND(warning.told);
      break;
    case Warning::Kind::PPO2High:
      observer_.WarnPPO2High(warning.told);
      break;
    case Warning::Kind::PPO2Low:
      observer_.WarnPPO2Low(warning.told);
      break;
  }
}

void ClassBuhlmann::Trace(bool constantPPO2, bool constantDepth, Single from, Single to, Single rate,
                          bool setpointAboveStart) {
  observer_.Trace({constantPPO2, constantDepth, setpointAboveStart, from, to, segmentTime_, rate, &loads_});
}

}  // namespace tav
