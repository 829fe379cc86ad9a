#pragma once

#include <cstdint>
#include <string>

#include "model/dive_template.h"
#include "model/message.h"

/// Numbers and gases that stand in options.
namespace tav {

/// An option that can't be used.
class OptionError : public MessageError {
 public:
  explicit OptionError(Message reason) : MessageError("", std::move(reason)) {}
  /// Told as "--option: reason".
  OptionError(std::string option, Message reason) : MessageError(std::move(option), std::move(reason)) {}
};

/// Arguments that are not of the form of the command: the error tells where its help is.
class UsageError : public OptionError {
 public:
  using OptionError::OptionError;
};

/// The number of an option. Throws OptionError, which names the option, for a text that is none.
Single NumberOf(const std::string& text, const std::string& option);

/// The same, from `least` to `most`; throws OptionError with these bounds for a number outside.
Single NumberOf(const std::string& text, const std::string& option, double least, double most);

/// The same, whole.
int WholeNumberOf(const std::string& text, const std::string& option, int least, int most);

/// The number of a gas in the template's list (GasNamed); one that only its name tells (EAN36, Tx15/60, H85) is added.
/// Throws OptionError for a name that says nothing.
std::int16_t MixNumber(const std::string& name, DiveTemplate& diveTemplate);

/// DEPTH:TIME or DEPTH:TIME@GAS.
struct TypedLeg {
  Single depth;
  Single time;
  std::string gas;  ///< empty when not told
};
TypedLeg LegOf(const std::string& text, const std::string& option);

/// GAS:COUNT/SIZE/FILL/RESERVE, whose gas is taken as MixNumber does. All three throw OptionError.
Cylinder CylinderOf(const std::string& text, DiveTemplate& diveTemplate);

}  // namespace tav
