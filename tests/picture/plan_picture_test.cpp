#include "picture/plan_picture.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include "headless/recording_surface.h"
#include "model/number_texts.h"
#include "pages/arial_measure.h"
#include "picture/graph_colours.h"
#include "picture/svg_surface.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using testing::HasSubstr;

/// The plan of a document as values, drawn with these words.
class ShownPlan {
 public:
  ShownPlan(test::Plans& plans, std::int16_t document)
      : rows(plans.forms(document).InputProfile),
        settings_(plans.documents(document).Template),
        moments_(plans.forms(document).Planned().Moments()) {}

  [[nodiscard]] PlanPicture Picture(const GraphExtras& extras, const std::string& notice = "",
                                    const LocaleSeparators& separators = {}) const {
    return PlanPicture({rows, settings_, moments_, texts_, separators, notice}, extras);
  }
  const ClassProfile& rows;

 private:
  struct Texts : TextSource {
    std::string GetResString(int id) const override {
      // One letter of two bytes; the others as long as those of a language.
      return id == 1502 ? "T\xC3\xA4" : id == 1222 || id == 1223 ? "(m)" : "Text " + std::to_string(id);
    }
  };
  Texts texts_;
  const DiveTemplate& settings_;
  std::vector<DiveMoment> moments_;
};

/// 45 m on air, with the ascent on the gases of the template.
class PlanPictures : public testing::Test {
 protected:
  void Dive(double depth, double minutes) {
    ASSERT_TRUE(editor.AddUserWaypoint(depth, minutes, 0));
    ASSERT_TRUE(editor.StartDeco());
  }
  test::Plans plans;
  frmWaypointEditor& editor = plans.New();
};

TEST_F(PlanPictures, TellCeilingDepthsAndMinutesAsFarAsTheyAreAskedFor) {
  Dive(45, 30);
  const ShownPlan plan(plans, editor.Tag());
  std::int16_t firstStop = 1;
  while (plan.rows.GetStatus(firstStop) != RowStatus::kStop) ++firstStop;
  const std::int16_t last = plan.rows.GetLength();
  const std::string depth = FormatFixed(plan.rows.getDepth(firstStop), 0) + " m";
  const std::string runTime = FormatFixed(plan.rows.GetRunTime(last), 0) + " min";
  const std::string lastStop = FormatFixed(plan.rows.getStopTime(last - 1), 0) + "'";
  RecordingSurface container(10000, 7500);
  for (int asked = 0; asked < 8; ++asked) {
    SCOPED_TRACE(asked);
    const GraphExtras extras{(asked & 1) != 0, (asked & 2) != 0, (asked & 4) != 0};
    RecordingSurface grid(19000, 10000);
    plan.Picture(extras).DrawPlot(container, grid, RoomToGrow(plan.rows));
    // A mark has at most four corners, the ceiling's curve one each tenth of a minute.
    const auto isCurve = [](const std::vector<SurfacePoint>& corners) { return corners.size() > 4; };
    EXPECT_EQ(std::ranges::any_of(grid.polygons, isCurve), extras.ceiling);
    EXPECT_EQ(std::ranges::count(grid.Texts(), lastStop) == 1, extras.stopMinutes);
    for (const std::string& text : {depth, runTime, std::string("21 m"), std::string("6 m")}) {
      EXPECT_EQ(std::ranges::count(grid.Texts(), text) > 0, extras.depths) << text;
    }
  }
}

TEST_F(PlanPictures, ArePutIntoTheWordsOfTheUser) {
  Dive(36.5, 20);
  const ShownPlan plan(plans, editor.Tag());
  const PlanPicture picture = plan.Picture({}, "", {",", "."});
  RecordingSurface container(10000, 7500);
  RecordingSurface grid(19000, 10000);
  picture.DrawPlot(container, grid, Fitted(plan.rows, 3));
  const auto name = container.Of(RecordingSurface::Kind::PageText);
  ASSERT_EQ(name.size(), 1U);
  EXPECT_EQ(name[0].text, "T\xC3\xA4 (m)");
  EXPECT_EQ(name[0].x1, 90) << "along the axis";
  EXPECT_THAT(container.Texts(), testing::Contains("0,0 m"));
  const std::string words = picture.Description();
  EXPECT_THAT(words, HasSubstr("\nText 7028: 36,5 m, Text 7029: 20,0 min, Text 7030: Air, Text 7031: 0,98 bar, "));
  EXPECT_EQ(std::ranges::count(words, '\n'), plan.rows.GetLength());
}

