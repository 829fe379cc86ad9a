#include "start/command_line.h"

#include <algorithm>

namespace tav {
namespace {

constexpr const char* kHelp = R"(TAV: decompression planner for technical divers
Usage: tav [/vpm] [/hybrid] [/VeryHighGF] [/phi] [FILE]...

  FILE            Plan (.tav), settings (.tpl), or dive log to import (.uddf, .csv)
  /vpm            Offer the bubble model (VPM) in the menu
  /hybrid         Offer the hybrid of ZH-L16 and VPM in the menu
  /VeryHighGF     Accept gradient factors up to 1.2
  /phi            Write the loads after each segment to phi.log
  --pages FILE --pdf OUT --title TITLE
                  Draw a page file as a PDF and end; no display is needed
  --start-check   Start, agree to the notice, tell how long that took, and end
  -h, --help      Print this help and end
  --version       Print the version and end

tavplan is the same planner on the command line.
)";

}  // namespace

std::string AboutProgram(const std::vector<std::string>& arguments, const std::string& version) {
  const auto given = [&](const char* word) { return std::ranges::find(arguments, word) != arguments.end(); };
  if (given("--help") || given("-h")) return kHelp;
  return given("--version") ? "tav " + version + "\n" : std::string();
}

std::vector<std::string> GetCommandLine(std::string_view line, std::size_t maximum) {
  std::vector<std::string> arguments;
  bool inside = false;
  for (const char c : line) {
    if (c == ' ' || c == '\t') {
      inside = false;
      continue;
    }
    if (!inside) {
      if (arguments.size() == maximum) break;
      arguments.emplace_back();
      inside = true;
    }
    arguments.back() += c;
  }
  return arguments;
}

Switches ParseCommandLine(const std::vector<std::string>& arguments) {
  Switches switches;
  for (const std::string& argument : arguments) {
    if (argument == "/vpm") switches.SwitchVPM = true;
    if (argument == "/hybrid") switches.SwitchHybrid = true;
    if (argument == "/VeryHighGF") switches.VeryHighGF = true;
    if (argument == "/phi") switches.PhiLogOn = true;
  }
  return switches;
}

}  // namespace tav
