#include "app/menu_letters.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tav {
namespace {

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool IsAlnum(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

/// Where the mark of the letter stands; npos for none. "&&" is an ampersand.
std::size_t Mark(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return i;
    ++i;
  }
  return std::string::npos;
}

/// The places of letters in a caption that can be marked, beginnings of words first.
std::vector<std::size_t> Places(const std::string& caption) {
  std::vector<std::size_t> places;
  for (const bool atWord : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      if (IsAlnum(caption[i]) && (i == 0 || caption[i - 1] == ' ') == atWord) places.push_back(i);
    }
  }
  return places;
}

/// The entries of one menu that are given a letter.
class Givers {
 public:
  explicit Givers(std::set<char> taken) : taken_(std::move(taken)) {}

  /// Where no letter is free, others that were given one here take another one of theirs.
  bool Give(MenuItem* item) {
    std::set<char> tried = taken_;
    return Give(item, tried);
  }
  void Mark() const {
    for (const auto& [letter, owner] : given_) {
      const auto& [item, place] = owner;
      item->Caption = std::string(item->Caption).insert(place, 1, '&');
    }
  }

 private:
  bool Give(MenuItem* item, std::set<char>& tried) {  // NOLINT(misc-no-recursion): as deep as the menu is long
    const std::string caption = item->Caption;
    for (const std::size_t place : Places(caption)) {
      const char letter = Lower(caption[place]);
      if (!tried.insert(letter).second) continue;
      const auto owner = given_.find(letter);
      if (owner != given_.end() && !Give(owner->second.first, tried)) continue;
      given_[letter] = {item, place};
      return true;
    }
    return false;
  }

  std::set<char> taken_;
  std::map<char, std::pair<MenuItem*, std::size_t>> given_;
};

/// The entries of one menu.
void GiveLettersTo(const std::vector<MenuItem*>& items) {
  std::set<char> taken;
  std::vector<MenuItem*> without;
  for (MenuItem* item : items) {
    std::string caption = item->Caption;
    if (caption == "-") continue;
    const std::size_t mark = Mark(caption);
    if (mark != std::string::npos && taken.insert(Lower(caption[mark + 1])).second) continue;
    if (mark != std::string::npos) item->Caption = caption.erase(mark, 1);
    without.push_back(item);
  }
  Givers givers(std::move(taken));
  for (MenuItem* item : without) givers.Give(item);
  givers.Mark();
}

}  // namespace

void GiveLetters(const std::vector<MenuEntry>& menu) {
  std::map<int, std::vector<MenuItem*>> open;  // menus that are not at their end yet, by level
  const auto end = [&open](int level) {
    for (auto each = open.upper_bound(level); each != open.end(); each = open.erase(each)) GiveLettersTo(each->second);
  };
  for (const MenuEntry& entry : menu) {
    end(entry.level);
    open[entry.level].push_back(entry.item);
  }
  end(-1);
}

std::string PlainCaption(std::string caption) {
  if (const std::size_t mark = Mark(caption); mark != std::string::npos) caption.erase(mark, 1);
  if (caption.ends_with("...")) caption.erase(caption.size() - 3);
  return caption;
}

}  // namespace tav
