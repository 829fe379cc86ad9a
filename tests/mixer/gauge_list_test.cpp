#include "mixer/gauge_list.h"

#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <random>
#include <string>

#include "mixer/fill_advice.h"
#include "model/number_text.h"
#include "support/source_folder.h"

namespace tav {
namespace {

constexpr double kUnrounded = 0;

FillRequest Request(MixShares current, double currentFill, MixShares desired, double desiredFill, bool metric = true) {
  return {current, currentFill, desired, desiredFill, metric};
}
MixShares Mix(double o2, double he) { return {o2, he, 100 - o2 - he}; }

/// "He 85 O2 102 Top 200"
std::string Told(const std::vector<FillStep>& steps, int decimals = 0) {
  std::string text;
  for (const FillStep& step : steps) {
    const char* name = step.gas == FillGas::Helium ? "He " : step.gas == FillGas::Oxygen ? "O2 " : "Top ";
    text += (text.empty() ? "" : " ") + std::string(name) + FormatFixed(step.to, decimals);
  }
  return text;
}

/// Any fill that a diver might ask for, or get wrong.
class RandomFills {
 public:
  FillRequest Next(bool metric = true) {
    const double scale = metric ? 1 : kPsiPerBar;
    const double want = 20 + 280 * Share();
    // An empty cylinder, or a part-full one.
    const double have = random_() % 3 == 0 ? 1 : 1 + (want - 1) * Share();
    FillRequest request{AnyMix(), have * scale, AnyMix(), want * scale, metric};
    if (random_() % 3 == 0) request.top = Mix(std::round(21 + 20 * Share()), random_() % 2 == 0 ? 0 : 20);
    if (random_() % 3 == 0) request.celsius = std::round(40 * Share());
    return request;
  }
  double Share() { return std::uniform_real_distribution(0.0, 1.0)(random_); }

