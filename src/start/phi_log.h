#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "engine/observer.h"
#include "persist/text_file.h"

namespace tav {

/// The block of 20 lines that the trace holds for a segment: names and values of the move, then the loads of all
/// compartments. CR LF line ends; every item in double quotes, fields within an item separated by tabs. A rebreather
/// ramp that begins above the depth of its setpoint has a line more.
std::string TraceBlock(const TraceSegment& segment);

/// The trace file: replaces an older one and stays open.
class PhiLog {
 public:
  /// Throws FileError when the file can't be opened.
  explicit PhiLog(const std::filesystem::path& file);

  void Write(const TraceSegment& segment);
  /// Why the file does not hold all that was written; nothing when it does.
  [[nodiscard]] const std::optional<FileError>& Fault() const { return fault_; }

 private:
  std::filesystem::path file_;
  std::ofstream out_;
  std::optional<FileError> fault_;
};

}  // namespace tav
