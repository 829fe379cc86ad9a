#include "reports/sheet_contents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persist/text_file.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::Contains;
using testing::HasSubstr;

/// The sheet of an example with parts of its file replaced. Each text is its number.
class Sheet : public testing::Test {
 protected:
  void Open(const char* example, std::initializer_list<std::pair<std::string, std::string>> changes) {
    std::string text = ReadTextFile(SourceFolder() / "dives" / example);
    for (const auto& [from, to] : changes) {
      const std::size_t at = text.find(from);
      ASSERT_NE(at, std::string::npos) << from;
      text.replace(at, from.size(), to);
    }
    const std::filesystem::path file = folder.Path() / "plan.tav";
    WriteTextFile(file, text);
    dives = plans.forms.Series(OpenProfile(plans.forms, file).front());
    contents.emplace(dives.front(), words);
  }
  /// The gas of each variant whose name begins so.
  [[nodiscard]] std::vector<std::string> GasOf(const std::string& name) const {
    std::vector<std::string> gases;
    for (const auto& row : contents->variants) {
      if (row.front().text.starts_with(name)) gases.push_back(row.back().text);
    }
    return gases;
  }

  test::Plans plans;
  test::ScratchFolder folder;
  TextSource texts;
  AdviceWords words{texts, NumberTexts(".", ""), true};
  std::vector<SeriesDive> dives;
  std::optional<SheetContents> contents;
};

TEST_F(Sheet, TellsWhatALossMakesWorseThanThePlanAlreadyIs) {
  // Without EAN50 the way up is on Tx10/70 to the surface; the plan breathes it there on its way down alone.
  Open("trimix-100.tav", {{"Change Gas Mixes= 6:Oxygen, 21:EAN50, 54:Tx21/35,", "Change Gas Mixes= 21:EAN50,"},
                          {"30,3,1,0,\r\n100,17,7,0,\r\n-1,-1,7,1,", "80,15,7,0,\r\n-1,-1,5,1,"}});
  EXPECT_THAT(contents->remarks, Contains(HasSubstr("Tx10/70")));
}

TEST_F(Sheet, CallsNoWayOutEnoughWhoseGasIsNotThere) {
  const std::string others =
      "# Cylinder=Tx21/35: 1/13/200/0/\r\n# Cylinder=EAN50: 3/12/200/0/\r\n# Cylinder=Oxygen: 3/12/200/0/\r\n"
      "# ChangeGasMix";
  const std::string enough = Numbered("<SupplyEnough>");
  Open("rebreather.tav", {{"# ChangeGasMix", "# Cylinder=Tx18/45: 2/12/200/0/\r\n" + others}});
  const std::vector<std::string> lost = GasOf(Numbered("<WhatIfLost>"));
  ASSERT_EQ(lost.size(), 3U);
  for (const std::string& gas : lost) EXPECT_NE(gas, enough) << "the diluent is not told as bail-out";

  // The minute that asks for most of all gases together is sound, that of Tx21/35 is not.
  Open("rebreather.tav", {{"# ChangeGasMix", "# Cylinder=Tx18/45: 2/12/200/0/ bail-out\r\n" + others}});
  EXPECT_THAT(GasOf(Numbered("<PlanSheetBailOutMost>")), testing::ElementsAre(enough));
  EXPECT_THAT(GasOf(Numbered("<WhatIfKinds+5>")), testing::ElementsAre(HasSubstr("Tx21/35")));
}

TEST_F(Sheet, TellsWhereTheLoopIsLeft) {
  Open("rebreather.tav", {});
  const std::string loop = Numbered("<SlateLoop>");
  const std::string open = Numbered("<OnOpenCircuit>");
  bool left = false;
  int changes = 0;
  for (std::size_t i = 1; i < contents->schedule.size(); ++i) {
    const SheetColumn::Cell& gas = contents->schedule[i][4];
    const bool isOpen = gas.text.ends_with(open);
    EXPECT_TRUE(isOpen || gas.text.ends_with(loop)) << gas.text;
    if (isOpen != left) {
      ++changes;
      EXPECT_TRUE(gas.bold) << gas.text;
    }
    left = isOpen;
  }
  EXPECT_EQ(changes, 1) << "once, at the first stop";
  EXPECT_TRUE(left);
}

}  // namespace
}  // namespace tav
