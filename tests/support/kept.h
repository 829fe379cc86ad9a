#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>

#include "headless/recording_surface.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/source_folder.h"

namespace tav::test {

/// Compares a text with tests/data/kept/NAME, or writes it there when TAV_WRITE_FIGURES is set. A failure names the
/// first line that differs.
inline void ExpectKept(const std::string& name, const std::string& text) {
  const std::filesystem::path file = SourceFolder() / "tests/data/kept" / name;
  if (std::getenv("TAV_WRITE_FIGURES") != nullptr) {  // NOLINT(concurrency-mt-unsafe)
    std::filesystem::create_directories(file.parent_path());
    WriteTextFile(file, text);
    return;
  }
  std::istringstream kept(ReadTextFile(file));
  std::istringstream now(text);
  std::string keptLine;
  std::string line;
  for (int number = 1;; ++number) {
    const bool more = static_cast<bool>(std::getline(kept, keptLine));
    if (more != static_cast<bool>(std::getline(now, line))) {
      ADD_FAILURE() << file << (more ? " goes on at line " : " ends before line ") << number;
      return;
    }
    if (!more) return;
    ASSERT_EQ(keptLine, line) << file << ":" << number;
  }
}

/// A line for each stroke: kind, place, colour, then what is written there and in which font.
inline std::string StrokeLines(const RecordingSurface& surface) {
  std::string lines;
  for (const RecordingSurface::Stroke& stroke : surface.strokes) {
    lines += std::to_string(static_cast<int>(stroke.kind));
    for (const double place : {stroke.x0, stroke.y0, stroke.x1, stroke.y1}) lines += " " + FormatFixed(place, 1);
    lines += " " + std::to_string(stroke.colour);
    if (!stroke.text.empty() && stroke.kind != RecordingSurface::Kind::Picture) {
      lines += " \"" + stroke.text + "\"";
      if (stroke.font.points > 0) lines += " " + FormatFixed(stroke.font.points, 2) + (stroke.font.bold ? " bold" : "");
    }
    lines += "\n";
  }
  for (const auto& polygon : surface.polygons) {
    lines += "polygon";
    for (const SurfacePoint& corner : polygon) lines += " " + FormatFixed(corner.x, 1) + "," + FormatFixed(corner.y, 1);
    lines += "\n";
  }
  return lines;
}

}  // namespace tav::test
