#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Columns and lines for a terminal.
namespace tav {

/// The characters of a UTF-8 text; its bytes may be more.
std::size_t CharacterCount(std::string_view text);

/// The text filled with blanks on its left, or on its right, up to a width.
std::string Right(const std::string& text, std::size_t width);
std::string Left(const std::string& text, std::size_t width);

/// A text in lines of the terminal's width, broken at blanks, each with its end; the later ones are indented.
std::string Wrapped(const std::string& text, std::size_t indent);

/// Characters of a line; what is wider than it has lines of its own.
constexpr std::size_t kLineWidth = 100;

}  // namespace tav
