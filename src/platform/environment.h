#pragma once

#include <filesystem>
#include <string>

namespace tav {

/// What the program asks the machine about its user and the day.
class Environment {
 public:
  virtual ~Environment() = default;

  /// The name under which the user is logged on.
  [[nodiscard]] virtual std::string UserName() const = 0;
  /// The language of the user's desktop, such as "de_AT"; empty for none.
  [[nodiscard]] virtual std::string Locale() const { return {}; }
  /// Today's date as the user's locale writes it.
  [[nodiscard]] virtual std::string Today() const = 0;
  [[nodiscard]] virtual std::filesystem::path TemporaryFolder() const = 0;
  /// The program's own logo as the bytes of a picture file.
  [[nodiscard]] virtual std::string Logo() const = 0;
};

}  // namespace tav
