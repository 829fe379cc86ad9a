#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "exchange/dive_log.h"

namespace tav {
namespace {

using test::Dive;
using test::Import;
using test::kSquare;
using test::Log;
using test::Sample;

/// Shares that are more than the whole by rounding are cut to it; 1 is all of a gas, what is more is per cent.
TEST(UddfEdges, SharesFillTheWholeAndNoMore) {
  const struct {
    const char* shares;
    double o2, he;
  } cases[] = {
      {"<o2>0.6</o2><he>0.404</he>", 60, 40},
      {"<o2>60</o2><he>40.4</he>", 60, 40},
      {"<n2>0.4</n2><he>0.25</he>", 35, 25},
      {"<o2>0.15</o2><he>0.6</he><n2>0.254</n2>", 15, 60},
      {"<o2>1</o2>", 100, 0},
  };
  for (const auto& each : cases) {
    const std::string samples = Sample(0, 0, "<switchmix ref='m'/>") + kSquare;
    const auto imported = Import(Log(Dive(samples), "<mix id='m'>" + std::string(each.shares) + "</mix>"));
    const DiveTemplate& t = imported.profile.dives.front().Template;
    const GasMix& mix = t.Blends[static_cast<std::size_t>(imported.profile.dives.front().UserActions.getmixnumber(1))];
    EXPECT_NEAR(mix.O2, each.o2, 1e-4) << each.shares;
    EXPECT_NEAR(mix.He, each.he, 1e-4) << each.shares;
    EXPECT_NEAR(mix.N2, 100 - each.o2 - each.he, 1e-4) << each.shares;
  }
}

/// A square dive takes 23 min 20 s.
TEST(UddfEdges, TheClockGoesOnAtMidnightAndAtTheEndOfAMonth) {
  const struct {
    const char* first;
    const char* second;
    double interval;
  } cases[] = {
      {"2026-05-01T09:30:00", "2026-05-01T10:30:20", 37},
      {"2026-05-01T09:30", "2026-05-01T10:30", 36.667},
      {"2026-05-01T23:50:00", "2026-05-02T00:30:00", 16.667},
      {"2026-02-28T23:00:00", "2026-03-01T01:00:00+01:00", 96.667},
      {"2024-02-28T23:00:00", "2024-03-01T01:00:00", 96.667 + 24 * 60},
      {"2026-12-31T22:00:59", "2027-01-01T00:00:59", 96.667},
      {"2026-05-01T09:59:00", "2026-05-01T23:59:00", 816.667},
  };
  for (const auto& each : cases) {
    const auto at = [](const char* clock) { return ReplaceAll(Dive(kSquare), "2026-05-01T09:30:00", clock); };
    const auto imported = Import(Log(at(each.first) + at(each.second)));
    ASSERT_EQ(imported.profile.dives.size(), 2U);
    EXPECT_NEAR(imported.profile.dives[1].SurfaceInterval, each.interval, 0.01) << each.second;
  }
}

}  // namespace
}  // namespace tav
