#include "app/menu_letters.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>

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

void GiveLetter(MenuItem& item, std::set<char>& taken) {
  const std::string caption = item.Caption;
  for (const bool atWord : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      if (!IsAlnum(caption[i]) || (atWord && i > 0 && caption[i - 1] != ' ')) continue;
      if (!taken.insert(Lower(caption[i])).second) continue;
      item.Caption = std::string(caption).insert(i, 1, '&');
      return;
    }
  }
}

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
  for (MenuItem* item : without) GiveLetter(*item, taken);
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
