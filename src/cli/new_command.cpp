#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_output.h"
#include "model/template_faults.h"
#include "persist/cylinder_line.h"
#include "start/user_texts.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kMustBe = 7959;
constexpr int kNewPlan = 7988;

constexpr int kCylinder = 7991;  // text by number

void AddLeg(const std::string& text, const std::string& gas, DiveTemplate& diveTemplate, frmWaypointEditor& window) {
  const std::size_t at = text.find('@');
  const std::string place = text.substr(0, at);
  const std::string gasOfLeg = at == std::string::npos ? gas : text.substr(at + 1);
  const std::size_t colon = place.find(':');
  if (colon == std::string::npos) throw OptionError({kMustBe, {"--leg", text, "DEPTH:TIME, DEPTH:TIME@GAS"}});
  const Single depth = NumberOf(place.substr(0, colon), "--depth");
  const Single time = NumberOf(place.substr(colon + 1), "--time");
  const std::int16_t mix = MixNumber(gasOfLeg.empty() ? "Air" : gasOfLeg, diveTemplate);
  const Message fault = LegFault(time, depth, mix, diveTemplate);
  if (!fault.IsEmpty()) throw OptionError(fault);
  window.SaveUserEnteredWaypoints(time, depth, mix, false);
}

void AddCylinder(const std::string& text, DiveTemplate& diveTemplate) {
  Cylinder& cylinder = diveTemplate.Cylinders.emplace_back();
  const Message fault = ReadCylinderLine(text.ends_with('/') ? text : text + "/", cylinder);
  if (!fault.IsEmpty()) throw OptionError({kCylinder, {text, fault}});
  MixNumber(cylinder.Gas, diveTemplate);
}

}  // namespace

int NewCommand(const NewPlanOptions& plan, const OutputOptions& options, const ProgramFolders& folders,
               std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  // What programs read is English in every language.
  const LazyTexts words(folders.ProgramFolder(),
                        options.form == OutputForm::Slate ? LazyTexts::Language::User : LazyTexts::Language::Default);
  PlanSession session(texts);
  std::string title = plan.output.empty() ? words.GetResString(kNewPlan) : plan.output;
  try {
    ApplyOptions(options, session);
    StartSettings(session.Documents(), plan.templateName, folders, texts, err);
    const std::int16_t number = session.Forms().LoadNewDoc();
    frmWaypointEditor& window = session.Forms()(number);
    for (const std::string& leg : plan.legs) AddLeg(leg, plan.gas, session.Documents()(number).Template, window);
    DiveTemplate& settings = session.Documents()(number).Template;
    if (!plan.cylinders.empty()) settings.Cylinders.clear();
    for (const std::string& cylinder : plan.cylinders) AddCylinder(cylinder, settings);
    window.SaveUserEnteredWaypoints(-1, -1, window.UserActions.getmixnumber(window.UserActions.GetLength()), true);
    window.ReEvaluateUserEnteredWaypoints();
    std::vector<ComputedDive> dives;
    // CSV has no words of a dive, they go to the user.
    const TextSource& told = options.form == OutputForm::Csv ? texts : words;
    if (!Gather(session, title, {number}, options, told, dives, err)) return ExitStatus::kUnusableInput;
    if (!plan.output.empty()) TellNotes(plan.output, SaveProfile(session.Forms(), number, plan.output), texts, err);
    return Print(dives, options, told, out, err);
  } catch (const std::exception& error) {
    return Refused(error, "new", texts, err);
  }
}

}  // namespace tav
