#include "mixer/mixing.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <random>

#include "support/source_folder.h"

namespace tav {
namespace {

using nlohmann::json;

constexpr double kRoomTemperature = 293;

json Known(const char* name) {
  return json::parse(std::ifstream(SourceFolder() / "tests/data/vectors/units.json"))[name];
}

MixShares Mix(const json& o2AndHe) {
  const double o2 = o2AndHe[0].get<double>();
  const double he = o2AndHe[1].get<double>();
  return {o2, he, 100 - o2 - he};
}

TEST(VanDerWaals, GivesTheKnownCoefficientsAndDensities) {
  const json coefficients = Known("mix_coefficients");
  const json densities = Known("density_from_pressure");
  ASSERT_FALSE(coefficients.empty() || densities.empty());
  for (const json& known : coefficients) {
    const auto value = [&](std::size_t i) { return known[i].get<double>(); };
    EXPECT_NEAR(MixCoefficientA(value(0), value(1), value(2)), value(3), 1e-6);
    EXPECT_NEAR(MixCoefficientB(value(0), value(1), value(2)), value(4), 1e-7);
  }
  for (const json& known : densities) {
    const auto value = [&](std::size_t i) { return known[i].get<double>(); };
    const Single density = DensityFromPressure(value(0), value(1), value(2), kRoomTemperature);
    EXPECT_NEAR(density, value(3), 2e-4 * value(3)) << known;
  }
}

// 32-bit steps inside the root keep the two apart by no more than a thousandth; helium and oxygen lie far apart.
TEST(VanDerWaals, PressureAndDensityAreEachOthersInverse) {
  for (const auto& [o2, he] : {std::pair(0.21, 0.0), {1.0, 0.0}, {0.18, 0.45}, {0.1, 0.7}, {0.05, 0.95}}) {
    const Single a = MixCoefficientA(o2, 1 - o2 - he, he);
    const Single b = MixCoefficientB(o2, 1 - o2 - he, he);
    for (const double bar : {1.0, 10.0, 50.0, 200.0, 300.0}) {
      const Single density = DensityFromPressure(a, b, bar, kRoomTemperature);
      EXPECT_NEAR(PressureFromDensity(density, kRoomTemperature, a, b), bar, std::max(0.02, 1e-3 * bar))
          << o2 << " oxygen, " << he << " helium";
    }
  }
  EXPECT_EQ(DensityFromPressure(1.4, 0.037, 0, kRoomTemperature), Single(0));
}

TEST(Fill, IsTheKnownOne) {
  const json fills = Known("fills");
  ASSERT_FALSE(fills.empty());
  for (const json& known : fills) {
    SCOPED_TRACE(known.dump());
    const FillResult result =
        Recalculate({Mix(known["current"]), known["current_fill"].get<double>(), Mix(known["desired"]),
                     known["desired_fill"].get<double>(), known["metric"].get<bool>()});
    EXPECT_EQ(json(result.AirTopO2), known["air_top_o2"]);
    EXPECT_EQ(json(result.AirTopHe), known["air_top_he"]);
    EXPECT_EQ(json(result.AirTopAir), known["air_top_air"]);
    EXPECT_EQ(json(result.IdealTopO2), known["ideal_top_o2"]);
    EXPECT_EQ(json(result.IdealTopHe), known["ideal_top_he"]);
    EXPECT_EQ(json(result.IdealTopN2), known["ideal_top_n2"]);
    EXPECT_EQ(json(result.AirImpossible), known["air_impossible"]);
  }
}

// Nitrogen beyond that of air takes away more oxygen than there is. Reckoned apart from the program, with the density
// found by bisection.
TEST(Fill, TellsHowMuchOxygenWouldHaveToComeOut) {
  const MixShares air{21, 0, 79};
  const MixShares lean{10, 0, 90};
  struct {
    double currentBar;
    const char* oxygen;
    const char* top;
  } const cases[] = {{0, "-28.4", "228.4"}, {1, "-28.4", "226.4"}, {10, "-27.9", "207.9"}};
  for (const auto& known : cases) {
    const FillResult result = Recalculate({air, known.currentBar, lean, 200});
    EXPECT_EQ(json(result.IdealTopO2), known.oxygen) << known.currentBar;
    EXPECT_EQ(json(result.IdealTopN2), known.top) << known.currentBar;
    EXPECT_TRUE(result.AirImpossible);
  }
}

// What the ideal block tells to fill gives the desired gas: Dalton's law.
TEST(Fill, WithIdealGasesMixesTheDesiredGasOrSaysThatItCannot) {
  std::mt19937 random(6);
  int possible = 0;
  for (int n = 0; n < 5000; ++n) {
    const auto mix = [&]() -> MixShares {
      const double o2 = static_cast<double>(random() % 101);
      const double he = static_cast<double>(random() % 101);  // the two may exceed 100: nitrogen is then below 0
      return {o2, he, 100 - o2 - he};
    };
    const FillRequest request{mix(), static_cast<double>(random() % 301), mix(), static_cast<double>(random() % 301)};
    const FillResult result = Recalculate(request);
    for (const std::string& label : {result.AirTopO2, result.AirTopHe, result.AirTopAir, result.IdealTopO2,
                                     result.IdealTopHe, result.IdealTopN2}) {
      ASSERT_EQ(label.find_first_not_of("-.0123456789"), std::string::npos) << label;
    }
    if (result.AirImpossible) continue;
    ++possible;
    const auto& [current, currentFill, desired, desiredFill, metric, top, celsius, warm] = request;
    EXPECT_NEAR(current.O2 * currentFill + result.AirO2 + 0.21 * result.Air, desired.O2 * desiredFill, 0.05);
    EXPECT_NEAR(current.He * currentFill + result.Heneed, desired.He * desiredFill, 0.05);
    EXPECT_NEAR(current.N2 * currentFill + 0.79 * result.Air, desired.N2 * desiredFill, 0.05);
  }
  EXPECT_GT(possible, 100);
}

// What rounding to 32 bits leaves of nothing keeps no fill from being possible.
TEST(Fill, TopsUpAMixWithWhatItIsMadeOf) {
  for (const double have : {0.0, 1.0, 14.7, 60.5, 199.0, 200.0, 1000.0, 2345.6}) {
    for (const bool metric : {true, false}) {
      EXPECT_FALSE(Recalculate({{21, 0, 79}, have, {21, 0, 79}, 3000, metric}).AirImpossible) << have;
    }
  }
}

struct FieldCase {
  const char* o2;
  const char* he;
  double n2;
  bool o2Reset;
  bool heReset;
  bool over100;
};

TEST(PercentageFields, TakeZeroToAHundredAndLeaveTheRestToNitrogen) {
  const FieldCase cases[] = {{"21", "35", 44, false, false, false},   {"", "", 100, false, false, false},
                             {"100.0", "0", 0, false, false, false},  {"100.1", "0", 100, true, false, false},
                             {"-1", "101", 100, true, true, false},   {"60", "50", -10, false, false, true},
                             {"32%", "x", 100, true, true, false},    {"20,5", "35.5", 44, false, false, false},
                             {"33.3", "66.7", 0, false, false, false}};
  for (const FieldCase& known : cases) {
    SCOPED_TRACE(std::string(known.o2) + " " + known.he);
    const PercentageFields fields = UpdateMix(known.o2, known.he, {",", "."});
    EXPECT_EQ(fields.mix.N2, Single(known.n2));
    EXPECT_EQ(fields.o2Reset, known.o2Reset);
    EXPECT_EQ(fields.heReset, known.heReset);
    EXPECT_EQ(fields.over100, known.over100);
  }
}

}  // namespace
}  // namespace tav
