#include "exchange/plan_instruction.h"

#include <optional>

namespace tav {
namespace {

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

/// U+FFFE and U+FFFF are no characters to XML.
bool IsNoCharacter(std::string_view text, std::size_t at) {
  const std::string_view bytes = text.substr(at, 3);
  return bytes == "\xEF\xBF\xBE" || bytes == "\xEF\xBF\xBF";
}

std::optional<int> HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

}  // namespace

std::string EscapePlan(std::string_view record) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (std::size_t i = 0; i < record.size(); ++i) {
    const char c = record[i];
    if (c == '\r' && record.substr(i + 1, 1) == "\n") continue;
    const bool plain = c != '%' && c != '?' && (c == '\n' || !IsControl(c)) && !IsNoCharacter(record, i);
    if (plain) {
      escaped += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      ((escaped += '%') += kDigits[byte / 16]) += kDigits[byte % 16];
    }
  }
  return escaped;
}

std::string UnescapePlan(std::string_view escaped) {
  std::string record;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    const bool mark = escaped[i] == '%' && i + 2 < escaped.size();
    const auto high = mark ? HexDigit(escaped[i + 1]) : std::nullopt;
    const auto low = mark ? HexDigit(escaped[i + 2]) : std::nullopt;
    if (high && low) {
      record += static_cast<char>(*high * 16 + *low);
      i += 2;
    } else {
      record += escaped[i];
    }
  }
  return record;
}

std::string XmlText(std::string_view text) {
  std::string clean;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool none = IsNoCharacter(text, i);
    clean += none || IsControl(text[i]) ? ' ' : text[i];
    if (none) i += 2;
  }
  return clean;
}

}  // namespace tav
