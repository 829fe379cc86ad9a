#include <limits>

#include "cli/command_frame.h"
#include "cli/option_values.h"
#include "exchange/import.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Makes a profile file. A plan that was exported comes back as it was, unless the depths beside it in the file have "
    "changed: then those count, as in a log. A dive that was logged becomes legs, on the settings of a template "
    "(gradient "
    "factors, rates, the diver's adaptation to altitude), and the ascent. The legs keep within a metre of its samples "
    "where the rates can follow them; how far they stray is told. Its gases are those of the template where the shares "
    "are the same, else they are added; a gas that does not tell its oxygen is refused; several dives become a series. "
    "What was simplified or assumed is told on standard error.\n"
    "A file whose name ends in .csv holds waypoints: depth, minutes of the leg with its move, and gas in each line, "
    "separated by commas, semicolons or tabs, a heading and quotes round a cell allowed; depths are in the units of "
    "the "
    "template. A line without a gas takes that of the line before, and further columns are passed over; both are told.";

constexpr const char* kExamples = R"(
  tavplan import series.uddf -o series.tav   a plan that was exported, as it was
  tavplan import log.uddf -o log.tav --dive 12 --template Imperial
  tavplan import legs.csv -o legs.tav        depth,minutes,gas in each line
)";

struct Given {
  std::string file;
  std::string output;
  std::string templateName;
  int dive = 0;  ///< 0 for all
};

void Run(const Given& given, CommandFrame& frame) {
  const DiveTemplate settings = frame.Settings(given.templateName);
  const ImportedDives imported = ImportFile(given.file, settings, given.dive, frame.Texts());
  frame.Save(given.output, [&] { return WriteTextFile(given.output, WriteProfileText(imported.profile.dives)); });
  for (const std::string& remark : imported.remarks) frame.Tell(given.file, remark);
}

}  // namespace

Command ImportCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"import", "Make a plan of a dive log (UDDF) or of waypoints (CSV)", kDetails, kExamples};
  command.options = {
      {"LOG", "", "UDDF, or CSV where the file's name ends in .csv", &given->file, true, Option::Role::FileToRead,
       "uddf|xml|csv"},
      OutputOption(given->output, true),
      TemplateOption(given->templateName),
      {"--dive", "N", "One dive of the log, from 1; all, as a series, if not given",
       [given = given.get()](const std::string& text) {
         given->dive = WholeNumberOf(text, "--dive", 1, std::numeric_limits<std::int16_t>::max());
       }},
  };
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
