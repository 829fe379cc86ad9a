#pragma once

#include <filesystem>
#include <functional>

#include "app/menu_lists.h"

namespace tav {

/// The plans that come with the program, to start from. One that is chosen is opened as a new plan: it has a name, but
/// no file until the user saves it.
class ExamplePlans {
 public:
  /// The entry `all` is seen where the program has its examples.
  ExamplePlans(Form& form, const MainServices& services, MenuItem& all);

  /// The program has its examples.
  [[nodiscard]] static bool AreThere(const MainServices& services);
  /// An entry for each, with what it shows.
  [[nodiscard]] const MenuItems& Items() const { return items_; }
  void SetTexts();
  /// Opens the entries where the focus is.
  void PopUp() const;

 private:
  void Open(const std::filesystem::path& file) const;

  const MainServices& services_;
  std::filesystem::path folder_;
  MenuItems items_;
};

}  // namespace tav
