#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/main_services.h"

namespace tav {

/// Entries of a menu that come and go. They are made when the menu asks for them, not at each change.
using MenuItems = std::vector<std::unique_ptr<MenuItem>>;

/// The files that were opened or saved last.
class RecentMenu {
 public:
  /// `open` opens one that is chosen. The entry `all` can be chosen while there is one.
  RecentMenu(Form& form, const MainServices& services, MenuItem& all,
             std::function<void(const std::filesystem::path&)> open);

  void Add(const std::filesystem::path& file);
  void Remove(const std::filesystem::path& file);
  void Clear();
  [[nodiscard]] const MenuItems& Items();

 private:
  void Changed();

  Form& form_;
  const MainServices& services_;
  MenuItem& all_;
  std::function<void(const std::filesystem::path&)> open_;
  MenuItems items_;
  bool stale_ = true;
};

/// The open plans, in the order of their numbers, the one in front marked.
class PlanMenu {
 public:
  /// The rule above the entries is seen while there is one.
  PlanMenu(Form& form, const MainServices& services, MenuItem& rule);

  /// A document is open now, or closed, or has another caption.
  void Follow(std::int16_t document);
  void MarkFront();
  [[nodiscard]] const MenuItems& Items();

 private:
  void Changed();

  Form& form_;
  const MainServices& services_;
  MenuItem& rule_;
  std::map<std::int16_t, std::string> captions_;
  MenuItems items_;  ///< as long as `captions_`, unless they are stale
  bool stale_ = false;
};

}  // namespace tav
