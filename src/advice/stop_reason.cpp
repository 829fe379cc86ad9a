#include "advice/stop_reason.h"

#include <algorithm>

#include "engine/leading_compartment.h"
#include "engine/vpm.h"
#include "engine/zhl16.h"
#include "figures/model_name.h"
#include "model/text_id.h"

namespace tav {
namespace {

Single NextStop(const ClassProfile& rows, std::int16_t stop) {
  for (auto i = static_cast<std::int16_t>(stop + 1); i <= rows.GetLength(); ++i) {
    if (rows.GetStatus(i) == RowStatus::kStop) return rows.getDepth(i);
  }
  return rows.getDepth(rows.GetLength());
}

}  // namespace

std::vector<StopReason> StopReasons(const CheckedDive& dive) {
  const DiveTemplate& t = dive.settings;
  const double perPressure = DepthPerPressure(t.Metric);
  const MValueCoefficients mValues = MValuesOf(t.Metric, dive.model.ZHL16C);
  Single deepest = 0;
  for (std::int16_t i = 1; i <= dive.lastUserRow; ++i) deepest = std::max(deepest, dive.rows.getDepth(i));
  const Single gradient = VPMGradient(deepest, t.EndPressure, t.Metric);
  std::vector<StopReason> reasons;
  for (auto i = static_cast<std::int16_t>(dive.lastUserRow + 1); i <= dive.rows.GetLength(); ++i) {
    const Waypoint& row = dive.rows.Row(i);
    if (row.Status != RowStatus::kStop) continue;
    StopReason& reason = reasons.emplace_back();
    reason.row = i;
    reason.nextStop = NextStop(dive.rows, i);
    reason.ZHL16C = dive.model.ZHL16C;
    reason.bubbles = row.ModelControl == ModelMarker::kVPM;
    reason.GF = reason.bubbles ? Single(1.0) : row.GF;
    const Loads loads{row.HeCompartments, row.N2Compartments};
    const double next = t.EndPressure * perPressure + reason.nextStop;
    const LeadingCompartment leading =
        reason.bubbles ? LeadingByBubbles(loads, gradient, next) : LeadingByMValues(loads, mValues, reason.GF, next);
    reason.compartment = static_cast<int>(leading.index) + 1;
    reason.halfTimeN2 = zhl16::kN2HalfTimes[leading.index];
    reason.halfTimeHe = zhl16::kHeHalfTimes[leading.index];
    reason.load = leading.load / perPressure;
    reason.tolerated = leading.tolerated / perPressure;
  }
  return reasons;
}

std::string ModelOf(const StopReason& reason) { return ModelName({reason.bubbles, false, reason.ZHL16C}); }

std::string TextOf(const StopReason& reason, const AdviceWords& words) {
  const bool withGF = !reason.bubbles && reason.GF != 1.0;
  return words.T(withGF ? Text::StopReasonOfGF : Text::StopReason,
                 {std::to_string(reason.compartment), words.Short(reason.halfTimeN2), words.Short(reason.halfTimeHe),
                  words.Fixed(reason.load, 3), words.Fixed(reason.tolerated, 3) + " " + words.PressureUnit(),
                  reason.nextStop == 0 ? words.T(Text::TheSurface) : words.Depth(reason.nextStop), ModelOf(reason),
                  words.Fixed(reason.GF * 100, 0)});
}

std::map<std::int16_t, std::string> StopReasonTexts(const CheckedDive& dive, const AdviceWords& words) {
  std::map<std::int16_t, std::string> texts;
  for (const StopReason& reason : StopReasons(dive)) texts[reason.row] = TextOf(reason, words);
  return texts;
}

}  // namespace tav
