#include "cli/plan_edits.h"

#include <utility>

#include "cli/cylinder_edits.h"
#include "cli/edit_words.h"
#include "cli/gas_edits.h"
#include "cli/leg_edits.h"
#include "cli/option_values.h"
#include "cli/setting_edits.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "persist/profile_file.h"

namespace tav {
namespace {

bool HasLegs(const ClassUseractions& actions) {
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (IsLeg(i, actions)) return true;
  }
  return false;
}

/// The settings, gases and cylinders of the last dive once more, and an ascent.
void AddDive(const std::string& minutes, std::vector<DiveRecord>& dives) {
  DiveRecord dive;
  dive.Template = dives.back().Template;
  dive.Template.Texts = {};  // a series has them in its first dive
  dive.SurfaceInterval = NumberOf(minutes, "--add-dive", 0, kMaximumSurfaceInterval);
  dive.UserActions.AddAscent();
  dives.push_back(std::move(dive));
}

void RemoveDive(std::size_t dive, std::vector<DiveRecord>& dives) {
  if (dives.size() == 1) throw OptionError("--remove-dive", Text::EditOnlyDive);
  if (dive == 0) {
    // A series has them in its first dive.
    if (dives[1].Template.Texts == PlanTexts()) dives[1].Template.Texts = dives[0].Template.Texts;
    dives[1].SurfaceInterval = 0;
  }
  dives.erase(dives.begin() + static_cast<std::ptrdiff_t>(dive));
}

/// Whatever a reader refuses must not come to stand in a file.
void CheckReads(const std::vector<DiveRecord>& dives) {
  FormatFaults faults("", FormatFaults::Mode::Collect);
  ReportSeriesFaults(ReadProfileText(WriteProfileText(dives), faults), faults);
  for (const FormatFault& fault : faults.List()) {
    if (fault.error) throw OptionError(fault.text);
  }
}

}  // namespace

void Edit(const PlanEdits& edits, std::vector<DiveRecord>& dives) {
  std::size_t number = dives.size() - 1;
  if (!edits.dive.empty())
    number = static_cast<std::size_t>(WholeNumberOf(edits.dive, "--dive", 1, static_cast<int>(dives.size()))) - 1;
  if (!edits.addDive.empty()) {
    AddDive(edits.addDive, dives);
    number = dives.size() - 1;
  }
  if (edits.removeDive) {
    RemoveDive(number, dives);
  } else {
    DiveRecord& dive = dives[number];
    const bool needsLegs = HasLegs(dive.UserActions) || !edits.addDive.empty();
    if (!edits.interval.empty()) {
      if (number == 0) throw OptionError({Text::SurfaceTimeOfFirst, {"--interval"}});
      dive.SurfaceInterval = NumberOf(edits.interval, "--interval", 0, kMaximumSurfaceInterval);
    }
    EditSettings(edits, dive);
    EditGases(edits, dive);
    EditCylinders(edits, dive.Template);
    EditLegs(edits, dive);
    ResolveGasChanges(dive.Template);
    if (needsLegs && !HasLegs(dive.UserActions)) throw OptionError(Text::NoLegs);
  }
  CheckReads(dives);
}

}  // namespace tav
