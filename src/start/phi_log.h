#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "engine/observer.h"

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

  void Write(const TraceSegment& segment) { out_ << TraceBlock(segment) << std::flush; }

 private:
  std::ofstream out_;
};

}  // namespace tav
