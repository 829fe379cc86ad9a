#include "exchange/import.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "compute/compute.h"
#include "exchange/dive_legs.h"
#include "exchange/dive_log.h"
#include "model/number_text.h"
#include "persist/template_file.h"
#include "persist/text_file.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using test::Dive;
using test::Import;
using test::kSquare;
using test::Log;
using test::Sample;
using test::Texts;

/// "30,20 Air; ascent"
std::string Legs(const DiveRecord& dive) {
  std::string text;
  for (std::int16_t i = 1; i <= dive.UserActions.GetLength(); ++i) {
    if (i > 1) text += "; ";
    if (dive.UserActions.getaction(i) == ClassUseractions::kAscent) {
      text += "ascent";
      continue;
    }
    text += FormatPlain(dive.UserActions.getDepth(i)) + "," + FormatPlain(dive.UserActions.gettime(i)) + " " +
            dive.Template.Blends.at(static_cast<std::size_t>(dive.UserActions.getmixnumber(i))).Name;
  }
  return text;
}

TEST(LogImport, ASquareDiveBecomesALegAndTheAscent) {
  const ImportedDives imported = Import(Log(Dive(kSquare)));
  ASSERT_EQ(imported.profile.dives.size(), 1U);
  EXPECT_EQ(Legs(imported.profile.dives.front()), "30,20 Air; ascent");
  EXPECT_THAT(imported.remarks,
              ElementsAre("Dive 1: the log does not tell the gas that was breathed; Air is assumed.",
                          "Dive 1: gas changes of the settings to gases that the log does not have are left out.",
                          "Dive 1: 4 samples became one leg, which strays at most 0.0 m from the log.",
                          "Gradient factors, rates and the diver's adaptation to altitude are those of the settings."));
}

TEST(LogImport, DepthsAreInTheUnitsOfTheTemplate) {
  DiveTemplate imperial;
  LoadTemplateFile(imperial, SourceFolder() / "template/Imperial.tpl");
  EXPECT_EQ(Legs(Import(Log(Dive(kSquare)), imperial).profile.dives.front()), "98.4,20 Air; ascent");
}

TEST(LogImport, GasesAreTheTemplatesWhereEqualElseAdded) {
  const std::string mixes =
      "<mix id='a'><name>my nitrox</name><o2>0.32</o2></mix><mix "
      "id='b'><name>a:b</name><o2>0.17</o2><he>0.46</he></mix>"
      "<mix id='c'><name>EAN32</name><o2>36</o2></mix><mix id='d'><name/><n2>0</n2><he>0</he></mix>";
  const auto to = [](const char* id) { return "<switchmix ref='" + std::string(id) + "'/>"; };
  const std::string samples = Sample(0, 0) + Sample(100, 30, to("b")) + Sample(600, 30, to("a")) +
                              Sample(900, 30, to("c")) + Sample(1200, 30) + Sample(1370, 5, to("d")) + Sample(2000, 5) +
                              Sample(2060, 0);
  const ImportedDives imported = Import(Log(Dive(samples), mixes));
  const DiveRecord& dive = imported.profile.dives.front();
  EXPECT_EQ(Legs(dive), "30,10 Tx17/46; 30,5 EAN32; 30,5 EAN32 2; 5,2.83 EAN32 2; 5,10.33 Oxygen; ascent");
  EXPECT_EQ(double{dive.Template.Blends.back().O2}, 36);
  // The ascent takes what the diver had: oxygen, but not the EAN50 of the settings.
  ASSERT_EQ(dive.Template.ChangeGasMixes.size(), 1U);
  EXPECT_EQ(dive.Template.ChangeGasMixes.front().Name, "Oxygen");
}

