#pragma once

#include <string>

namespace tav {

/// The few choices of the user that live outside files. Strings only; each caller has its own default for an empty
/// result. A value of 256 bytes or more reads as empty. A value that can't be stored is lost without a message.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The value stored under section (may be empty) and name, or an empty text.
  [[nodiscard]] virtual std::string ReadSetting(const std::string& section, const std::string& name) const = 0;
  virtual void WriteSetting(const std::string& section, const std::string& name, const std::string& value) = 0;
};

}  // namespace tav
