#include "cli/computed_dive.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints the slate of each dive of profile files: settings, legs and stops with run time, gas and PPO2, and the "
    "totals. The dives of a series follow one another on their surface intervals.\n"
    "--json always tells why each stop lasts. Where the plan tells its cylinders, the gas supply is printed after the "
    "totals, and --json has it as \"gas_supply\", which is null otherwise. The minimum gas at the end of a leg is team "
    "x "
    "stress x RMV x (minutes at depth + the way up from there on open circuit until the next gas or the surface), in "
    "volumes of an ideal gas at surface pressure; the turn pressure is start - (start - the larger of minimum gas and "
    "reserve) x share, with a share of 1, 1/2 or 1/3. Lines of cylinders of one gas are breathed one\n"
    "after the other down to their reserves, then the reserves in the same order: pressures are told\n"
    "for each, and JSON has them as \"turn_pressures\" beside that of the breathed one.\n"
    "--moments tells for the end of each row what leaving the dive then would take: the minutes to the surface, and "
    "the "
    "gas that the way up breathes on open circuit with all gases, at the RMV of the plan without stress; on a "
    "rebreather also the minutes on the loop. Each way is the ascent of the plan cut there. JSON has it in each row as "
    "\"surfacing\": {\"open\": {\"time\", \"gas\": [{\"mix\", \"volume\"}]}, \"loop\": {\"time\"}}; \"open\" is null "
    "where a "
    "stop never clears, \"loop\" then, too, and off the loop.\n"
    "--shown gives the JSON of any command a member \"shown\", in plan and new each dive: a list of {\"heading\"}, "
    "{\"text\", \"severity\"} and {\"table\": {\"id\", \"heads\", \"rows\": [{\"kind\", \"cells\", \"marks\"}]}}, "
    "rounded and worded as the text output.";

constexpr const char* kExamples = R"(
  tavplan plan dives/wreck.tav               the slate of each dive
  tavplan plan --json a.tav b.tav            every row of both files, for a script
  tavplan plan --csv a.tav > rows.csv        the same for a spreadsheet
  tavplan plan --hybrid a.tav                with the deeper of both ceilings
  tavplan plan --why a.tav                   what each stop waits for
  tavplan plan --moments a.tav               beside each row minutes and gas to the surface
  tavplan plan --team 3 --turn thirds a.tav  the gas supply, where the plan tells its cylinders
)";

struct Given {
  std::vector<std::string> files;
  bool why = false;
};

void Run(const Given& given, CommandFrame& frame) {
  // What programs read is English in every language; CSV has no words of a dive, they go to the user.
  const TextSource& words = frame.Common().json ? frame.DataTexts() : frame.Texts();
  std::vector<ComputedDive> dives;
  for (const std::string& file : given.files) {
    try {
      Gather(frame, frame.OpenPlan(file), words, dives);
    } catch (const std::exception& error) {
      frame.Tell(error);  // the other files are printed
    }
  }
  if (!dives.empty()) Print(frame, dives, given.why, words);
}

}  // namespace

Command PlanCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"plan", "Print the schedule of each dive of profile files", kDetails, kExamples};
  command.options = {{"FILE", "", "Profile files (.tav)", &given->files, true, Option::Role::FileToRead, "tav"}};
  command.AddRows(given->why);
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
