#include "compute/gas_warnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/number_text.h"
#include "persist/template_file.h"

namespace tav {
namespace {

struct Leg {
  double depth;
  double rate;
  std::string gas;
  std::int16_t status = RowStatus::kAscentEnd;
};

constexpr std::int16_t kLeg = RowStatus::kLeg;
constexpr std::int16_t kStop = RowStatus::kStop;

/// "low_ppo2 6 to 0 Tx10/70"
std::vector<std::string> Told(const std::vector<GasWarning>& warnings) {
  std::vector<std::string> told;
  for (const GasWarning& w : warnings) {
    told.push_back(std::string(IdOf(w.kind)) + " " + FormatPlain(w.from) + " to " + FormatPlain(w.to) + " " + w.gas);
  }
  return told;
}

/// At sea level Tx10/70 has 0.18 bar at 7.9 m; oxygen 1.62 bar at 6.1 m; EAN50 1.62 bar at 22.3 m; EAN32 1.42 bar at
/// 34.2 m.
TEST(GasWarnings, JudgeEveryRowAndEveryChangeOfGasStopOrNot) {
  struct Case {
    const char* what;
    std::vector<Leg> rows;
    std::vector<std::string> told;
    bool descents = false;
    std::optional<std::string> lost = {};
  };
  const std::vector<Case> cases{
      {"a free ascent on a gas that is too poor near the surface",
       {{60, 18, "Tx10/70", kLeg}, {60, 0, "Tx10/70", kLeg}, {6, -9, "Tx10/70"}, {0, -3, "Tx10/70"}},
       {"low_ppo2 6 to 0 Tx10/70"}},
      {"the way down where it is part of the dive",
       {{60, 18, "Tx10/70", kLeg}, {60, 0, "Tx10/70", kLeg}, {0, -9, "Tx18/45"}},
       {"low_ppo2 0 to 0 Tx10/70"},
       true},
      {"a bottom that is too shallow",
       {{5, 18, "Tx10/70", kLeg}, {5, 0, "Tx10/70", kLeg}, {0, -9, "Air"}},
       {"low_ppo2 5 to 5 Tx10/70"}},
      {"a bottom that is too deep, and the way up from it",
       {{40, 18, "EAN32", kLeg}, {40, 0, "EAN32", kLeg}, {36, -9, "EAN32"}, {33, -9, "EAN32"}, {0, -9, "EAN32"}},
       {"high_ppo2 40 to 36 EAN32"}},
      {"a change in passing",
       {{40, 18, "Air", kLeg}, {24, -9, "Air"}, {21, -9, "EAN50"}, {0, -9, "EAN50"}},
       {"high_ppo2 24 to 24 EAN50"}},
      {"oxygen at 6 m within rounding",
       {{30, 18, "Air", kLeg}, {6, -9, "Air"}, {6, 0, "Oxygen", kStop}, {0, -3, "Oxygen"}},
       {}},
      {"a whole ascent on a lost gas",
       {{30, 18, "EAN50", kLeg}, {30, 0, "Air", kLeg}, {9, -9, "EAN50"}, {9, 0, "EAN50", kStop}, {0, -9, "EAN50"}},
       {"high_ppo2 30 to 30 EAN50", "lost_gas 30 to 9 EAN50"},
       false,
       "EAN50"},
  };
  const DiveTemplate settings = ShippedDefaultTemplate();
  for (const Case& c : cases) {
    ClassProfile rows;
    std::int16_t lastOfPlan = 0;
    for (const Leg& leg : c.rows) {
      rows.NewWayPoint();
      Waypoint& row = rows.Row(rows.GetLength());
      row.Depth = leg.depth;
      row.Rate = leg.rate;
      row.Status = leg.status;
      row.GasMixName = leg.gas;
      const GasMix& mix = settings.Blends.at(static_cast<std::size_t>(FindBlend(leg.gas, settings).value()));
      row.GasMixO2 = mix.O2;
      row.GasMixHe = mix.He;
      row.GasMixN2 = mix.N2;
      if (leg.status == kLeg) lastOfPlan = rows.GetLength();
    }
    const auto lostFrom = static_cast<std::int16_t>(lastOfPlan + 1);
    EXPECT_EQ(Told(GasWarnings({rows, settings, lastOfPlan, 1}, {c.descents, c.lost, lostFrom})), c.told) << c.what;
  }
}

TEST(GasWarnings, KnowTheLoopAndTheAirOfAMountainLake) {
  DiveTemplate settings = ShippedDefaultTemplate();
  settings.StartPressure = settings.EndPressure = 0.8;
  ClassProfile rows;
  for (const auto& [depth, rate] : {std::pair{30.0, 18.0}, {30.0, 0.0}, {0.0, -9.0}}) {
    rows.NewWayPoint();
    Waypoint& row = rows.Row(rows.GetLength());
    row.Depth = depth;
    row.Rate = rate;
    row.GasMixO2 = 21;
    row.GasMixN2 = 79;
    row.PPO2 = 1.3;
  }
  EXPECT_THAT(GasWarnings({rows, settings, 2, 1}, {}), testing::IsEmpty()) << "0.17 bar, as on the shore";
  for (std::int16_t i = 1; i <= 3; ++i) rows.Row(i).GasMixO2 = 10;
  EXPECT_EQ(GasWarnings({rows, settings, 2, 1}, {}).size(), 2U);
  EXPECT_THAT(GasWarnings({rows, settings, 2, 4}, {}), testing::IsEmpty()) << "a loop holds its setpoint";
  EXPECT_EQ(GasWarnings({rows, settings, 2, 3}, {}).size(), 1U) << "a bail-out leaves it";
}

}  // namespace
}  // namespace tav
