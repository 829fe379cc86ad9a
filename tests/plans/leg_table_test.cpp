#include "plans/leg_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/template_faults.h"
#include "persist/template_file.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kAscent = "Ascent";

class Legs : public testing::Test {
 protected:
  /// The rows as they would be copied, with " | " between them.
  [[nodiscard]] std::string Rows() const { return Rows(table_); }
  static std::string Rows(const LegTable& table) {
    std::string text = ReplaceAll(table.Text(0, table.Rows() - 1, kAscent), "\n", " | ");
    return ReplaceAll(text.substr(0, text.size() - (text.empty() ? 0 : 3)), "\t", " ");
  }
  void Paste(const std::string& text) { table_.Paste(0, text, kAscent); }
  /// "row.field text" of all faults.
  [[nodiscard]] std::vector<std::string> Faults(const LegTable& table) const {
    std::vector<std::string> faults;
    for (const LegTable::Fault& fault : table.Faults(texts_)) {
      faults.push_back(std::to_string(fault.row) + "." + std::to_string(static_cast<int>(fault.field)) + " " +
                       fault.reason);
    }
    return faults;
  }
  LegTable Loaded(const ClassUseractions& actions, const LocaleSeparators& separators = {}) {
    LegTable table(separators);
    table.Load(actions, settings_);
    return table;
  }

  DiveTemplate settings_ = ShippedDefaultTemplate();
  TextSource texts_;
  LegTable table_ = Loaded({});
};

TEST_F(Legs, KeepToTheBitWhatWasNotTyped) {
  ClassUseractions actions;
  actions.NewAction();
  actions.setuser(1, 30.1, Single(20.300001), 3);
  actions.NewAction();
  actions.setuser(2, 12, 100.0 / 3, 2);
  actions.NewAction();
  actions.setuser(3, 0, 0, 5);
  actions.setdeco(3);
  LegTable table = Loaded(actions);
  EXPECT_TRUE(table.Actions() == actions);
  table.Set(1, LegTable::Field::Depth, "15");
  EXPECT_EQ(table.Actions().gettime(2), Single(100.0 / 3));
  table.Set(1, LegTable::Field::Depth, "12");
  EXPECT_TRUE(table.Actions() == actions) << "typed back";
}

TEST_F(Legs, AreInsertedCopiedMovedAndDeletedAsARange) {
  struct {
    const char* what;
    std::function<void(LegTable&)> act;
    const char* rows;
  } const cases[] = {
      {"nothing", [](LegTable&) {}, "60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 | Ascent"},
      {"insert first", [](LegTable& t) { t.Insert(0); },
       "  Tx18/45 | 60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 | Ascent"},
      {"insert last", [](LegTable& t) { t.Insert(3); }, "60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 |   EAN50 | Ascent"},
      {"copy two", [](LegTable& t) { t.Duplicate(0, 1); },
       "60 20 Tx18/45 | 40 5 EAN32 | 60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 | Ascent"},
      {"copy with the ascent", [](LegTable& t) { t.Duplicate(2, 3); },
       "60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 | 20 5 EAN50 | Ascent"},
      {"two down", [](LegTable& t) { EXPECT_TRUE(t.Move(0, 1, 1)); },
       "20 5 EAN50 | 60 20 Tx18/45 | 40 5 EAN32 | Ascent"},
      {"two up", [](LegTable& t) { EXPECT_TRUE(t.Move(1, 2, -1)); },
       "40 5 EAN32 | 20 5 EAN50 | 60 20 Tx18/45 | Ascent"},
      {"not below the ascent",
       [](LegTable& t) { EXPECT_FALSE(t.Move(2, 2, 1) || t.Move(0, 0, -1) || t.Move(3, 3, -1)); },
       "60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 | Ascent"},
      {"delete the middle", [](LegTable& t) { t.Delete(1, 1); }, "60 20 Tx18/45 | 20 5 EAN50 | Ascent"},
      {"delete all legs, and the ascent has nothing to go up from", [](LegTable& t) { t.Delete(0, 2); }, ""},
      {"ascent off", [](LegTable& t) { t.SetFinalAscent(false); }, "60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50"},
      {"ascent off and on",
       [](LegTable& t) {
         t.SetFinalAscent(false);
         t.SetFinalAscent(true);
         t.SetFinalAscent(true);
       },
       "60 20 Tx18/45 | 40 5 EAN32 | 20 5 EAN50 | Ascent"},
      {"an ascent on the way, and its legs gone",
       [](LegTable& t) {
         t.Paste(1, kAscent, kAscent);
         EXPECT_EQ(Rows(t), "60 20 Tx18/45 | Ascent | 40 5 EAN32 | 20 5 EAN50 | Ascent");
         t.Delete(2, 3);
       },
       "60 20 Tx18/45 | Ascent"},
      {"two ascents on the way, of which one goes nowhere", [](LegTable& t) { t.Paste(1, "Ascent\nAscent", kAscent); },
       "60 20 Tx18/45 | Ascent | 40 5 EAN32 | 20 5 EAN50 | Ascent"},
  };
  for (const auto& each : cases) {
    LegTable table = Loaded({});
    table.Paste(0, "60\t20\tTx18/45\n40\t5\tEAN32\n20\t5\tEAN50\nAscent\n", kAscent);
    each.act(table);
    EXPECT_EQ(Rows(table), each.rows) << each.what;
  }
}

