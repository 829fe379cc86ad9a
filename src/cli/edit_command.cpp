#include <algorithm>
#include <sstream>

#include "cli/command_frame.h"
#include "cli/plan_edits.h"
#include "cli/plan_json.h"
#include "persist/profile_file.h"
#include "persist/text_file.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Changes a plan in a file and saves it with -o, also over the same file; without -o nothing is saved. What can't "
    "be "
    "planned on is refused as a whole. FILE stands first, as options may take several values; those of settings, "
    "gases, "
    "cylinders and legs may also be given several times.\n"
    "Changes are made in the order of this list, whatever their order on the line. Legs have the numbers of their "
    "actions before the change, as --json tells them; ascents count, too.\n"
    "The values of --set stand for all lines of their key; an empty one of \"# NAME=\" takes these lines away. Numbers "
    "are not converted when Metric changes.\n"
    "PART is one of count, size, rated, fill, reserve, gas; cylinders have their numbers from before the change.\n"
    "The new dive of --add-dive has the settings, gases and cylinders of the last one and ends with its ascent; it "
    "needs a leg in the same call.";

constexpr const char* kExamples = R"(
  tavplan edit a.tav --json                                 what can be changed
  tavplan edit a.tav --set LastStop=6 --set GF=1,.8,.3 -o a.tav
  tavplan edit a.tav --leg 2=48:25 --add-leg 21:5@EAN50 -o b.tav
  tavplan edit a.tav --change 6:Oxygen --change 21:EAN50 --cylinder EAN50:1/7/200/20 -o a.tav
  tavplan edit a.tav --add-dive 90 --add-leg 18:40 -o a.tav
)";

struct Given {
  std::string file;
  std::string output;
  PlanEdits edits;
};

void Run(const Given& given, CommandFrame& frame) {
  std::vector<FormatFault> odd;
  std::vector<DiveRecord> dives = CommandFrame::ReadPlan(given.file, odd);
  Edit(given.edits, dives);
  std::ostringstream json;
  if (frame.Common().json) WritePlanJson(given.output.empty() ? given.file : given.output, dives, json);
  if (!given.output.empty()) {
    frame.Save(given.output, [&] { return WriteTextFile(given.output, WriteProfileText(dives)); });
  }
  // What is refused has been refused by now.
  frame.TellFaults(given.file, odd);
  frame.Out() << json.str();
}

}  // namespace

Command EditCommand() {
  const auto given = std::make_shared<Given>();
  PlanEdits& edits = given->edits;
  Command command{"edit", "Change a plan: settings, gases, cylinders, legs and dives", kDetails, kExamples};
  command.options = {
      {"--dive", "N", "The dive that is changed, from 1; the last if not given", &edits.dive},
      {"--add-dive", "MINUTES", "Add a dive behind the last, after that surface interval, and change it",
       &edits.addDive},
      {"--remove-dive", "", "Take the dive away", &edits.removeDive},
      {"--interval", "MINUTES", "Surface interval ahead of the dive", &edits.interval},
      {"--circuit", "CIRCUIT", "Circuit of the dive, open or closed, with the usual team of divers on it",
       &edits.circuit},
      {"--set", "LINE", "A setting as it stands in the file, KEY=VALUE or \"# NAME=VALUE\"", &edits.settings},
      {"--altitude", "ALTITUDE", "Altitude of the dive, with the surface pressure that it usually has",
       &edits.altitude},
      {"--end-altitude", "ALTITUDE", "Altitude that the ascent returns to, with its surface pressure",
       &edits.endAltitude},
      {"--gas", "NAME[:O2/HE]", "Add a gas, or give that of the name these percentages", &edits.gases},
      {"--rename-gas", "OLD=NEW", "Give a gas another name, in gas changes and cylinders, too", &edits.renamedGases},
      {"--remove-gas", "NAME", "Take a gas away that nothing breathes", &edits.removedGases},
      {"--change", "DEPTH:GAS", "Gas of the way up from a depth on, in place of all changes; the shallower goes first",
       &edits.changes},
      {"--no-changes", "", "Take all gas changes away", &edits.noChanges},
      {"--not-from", "GAS", "Leave a gas out on the way up", &edits.endedChanges},
      {"--from", "GAS=DEPTH", "Depth from which a gas is breathed on the way up; other changes stay as they are",
       &edits.depths},
      {"--cylinder", "GAS:COUNT/SIZE/FILL/RESERVE", "Cylinders of a gas, in place of all cylinders", &edits.cylinders},
      {"--no-cylinders", "", "Take all cylinders away", &edits.noCylinders},
      {"--alter-cylinder", "N:PART=VALUE", "A number or the gas of cylinder N, counted from 1", &edits.cylinderParts},
      {"--remove-cylinder", "N", "Take cylinder N away", &edits.removedCylinders},
      {"--add-cylinder", "GAS", "A usual cylinder of a gas, in the units of the plan", &edits.addedCylinders},
      {"--remove-leg", "N", "Take a leg away, or an ascent that is not the last action", &edits.removedLegs},
      {"--leg", "N=DEPTH:TIME[@GAS]", "Give leg N other values; it keeps its gas if none is told", &edits.legs},
      {"--insert-leg", "N=DEPTH:TIME[@GAS]", "A new leg ahead of leg N; on the gas of the leg before if none is told",
       &edits.insertedLegs},
      {"--add-leg", "DEPTH:TIME[@GAS]", "A new leg behind the last, ahead of the final ascent", &edits.addedLegs},
      {"--move-leg", "N=M", "Move leg N to the place of leg M, or of an ascent that is not the last action",
       &edits.movedLegs},
  };
  const auto exclude = [&](const std::string& name, std::vector<std::string> others) {
    std::ranges::find(command.options, name, &Option::name)->excludes = std::move(others);
  };
  std::vector<std::string> others;
  for (const Option& option : command.options) {
    if (option.name != "--dive" && option.name != "--remove-dive") others.push_back(option.name);
  }
  exclude("--remove-dive", others);
  exclude("--add-dive", {"--dive", "--interval"});
  exclude("--no-changes", {"--change"});
  exclude("--no-cylinders", {"--cylinder"});
  for (const char* numbered : {"--alter-cylinder", "--remove-cylinder"}) {
    exclude(numbered, {"--cylinder", "--no-cylinders"});
  }
  std::ranges::find(command.options, "--circuit", &Option::name)->offers =
      std::string(kOpenCircuit) + " " + kClosedCircuit;

  Option file = PlanFile(given->file);
  file.role = Option::Role::FileToChange;
  command.options.insert(command.options.begin(), file);
  command.options.push_back(OutputOption(given->output, false));
  command.AddJson("Print what can be changed of the plan, as it is then, as JSON");
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
