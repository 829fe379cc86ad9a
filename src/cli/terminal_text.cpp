#include "cli/terminal_text.h"

#include "model/text_columns.h"

namespace tav {

std::string Wrapped(const std::string& text, std::size_t indent) { return Wrapped(text, indent, kLineWidth); }

}  // namespace tav
