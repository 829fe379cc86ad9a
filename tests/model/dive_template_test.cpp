#include "model/dive_template.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "model/template_faults.h"

namespace tav {
namespace {

DiveTemplate Sound() {
  DiveTemplate t;
  t.OpenCircuit = t.Metric = true;
  t.StartPressure = t.EndPressure = 1;
  t.StepSize = 3;
  t.AscendRates = {{3, 0}, {9, 6}};
  t.DescendRates = {{18, 0}};
  t.Blends = {AirMix(), {"EAN50", 50, 50, 0}};
  t.ChangeGasMixes = {{"EAN50", 50, 50, 0, 21}};
  return t;
}

TEST(CopyDiveTemplate, CopiesEmptyListsAsEmptyOnes) {
  DiveTemplate target = Sound();
  DiveTemplate source = Sound();
  source.ChangeGasMixes.clear();
  source.AscendRates.clear();
  CopyDiveTemplate(source, target);
  EXPECT_TRUE(target.ChangeGasMixes.empty());
  EXPECT_TRUE(target.AscendRates.empty());
  EXPECT_EQ(target.DescendRates.size(), 1U);
}

TEST(Blends, AreFoundByExactNameAndUnknownOnesAreAir) {
  DiveTemplate t = Sound();
  t.Blends.push_back({"EAN50", 51, 49, 0});
  EXPECT_EQ(FindBlend("EAN50", t), 1);
  EXPECT_EQ(FindBlend("ean50", t), std::nullopt);
  EXPECT_EQ(FindBlendIndex("ean50", t), 0);
  for (const char* good : {"EAN32", "Tx18/45", "bottom gas", "50%"}) EXPECT_EQ(BlendNameFault(good), "");
  for (const char* bad : {"", " ", "a:b", "a,b", " a", "a\t", "a\nb"}) EXPECT_NE(BlendNameFault(bad), "") << bad;
}

TEST(GasChanges, TakeTheLastBlendOfTheirNameInSevenDigits) {
  DiveTemplate t = Sound();
  t.Blends.push_back({"EAN50", 100.0 / 3, 200.0 / 3, 0});
  t.ChangeGasMixes = {{"EAN50", 1, 2, 3, 21}, {"unknown", 1, 2, 3, 6}};
  EXPECT_THAT(ResolveGasChanges(t), testing::ElementsAre("unknown"));
  EXPECT_EQ(t.ChangeGasMixes[0].O2, Single(33.33333));
  EXPECT_EQ(t.ChangeGasMixes[0].N2, Single(66.66666));
  EXPECT_EQ(t.ChangeGasMixes[0].He, Single(0));
  EXPECT_EQ(t.ChangeGasMixes[1].He, Single(3));
}

struct Unsound {
  const char* key;
  std::function<void(DiveTemplate&)> spoil;
  int occurrence = -1;
};

TEST(TemplateFaults, NameTheFieldOfEachReasonNotToPlan) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(TemplateFaults(Sound()).empty());
  const Unsound cases[] = {{"RMV", [&](DiveTemplate& t) { t.RMV = kInfinity; }},
                           {"StepSize", [](DiveTemplate& t) { t.StepSize = 0; }},
                           {"StepSize", [](DiveTemplate& t) { t.StepSize = 0.099; }},
                           {"StepSize", [&](DiveTemplate& t) { t.StepSize = kNaN; }},
                           {"LastStop", [](DiveTemplate& t) { t.LastStop = -1; }},
                           {"StartPressure", [](DiveTemplate& t) { t.StartPressure = 0; }},
                           {"EndPressure", [](DiveTemplate& t) { t.EndPressure = -1; }},
                           {"EndPressure", [](DiveTemplate& t) { t.EndPressure = 1013.25; }},
                           {"StartPressure", [](DiveTemplate& t) { t.StartPressure = 0.29; }},
                           {"StartPressure", [](DiveTemplate& t) { t.StartPressure = 1.21; }},
                           {"StartAltitude", [](DiveTemplate& t) { t.Metric = true, t.StartAltitude = 6001; }},
                           {"EndAltitude", [](DiveTemplate& t) { t.EndAltitude = -1641; }},
                           {"LastStop", [](DiveTemplate& t) { t.Metric = true, t.LastStop = 30.5; }},
                           {"LastStop", [](DiveTemplate& t) { t.LastStop = 101; }},
                           {"MaxPPO2", [](DiveTemplate& t) { t.MaxPPO2 = -1; }},
                           {"Maximal END", [](DiveTemplate& t) { t.MaximalEND = -1; }},
                           {"DecoSetpoint", [](DiveTemplate& t) { t.DecoSetpoint = -1; }},
                           {"Blends Available", [](DiveTemplate& t) { t.Blends[1].O2 = 55; }, 0},
                           {"GF", [](DiveTemplate& t) { t.GFLow = -0.1; }},
                           {"GF", [](DiveTemplate& t) { t.GFHigh = 2; }},
                           {"Setpoint", [](DiveTemplate& t) { t.OpenCircuit = false, t.DecoSetpoint = 1.3; }},
                           {"DecoSetpoint", [](DiveTemplate& t) { t.OpenCircuit = false, t.Setpoint = 1.3; }},
                           {"AscendRates", [](DiveTemplate& t) { t.AscendRates.clear(); }},
                           {"AscendRates", [](DiveTemplate& t) { t.AscendRates[0].Depth = 3; }},
                           {"AscendRates", [](DiveTemplate& t) { t.AscendRates[1].Depth = 0; }},
                           {"DescendRates", [](DiveTemplate& t) { t.DescendRates[0].Rate = 0; }},
                           {"DescendRates", [](DiveTemplate& t) { t.DescendRates[0].Rate = 1e-38; }},
                           {"AscendRates", [](DiveTemplate& t) { t.AscendRates[1].Rate = 1e38; }},
                           {"StartPressure", [](DiveTemplate& t) { t.StartPressure = 1e38; }},
                           {"DescendRates", [&](DiveTemplate& t) { t.DescendRates[0].Rate = kNaN; }},
                           {"Blends Available",
                            [](DiveTemplate& t) {
                              t.Blends[1] = {"nothing", 0, 0, 0};
                            },
                            0},
                           {"Blends Available", [](DiveTemplate& t) { t.Blends[1].O2 = 101; }, 0},
                           {"Blends Available",
                            [](DiveTemplate& t) {
                              t.Blends[1] = {"N2 alone", 60, -20, 60};
                            },
                            0},
                           {"Blends Available",
                            [](DiveTemplate& t) {
                              t.Blends[1] = {"He alone", 60, 60, -20};
                            },
                            0},
                           {"Blends Available", [&](DiveTemplate& t) { t.Blends[1].O2 = kNaN; }, 0},
                           {"Blends Available", [&](DiveTemplate& t) { t.Blends[1].N2 = kNaN; }, 0},
                           {"Blends Available", [&](DiveTemplate& t) { t.Blends[1].He = kNaN; }, 0},
                           {"Blends Available", [](DiveTemplate& t) { t.Blends.clear(); }},
                           {"Change Gas Mixes", [&](DiveTemplate& t) { t.ChangeGasMixes[0].Depth = kInfinity; }}};
  for (const Unsound& unsound : cases) {
    DiveTemplate t = Sound();
    unsound.spoil(t);
    const auto faults = TemplateFaults(t);
    ASSERT_EQ(faults.size(), 1U) << unsound.key << ": " << JoinFaults(faults).Raw();
    EXPECT_EQ(faults[0].key, unsound.key);
    EXPECT_EQ(faults[0].occurrence, unsound.occurrence) << unsound.key;
  }
  DiveTemplate openDeco = Sound();
  openDeco.OpenCircuit = false;
  openDeco.OCDeco = true;
  openDeco.Setpoint = 1.3;
  EXPECT_TRUE(TemplateFaults(openDeco).empty()) << "stops on open circuit need no setpoint";
  DiveTemplate feet = Sound();
  feet.Metric = false;
  feet.StartAltitude = 19685;
  feet.LastStop = 100;
  feet.GFHigh = 1.99;
  feet.Blends[1].O2 = 50.5;
  EXPECT_TRUE(TemplateFaults(feet).empty());
}

TEST(PlanFaults, TellTheActionOfALegThatCannotBePlanned) {
  const DiveTemplate t = Sound();
  ClassUseractions actions;
  const auto add = [&](double depth, double time, std::int16_t mix) {
    actions.NewAction();
    actions.setuser(actions.GetLength(), depth, time, mix);
  };
  add(10000, 100000, 1);
  add(-1, 5, 0);
  add(10, -1, 0);
  add(10001, 5, 0);
  add(10, 5, 2);
  add(10, 5, -1);
  add(10, 5, 99);
  actions.setdeco(actions.GetLength());  // an ascent needs none of it
  const auto faults = PlanFaults(actions, t);
  ASSERT_EQ(faults.size(), 5U);
  for (std::size_t i = 0; i < faults.size(); ++i) {
    EXPECT_EQ(faults[i].values.at(0).plain, std::to_string(i + 2));
    EXPECT_NE(faults[i].values.at(1).text, 0);
  }
}

}  // namespace
}  // namespace tav
