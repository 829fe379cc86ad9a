#include "cli/tavplan_fixture.h"
#include "persist/profile_file.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST_F(Tavplan, MakesAndSavesAPlanFromLegs) {
  const std::string file = Scratch("new.tav");
  EXPECT_EQ(Run({"new", "--leg", "40:15", "--leg", "25:20@EAN36", "--gas", "Tx18/45", "-o", file}), ExitStatus::kFine);
  const std::string slate = Out();
  EXPECT_THAT(slate, AllOf(StartsWith(file + "\n"), HasSubstr("  level        25   18.3     35  EAN36")));
  const DiveRecord dive = ReadProfileFile(file).dives.at(0);
  EXPECT_EQ(dive.UserActions.GetLength(), 3);
  EXPECT_EQ(dive.Template.Blends.at(static_cast<std::size_t>(dive.UserActions.getmixnumber(2))).O2, Single(36));
  EXPECT_EQ(Run({"plan", file}), ExitStatus::kFine);
  EXPECT_EQ(Out(), slate);
  EXPECT_EQ(Run({"new", "--depth", "130", "--time", "30", "--template", "Imperial"}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(StartsWith("New plan\n"), HasSubstr("stops every 10 ft"), HasSubstr(" cu ft")));
}

TEST_F(Tavplan, KnowsGasesInAnyCaseOfLetters) {
  for (const auto& [typed, name] : {std::pair{"air", "Air"},
                                    {"ean32", "EAN32"},
                                    {"EAN032", "EAN32"},
                                    {"ean036", "EAN36"},
                                    {"TX18/45", "Tx18/45"}}) {
    Run({"new", "--depth", "30", "--time", "20", "--gas", name});
    const std::string expected = Out();
    EXPECT_EQ(Run({"new", "--depth", "30", "--time", "20", "--gas", typed}), ExitStatus::kFine) << Err();
    EXPECT_EQ(Out(), expected);
  }
}

TEST_F(Tavplan, ListsAllFaultsOfTheCheckedFiles) {
  EXPECT_EQ(Run({"check", Dive("wreck.tav"), (SourceFolder() / "template/Imperial.tpl").string()}), ExitStatus::kFine);
  EXPECT_EQ(Out(), Dive("wreck.tav") + ": no faults\n" + (SourceFolder() / "template/Imperial.tpl").string() +
                       ": no faults\n");
  const std::string file = Scratch("my.tpl");
  WriteTextFile(file, "Start Template Block\nMetric=m\nStepSize=0\nRMV=1 l\nOCDeco=\nEnd Template Block\n");
  EXPECT_EQ(Run({"check", file, "/none.tpl"}), ExitStatus::kUnusableInput);
  for (const char* fault : {":2: \"Metric\" must be 0 or 1", ":5: \"OCDeco\" must be", ":4: advice: \"RMV\" should be",
                            ":3: the distance between stops is 0", ":1: advice: not told here"}) {
    EXPECT_THAT(Out(), HasSubstr(file + fault));
  }
  EXPECT_EQ(Err(), "/none.tpl: can't be opened: No such file or directory\n");
  EXPECT_EQ(Run({"check", Changed("wreck.tav", "SurfTime = 0", "SurfTime = 5")}), ExitStatus::kFine) << "advice alone";
  EXPECT_THAT(Out(), HasSubstr("advice: \"SurfTime\" of a first dive"));
}

TEST_F(Tavplan, TellsWhatIsOddInAFileThatItUses) {
  const std::string odd = Changed("wreck.tav", "RMV= 20", "RMV=20 litres");
  for (const auto& arguments :
       {std::vector<std::string>{"plan", "--csv", odd}, {"bailout", "--json", odd}, {"whatif", odd}}) {
    EXPECT_EQ(Run(arguments), ExitStatus::kFine);
    EXPECT_THAT(Err(),
                StartsWith(odd + ":26: advice: \"RMV\" should be a number, not \"20 litres\"; it is taken as 20\n"));
  }
  // A template is read over the program's own values; what it does not tell is named in one line.
  const std::string partial = Scratch("partial.tpl");
  WriteTextFile(partial, ReplaceAll(ReadTextFile(SourceFolder() / "template/Default.tpl"), "Metric=1\r\n", ""));
  WriteTextFile(partial, ReplaceAll(ReadTextFile(partial), "GF=", "# GF="));
  Run({"new", "--depth", "40", "--time", "20"});
  const std::string standard = Out();
  EXPECT_EQ(Run({"new", "--depth", "40", "--time", "20", "--template", partial}), ExitStatus::kFine);
  EXPECT_EQ(Out(), standard);
  EXPECT_THAT(
      Err(), HasSubstr(partial + ":1: advice: not told here, so that what was set before stays: \"Metric\", \"GF\"\n"));
}

