#include "model/tokenizer.h"

#include <algorithm>

namespace tav {
namespace {

constexpr std::string_view kDefaultDelimiters = ":;,. \\|/-&";

std::string_view OrDefault(std::string_view delimiters) { return delimiters.empty() ? kDefaultDelimiters : delimiters; }

}  // namespace

int ClassTokenizer::tokenCount(std::string_view text, std::string_view delimiters) {
  const std::string_view set = OrDefault(delimiters);
  return 1 + static_cast<int>(std::count_if(text.begin(), text.end(),
                                            [&](char c) { return set.find(c) != std::string_view::npos; }));
}

bool ClassTokenizer::hastokens(std::string_view text, std::string_view delimiters) {
  return text.find_first_of(OrDefault(delimiters)) != std::string_view::npos;
}

std::string_view ClassTokenizer::nextToken(std::string_view& text, std::string_view delimiters, bool keepDelimiter) {
  const std::size_t at = text.find_first_of(OrDefault(delimiters));
  if (at == std::string_view::npos) return text;
  const std::string_view token = text.substr(0, keepDelimiter ? at + 1 : at);
  text.remove_prefix(at + 1);
  return token;
}

std::string ClassTokenizer::nTokens(int first, int count, std::string_view text, std::string_view delimiters,
                                    bool keepDelimiter) {
  if (first < 1 || count < 1 || count > tokenCount(text, delimiters) - first + 1) return {};
  std::string joined;
  for (int n = 1; n < first + count; ++n) {
    const std::string_view token = nextToken(text, delimiters, keepDelimiter);
    if (n > first) joined += "|";
    if (n >= first) joined += token;
  }
  return joined;
}

std::string ClassTokenizer::nthToken(std::string_view text, int n, std::string_view delimiters, bool keepDelimiter) {
  return nTokens(n, 1, text, delimiters, keepDelimiter);
}

}  // namespace tav
