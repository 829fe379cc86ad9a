#include <ostream>

#include "cli/command_frame.h"
#include "cli/json_writer.h"
#include "cli/option_values.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "start/language_table.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints the texts of the program as JSON: {\"language\", \"texts\": {\"NUMBER\": \"...\"}}, all of them if no "
    "number "
    "is given, in the language of --language or of the user. %1 to %9 stand for values, & is ahead of the letter that "
    "a "
    "menu is reached by.";

constexpr const char* kExamples = R"(
  tavplan texts --language de            all texts in German
  tavplan texts 7603 7604
  tavplan texts --languages              {"languages": [{"code", "name"}, ...]}
)";

struct Given {
  std::vector<std::string> numbers;
  bool languages = false;
};

void WriteLanguages(const std::filesystem::path& programFolder, std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.List("languages", [&] {
      for (const std::string& code : LanguageCodes(programFolder)) {
        const auto table = LanguageTable::Read(programFolder / kLanguageFolder / TableOfCode(code));
        json.Object([&] {
          json.Member("code", code);
          json.Member("name", table.GetResString(Text::LanguageName));
        });
      }
    });
  });
  out << "\n";
}

void Run(const Given& given, CommandFrame& frame) {
  const auto& programFolder = frame.Folders().ProgramFolder();
  if (given.languages) {
    if (!given.numbers.empty()) throw UsageError({Text::UsageNotExpected, {given.numbers.front()}});
    return WriteLanguages(programFolder, frame.Out());
  }
  const std::string name = TableOfUser(programFolder, frame.Common().language);
  const auto table = LanguageTable::Read(programFolder / kLanguageFolder / name);
  std::vector<int> numbers;
  for (const std::string& text : given.numbers) {
    const auto number = ParseStrict(text);
    const int id = number && *number > 0 && *number < INT16_MAX ? static_cast<int>(*number) : 0;
    if (!table.Has(id) || *number != id) throw OptionError({Text::TextsNoNumber, {text}});
    numbers.push_back(id);
  }
  JsonWriter json(frame.Out());
  json.Object([&] {
    json.Member("language", CodeOfTable(name));
    json.Object("texts", [&] {
      for (const int id : numbers.empty() ? table.Numbers() : numbers)
        json.Member(std::to_string(id), table.GetResString(id));
    });
  });
  frame.Out() << "\n";
}

}  // namespace

Command TextsCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"texts", "Print the texts of the program in a language", kDetails, kExamples};
  command.options = {
      {"NUMBER", "", "Numbers of texts; all if not given", &given->numbers},
      {"--languages", "", "Print the languages that there are, in place of texts", &given->languages},
  };
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