TEST(LogImport, RebreatherCylindersAndAltitudeAreTaken) {
  const std::string tanks =
      "<tankdata><link "
      "ref='air'/><tankvolume>0.003</tankvolume><tankpressurebegin>20000000</tankpressurebegin></tankdata>"
      "<tankdata><link ref='air'/><tankvolume>3</tankvolume><tankpressurebegin>200</tankpressurebegin></tankdata>";
  const std::string samples = Sample(0, 0, "<setpo2 setby='user'>70000</setpo2><divemode type='closedcircuit'/>") +
                              Sample(100, 20, "<setpo2 setby='user'>1.25</setpo2>") + Sample(1200, 20) +
                              Sample(1300, 0);
  const auto imported =
      Import(Log(Dive(samples, "<altitude>1600</altitude><surfacepressure>84000</surfacepressure>", tanks)));
  const DiveTemplate& t = imported.profile.dives.front().Template;
  EXPECT_FALSE(t.OpenCircuit);
  EXPECT_EQ(FormatPlain(t.Setpoint) + " " + FormatPlain(t.StartPressure) + " " + FormatPlain(t.StartAltitude),
            "1.25 0.84 1600");
  ASSERT_EQ(t.Cylinders.size(), 1U);
  EXPECT_EQ(t.Cylinders.front(), (Cylinder{"Air", 2, 3, 0, 200, 0}));
}

TEST(LogImport, SurfaceIntervalsAreThoseToldElseByTheClock) {
  const auto later = [](const char* clock, const std::string& interval) {
    return ReplaceAll(Dive(kSquare, interval), "T09:30:00", clock);
  };
  const ImportedDives imported = Import(
      Log(Dive(kSquare) +
          later("T12:00:00", "<surfaceintervalbeforedive><passedtime>3600</passedtime></surfaceintervalbeforedive>") +
          "<dive id='none'><informationbeforedive/></dive>" + later("T14:00:00", "") +
          later("T13:00:00", "<surfaceintervalbeforedive><infinity/></surfaceintervalbeforedive>")));
  std::vector<double> intervals;
  for (const DiveRecord& dive : imported.profile.dives) intervals.push_back(dive.SurfaceInterval);
  EXPECT_THAT(intervals, ElementsAre(0, 60, testing::DoubleNear(120 - 1400 / 60.0, 0.01), 1000000));
  EXPECT_THAT(imported.remarks, testing::Contains("Dive 3 has no depths below the surface and is left out."));
  EXPECT_EQ(Import(Log(Dive(kSquare) + Dive(kSquare)), ShippedDefaultTemplate(), 2).profile.dives.size(), 1U);
}

/// A dive as a computer logs it: moves no faster than the settings, levels, slow slopes, waves.
std::vector<LoggedDive::Sample> RandomLog(std::mt19937& random) {
  std::vector<LoggedDive::Sample> samples{{0, 0}};
  const auto to = [&](double metres, double minutes) {
    const LoggedDive::Sample from = samples.back();
    const int steps = std::max(1, static_cast<int>(minutes * 6));
    for (int i = 1; i <= steps; ++i) {
      const double wave = i == steps ? 0 : 0.4 * std::sin(i * 0.9);
      const double part = static_cast<double>(i) / steps;
      samples.push_back({from.minutes + minutes * part, from.metres + (metres - from.metres) * part + wave});
    }
  };
  double depth = 0;
  for (int i = 0; i < 6; ++i) {
    const double next = 8 + static_cast<double>(random() % 400) / 10;
    const double rate = next > depth ? 18 : 9;
    const double slower = 1 + static_cast<double>(random() % 100) / 5;
    to(next, std::fabs(next - depth) / rate * slower + 0.2);
    if (random() % 2 == 0) to(next, 2 + static_cast<double>(random() % 10));
    depth = next;
  }
  return samples;
}

TEST(LogImport, ALongSlopeBetweenTwoSamplesBecomesSteps) {
  const DiveLegs made =
      LegsOfSamples({{0, 0}, {2, 30}, {10, 30}, {40, 24}, {41, 24}}, {{0, 0}}, ShippedDefaultTemplate());
  std::vector<std::string> legs;
  for (const LogLeg& leg : made.legs) legs.push_back(FormatPlain(leg.depth) + " " + FormatPlain(leg.end));
  EXPECT_THAT(legs, ElementsAre("5.5 0.4", "11.5 0.8", "17.5 1.2", "23.5 1.6", "29.5 15", "28.5 20", "27.5 25",
                                "26.5 30", "25.5 35", "24.5 41"));
  // The deepest that a log may tell, and a day for the way.
  EXPECT_LT(LegsOfSamples({{0, 0}, {1440, 500}, {1441, 500}}, {{0, 0}}, ShippedDefaultTemplate()).deviation, 1);
}