 private:
  MixShares AnyMix() {
    const double o2 = 5 + 95 * Share();
    const double he = random_() % 2 == 0 ? 0 : (100 - o2) * Share();
    return Mix(std::round(o2), std::round(he));
  }
  std::mt19937 random_{11};
};

TEST(GaugeList, IsThatOfTheReferenceFills) {
  const auto file = nlohmann::json::parse(std::ifstream(SourceFolder() / "tests/data/gas/reference_fills.json"));
  ASSERT_EQ(file["fills"].size(), 50U);
  for (const auto& known : file["fills"]) {
    SCOPED_TRACE(known.dump());
    const auto number = [&](const char* key) { return known[key].get<double>(); };
    const auto mix = [&](const char* key) { return Mix(known[key][0].get<double>(), known[key][1].get<double>()); };
    FillRequest request{mix("have"), number("start"), mix("want"), number("end"), !known["imperial"].get<bool>()};
    request.top = mix("top");
    request.celsius = number("celsius");
    const GaugeList list = GaugeListOf(request, kUnrounded);
    ASSERT_EQ(list.steps.size(), known["steps"].size()) << Told(list.steps, 3);
    for (std::size_t i = 0; i < list.steps.size(); ++i) {
      EXPECT_EQ(Told({list.steps[i]}).substr(0, 1), known["steps"][i][0] == "helium"   ? "H"
                                                    : known["steps"][i][0] == "oxygen" ? "O"
                                                                                       : "T");
      EXPECT_NEAR(list.steps[i].to, known["steps"][i][1].get<double>(), request.metric ? 1e-4 : 1e-3);
    }
    const GaugeList rounded = GaugeListOf(request, GaugeMark(request.metric));
    EXPECT_NEAR(rounded.comesOut.O2, known["rounded_gives"][0].get<double>(), 2e-4);
    EXPECT_NEAR(rounded.comesOut.He, known["rounded_gives"][1].get<double>(), 2e-4);
  }
}

TEST(GaugeList, TellsThePressureAfterEachGasInOrderOfFilling) {
  const struct {
    FillRequest request;
    double mark;
    const char* real;
    const char* ideal;
  } cases[] = {
      {Request(Mix(21, 0), 1, Mix(18, 45), 200), 0.1, "He 85.4 O2 102.2 Top 200.0", "He 91.0 O2 107.3 Top 200.0"},
      {Request(Mix(21, 0), 1, Mix(18, 45), 200), 1, "He 85 O2 102 Top 200", "He 91 O2 107 Top 200"},
      {Request(Mix(21, 0), 14.7, Mix(32, 0), 2940, false), 10, "O2 410 Top 2940", "O2 420 Top 2940"},
      {Request(Mix(21, 0), 0, Mix(100, 0), 200), 1, "O2 200", "O2 200"},
      {Request(Mix(21, 0), 1, Mix(21, 0), 200), 1, "Top 200", "Top 200"},
      // Less than half a mark is left out, more is not.
      {Request(Mix(21, 0), 1, Mix(21.15, 0), 200), 1, "Top 200", "Top 200"},
      {Request(Mix(21, 0), 1, Mix(21.3, 0), 200), 1, "O2 2 Top 200", "O2 2 Top 200"},
      // An open cylinder holds a bar of air, which stays in.
      {Request(Mix(21, 0), 1, Mix(100, 0), 200), 1, "O2 200", ""},
      {Request(Mix(21, 0), 1, Mix(0, 100), 200), 1, "He 200", ""},
      {Request(Mix(32, 0), 150, Mix(32, 0), 150), 1, "", ""},
  };
  for (const auto& [request, mark, real, ideal] : cases) {
    const int decimals = mark < 1 ? 1 : 0;
    const GaugeList list = GaugeListOf(request, mark);
    EXPECT_EQ(Told(list.steps, decimals), real);
    EXPECT_TRUE(list.possible);
    EXPECT_EQ(Told(IdealSteps(request, mark), decimals), ideal);
    EXPECT_FALSE(list.oxygenOff || list.heliumOff) << real;
  }
}

TEST(GaugeList, GivesTheWantedMixBeforeItIsRoundedOrComesWithinTheMargins) {
  RandomFills fills;
  int exact = 0;
  int within = 0;
  for (int n = 0; n < 60000 && exact < 10000; ++n) {
    const FillRequest request = fills.Next(n % 2 == 0);
    const Filling filling(request);
    const Amounts amounts = filling.AmountsFor(filling.At(request.desired, request.desiredFill),
                                               filling.At(request.current, request.currentFill));
    const bool nothingComesOut = amounts[0] >= 0 && amounts[1] >= 0 && amounts[2] >= 0;
    if (!nothingComesOut && n > 5000) continue;
    const GaugeList list = GaugeListOf(request, kUnrounded);
    ASSERT_TRUE(list.possible || !nothingComesOut) << n;
    if (!list.possible || list.steps.empty()) continue;
    SCOPED_TRACE(std::to_string(n) + " " + Told(list.steps, 3));
    ++(nothingComesOut ? exact : within);
    EXPECT_NEAR(list.comesOut.O2, request.desired.O2, nothingComesOut ? 0.05 : kOxygenMargin);
    EXPECT_NEAR(list.comesOut.He, request.desired.He, nothingComesOut ? 0.05 : kHeliumMargin);
    EXPECT_NEAR(list.comesOut.O2 + list.comesOut.He + list.comesOut.N2, 100, 1e-4);
    EXPECT_NEAR(list.steps.back().to, request.desiredFill, 1e-3 * request.desiredFill);
    Single last = request.currentFill;
    for (const FillStep& step : list.steps) {
      EXPECT_GT(step.to, last);
      last = step.to;
    }
  }
  EXPECT_EQ(exact, 10000);
  EXPECT_GT(within, 20);
}

TEST(GaugeList, SaysTheSameInBarAndPsi) {
  constexpr double kPsiPerRealBar = kPsiPerBar / kBarPerAtmosphere;
  RandomFills fills;
  for (int n = 0; n < 500; ++n) {
    const FillRequest bar = fills.Next();
    FillRequest psi = bar;
    psi.metric = false;
    psi.currentFill = bar.currentFill * kPsiPerRealBar;
    psi.desiredFill = bar.desiredFill * kPsiPerRealBar;
    const GaugeList inBar = GaugeListOf(bar, kUnrounded);
    const GaugeList inPsi = GaugeListOf(psi, kUnrounded);
    ASSERT_EQ(inBar.possible, inPsi.possible);
    ASSERT_EQ(inBar.steps.size(), inPsi.steps.size());
    for (std::size_t i = 0; i < inBar.steps.size(); ++i) {
      EXPECT_EQ(inBar.steps[i].gas, inPsi.steps[i].gas);
      EXPECT_NEAR(inBar.steps[i].to * kPsiPerRealBar, inPsi.steps[i].to, 0.05);
      EXPECT_NEAR(inBar.steps[i].added, inPsi.steps[i].added, 0.02);
    }
  }
}

// What is marked is what an analyser would find beyond the margins.
TEST(GaugeList, MarksAMixThatTheGaugeIsTooCoarseFor) {
  const GaugeList coarse = GaugeListOf(Request(Mix(21, 0), 1, Mix(25, 25), 10), 1);
  EXPECT_TRUE(coarse.oxygenOff) << coarse.comesOut.O2;
  EXPECT_TRUE(coarse.heliumOff) << coarse.comesOut.He;
  RandomFills fills;
  int marked = 0;
  for (int n = 0; n < 3000; ++n) {
    const FillRequest request = fills.Next();
    const GaugeList list = GaugeListOf(request, GaugeMark(true));
    if (!list.possible || list.steps.empty()) continue;
    EXPECT_EQ(list.oxygenOff, std::fabs(list.comesOut.O2 - request.desired.O2) > 0.5);
    EXPECT_EQ(list.heliumOff, std::fabs(list.comesOut.He - request.desired.He) > 1);
    if (list.oxygenOff || list.heliumOff) ++marked;
  }
  EXPECT_GT(marked, 10);
}

TEST(GaugeList, TellsHowMuchOfEachGasGoesIn) {
  const FillRequest request = Request(Mix(21, 0), 1, Mix(18, 45), 200);
  const GaugeList list = GaugeListOf(request, kUnrounded);
  ASSERT_EQ(list.steps.size(), 3U);
  double sum = 1;  // of the bar of air that was there
  for (const FillStep& step : list.steps) sum += step.added;
  // A litre of helium holds a little less gas than one of air: 0.05 % of Z at 1 bar.
  EXPECT_NEAR(list.steps[0].added / sum, 0.45, 0.001) << "45 % of all molecules are helium";
  EXPECT_NEAR(list.steps[1].added + 0.21 * list.steps[2].added + 0.21, 0.18 * sum, 0.1) << "18 % are oxygen";
  EXPECT_LT(sum, 200) << "at this pressure helium is harder to compress than an ideal gas";
}

// A cylinder that is filled warm shows more, and cools to what was wanted.
TEST(GaugeList, TellsWhatTheGaugeShowsInAWarmCylinder) {
  FillRequest request = Request(Mix(21, 0), 1, Mix(32, 0), 210);
  request.warm = 45;
  const FillStep last = GaugeListOf(request, kUnrounded).steps.back();
  EXPECT_NEAR(last.to, 210, 1e-3);
  EXPECT_NEAR(last.warm, 236.11, 0.01);
  request.celsius = 45;
  request.desiredFill = last.warm;
  const Filling warm(request);
  EXPECT_NEAR(warm.GaugeOf(warm.At(request.desired, last.warm), 20), 210, 1e-3);
}

TEST(ImpossibleFill, SaysWhichGasMustComeOutHowFarToDrainAndWhatComesNearest) {
  const struct {
    FillRequest request;
    std::vector<FillGas> out;
    std::optional<double> drain;
    std::optional<MixShares> nearest;
  } cases[] = {
      {Request(Mix(50, 0), 150, Mix(32, 0), 200), {FillGas::Oxygen}, 72, Mix(43.3, 0)},
      {Request(Mix(18, 45), 150, Mix(32, 0), 200), {FillGas::Helium}, 4, Mix(32, 34.2)},
      {Request(Mix(32, 0), 200, Mix(32, 0), 100), {FillGas::Oxygen, FillGas::Top}, 100, std::nullopt},
      // What an open cylinder holds does no harm to oxygen.
      {Request(Mix(21, 0), 150, Mix(100, 0), 200), {FillGas::Top}, 1, Mix(40.5, 0)},
      {Request(Mix(21, 0), 1, Mix(100, 0), 100), {FillGas::Top}, 0.6, Mix(99.2, 0)},
      // Air on top brings more oxygen than such a mix may hold.
      {Request(Mix(21, 0), 1, Mix(8, 50), 200), {FillGas::Oxygen}, std::nullopt, Mix(10.1, 51.8)},
  };
  for (const auto& each : cases) {
    const GaugeList list = GaugeListOf(each.request, 1);
    EXPECT_FALSE(list.possible);
    EXPECT_EQ(list.mustComeOut, each.out);
    EXPECT_TRUE(list.steps.empty());
    EXPECT_EQ(list.drainTo.has_value(), each.drain.has_value());
    EXPECT_NEAR(list.drainTo.value_or(0), each.drain.value_or(0), 0.05);
    ASSERT_EQ(list.nearest.has_value(), each.nearest.has_value());
    EXPECT_NEAR(list.nearest.value_or(MixShares{}).O2, each.nearest.value_or(MixShares{}).O2, 0.06);
    EXPECT_NEAR(list.nearest.value_or(MixShares{}).He, each.nearest.value_or(MixShares{}).He, 0.06);
  }
}

TEST(ImpossibleFill, WorksOnceTheCylinderIsDrainedSoFarAndNoSooner) {
  RandomFills fills;
  int drained = 0;
  int hopeless = 0;
  int within = 0;
  for (int n = 0; n < 1000; ++n) {
    FillRequest request = fills.Next(n % 2 == 0);
    const double mark = GaugeMark(request.metric);
    const FillAdvice advice(request, mark);
    if (advice.AsAsked().possible) continue;
    SCOPED_TRACE(n);
    const auto& drainTo = advice.AsAsked().drainTo;
    if (!drainTo) {
      ++hopeless;
      for (const double kept : {0.0, 0.25, 0.5, 0.75}) {
        FillRequest less = request;
        less.currentFill = kept * request.currentFill;
        EXPECT_FALSE(GaugeListOf(less, mark).possible);
      }
      continue;
    }
    ++drained;
    EXPECT_LT(*drainTo, request.currentFill);
    EXPECT_TRUE(advice.Drains() && advice.list.possible);
    // Two marks more may come within the margins, but no longer to what is wanted.
    if (std::fabs(GaugeListOf(advice.from, kUnrounded).comesOut.O2 - request.desired.O2) > 1e-3) continue;
    request.currentFill = *drainTo + 2 * mark;
    const GaugeList sooner = GaugeListOf(request, kUnrounded);
    if (!sooner.possible) continue;
    ++within;
    EXPECT_GT(std::fabs(sooner.comesOut.O2 - request.desired.O2) + std::fabs(sooner.comesOut.He - request.desired.He),
              1e-3);
  }
  EXPECT_GT(drained, 150);
  EXPECT_GT(hopeless, 10);
  EXPECT_GT(within, 10);
}

TEST(ImpossibleFill, ComesNoNearerInAnyOtherWay) {
  RandomFills fills;
  const auto distance = [](const MixShares& mix, const MixShares& wanted) {
    return std::hypot((mix.O2 - wanted.O2) / kOxygenMargin, (mix.He - wanted.He) / kHeliumMargin);
  };
  int compared = 0;
  for (int n = 0; n < 400; ++n) {
    const FillRequest request = fills.Next();
    const GaugeList list = GaugeListOf(request, kUnrounded);
    if (!list.nearest) continue;
    ++compared;
    const Filling filling(request);
    for (int other = 0; other < 10; ++other) {
      // Helium and oxygen to any pressures, the gas on top to the end.
      const double room = request.desiredFill - request.currentFill;
      const double helium = request.desired.He > 0 ? fills.Share() * room : 0;
      Contents contents = filling.At(request.current, request.currentFill);
      for (const auto& [gas, to] : {std::pair(FillGas::Helium, helium),
                                    {FillGas::Oxygen, helium + fills.Share() * (room - helium)},
                                    {FillGas::Top, room}}) {
        const Contents& fractions = filling.Gas(gas);
        contents = contents + filling.AmountUntil(contents, fractions, request.currentFill + to) * fractions;
      }
      ASSERT_GE(distance(MixOf(contents), request.desired), distance(*list.nearest, request.desired) - 1e-3) << n;
    }
  }
  EXPECT_GT(compared, 100);
}

TEST(MaximumOperatingDepth, IsRoundedDown) {
  const struct {
    double o2, ppo2;
    bool metric;
    std::optional<int> depth;
  } cases[] = {{32, 1.4, true, 33}, {32, 1.6, true, 39}, {21, 1.4, true, 56},         {32, 1.4, false, 111},
               {100, 1.6, true, 5}, {100, 1, true, 0},   {0, 1.4, true, std::nullopt}};
  for (const auto& each : cases) {
    EXPECT_EQ(MaximumOperatingDepth(each.o2, each.ppo2, each.metric), each.depth) << each.o2;
  }
}

}  // namespace
}  // namespace tav
