#include "model/profile.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tav {
namespace {

/// Row n has n in its run time, ceiling and first helium load.
ClassProfile RowsTo(std::int16_t last) {
  ClassProfile profile;
  for (std::int16_t i = 0; i <= last; ++i) {
    if (i > 0) profile.NewWayPoint();
    profile.SetRunTime(i, i);
    profile.SetCeiling(i, i);
    profile.SetHeCompartments(i, {Single(i)});
    profile.SetN2Compartments(i, {Single(i)});
  }
  return profile;
}

TEST(Profile, BeginsWithAStartRowOnAirThatOutlivesClearing) {
  ClassProfile profile;
  EXPECT_EQ(profile.GetLength(), 0);
  EXPECT_EQ(profile.GetGasMixName(0), "Air");
  EXPECT_EQ(profile.GetGF(0), Single(1));
  EXPECT_FALSE(profile.GetDoShow(0));
  profile.setCNS(0, 0.25);
  profile.NewWayPoint();
  EXPECT_TRUE(profile.GetDoShow(1));
  EXPECT_EQ(profile.GetGF(1), Single(1));
  EXPECT_EQ(profile.GetGasMixName(1), "");
  profile.clear();
  EXPECT_EQ(profile.GetLength(), 0);
  EXPECT_EQ(profile.getCNS(0), Single(0.25));
  profile.Class_Initialize();
  EXPECT_EQ(profile.getCNS(0), Single(0));
}

TEST(Profile, DeletesItsLastRowButNotTheStart) {
  ClassProfile profile = RowsTo(2);
  EXPECT_EQ(profile.DeleteLast(), Single(1));
  EXPECT_EQ(profile.DeleteLast(), Single(0));
  profile.SetRunTime(0, 9);
  EXPECT_EQ(profile.DeleteLast(), Single(0));
  EXPECT_EQ(profile.GetLength(), 0);
}

TEST(Profile, CopiesWithoutLoadsAndAPartWithoutCeilings) {
  const ClassProfile source = RowsTo(3);
  ClassProfile copy = RowsTo(9);
  copy.Copy(source);
  EXPECT_EQ(copy.GetLength(), 3);
  EXPECT_EQ(copy.GetRunTime(3), Single(3));
  EXPECT_EQ(copy.GetCeiling(3), Single(3));
  EXPECT_EQ(copy.GetHeCompartments(3), Compartments{});
  EXPECT_EQ(copy.GetN2Compartments(3), Compartments{});

  copy.CopyUntil(source, 2);
  EXPECT_EQ(copy.GetLength(), 2);
  EXPECT_EQ(copy.GetRunTime(2), Single(2));
  EXPECT_EQ(copy.GetCeiling(2), Single(0));
  copy.CopyUntil(copy, 1);
  EXPECT_EQ(copy.GetLength(), 1);
  copy.CopyUntil(source, 0);
  EXPECT_EQ(copy.GetLength(), 0);

  ClassProfile shared = RowsTo(5);
  shared.SetRunTime(1, 77);
  shared.CopyFrom(source, 2);
  EXPECT_EQ(shared.GetLength(), 3);
  EXPECT_EQ(shared.GetRunTime(1), Single(77));
  EXPECT_EQ(shared.GetRunTime(2), Single(2));
}

TEST(Profile, FindsTheLastRowOfTheUser) {
  ClassProfile profile = RowsTo(4);
  EXPECT_EQ(LastUserRow(profile), 0);
  profile.SetEndUserProfile(1, true);
  profile.SetEndUserProfile(3, true);
  EXPECT_EQ(LastUserRow(profile), 3);
}

TEST(Profile, IsBoundedByItsIndex) {
  ClassProfile profile = RowsTo(1);
  EXPECT_THROW(profile.SetGF(2, 1), std::out_of_range);
  EXPECT_THROW((void)profile.getDepth(-1), std::out_of_range);
  while (profile.GetLength() < INT16_MAX) profile.NewWayPoint();
  EXPECT_THROW(profile.NewWayPoint(), std::length_error);
  EXPECT_EQ(profile.GetLength(), INT16_MAX);
}

}  // namespace
}  // namespace tav