TEST_F(Legs, ComeFromSpreadsheetsAndMails) {
  const LocaleSeparators comma{",", "."};
  struct {
    const char* text;
    LocaleSeparators separators;
    const char* rows;
  } const cases[] = {
      {"30\t20\tEAN32\r\n21\t5\tEAN50\r\n", {}, "30 20 EAN32 | 21 5 EAN50"},
      {"Depth\tTime\tGas\n30\t20\tEAN32\n", {}, "30 20 EAN32"},
      {" 30 , 20 , EAN32 \n\n18.5,4", {}, "30 20 EAN32 | 18.5 4 EAN32"},
      {"30,5;20;EAN32\n18,5;4,25;", comma, "30,5 20 EAN32 | 18,5 4,25 EAN32"},
      {"30,20,EAN32", comma, "30 20 EAN32"},
      {"30\t20\tEAN32\tand a remark", {}, "30 20 EAN32"},
      {"18,5\t20\tEAN32\n12\t4,25", {}, "18.5 20 EAN32 | 12 4.25 EAN32"},
      {"18,5; 20", {}, "18.5 20 Air"},
      {"30\t20\nAscent\n", {}, "30 20 Air | Ascent"},
      {"Ascent", {}, ""},
      {"no rows at all", {}, ""},
      {"", {}, ""},
  };
  for (const auto& each : cases) {
    LegTable table = Loaded({}, each.separators);
    const int pasted = table.Paste(0, each.text, kAscent);
    EXPECT_EQ(Rows(table), each.rows) << each.text;
    EXPECT_EQ(pasted, table.Rows());
    EXPECT_THAT(Faults(table), IsEmpty()) << each.text;
  }
}

TEST_F(Legs, OfOneColumnFillDown) {
  struct {
    const char* text;
    LegTable::Field field;
    int first, last;
    const char* rows;
    int pasted;
  } const cases[] = {
      {"50\r\n45\r\n", LegTable::Field::Depth, 0, 0, "50 20 Air | 45 5 EAN32 | 20 5 EAN50 | Ascent", 2},
      {"Time\n8\n12", LegTable::Field::Time, 1, 1, "60 20 Air | 40 8 EAN32 | 20 12 EAN50 | Ascent", 2},
      {"EAN50", LegTable::Field::Gas, 0, 1, "60 20 EAN50 | 40 5 EAN50 | 20 5 EAN50 | Ascent", 1},
      {"18\n15\n12", LegTable::Field::Depth, 2, 2,
       "60 20 Air | 40 5 EAN32 | 18 5 EAN50 | 15  EAN50 | 12  EAN50 | Ascent", 3},
      {"9", LegTable::Field::Depth, 3, 3, "60 20 Air | 40 5 EAN32 | 20 5 EAN50 | 9  EAN50 | Ascent", 1},
      {"no number", LegTable::Field::Time, 0, 2, "60 20 Air | 40 5 EAN32 | 20 5 EAN50 | Ascent", 0},
  };
  for (const auto& each : cases) {
    LegTable table = Loaded({});
    table.WantAscent(true);
    table.Paste(0, "60\t20\n40\t5\tEAN32\n20\t5\tEAN50\n", kAscent);
    ASSERT_TRUE(table.IsColumn(each.text, kAscent));
    EXPECT_EQ(table.PasteColumn(each.first, each.last, each.field, each.text) > 0, each.pasted > 0) << each.text;
    EXPECT_EQ(Rows(table), each.rows) << each.text;
  }
  const LegTable table = Loaded({});
  for (const char* text : {"30\t20", "30,20\n12", "30\nAscent"}) EXPECT_FALSE(table.IsColumn(text, kAscent)) << text;
}

