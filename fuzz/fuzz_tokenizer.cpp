#include "fuzz_support.h"
#include "model/tokenizer.h"

using namespace tav;

namespace {

/// Walks over all tokens; together with their delimiters they are the text again.
void RequireWhole(std::string_view text, std::string_view delimiters) {
  const int count = ClassTokenizer::tokenCount(text, delimiters);
  std::string_view rest = text;
  std::string joined;
  std::string bare;
  int tokens = 1;
  for (; ClassTokenizer::hastokens(rest, delimiters); ++tokens) {
    std::string_view same = rest;
    const std::string_view token = ClassTokenizer::nextToken(rest, delimiters);
    const std::string_view kept = ClassTokenizer::nextToken(same, delimiters, true);
    fuzz::Require(same == rest && kept.size() == token.size() + 1, "a kept delimiter changes the token alone");
    joined += kept;
    bare += std::string(token) + "|";
  }
  fuzz::Require(tokens == count, "the number of tokens is that of the walk");
  fuzz::Require(joined + std::string(rest) == text, "the tokens with their delimiters are the text");
  const std::string_view last = ClassTokenizer::nextToken(rest, delimiters);
  fuzz::Require(last == rest, "the last token stays");
  fuzz::Require(ClassTokenizer::nTokens(1, count, text, delimiters) == bare + std::string(last), "all tokens joined");
}

void RequireSameByNumber(std::string_view text, std::string_view delimiters, int n) {
  const int count = ClassTokenizer::tokenCount(text, delimiters);
  std::string_view rest = text;
  for (int i = 1; i < n && i < count; ++i) ClassTokenizer::nextToken(rest, delimiters);
  const std::string_view expected = n >= 1 && n <= count ? ClassTokenizer::nextToken(rest, delimiters) : "";
  fuzz::Require(ClassTokenizer::nthToken(text, n, delimiters) == expected, "a token by number is that of the walk");
}

}  // namespace

// The input is a number, the delimiters up to the first line end, and the text behind it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || size > 4096) return 0;
  const int n = data[0] == 255 ? INT32_MAX : data[0] - 2;
  const std::string_view input = fuzz::Text(data + 1, size - 1);
  const std::size_t end = input.find('\n');
  const std::string_view delimiters = end == std::string_view::npos ? "" : input.substr(0, end);
  const std::string_view text = end == std::string_view::npos ? input : input.substr(end + 1);
  RequireWhole(text, delimiters);
  RequireSameByNumber(text, delimiters, n);
  return 0;
}
