#include "compute/compute_profile.h"

#include <stdexcept>

#include "compute/leg_expansion.h"
#include "compute/plan_cut.h"
#include "engine/zhl16.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// Loads of a dive in the depth units of the dive after it: each dive of a series has units of its own.
Compartments InUnits(const Compartments& loads, bool areMetric, bool metric) {
  if (areMetric == metric) return loads;
  Compartments converted = loads;
  for (Single& load : converted) {
    load = metric ? load / zhl16::kFeetPerMetreOfSeaWater : load * zhl16::kFeetPerMetreOfSeaWater;
  }
  return converted;
}

}  // namespace

/// Starts and drives the engine of one run.
class EngineDoor {
 public:
  EngineDoor(const EngineRun& run, EngineObserver& observer) : run_(run), observer_(observer) {}

  [[nodiscard]] std::unique_ptr<ClassBuhlmann> Start() const {
    auto engine = std::make_unique<ClassBuhlmann>(run_.settings, run_.model, observer_);
    if (run_.before == nullptr) {
      engine->Init(run_.model.ZHL16C);
    } else {
      const EndState& before = *run_.before;
      const auto carried = [&](const Compartments& loads) {
        return InUnits(loads, before.LoadsAreMetric, run_.settings.Metric);
      };
      engine->InitAfterSurfaceInterval(run_.model.ZHL16C, carried(before.N2Compartments),
                                       carried(before.HeCompartments), run_.surfaceInterval);
    }
    return engine;
  }

  void Replay(const ClassProfile& userProfile, ClassProfile& segmentedProfile, ReplayMemory* memory) const {
    // A trace shows every segment of every replay.
    const bool remembers = memory != nullptr && !observer_.WantsTrace();
    if (remembers && memory->engine_) {
      memory->engine_->LoadMore(userProfile, segmentedProfile);
      return;
    }
    auto engine = Start();
    engine->LoadCompartments(userProfile, segmentedProfile);
    if (remembers) memory->engine_ = std::move(engine);
  }

  void Ascend(const ClassProfile& userProfile, ClassProfile& segmentedProfile, EndState& end) const {
    segmentedProfile.clear();
    const auto engine = Start();
    engine->StartBuhlmann(userProfile, segmentedProfile, true, run_.forceOC, run_.openFrom);
    end.HeCompartments = engine->CurrentLoads().He;
    end.N2Compartments = engine->CurrentLoads().N2;
    end.TotalOTU = engine->TotalOTU();
    end.TotalCNS = engine->TotalCNS();
    end.Decompresses = engine->Decompresses();
    end.LoadsAreMetric = run_.settings.Metric;
  }

  /// Of the run that gave these rows: with a computed ascent when rows follow those of the plan.
  [[nodiscard]] std::vector<DiveMoment> Moments(const ClassProfile& rows) const {
    std::vector<DiveMoment> moments;
    const auto engine = Start();
    engine->KeepMoments(moments);
    ClassProfile replayed;
    const std::int16_t lastOfPlan = LastUserRow(rows);
    if (lastOfPlan < rows.GetLength()) {
      ClassProfile plan = rows;
      plan.CutAfter(lastOfPlan);
      engine->StartBuhlmann(plan, replayed, true, run_.forceOC, run_.openFrom);
    } else {
      engine->LoadCompartments(rows, replayed);
    }
    if (!EndsAs(rows, replayed)) moments.clear();
    return moments;
  }

  [[nodiscard]] Compartments StartFractions() const {
    std::vector<DiveMoment> moments;
    const auto engine = Start();
    engine->KeepMoments(moments);
    ClassProfile replayed;
    engine->LoadCompartments(ClassProfile(), replayed);
    return moments.front().fractions;
  }

 private:
  static bool EndsAs(const ClassProfile& rows, const ClassProfile& replayed) {
    const std::int16_t last = rows.GetLength();
    if (replayed.GetLength() != last) return false;
    const Waypoint& a = rows.Row(last);
    const Waypoint& b = replayed.Row(last);
    return a.RunTime == b.RunTime && a.N2Compartments == b.N2Compartments && a.HeCompartments == b.HeCompartments;
  }

  const EngineRun& run_;
  EngineObserver& observer_;
};

