#pragma once

#include <string>
#include <string_view>

namespace tav {

/// Splits the lines of template and profile files. Any single character of `delimiters` separates; an empty set means
/// the default set ":;,. \|/-&".
class ClassTokenizer {
 public:
  /// The number of delimiter characters in the text, plus 1.
  static int tokenCount(std::string_view text, std::string_view delimiters = {});

  /// True if the text has at least one delimiter character.
  static bool hastokens(std::string_view text, std::string_view delimiters = {});

  /// The text before the first delimiter (with it when keepDelimiter is set); `text` keeps what comes after. Without a
  /// delimiter the token is the whole text and `text` stays as it is: take the last token by the test of hastokens.
  static std::string_view nextToken(std::string_view& text, std::string_view delimiters = {},
                                    bool keepDelimiter = false);

  /// Tokens first to first + count - 1, counted from 1, joined by "|"; empty when the range goes beyond tokenCount.
  static std::string nTokens(int first, int count, std::string_view text, std::string_view delimiters = {},
                             bool keepDelimiter = false);

  /// Token n, counted from 1; empty beyond tokenCount.
  static std::string nthToken(std::string_view text, int n, std::string_view delimiters = {},
                              bool keepDelimiter = false);
};

}  // namespace tav
