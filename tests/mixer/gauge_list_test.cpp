#include "mixer/gauge_list.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "model/number_text.h"

namespace tav {
namespace {

constexpr double kUnrounded = 0;

FillRequest Request(MixShares current, double currentFill, MixShares desired, double desiredFill, bool metric = true) {
  return {current, currentFill, desired, desiredFill, metric};
}
MixShares Mix(double o2, double he) { return {o2, he, 100 - o2 - he}; }

/// "He 81 O2 97 Air 200"
std::string Told(const std::vector<FillStep>& steps, int decimals = 0) {
  std::string text;
  for (const FillStep& step : steps) {
    const char* name = step.gas == FillGas::Helium ? "He " : step.gas == FillGas::Oxygen ? "O2 " : "Air ";
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
    return {AnyMix(), have * scale, AnyMix(), want * scale, metric};
  }

 private:
  double Share() { return std::uniform_real_distribution(0.0, 1.0)(random_); }
  MixShares AnyMix() {
    const double o2 = 5 + 95 * Share();
    const double he = random_() % 2 == 0 ? 0 : (100 - o2) * Share();
    return Mix(std::round(o2), std::round(he));
  }
  std::mt19937 random_{11};
};

TEST(GaugeList, TellsThePressureAfterEachGasInOrderOfFilling) {
  const struct {
    FillRequest request;
    double mark;
    const char* real;
    const char* ideal;
  } cases[] = {
      {Request(Mix(21, 0), 1, Mix(32, 0), 200), 0.1, "O2 29.5 Air 200.0", "O2 28.8 Air 200.0"},
      {Request(Mix(21, 0), 1, Mix(18, 45), 200), 0.1, "He 80.5 O2 96.7 Air 200.0", "He 91.0 O2 107.3 Air 200.0"},
      {Request(Mix(21, 0), 1, Mix(18, 45), 200), 1, "He 81 O2 97 Air 200", "He 91 O2 107 Air 200"},
      {Request(Mix(32, 0), 60, Mix(50, 0), 200), 1, "O2 121 Air 200", "O2 125 Air 200"},
      {Request(Mix(18, 45), 70, Mix(21, 35), 220), 1, "He 109 O2 123 Air 220", "He 116 O2 130 Air 220"},
      {Request(Mix(21, 0), 14.7, Mix(32, 0), 2940, false), 10, "O2 430 Air 2940", "O2 420 Air 2940"},
      {Request(Mix(21, 0), 0, Mix(100, 0), 200), 1, "O2 200", "O2 200"},
      // Compressed air has a little less oxygen than 21 %: less than a gauge shows is left out.
      {Request(Mix(21, 0), 1, Mix(21, 0), 200), 1, "Air 200", "Air 200"},
      {Request(Mix(32, 0), 150, Mix(32, 0), 150), 1, "", ""},
  };
  for (const auto& [request, mark, real, ideal] : cases) {
    const int decimals = mark < 1 ? 1 : 0;
    const GaugeList list = GaugeListOf(request, mark);
    EXPECT_EQ(Told(list.steps, decimals), real);
    EXPECT_TRUE(list.Possible());
    EXPECT_EQ(Told(IdealSteps(request, mark), decimals), ideal);
    EXPECT_FALSE(list.oxygenOff || list.heliumOff) << real;
  }
}

TEST(GaugeList, GivesTheWantedMixBeforeItIsRounded) {
  RandomFills fills;
  int possible = 0;
  for (int n = 0; n < 40000 && possible < 10000; ++n) {
    const FillRequest request = fills.Next(n % 2 == 0);
    const GaugeList list = GaugeListOf(request, kUnrounded);
    if (!list.Possible() || list.steps.empty()) continue;
    ++possible;
    SCOPED_TRACE(std::to_string(n) + " " + Told(list.steps, 3));
    EXPECT_NEAR(list.comesOut.O2, request.desired.O2, 0.05);
    EXPECT_NEAR(list.comesOut.He, request.desired.He, 0.05);
    EXPECT_NEAR(list.comesOut.N2, request.desired.N2, 0.05);
    EXPECT_NEAR(list.steps.back().to, request.desiredFill, 1e-3 * request.desiredFill);
    Single last = request.currentFill;
    for (const FillStep& step : list.steps) {
      EXPECT_GT(step.to, last);
      last = step.to;
    }
  }
  EXPECT_EQ(possible, 10000);
}

TEST(GaugeList, SaysTheSameInBarAndPsi) {
  RandomFills fills;
  for (int n = 0; n < 2000; ++n) {
    const FillRequest bar = fills.Next();
    const FillRequest psi = {bar.current, bar.currentFill * kPsiPerBar, bar.desired, bar.desiredFill * kPsiPerBar,
                             false};
    const GaugeList inBar = GaugeListOf(bar, kUnrounded);
    const GaugeList inPsi = GaugeListOf(psi, kUnrounded);
    ASSERT_EQ(inBar.Possible(), inPsi.Possible());
    ASSERT_EQ(inBar.steps.size(), inPsi.steps.size());
    for (std::size_t i = 0; i < inBar.steps.size(); ++i) {
      EXPECT_EQ(inBar.steps[i].gas, inPsi.steps[i].gas);
      EXPECT_NEAR(inBar.steps[i].to * kPsiPerBar, inPsi.steps[i].to, 0.05);
      EXPECT_NEAR(inBar.steps[i].added, inPsi.steps[i].added, 0.02);
    }
  }
}

// What is marked is what an analyser would find beyond the margins.
TEST(GaugeList, MarksAMixThatTheGaugeIsTooCoarseFor) {
  const GaugeList coarse = GaugeListOf(Request(Mix(21, 0), 1, Mix(25, 25), 10), 1);
  EXPECT_TRUE(coarse.oxygenOff) << coarse.comesOut.O2;
  EXPECT_TRUE(coarse.heliumOff) << coarse.comesOut.He;
  EXPECT_NEAR(coarse.ifIdeal.He, 20, 0.1) << Told(coarse.steps);
  RandomFills fills;
  int marked = 0;
  for (int n = 0; n < 3000; ++n) {
    const FillRequest request = fills.Next();
    const GaugeList list = GaugeListOf(request, GaugeMark(true));
    if (!list.Possible() || list.steps.empty()) continue;
    EXPECT_EQ(list.oxygenOff, std::fabs(list.comesOut.O2 - request.desired.O2) > 0.5);
    EXPECT_EQ(list.heliumOff, std::fabs(list.comesOut.He - request.desired.He) > 1);
    if (list.oxygenOff || list.heliumOff) ++marked;
    if (request.desiredFill > 200) {
      EXPECT_NEAR(list.comesOut.O2, request.desired.O2, 0.75) << Told(list.steps);
    }
  }
  EXPECT_GT(marked, 10);
}

TEST(GaugeList, TellsHowMuchOfEachGasGoesIn) {
  const FillRequest request = Request(Mix(21, 0), 1, Mix(18, 45), 200);
  const GaugeList list = GaugeListOf(request, kUnrounded);
  ASSERT_EQ(list.steps.size(), 3U);
  double sum = 1;  // of the bar of air that was there
  for (const FillStep& step : list.steps) sum += step.added;
  EXPECT_NEAR(list.steps[0].added / sum, 0.45, 0.001) << "45 % of all molecules are helium";
  EXPECT_NEAR(list.steps[1].added + 0.208 * list.steps[2].added + 0.21, 0.18 * sum, 0.1) << "18 % are oxygen";
  EXPECT_LT(sum, 200) << "at this pressure helium is harder to compress than an ideal gas";
}

TEST(ImpossibleFill, SaysWhichGasMustComeOutAndHowFarToDrain) {
  using testing::ElementsAre;
  const struct {
    FillRequest request;
    std::vector<FillGas> out;
    std::optional<double> drain;
  } cases[] = {
      {Request(Mix(50, 0), 150, Mix(32, 0), 200), {FillGas::Oxygen}, 75},
      {Request(Mix(18, 45), 150, Mix(32, 0), 200), {FillGas::Helium}, 0},
      {Request(Mix(21, 0), 1, Mix(100, 0), 200), {FillGas::Air}, 0},
      {Request(Mix(32, 0), 200, Mix(32, 0), 100), {FillGas::Oxygen, FillGas::Air}, 100},
      // Air on top brings more oxygen than such a mix may hold.
      {Request(Mix(21, 0), 1, Mix(10, 50), 200), {FillGas::Oxygen}, std::nullopt},
  };
  for (const auto& each : cases) {
    const GaugeList list = GaugeListOf(each.request, 1);
    EXPECT_EQ(list.mustComeOut, each.out);
    EXPECT_TRUE(list.steps.empty());
    EXPECT_EQ(list.drainTo.has_value(), each.drain.has_value());
    EXPECT_NEAR(list.drainTo.value_or(0), each.drain.value_or(0), 0.5);
  }
}

TEST(ImpossibleFill, WorksOnceTheCylinderIsDrainedSoFarAndNoSooner) {
  RandomFills fills;
  int drained = 0;
  int hopeless = 0;
  int harmless = 0;
  for (int n = 0; n < 5000; ++n) {
    FillRequest request = fills.Next(n % 2 == 0);
    const double mark = GaugeMark(request.metric);
    const GaugeList list = GaugeListOf(request, mark);
    if (list.Possible()) continue;
    SCOPED_TRACE(n);
    if (!list.drainTo) {
      ++hopeless;
      for (const double kept : {0.0, 0.25, 0.5, 0.75}) {
        FillRequest less = request;
        less.currentFill = kept * request.currentFill;
        EXPECT_FALSE(GaugeListOf(less, mark).Possible());
      }
      continue;
    }
    ++drained;
    EXPECT_LT(*list.drainTo, request.currentFill);
    request.currentFill = *list.drainTo;
    EXPECT_TRUE(GaugeListOf(request, mark).Possible());
    FillRequest empty = request;
    empty.currentFill = 0;
    EXPECT_TRUE(!Recalculate(request).AirImpossible || Recalculate(empty).AirImpossible)
        << "and the sheet can be printed";
    request.currentFill = *list.drainTo + 2 * mark;
    const GaugeList sooner = GaugeListOf(request, kUnrounded);
    // Two marks more of nearly the wanted gas may do no harm.
    if (sooner.Possible() && !Recalculate(request).AirImpossible) {
      EXPECT_NEAR(sooner.comesOut.O2, request.desired.O2, 0.05);
      EXPECT_NEAR(sooner.comesOut.He, request.desired.He, 0.05);
      ++harmless;
    }
  }
  EXPECT_GT(drained, 500);
  EXPECT_GT(hopeless, 50);
  EXPECT_LT(harmless, drained / 20);
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
