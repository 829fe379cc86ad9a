#include "cli/computed_dive.h"
#include "cli/option_values.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "persist/profile_file.h"
#include "persist/text_file.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Makes a plan from legs on the settings of a template, computes its ascent and prints it as plan does; with -o it "
    "is "
    "saved as a profile file as well. Times are the minutes of a leg, the move to its depth included.\n"
    "A gas that is not in the template is made from its name: EAN36, Tx15/60, H85, in any case of letters.\n"
    "A cylinder is GAS:COUNT/LITRES/FILL/RESERVE with pressures in bar, or GAS:COUNT/CUBIC FEET/RATED "
    "PRESSURE/FILL/RESERVE with pressures in psi.\n"
    "A template is read over the program's own values; what it does not tell is named on standard error.";

constexpr const char* kExamples = R"(
  tavplan new --depth 30 --time 25
  tavplan new --depth 54 --time 25 --gas Tx18/45 -o wreck.tav
  tavplan new --gas EAN32 --leg 30:15 --leg 18:20
  tavplan new --depth 100 --time 30 --template Imperial
  tavplan new --depth 30 --time 25 --cylinder Air:2/12/200/50 --cylinder EAN50:1/7/200/20
)";

struct Given {
  std::string depth, time;
  std::vector<std::string> legs;  ///< DEPTH:TIME or DEPTH:TIME@GAS
  std::string gas;
  std::string templateName;
  std::vector<std::string> cylinders;
  std::string output;
  bool why = false;
};

void AddLeg(const std::string& text, const std::string& gas, DiveRecord& plan) {
  TypedLeg leg = LegOf(text, "--leg");
  if (leg.gas.empty()) leg.gas = gas.empty() ? "Air" : gas;
  const std::int16_t mix = MixNumber(leg.gas, plan.Template);
  const Message fault = LegFault(leg.time, leg.depth, mix, plan.Template);
  if (!fault.IsEmpty()) throw OptionError(fault);
  plan.UserActions.AddLeg(leg.time, leg.depth, mix);
}

void Run(const Given& given, CommandFrame& frame) {
  if (given.legs.empty() && given.depth.empty()) throw OptionError(Text::UsageNoLegs);
  DiveRecord record;
  record.Template = frame.Settings(given.templateName);
  SetUpNewPlan(record.Template);
  if (!given.depth.empty()) {
    NumberOf(given.depth, "--depth");
    NumberOf(given.time, "--time");
    AddLeg(given.depth + ":" + given.time, given.gas, record);
  }
  for (const std::string& leg : given.legs) AddLeg(leg, given.gas, record);
  if (!given.cylinders.empty()) record.Template.Cylinders.clear();
  for (const std::string& text : given.cylinders) {
    Cylinder cylinder = CylinderOf(text, record.Template);
    record.Template.Cylinders.push_back(std::move(cylinder));
  }
  record.UserActions.AddAscent();
  frame.Common().supply.On(record.Template);

  const OutputForm form = frame.Common().Form();
  // What programs read is English in every language; CSV has no words of a dive, they go to the user.
  const TextSource& titleTexts = form == OutputForm::Text ? frame.Texts() : frame.DataTexts();
  const TextSource& words = form == OutputForm::Json ? frame.DataTexts() : frame.Texts();
  std::vector<ComputedDive> dives;
  const std::string title = given.output.empty() ? titleTexts.GetResString(Text::NewPlan) : given.output;
  const OpenedPlan& plan = frame.Compute(title, {record});
  Gather(frame, plan, words, dives);
  if (!given.output.empty()) {
    frame.Save(given.output, [&] {
      return WriteTextFile(given.output, WriteDiveRecord(record.Template, record.SurfaceInterval, record.UserActions));
    });
  }
  Print(frame, dives, given.why, words);
}

}  // namespace

Command NewCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"new", "Make a plan with its ascent and print it", kDetails, kExamples};
  using Role = Option::Role;
  command.options = {
      {"--depth", "DEPTH", "Depth of a square dive, in the units of the template", &given->depth, false, Role::Value,
       "", "", "--time"},
      {"--time", "MINUTES", "Minutes from leaving the surface to leaving that depth", &given->time, false, Role::Value,
       "", "", "--depth"},
      {"--leg",
       "DEPTH:TIME[@GAS]",
       "A leg of a multi-level dive, in place of --depth; may be given several times",
       &given->legs,
       false,
       Role::Value,
       "",
       "",
       "",
       {"--depth"}},
      {"--gas", "NAME", "Gas of the legs that name none; Air if not given", &given->gas},
      TemplateOption(given->templateName),
      {"--cylinder", "GAS:COUNT/SIZE/FILL/RESERVE",
       "Cylinders of a gas, in place of those of the template; may be given several times", &given->cylinders},
      OutputOption(given->output, false),
  };
  command.AddRows(given->why);
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
