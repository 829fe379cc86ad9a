#include "plans/plan_trial.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "plans/leg_table.h"
#include "support/typed_plan.h"

namespace tav {
namespace {

using Field = LegTable::Field;
constexpr const char* kAscent = "Ascent";

/// A plan that is edited through the table of its legs, with the history that its window keeps.
class Trial : public testing::Test {
 protected:
  Trial() {
    plans_.display.onChange = [this](std::int16_t document) { history_.Record(document); };
    history_.Record(plan_.Tag());
    Reload();
  }

  DocumentState& Document() { return plans_.documents(plan_.Tag()); }
  [[nodiscard]] std::string Rows() const { return test::RowsText(plan_.InputProfile); }
  std::string TypedRows() { return test::TypedRows(plan_.UserActions, Document().Template); }
  void Reload() { legs_.Load(plan_.UserActions, Document().Template); }

  /// Tries what the table holds.
  PlanRefusal Try() {
    trial_.Begin(plan_.Tag());
    return trial_.TryActions(legs_.Actions(), legs_.Origins(), legs_.Gases());
  }
  /// An edit from its first key to its last. False when it was refused.
  bool Edit(const std::function<void()>& act) {
    act();
    const bool accepted = legs_.Faults(plans_.texts).empty() && Try().IsEmpty();
    accepted ? trial_.Keep() : trial_.Drop();
    Reload();
    return accepted;
  }
  void Paste(const std::string& text) {
    ASSERT_TRUE(Edit([&] { legs_.Paste(0, text, kAscent); }));
  }

