#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "exchange/dive_log.h"
#include "exchange/uddf_export.h"
#include "persist/template_file.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

using test::Dive;
using test::Import;
using test::kSquare;
using test::Log;
using test::Sample;
using testing::Contains;
using testing::Not;
using testing::StartsWith;

std::string At(const char* clock, const std::string& interval = "") {
  std::string dive = Dive(kSquare, interval);
  return dive.replace(dive.find("T09:30:00"), 9, clock);
}
std::string Passed(int seconds) {
  return "<surfaceintervalbeforedive><passedtime>" + std::to_string(seconds) +
         "</passedtime></surfaceintervalbeforedive>";
}
std::string Mode(const char* type) {
  return Sample(0, 0, "<divemode type='" + std::string(type) + "'/>") + Sample(100, 30) + Sample(1200, 30);
}

/// A log that tells what can not be so, the remark on it, and one close to it that needs none. A square dive takes 23
/// minutes.
TEST(LogImport, TellsWhatItTakesForSomethingElse) {
  const struct {
    std::string log;
    const char* remark;
    std::string plain;
  } cases[] = {
      {Log(Dive(kSquare, "<surfacepressure>1013.25</surfacepressure>")),
       "Dive 1: \"surfacepressure\" of 1013.25 can not be pascal; it is read as hPa.",
       Log(Dive(kSquare, "<surfacepressure>101325</surfacepressure>"))},
      {Log(Dive(kSquare, "<surfacepressure>84.5</surfacepressure>")),
       "Dive 1: \"surfacepressure\" of 84.5 can not be "
       "pascal; it is read as kPa.",
       Log(Dive(kSquare, "<surfacepressure>84500</surfacepressure>"))},
      {Log(Dive(Sample(0, 0, "<setpo2>1.3</setpo2><divemode type='closedcircuit'/>") + kSquare)),
       "Dive 1: \"setpo2\" of 1.3 can not be pascal; it is read as bar.",
       Log(Dive(Sample(0, 0, "<setpo2>130000</setpo2><divemode type='closedcircuit'/>") + kSquare))},
      {Log(Dive(kSquare) + At("T09:40:00")),
       "Dive 2 begins 13 min before the dive ahead of it has ended, by date and time; a surface interval of 0 min is "
       "taken.",
       Log(Dive(kSquare) + At("T09:54:00"))},
      {Log(Dive(kSquare) + At("T09:40:00", Passed(3600))),
       "Dive 2 begins 13 min before the dive ahead of it has ended, by date and time; a surface interval of 60 min is "
       "taken.",
       Log(Dive(kSquare) + At("T10:53:00", Passed(3600)))},
      {Log(Dive(kSquare) + At("T07:00:00")),
       "Dive 2 begins before the dive ahead of it in the file, by date and time; it stays in its place, with a surface "
       "interval of 0 min.",
       Log(Dive(kSquare) + At("T12:00:00"))},
      {Log(Dive(kSquare) + At("T12:00:00", Passed(3600))),
       "Dive 2: the log tells a surface interval of 60 min, date and time of the dives give 127 min; 60 min are taken.",
       Log(Dive(kSquare) + At("T10:53:30", Passed(3600)))},
      {Log(Dive(Mode("apnoe"))),
       "Dive 1: the dive mode \"apnoe\" can not be planned; the dive is planned as if its gas was breathed all the "
       "time.",
       Log(Dive(Mode("opencircuit")))},
      {Log(Dive(Mode("semiclosedcircuit"))),
       "Dive 1: the dive mode \"semiclosedcircuit\" can not be planned; the dive is planned as if its gas was breathed "
       "all the time.",
       Log(Dive(Mode("closedcircuit")))},
  };
  for (const auto& each : cases) {
    EXPECT_THAT(Import(each.log).remarks, Contains(each.remark)) << each.log;
    EXPECT_THAT(Import(each.plain).remarks, Not(Contains(each.remark))) << each.plain;
  }
  // Read as hPa it is the pressure of the sea.
  const ImportedDives sea = Import(cases[0].log);
  EXPECT_EQ(FormatPlain(sea.profile.dives.front().Template.StartPressure), "1.01325");
}

/// The weather of a day is no altitude: 30 hPa and less are passed over.
TEST(LogImport, TakesAPressureThatNoWeatherMakes) {
  for (const auto& [pascal, told] :
       {std::pair("98400", "1.01325"), {"98225", "0.98225"}, {"104300", "1.01325"}, {"104500", "1.045"}}) {
    const std::string log = Log(Dive(kSquare, "<surfacepressure>" + std::string(pascal) + "</surfacepressure>"));
    EXPECT_EQ(FormatPlain(Import(log).profile.dives.front().Template.StartPressure), told);
  }
}

