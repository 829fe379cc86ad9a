#include "start/command_line.h"

namespace tav {

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
