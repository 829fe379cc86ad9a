#include "engine/buhlmann.h"

#include <algorithm>

#include "engine/breathing_gas.h"
#include "engine/zhl16.h"
#include "model/altitude.h"
#include "model/numbers.h"

namespace tav {

ClassBuhlmann::ClassBuhlmann(const DiveTemplate& settings, const ModelChoice& model, EngineObserver& observer)
    : template_(&settings),
      model_(model),
      observer_(observer),
      kernels_(BestKernels()),
      tracing_(observer.WantsTrace()) {}

Single ClassBuhlmann::Vapour() const { return template_->Metric ? zhl16::kVapourMetres : zhl16::kVapourFeet; }

void ClassBuhlmann::Init(bool useC) {
  mValues_ = MValuesOf(template_->Metric, useC);
  loads_.He = {};
  if (template_->AdeptedToHeight) {
    // 33 / 1.01325 feet of sea water to the unit of pressure, not 33: the start load of imperial dives rests on it.
    const double ambient = template_->Metric ? template_->StartPressure * 10.0
                                             : template_->StartPressure * zhl16::kFeetPerMetreOfSeaWater * 10.0;
    const double vapour = template_->Metric ? zhl16::kVapourMetres : zhl16::kVapourFeet;
    loads_.N2.fill((ambient - vapour) * zhl16::kNitrogenOfAir);
  } else {
    loads_.N2.fill(template_->Metric ? (10.13 - zhl16::kVapourMetres) * zhl16::kNitrogenOfAir : 24.603647726305997);
    TravelToAltitude();
  }
}

void ClassBuhlmann::TravelToAltitude() {
  const int minutes = std::max<int>(template_->TimeToHeight, 1);
  const int step = std::max<int>(RoundToInt16(minutes / 100.0).value_or(1), 1);
  for (int i = 0; i <= minutes; i += step) {
    AltitudeSegment(template_->StartAltitude / minutes * i, minutes / 100.0);
  }
}

void ClassBuhlmann::AltitudeSegment(Single altitude, Single time) {
  const Single ambient = ToDepthUnits(AltitudeToPressure(altitude, template_->Metric));
  kernels_.LoadConstant(ChangingLoads(), OpenCircuitInspired(ambient), decay_.For(time));
}

void ClassBuhlmann::InitAfterSurfaceInterval(bool useC, const Compartments& n2Loads, const Compartments& heLoads,
                                             Single surfaceInterval) {
  mValues_ = MValuesOf(template_->Metric, useC);
  loads_ = {heLoads, n2Loads};
  openCircuit_ = template_->OpenCircuit || template_->IntervalOnAir;
  ClassProfile sink;
  result_ = &sink;
  ConstantSegment(0, surfaceInterval, template_->StartPressure, true);
  result_ = nullptr;
  segmentNumber_ = 0;
  runTime_ = 0;
  otuTotal_ = 0;
  cnsTotal_ = 0;
}

void ClassBuhlmann::FillStartRow(const Waypoint& start, Waypoint& result) const {
  result.PPO2 = template_->StartPressure * start.GasMixO2 / 100;
  result.CNS = start.CNS;
  result.OTU = start.OTU;
  result.N2Compartments = loads_.N2;
  result.HeCompartments = loads_.He;
}

void ClassBuhlmann::LoadCompartments(const ClassProfile& userProfile, ClassProfile& segmentedProfile) {
  result_ = &segmentedProfile;
  segmentedProfile.clear();
  segmentedProfile.Row(0) = userProfile.Row(0);
  FillStartRow(userProfile.Row(0), segmentedProfile.Row(0));
  openCircuit_ = template_->OpenCircuit;
  previousDepth_ = 0;
  if (moments_ != nullptr) KeepRow(0, 0);
  LoadRows(userProfile, 1);
}

void ClassBuhlmann::LoadMore(const ClassProfile& userProfile, ClassProfile& segmentedProfile) {
  // A replay from the start would meet the same rows and warn of them again, in the same order.
  for (std::size_t i = 0; i < warningCount_; ++i) Announce(warnings_[i]);
  const std::int16_t last = segmentedProfile.GetLength();
  segmentedProfile.SetEndUserProfile(last, false);
  LoadRows(userProfile, static_cast<std::int16_t>(last + 1));
}

void ClassBuhlmann::LoadRows(const ClassProfile& userProfile, std::int16_t first) {
  for (int i = first; i <= userProfile.GetLength(); ++i) {
    const Waypoint& row = userProfile.Row(static_cast<std::int16_t>(i));
    currentMix_ = FindBlendIndex(row.GasMixName, *template_);
    status_ = row.Status;
    if (row.Rate != 0) {
      RateSegment(previousDepth_, row.Depth, row.Rate, template_->StartPressure, {row.DoShow, true, false});
    } else {
      ConstantSegment(row.Depth, row.SegmentTime, template_->StartPressure, row.DoShow);
    }
    previousDepth_ = row.Depth;
  }
  result_->SetEndUserProfile(result_->GetLength(), true);
}

void ClassBuhlmann::StartBuhlmann(const ClassProfile& userProfile, ClassProfile& segmentedProfile, bool runDeco,
                                  bool forceOC, std::int16_t openFrom) {
  BeginDive(userProfile.Row(0), segmentedProfile);
  LoadDive(userProfile, 1, userProfile.GetLength(), openFrom);
  segmentedProfile.SetEndUserProfile(segmentedProfile.GetLength(), true);
  openCircuit_ = forceOC || template_->OpenCircuit;
  if (runDeco) Ascend(previousDepth_, maximumDepth_);
}

void ClassBuhlmann::BeginDive(const Waypoint& start, ClassProfile& segmentedProfile) {
  result_ = &segmentedProfile;
  FillStartRow(start, segmentedProfile.Row(0));
  cnsTotal_ = start.CNS;
  otuTotal_ = start.OTU;
  openCircuit_ = template_->OpenCircuit;
  previousDepth_ = 0;
  maximumDepth_ = 0;
  if (moments_ != nullptr) KeepRow(0, 0);
}

void ClassBuhlmann::LoadDive(const ClassProfile& userProfile, std::int16_t first, std::int16_t last,
                             std::int16_t openFrom) {
  for (int i = first; i <= last; ++i) {
    const Waypoint& row = userProfile.Row(static_cast<std::int16_t>(i));
    currentMix_ = row.MixNumber;
    status_ = row.Status;
    if (i == openFrom) openCircuit_ = true;
    if (row.Rate != 0) {
      RateSegment(previousDepth_, row.Depth, row.Rate, template_->StartPressure, {row.DoShow, true, true});
    } else {
      ConstantSegment(row.Depth, row.SegmentTime, template_->StartPressure, true);
    }
    previousDepth_ = row.Depth;
    maximumDepth_ = MaxSingle(maximumDepth_, row.Depth);
  }
}

void ClassBuhlmann::AscendInto(const ClassProfile& more, bool forceOC, ClassProfile& way, std::int16_t openFrom) {
  result_ = &way;
  LoadDive(more, 1, more.GetLength(), openFrom);
  way.SetEndUserProfile(way.GetLength(), true);
  openCircuit_ = forceOC || template_->OpenCircuit;
  Ascend(previousDepth_, maximumDepth_);
}

Single ClassBuhlmann::PercentCompartLoad(Compartments& loads) const {
  return kernels_.MValueFractions(loads_, mValues_, ToDepthUnits(template_->EndPressure), loads);
}

Single ClassBuhlmann::Dadjust(Single depth) const { return decoPhase_ ? depth : AdjustedDepth(depth, *template_); }

Inspired ClassBuhlmann::OpenCircuitInspired(Single ambient) const {
  const double dry = ambient - Vapour();
  return {dry * Mix().He / 100, dry * Mix().N2 / 100};
}

Inspired ClassBuhlmann::RebreatherInspired(Single ambient, Single setpoint) const {
  // The inert gases share what the setpoint leaves, in the proportion that the diluent has between them.
  const double inert = Mix().N2 + Mix().He;
  if (inert == 0) return {};
  const double oxygen = std::min<double>(ToDepthUnits(setpoint), ambient);
  const double vapour = template_->Metric ? zhl16::kVapourMetres : zhl16::kVapourFeet;
  const double dry = std::max(ambient - oxygen - vapour, 0.0);
  return {dry * (Mix().He / inert), dry * (Mix().N2 / inert)};
}

}  // namespace tav