Message ComputeProfile(const EngineRun& run, const ClassProfile& userProfile, ClassProfile& segmentedProfile,
                       EndState& end, EngineObserver& observer, ReplayMemory* memory) {
  const auto faults = TemplateFaults(run.settings);
  if (!faults.empty()) {
    segmentedProfile.clear();
    return JoinFaults(faults);
  }
  try {
    const EngineDoor door(run, observer);
    if (run.loadOnly) {
      door.Replay(userProfile, segmentedProfile, memory);
    } else {
      door.Ascend(userProfile, segmentedProfile, end);
    }
  } catch (const std::length_error&) {
    segmentedProfile.clear();
    if (memory != nullptr) memory->Forget();
    return Text::TooManyRows;
  }
  return {};
}

struct WaysUp::Engine {
  /// Ends a way at its first stop that never clears.
  struct NeverClears {};
  class Listener : public EngineObserver {
    void StopHitLimit(const StopLimit& /*stop*/) override { throw NeverClears(); }
  };

  explicit Engine(const EngineRun& run) : loaded(EngineDoor(run, listener).Start()) {}

  Listener listener;
  std::unique_ptr<ClassBuhlmann> loaded;
  ClassProfile rows;  ///< that it has loaded
};

WaysUp::WaysUp(const EngineRun& run, const ClassProfile& rows)
    : run_(run), rows_(rows), engine_(std::make_unique<Engine>(run)) {
  engine_->loaded->BeginDive(rows.Row(0), engine_->rows);
}

WaysUp::~WaysUp() = default;

std::optional<ClassProfile> WaysUp::From(std::int16_t row, Single minutes) {
  LoadUntil(row);
  const Waypoint& end = rows_.Row(row);
  ClassProfile stay;
  stay.Row(0) = end;
  if (minutes > 0) {
    SaveUserProfile(stay, run_.settings, end.Depth, minutes, 0, end.RunTime, RowStatus::kLeg, end.MixNumber);
  }
  return Ascend(stay, 0);
}

std::optional<ClassProfile> WaysUp::FromMoment(std::int16_t row, Single moment, Single minutes, std::int16_t mix) {
  const auto before = static_cast<std::int16_t>(row - 1);
  LoadUntil(before);
  ClassProfile more;
  more.Row(0) = rows_.Row(before);
  more.NewWayPoint();
  more.Row(1) = CutRow(rows_, moment, row);
  std::int16_t open = run_.openFrom == row ? 1 : 0;
  if (minutes > 0) {
    SaveUserProfile(more, run_.settings, more.getDepth(1), minutes, 0, moment, RowStatus::kLeg, mix);
    if (open == 0) open = 2;
  }
  return Ascend(more, open);
}

std::optional<ClassProfile> WaysUp::FromWithin(std::int16_t row, Single time) {
  const std::optional<ClassProfile> whole = FromMoment(row, time, 0, 0);
  if (!whole) return std::nullopt;
  ClassProfile way;
  way.Row(0) = whole->Row(1);
  for (int i = 2; i <= whole->GetLength(); ++i) {
    way.NewWayPoint();
    way.Row(way.GetLength()) = whole->Row(static_cast<std::int16_t>(i));
  }
  return way;
}

void WaysUp::LoadUntil(std::int16_t row) {
  const auto next = static_cast<std::int16_t>(engine_->rows.GetLength() + 1);
  engine_->loaded->LoadDive(rows_, next, row, run_.openFrom);
}

std::optional<ClassProfile> WaysUp::Ascend(const ClassProfile& more, std::int16_t openFrom) {
  ClassProfile way;
  way.Row(0) = engine_->rows.Row(engine_->rows.GetLength());
  ClassBuhlmann engine = *engine_->loaded;
  try {
    engine.AscendInto(more, run_.forceOC, way, openFrom);
  } catch (const Engine::NeverClears&) {
    return std::nullopt;
  }
  return way;
}

std::vector<DiveMoment> ReplayMoments(const EngineRun& run, const ClassProfile& rows) {
  if (!TemplateFaults(run.settings).empty()) return {};
  EngineObserver silent;
  try {
    return EngineDoor(run, silent).Moments(rows);
  } catch (const std::length_error&) {
    return {};
  }
}

Compartments StartFractions(const EngineRun& run) {
  const bool lacksLoads = run.before != nullptr && !run.before->EndsWithAscent;
  if (lacksLoads || !TemplateFaults(run.settings).empty()) return {};
  EngineObserver silent;
  return EngineDoor(run, silent).StartFractions();
}

}  // namespace tav