  test::Plans plans_;
  UndoHistory history_{plans_.forms};
  PlanTrial trial_{plans_.forms, history_};
  frmWaypointEditor& plan_ = plans_.New();
  LegTable legs_;
};

TEST_F(Trial, AGasThatOnlyItsNameTellsBecomesOneOfThePlan) {
  Paste("30\t20\tAir\n12\t5\tAir\nAscent\n");
  const std::vector<GasMix>& gases = Document().Template.Blends;
  const std::size_t had = gases.size();
  const std::string rows = Rows();
  const LegTable before = legs_;
  for (const char* typed : {"EAN2", "EAN28"}) {
    legs_ = before;
    legs_.Set(0, Field::Gas, typed);
    EXPECT_TRUE(Try().IsEmpty());
    EXPECT_EQ(gases.size(), had + 1) << typed;
    EXPECT_EQ(gases.back().Name, typed);
    EXPECT_EQ(plan_.InputProfile.GetGasMixName(1), typed);
  }
  legs_.Set(1, Field::Depth, "0");  // above the ceiling
  legs_.Set(0, Field::Time, "90");
  EXPECT_FALSE(Try().IsEmpty());
  EXPECT_EQ(gases.size(), had) << "the plan of before is in force";
  EXPECT_EQ(Rows(), rows);
  legs_ = before;
  legs_.Set(0, Field::Gas, "EAN28");
  EXPECT_TRUE(Try().IsEmpty());
  trial_.Keep();
  EXPECT_EQ(gases.size(), had + 1);
  history_.Undo(plan_.Tag());
  EXPECT_EQ(gases.size(), had);
  EXPECT_EQ(Rows(), rows);
}

TEST_F(Trial, GivesTheRowsOfAPlanTypedFromScratch) {
  Paste("60\t20\tTx18/45\n40\t5\tEAN32\n24\t6\tEAN32\nAscent\n");
  EXPECT_EQ(Rows(), TypedRows());
  const std::pair<const char*, std::function<void()>> edits[] = {
      {"depth", [&] { legs_.Set(1, Field::Depth, "45"); }},
      {"time", [&] { legs_.Set(0, Field::Time, "25.5"); }},
      {"gas", [&] { legs_.Set(2, Field::Gas, "EAN50"); }},
      {"insert",
       [&] {
         legs_.Insert(1);
         legs_.Set(1, Field::Depth, "50");
         legs_.Set(1, Field::Time, "4");
       }},
      {"copies", [&] { legs_.Duplicate(1, 2); }},
      {"move", [&] { legs_.Move(1, 1, 1); }},
      {"delete", [&] { legs_.Delete(1, 2); }},
      {"no ascent", [&] { legs_.SetFinalAscent(false); }},
      {"ascent on the way", [&] { legs_.Paste(2, kAscent, kAscent); }},
      {"ascent", [&] { legs_.SetFinalAscent(true); }},
      {"paste", [&] { legs_.Paste(0, "20,3,EAN50\n30,3\n", kAscent); }},
      {"all", [&] { legs_.Delete(0, legs_.Rows() - 1); }},
  };
  for (const auto& [what, act] : edits) {
    const std::string before = Rows();
    ASSERT_TRUE(Edit(act)) << what;
    EXPECT_NE(Rows(), before) << what;
    EXPECT_EQ(Rows(), TypedRows()) << what;
    history_.Undo(plan_.Tag());
    EXPECT_EQ(Rows(), before) << what << " is one step";
    history_.Redo(plan_.Tag());
    EXPECT_EQ(Rows(), TypedRows()) << what;
    Reload();
  }
  EXPECT_TRUE(plans_.boxes.shown.empty());
}

TEST_F(Trial, WhileOneTypesIsNeitherAChangeNorAStep) {
  Paste("60\t20\tTx18/45\n40\t5\tEAN32\nAscent\n");
  const std::string before = Rows();
  Document().Modified = false;
  for (const char* typed : {"4", "45"}) {
    legs_.Set(0, Field::Depth, typed);
    EXPECT_TRUE(Try().IsEmpty());
    EXPECT_EQ(Rows(), TypedRows()) << "computed at each key";
  }
  EXPECT_FALSE(Document().Modified);
  trial_.Drop();
  EXPECT_EQ(Rows(), before);
  EXPECT_FALSE(Document().Modified || trial_.Running());
  Reload();
  legs_.Set(0, Field::Depth, "4");
  Try();
  legs_.Set(0, Field::Depth, "45");
  Try();
  trial_.Keep();
  EXPECT_TRUE(Document().Modified);
  history_.Undo(plan_.Tag());
  EXPECT_EQ(Rows(), before);
  EXPECT_TRUE(history_.CanUndo(plan_.Tag())) << "the paste";
  history_.Redo(plan_.Tag());
  EXPECT_FALSE(history_.CanRedo(plan_.Tag()));
  Document().Modified = false;
  trial_.Begin(plan_.Tag());
  trial_.Keep();
  EXPECT_FALSE(Document().Modified) << "nothing was changed";
}

TEST_F(Trial, ARefusalLeavesThePlanAsItWasToTheBit) {
  Paste("40\t30\tAir\nAscent\n");
  const std::int16_t second = plans_.forms.AddRepetitiveDive(plan_.Tag(), 60);
  frmWaypointEditor& later = plans_.forms(second);
  ASSERT_TRUE(later.AddUserWaypoint(30, 30, 0) && later.StartDeco());
  const auto state = [&] {
    return Rows() + test::RowsText(later.InputProfile) + FormatPlain(Document().TotalCNS) +
           (plan_.EvaluatedWith().VPMMode ? "VPM" : "") + (Document().Modified ? "*" : "");
  };
  Document().Modified = false;
  const std::string before = state();
  const Compartments loads = Document().N2Compartments;
  // What was computed stays the plan until somebody changes it, whatever model is chosen meanwhile.
  plans_.model.VPMMode = true;
  const std::pair<const char*, std::function<void()>> entries[] = {
      {"a refused leg",
       [&] {
         legs_.Insert(1);
         legs_.Set(1, Field::Depth, "1");
         legs_.Set(1, Field::Time, "0");
         EXPECT_FALSE(Try().IsEmpty());
       }},
      {"taken, then refused",
       [&] {
         legs_.Set(0, Field::Time, "4");
         EXPECT_TRUE(Try().IsEmpty());
         EXPECT_NE(state(), before);
         trial_.Refuse();
         EXPECT_EQ(state(), before) << "while it is still being typed";
       }},
      {"typed back",
       [&] {
         for (const char* typed : {"4", "30"}) {
           legs_.Set(0, Field::Time, typed);
           EXPECT_TRUE(Try().IsEmpty());
         }
       }},
      {"a refused setting",
       [&] {
         trial_.Begin(plan_.Tag());
         EXPECT_EQ(trial_.TryTemplate([](DiveTemplate& t) { t.GFLow = 0.15; }), "");
         EXPECT_NE(trial_.TryTemplate([](DiveTemplate& t) { t.LastStop = -1; }), "");
       }},
  };
  for (const auto& [what, enter] : entries) {
    Reload();
    enter();
    trial_.Keep();
    EXPECT_EQ(state(), before) << what;
    EXPECT_EQ(Document().N2Compartments, loads) << what;
  }
}

TEST_F(Trial, AnEditedLegHasTheCeilingOfANewOne) {
  Paste("60\t30\tTx18/45\n40\t5\tEAN32\n21\t6\tEAN32\n");
  const std::string before = Rows();
  const Single ceiling = plan_.InputProfile.GetCeiling(plan_.ActionResults()[2].lastRow);
  ASSERT_GT(ceiling, 6);
  legs_.Set(2, Field::Depth, "5");
  PlanRefusal refusal = Try();
  ASSERT_EQ(refusal.legs.size(), 1U);
  EXPECT_EQ(refusal.legs[0].action, 3);
  EXPECT_EQ(refusal.legs[0].ceiling, ceiling);
  EXPECT_EQ(Rows(), before) << "the last good plan stays";
  trial_.Drop();
  Reload();
  EXPECT_FALSE(Edit([&] { legs_.Set(0, Field::Time, "500"); })) << "a leg behind it would be above the ceiling";
  EXPECT_EQ(Rows(), before);

  // A file may hold such a leg: the others can be edited all the same.
  plan_.SaveUserEnteredWaypoints(10, 3, 0, false);
  plan_.ReEvaluateUserEnteredWaypoints();
  Reload();
  EXPECT_TRUE(Edit([&] { legs_.Set(0, Field::Time, "31"); }));
  EXPECT_TRUE(Edit([&] { legs_.Insert(0), legs_.Set(0, Field::Depth, "9"), legs_.Set(0, Field::Time, "2"); }));
  EXPECT_FALSE(Edit([&] { legs_.Set(4, Field::Depth, "2"); })) << "edited, it is held to the rule";
  EXPECT_FALSE(Edit([&] { legs_.Duplicate(4, 4); }));
}

TEST_F(Trial, APlanThatCannotBeComputedStaysAsItWas) {
  Paste("60\t30\tTx18/45\nAscent\n");
  const std::string before = Rows();
  std::string many;
  for (int i = 0; i < INT16_MAX - 2; ++i) many += "1\t0\n";
  EXPECT_FALSE(Edit([&] { legs_.Paste(1, many, kAscent); })) << "more rows than a profile holds";
  EXPECT_EQ(Rows(), before);
  EXPECT_TRUE(plan_.EvaluationFault().empty());
  // What can't be computed already does not get worse.
  Document().Template.StepSize = 0;
  plan_.ReEvaluateUserEnteredWaypoints();
  Reload();
  EXPECT_TRUE(Edit([&] { legs_.Set(0, Field::Time, "20"); }));
}

TEST_F(Trial, OfATemplateIsAStepToo) {
  Paste("60\t30\tTx18/45\nAscent\n");
  const std::string before = Rows();
  Document().Modified = false;
  trial_.Begin(plan_.Tag());
  EXPECT_EQ(trial_.TryTemplate([](DiveTemplate& t) { t.GFHigh = 0.7; }), "");
  EXPECT_NE(Rows(), before);
  EXPECT_NE(trial_.TryTemplate([](DiveTemplate& t) { t.LastStop = -1; }), "");
  EXPECT_EQ(Rows(), before) << "the one before the trial";
  trial_.Drop();
  EXPECT_EQ(Rows(), before);
  EXPECT_FALSE(Document().Template.TemplateChanged || Document().Modified);
  trial_.Begin(plan_.Tag());
  trial_.TryTemplate([](DiveTemplate& t) { t.GFHigh = 0.7; });
  trial_.Keep();
  EXPECT_TRUE(Document().Template.TemplateChanged && Document().Modified);
  history_.Undo(plan_.Tag());
  EXPECT_EQ(Rows(), before);
}

TEST_F(Trial, TravelsToTheLaterDives) {
  Paste("40\t30\tAir\nAscent\n");
  const std::int16_t second = plans_.forms.AddRepetitiveDive(plan_.Tag(), 60);
  frmWaypointEditor& later = plans_.forms(second);
  ASSERT_TRUE(later.AddUserWaypoint(30, 30, 0) && later.StartDeco());
  const std::string before = test::RowsText(later.InputProfile);
  legs_.Set(0, Field::Time, "45");
  Try();
  EXPECT_GT(later.InputProfile.GetLength(), 4);
  EXPECT_NE(test::RowsText(later.InputProfile), before);
  trial_.Drop();
  EXPECT_EQ(test::RowsText(later.InputProfile), before);
  Reload();
  legs_.Set(0, Field::Time, "45");
  Try();
  trial_.Begin(second);
  EXPECT_TRUE(history_.CanUndo(plan_.Tag())) << "a trial on another plan keeps that of the first";
  trial_.Keep();
}

TEST_F(Trial, AThousandEditsAreTakenBackToTheStartAndMadeAgain) {
  Paste("50\t20\tTx21/35\n35\t5\tEAN32\nAscent\n");
  auto pick = [random = std::mt19937(20260501)](int count) mutable {
    return static_cast<int>(random() % static_cast<unsigned>(count));
  };
  const std::vector<GasMix>& blends = Document().Template.Blends;
  const std::string start = Rows();
  int kept = 0;
  int refused = 0;
  std::vector<std::string> rows{start};
  for (int i = 0; i < 1000; ++i) {
    const int legs = std::max(1, legs_.EndOfLegs());
    const int row = pick(legs);
    const int last = std::min(legs - 1, row + pick(2));
    const bool empty = legs_.Rows() == 0;
    const int kind = empty || legs < 3 ? 7 : legs > 12 ? 6 : pick(8);
    const bool accepted = Edit([&] {
      switch (kind) {
        case 0:
        case 1:
          if (!legs_.At(row).ascent) legs_.Set(row, Field::Depth, FormatFixed((pick(600) + 30) / 10.0, 1));
          break;
        case 2:
          if (!legs_.At(row).ascent) legs_.Set(row, Field::Time, FormatFixed(pick(400) / 10.0, 1));
          break;
        case 3:
          if (!legs_.At(row).ascent) {
            legs_.Set(row, Field::Gas, blends[static_cast<std::size_t>(pick(static_cast<int>(blends.size())))].Name);
          }
          break;
        case 4:
          legs_.Move(row, last, pick(2) == 0 ? 1 : -1);
          break;
        case 5:
          legs_.SetFinalAscent(pick(2) == 0);
          if (pick(4) == 0) legs_.Paste(row + 1, kAscent, kAscent);
          break;
        case 6:
          legs_.Delete(row, last);
          break;
        default:
          if (pick(2) == 0 && !empty) {
            legs_.Duplicate(row, last);
          } else {
            legs_.Paste(empty ? 0 : row, FormatFixed(pick(50) + 9, 0) + "," + FormatFixed(pick(9), 0), kAscent);
          }
          break;
      }
    });
    ++(accepted ? kept : refused);
    if (Rows() != rows.back()) rows.push_back(Rows());
    ASSERT_EQ(Rows(), TypedRows()) << "edit " << i;
  }
  EXPECT_GT(kept, 500);
  EXPECT_GT(refused, 20);
  for (std::size_t i = rows.size() - 1; i > 0; --i) {
    while (Rows() == rows[i]) history_.Undo(plan_.Tag());
    ASSERT_EQ(Rows(), rows[i - 1]) << i;
  }
  EXPECT_EQ(Rows(), start);
  while (history_.CanRedo(plan_.Tag())) history_.Redo(plan_.Tag());
  EXPECT_EQ(Rows(), rows.back());
  EXPECT_EQ(Rows(), TypedRows());
}

}  // namespace
}  // namespace tav
