#include "persist/text_file.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "model/text_id.h"
#include "model/utf8.h"
#include "persist/descriptor.h"

namespace tav {
namespace {

/// Length of the UTF-8 sequence at `at`, 0 when it is not valid.
std::size_t Utf8Sequence(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  const auto continues = [&](std::size_t i) { return i < text.size() && !BeginsLetter(text[i]); };
  const unsigned lead = byte(at);
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return continues(at + 1) ? 2 : 0;
  if (lead >= 0xE0 && lead <= 0xEF) {
    if (!continues(at + 1) || !continues(at + 2)) return 0;
    if (lead == 0xE0 && byte(at + 1) < 0xA0) return 0;  // overlong
    if (lead == 0xED && byte(at + 1) > 0x9F) return 0;  // surrogate
    return 3;
  }
  if (lead >= 0xF0 && lead <= 0xF4) {
    if (!continues(at + 1) || !continues(at + 2) || !continues(at + 3)) return 0;
    if (lead == 0xF0 && byte(at + 1) < 0x90) return 0;
    if (lead == 0xF4 && byte(at + 1) > 0x8F) return 0;
    return 4;
  }
  return 0;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8Sequence(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

void AppendUtf8(std::string& text, unsigned codePoint) {
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    text += static_cast<char>(0xC0U | codePoint >> 6U);
    text += static_cast<char>(0x80U | (codePoint & 0x3FU));
  } else if (codePoint >= 0x10000) {
    text += static_cast<char>(0xF0U | codePoint >> 18U);
    text += static_cast<char>(0x80U | (codePoint >> 12U & 0x3FU));
    text += static_cast<char>(0x80U | (codePoint >> 6U & 0x3FU));
    text += static_cast<char>(0x80U | (codePoint & 0x3FU));
  } else {
    text += static_cast<char>(0xE0U | codePoint >> 12U);
    text += static_cast<char>(0x80U | (codePoint >> 6U & 0x3FU));
    text += static_cast<char>(0x80U | (codePoint & 0x3FU));
  }
}

// Windows-1252 from 0x80 to 0x9F; the rest is Latin-1. The five unassigned bytes stand for themselves.
constexpr std::array<unsigned, 32> kWindows1252 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

/// The place of the high byte in the pairs of a text in UTF-16; nothing for another text.
std::optional<std::size_t> Utf16Order(std::string_view text) {
  constexpr std::string_view kXmlHighFirst("\0<", 2);
  constexpr std::string_view kXmlLowFirst("<\0", 2);
  if (text.starts_with("\xFE\xFF") || text.starts_with(kXmlHighFirst)) return 0;
  if (text.starts_with("\xFF\xFE") || text.starts_with(kXmlLowFirst)) return 1;
  return std::nullopt;
}

/// Halves of a pair that stand alone become U+FFFD, which replaces what can't be read.
std::string FromUtf16(std::string_view text, std::size_t high) {
  constexpr unsigned kByteOrderMark = 0xFEFF;
  constexpr unsigned kReplacement = 0xFFFD;
  const auto unit = [&](std::size_t i) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(text[at])); };
    return i + 1 < text.size() ? byte(i + high) * 256 + byte(i + 1 - high) : 0U;
  };
  std::string utf8;
  utf8.reserve(text.size());
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    unsigned code = unit(i);
    if (code >= 0xD800 && code < 0xE000) {
      const unsigned low = unit(i + 2);
      const bool pair = code < 0xDC00 && low >= 0xDC00 && low < 0xE000;
      code = pair ? 0x10000 + (code - 0xD800) * 0x400 + (low - 0xDC00) : kReplacement;
      if (pair) i += 2;
    }
    if (i > 0 || code != kByteOrderMark) AppendUtf8(utf8, code);
  }
  return utf8;
}

}  // namespace

Message ErrorText(int error) {
  constexpr std::pair<int, int> kTexts[] = {{ENOENT, Text::NoSuchFile},    {EACCES, Text::PermissionDenied},
                                            {ENOSPC, Text::NoSpaceLeft},   {EISDIR, Text::IsDirectory},
                                            {EROFS, Text::ReadOnly},       {EIO, Text::InputOutputError},
                                            {ENOTDIR, Text::NotDirectory}, {ENAMETOOLONG, Text::NameTooLong}};
  for (const auto& [known, text] : kTexts) {
    if (known == error) return text;
  }
  return std::generic_category().message(error);
}

FileError::FileError(const std::filesystem::path& file, int line, Message reason)
    : MessageError(file.string() + (line > 0 ? ":" + std::to_string(line) : ""), std::move(reason)), line_(line) {}

std::string ToUtf8(std::string text) {
  if (IsUtf8(text)) return text;
  std::string utf8;
  utf8.reserve(text.size() * 2);
  for (const char c : text) {
    const unsigned byte = static_cast<unsigned char>(c);
    AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte);
  }
  return utf8;
}

std::string ReadTextFile(const std::filesystem::path& file, std::size_t largest) {
  // A pipe is waited for as long as somebody has it open to write into it; to open it must not wait for one to come.
  const Descriptor fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!fd.IsOpen()) throw FileError(file, 0, {Text::NotOpened, {ErrorText(errno)}});
  std::string text;
  std::array<char, 65536> buffer{};
  while (true) {
    const ssize_t got = ::read(fd.Get(), buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 && errno == EAGAIN) {
      pollfd ready{fd.Get(), POLLIN, 0};
      ::poll(&ready, 1, -1);
      continue;
    }
    if (got < 0) throw FileError(file, 0, {Text::NotRead, {ErrorText(errno)}});
    if (got == 0) break;
    text.append(buffer.data(), static_cast<std::size_t>(got));
    if (text.size() > largest) throw FileError(file, 0, {Text::IsTooLarge, {std::to_string(largest / kMiB)}});
  }
  struct stat state {};
  if (text.empty() && ::fstat(fd.Get(), &state) == 0 && S_ISFIFO(state.st_mode))
    throw FileError(file, 0, Text::PipeWithoutWriter);
  if (const auto order = Utf16Order(text)) return FromUtf16(text, *order);
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  return ToUtf8(std::move(text));
}

}  // namespace tav
