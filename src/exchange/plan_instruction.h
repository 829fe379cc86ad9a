#pragma once

#include <string>
#include <string_view>

namespace tav {

/// A UDDF dive has no place for the settings and the actions of a plan, and its schema lets foreign data in only under
/// the names of certain programs. A processing instruction, XML's own means to tell one application something, may
/// stand anywhere in a valid file, others pass over it, and a log book that rewrites the dive mostly drops it; where
/// one keeps it beside other depths, ContradictedPlans finds out. Ours is the first child of a dive,
///
///     <?tav-plan
///     Start Template Block
///     ...
///     End of Profile
///     ?>
///
/// with the record of a profile file in it. What XML allows in no text ("?>" here, control characters) stands as "%"
/// and two hexadecimal digits.
constexpr const char* kPlanInstruction = "tav-plan";

/// Stands in the notes of a dive that is a plan, for those who read it with another program.
constexpr const char* kPlanRemark = "A plan, not a dive that was made.";

/// The record in the form that may stand in the instruction; lines end in LF.
std::string EscapePlan(std::string_view record);

/// The record again, whatever the line ends are. "%" without two digits behind it stands for itself.
std::string UnescapePlan(std::string_view escaped);

/// A text as it may stand in an element: blanks in place of control characters, which XML has no form for.
std::string XmlText(std::string_view text);

}  // namespace tav
