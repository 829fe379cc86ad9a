#include <ostream>
#include <sstream>

#include "cli/command_frame.h"
#include "cli/option_values.h"
#include "cli/table_output.h"
#include "compute/square_dives.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr double kLargestStep = 1000;  // a step beyond it is one of a single dive

constexpr const char* kDetails =
    "Prints deco tables: for each depth one table of square dives, a column for each bottom time, on the settings of a "
    "template; all in all at most 10,000 dives. Without --descent-counts the diver is on the bottom at once and stays "
    "for "
    "the whole time. Tables are read as those of bailout.";

constexpr const char* kExamples = R"(
  tavplan tables --gas Air --depths 9:30:3 --times 5:45:5
  tavplan tables --gas EAN32 --depths 60:100:10 --times 10:60:10 --template Imperial
)";

struct Given {
  std::string templateName;
  std::string gas;
  std::string depths;
  std::string times;
  std::string pdf;
  bool descentCounts = false;
  std::string without;
};

struct Axis {
  Single from, to, step;
};

/// "FROM:TO:STEP" in whole numbers; what has decimals is rounded, and `told`.
Axis AxisOf(const std::string& text, const std::string& option, const TextSource& texts, std::ostream& told) {
  const std::size_t first = text.find(':');
  const std::size_t second = first == std::string::npos ? first : text.find(':', first + 1);
  if (second == std::string::npos) throw OptionError({Text::OptionMustBe, {option, text, "FROM:TO:STEP"}});
  const auto number = [&](std::size_t from, std::size_t to) {
    const Single value = NumberOf(text.substr(from, to - from), option);
    const Single whole = RoundSingle(value, 0);
    if (whole != value) {
      told << "tavplan tables: " << texts.Filled(Text::TablesRounded, {option, FormatPlain(value), FormatPlain(whole)})
           << "\n";
    }
    return whole;
  };
  const std::string step = text.substr(second + 1);
  const Single asked = NumberOf(step, option);
  if (asked > 0 && asked < 0.5)
    throw OptionError({Text::UsageNotWhole, {option, step, "1", FormatPlain(kLargestStep)}});
  return {number(0, first), number(first + 1, second), number(second + 1, text.size())};
}

/// Takes gases, "EAN50,Oxygen", from the deco gases.
void LeaveOut(const std::string& names, DiveTemplate& settings) {
  std::string known;
  for (const GasChange& change : settings.ChangeGasMixes) known += (known.empty() ? "" : ", ") + change.Name;
  std::istringstream list(names);
  for (std::string listed; std::getline(list, listed, ',');) {
    const std::string name(TrimBlanks(listed));
    if (std::erase_if(settings.ChangeGasMixes, [&](const GasChange& change) { return change.Name == name; }) == 0) {
      throw OptionError({Text::OptionMustBe, {"--without", name, known}});
    }
  }
}

void Run(const Given& given, CommandFrame& frame) {
  const TextSource& texts = frame.Texts();
  DiveTemplate settings = frame.Settings(given.templateName);
  const std::int16_t mix = MixNumber(given.gas, settings);
  LeaveOut(given.without, settings);
  std::ostringstream rounded;
  const Axis depths = AxisOf(given.depths, "--depths", texts, rounded);
  const Axis times = AxisOf(given.times, "--times", texts, rounded);
  const TableAxes axes{depths.from, depths.to, depths.step, times.from, times.to, times.step};
  const AxesFault axesFault = FindAxesFault(axes);
  if (axesFault != AxesFault::None) throw OptionError(TextOf(axesFault));
  SquareDives dives(settings, frame.Model(), {mix, !given.descentCounts, axes}, frame.Observer());
  if (!dives.Fault().IsEmpty()) throw OptionError(dives.Fault());
  frame.Err() << rounded.str();

  const std::string title = texts.Filled(Text::TablesHeading, {given.gas});
  std::vector<std::string> heading{title};
  if (!given.without.empty()) heading.push_back(texts.Filled(Text::TablesWithout, {given.without}));
  heading.push_back(texts.GetResString(given.descentCounts ? Text::TablesDescentCounts : Text::TablesDescentLeftOut));
  heading.push_back(SettingsOfTables(settings, frame.Model(), false, texts));
  TableOutput output(frame, given.pdf, "");
  output.Write({[&](JsonWriter& json) { json.Member("gas", given.gas); }, "tables", heading, title}, [&] {
    while (const auto table = dives.Next(output.Progress())) {
      const Single depth = table->dives.back().depth;
      output.Print(
          *table, [&](JsonWriter& json) { json.Member("depth", depth); },
          FormatPlain(depth) + (settings.Metric ? " m" : " ft"));
    }
  });
}

}  // namespace

Command TablesCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"tables", "Print deco tables for depths and bottom times on one gas", kDetails, kExamples};
  command.options = {
      TemplateOption(given->templateName),
      {"--gas", "NAME", "Gas of the dives, of the template or made from its name", &given->gas, true},
      {"--depths", "FROM:TO:STEP", "Depths in the units of the template, whole numbers", &given->depths, true},
      {"--times", "FROM:TO:STEP", "Bottom times in whole minutes", &given->times, true},
      {"--descent-counts", "", "Bottom times count from leaving the surface", &given->descentCounts},
      {"--without", "GAS,...", "Deco gases of the template that are left out", &given->without},
      PdfOption(given->pdf, "Write the tables, with cut marks, to this file, and no text"),
  };
  command.AddJson("Print the tables, and every row of every dive, as JSON");
  command.AddModel();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
