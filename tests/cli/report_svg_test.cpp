#include <filesystem>
#include <pugixml.hpp>

#include "cli/tavplan_fixture.h"
#include "pages/arial_measure.h"

/// The pages of a report as pictures.
namespace tav {
namespace {

using testing::HasSubstr;

constexpr double kPixels = 15;  ///< page units in a pixel
constexpr double kPointsOfPixel = 0.75;

/// The right end of a text, or of what has a width.
double RightOf(const pugi::xml_node& node) {
  const double x = node.attribute("x").as_double();
  if (std::string(node.name()) != "text") return x + node.attribute("width").as_double();
  const TextFont font{"Arial", node.attribute("font-size").as_double(12) * kPointsOfPixel,
                      !node.attribute("font-weight").empty()};
  return x + ArialMeasure().TextWidth(node.child_value(), font) / kPixels;
}

void ExpectInside(const pugi::xml_node& page, double width, double height) {
  constexpr double kNear = 0.05;
  for (const pugi::xml_node& node : page.children()) {
    const auto within = [&](double value, double most) {
      EXPECT_GE(value, -kNear) << node.name() << " " << node.child_value();
      EXPECT_LE(value, most + kNear) << node.name() << " " << node.child_value();
    };
    for (const char* x : {"x", "x1", "x2"}) within(node.attribute(x).as_double(), width);
    for (const char* y : {"y", "y1", "y2"}) within(node.attribute(y).as_double(), height);
    within(RightOf(node), width);
    within(node.attribute("y").as_double() + node.attribute("height").as_double(), height);
    if (std::string(node.name()) != "rect") continue;
    EXPECT_GT(node.attribute("width").as_double(), 0) << "would not be drawn";
    EXPECT_GT(node.attribute("height").as_double(), 0) << "would not be drawn";
  }
}

TEST_F(Tavplan, DrawsThePagesOfAReportAsPictures) {
  const struct {
    const char* dive;
    std::vector<std::string> options;
    int pages;
    std::string width, height;
    std::vector<std::string> texts;  ///< in this order
    int pictures = 0;
  } cases[] = {
      {"wreck.tav", {"--sheet", "--paper", "a4"}, 1, "210mm", "297mm", {"wreck.tav", "Schedule", "Page 1 of 1"}, 1},
      {"wreck.tav",
       {"--sheet", "--margins", "--paper", "letter"},
       2,
       "215.9mm",
       "279.4mm",
       {"Page 1 of 2", "minutes longer", "Page 2 of 2"},
       1},
      {"lake-series.tav", {"--sheet", "--paper", "a4", "--dive", "2"}, 1, "210mm", "297mm", {"Schedule"}, 1},
      {"wreck.tav", {"--slate"}, 1, "297mm", "210mm", {"wreck.tav", "Tx18/45  PPO2 1.21", "EAN50", "surface"}},
      {"trimix-100.tav", {}, 7, "297mm", "210mm", {"Decompression Plan", "Settings", "Profile", "Page 7"}},
  };
  for (const auto& [dive, options, pages, width, height, texts, pictures] : cases) {
    SCOPED_TRACE(std::string(dive) + (options.empty() ? "" : " " + options.front()));
    const std::string prefix = Scratch("page");
    std::vector<std::string> arguments{"report", Dive(dive), "--svg", prefix};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ASSERT_EQ(Run(arguments), ExitStatus::kFine) << Err();
    EXPECT_EQ(Out() + Err(), "");
    std::vector<std::string> found;
    int nested = 0;
    for (int number = 1; number <= pages; ++number) {
      const std::string file = prefix + "-" + std::to_string(number) + ".svg";
      pugi::xml_document document;
      ASSERT_TRUE(document.load_file(file.c_str())) << file;
      std::filesystem::remove(file);
      const pugi::xml_node page = document.child("svg");
      // The map of margins lies across.
      EXPECT_EQ(page.attribute("width").value(), number > 1 && pictures > 0 ? "297mm" : width);
      EXPECT_EQ(page.attribute("height").value(), number > 1 && pictures > 0 ? "210mm" : height);
      std::istringstream box(page.attribute("viewBox").value());
      double x = -1;
      double y = -1;
      double right = 0;
      double bottom = 0;
      ASSERT_TRUE(box >> x >> y >> right >> bottom);
      ExpectInside(page, right, bottom);
      for (const pugi::xml_node& text : page.children("text")) {
        const bool hasBlanks = std::string(text.child_value()).find("  ") != std::string::npos;
        EXPECT_EQ(hasBlanks, !text.attribute("xml:space").empty()) << text.child_value();
        found.emplace_back(text.child_value());
      }
      for (const pugi::xml_node& picture : page.children("svg")) {
        ++nested;
        EXPECT_TRUE(picture.find_child_by_attribute("stroke", "#000000") || picture.child("text"));
      }
    }
    EXPECT_FALSE(std::filesystem::exists(prefix + "-" + std::to_string(pages + 1) + ".svg"));
    EXPECT_EQ(nested, pictures);
    auto at = found.begin();
    for (const std::string& text : texts) {
      at = std::find_if(at, found.end(), [&](const std::string& line) { return line.find(text) != std::string::npos; });
      EXPECT_NE(at, found.end()) << text;
    }
    if (options.empty() || options.front() != "--sheet" || dive != std::string("wreck.tav")) continue;
    // Cell by cell the schedule that plan prints.
    ASSERT_EQ(Run({"plan", Dive(dive), "--json", "--shown"}), ExitStatus::kFine);
    at = found.begin();
    const nlohmann::json document = OutJson();
    for (const auto& row : document["dives"][0]["shown"][1]["table"]["rows"]) {
      for (const std::string cell : row["cells"]) {
        if (cell.empty()) continue;
        at = std::find(at, found.end(), cell);
        ASSERT_NE(at, found.end()) << row;
        ++at;
      }
    }
  }
  EXPECT_EQ(Run({"report", Dive("wreck.tav")}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Err(), HasSubstr("--pdf"));
  EXPECT_EQ(Run({"report", Dive("wreck.tav"), "--svg", Scratch("none/page")}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Err(), HasSubstr(Scratch("none/page-1.svg")));
}

}  // namespace
}  // namespace tav
