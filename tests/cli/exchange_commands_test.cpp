#include "cli/tavplan_fixture.h"
#include "persist/profile_file.h"

namespace tav {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(Tavplan, APlanGoesOutAsUddfAndComesBack) {
  const std::string uddf = Scratch("out.uddf");
  const std::string back = Scratch("back.tav");
  for (const char* dive : {"lake-series.tav", "rebreather.tav"}) {
    EXPECT_EQ(Run({"export", Dive(dive), "--uddf", uddf}), ExitStatus::kFine) << Err();
    EXPECT_EQ(Run({"import", uddf, "-o", back, "--template", "Imperial"}), ExitStatus::kFine) << Err();
    EXPECT_EQ(Out() + Err(), "");
    EXPECT_EQ(ReadTextFile(back), ReadTextFile(Dive(dive)));
  }
  EXPECT_EQ(Run({"export", Dive("lake-series.tav"), "--uddf", uddf, "--dive", "2"}), ExitStatus::kFine);
  EXPECT_EQ(Err(), Dive("lake-series.tav") +
                       ": Dive 2 alone: the dives before it are left out, so the plan that comes back begins without "
                       "their loads.\n");
  EXPECT_EQ(Run({"import", uddf, "-o", back}), ExitStatus::kFine);
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(ReadProfileFile(back).dives.size(), 1U);
}

TEST_F(Tavplan, AnImportTellsWhatItSimplifiedAndWritesNothingOfABrokenFile) {
  const std::string legs = Scratch("legs.csv");
  const std::string made = Scratch("made.tav");
  WriteTextFile(legs, "30,20,EAN36\n5,3\n");
  EXPECT_EQ(Run({"import", legs, "-o", made}), ExitStatus::kFine) << Err();
  EXPECT_EQ(Run({"plan", made}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("EAN36"));
  const std::string log = Scratch("log.uddf");
  EXPECT_EQ(Run({"export", Dive("wreck.tav"), "--uddf", log}), ExitStatus::kFine);
  WriteTextFile(log, ReplaceAll(ReadTextFile(log), "<?tav-plan", "<?other-plan"));
  EXPECT_EQ(Run({"import", log, "-o", made}), ExitStatus::kFine);
  EXPECT_THAT(Err(), HasSubstr(log + ": Dive 1: 31 samples became 13 legs"));
  const std::string before = ReadTextFile(made);
  WriteTextFile(log, ReplaceAll(ReadTextFile(log), "<depth>", "<depth>-99"));
  EXPECT_EQ(Run({"import", log, "-o", made}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Err(), AllOf(StartsWith(log + ":"), HasSubstr("\"depth\" must be a number")));
  EXPECT_EQ(ReadTextFile(made), before);
  EXPECT_EQ(Run({"import", Dive("wreck.tav"), "-o", made}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Run({"export", Dive("wreck.tav"), "--uddf", log, "--dive", "2"}), ExitStatus::kUnusableInput);
}

}  // namespace
}  // namespace tav
