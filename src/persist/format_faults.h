#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/utf8.h"
#include "persist/text_file.h"

namespace tav {

/// One thing that is wrong with a file.
struct FormatFault {
  int line = 0;        ///< from 1
  bool error = false;  ///< the file can't be used; else advice: it can, but says something odd
  Message text;
};

/// The start of what stands in a file.
inline std::string Shown(std::string_view text) {
  constexpr std::size_t kMost = 60;  // letters
  const std::string_view first = FirstLetters(text, kMost);
  return std::string(first) + (text.size() > first.size() ? "..." : "");
}

/// What a reader finds wrong. Opening a file stops at the first error, checking it collects all.
class FormatFaults {
 public:
  enum class Mode { StopAtFirstError, Collect };

  FormatFaults(std::filesystem::path file, Mode mode) : file_(std::move(file)), mode_(mode) {}

  /// The file can't be used. Throws FileError unless all faults are collected.
  void Error(int line, const Message& text) {
    if (mode_ == Mode::StopAtFirstError) throw FileError(file_, line, text);
    Add({line, true, text});
  }

  void Advise(int line, const Message& text) { Add({line, false, text}); }

  [[nodiscard]] const std::vector<FormatFault>& List() const { return list_; }
  [[nodiscard]] bool HasErrors() const { return errors_ > 0; }

 private:
  /// A million faulty lines need no million messages.
  static constexpr std::size_t kMost = 1000;

  void Add(FormatFault fault) {
    if (fault.error) ++errors_;
    if (list_.size() < kMost) list_.push_back(std::move(fault));
  }

  std::filesystem::path file_;
  Mode mode_;
  std::vector<FormatFault> list_;
  std::size_t errors_ = 0;
};

}  // namespace tav
