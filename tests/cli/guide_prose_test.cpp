// Figures that stand within the sentences of the English guide. The other guides hold the same digits, block by block.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>

#include "cli/figure_tables.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/source_folder.h"

namespace tav::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

/// The text of a section, without tags, in one line.
std::string Section(const std::string& anchor) {
  const std::string guide = ReadTextFile(SourceFolder() / "lang/TAV_uk.hlp");
  const std::size_t from = guide.find("<a name=\"" + anchor + "\">");
  EXPECT_NE(from, std::string::npos) << anchor;
  const std::string section = guide.substr(from, guide.find("\n<h", from) - from);
  return std::regex_replace(std::regex_replace(section, std::regex("<[^>]*>"), ""), std::regex("\\s+"), " ");
}

std::string Whole(double value) { return FormatFixed(value, 0); }

TEST(GuideProse, TellsWhenAFirstStopIsAskedFor) {
  const Planner usual("Default.tpl", {{"Change Gas Mixes", " 200:Air,"}});
  const Planner equal("Default.tpl", {{"Change Gas Mixes", " 200:Air,"}, {"GF", "1, .85, .85"}});
  const std::string at30 = Whole(usual.NoStopLimit(18));
  const std::string at85 = Whole(equal.NoStopLimit(18));
  EXPECT_THAT(Section("gf"), HasSubstr("up to a run time of " + at30 +
                                       " minutes when it leaves the bottom, at 85/85 up to " + at85 + " minutes"));
  EXPECT_THAT(Section("gf"),
              HasSubstr("30/85 gives " + Whole(Planner("Default.tpl", {}).NoStopLimit(18)) + " minutes"));
  EXPECT_THAT(Section("q-differ"), HasSubstr("after " + at30 + " minutes; 85/85 not in " + at85));
}

TEST(GuideProse, TellsWhatALastStopCosts) {
  const auto dive = [](const char* lastStop) {
    return Planner("Default.tpl", {{"LastStop", lastStop}}).Dive({"--depth", "60", "--time", "25", "--gas", "Tx18/45"});
  };
  const auto stop = [](const json& plan, double depth) {
    for (const json& row : plan["rows"]) {
      if (row["stop_depth"] == depth && row["stop_time"].get<double>() > 0)
        return Whole(row["stop_time"].get<double>());
    }
    return std::string();
  };
  const auto run = [](const json& plan) { return Whole(plan["rows"].back()["run_time"].get<double>()); };
  const auto cns = [](const json& plan) { return Whole(100 * plan["total_cns"].get<double>()) + " %"; };
  const json deep = dive("6");
  const json usual = dive("3");
  EXPECT_THAT(Section("q-last-stop"),
              HasSubstr(stop(deep, 6) + " minutes at 6 m in place of " + stop(usual, 6) + " at 6 m and " +
                        stop(usual, 3) + " at 3 m: run time " + run(deep) + " for " + run(usual) +
                        " minutes, but CNS " + cns(deep) + " for " + cns(usual)));
}

TEST(GuideProse, TellsGasAsItIsCounted) {
  const json plan = Planner("Default.tpl", {}).Dive({"--depth", "60", "--time", "25", "--gas", "Tx18/45"});
  const json& down = plan["rows"][1];
  const double counted = down["gas_used"];
  EXPECT_THAT(Section("oc"), HasSubstr("the plan says " + Whole(counted) + " l, on RMV it would be " +
                                       Whole(counted * 20 / 15) + " l"));
  EXPECT_THAT(Section("oc"), HasSubstr("= " + Whole(counted * 5 / 15) + " l"));
  const Table bubbles = BubbleFigures();
  EXPECT_THAT(Section("vpm"),
              HasSubstr("time of " + bubbles[0][1] + " minutes, VPM here " + bubbles[0][2] +
                        "; on air, 50 m, 25 minutes, " + bubbles[1][1] + " and " + bubbles[1][2] + "."));
}

}  // namespace
}  // namespace tav::test
