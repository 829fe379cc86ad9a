#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "advice/checked_plan.h"

namespace tav {
namespace {

void InFeet(DiveTemplate& t) {
  t.Metric = false;
  t.StartPressure = t.EndPressure = 1;
}

/// Air has 1.2712 g/l at 1 bar: 5.2 g/l at 30.8 m, or at 100.2 ft from 1 ata; 6.12 g/l at 38 m, 6.25 at 39 m. A loop at
/// 1.3 bar on Tx18/45 has 5.18 g/l at 54 m, 5.24 at 55 m.
TEST(Density, IsADangerAbove6_2AndTellsTheDeepestDepthFor5_2) {
  const struct {
    test::Dive dive;
    Severity severity;
    const char* deepest;
  } cases[] = {
      {{{{38, 10}}}, Severity::Caution, " 30 m"},
      {{{{39, 10}}}, Severity::Danger, " 30 m"},
      {{{{200, 30}}, InFeet}, Severity::Danger, " 100 ft"},
      {{{{80, 10, "Tx18/45"}}, test::Loop(1.3, 1.3)}, Severity::Danger, " 54 m"},
  };
  for (const auto& each : cases) {
    const auto found = test::Of(Rule::Density, test::Check(each.dive));
    ASSERT_TRUE(found) << each.deepest;
    EXPECT_EQ(found->severity, each.severity) << found->text;
    EXPECT_THAT(found->text, testing::HasSubstr(each.deepest));
  }
}

}  // namespace
}  // namespace tav
