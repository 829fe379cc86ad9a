#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

// The folders of src and those that each may include, itself aside.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"model", {}},
    {"engine", {"model"}},
    {"platform", {"model"}},
    {"persist", {"engine", "model"}},
    {"plan", {"persist", "platform", "engine", "model"}},
    {"report", {"plan", "persist", "platform", "engine", "model"}},
    {"mixer", {"report", "plan", "platform", "model"}},
    {"graph", {"plan", "platform", "engine", "model"}},
    {"dialogs", {"report", "plan", "persist", "platform", "engine", "model"}},
    {"app", {"dialogs", "graph", "mixer", "report", "plan", "persist", "platform", "engine", "model"}},
    {"desktop", {"app", "dialogs", "graph", "report", "plan", "persist", "platform", "engine", "model"}},
    {"cli", {"app", "mixer", "report", "plan", "persist", "platform", "engine", "model"}},
};

TEST(Layers, IncludesPointDownwards) {
  const fs::path source = fs::path(TAV_SOURCE_DIR) / "src";
  int seen = 0;
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp" && extension != ".inc" && extension != ".in") continue;
    const std::string folder = fs::relative(entry.path(), source).begin()->string();
    ASSERT_TRUE(kMayInclude.contains(folder)) << folder << " is a folder that this test does not know";
    std::ifstream file(entry.path());
    int number = 0;
    for (std::string line; std::getline(file, line);) {
      ++number;
      const std::string start = "#include \"";
      if (!line.starts_with(start)) continue;
      ++seen;
      const std::string included = line.substr(start.size(), line.find('/') - start.size());
      EXPECT_TRUE(included == folder || kMayInclude.at(folder).contains(included))
          << entry.path().string() << ":" << number << ": " << line;
    }
  }
  EXPECT_GT(seen, 50);
}

}  // namespace