struct Box {
  std::string text;
  double left, top, right, bottom;
};

/// The texts of an SVG file with the room that their letters take.
std::vector<Box> TextsOf(const pugi::xml_document& file) {
  std::vector<Box> texts;
  for (const pugi::xml_node& node : file.child("svg").children("text")) {
    const std::string text = node.child_value();
    const double left = node.attribute("x").as_double();
    const double base = node.attribute("y").as_double();
    const bool bold = node.attribute("font-weight") != nullptr;
    const double width = ArialMeasure().TextWidth(text, {"Arial", 9, bold}) / 15;
    if (node.attribute("transform")) {
      // Turned around its top left corner, 11 pixels above the base, it runs upwards.
      texts.push_back({text, left, base - 11 - width, left + 11, base - 11});
      continue;
    }
    texts.push_back({text, left, base - 9, left + width, base});
  }
  return texts;
}

/// All plans of the folders, series too.
std::vector<std::filesystem::path> PlansIn(std::initializer_list<const char*> folders) {
  std::vector<std::filesystem::path> files;
  for (const char* folder : folders) {
    for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / folder)) {
      if (entry.path().extension() == ".tav") files.push_back(entry.path());
    }
  }
  return files;
}

/// Whether a line crosses a box: some place of it is inside.
bool Strikes(const RecordingSurface::Stroke& line, const Box& box) {
  constexpr int kPlaces = 400;
  for (int i = 0; i <= kPlaces; ++i) {
    const double x = line.x0 + (line.x1 - line.x0) * i / kPlaces;
    const double y = line.y0 + (line.y1 - line.y0) * i / kPlaces;
    if (x > box.left && x < box.right && y > box.top && y < box.bottom) return true;
  }
  return false;
}

TEST(PlacesOfLabels, NoneLiesOnAnotherAndTheRunTimeIsNotStruckThrough) {
  const auto files = PlansIn({"dives", "tests/data/vectors", "tests/data/vectors/strict"});
  ASSERT_GT(files.size(), 50U);
  int runTimes = 0;
  int plansDrawn = 0;
  for (const auto& file : files) {
    test::Plans plans;
    for (const std::int16_t document : OpenProfile(plans.forms, file)) {
      const ShownPlan plan(plans, document);
      const std::int16_t last = plan.rows.GetLength();
      if (last == 0 || plan.rows.GetRunTime(last) > 1000) continue;  // one that never ends is no more than a line
      const std::string runTime = NumberTexts(".", "").Short(plan.rows.GetRunTime(last)) + " min";
      for (const double width : {6000.0, 9000.0, 16000.0}) {
        SCOPED_TRACE(testing::Message() << file << ", " << width << " units wide");
        RecordingSurface container(width, 9000);
        RecordingSurface grid(width, 8700);
        plan.Picture({}).DrawPlot(container, grid, Fitted(plan.rows, 3));
        ++plansDrawn;
        std::vector<Box> boxes;
        for (const auto& text : grid.Of(RecordingSurface::Kind::Text)) {
          if (text.colour == kBlack) continue;  // a number of the axis
          const Box box{text.text, text.x0, text.y0, text.x0 + grid.TextWidth(text.text, false), text.y0 + 180};
          for (const Box& other : boxes) {
            EXPECT_TRUE(box.left >= other.right || other.left >= box.right || box.top >= other.bottom ||
                        other.top >= box.bottom)
                << box.text << " over " << other.text;
          }
          boxes.push_back(box);
          if (box.text != runTime) continue;
          ++runTimes;
          for (const auto& line : grid.Of(RecordingSurface::Kind::Thick)) {
            EXPECT_FALSE(line.colour == graph::kWhite && Strikes(line, box));
          }
        }
      }
    }
  }
  EXPECT_GT(runTimes, plansDrawn * 9 / 10) << "it is left out only where there is no room";
}

struct PictureCase {
  const char* file;
  double width, height;  // pixels
  bool tissues;
};
class SvgPictures : public testing::TestWithParam<PictureCase> {};

