#include "cli/command.h"

#include "cli/option_values.h"
#include "model/text_id.h"

namespace tav {
namespace {

TurnRule TurnRuleOf(const std::string& text) {
  if (const auto rule = TurnRuleNamed(text)) return *rule;
  throw OptionError({Text::UsageNoneOf, {"--turn", text, "all, half, thirds"}});
}

}  // namespace

void SupplyWish::On(DiveTemplate& diveTemplate) const {
  if (!team && !stress && !minutes && !rule) return;
  SupplyChoice choice = SupplyChoiceOf(diveTemplate);
  choice.team = team.value_or(choice.team);
  choice.stress = stress.value_or(choice.stress);
  choice.minutes = minutes.value_or(choice.minutes);
  choice.rule = rule.value_or(choice.rule);
  diveTemplate.Team = choice;
}

void Command::AddJson(const std::string& text, const std::vector<std::string>& excludes) {
  options.push_back({.name = "--json", .text = text, .place = &common->json, .excludes = excludes});
  options.push_back({.name = "--shown",
                     .text = "In --json also tell what the text output shows, piece by piece, in your language",
                     .place = &common->shown,
                     .needs = "--json"});
}

void Command::AddRows(bool& why) {
  AddJson("Print every row of each dive as JSON", {"--csv"});
  options.push_back({"--csv", "", "Print every row of each dive as CSV, with a header", &common->csv});
  AddModel();
  options.push_back({"--why", "", "Tell for each stop which compartment decides how long it lasts", &why});
  options.push_back({"--moments", "",
                     "Tell beside each row what leaving the dive then would take: minutes to the surface and gas",
                     &common->moments});
  options.push_back({"--phi", "",
                     "Write the loads after each segment to phi.log in the current folder, over an older one",
                     &common->phi});
  AddSupply();
}

void Command::AddModel() {
  ModelChoice& model = common->model;
  options.push_back({"--vpm", "", "Take the ceiling of the bubble model (VPM)", &model.VPMMode});
  options.back().excludes = {"--hybrid", "--zhl16c"};
  options.push_back({"--hybrid", "", "Take the deeper of the ceilings of ZH-L16 and VPM", &model.HybridMode});
  options.push_back(
      {"--zhl16c", "", "Take the C coefficients of ZH-L16 in place of B, in the hybrid, too", &model.ZHL16C});
}

void Command::AddSupply() {
  SupplyWish& supply = common->supply;
  const auto add = [this](const char* option, const char* value, const char* text, auto take, const char* offers = "") {
    options.push_back({option, value, text, take, false, Option::Role::Value, offers});
  };
  add("--team", "1-9", "Divers that the gas for the worst must bring up, in place of what the plan tells",
      [&supply](const std::string& text) { supply.team = WholeNumberOf(text, "--team", 1, kLargestTeam); });
  add("--stress", "1-10", "Factor on the RMV for it",
      [&supply](const std::string& text) { supply.stress = NumberOf(text, "--stress", 1, kLargestStress); });
  add("--sort-out", "0-30", "Minutes at depth before the way up",
      [&supply](const std::string& text) { supply.minutes = NumberOf(text, "--sort-out", 0, kLongestSortingOut); });
  add(
      "--turn", "all|half|thirds", "How much of the gas above the minimum is breathed before turning",
      [&supply](const std::string& text) { supply.rule = TurnRuleOf(text); }, "all half thirds");
}

void Command::AddLanguage() {
  options.push_back(
      {kLanguageOption, "CODE",
       "Language of texts, errors and words in JSON, such as de; the user's if not given, JSON in English",
       &common->language, false, Option::Role::Value, "de es fr it nl uk"});
}

Option PlanFile(std::string& place) {
  return {"FILE", "", "Profile file (.tav)", &place, true, Option::Role::FileToRead, "tav"};
}

Option OutputOption(std::string& place, bool required) {
  return {"--output", "FILE", "Profile file to write, over an older one", &place, required, Option::Role::FileToWrite,
          "tav",      "-o"};
}

Option TemplateOption(std::string& place) {
  return {"--template",
          "TEMPLATE",
          "Template file, or the name of one in the template folder; the default one if not given",
          &place,
          false,
          Option::Role::Template,
          "tpl"};
}

Option PdfOption(std::string& place, const std::string& text, bool required) {
  return {"--pdf", "OUT", text, &place, required, Option::Role::FileToWrite, "pdf"};
}

Option DiveOption(std::string& place, const std::string& without) {
  return {"--dive", "N", "One dive of a series, from 1; " + without + " if not given", &place};
}

std::vector<Command> TavplanCommands() {
  std::vector<Command> commands{PlanCommand(),    NewCommand(),     EditCommand(),   ReportCommand(),
                                GraphCommand(),   BailoutCommand(), WhatIfCommand(), CompareCommand(),
                                MarginsCommand(), LongestCommand(), TablesCommand(), CheckCommand(),
                                MixCommand(),     ExportCommand(),  ImportCommand(), TextsCommand()};
  for (Command& command : commands) command.AddLanguage();
  return commands;
}

}  // namespace tav