TEST_F(Tavplan, TellsHowALoopIsComputed) {
  const std::string old = Dive("rebreather.tav");
  EXPECT_EQ(Run({"check", old}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(old + ":1: advice: a rebreather whose loop takes the gases of \"Change Gas Mixes\""));
  EXPECT_EQ(Run({"plan", old}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(", stops on open circuit, loop takes the change list, "));

  const std::string once = ReadTextFile(old);
  const std::string series = Scratch("series.tav");
  WriteTextFile(series, once + ReplaceAll(once, "SurfTime = 0", "SurfTime = 120"));
  EXPECT_EQ(Run({"check", series}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("advice: a surface interval of 120 min computed on the loop"));
  EXPECT_EQ(Run({"plan", series}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(", surface interval on the loop, "));

  // A new plan on a rebreather tells both in its file, whatever its template says.
  const std::string loop = Scratch("loop.tpl");
  WriteTextFile(loop,
                ReplaceAll(ReadTextFile(SourceFolder() / "template/Default.tpl"), "Open Circuit=1", "Open Circuit=0"));
  const std::string made = Scratch("made.tav");
  EXPECT_EQ(Run({"new", "--depth", "40", "--time", "20", "--template", loop, "-o", made}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(", loop keeps its diluent, "));
  EXPECT_THAT(ReadTextFile(made), HasSubstr("\r\n# Loop=diluent\r\n# Surface interval=air\r\n"));
  EXPECT_EQ(Run({"check", made}), ExitStatus::kFine);
  EXPECT_EQ(Out(), made + ": no faults\n");
}

TEST_F(Tavplan, SpeaksTheLanguageOfItsUserToPeopleAndEnglishToPrograms) {
  const std::string file = Dive("lake-series.tav");
  Run({"plan", "--json", file});
  const std::string data = Out();
  Run({"plan", "--csv", file});
  const std::string rows = Out();
  Speak("de_AT.UTF-8");
  Run({"plan", "--json", file});
  EXPECT_EQ(Out(), data);
  Run({"plan", "--csv", file});
  EXPECT_EQ(Out(), rows);
  Run({"plan", "--why", file});
  EXPECT_THAT(Out(), AllOf(HasSubstr("Tauchgang 2 von 2 nach"), HasSubstr("offenes System"), HasSubstr("Stopp"),
                           HasSubstr("Kompartiment"), Not(HasSubstr("*StringID"))));
  EXPECT_EQ(Run({"plan"}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Err(), "tavplan plan: FILE fehlt (\"tavplan plan --help\" zeigt die Hilfe)\n");
  EXPECT_EQ(Run({"plan", "/none.tav"}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Err(),
            "/none.tav: kann nicht ge\xC3\xB6"
            "ffnet werden: Datei oder Ordner nicht gefunden\n");
  // What the window program keeps comes first; a language that is not there is English.
  fs::create_directories(scratch_.Path() / "config/TAV");
  WriteTextFile(scratch_.Path() / "config/TAV/TAV.ini",
                "[Settings]\nLanguage=TAV_es.dll\n\n[General]\nLanguage=TAV_fr.dll\n");
  Run({"plan", file});
  EXPECT_THAT(Out(), HasSubstr("circuit ouvert"));
  WriteTextFile(scratch_.Path() / "config/TAV/TAV.ini", "[General]\nLanguage=TAV_xx.dll\n");
  Run({"plan", file});
  EXPECT_THAT(Out(), HasSubstr("open circuit"));
}

}  // namespace
}  // namespace tav