TEST_P(SvgPictures, ShowEachStopAndNoTextOverAnother) {
  test::Plans plans;
  const auto documents = OpenProfile(plans.forms, SourceFolder() / GetParam().file);
  for (const std::int16_t document : documents) {
    const ShownPlan plan(plans, document);
    SvgSurface surface(15 * GetParam().width, 15 * GetParam().height);
    const std::string notice = "A long <notice> & more, which does not fit into one line of a narrow picture at all";
    plan.Picture({true, true, true, GetParam().tissues}, notice).Draw(surface);
    pugi::xml_document file;
    ASSERT_TRUE(file.load_string(surface.File("<&>", plan.Picture({}).Description(), SvgSurface::Unit::Pixel).c_str()));
    EXPECT_STREQ(file.child("svg").child_value("title"), "<&>");
    const std::string words = file.child("svg").child_value("desc");
    for (std::int16_t row = 1; row <= plan.rows.GetLength(); ++row) {
      if (plan.rows.GetStatus(row) != RowStatus::kStop) continue;
      EXPECT_THAT(words, HasSubstr("Text 7028: " + FormatFixed(plan.rows.getDepth(row), 1)));
    }
    const std::vector<Box> texts = TextsOf(file);
    for (const char* begin : {"A long <notice> & ", "Text 1308", "Text 1501", "Text 1503", "T\xC3\xA4 (m)"}) {
      EXPECT_TRUE(std::ranges::any_of(texts, [&](const Box& box) { return box.text.starts_with(begin); })) << begin;
    }
    for (const Box& box : texts) {
      EXPECT_TRUE(box.left >= 0 && box.top >= 0 && box.right <= GetParam().width && box.bottom <= GetParam().height)
          << box.text;
      for (const Box* other = texts.data(); other != &box; ++other) {
        EXPECT_TRUE(box.left >= other->right || other->left >= box.right || box.top >= other->bottom ||
                    other->top >= box.bottom)
            << box.text << " over " << other->text;
      }
    }
  }
}
INSTANTIATE_TEST_SUITE_P(, SvgPictures,
                         testing::Values(PictureCase{"dives/trimix-100.tav", 1000, 700, false},
                                         PictureCase{"dives/trimix-100.tav", 400, 400, false},
                                         PictureCase{"dives/lake-series.tav", 1600, 1600, true},
                                         PictureCase{"dives/rebreather.tav", 600, 600, true},
                                         PictureCase{"tests/data/vectors/strict/feet-trimix.tav", 1000, 700, false},
                                         PictureCase{"tests/data/vectors/air-nogf.tav", 1000, 700, false},
                                         PictureCase{"tests/data/vectors/no-ascent.tav", 500, 400, false}));

TEST(SvgSurface, TellsItsSizeInTheUnitThatWasAskedFor) {
  const struct {
    SvgSurface::Unit unit;
    const char* width;
    const char* height;
  } cases[] = {{SvgSurface::Unit::Pixel, "1000", "700.5"}, {SvgSurface::Unit::Millimetre, "264.58mm", "185.34mm"}};
  for (const auto& known : cases) {
    pugi::xml_document file;
    ASSERT_TRUE(file.load_string(SvgSurface(15000, 10507.5).File("", "", known.unit).c_str()));
    EXPECT_STREQ(file.child("svg").attribute("width").value(), known.width);
    EXPECT_STREQ(file.child("svg").attribute("height").value(), known.height);
    EXPECT_STREQ(file.child("svg").attribute("viewBox").value(), "0 0 1000 700.5");
  }
}

/// A box and a text at (1000, 2000), turned by a right angle.
TEST(SvgSurface, WritesTextAsText) {
  SvgSurface surface(15000, 15000);
  surface.PageText(1500, 3000, "a<b & \"c\" \x01", {"Arial", 18, true}, kRed, 90);
  EXPECT_THAT(surface.File("", "", SvgSurface::Unit::Pixel),
              HasSubstr("<text x=\"100\" y=\"221.72\" fill=\"#ff0000\" font-size=\"24\" font-weight=\"bold\" "
                        "transform=\"rotate(-90 100 200)\">a&lt;b &amp; \"c\" ?</text>"));
}

}  // namespace
}  // namespace tav
