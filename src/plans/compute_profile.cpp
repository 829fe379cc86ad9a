#include "plans/compute_profile.h"

#include <stdexcept>

#include "engine/zhl16.h"
#include "model/template_faults.h"

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
  EngineDoor(const PlanServices& services, const EngineRun& run) : services_(services), run_(run) {}

  void Replay(const ClassProfile& userProfile, ClassProfile& segmentedProfile, ReplayMemory* memory) const {
    // A trace shows every segment of every replay.
    const bool remembers = memory != nullptr && !services_.observer.WantsTrace();
    if (remembers && memory->engine_) {
      memory->engine_->LoadMore(userProfile, segmentedProfile);
      return;
    }
    auto engine = Start();
    engine->LoadCompartments(userProfile, segmentedProfile);
    if (remembers) memory->engine_ = std::move(engine);
  }

  void Ascend(const ClassProfile& userProfile, ClassProfile& segmentedProfile) const {
    segmentedProfile.clear();
    Start()->StartBuhlmann(userProfile, segmentedProfile, true, run_.forceOC, run_.openFrom);
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

 private:
  static bool EndsAs(const ClassProfile& rows, const ClassProfile& replayed) {
    const std::int16_t last = rows.GetLength();
    if (replayed.GetLength() != last) return false;
    const Waypoint& a = rows.Row(last);
    const Waypoint& b = replayed.Row(last);
    return a.RunTime == b.RunTime && a.N2Compartments == b.N2Compartments && a.HeCompartments == b.HeCompartments;
  }

  [[nodiscard]] std::unique_ptr<ClassBuhlmann> Start() const {
    auto engine = std::make_unique<ClassBuhlmann>(services_.documents, services_.model, services_.observer);
    if (run_.previousDocument == -1) {
      engine->Init(run_.document, services_.model.ZHL16C);
    } else {
      const DocumentState& previous = services_.documents(run_.previousDocument);
      const DocumentState& document = services_.documents(run_.document);
      const auto carried = [&](const Compartments& loads) {
        return InUnits(loads, previous.Template.Metric, document.Template.Metric);
      };
      engine->InitAfterSurfaceInterval(run_.document, services_.model.ZHL16C, carried(previous.N2Compartments),
                                       carried(previous.HeCompartments), document.SurfaceInterval);
    }
    return engine;
  }

  const PlanServices& services_;
  const EngineRun& run_;
};

std::string ComputeProfile(const PlanServices& services, const EngineRun& run, const ClassProfile& userProfile,
                           ClassProfile& segmentedProfile, ReplayMemory* memory) {
  const auto faults = TemplateFaults(services.documents(run.document).Template);
  if (!faults.empty()) {
    segmentedProfile.clear();
    return services.texts.Words(JoinFaults(faults));
  }
  constexpr int kTooManyRows = 7507;
  constexpr int kRunning = 5006;
  constexpr int kIdle = 5005;
  services.display.ShowStatus(kRunning);
  std::string fault;
  try {
    const EngineDoor door(services, run);
    if (run.loadOnly) {
      door.Replay(userProfile, segmentedProfile, memory);
    } else {
      door.Ascend(userProfile, segmentedProfile);
    }
  } catch (const std::length_error&) {
    segmentedProfile.clear();
    if (memory != nullptr) memory->Forget();
    fault = services.texts.GetResString(kTooManyRows);
  }
  services.display.ShowStatus(kIdle);
  return fault;
}

std::vector<DiveMoment> ReplayMoments(const PlanServices& services, const EngineRun& run, const ModelChoice& model,
                                      const ClassProfile& rows) {
  if (!TemplateFaults(services.documents(run.document).Template).empty()) return {};
  EngineObserver silent;
  const PlanServices quiet{services.documents, model, silent, services.display, services.boxes, services.texts};
  try {
    return EngineDoor(quiet, run).Moments(rows);
  } catch (const std::length_error&) {
    return {};
  }
}

}  // namespace tav
