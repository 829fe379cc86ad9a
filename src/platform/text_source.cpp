#include "platform/text_source.h"

#include <span>
#include <vector>

namespace tav {
namespace {

std::string Fill(const std::string& text, std::span<const std::string> values) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t number = i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : values.size();
    if (text[i] == '%' && number < values.size()) {
      filled += values[number];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace

std::string TextSource::Filled(int id, std::initializer_list<std::string> values) const {
  return Fill(GetResString(id), {values.begin(), values.size()});
}

std::string TextSource::Words(const Message& message) const {
  std::vector<std::string> values;
  values.reserve(message.values.size());
  for (const Message& value : message.values) values.push_back(Words(value));
  if (message.text != 0) return Fill(GetResString(message.text), values);
  std::string words = message.plain;
  for (const std::string& value : values) words += (words.empty() ? "" : "; ") + value;
  return words;
}

std::string TextSource::Words(const std::exception& error) const {
  const auto* told = dynamic_cast<const MessageError*>(&error);
  if (told == nullptr) return error.what();
  return told->Place() + (told->Place().empty() ? "" : ": ") + Words(told->Reason());
}

}  // namespace tav
