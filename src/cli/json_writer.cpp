#include "cli/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ostream>

#include "model/number_text.h"
#include "persist/text_file.h"

namespace tav {
namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : ToUtf8(text)) {
    const std::size_t known = std::string_view("\"\\\b\f\n\r\t").find(c);
    if (known != std::string_view::npos) {
      (quoted += '\\') += "\"\\bfnrt"[known];
    } else if (static_cast<unsigned char>(c) < 0x20) {
      constexpr std::string_view kHex = "0123456789abcdef";
      (quoted += c < 0x10 ? "\\u000" : "\\u001") += kHex[static_cast<unsigned char>(c) & 0xFU];
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

}  // namespace

void JsonWriter::Value(Single value) { Number(FormatPlain(value)); }
void JsonWriter::Value(int value) { Raw(std::to_string(value)); }
void JsonWriter::Value(const std::string& text) { Raw(Quoted(text)); }

void JsonWriter::Shown(std::string_view name, std::string_view label) {
  Name(name);
  label.empty() ? Value(std::nullopt) : Number(label);
}

/// The fewest digits that tell the number, always with a decimal or an exponent: a float.
void JsonWriter::Number(std::string_view text) {
  const double value = ParseLenient(text);
  if (!std::isfinite(value)) return Raw("null");
  constexpr double kLeastFixed = 1e-4;
  constexpr double kMostFixed = 1e15;
  const double size = std::fabs(value);
  const bool fixed = value == 0 || (size >= kLeastFixed && size < kMostFixed);
  std::array<char, 32> digits{};
  char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                            fixed ? std::chars_format::fixed : std::chars_format::scientific)
                  .ptr;
  std::string number(digits.data(), end);
  if (fixed && number.find('.') == std::string::npos) number += ".0";
  Raw(number);
}

void JsonWriter::Name(std::string_view name) {
  Part();
  out_ << '"' << name << (indent_ > 0 ? "\": " : "\":");
  named_ = true;
}

void JsonWriter::Raw(std::string_view text) {
  Part();
  out_ << text;
}

void JsonWriter::Part() {
  if (named_) {
    named_ = false;
    return;
  }
  if (!first_) out_ << ',';
  if (depth_ > 0) NewLine();
  first_ = false;
}

void JsonWriter::Open(char bracket) {
  Part();
  out_ << bracket;
  ++depth_;
  first_ = true;
}

void JsonWriter::Close(char bracket) {
  --depth_;
  if (!first_) NewLine();
  out_ << bracket;
  first_ = false;
}

void JsonWriter::NewLine() {
  if (indent_ > 0) out_ << '\n' << std::string(depth_ * indent_, ' ');
}

}  // namespace tav
