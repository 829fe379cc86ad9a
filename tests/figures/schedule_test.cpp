#include "figures/schedule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "figures/dive_figures.h"
#include "model/number_text.h"
#include "support/plan_fixture.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Schedule : public testing::Test {
 protected:
  /// The lines of a dive in words: "kind depth time run gas PPO2", with a star where the gas changes.
  std::vector<std::string> Lines(const ScheduleWords& words = {}, const LocaleSeparators& separators = {}) {
    const ScheduleText schedule(plan_.InputProfile, Template(), words, separators);
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < schedule.Rows().size(); ++i) {
      std::string& line = lines.emplace_back();
      for (const std::string& text : schedule.Lines()[i]) line += (line.empty() ? "" : " ") + text;
      if (schedule.Rows()[i].changesGas) line += " *";
    }
    return lines;
  }
  DiveTemplate& Template() { return plans_.documents(plan_.Tag()).Template; }
  void Dive(Single depth, Single minutes, const char* gas) {
    ASSERT_TRUE(plan_.AddUserWaypoint(depth, minutes, FindBlendIndex(gas, Template())));
  }

  test::Plans plans_;
  frmWaypointEditor& plan_ = plans_.New();
};

TEST_F(Schedule, NamesTheGasChangesThatHaveNoStopOfTheirOwn) {
  Dive(30, 40, "EAN32");
  ASSERT_TRUE(plan_.StartDeco());
  EXPECT_THAT(Lines(),
              ElementsAre("descent 30 1.7 1.7 EAN32 1.28", "level 30 38.3 40 EAN32 1.28", "switch 21  41 EAN50 1.56 *",
                          "stop 12 1 43 EAN50 1.11", "stop 9 1 44 EAN50 0.96", "stop 6 1 45 Oxygen 1.61 *",
                          "stop 3 2 48 Oxygen 1.31", "surface 0  49 Oxygen 1.01"));
  Template().OpenCircuit = false;
  Template().KeepsDiluent = false;
  plan_.ReEvaluateUserEnteredWaypoints();
  EXPECT_THAT(Lines(), testing::Contains("switch 21  41 EAN50 1.30 *")) << "a diluent, at the setpoint";
}

TEST_F(Schedule, ReadsInTheUsersWordsAndNumbers) {
  Dive(22.2, 5, "Air");
  ScheduleWords words;
  words.kinds = {"Abstieg",
                 "halten",
                 "Aufstieg",
                 "Gas",
                 "Stopp",
                 "Oberfl\xC3\xA4"
                 "che"};
  words.totals = "Laufzeit %1, Stopps %2, CNS %3, OTU %4";
  words.noAscent = "Ohne Aufstieg.";
  const LocaleSeparators comma{",", "."};
  EXPECT_THAT(Lines(words, comma), ElementsAre("Abstieg 22,2 1,2 1,2 Air 0,68", "halten 22,2 3,8 5 Air 0,68"));
  const ScheduleText open(plan_.InputProfile, Template(), words, comma);
  EXPECT_THAT(open.Totals(),
              ElementsAre(StartsWith("Laufzeit 5, Stopps 0, CNS "), HasSubstr("Air "), "Ohne Aufstieg."));
  ASSERT_TRUE(plan_.StartDeco());
  const ScheduleText ascent(plan_.InputProfile, Template(), words, comma);
  EXPECT_EQ(ascent.Totals().size(), 2U);
  // Letters of two bytes are as wide as all others, and a part is aligned as the whole is.
  const std::string last = ascent.Aligned(ascent.Rows().size() - 1, ascent.Rows().size() - 1);
  EXPECT_THAT(last, HasSubstr("\n  Oberfl\xC3\xA4"
                              "che      0           8,8  Oxygen   1,01\n"));
  EXPECT_THAT(ascent.Aligned(), HasSubstr(last.substr(last.rfind("\n  ") + 1)));
}

TEST_F(Schedule, TellsWhatOfTheDosesWasCarriedOver) {
  Dive(30, 40, "EAN32");
  ASSERT_TRUE(plan_.StartDeco());
  EXPECT_THAT(ScheduleText(plan_.InputProfile, Template()).Totals(),
              testing::Not(testing::Contains(HasSubstr("carried"))));
  frmWaypointEditor& second = plans_.forms(plans_.forms.AddRepetitiveDive(plan_.Tag(), 90));
  ASSERT_TRUE(second.AddUserWaypoint(20, 10, 0) && second.StartDeco());
  const DiveFigures before = FiguresOf(plan_.InputProfile);
  EXPECT_THAT(ScheduleText(second.InputProfile, Template()).Totals(),
              testing::Contains("Of this carried over from the dive before: CNS " + FormatFixed(before.CNS * 50, 0) +
                                " %, OTU " + FormatFixed(before.OTU, 0)));
}

}  // namespace
}  // namespace tav
