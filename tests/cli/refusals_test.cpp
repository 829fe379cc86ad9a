#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

using nlohmann::json;
using testing::StartsWith;

struct Refusal {
  std::vector<std::string> arguments;
  std::string error;
};

TEST_F(Tavplan, RefusesWhatItCannotUseInOneLine) {
  const std::string wreck = Dive("wreck.tav");
  const std::string broken = Changed("wreck.tav", "Metric=1", "Metric=m", "broken.tav");
  const std::string endless = Changed("air-deco.tav", "\n39,20,", "\n39,99990,", "endless.tav");  // 100,000 min at most
  const std::string unsound = Changed("wreck.tav", "StepSize= 3", "StepSize= 0", "unsound.tav");
  const std::string lacking = Changed("wreck.tav", "Metric=1\r\n", "", "lacking.tav");
  const std::string csv = Scratch("legs.csv");
  WriteTextFile(csv, "30,20,Air\n");
  const std::string series = Changed("lake-series.tav", "-1,-1,0,1,\r\n", "", "series.tav");
  const Refusal refusals[] = {
      {{"plan", broken}, broken + ":30: \"Metric\" must be 0 or 1, not \"m\"\n"},
      {{"plan", unsound}, unsound + ":28: the distance between stops is 0, it must be at least 0.1\n"},
      {{"plan", series}, series + ":53: dive 2 can't be computed: dive 1 does not end with its ascent\n"},
      {{"plan", "/none.tav"}, "/none.tav: can't be opened: No such file or directory\n"},
      {{"new", "--depth", "30", "--time", "x"}, "tavplan new: --time: \"x\" is not a number\n"},
      {{"new", "--leg", "10"}, "tavplan new: --leg: \"10\" must be DEPTH:TIME, DEPTH:TIME@GAS\n"},
      {{"new", "--leg", "-5:10"}, "tavplan new: a leg to depth -5, outside 0 to 10000\n"},
      {{"new", "--leg", "30:20@EAN200"}, "tavplan new: gas \"EAN200\" is unknown; "},
      {{"new", "--leg", "30:20", "--template", "None"}, "None: can't be opened: "},
      {{"new", "--leg", "30:20", "-o", "/none/a.tav"}, "/none/a.tav: can't be written: "},
      {{"new"}, "tavplan new: --depth and --time, or --leg, must be given\n"},
      {{"new", "--depth", "30"},
       "tavplan new: --depth needs --time as well (\"tavplan new --help\" tells the usage)\n"},
      {{"plan", "--json", "--csv", broken}, "tavplan plan: --json and --csv exclude each other ("},
      {{"plan", "--vpm", "--hybrid", broken}, "tavplan plan: --vpm and --hybrid exclude each other ("},
      {{"plan"}, "tavplan plan: FILE is missing ("},
      {{"plan", broken, "--jason"}, "tavplan plan: \"--jason\" is not expected ("},
      {{"plan", "--jason"}, "tavplan plan: \"--jason\" is not expected ("},
      {{"report", broken, "x.pdf"}, "tavplan report: \"x.pdf\" is not expected ("},
      {{"report", broken, "--pdf", "a", "--dive"}, "tavplan report: --dive: the value is missing ("},
      {{"report", broken, "--pdf", "a", "--pdf", "b"}, "tavplan report: --pdf is given more than once ("},
      {{"new", "--depth", "30", "--time", "9", "-o", "--vpm"}, "tavplan new: --output: the value is missing ("},
      {{"new", "--depth", "30", "--time", "9", "-o", "-h"}, "tavplan new: --output: the value is missing ("},
      {{"export", broken, "--uddf", "--vpm"}, "tavplan export: --uddf: the value is missing ("},
      {{"report", broken, "--pdf", "--slate"}, "tavplan report: --pdf: the value is missing ("},
      {{"report", broken, "--pdf=--slate"}, "tavplan report: --pdf: the value is missing ("},
      {{"bailout", broken, "--pdf", ""}, "tavplan bailout: --pdf: the value is missing ("},
      {{"bailout", broken, "--pdf="}, "tavplan bailout: --pdf: the value is missing ("},
      {{"bailout", broken, "--interval", "1.5"}, "tavplan bailout: --interval: \"1.5\" must be a whole number from 0"},
      {{"tables", "--gas", "Air", "--depths", "9:30:0.4", "--times", "5:10:5"},
       "tavplan tables: --depths: \"0.4\" must be a whole number from 1"},
      {{"import", csv, "-o", "a.tav", "--dive", "3"}, csv + ": there is no dive 3, the file holds 1\n"},
      {{"plan", lacking}, lacking + ":1: the settings of this dive lack \"Metric\"\n"},
      {{"plan", "--why=x", broken}, "tavplan plan: --why can't be understood ("},
      {{"new", "--depth", "30", "--time", "25", "--cylinder", "Air:2/12/200/250"},
       "tavplan new: cylinder \"Air:2/12/200/250\": a reserve of 250 is above the fill of 200"},
      {{"new", "--depth", "30", "--time", "25", "--cylinder", "Helios:1/12/200/50"},
       "tavplan new: gas \"Helios\" is unknown; "},
      {{"whatif", wreck, "--longer", "x"}, "tavplan whatif: --longer: \"x\" is not a number\n"},
      {{"whatif", wreck, "--longer", "-1"}, "tavplan whatif: --longer: \"-1\" is outside 0 to 999\n"},
      {{"whatif", wreck, "--deeper", "1000"}, "tavplan whatif: --deeper: \"1000\" is outside 0 to 999\n"},
      {{"whatif", wreck, "--dive", "2"}, "tavplan whatif: --dive: \"2\" is not one of the dives 1 to 1\n"},
      {{"whatif", endless, "--longer", "20"}, endless + ": longer: "},
      {{"plan", "--turn", "x", broken}, "tavplan plan: --turn: \"x\" must be one of these: all, half, thirds\n"},
      {{"plan", "--team", "2.5", broken}, "tavplan plan: --team: \"2.5\" must be a whole number from 1 to 9\n"},
      {{"plan", "--stress", "x", broken}, "tavplan plan: --stress: \"x\" is not a number\n"},
      {{"whatif", "--sort-out", "31", broken}, "tavplan whatif: --sort-out: \"31\" is outside 0 to 30\n"},
      {{"import", broken, "-o", "a.tav", "--dive", "0"},
       "tavplan import: --dive: \"0\" must be a whole number from 1 to 32767\n"},
      {{"mix", "--have", "21/0@1"}, "tavplan mix: --want is missing ("},
      {{"mix", "--have", "21/0@1", "--want", "32@200"}, "tavplan mix: --want: \"32@200\" must be O2/HE@PRESSURE\n"},
      {{"mix", "--have", "21/@1", "--want", "32/0@200"}, "tavplan mix: --have 21/@1: \"\" is not a number\n"},
      {{"mix", "--have", "60/50@1", "--want", "32/0@200"}, "tavplan mix: --have: \"60/50@1\" has more than 100 %"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@3000"},
       "tavplan mix: --want 32/0@3000: \"3000\" is outside 0 to 1000\n"},
      {{"mix", "--have", "21/0@-1", "--want", "32/0@200"},
       "tavplan mix: --have 21/0@-1: \"-1\" is outside 0 to 1000\n"},
      {{"mix", "--have", "nan/0@1", "--want", "32/0@0"}, "tavplan mix: --have nan/0@1: \"nan\" is not a number\n"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@0"}, "tavplan mix: --want: \"32/0@0\" has a pressure of 0\n"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@200", "--top", "32"}, "tavplan mix: --top: \"32\" must be O2/HE\n"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@200", "--top", "60/40"},
       "tavplan mix: --top 60/40: the gas on top must hold nitrogen"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@200", "--temperature", "293"},
       "tavplan mix: --temperature: \"293\" is outside -20 to 80\n"},
      {{"mix", "--have", "21/0@1", "--steps", ""}, "tavplan mix: --steps: the value is missing ("},
      {{"mix", "--have", "21/0@1", "--steps", "o2@20,air@15"},
       "tavplan mix: --steps: \"air@15\": the pressure must be above 20 and at most 1000\n"},
      {{"dive"}, "tavplan: \"dive\" is not a command (\"tavplan --help\" tells the usage)\n"},
      {{"--jason"}, "tavplan: \"--jason\" is not expected ("},
      {{}, "tavplan: a command is missing ("}};
  for (const Refusal& refusal : refusals) {
    EXPECT_EQ(Run(refusal.arguments), ExitStatus::kUnusableInput) << refusal.error;
    const std::string error = Err();
    EXPECT_THAT(error, StartsWith(refusal.error));
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
    EXPECT_EQ(Out(), "");
  }
  EXPECT_EQ(Run({"plan", broken, Dive("wreck.tav")}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Out(), StartsWith(Dive("wreck.tav"))) << "the others are printed";
}

}  // namespace
}  // namespace tav
