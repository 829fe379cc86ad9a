#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/source_folder.h"

namespace {

namespace fs = std::filesystem;

const fs::path kSource = tav::SourceFolder() / "src";

// The folders of src, floor by floor. A folder includes only what stands on floors below its own.
const std::vector<std::vector<std::string>> kFloors = {
    {"model"},
    {"engine", "persist", "platform"},
    {"compute", "controls", "start"},
    {"figures", "headless", "pages", "plans"},
    {"exchange", "supply"},
    {"advice", "picture", "tables"},
    {"mixer", "reports"},
    {"dialogs", "graph"},
    {"app", "cli"},
    {"desktop"},
};

/// From 1; 0 for a folder that is not known.
std::size_t FloorOf(const std::string& folder) {
  for (std::size_t floor = 0; floor < kFloors.size(); ++floor) {
    if (std::ranges::count(kFloors[floor], folder) > 0) return floor + 1;
  }
  return 0;
}

/// Every `#include "..."` line under src, handed over as file, number of the line and what it names.
template <class Act>
int ForEachInclude(Act act) {
  int seen = 0;
  for (const auto& entry : fs::recursive_directory_iterator(kSource)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp" && extension != ".inc" && extension != ".in") continue;
    std::ifstream file(entry.path());
    int number = 0;
    for (std::string line; std::getline(file, line);) {
      ++number;
      const std::string start = "#include \"";
      if (!line.starts_with(start)) continue;
      ++seen;
      act(fs::relative(entry.path(), kSource), number,
          fs::path(line.substr(start.size(), line.rfind('"') - start.size())));
    }
  }
  return seen;
}

/// Header and source of one name are one unit.
std::string UnitOf(const fs::path& file) { return (file.parent_path() / file.stem()).generic_string(); }

TEST(Layers, NoUnitsIncludeEachOtherRound) {
  std::map<std::string, std::set<std::string>> includes;
  ForEachInclude([&](const fs::path& file, int, const fs::path& included) {
    // A window finds its neighbours in the series among all windows, which hold it.
    if (file == "plans/waypoint_editor.cpp" && included == "plans/document_forms.h") return;
    if (UnitOf(file) != UnitOf(included)) includes[UnitOf(file)].insert(UnitOf(included));
  });
  for (const auto& [unit, direct] : includes) {
    std::set<std::string> reached;
    std::vector<std::string> open(direct.begin(), direct.end());
    while (!open.empty()) {
      const std::string next = open.back();
      open.pop_back();
      if (reached.insert(next).second) open.insert(open.end(), includes[next].begin(), includes[next].end());
    }
    EXPECT_FALSE(reached.contains(unit)) << unit << " includes itself by way of others";
  }
}

TEST(Layers, IncludesPointDownwards) {
  const int seen = ForEachInclude([](const fs::path& file, int number, const fs::path& included) {
    const std::string folder = file.begin()->string();
    const std::string other = included.begin()->string();
    ASSERT_GT(FloorOf(folder), 0U) << folder << " is a folder that this test does not know";
    ASSERT_GT(FloorOf(other), 0U) << file.string() << ":" << number << ": " << included.string();
    EXPECT_TRUE(other == folder || FloorOf(other) < FloorOf(folder))
        << file.string() << ":" << number << ": " << included.string();
  });
  EXPECT_GT(seen, 50);
}

}  // namespace
