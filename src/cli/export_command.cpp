#include <chrono>

#include "cli/command_frame.h"
#include "exchange/uddf_export.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Writes a plan, all dives or one, as UDDF 3.2 for a dive log: gases, cylinders, a sample at the end of every row, "
    "gas "
    "switches, setpoints and stops. The plan itself is in the file, too. A later dive of a series that is written "
    "alone "
    "keeps the schedule that was computed with the dives before it, but its plan comes back without their loads; that "
    "is "
    "told on standard error.";

constexpr const char* kExamples = R"(
  tavplan export dives/lake-series.tav --uddf series.uddf
  tavplan export dives/lake-series.tav --uddf second.uddf --dive 2
)";

struct Given {
  std::string file;
  std::string uddf;
  std::string dive;
};

void Run(const Given& given, CommandFrame& frame) {
  const OpenedPlan& plan = frame.OpenPlan(given.file);
  const auto chosen = CommandFrame::Dives(given.dive, plan);
  std::vector<PlannedDive> dives;
  for (const std::size_t dive : chosen) {
    frame.CheckComputed(plan, dive);
    dives.push_back(plan.Planned(dive));
  }
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  frame.Save(given.uddf, [&] { return WriteTextFile(given.uddf, WriteUddf(dives, {TAV_VERSION, now})); });
  if (chosen.front() != 0) {
    frame.Tell(given.file, frame.Texts().Filled(Text::ExportWithoutLoads, {std::to_string(chosen.front() + 1)}));
  }
}

}  // namespace

Command ExportCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"export", "Write a plan as UDDF, for a dive log", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      {"--uddf", "OUT", "The file to write", &given->uddf, true, Option::Role::FileToWrite, "uddf"},
      DiveOption(given->dive, "all"),
  };
  command.AddModel();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
