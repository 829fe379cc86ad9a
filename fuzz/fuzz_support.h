#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "model/dive_record.h"
#include "persist/format_faults.h"

namespace tav::fuzz {

/// Ends the run when a law does not hold; the fuzzer then keeps the input.
inline void Require(bool holds, const char* law) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", law);
  std::abort();
}

inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Reads in both modes, which must agree on whether the text is sound and on the line of its first error. Returns what
/// was read of a sound text.
template <class Read>
auto ReadBothWays(Read read) -> std::optional<decltype(read(std::declval<FormatFaults&>()))> {
  FormatFaults all("input", FormatFaults::Mode::Collect);
  auto record = read(all);
  int firstError = 0;
  for (auto fault = all.List().rbegin(); fault != all.List().rend(); ++fault) {
    if (fault->error) firstError = fault->line;
  }
  try {
    FormatFaults first("input", FormatFaults::Mode::StopAtFirstError);
    read(first);
    Require(!all.HasErrors(), "a text with errors does not open");
  } catch (const FileError& error) {
    Require(all.HasErrors(), "a text without errors opens");
    const bool listed = firstError > 0;  // the list ends after its thousandth fault
    Require(!listed || error.Line() == firstError, "opening and checking name the same line first");
    return std::nullopt;
  }
  return record;
}

/// Few and short dives, with few stops: one case is to take milliseconds.
inline bool IsSmall(const std::vector<DiveRecord>& dives, int stops) {
  if (dives.size() > 3) return false;
  for (const auto& [diveTemplate, interval, actions] : dives) {
    if (actions.GetLength() > 6) return false;
    for (std::int16_t i = 1; i <= actions.GetLength(); ++i) {
      if (actions.getDepth(i) > stops * diveTemplate.StepSize) return false;
    }
  }
  return true;
}

}  // namespace tav::fuzz
