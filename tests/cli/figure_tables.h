#pragma once

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/scratch_folder.h"

/// The rows of the tables that the guides and docs/validation.md show, as the program computes them.
namespace tav::test {

using Lines = std::vector<std::string>;
using Table = std::vector<Lines>;

/// The rows of the table of that name. Throws std::out_of_range for a name that none has.
Table Figures(const std::string& name);

/// Of the program itself (program_figures.cpp).
Table GradientFactorFigures();
Table MixerFigures();
Table TurnFigures();
Table WhatIfFigures();
/// Beside what others have published (published_figures.cpp).
Table CNSFigures();
Table OTUFigures();
Table AltitudeFigures();
Table NoStopFiguresMetric();
Table NoStopFiguresImperial();
Table BakerFigures();
Table ScheduleFigures();
Table FirstStopFigures();
Table MValueFigures();
Table PlannerFigures();
Table BubbleFigures();

Lines Split(const std::string& text, char at = '\n');

/// What the command line prints in a language, run in the folder of the sources.
std::string Printed(Lines arguments, const std::string& language = "C");

/// A shipped template with some lines changed, and the square dives that are planned on it.
class Planner {
 public:
  /// `mixes` are further lines of gases, "EAN36: 36/64/0/".
  Planner(const char* name, const std::map<std::string, std::string>& changes, const Lines& mixes = {});

  [[nodiscard]] nlohmann::json Dive(Lines arguments) const;
  /// The longest whole bottom time without a stop.
  [[nodiscard]] int NoStopLimit(int depth) const;

 private:
  ScratchFolder scratch_;
  std::filesystem::path file_;
};

}  // namespace tav::test