TEST(LogImport, LegsStayWithinAMetreOfTheSamples) {
  std::mt19937 random(1);
  const DiveTemplate settings = ShippedDefaultTemplate();
  int beyond = 0;
  for (int i = 0; i < 200; ++i) {
    const auto samples = RandomLog(random);
    const DiveLegs made = LegsOfSamples(samples, {{0, 0}}, settings);
    // Where a wave adds to a move that is as fast as the settings allow, no leg can follow.
    EXPECT_LE(made.deviation, 1.5);
    if (made.deviation > 1.1) ++beyond;
    EXPECT_LT(made.legs.size() * 3, samples.size());
    // What is told of the deviation is so in the computed plan.
    DiveRecord dive{settings, 0, {}};
    for (const LogLeg& leg : made.legs) {
      dive.UserActions.NewAction();
      dive.UserActions.setuser(dive.UserActions.GetLength(), leg.depth, leg.minutes, 0);
    }
    EngineObserver silent;
    const ClassProfile rows = Compute(dive, {}, nullptr, silent).rows;
    std::int16_t row = 1;
    for (const LoggedDive::Sample& sample : samples) {
      while (row < rows.GetLength() && rows.GetRunTime(row) < sample.minutes) ++row;
      const Waypoint& from = rows.Row(static_cast<std::int16_t>(row - 1));
      const Waypoint& to = rows.Row(row);
      if (sample.minutes > to.RunTime || to.SegmentTime == 0) continue;
      const double part = (sample.minutes - from.RunTime) / to.SegmentTime;
      EXPECT_NEAR(from.Depth + (to.Depth - from.Depth) * part, sample.metres, made.deviation + 0.1);
    }
  }
  EXPECT_LE(beyond, 5);
}

