#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tav {

/// A line of model/text_id.h: a name, its number, and how many numbers after that the name stands for as well.
struct TextName {
  std::string name;
  int number = 0;
  int following = 0;
};

/// All of model/text_id.h.
std::vector<TextName> TextNames();

/// What is told, with texts as they stand without a language: "<Depth>: 20 m" is "*StringID 7028*: 20 m", "{Depth}" is
/// "7028", and "<InfoKinds+2>" the second after the first of a row. Kept until the program ends, so that it can stand
/// where a literal can. Throws std::out_of_range for an unknown name.
const char* Numbered(std::string_view told);

}  // namespace tav
