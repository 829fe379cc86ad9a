#include "picture/tissue_map.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/recording_surface.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

using testing::Contains;
using testing::Not;
using Kind = RecordingSurface::Kind;

/// CIE lightness, 0 to 100.
double Lightness(Colour colour) {
  const auto linear = [&](int shift) {
    const double value = (colour >> shift & 255) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  const double y = 0.2126 * linear(0) + 0.7152 * linear(8) + 0.0722 * linear(16);
  return 116 * std::cbrt(y) - 16;
}

TEST(TissueColours, GrowLighterInEvenSteps) {
  for (int step = 1; step <= 9; ++step) {
    const double rise = Lightness(ColourOfLoad(step / 9.0)) - Lightness(ColourOfLoad((step - 1) / 9.0));
    EXPECT_NEAR(rise, 8.8, 2) << step;
  }
  EXPECT_EQ(ColourOfLoad(-1), ColourOfLoad(0));
  EXPECT_EQ(ColourOfLoad(1.5), ColourOfLoad(1));
}

class TissueMap : public testing::Test {
 protected:
  TissueMap() {
    scale.SetPlot(9000, 5000);
    scale.SetWorld(0, 90, 0, -70);  // 100 units to the minute
    for (int i = 0; i < 4; ++i) {
      moments.emplace_back();
      moments.back().time = 10.0 * i;
    }
  }
  void Draw(double scroll = 0) { DrawTissueMap(surface, moments, scale, {800, scroll, "Tissues", "over", kBlack}); }
  /// The boxes of a row of the map, from left to right, without its black ground.
  [[nodiscard]] std::vector<RecordingSurface::Stroke> BoxesOf(int row) const {
    std::vector<RecordingSurface::Stroke> boxes = surface.Of(Kind::FilledBox);
    const double height = (3000 - 270 - 60) / 16.0;
    std::erase_if(boxes, [&](const auto& box) {
      return std::fabs(box.y0 - (270 + row * height)) > 1 || std::fabs(box.y1 - box.y0 - height) > 1;
    });
    return boxes;
  }

  RecordingSurface surface{9900, 3000};
  GraphScale scale;
  std::vector<DiveMoment> moments;
};

TEST_F(TissueMap, HasARowForEachCompartmentInTheTimeOfThePlot) {
  moments[2].fractions[4] = moments[3].fractions[4] = 0.51;
  Draw();
  for (int row = 0; row < 16; ++row) {
    SCOPED_TRACE(row);
    const auto boxes = BoxesOf(row);
    ASSERT_EQ(boxes.size(), row == 4 ? 2U : 1U);
    EXPECT_EQ(boxes.front().x0, 800);
    EXPECT_EQ(boxes.back().x1, 3800);
  }
  EXPECT_EQ(BoxesOf(4)[1].x0, 1800);
  EXPECT_NEAR(Lightness(BoxesOf(4)[1].colour), Lightness(ColourOfLoad(0.51)), 1.5);
  Draw(500);
  EXPECT_EQ(BoxesOf(0)[0].x0, 800) << "cut off where the plot is";
  EXPECT_EQ(BoxesOf(0)[0].x1, 3300);
}

TEST_F(TissueMap, HatchesWhatIsAtTheLimitOrAbove) {
  moments[3].fractions[0] = 1;
  moments[3].fractions[1] = 0.999;
  Draw();
  EXPECT_EQ(BoxesOf(0)[1].colour, graph::kWhite);
  EXPECT_NE(BoxesOf(1)[1].colour, graph::kWhite);
  int strokes = 0;
  for (const auto& line : surface.Of(Kind::Line)) {
    if (line.y0 < 500 && line.y0 > 270) ++strokes;
    EXPECT_GE(line.x0, 800);
    EXPECT_LE(line.x1, 9900);
  }
  EXPECT_EQ(strokes, 11);  // each 90 units of 1000
}

TEST_F(TissueMap, LeavesOutOfItsHeadWhatHasNoRoom) {
  const struct {
    double width;
    bool title, legend;
  } cases[] = {{9900, true, true}, {4800, false, true}, {2000, false, false}};
  for (const auto& known : cases) {
    SCOPED_TRACE(known.width);
    RecordingSurface narrow(known.width, 3000);
    DrawTissueMap(narrow, moments, scale, {800, 0, "Tissues and a title", "over", kBlack});
    const auto texts = narrow.Texts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Tissues and a title") == 1, known.title);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "over") == 1, known.legend);
  }
}

}  // namespace
}  // namespace tav
