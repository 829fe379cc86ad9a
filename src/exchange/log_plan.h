#pragma once

#include <string>
#include <vector>

#include "exchange/logged_dive.h"
#include "model/dive_template.h"
#include "persist/profile_file.h"
#include "platform/text_source.h"

namespace tav {

/// Why a logged dive can't be planned: a text of the language table.
struct LogFault {
  int text = 0;  ///< 0 for none
};

/// Makes a plan of a logged dive that has samples, on the settings of a template: legs (LegsOfSamples) and the ascent.
/// Its gases are the template's where the shares are equal to a tenth of a per cent, else they are added; so are
/// setpoint, cylinders and surface pressure where the log tells them. What was assumed is appended to `remarks`.
class LogPlanner {
 public:
  LogPlanner(const DiveLog& log, const DiveTemplate& settings, const TextSource& texts)
      : log_(log), settings_(settings), texts_(texts) {}

  LogFault Plan(const LoggedDive& dive, DiveRecord& record, std::vector<std::string>& remarks) const;

 private:
  const DiveLog& log_;
  const DiveTemplate& settings_;
  const TextSource& texts_;
};

}  // namespace tav
