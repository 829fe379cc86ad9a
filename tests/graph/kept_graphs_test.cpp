// Graphs as the program gave them when they were last renewed. TAV_WRITE_FIGURES=1 renews them.
#include <gtest/gtest.h>

#include "app/document_plan.h"
#include "graph/profile_graph.h"
#include "support/kept.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

struct Nothing : GraphWindow {
  void ShowReadOut(double x, double y, const std::string& text) override {
    readOut = FormatFixed(x, 0) + " " + FormatFixed(y, 0) + " " + text + "\n";
  }
  void HideReadOut() override {}
  void ShowCross(bool /*cross*/) override {}
  void ShowPopup() override {}
  void MarkModified() override {}
  void NewWaypoint(Single /*depth*/, Single /*segmentTime*/) override {}
  void ViewRow(std::int16_t /*row*/) override {}
  void EditRow(std::int16_t /*row*/) override {}
  std::string readOut;
};

TEST(KeptGraphs, ShowWhatIsKept) {
  for (const char* dive : {"trimix-100.tav", "lake-series.tav", "empty"}) {
    test::HeadlessProgram program;
    program.Start();
    if (std::string(dive) != "empty") program.Main().OpenFile(test::HeadlessProgram::Dive(dive).string());
    DocumentPlan plan{program.program.Forms(), program.Active(), {}};
    for (const bool light : {false, true}) {
      SCOPED_TRACE(dive);
      Nothing window;
      ProfileGraph graph{[&] { return plan(); }, window};
      RecordingSurface container{12000, 7500};
      RecordingSurface grid{light ? 19000.0 : 11000.0, 7000};
      RecordingSurface bars{12000, 2500};
      PlotView view;
      view.fitPlan = !light;
      view.extras.light = light;
      view.extras.tissues = true;
      EXPECT_TRUE(graph.SetOverlay({{0, 0}, {2, 30}, {40, 30}}));
      EXPECT_FALSE(graph.SetOverlay({{0, 0}, {2, 30}, {40, 30}})) << "it is there already";
      graph.SelectRows(3, 4);
      graph.RedrawProfile(container, grid, bars, view);
      std::string lines = "container\n" + test::StrokeLines(container) + "grid\n" + test::StrokeLines(grid) + "bars\n" +
                          test::StrokeLines(bars);
      for (const double x : {1500.0, 4000.0, 9000.0}) {
        graph.MouseMove(static_cast<Single>(x), 2000, 10000, grid, true);
        lines += "at " + FormatFixed(x, 0) + ": " + window.readOut;
      }
      test::ExpectKept(std::string("graphs/") + dive + (light ? ".light.txt" : ".dark.txt"), lines);
    }
  }
}

}  // namespace
}  // namespace tav
