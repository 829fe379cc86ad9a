#include "picture/compartment_bars.h"

#include <gtest/gtest.h>

#include "headless/recording_surface.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

// Columns from y 250 to y 850: the surfacing limit, a half or a third of that is one limit.
class CompartmentBars : public testing::Test {
 protected:
  void Draw(double load) {
    Compartments loads{};
    loads[2] = load;
    ShowCompartmentLoad(surface, loads, "Title", graph::kBackground);
  }
  /// The bands of compartment 3, upwards, without its white column.
  [[nodiscard]] std::vector<RecordingSurface::Stroke> Bands() const {
    std::vector<RecordingSurface::Stroke> bands;
    for (const auto& stroke : surface.Of(RecordingSurface::Kind::FilledBox)) {
      if (stroke.x0 == 2000 && stroke.colour != graph::kWhite) bands.push_back(stroke);
    }
    return bands;
  }
  RecordingSurface surface{16000, 1150};
};

struct Band {
  double top;
  double bottom;
  Colour colour;
};

TEST_F(CompartmentBars, BandsAndTheLineShowTheLimitAndTheNumberThePercent) {
  const struct {
    double load;
    std::vector<Band> bands;
    const char* percent;
    double limit;
  } cases[] = {
      {0, {}, "0", 250},
      {0.5, {{550, 850, graph::kGreen}}, "50", 250},
      {1, {{250, 850, graph::kGreen}}, "100", 250},
      {1.25, {{550, 850, graph::kGreen}, {475, 550, graph::kOrange}}, "125", 550},
      {2.5, {{650, 850, graph::kGreen}, {450, 650, graph::kOrange}, {350, 450, kRed}}, "250", 650},
      {4, {{650, 850, graph::kGreen}, {450, 650, graph::kOrange}, {250, 450, kRed}}, "400", 650},
  };
  for (const auto& known : cases) {
    SCOPED_TRACE(known.load);
    Draw(known.load);
    const auto bands = Bands();
    ASSERT_EQ(bands.size(), known.bands.size());
    for (std::size_t i = 0; i < bands.size(); ++i) {
      EXPECT_DOUBLE_EQ(bands[i].y0, known.bands[i].top);
      EXPECT_DOUBLE_EQ(bands[i].y1, known.bands[i].bottom);
      EXPECT_EQ(bands[i].colour, known.bands[i].colour);
      EXPECT_EQ(bands[i].x1, 2800);
    }
    const auto texts = surface.Of(RecordingSurface::Kind::Text);
    ASSERT_EQ(texts.size(), 34U);  // the title, two numbers to each compartment, that of the line
    EXPECT_EQ(texts[0].text, "Title");
    EXPECT_EQ(texts[5].text, known.percent);
    EXPECT_EQ(texts[5].x0, 2080);
    EXPECT_EQ(texts[5].y0, 650);
    EXPECT_EQ(texts[6].text, "3");
    EXPECT_EQ(texts[6].y0, 900);
    const auto lines = surface.Of(RecordingSurface::Kind::Dotted);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_DOUBLE_EQ(lines[0].y0, known.limit);
  }
}

TEST_F(CompartmentBars, NumbersThatWouldRunIntoEachOtherAreLeftOut) {
  RecordingSurface narrow(5600, 1150);  // 350 for a column and its gap
  Compartments loads{};
  loads[0] = 1;  // "100" is 300 wide
  loads[1] = 0.9;
  ShowCompartmentLoad(narrow, loads, "Title", graph::kBackground);
  const auto texts = narrow.Texts();
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "100"), 0);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "90"), 1);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "16"), 1);
}

TEST_F(CompartmentBars, EveryColumnIsOutlinedAfterItsBands) {
  Draw(2.5);
  const auto& strokes = surface.strokes;
  const auto outline = std::find_if(strokes.begin(), strokes.end(), [](const auto& stroke) {
    return stroke.kind == RecordingSurface::Kind::Box && stroke.x0 == 2000;
  });
  ASSERT_NE(outline, strokes.end());
  EXPECT_EQ(std::find(outline, strokes.end(), Bands().back()), strokes.end());
  EXPECT_EQ(surface.Of(RecordingSurface::Kind::Box).size(), kCompartments);
}

}  // namespace
}  // namespace tav
