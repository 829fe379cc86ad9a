#include <map>
#include <random>
#include <regex>
#include <set>

#include "advice/plan_check.h"
#include "advice/what_if.h"
#include "cli/tavplan_fixture.h"
#include "figures/advice_words.h"
#include "persist/profile_file.h"
#include "reports/plan_slate.h"
#include "supply/supply_text.h"
#include "support/english.h"
#include "support/random_plan.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;

/// Cylinders as someone may carry them: too few, too small, some told as bail-out.
void Equip(DiveTemplate& settings, std::mt19937& random) {
  const auto pick = [&](auto... values) -> double {
    const double list[] = {static_cast<double>(values)...};
    return list[random() % sizeof...(values)];
  };
  settings.Cylinders.clear();
  for (const GasMix& blend : settings.Blends) {
    for (auto lines = random() % 4; lines > 1; --lines) {
      const double fill = pick(60, 100, 200, 230);
      settings.Cylinders.push_back({blend.Name, static_cast<std::int16_t>(pick(1, 2)), pick(3, 7, 12, 18), 0, fill,
                                    pick(0, 30, 50), random() % 2 == 0});
    }
  }
  if (settings.Cylinders.empty()) settings.Cylinders.push_back({settings.Blends.front().Name, 2, 12, 0, 200, 50});
  settings.Team = SupplyChoice{static_cast<int>(pick(1, 2, 3)), pick(1, 1.5, 2), pick(0, 1, 2, 3),
                               static_cast<TurnRule>(random() % 3)};
}

/// The shipped dives, and others at random, each with cylinders.
std::vector<std::vector<DiveRecord>> Plans() {
  std::mt19937 random(2021);
  std::vector<std::vector<DiveRecord>> plans;
  for (const auto& entry : fs::directory_iterator(SourceFolder() / "dives")) {
    if (entry.path().extension() == ".tav") plans.push_back(ReadProfileFile(entry.path()).dives);
  }
  constexpr int kRandom = 100;
  for (int i = 0; i < kRandom; ++i) {
    const test::RandomPlan plan = test::MakePlan(random);
    plans.push_back({{plan.settings, 0, plan.actions}});
  }
  for (auto& dives : plans) {
    for (DiveRecord& dive : dives) Equip(dive.Template, random);
  }
  return plans;
}

/// The verdict of a gas in each form for scripts.
const std::map<GasVerdict, std::pair<std::string, json>> kVerdicts = {
    {GasVerdict::Enough, {"enough", "enough"}},        {GasVerdict::IntoReserve, {"into_reserve", "reserve"}},
    {GasVerdict::RunsOut, {"runs_out", "short"}},      {GasVerdict::NoCylinder, {"no_cylinder", "short"}},
    {GasVerdict::NotTold, {"not_told", json()}},       {GasVerdict::NotBreathed, {"not_breathed", json()}},
    {GasVerdict::UnknownGas, {"unknown_gas", "short"}}};

/// A volume with the 7 digits of a file for scripts.
auto IsVolume(double volume) { return testing::DoubleNear(volume, 1e-6 * volume); }

class OneVerdict : public Tavplan {
 protected:
  json Json(const std::vector<std::string>& arguments) {
    Run(arguments);
    json told = json::parse(Out(), nullptr, false);
    EXPECT_TRUE(told.is_object()) << Err();
    return told;
  }

  /// The gas supply of a dive against what all commands say of it.
  void Compare(const GasSupply& supply, const json& dive, const json& whatIf, const std::string& text) {
    const json& told = dive["gas_supply"];
    ASSERT_EQ(told["gases"].size(), supply.gases.size());
    const AdviceWords words(test::English(), {}, supply.metric);
    std::set<std::string> compared;
    for (const json& gas : whatIf["columns"][0]["gas"]) compared.insert(gas["mix"]);
    std::set<std::string> needed;
    for (std::size_t i = 0; i < supply.gases.size(); ++i) {
      const GasStore& store = supply.gases[i];
      SCOPED_TRACE(store.gas);
      ++verdicts_[store.verdict];
      const json& of = told["gases"][i];
      EXPECT_EQ(of["verdict"], kVerdicts.at(store.verdict).first);
      EXPECT_THAT(of["need"].get<double>(), IsVolume(store.Need()));
      EXPECT_EQ(of["enough"], store.verdict == GasVerdict::NotTold ? json() : json(!IsShort(store)));
      // The row of the gas in the terminal ends with its verdict.
      const std::string row = "\n  " + store.gas + " .*  " + VerdictText(store, words) + "( for leg \\d+)?\n";
      EXPECT_TRUE(std::regex_search(text, std::regex(row))) << row;
      if (!(store.Need() > 0)) continue;
      needed.insert(store.gas);
      for (const json& gas : whatIf["columns"][0]["gas"]) {
        if (gas["mix"] != store.gas) continue;
        EXPECT_EQ(gas["verdict"], kVerdicts.at(store.verdict).second);
        EXPECT_THAT(gas["need"].get<double>(), IsVolume(store.Need()));
        EXPECT_THAT(gas["carried"].get<double>(), IsVolume(store.carried));
      }
    }
    EXPECT_EQ(compared, needed);
    CompareFindings(supply, dive["findings"]);
    CompareSlate(supply, words);
    for (const json& column : whatIf["columns"]) CompareBailOut(supply, column);
    const std::vector<LegSupply>& ends = supply.waysOut.empty() ? supply.legs : supply.waysOut;
    const json& of = told[supply.waysOut.empty() ? "legs" : "bail_out"];
    ASSERT_EQ(of.size(), ends.size());
    for (std::size_t i = 0; i < ends.size(); ++i) {
      EXPECT_EQ(of[i]["verdict"], kVerdicts.at(supply.VerdictOf(ends[i])).first) << ends[i].leg;
      EXPECT_EQ(of[i]["enough"], !IsShort(supply, ends[i]));
      EXPECT_THAT(text, HasSubstr(VerdictText(supply, ends[i], words)));
    }
  }

