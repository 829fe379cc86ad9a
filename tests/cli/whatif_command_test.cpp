#include <map>

#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST_F(Tavplan, ComparesAPlanWithWhatMayBecomeOfIt) {
  ASSERT_EQ(Run({"whatif", Dive("wreck.tav"), "--longer", "7", "--deeper", "4.5", "--json"}), ExitStatus::kFine)
      << Err();
  const json compared = OutJson();
  std::vector<std::string> names;
  for (const json& column : compared["columns"]) names.push_back(column["name"]);
  EXPECT_THAT(names,
              testing::ElementsAre("planned", "longer", "deeper", "both", "lost Oxygen", "lost EAN50", "lost all"));
  // Each column has the rows that plan prints of the changed file.
  const auto rowsOf = [this](const std::string& file) {
    EXPECT_EQ(Run({"plan", file, "--json"}), ExitStatus::kFine) << Err();
    json rows = OutJson()["dives"].back()["rows"];
    for (json& row : rows) row.erase("why");
    return rows;
  };
  const json& columns = compared["columns"];
  EXPECT_EQ(columns[0]["rows"], rowsOf(Dive("wreck.tav")));
  EXPECT_EQ(columns[1]["rows"], rowsOf(Changed("wreck.tav", "\n57,8,", "\n57,15,")));
  EXPECT_EQ(columns[2]["rows"], rowsOf(Changed("wreck.tav", "\n57,8,", "\n61.5,8,")));
  EXPECT_EQ(columns[3]["rows"], rowsOf(Changed("wreck.tav", "\n57,8,", "\n61.5,15,")));
  EXPECT_EQ(columns[4]["rows"], rowsOf(Changed("wreck.tav", "6:Oxygen,", "")));
  EXPECT_EQ(columns[1]["run_time"], columns[1]["rows"].back()["run_time"]);
  for (const json& column : columns) {
    std::map<std::string, double> used;
    for (const json& row : column["rows"]) used[row["mix"]] += row["gas_used"].get<double>();
    for (const json& gas : column["gas"]) {
      EXPECT_NEAR(gas["used"], used[gas["mix"]], 0.01);
      EXPECT_TRUE(gas["carried"].is_null());
      EXPECT_TRUE(gas["enough"].is_null());
    }
  }
}

TEST_F(Tavplan, ComparesInLinesOfATerminal) {
  ASSERT_EQ(Run({"whatif", Dive("trimix-100.tav")}), ExitStatus::kFine);
  std::istringstream lines(Out());
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
  EXPECT_THAT(Out(),
              AllOf(HasSubstr("+5 min"), HasSubstr("+3 m"), HasSubstr("lost Tx21/35"), HasSubstr("Run time, min")));
  ASSERT_EQ(Run({"whatif", Dive("rebreather.tav")}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(HasSubstr("bail-out"), HasSubstr("at 35 min, 65 m"), HasSubstr("\nSwitch 57 m "),
                           Not(HasSubstr("Stop 57 m"))))
      << "nobody stops where the gas is changed";
  // Each dive of a series starts from what the one before left.
  ASSERT_EQ(Run({"whatif", Dive("lake-series.tav"), "--dive", "1", "--json"}), ExitStatus::kFine);
  const std::string first = Out();
  ASSERT_EQ(Run({"whatif", Dive("lake-series.tav"), "--json"}), ExitStatus::kFine);
  EXPECT_NE(Out(), first);
}

}  // namespace
}  // namespace tav
