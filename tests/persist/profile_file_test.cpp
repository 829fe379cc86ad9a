#include "persist/profile_file.h"

#include <algorithm>
#include <clocale>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <locale>
#include <random>

#include "model/number_text.h"
#include "persist/template_file.h"
#include "support/english.h"
#include "support/random_records.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using testing::HasSubstr;

ProfileText Read(std::string_view text) {
  FormatFaults faults("x.tav", FormatFaults::Mode::StopAtFirstError);
  return ReadProfileText(text, faults);
}

std::string Write(const ProfileText& profile) { return WriteProfileText(profile.dives); }

std::string Shipped(const char* name) { return ReadTextFile(SourceFolder() / "dives" / name); }

/// A dive with the shipped template, 42 lines long before "Start of Profile", and these lines behind it.
std::string Dive(const std::string& lines) { return WriteTemplateBlock(ShippedDefaultTemplate()) + lines; }

std::string Actions(const std::string& lines) {
  return Dive("Start of Profile\r\nSurfTime = 0\r\n" + lines + "End of Profile\r\n");
}

int LineCount(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

TEST(ProfileFile, HasOneRecordForEachDive) {
  ClassUseractions actions;
  actions.NewAction();
  actions.setuser(1, 30, 2.5, 1);
  actions.NewAction();
  actions.setuser(2, 9, 1, 1);
  actions.setdeco(2);
  const std::string text = WriteDiveRecord(ShippedDefaultTemplate(), 90, actions);
  EXPECT_EQ(text, Dive("Start of Profile\r\nSurfTime = 90\r\n30,2.5,1,0,\r\n-1,-1,1,1,\r\nEnd of Profile\r\n"));
  const ProfileText read = Read(Actions("") + text + "\n \t\r\n\n");
  ASSERT_EQ(read.dives.size(), 2U);
  EXPECT_EQ(read.dives[0].UserActions, ClassUseractions());
  EXPECT_EQ(read.dives[1].SurfaceInterval, Single(90));
  EXPECT_EQ(read.dives[1].UserActions, actions);
  EXPECT_EQ(read.lines[1].block, LineCount(Actions("")) + 1);
  EXPECT_EQ(read.lines[1].actions[1], LineCount(Actions("") + text) - 1);
}

TEST(ProfileFile, OfAnyRecordsComesBackAsItWas) {
  std::mt19937 random(2);
  for (int n = 0; n < 500; ++n) {
    std::string written;
    for (std::size_t dives = 1 + random() % 3; dives > 0; --dives) {
      DiveTemplate diveTemplate = test::RandomTemplate(random);
      diveTemplate.CeilingOverride = false;
      const Single interval = static_cast<double>(random() % 1000000) / 7;
      written += WriteDiveRecord(diveTemplate, interval, test::RandomActions(random, diveTemplate));
    }
    ASSERT_EQ(Write(Read(written)), written);
  }
}

TEST(ProfileFile, TakesBlanksWhereTheyChangeNothing) {
  const auto read = Read(ReplaceAll(Dive(""), "Block\r\n", "Block \t\r\n") +
                         "Start of Profile\t\r\nSurfTime = 0\r\n\r\n 30 , 20.5 ,1.0,0\r\n9,1,0,0, \r\n0,-1,1,1,\r\n"
                         "End of Profile \r\n");
  const ClassUseractions& actions = read.dives.at(0).UserActions;
  ASSERT_EQ(actions.GetLength(), 3);
  EXPECT_EQ(actions.gettime(1), Single(20.5));
  EXPECT_EQ(actions.getmixnumber(1), 1);
  EXPECT_EQ(actions.getDepth(2), Single(9));
  EXPECT_EQ(actions.getaction(3), ClassUseractions::kAscent);
  FormatFaults faults("x.tav", FormatFaults::Mode::Collect);
  ReadProfileText(Actions("0,-1,1,1,\r\n"), faults);
  ASSERT_EQ(faults.List().size(), 1U);
  EXPECT_THAT(test::English().Words(faults.List()[0].text), HasSubstr("0 and -1 are not used"));
}

TEST(ProfileFile, ThatLacksSettingsIsRefusedWithTheirNames) {
  const std::string whole = Actions("30,20,1,0,\r\n-1,-1,1,1,\r\n");
  for (const char* key : {"Metric", "GF", "Open Circuit", "StartPressure", "AscendRates", "Change Gas Mixes", "RMV"}) {
    const std::size_t line = whole.find("\r\n" + std::string(key) + "=") + 2;
    std::string lacking = whole;
    lacking.erase(line, whole.find('\n', line) - line + 1);
    try {
      Read(lacking);
      ADD_FAILURE() << key;
    } catch (const FileError& error) {
      EXPECT_EQ(error.Line(), 1);
      EXPECT_EQ(test::English().Words(error.Reason()), "the settings of this dive lack \"" + std::string(key) + "\"");
    }
  }
  std::string older = whole;
  for (const char* key : {"DecoRMV", "AutoDecoGas", "CeilingOverride", "Templatename"}) {
    const std::size_t line = older.find("\r\n" + std::string(key) + "=") + 2;
    older.erase(line, older.find('\n', line) - line + 1);
  }
  EXPECT_EQ(Read(older).dives.at(0).Template.DecoRMV, Single(20));
}

struct FaultCase {
  std::string text;
  int line;
  const char* reason;
};

TEST(ProfileFile, IsRefusedWithTheLineAndTheReason) {
  std::string many;
  for (int i = 0; i < 40000; ++i) many += "10,1,0,0,\n";
  const int body = LineCount(Dive("")) + 1;
  const FaultCase cases[] = {
      {"", 1, "a dive begins with"},
      {"\n" + Actions(""), 1, "a dive begins with"},
      {Actions("") + "rest", body + 3, "a dive begins with"},
      {Dive(""), body - 1, "\"Start of Profile\" is missing"},
      {Dive("End of Profile\n"), body, "\"Start of Profile\" is missing"},
      {Dive("Start of Profile\n"), body, "\"SurfTime = \" and a number"},
      {Dive("Start of Profile\n30,20,1,0,\n"), body + 1, "\"SurfTime = \" and a number"},
      {Dive("Start of Profile\nSurfaceTime = 5\n"), body + 1, "\"SurfTime = \" and a number"},
      {Dive("Start of Profile\nSurfTime\n"), body + 1, "\"SurfTime = \" and a number"},
      {Dive("Start of Profile\nSurfTime = soon\n"), body + 1, "not \" soon\""},
      {Dive("Start of Profile\nSurfTime = -1\n"), body + 1, "from 0 to 1000000"},
      {Dive("Start of Profile\nSurfTime = 1e7\n"), body + 1, "from 0 to 1000000"},
      {Dive("Start of Profile\nSurfTime = 0\n30,20,1,0,\n"), body + 2, "before \"End of Profile\""},
      {Actions("30,2x,1,0,\n"), body + 2, "the time of an action must be a number, not \"2x\""},
      {Actions("30,20,1.6e9,0,\n"), body + 2, "the gas number of an action must be a whole number"},
      {Actions("30,20,1.5,0,\n"), body + 2, "the gas number of an action must be a whole number"},
      {Actions("30,20,1,2,\n"), body + 2, "the kind of an action must be 0 (leg) or 1 (ascent), not \"2\""},
      {Actions("30,20,1,0.4,\n"), body + 2, "the kind of an action must be 0"},
      {Actions("-1,-1,99,1,\n"), body + 2, "a leg on gas number 99"},
      {Actions("10,5,0,0,\n25;20;0;0;\n"), body + 3, "an action is depth, time"},
      {Actions("25,20\n"), body + 2, "an action is depth, time"},
      {Actions("40,5,3,0,0,\n"), body + 2, "an action is depth, time"},
      {Actions("12,3,0,0,more\n"), body + 2, "an action is depth, time"},
      {Actions("# a note\n"), body + 2, "an action is depth, time"},
      {Actions("1e400,20,1,0,\n"), body + 2, "the depth of an action must be a number"},
      {Actions("10,1,0,0,\n30,20,99,0,\n"), body + 3, "a leg on gas number 99"},
      {Actions("-5,20,0,0,\n"), body + 2, "a leg to depth -5"},
      {Actions("5,1e38,0,0,\n"), body + 2, "a leg of 1E+38 minutes"},
      {Actions(many), body + 2 + 32767, "at most 32,767 actions"}};
  for (const FaultCase& fault : cases) {
    SCOPED_TRACE(fault.text.substr(0, 2000));
    try {
      Read(fault.text);
      ADD_FAILURE() << "was read";
    } catch (const FileError& error) {
      EXPECT_EQ(error.Line(), fault.line);
      EXPECT_THAT(test::English().Words(error.Reason()), HasSubstr(fault.reason));
    }
  }
}

TEST(ProfileFile, CutAnywhereIsRefusedUnlessADiveIsWhole) {
  const std::string text = Shipped("lake-series.tav");
  int opened = 0;
  for (std::size_t size = 0; size < text.size(); ++size) {
    std::string_view cut(text.data(), size);
    std::string_view last = cut;
    while (last.ends_with('\r') || last.ends_with('\n')) last.remove_suffix(1);
    if (last.ends_with("\r\nEnd of Profile")) {
      ++opened;
      ASSERT_FALSE(Read(cut).dives.empty()) << size;
    } else {
      ASSERT_THROW(Read(cut), FileError) << size;
    }
  }
  EXPECT_GE(opened, 4);
}

TEST(ProfileFile, WithFlippedBytesGivesDivesOrAnError) {
  const std::string text = Shipped("lake-series.tav");
  std::mt19937 random(3);
  int opened = 0;
  for (int n = 0; n < 3000; ++n) {
    std::string broken = text;
    for (std::size_t i = 1 + random() % 4; i > 0; --i) broken[random() % broken.size()] = static_cast<char>(random());
    try {
      const std::string again = Write(Read(ToUtf8(broken)));
      ASSERT_EQ(Write(Read(again)), again) << broken;
      ++opened;
    } catch (const FileError& error) {
      ASSERT_GE(error.Line(), 1) << broken;
      ASSERT_LE(error.Line(), LineCount(broken) + 1) << broken;
    }
  }
  EXPECT_GT(opened, 100);
}

TEST(ProfileFile, OfAMillionLinesIsReadOrRefused) {
  std::string blank;
  for (int i = 0; i < 1000000; ++i) blank += " \n";
  EXPECT_EQ(Read(Actions(blank + "10,5,0,0,\n")).dives[0].UserActions.GetLength(), 1);
  FormatFaults faults("x.tav", FormatFaults::Mode::Collect);
  ReadProfileText(Actions(ReplaceAll(blank.substr(0, 60000), " ", "a note")), faults);
  EXPECT_EQ(faults.List().size(), 1000U);

  std::string list = "Start Template Block\n";
  for (int i = 1; i < 32768; ++i) list += "Blends Available=gas " + std::to_string(i) + ": 50/ 50/ 0/\n";
  list += "Change Gas Mixes=";
  for (int i = 1; i < 32768; ++i) list += "6:gas " + std::to_string(i) + ",";
  FormatFaults none("x.tpl", FormatFaults::Mode::StopAtFirstError);
  DiveTemplate diveTemplate = ShippedDefaultTemplate();
  ReadTemplateText(diveTemplate, list + "\nEnd Template Block\n", none);
  EXPECT_EQ(diveTemplate.ChangeGasMixes.back().O2, Single(50));
}

struct DecimalComma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(ProfileFile, IsTheSameUnderADecimalComma) {
  const ProfileText profile = Read(Actions("30.5,12345.5,1,0,\r\n"));
  const std::string written = Write(profile);
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
    if (std::setlocale(LC_ALL, name) != nullptr) break;
  }
  const std::string under = Write(Read(written));
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
  EXPECT_EQ(under, written);
  EXPECT_THAT(under, HasSubstr("30.5,12345.5,1,0,"));
}

}  // namespace
}  // namespace tav
