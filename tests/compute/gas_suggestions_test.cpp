#include "compute/gas_suggestions.h"

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "model/number_text.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using nlohmann::json;

std::string Percent(Single fraction) { return FormatFixed(Single(fraction * 100), 0); }

TEST(GasSuggestions, AreTheKnownOnesWithinThePPO2AndENDLimits) {
  const json units = json::parse(std::ifstream(SourceFolder() / "tests/data/vectors/units.json"));
  ASSERT_FALSE(units["suggestions"].empty());
  for (const json& known : units["suggestions"]) {
    SCOPED_TRACE(known.dump());
    DiveTemplate t;
    t.StartPressure = known["start_pressure"].get<double>();
    t.MaximalEND = known["maximal_end"].get<double>();
    t.O2Narcotic = known["o2_narcotic"];
    t.Metric = known["metric"];
    const Single depth = known["depth"].get<double>();
    for (const bool openCircuit : {true, false}) {
      t.OpenCircuit = openCircuit;
      t.MaxPPO2 = openCircuit ? known["limit"].get<double>() : 0.5;
      t.Setpoint = openCircuit ? 0.5 : known["limit"].get<double>();
      const auto nitrox = SuggestNitrox(depth, t);
      const auto heliox = SuggestHeliox(depth, t);
      const MixFractions trimix = SuggestTrimix(depth, t);
      const json none = {"n/a", "n/a"};
      EXPECT_EQ((nitrox ? json{Percent(nitrox->O2), Percent(nitrox->N2)} : none), known["nitrox"]);
      EXPECT_EQ((heliox ? json{Percent(heliox->O2), Percent(heliox->He)} : none), known["heliox"]);
      EXPECT_EQ((json{Percent(trimix.O2), Percent(trimix.N2), Percent(trimix.He)}), known["trimix"]);
    }
  }
}

TEST(RoundDown, KeepsAHundredthThatOnlyBinaryMakesSmaller) {
  EXPECT_EQ(RoundDown(0.35), Single(0.35));  // 0.349999994 in 32 bits
  EXPECT_EQ(RoundDown(0.3499), Single(0.34));
  EXPECT_EQ(RoundDown(-0.001), Single(-0.01));
}

}  // namespace
}  // namespace tav
