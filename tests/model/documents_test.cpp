#include <gtest/gtest.h>
#include <stdexcept>

#include "model/document_store.h"
#include "model/user_actions.h"

namespace tav {
namespace {

TEST(UserActions, KeepLegsAndAscentsInOrder) {
  ClassUseractions actions;
  EXPECT_EQ(actions.GetLength(), 0);
  EXPECT_EQ(actions.DeleteLast(), Single(0));
  actions.NewAction();
  actions.setuser(1, 30, 20, 4);
  actions.NewAction();
  actions.setuser(2, 12, 5, 3);
  actions.setdeco(2);
  EXPECT_EQ(actions.getDepth(1), Single(30));
  EXPECT_EQ(actions.gettime(1), Single(20));
  EXPECT_EQ(actions.getaction(1), ClassUseractions::kLeg);
  EXPECT_EQ(actions.getaction(2), ClassUseractions::kAscent);
  EXPECT_EQ(actions.getDepth(2), Single(-1));
  EXPECT_EQ(actions.gettime(2), Single(-1));
  EXPECT_EQ(actions.getmixnumber(2), 3);
  EXPECT_EQ(actions.DeleteLast(), Single(20));
  actions.setuser(0, 1, 2, 3);
  actions.clear();
  EXPECT_EQ(actions, ClassUseractions());
}

TEST(UserActions, AreBoundedByTheirIndex) {
  ClassUseractions actions;
  EXPECT_THROW(actions.setdeco(1), std::out_of_range);
  EXPECT_THROW((void)actions.gettime(-1), std::out_of_range);
  while (actions.GetLength() < INT16_MAX) actions.NewAction();
  EXPECT_THROW(actions.NewAction(), std::length_error);
}

TEST(DocumentStore, GivesTheLowestFreeSlotFirst) {
  DocumentStore documents;
  DocumentState& standard = documents(DocumentStore::DefaultDocument);
  standard.SlotFree = true;  // the default document is never given away
  for (const int expected : {1, 2, 3}) EXPECT_EQ(documents.AllocateDocumentSlot(), expected);
  documents(2).SlotFree = true;
  documents(3).SlotFree = true;
  documents(2).ProfileName = "old";
  EXPECT_EQ(documents.AllocateDocumentSlot(), 2);
  EXPECT_FALSE(documents(2).SlotFree);
  EXPECT_EQ(documents(2).ProfileName, "old");
  EXPECT_EQ(documents.AllocateDocumentSlot(), 3);
  EXPECT_EQ(documents.AllocateDocumentSlot(), 4);
  EXPECT_EQ(&standard, &documents(0));
  EXPECT_THROW(documents(5), std::out_of_range);
  while (documents.UpperBound() < INT16_MAX) documents.AllocateDocumentSlot();
  EXPECT_THROW(documents.AllocateDocumentSlot(), std::length_error);
}

}  // namespace
}  // namespace tav