TEST(LogImport, TakesGroupsAndGasesWhereverTheyStand) {
  const std::string one = Log(Dive(kSquare));
  std::string two = one;
  const std::string more = "<profiledata>" + Dive(kSquare) + "</profiledata>";
  two.insert(two.find("</uddf>"), more);
  EXPECT_EQ(Import(two).profile.dives.size(), 2U);
  // The same gas twice is one gas.
  const std::string air = "<mix id='a'><o2>0.21</o2></mix>";
  EXPECT_NO_THROW(Import(Log(Dive(kSquare), air + air)));
}

TEST(CsvImport, TellsAHeadingThatMayBeABrokenWaypoint) {
  const auto remarks = [](const std::string& text) {
    return ImportCsv("legs.csv", text, ShippedDefaultTemplate(), test::Texts()).remarks;
  };
  const auto heading = Contains(StartsWith("Lines ahead of the first leg that have digits"));
  EXPECT_THAT(remarks("depth,minutes,gas\n4O,2O,EAN32\n12,5,EAN32\n"), heading);
  EXPECT_THAT(remarks("depth,minutes,gas\n12,5,EAN32\n"), Not(heading));
}

/// As spreadsheets and log books of other systems save it.
TEST(ImportFile, ReadsUtf16) {
  const std::string utf8 =
      Log(Dive(kSquare), "<mix id='a'><name>Nitr\xC3\xB6x \xF0\x9F\x90\x9F</name><o2>0.33</o2></mix>");
  const auto utf16 = [&](bool highFirst, bool mark) {
    std::u16string units = u"" + std::u16string(mark ? 1 : 0, char16_t{0xFEFF});
    for (std::size_t i = 0; i < utf8.size(); ++i) {
      const auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(utf8[at])); };
      if (byte(i) < 0x80) {
        units += static_cast<char16_t>(byte(i));
      } else if (byte(i) < 0xE0) {
        units += static_cast<char16_t>((byte(i) & 0x1FU) << 6U | (byte(i + 1) & 0x3FU));
        i += 1;
      } else {
        units += u"\xD83D\xDC1F";  // the fish
        i += 3;
      }
    }
    std::string bytes;
    for (const char16_t unit : units) {
      const auto high = static_cast<char>(unit >> 8U);
      const auto low = static_cast<char>(unit & 0xFFU);
      bytes += highFirst ? high : low;
      bytes += highFirst ? low : high;
    }
    return bytes;
  };
  const test::ScratchFolder folder;
  for (const bool highFirst : {false, true}) {
    for (const bool mark : {false, true}) {
      const auto file = folder.Path() / "log.uddf";
      std::ofstream(file, std::ios::binary) << utf16(highFirst, mark);
      const ImportedDives imported = ImportFile(file, ShippedDefaultTemplate(), 0, test::Texts());
      EXPECT_EQ(imported.profile.dives.front().Template.Blends.back().Name, "Nitr\xC3\xB6x \xF0\x9F\x90\x9F");
    }
  }
}

/// 10,000 dives are 40 MB.
TEST(LogImport, ReadsAFileOfTheSizeThatTenThousandDivesTake) {
  const std::string padded = Log(Dive(kSquare)) + "<!--" + std::string(40 * kMiB, ' ') + "-->";
  EXPECT_EQ(Import(padded).profile.dives.size(), 1U);
}

TEST(UddfExport, ALongSeriesComesBack) {
  ProfileText profile;
  DiveRecord dive{ShippedDefaultTemplate(), 300, {}};
  dive.UserActions.NewAction();
  dive.UserActions.setuser(1, 10, 20, 0);
  dive.UserActions.NewAction();
  dive.UserActions.setdeco(2);
  constexpr std::size_t kDives = 1000;
  profile.dives.assign(kDives, dive);
  profile.dives.front().SurfaceInterval = 0;
  EngineObserver silent;
  const std::vector<ComputedPlan> plans = ComputeSeries(profile.dives, {}, silent);
  const std::string uddf = WriteUddf(PlannedSeries(profile.dives, plans), {"1", {}});
  const ImportedDives back = ImportUddf("plan.uddf", uddf, ShippedDefaultTemplate(), 0, TextSource());
  EXPECT_TRUE(back.remarks.empty());
  ASSERT_EQ(back.profile.dives.size(), kDives);
  const auto text = [](const DiveRecord& each) {
    return WriteDiveRecord(each.Template, each.SurfaceInterval, each.UserActions);
  };
  EXPECT_EQ(text(back.profile.dives.back()), text(dive));
}

}  // namespace
}  // namespace tav
