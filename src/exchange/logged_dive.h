#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/plan_texts.h"

namespace tav {

/// A gas of a log.
struct LoggedMix {
  std::string name;
  double o2 = 0;  ///< percent
  double he = 0;
};

/// A dive as a log holds it: depths over time. SI but for times in minutes and pressures in bar.
struct LoggedDive {
  struct Sample {
    double minutes = 0;
    double metres = 0;
  };
  struct Switch {
    double minutes = 0;
    std::size_t mix = 0;  ///< in the mixes of the log
  };
  struct Tank {
    std::optional<std::size_t> mix;
    double litres = 0;  ///< of water; 0 when not told
    double bar = 0;     ///< at the start
  };
  struct Setpoint {
    double minutes = 0;
    double bar = 0;
  };

  /// A pressure that is not in pascal, as it should be.
  struct ReadAs {
    std::string element;
    std::string number;  ///< as it stands in the file
    std::string unit;
  };

  int number = 0;                   ///< place in the file, from 1
  int line = 0;                     ///< of the file
  std::string plan;                 ///< the record of a plan; empty for a dive of other programs
  int planLine = 0;                 ///< of the first line of the record
  std::vector<Sample> samples;      ///< in order of time, from the surface on; beside a plan as they stand in the file
  std::vector<Switch> switches;     ///< in order of time
  std::vector<Tank> tanks;          ///< of the dive
  std::vector<Setpoint> setpoints;  ///< in order of time
  bool rebreather = false;
  bool leavesLoop = false;                ///< the log changes between loop and open circuit
  std::vector<std::string> otherModes;    ///< dive modes that can't be planned, each once
  std::vector<ReadAs> readAs;             ///< each element once
  std::optional<double> startMinute;      ///< by the clock, from some day on
  std::optional<double> surfaceInterval;  ///< minutes
  bool longInterval = false;              ///< "infinity" is told
  std::optional<double> altitude;         ///< metres
  std::optional<double> surfacePressure;  ///< bar
  PlanTexts texts;                        ///< place and notes
};

/// All dives of a file.
struct DiveLog {
  std::vector<LoggedMix> mixes;
  std::vector<LoggedDive> dives;
};

}  // namespace tav
