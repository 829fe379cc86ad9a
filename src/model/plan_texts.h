#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/message.h"

namespace tav {

/// What the diver says of a plan, for the sheet that it is briefed and filed by. A series has them in its first dive.
struct PlanTexts {
  std::string name;
  std::string place;
  std::string notes;  ///< lines parted by "\n"
  friend bool operator==(const PlanTexts&, const PlanTexts&) = default;
};

/// One of them, and what it may hold.
struct PlanTextField {
  std::string_view key;  ///< in files
  std::string PlanTexts::*text;
  std::size_t mostLetters;
  bool hasLines;  ///< else it is one line
};
inline constexpr PlanTextField kPlanTextFields[] = {{"Plan name", &PlanTexts::name, 100, false},
                                                    {"Place", &PlanTexts::place, 100, false},
                                                    {"Notes", &PlanTexts::notes, 2000, true}};

/// Why a text can't be that of the field, which `what` names for the reader: too long, a control character. Empty for
/// one that can.
Message PlanTextFault(const PlanTextField& field, const std::string& what, std::string_view text);

/// What of a text from elsewhere a field can hold: without blanks at its ends, with blanks in place of control
/// characters, cut to its length.
std::string FittingPlanText(const PlanTextField& field, std::string_view text);

}  // namespace tav
