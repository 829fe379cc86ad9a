#include "cli/command.h"

#include "cli/option_values.h"

namespace tav {
namespace {

TurnRule TurnRuleOf(const std::string& text) {
  if (text == "all") return TurnRule::AllUsable;
  if (text == "half") return TurnRule::Half;
  if (text == "thirds") return TurnRule::Thirds;
  constexpr int kNoneOf = 7850;
  throw OptionError({kNoneOf, {"--turn", text, "all, half, thirds"}});
}

}  // namespace

void Command::AddJson(const std::string& text) { options.push_back({"--json", "", text, &common->json}); }

void Command::AddRows(bool& why) {
  AddJson("Print every row of each dive as JSON");
  options.back().excludes = {"--csv"};
  options.push_back({"--csv", "", "Print every row of each dive as CSV, with a header", &common->csv});
  AddModel();
  options.push_back({"--why", "", "Tell for each stop which compartment decides how long it lasts", &why});
  options.push_back({"--phi", "",
                     "Write the loads after each segment to phi.log in the current folder, over an older one",
                     &common->phi});
  AddSupply();
}

void Command::AddModel() {
  ModelChoice& model = common->model;
  options.push_back({.name = "--vpm",
                     .text = "Take the ceiling of the bubble model (VPM)",
                     .place = &model.VPMMode,
                     .excludes = {"--hybrid", "--zhl16c"}});
  options.push_back({"--hybrid", "", "Take the deeper of the ceilings of ZH-L16 and VPM", &model.HybridMode});
  options.push_back(
      {"--zhl16c", "", "Take the C coefficients of ZH-L16 in place of B, in the hybrid, too", &model.ZHL16C});
}

void Command::AddSupply() {
  const auto shared = common;
  options.push_back(
      {"--team", "1-9", "Divers that the minimum gas must bring up; 2 if not given",
       [shared](const std::string& text) { shared->supply.team = WholeNumberOf(text, "--team", 1, kLargestTeam); }});
  options.push_back({"--stress", "1-10", "Factor on the RMV for it; 2 if not given", [shared](const std::string& text) {
                       shared->supply.stress = NumberOf(text, "--stress", 1, kLargestStress);
                     }});
  options.push_back(
      {"--sort-out", "0-30", "Minutes at depth before the way up; 2 if not given", [shared](const std::string& text) {
         shared->supply.minutes = NumberOf(text, "--sort-out", 0, kLongestSortingOut);
       }});
  options.push_back({.name = "--turn",
                     .value = "all|half|thirds",
                     .text = "How much of the gas above the minimum is breathed before turning; all if not given",
                     .place = [shared](const std::string& text) { shared->supply.rule = TurnRuleOf(text); },
                     .offers = "all half thirds"});
}

Option PlanFile(std::string& place) {
  return {"FILE", "", "Profile file (.tav)", &place, true, Option::Role::FileToRead, "tav"};
}

Option TemplateOption(std::string& place) {
  return {.name = "--template",
          .value = "TEMPLATE",
          .text = "Template file, or the name of one in the template folder; the default one if not given",
          .place = &place,
          .role = Option::Role::Template,
          .offers = "tpl"};
}

Option PdfOption(std::string& place, const std::string& text) {
  return {.name = "--pdf",
          .value = "OUT",
          .text = text,
          .place = &place,
          .role = Option::Role::FileToWrite,
          .offers = "pdf"};
}

Option DiveOption(std::string& place, const std::string& without) {
  return {"--dive", "N", "One dive of a series, from 1; " + without + " if not given", &place};
}

std::vector<Command> TavplanCommands() {
  return {PlanCommand(),   NewCommand(),   ReportCommand(), GraphCommand(),  BailoutCommand(), WhatIfCommand(),
          TablesCommand(), CheckCommand(), MixCommand(),    ExportCommand(), ImportCommand()};
}

}  // namespace tav
