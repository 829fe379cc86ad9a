#include "compute/compute.h"

#include <stdexcept>

#include "compute/compute_profile.h"
#include "compute/leg_expansion.h"
#include "engine/oxygen_dose.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// One evaluation of a plan, action by action.
class Evaluation {
 public:
  Evaluation(const DiveRecord& dive, const EndState* before, EngineObserver& observer, ComputedPlan& plan)
      : dive_(dive), before_(before), observer_(observer), plan_(plan) {}

  void Run() {
    Begin();
    plan_.fault = Fault();
    for (int n = 1; n <= dive_.UserActions.GetLength() && plan_.fault.IsEmpty(); ++n) {
      Evaluate(static_cast<std::int16_t>(n));
    }
  }

  void Evaluate(std::int16_t action) {
    const Single ceiling = plan_.rows.GetCeiling(plan_.rows.GetLength());
    const bool isLeg = dive_.UserActions.getaction(action) == ClassUseractions::kLeg;
    plan_.fault = isLeg ? Leg(action) : Ascent();
    if (!plan_.fault.IsEmpty()) {
      Begin();
      return;
    }
    plan_.state = isLeg ? EditState::Legs : EditState::Ascent;
    plan_.end.EndsWithAscent = !isLeg;
    plan_.actionResults.push_back({plan_.rows.GetLength(), ceiling});
  }

 private:
  /// An empty plan, which starts with the doses of the dive before as the surface interval leaves them.
  void Begin() {
    plan_.rows.Class_Initialize();
    plan_.loadedRows.Class_Initialize();
    plan_.actionResults.assign(1, {});
    plan_.state = EditState::Empty;
    plan_.end = {};
    if (before_ != nullptr) {
      plan_.startCNS = CNSAfterSurfaceInterval(before_->TotalCNS, dive_.SurfaceInterval);
      plan_.startOTU = before_->TotalOTU;
      plan_.end.NumberInSeries = before_->NumberInSeries + 1;
    }
    plan_.end.TotalCNS = plan_.startCNS;
    plan_.end.TotalOTU = plan_.startOTU;
    FillStartRow(dive_.Template, plan_.startCNS, plan_.startOTU, plan_.rows);
  }

  [[nodiscard]] Message Fault() const {
    if (before_ != nullptr && !before_->EndsWithAscent) {
      // A later dive starts from the loads at the end of the one before: without an ascent there are none.
      return {Text::DiveNotComputed,
              {std::to_string(plan_.end.NumberInSeries), std::to_string(before_->NumberInSeries)}};
    }
    if (dive_.UserActions.GetLength() == 0) return {};
    // Legs are expanded by the rate tables before the engine sees them: a table without entries would be no table.
    const auto faults = TemplateFaults(dive_.Template);
    return faults.empty() ? Message::List(PlanFaults(dive_.UserActions, dive_.Template)) : JoinFaults(faults);
  }

  [[nodiscard]] EngineRun Engine(bool loadOnly) const {
    return {dive_.Template, plan_.model, before_, dive_.SurfaceInterval, loadOnly};
  }

  Message Leg(std::int16_t action) {
    const ClassUseractions& actions = dive_.UserActions;
    tav::Leg leg{time_, depth_, time_ + actions.gettime(action), actions.getDepth(action),
                 actions.getmixnumber(action)};
    const std::int16_t known = plan_.rows.GetLength();
    try {
      GetSegmentedProfile(leg, dive_.Template, plan_.rows);
    } catch (const std::length_error&) {
      return Text::TooManyRows;
    }
    time_ = leg.endTime;
    depth_ = actions.getDepth(action);
    const bool continued = memory_.Remembers();
    Message fault = ComputeProfile(Engine(true), plan_.rows, plan_.loadedRows, plan_.end, observer_, &memory_);
    // A continued replay has left the rows before this leg as they were, but for the mark of the last one.
    plan_.rows.CopyFrom(plan_.loadedRows, continued ? known : std::int16_t{0});
    return fault;
  }

  Message Ascent() {
    memory_.Forget();
    Message fault = ComputeProfile(Engine(false), plan_.rows, plan_.loadedRows, plan_.end, observer_);
    plan_.rows.Copy(plan_.loadedRows);
    const std::int16_t last = plan_.rows.GetLength();
    time_ = plan_.rows.GetRunTime(last);
    depth_ = plan_.rows.getDepth(last);
    return fault;
  }

  const DiveRecord& dive_;
  const EndState* before_;
  EngineObserver& observer_;
  ComputedPlan& plan_;
  ReplayMemory memory_;
  Single time_;  // where the next leg begins
  Single depth_;
};

}  // namespace

ComputedPlan Compute(const DiveRecord& dive, const ModelChoice& model, const EndState* before,
                     EngineObserver& observer) {
  ComputedPlan plan;
  plan.model = model;
  Evaluation(dive, before, observer, plan).Run();
  return plan;
}

ComputedPlan WithAscent(ComputedPlan plan, const DiveRecord& dive, const ModelChoice& model, const EndState* before,
                        EngineObserver& observer) {
  plan.model = model;
  Evaluation(dive, before, observer, plan).Evaluate(dive.UserActions.GetLength());
  return plan;
}

std::vector<ComputedPlan> ComputeSeries(const std::vector<DiveRecord>& dives, const ModelChoice& model,
                                        EngineObserver& observer) {
  std::vector<ComputedPlan> plans;
  plans.reserve(dives.size());
  for (const DiveRecord& dive : dives) {
    plans.push_back(Compute(dive, model, plans.empty() ? nullptr : &plans.back().end, observer));
  }
  return plans;
}

std::vector<PlannedDive> PlannedSeries(const std::vector<DiveRecord>& dives, const std::vector<ComputedPlan>& plans) {
  std::vector<PlannedDive> planned;
  planned.reserve(plans.size());
  for (std::size_t i = 0; i < plans.size(); ++i) {
    planned.push_back({dives[i], plans[i], i == 0 ? nullptr : &plans[i - 1].end});
  }
  return planned;
}

void FillStartRow(const DiveTemplate& settings, Single cns, Single otu, ClassProfile& rows) {
  Waypoint& start = rows.Row(0);
  start.PPO2 = settings.EndPressure * start.GasMixO2 / 100;
  start.CNS = cns;
  start.OTU = otu;
}

std::optional<std::int16_t> PlannedDive::LegAt(std::int16_t row) const {
  for (std::size_t i = 1; i < plan.actionResults.size() && row > 0; ++i) {
    const auto action = static_cast<std::int16_t>(i);
    if (row > plan.actionResults[i].lastRow) continue;
    return record.UserActions.getaction(action) == ClassUseractions::kLeg ? std::optional(action) : std::nullopt;
  }
  return std::nullopt;
}

Compartments PlannedDive::StartFractions() const {
  return tav::StartFractions({record.Template, plan.model, before, record.SurfaceInterval});
}

std::vector<DiveMoment> PlannedDive::Moments() const {
  return ReplayMoments({record.Template, plan.model, before, record.SurfaceInterval}, plan.loadedRows);
}

}  // namespace tav