TEST(UddfFaults, NameLineAndReason) {
  const std::string deep = [] {
    std::string text = "<uddf>";
    for (int i = 0; i < 500; ++i) text += "<a>";
    for (int i = 0; i < 500; ++i) text += "</a>";
    return text + "</uddf>";
  }();
  const auto samples = [](const std::string& text) { return Log(Dive(text)); };
  struct {
    std::string text;
    int line;
    const char* reason;
  } const cases[] = {
      {"", 1, "no well-formed XML"},
      {"plan", 1, "no well-formed XML"},
      {"<uddf>\n<dive>\n</uddf>", 3, "no well-formed XML"},
      {"<html/>", 1, "no UDDF"},
      {"<uddf/>", 1, "holds no dive"},
      {Log(""), 2, "holds no dive"},
      {Log(Dive("")), 2, "holds no dive"},
      {"<!DOCTYPE uddf [<!ENTITY a 'b'>]>\n<uddf>&a;</uddf>", 1, "entities"},
      {"<!DOCTYPE lolz [\n<!ENTITY a 'x'><!ENTITY b '&a;&a;'>]><uddf>&b;</uddf>", 1, "entities"},
      {deep, 1, "nested deeper than 64"},
      {samples(Sample(0, 0) + "<waypoint><depth>NaN</depth><divetime>9</divetime></waypoint>"), 8,
       "\"depth\" must be a number from -10 to 500, not \"NaN\""},
      {samples("<waypoint><depth>1e300</depth><divetime>9</divetime></waypoint>"), 7, "not \"1e300\""},
      {samples("<waypoint><depth>INF</depth><divetime>9</divetime></waypoint>"), 7, "not \"INF\""},
      {samples("<waypoint><depth>9</depth><divetime>-1</divetime></waypoint>"), 7, "\"divetime\" must be"},
      {samples("<waypoint><depth>9</depth></waypoint>"), 7, "without \"divetime\""},
      {samples(Sample(60, 9) + Sample(50, 9)), 8, "order of their time"},
      {samples(Sample(60, 9, "<switchmix ref='oxygen'/>")), 7, "gas \"oxygen\" is not defined"},
      {Log(Dive(kSquare), "<mix id='a'><o2>0.6</o2><he>0.6</he></mix>"), 3, "more than the whole"},
      {Log(Dive(kSquare), "<mix id='a'><o2>0.21</o2><n2>0.5</n2></mix>"), 3, "shares of the gas \"a\" are 71.0 %"},
      {Log(Dive(kSquare), "<mix id='a'><o2>0.2</o2></mix>\n<mix id='a'><o2>0.3</o2></mix>"), 4,
       "gases of the file have the id \"a\""},
      {Log(Dive(Sample(0, 0, "<switchmix/>")), "<mix><o2>0.2</o2></mix>"), 7, "gas \"\" is not defined"},
      {Log(Dive(kSquare, "<surfacepressure>1300</surfacepressure>")), 5,
       "\"surfacepressure\" must be a number from 30000 to 120000"},
      {Log(Dive(kSquare, "<surfacepressure>5</surfacepressure>")), 5, "not \"5\""},
      {Log(Dive(kSquare, "<altitude>7000</altitude>")), 5, "\"altitude\" must be"},
      {samples(Sample(60, 9, "<setpo2>14</setpo2>")), 7, "\"setpo2\" must be"},
      {Log(Dive(kSquare), "<mix id='a'><o2>0.2</o2><h2>0.6</h2></mix>"), 3, "argon or hydrogen"},
      {Log(Dive(kSquare), "<mix id='a'><o2>-1</o2></mix>"), 3, "\"o2\" must be"},
      {Log(Dive(kSquare), "<mix id='a'><name>a\x1B[31mb</name><o2>0.3</o2></mix>"), 3, "holds a control character"},
      {Log(Dive(kSquare), "<mix id='a'><name>&#x9B;31m</name><o2>0.3</o2></mix>"), 3, "holds a control character"},
      {samples(Sample(60, 9, "<switchmix ref='\x1B[31m'/>")), 7, "gas \"?[31m\" is not defined"},
      {Log(Dive(kSquare), "<mix id='a'><name>X</name></mix>"), 3, "the gas \"X\" does not tell its oxygen"},
      {Log(Dive(kSquare), "\n<mix id='a'><he>0.5</he></mix>"), 4, "the gas \"a\" does not tell its oxygen"},
      {Log(Dive(kSquare), "<mix id='a'><n2>0.68</n2></mix>"), 3, "the gas \"a\" does not tell its oxygen"},
      {Log(Dive(kSquare), "<mix id='a'><o2>0</o2><he>0</he></mix>"), 3, "the gas \"a\" holds no oxygen"},
      {Log(Dive(kSquare), "<mix id='a'><n2>0.5</n2><he>0.5</he></mix>"), 3, "the gas \"a\" holds no oxygen"},
      {Log(Dive(kSquare, "<surfaceintervalbeforedive><passedtime>-5</passedtime></surfaceintervalbeforedive>")), 5,
       "\"passedtime\" must be"},
      {Log("<dive><?tav-plan Start Template Block\nGF=%1B[31m, .8, .3\n?></dive>"), 6, "0 or 1, not \"?[31m\""},
      {Log("<dive><?tav-plan Start Template Block\nGF=1, .8, .3\n?></dive>"), 6,
       "the file ends before \"End Template Block\""},
  };
  for (const auto& each : cases) {
    try {
      Import(each.text);
      ADD_FAILURE() << "is taken: " << each.text;
    } catch (const FileError& error) {
      EXPECT_EQ(error.Line(), each.line) << error.what();
      EXPECT_THAT(error.what(), HasSubstr(each.reason)) << each.text.substr(0, 300);
    }
  }
  EXPECT_THROW(Import(Log(Dive(kSquare)), ShippedDefaultTemplate(), 2), FileError);
}

TEST(UddfFaults, ShowTheFirstLettersOfALongName) {
  std::string first;
  for (int i = 0; i < 30; ++i) first += "x\xC3\xA4";
  try {
    Import(Log(Dive(kSquare), "<mix id='a'><name>" + first + first + "</name></mix>"));
    ADD_FAILURE() << "is taken";
  } catch (const FileError& error) {
    EXPECT_THAT(error.what(), HasSubstr("the gas \"" + first + "...\" does not tell its oxygen"));
  }
  EXPECT_EQ(Shown(first), first);
}