  /// A card to dive by names each gas that is not enough.
  static void CompareSlate(const GasSupply& supply, const AdviceWords& words) {
    const std::vector<std::string> lines = ShortGases(supply, words);
    auto line = lines.begin();
    for (const GasStore& store : supply.gases) {
      if (!IsShort(store) || store.verdict == GasVerdict::UnknownGas) continue;
      ASSERT_NE(line, lines.end()) << store.gas;
      EXPECT_TRUE(line->starts_with(store.gas + ": " + VerdictText(store, words))) << *line;
      ++line;
    }
  }

  /// The minute that asks for most of a gas has the figure and the verdict of the plan, and no other asks for more.
  static void CompareBailOut(const GasSupply& supply, const json& column) {
    if (!column["name"].get<std::string>().starts_with("bail-out") || supply.neverUp) return;
    for (const json& gas : column["gas"]) {
      const GasStore* store = supply.Of(gas["mix"]);
      ASSERT_NE(store, nullptr);
      if (!store->bailOut) continue;
      EXPECT_LE(gas["need"].get<double>(), store->Need() * (1 + 1e-6)) << column["name"] << gas["mix"];
      if (column["name"] == "bail-out " + FormatPlain(store->bailOut->moment)) {
        EXPECT_THAT(gas["need"].get<double>(), IsVolume(store->Need())) << column["name"] << gas["mix"];
        EXPECT_EQ(gas["verdict"], kVerdicts.at(store->verdict).second) << column["name"] << gas["mix"];
      }
    }
  }

  /// The check finds what is short, and nothing else.
  static void CompareFindings(const GasSupply& supply, const json& findings) {
    std::set<std::string> found;
    for (const json& finding : findings) {
      if (finding["rule"] != IdOf(Rule::GasShort) || finding["severity"] != "danger") continue;
      const auto text = finding["text"].get<std::string>();
      for (const GasStore& store : supply.gases) {
        if (text.starts_with(store.gas + " ") || text.starts_with(store.gas + ":")) found.insert(store.gas);
      }
    }
    std::set<std::string> isShort;
    for (const GasStore& store : supply.gases) {
      // What a way out without end is too little for has one finding for all.
      const bool alone = !supply.neverUp || store.verdict != GasVerdict::RunsOut || store.ShownLeft(supply.metric) < 0;
      if (IsShort(store) && store.verdict != GasVerdict::UnknownGas && alone) isShort.insert(store.gas);
    }
    EXPECT_EQ(found, isShort);
  }

  std::map<GasVerdict, int> verdicts_;
};

TEST_F(OneVerdict, IsToldByAll) {
  int dives = 0;
  for (const auto& made : Plans()) {
    const std::string file = Scratch("plan.tav");
    WriteTextFile(file, WriteProfileText(made));
    SCOPED_TRACE(WriteProfileText(made));
    const std::vector<DiveRecord> plan = ReadProfileFile(file).dives;
    const json told = Json({"plan", file, "--json"});
    Run({"plan", file});
    const std::string text = Out();
    EndState before;
    for (std::size_t i = 0; i < plan.size(); ++i) {
      EngineObserver silent;
      const ComputedPlan computed = Compute(plan[i], {}, i == 0 ? nullptr : &before, silent);
      const GasSupply supply = SupplyOf({plan[i], computed, i == 0 ? nullptr : &before});
      Compare(supply, told["dives"][i], Json({"whatif", file, "--dive", std::to_string(i + 1), "--json"}), text);
      before = computed.end;
      ++dives;
    }
    if (HasFailure()) return;
  }
  EXPECT_GT(dives, 100);
  for (const auto& [verdict, words] : kVerdicts) {
    EXPECT_TRUE(verdicts_[verdict] > 5 || verdict == GasVerdict::UnknownGas) << words.first;
  }
}

}  // namespace
}  // namespace tav
