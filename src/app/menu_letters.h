#pragma once

#include <vector>

#include "app/main_view.h"

namespace tav {

/// Gives each entry that has none a letter to reach it by: the beginning of a word, if one is free in its menu, else
/// any letter of it. Of two entries with one letter the second gets another one. Entries with neither letters nor
/// digits left go without.
void GiveLetters(const std::vector<MenuEntry>& menu);

/// A caption without the mark of its letter and the dots of a dialog.
std::string PlainCaption(std::string caption);

}  // namespace tav
