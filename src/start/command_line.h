#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tav {

/// The switches of the desktop program.
struct Switches {
  bool SwitchVPM = false;     ///< "/vpm": the bubble model can be chosen
  bool SwitchHybrid = false;  ///< "/hybrid": the hybrid can be chosen
  bool VeryHighGF = false;    ///< "/VeryHighGF": gradient factors up to 1.2 are accepted
  bool PhiLogOn = false;      ///< "/phi": the engine writes its trace
};

/// Splits a command line at blanks and tabs. Beyond `maximum` arguments the rest of the line is dropped.
std::vector<std::string> GetCommandLine(std::string_view line, std::size_t maximum = 10);

/// What the desktop program prints, and ends, for "--help" and "--version"; empty where neither stands.
std::string AboutProgram(const std::vector<std::string>& arguments, const std::string& version);

/// Reads the switches, each a whole word and matched with case. Other words are ignored.
Switches ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace tav