TEST_F(Legs, OfAColumnWithTheUsersDecimalCommaAreNoPairs) {
  LegTable table = Loaded({}, {",", "."});
  table.Paste(0, "60\t20\n40\t5\n30\t5\n", kAscent);
  const char* column = "18,5\n\n21,5";
  ASSERT_TRUE(table.IsColumn(column, kAscent));
  table.PasteColumn(0, 0, LegTable::Field::Depth, column);
  EXPECT_EQ(Rows(table), "18,5 20 Air | 40 5 Air | 21,5 5 Air") << "a blank passes a leg over";
}

TEST_F(Legs, WhatCannotBePlannedIsToldByItsCell) {
  struct {
    const char* depth;
    const char* time;
    const char* gas;
    const char* fault;
  } const cases[] = {
      {"500", "100000", "EAN32", ""},
      {"500.1", "20", "Air", Numbered("0.0 <DepthTooDeep>")},
      {"-1", "20", "Air", Numbered("0.0 <DepthNegative>")},
      {"", "20", "Air", Numbered("0.0 <IsMissing>")},
      {"3o", "20", "Air", Numbered("0.0 <IsNoNumber>")},
      {"30", "", "Air", Numbered("0.1 <IsMissing>")},
      {"30", "x", "Air", Numbered("0.1 <IsNoNumber>")},
      {"30", "-1", "Air", Numbered("0.1 <TimeNegative>")},
      {"30", "100001", "Air", Numbered("0.1 <TimeTooLong>")},
      {"30", "20", "best", Numbered("0.2 <NoSuchGas>")},
      {"30", "1e300", "Air", Numbered("0.1 <TimeTooLong>")},
  };
  for (const auto& each : cases) {
    LegTable table = Loaded({});
    table.Insert(0);
    table.Set(0, LegTable::Field::Depth, each.depth);
    table.Set(0, LegTable::Field::Time, each.time);
    table.Set(0, LegTable::Field::Gas, each.gas);
    const auto faults = Faults(table);
    if (*each.fault == '\0') {
      EXPECT_THAT(faults, IsEmpty());
      EXPECT_TRUE(LegFault(table.Actions().gettime(1), table.Actions().getDepth(1), 0, settings_).IsEmpty());
    } else {
      EXPECT_THAT(faults, ElementsAre(each.fault));
    }
  }
  settings_.Metric = false;
  Paste("1600\t20\n1601\t20\n");
  EXPECT_THAT(Faults(table_), ElementsAre(Numbered("1.0 <DepthTooDeep>"))) << "feet";
}

TEST_F(Legs, OfAFileAreHeldAgainstTheLimitsOfFiles) {
  ClassUseractions actions;
  actions.NewAction();
  actions.setuser(1, 600, 20, 2);
  actions.NewAction();
  actions.setuser(2, 30, 20, 99);
  LegTable table = Loaded(actions);
  EXPECT_THAT(Faults(table), ElementsAre(Numbered("1.2 <GasGone>"))) << "a gas that is gone";
  table.Set(1, LegTable::Field::Gas, "EAN50");
  EXPECT_THAT(Faults(table), IsEmpty());
  table.Set(0, LegTable::Field::Depth, "601");
  EXPECT_THAT(Faults(table), ElementsAre(Numbered("0.0 <DepthTooDeep>")));
}

TEST_F(Legs, OnASecondGasOfANameStayOnIt) {
  settings_.Blends.push_back({"Air", 21, 79, 0});
  ClassUseractions actions;
  actions.NewAction();
  const auto second = static_cast<std::int16_t>(settings_.Blends.size() - 1);
  actions.setuser(1, 30, 20, second);
  LegTable table = Loaded(actions);
  table.Set(0, LegTable::Field::Gas, "Air");
  EXPECT_EQ(table.Actions().getmixnumber(1), second);
}

}  // namespace
}  // namespace tav
