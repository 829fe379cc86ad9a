#pragma once

#include <cstddef>
#include <string>

/// Lines for a terminal.
namespace tav {

/// As in "model/text_columns.h", in lines of the terminal's width.
std::string Wrapped(const std::string& text, std::size_t indent);

/// Letters of a line; what is wider than it has lines of its own.
constexpr std::size_t kLineWidth = 100;

}  // namespace tav
