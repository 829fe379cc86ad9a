#include "persist/template_block.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/template_file.h"
#include "support/english.h"
#include "support/random_records.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using testing::HasSubstr;

std::string FileText(const std::filesystem::path& file) {
  std::stringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

std::string Block(const std::string& lines) { return "Start Template Block\n" + lines + "\nEnd Template Block\n"; }

DiveTemplate Read(const std::string& text, DiveTemplate diveTemplate = ShippedDefaultTemplate()) {
  FormatFaults faults("x.tpl", FormatFaults::Mode::StopAtFirstError);
  ReadTemplateText(diveTemplate, text, faults);
  return diveTemplate;
}

/// Faults and advice without the line that tells which keys are missing.
std::string Advice(const std::string& text) {
  FormatFaults faults("x.tpl", FormatFaults::Mode::Collect);
  DiveTemplate diveTemplate = ShippedDefaultTemplate();
  ReadTemplateText(diveTemplate, text, faults);
  std::string all;
  for (const FormatFault& fault : faults.List()) {
    if (fault.text.text == Text::NotTold) continue;
    all += std::to_string(fault.line) + (fault.error ? " error: " : " advice: ") + test::English().Words(fault.text) +
           "\n";
  }
  return all;
}

TEST(TemplateBlock, OfTheShippedFilesIsWrittenAsItStandsThere) {
  for (const char* name : {"Default.tpl", "Imperial.tpl"}) {
    const auto file = SourceFolder() / "template" / name;
    DiveTemplate diveTemplate = ShippedDefaultTemplate();
    LoadTemplateFile(diveTemplate, file);
    EXPECT_EQ(WriteTemplateBlock(diveTemplate), FileText(file));
    EXPECT_EQ(Advice(FileText(file)), "");
  }
  EXPECT_EQ(WriteTemplateBlock(ShippedDefaultTemplate()), FileText(SourceFolder() / "template/Default.tpl"));
}

TEST(TemplateBlock, OfAnyRecordComesBackAsItWas) {
  std::mt19937 random(1);
  for (int n = 0; n < 1000; ++n) {
    const std::string written = WriteTemplateBlock(test::RandomTemplate(random));
    DiveTemplate again = Read(written);
    again.CeilingOverride = written.find("CeilingOverride= 1") != std::string::npos;  // written, but never read
    ASSERT_EQ(WriteTemplateBlock(again), written);
  }
}

struct KeyCase {
  std::string lines;
  std::function<bool(const DiveTemplate&)> holds;
  const char* advice = "";
};

TEST(TemplateBlock, ReadsItsKeysTolerantlyButFlagsAsNumbers) {
  const KeyCase cases[] = {
      {"RMV= 22", [](const auto& t) { return t.RMV == 22 && t.DecoRMV == 15; }},
      {"RMV=22\nDecoRMV=0", [](const auto& t) { return t.DecoRMV == 22; }},
      {"RMV=22\nDecoRMV=16", [](const auto& t) { return t.DecoRMV == 16; }},
      {"RMV=22 l/min", [](const auto& t) { return t.RMV == 22; }, "it is taken as 22"},
      {"  RMV \t=\t 7 \t", [](const auto& t) { return t.RMV == 7; }},
      {"RMV=1\nRMV=2", [](const auto& t) { return t.RMV == 2; }, "3 advice: \"RMV\" stands twice"},
      {"OCDeco=1", [](const auto& t) { return t.OCDeco; }},
      {"OCDeco= 1.0", [](const auto& t) { return t.OCDeco; }},
      {"OCDeco=2", [](const auto& t) { return !t.OCDeco; }, "should be 0 or 1"},
      {"ocdeco=1", [](const auto& t) { return !t.OCDeco; }, "\"ocdeco\" is not a key"},
      {"# OCDeco=1", [](const auto& t) { return !t.OCDeco; }},
      {" # note", [](const auto& t) { return t.Metric; }, "\"# note\" is not a key"},
      {"CeilingOverride= 1", [](const auto& t) { return !t.CeilingOverride; }},
      {"# Limits= 75/ / 90/ 1/",
       [](const auto& t) {
         return t.Limits == DiveLimits{Single(75), {}, Single(90), true};
       }},
      {"# Limits=/0/ / /",
       [](const auto& t) {
         return t.Limits == DiveLimits{{}, Single(0), {}, false};
       }},
      {"# Limits=75/ 90/ 1/", [](const auto& t) { return !t.Limits && t.Comments.size() == 1; }, "passed over"},
      {"# Limits=0/ / / 1/", [](const auto& t) { return !t.Limits; }, "passed over"},
      {R"(# Plan name= The "Thistle" = north )",
       [](const auto& t) { return t.Texts.name == R"(The "Thistle" = north)"; }},
      {R"(# Notes=slack at 11:30\n\nkeys in C:\\new)",
       [](const auto& t) { return t.Texts.notes == "slack at 11:30\n\nkeys in C:\\new"; }},
      {R"(# Notes=C:\temp)", [](const auto& t) { return t.Texts.notes.empty() && t.Comments.size() == 1; },
       "2 advice: passed over: Notes: behind \"\\\" there must be"},
      {R"(# Place=a\nb)", [](const auto& t) { return t.Texts.place.empty(); }, "can not be printed"},
      {"# Place=" + std::string(101, 'x'), [](const auto& t) { return t.Texts.place.empty(); },
       "Place has 101 letters, 100 at most"},
      {"# Loop=diluent", [](const auto& t) { return t.KeepsDiluent && !t.IntervalOnAir; }},
      {"#  Surface interval = air \t", [](const auto& t) { return !t.KeepsDiluent && t.IntervalOnAir; }},
      {"TimeToHeight=2.5", [](const auto& t) { return t.TimeToHeight == 2; }},
      {"GF=0,.8,.3", [](const auto& t) { return !t.UseGF && t.GFHigh == Single(.8) && t.GFLow == Single(.3); }},
      {"GF=1,.8,.3, ", [](const auto& t) { return t.UseGF && t.GFLow == Single(.3); }},
      {"GF=1,.3,.8", [](const auto& t) { return t.UseGF; }, "the high one stands first"},
      {"Templatename= my=own ", [](const auto& t) { return t.Templatename == "my=own"; }},
      {"AscendRates=0:3,6:9,30:10,\nAscendRates= 0:3, 6: 9,",
       [](const auto& t) { return t.AscendRates.size() == 2 && t.AscendRates[1].Rate == 9; }, "stands twice"},
      {"AscendRates=0:3,6:9", [](const auto& t) { return t.AscendRates.size() == 1; }, "which is ignored"},
      {"Change Gas Mixes=", [](const auto& t) { return t.ChangeGasMixes.empty() && t.Blends.size() == 8; }},
      {"Change Gas Mixes=6:Oxygen", [](const auto& t) { return t.ChangeGasMixes.empty(); }, "which is ignored"},
      {"Change Gas Mixes=6:EAN80,", [](const auto& t) { return t.ChangeGasMixes.size() == 1; }, "not in the list"},
      {"Blends Available=Air: 20.9/ 79.1/ 0/\nChange Gas Mixes=",
       [](const auto& t) { return t.Blends.size() == 2 && t.Blends[0].O2 == 21 && t.Blends[1].O2 == Single(20.9); }},
      {"Blends Available=EAN50: 50/ 50/ 0/", [](const auto& t) { return t.Blends.size() == 2; },
       "names the gas \"Oxygen\", which is not in the list"},
      {"Blends Available=a: 10/ 20/ 70\nChange Gas Mixes=", [](const auto& t) { return t.Blends[1].He == 70; },
       "should give O2/N2/He/"},
      {"Blends Available=a: 10/ 20/ 70/ 5\nChange Gas Mixes=", [](const auto& t) { return t.Blends[1].He == 70; },
       "should give O2/N2/He/"},
      {"Change Gas Mixes=6:O,\nBlends Available=O: 100/ 0/ 0/",
       [](const auto& t) { return t.ChangeGasMixes[0].O2 == 0; }, "2 advice: \"Change Gas Mixes\" names the gas \"O\""},
      {"Blends Available=O: 99/ 1/ 0/\nBlends Available=O: 98/ 2/ 0/\nChange Gas Mixes=6:O,21:Air,",
       [](const auto& t) { return t.ChangeGasMixes[0].O2 == 98 && t.ChangeGasMixes[1].N2 == 79; }},
      {"StartAltitude=2000", [](const auto& t) { return t.StartAltitude == 2000; },
       "at an altitude of 2000 a pressure of about 0.803 is usual"}};
  for (const KeyCase& known : cases) {
    SCOPED_TRACE(known.lines);
    const std::string text = Block(known.lines);
    EXPECT_TRUE(known.holds(Read(text)));
    const std::string advice = Advice(text);
    EXPECT_THAT(advice, HasSubstr(known.advice));
    EXPECT_EQ(advice.empty(), std::string(known.advice).empty()) << advice;
  }
}

TEST(TemplateBlock, ChangesOnlyWhatItTells) {
  const DiveTemplate before = ShippedDefaultTemplate();
  EXPECT_EQ(WriteTemplateBlock(Read(Block("# nothing"), before)), WriteTemplateBlock(before));
  const DiveTemplate after = Read(Block("StepSize=5\nChange Gas Mixes=9:EAN50,"), before);
  EXPECT_EQ(after.Blends.size(), before.Blends.size());
  EXPECT_EQ(after.ChangeGasMixes.size(), 1U);
  EXPECT_EQ(after.ChangeGasMixes[0].O2, Single(50));
  // From before there was a breathing rate of its own for the decompression.
  EXPECT_EQ(Read(ReplaceAll(WriteTemplateBlock(before), "DecoRMV", "X"), before).DecoRMV, before.RMV);
  // A record that has Air alone is written without lines of gases, and is itself again.
  DiveTemplate air = before;
  air.Blends = {AirMix()};
  air.ChangeGasMixes.clear();
  EXPECT_EQ(Read(WriteTemplateBlock(air), before).Blends.size(), 1U);
  FormatFaults faults("x.tpl", FormatFaults::Mode::StopAtFirstError);
  DiveTemplate told = before;
  ReadTemplateText(told, ReplaceAll(ReplaceAll(WriteTemplateBlock(before), "Metric", "X"), "GF=", "Y="), faults);
  ASSERT_EQ(faults.List().size(), 3U);
  EXPECT_EQ(test::English().Words(faults.List()[2].text),
            "not told here, so that what was set before stays: \"Metric\", \"GF\"");
}

TEST(TemplateBlock, EndsAtItsMarkerAlone) {
  EXPECT_EQ(Read("Start Template Block\nRMV=1\nTemplatename=End Template Block\nRMV=2\n").RMV, Single(1));
  EXPECT_EQ(Read("Start Template Block \nRMV=1\nEnd Template Block\t \n").RMV, Single(1));
  EXPECT_EQ(Read("Start Template Block\nTemplatename= End Template Block\nRMV=2\nEnd Template Block").RMV, Single(2));
  DiveTemplate named = ShippedDefaultTemplate();
  named.Templatename = "End Template Block";
  EXPECT_EQ(Read(WriteTemplateBlock(named)).Templatename, named.Templatename);
  EXPECT_THAT(Advice(Block("RMV=1") + "\r\n \nmore"), HasSubstr("6 advice: what follows the end"));
}

struct FaultCase {
  std::string text;
  int line;
  const char* reason;
};

TEST(TemplateBlock, RefusesWhatItCannotReadAndNamesTheLine) {
  std::string many = "AscendRates=";
  for (int i = 0; i < 40000; ++i) many += "1:1,";
  std::string gases;
  for (int i = 0; i < 40000; ++i) gases += "Blends Available=a: 100/ 0/ 0/\n";
  const FaultCase cases[] = {
      {"", 1, "a template begins with"},
      {" Start Template Block\nEnd Template Block", 1, "a template begins with"},
      {"Start Template Block", 1, "the file ends before \"End Template Block\""},
      {"Start Template Block\nRMV=1\n End Template Block\n", 3, "the file ends before"},
      {Block("RMV=1\nMetric="), 3, "\"Metric\" must be 0 or 1, not \"\""},
      {Block("Metric=yes"), 2, "\"Metric\" must be 0 or 1, not \"yes\""},
      {Block("Metric=1 0"), 2, "\"Metric\" must be 0 or 1"},
      {Block("GF=,.8,.3"), 2, "\"GF\" must be 0 or 1"},
      {Block("GF=1,.8"), 2, "\"GF\" takes three values"},
      {Block("GF=1,0,85,0,3"), 2, "\"GF\" takes three values"},
      {Block("GF=1, 85, 30"), 2, "\"GF\" holds 85 per cent: a gradient factor is a fraction, write 0.85"},
      {Block("GF=0, .85, -.3"), 2, "\"GF\" must not be below 0, but is -0.3"},
      {Block("RMV=lots"), 2, "\"RMV\" holds \"lots\", where a number belongs"},
      {Block("RMV=-5"), 2, "\"RMV\" must not be below 0, but is -5"},
      {Block("StepSize=2,5"), 2, "numbers in files have a point, not a comma"},
      {Block("Setpoint="), 2, "where a number belongs"},
      {Block("RMV=20\nEndPressure=1013.25"), 3, "is 1013.25, a pressure in hectopascal: write 1.01325"},
      {Block("EndPressure=2"), 2, "\"EndPressure\" must be 0.3 to 1.2, not 2"},
      {Block("StartAltitude=9000"), 2, "\"StartAltitude\" must be -500 to 6000, not 9000"},
      {Block("LastStop=31"), 2, "\"LastStop\" must be 0 to 30, not 31"},
      {Block("AscendRates=\nRMV=1"), 2, "no ascent rate"},
      {Block("DescendRates=18,"), 2, "\"DescendRates\" holds the entry \"18\" without \":\""},
      {Block("AscendRates=0:3,:9,"), 2, "\"AscendRates\" holds \"\", where a number belongs"},
      {Block("Change Gas Mixes=21,5:EAN50,"), 2, "holds the entry \"21\" without \":\""},
      {Block("Blends Available=Air: 21/79/0/\nBlends Available=a: 10/ 20/ 30/"), 3, "60 % in all"},
      {Block("Blends Available=a: 50/ 70/ 0/"), 2, "120 % in all"},
      {Block("Blends Available=a: 50/ 50/"), 2, "where a number belongs"},
      {Block("Blends Available=a"), 2, "should be a name"},
      {Block("RMV=1e39"), 2, "\"RMV\" holds the number \"1e39\", which is too large"},
      {Block("AscendRates=0:1e400,"), 2, "too large"},
      {Block("Blends Available=a: 1e39/ 0/ 0/"), 2, "too large"},
      {Block("TimeToHeight=32768"), 2, "must fit 16 bits"},
      {Block("Change Gas Mixes=deep:Air,"), 2, "must give a depth before \":\""},
      {Block("Change Gas Mixes=1e39:Air,"), 2, "too large"},
      {Block("RMV=1\n# Loop=EAN50"), 3, "\"# Loop=EAN50\" is not understood"},
      {Block("# Surface interval="), 2, "\"# Surface interval=\" is not understood"},
      {Block(many), 2, "more than 32,767 entries"},
      {Block(gases), 32769, "more than 32,767 times"}};
  for (const FaultCase& fault : cases) {
    SCOPED_TRACE(fault.text.substr(0, 80));
    try {
      Read(fault.text);
      ADD_FAILURE() << "was read";
    } catch (const FileError& error) {
      EXPECT_EQ(error.Line(), fault.line);
      EXPECT_THAT(error.what(), HasSubstr("x.tpl:" + std::to_string(fault.line) + ": "));
      EXPECT_THAT(test::English().Words(error.Reason()), HasSubstr(fault.reason));
    }
  }
}

const char* const kBlends = "Blends Available=EAN50: 50/ 50/ 0/\n";

TEST(Cylinders, ComeBackFromCommentLinesThatPlainReadersPassOver) {
  DiveTemplate t = Read(Block(std::string(kBlends) +
                              "# Cylinder=Air: 2/ 12/ 232/ 50/\n# Cylinder= EAN50 :1/ 80/ 3000/2900/ 500/\n# a note"));
  ASSERT_EQ(t.Cylinders.size(), 2U);
  EXPECT_EQ(t.Cylinders[0], (Cylinder{"Air", 2, 12.0, 0, 232.0, 50.0}));
  EXPECT_EQ(t.Cylinders[1], (Cylinder{"EAN50", 1, 80.0, 3000.0, 2900.0, 500.0}));
  const std::string written = WriteTemplateBlock(t);
  EXPECT_THAT(written, HasSubstr("\r\n# Cylinder=Air: 2/ 12/ 232/ 50/\r\n# Cylinder=EAN50: 1/ 80/ 3000/ 2900/ 500/\r\n"
                                 "Templatename="));
  EXPECT_EQ(Read(written).Cylinders, t.Cylinders);
  // A template without cylinders leaves those of the plan; one with cylinders brings its own.
  EXPECT_EQ(Read(Block("RMV=20"), t).Cylinders.size(), 2U);
  EXPECT_EQ(Read(Block("# Cylinder=Air: 1/ 10/ 200/ 20/"), t).Cylinders.size(), 1U);
  // What is left without its comments is the block of a plan without cylinders.
  t.Cylinders.clear();
  EXPECT_EQ(ReplaceAll(ReplaceAll(written, "# Cylinder=Air: 2/ 12/ 232/ 50/\r\n", ""),
                       "# Cylinder=EAN50: 1/ 80/ 3000/ 2900/ 500/\r\n", ""),
            WriteTemplateBlock(t));
}

TEST(Cylinders, ThatCannotBeAreNamedWithTheirLine) {
  const struct {
    const char* line;
    const char* fault;
  } cases[] = {
      {"# Cylinder=Air", "3 advice: passed over: a cylinder: it must be the name of a gas"},
      {"# Cylinder=Air: two/ 12/ 232/ 50/", "3 advice: passed over: a cylinder: \"two\" is not a number"},
      {"# Cylinder=Air: 2/ 12/ 232/", "3 advice: passed over: a cylinder: \"count/litres/fill/reserve/\" or"},
      {"# Cylinder=Air: 2/ 12/ 232/ 50", "3 advice: passed over: a cylinder: \"count/litres/fill/reserve/\" or"},
      {"# Cylinder=Air: 1/ 80/ 0/ 3000/ 500/", "3 advice: passed over: a cylinder: the rated pressure must be above 0"},
      {"# Cylinder=Air: 0/ 12/ 232/ 50/", "3 advice: passed over: a cylinder: the number of cylinders must be 1 to 99"},
      {"# Cylinder=Air: 1.5/ 12/ 232/ 50/",
       "3 advice: passed over: a cylinder: the number of cylinders must be 1 to 99"},
      {"# Cylinder=Air: 1/ 0/ 232/ 50/", "3 advice: passed over: a cylinder: the size of a cylinder must be above 0"},
      {"# Cylinder=Air: 1/ 12/ 2000/ 50/", "3 advice: passed over: a cylinder: a fill of 2000 is outside 0 to 1000"},
      {"# Cylinder=Air: 1/ 12/ -1/ -2/", "3 advice: passed over: a cylinder: a fill of -1 is outside"},
      {"# Cylinder=Air: 1/ 12/ 100/ 150/",
       "3 advice: passed over: a cylinder: a reserve of 150 is above the fill of 100"},
      {"# Cylinder=EAN36: 1/ 12/ 200/ 50/", "3 advice: a cylinder holds the gas \"EAN36\", which is not in the list"},
      {"#Cylinder=this is a comment like any other", ""},
  };
  for (const auto& each : cases) {
    const std::string advice = Advice(Block(std::string("RMV=20\n") + each.line));
    EXPECT_THAT(advice, testing::StartsWith(each.fault));
    EXPECT_EQ(advice.empty(), std::string(each.fault).empty()) << advice;
  }
}

TEST(CommentLines, ThatNothingHereKnowsAreKeptAndWrittenAgain) {
  const std::string lines = "# Port=wreck \xC3\xA9, 30 m = deep \r\n# Cylinder=Air: 1/ 12/\r\n# Boat=x\r\n# Port=\r\n";
  const DiveTemplate t = Read(Block("RMV=20\n# a note\n#Boat=no name\n" + lines));
  const std::string written = WriteTemplateBlock(t);
  EXPECT_THAT(written, HasSubstr("21:EAN50,\r\n" + lines + "Templatename="));
  EXPECT_THAT(written, testing::Not(HasSubstr("note")));
  EXPECT_EQ(Read(written).Comments, t.Comments);
  // What a template tells stands in place of what the plan had under that name; a line that is passed over changes
  // none.
  DiveTemplate plan = Read(Block("# Cylinder=Air: 1/ 10/ 200/ 20/"), t);
  EXPECT_EQ(plan.Comments, (std::vector{t.Comments[0], t.Comments[2], t.Comments[3]}));
  plan = Read(Block("# Cylinder=Air\n# Port=here"), plan);
  EXPECT_EQ(plan.Cylinders.size(), 1U);
  EXPECT_EQ(plan.Comments, (std::vector<std::string>{"# Boat=x", "# Cylinder=Air", "# Port=here"}));
}

TEST(TemplateFile, IsLoadedAsAWholeOrNotAtAll) {
  const test::ScratchFolder folder;
  const auto file = folder.Path() / "cold.tpl";
  WriteTextFile(file, Block("RMV=25"));
  DiveTemplate record = ShippedDefaultTemplate();
  record.TemplateChanged = true;
  EXPECT_EQ(LoadTemplateFile(record, file).size(), 1U) << "which keys it lacks";
  EXPECT_EQ(record.RMV, Single(25));
  EXPECT_EQ(record.Templatename, "cold.tpl");
  EXPECT_EQ(record.TemplateFolder, folder.Path().string() + "/");
  EXPECT_FALSE(record.TemplateChanged);

  WriteTextFile(file, Block("RMV=30\nGF=1,85,30"));
  EXPECT_THROW(LoadTemplateFile(record, file), FileError);
  EXPECT_EQ(record.RMV, Single(25));
  SaveTemplateFile(record, file);
  EXPECT_EQ(FileText(file), WriteTemplateBlock(record));
  // What is said of a plan is no setting.
  DiveTemplate plan = record;
  plan.Texts.name = "wreck";
  SaveTemplateFile(plan, file);
  EXPECT_EQ(FileText(file), WriteTemplateBlock(record));
  WriteTextFile(file, Block("# Plan name=reef"));
  LoadTemplateFile(plan, file);
  EXPECT_EQ(plan.Texts.name, "wreck");
}

TEST(LineOfFault, IsThatOfTheKeyOrOfTheBlock) {
  const KeyLines lines = {{"RMV", {4, 9}}, {"Blends Available", {11, 12, 13}}};
  EXPECT_EQ(LineOfFault({"RMV", "", -1}, lines, 1), 9);
  EXPECT_EQ(LineOfFault({"Blends Available", "", 1}, lines, 1), 12);
  EXPECT_EQ(LineOfFault({"StepSize", "", -1}, lines, 1), 1);
}

}  // namespace
}  // namespace tav