TEST(CsvImport, LinesAreLegs) {
  const struct {
    const char* text;
    const char* legs;  // or the error
  } cases[] = {
      {"30,20\n", "30,20 Air; ascent"},
      {"depth,minutes,gas\r\n30,20,EAN32\r\n\r\n12.5,7.5\r\n", "30,20 EAN32; 12.5,7.5 EAN32; ascent"},
      {"30;20,5;EAN32\n5;10;Oxygen\n", "30,20.5 EAN32; 5,10 Oxygen; ascent"},
      {"Tiefe;Zeit\n1.500;10\n", "1.5,10 Air; ascent"},
      {"30\t20\tEAN36\n", "30,20 EAN36; ascent"},
      {"\"depth, m\",\"min\",gas\n\"30\",\"20\",\"Air\"\n", "30,20 Air; ascent"},
      {"\"30,5\";\"20\";\" EAN32 \"\n", "30.5,20 EAN32; ascent"},
      {"\"a;b\",c\n30,20\n", "30,20 Air; ascent"},
      {"30,20,ean32\n20,5,tx18/45\n6,5,OXYGEN\n6,5,AIR\n6,5,h85\n",
       "30,20 EAN32; 20,5 Tx18/45; 6,5 Oxygen; 6,5 Air; 6,5 H85; ascent"},
      {"30,20,\"a \"\"b\"\" c\"\n", "legs.csv:1: The plan has no gas of this name: a \"b\" c"},
      {"30,20\n\"18,5\n", "legs.csv:2: a quote is opened and not closed in its line"},
      {"30,20,\"EAN\x1B[31m\"\n", "legs.csv:1: the name of a gas holds a control character"},
      {"30,20,\xC2\x9B"
       "31m\n",
       "legs.csv:1: the name of a gas holds a control character"},
      {"30,20,EAN36\n10,10,EAN36\nascent\n", "30,20 EAN36; 10,10 EAN36; ascent"},
      {"", "legs.csv: the file holds no leg: depth, minutes and gas in each line"},
      {"depth,minutes\n", "legs.csv: the file holds no leg: depth, minutes and gas in each line"},
      {"30,20\nhello\n", "legs.csv:2: a line must be depth, minutes and gas, separated as in the lines before"},
      {"30;20\n18,5\n", "legs.csv:2: a line must be depth, minutes and gas, separated as in the lines before"},
      {"\n30,20,Nitrox\n", "legs.csv:2: "},
      {"30,20\n40\n", "legs.csv:2: "},
      {"30,20\n-3,5\n", "legs.csv:2: "},
      {"30,NaN\n", "legs.csv:1: "},
      {"1e9,10\n", "legs.csv:1: "},
  };
  for (const auto& each : cases) {
    std::string made;
    try {
      made = Legs(ImportCsv("legs.csv", each.text, ShippedDefaultTemplate(), Texts()).profile.dives.front());
      EXPECT_EQ(made, each.legs) << each.text;
    } catch (const FileError& error) {
      EXPECT_THAT(error.what(), HasSubstr(each.legs)) << each.text;
    }
  }
}

TEST(CsvImport, SaysWhatItAssumes) {
  const std::string text = "depth,minutes,gas\n30,20\n20,5,EAN32,fast,\n12,5,,slow\n6,5,EAN32,,\n";
  EXPECT_THAT(
      ImportCsv("legs.csv", text, ShippedDefaultTemplate(), Texts()).remarks,
      testing::IsSupersetOf(
          {"Lines without a gas: 2, the first is line 2. Each takes the gas of the line before, the first of "
           "all Air.",
           "Lines with more than depth, minutes and gas: 2, the first is line 3. What is more is passed over."}));
  EXPECT_THAT(ImportCsv("legs.csv", "30,20,Air\n", ShippedDefaultTemplate(), Texts()).remarks,
              ElementsAre("Gradient factors, rates and the diver's adaptation to altitude are those of the settings."));
}

}  // namespace
}  // namespace tav
