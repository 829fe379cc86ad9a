#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "engine/model_choice.h"
#include "model/dive_template.h"

namespace tav {

class CommandFrame;

/// What a command can be told: a row of its table. The parser, the help, the completion of the shell and the manual
/// page are all made of these rows.
struct Option {
  /// Where it goes: a switch into a bool, a value into a text, what may be given several times into a list; or to a
  /// function, which throws OptionError for a value that it can't use.
  using Place = std::variant<bool*, std::string*, std::vector<std::string>*, std::function<void(const std::string&)>>;
  /// What the value names. The frame never lets a command write over a file that it reads.
  /// One that it is there to change is read as well, and an output may be that file.
  enum class Role { Value, FileToRead, FileToWrite, FileToChange, Template };

  std::string name = {};   ///< "--pdf"; "FILE" for what stands without a name
  std::string value = {};  ///< what its value is called; empty for a switch, and for what stands without a name
  std::string text = {};
  Place place = {};
  bool required = false;
  Role role = Role::Value;
  std::string offers = {};                 ///< of a file the extensions, parted by "|"; else the words for a value
  std::string shortName = {};              ///< "-o"
  std::string needs = {};                  ///< another option that must be given with it
  std::vector<std::string> excludes = {};  ///< others that must not be

  [[nodiscard]] bool HasName() const { return name.starts_with('-'); }
  [[nodiscard]] bool TakesValue() const { return !std::holds_alternative<bool*>(place); }
  [[nodiscard]] bool IsList() const { return std::holds_alternative<std::vector<std::string>*>(place); }
};

enum class OutputForm { Text, Json, Csv };

/// How the gas for the worst is to be reckoned, in place of what a plan tells.
struct SupplyWish {
  std::optional<int> team = {};
  std::optional<Single> stress = {};
  std::optional<Single> minutes = {};
  std::optional<TurnRule> rule = {};

  void On(DiveTemplate& diveTemplate) const;
};

/// What has one name and one meaning in all commands that take it.
struct CommonOptions {
  bool json = false;
  bool shown = false;  ///< JSON has what the text output shows, too
  bool csv = false;
  bool phi = false;      ///< write the loads after each segment to phi.log
  bool moments = false;  ///< tell beside each row what leaving then would take
  std::string language;  ///< code of the language of all words; empty for that of the user, and English in data
  ModelChoice model;
  SupplyWish supply;

  [[nodiscard]] OutputForm Form() const { return json ? OutputForm::Json : csv ? OutputForm::Csv : OutputForm::Text; }
};

/// A command of tavplan. Each has a source of its own, which says all that is told of it and does its work.
struct Command {
  std::string name = {};
  std::string about = {};    ///< a line
  std::string details = {};  ///< paragraphs that say what else there is to know
  std::string examples = {};
  std::vector<Option> options = {};
  /// Works in the frame, which tells what it throws.
  std::function<void(CommandFrame&)> run = {};
  std::shared_ptr<CommonOptions> common = std::make_shared<CommonOptions>();

  /// Options of one meaning in all commands.
  void AddJson(const std::string& text, const std::vector<std::string>& excludes = {});
  /// All that the commands take which print rows.
  void AddRows(bool& why);
  void AddModel();
  void AddSupply();
  void AddLanguage();
};

/// Of all commands; its value counts for errors in the words ahead of it, too.
constexpr const char* kLanguageOption = "--language";

/// Options of one meaning, whose values have different places.
Option PlanFile(std::string& place);
Option TemplateOption(std::string& place);
Option OutputOption(std::string& place, bool required);
Option PdfOption(std::string& place, const std::string& text, bool required = false);
Option DiveOption(std::string& place, const std::string& without);

/// All of them, in the order of the help.
std::vector<Command> TavplanCommands();

Command PlanCommand();
Command NewCommand();
Command EditCommand();
Command ReportCommand();
Command GraphCommand();
Command BailoutCommand();
Command WhatIfCommand();
Command CompareCommand();
Command MarginsCommand();
Command LongestCommand();
Command TablesCommand();
Command CheckCommand();
Command MixCommand();
Command ExportCommand();
Command ImportCommand();
Command TextsCommand();

}  // namespace tav
