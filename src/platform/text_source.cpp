#include "platform/text_source.h"

namespace tav {

std::string TextSource::Filled(int id, std::initializer_list<std::string> values) const {
  const std::string text = GetResString(id);
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t number = i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : values.size();
    if (text[i] == '%' && number < values.size()) {
      filled += *(values.begin() + number);
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace tav
