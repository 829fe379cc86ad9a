#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_platform.h"
#include "mixer/partial_mix_form.h"
#include "pages/page_player.h"
#include "persist/template_file.h"
#include "persist/text_file.h"
#include "start/language_table.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const LanguageTable& English() {
  static const LanguageTable table = LanguageTable::Read(SourceFolder() / "lang/TAV_uk.dll");
  return table;
}

DiveTemplate InUnits(bool metric) {
  DiveTemplate t = ShippedDefaultTemplate();
  t.Metric = metric;
  return t;
}

/// A mixer on settings that outlive it.
class Mixer : public testing::Test {
 protected:
  Mixer() { platform.temporaryFolder = folder.Path(); }

  frmPartialMix& Open(bool metric = true) {
    form.reset();
    writer = std::make_unique<PrintPreview>(platform, English());
    form = std::make_unique<frmPartialMix>(platform, *writer, InUnits(metric));
    form->Load();
    return *form;
  }
  [[nodiscard]] std::string Setting(const std::string& name) const {
    const auto found = platform.settings.find({"Mix", name});
    return found == platform.settings.end() ? "(none)" : found->second;
  }
  /// The column of a list in the window, without its head.
  [[nodiscard]] std::vector<std::string> Column(int column) const {
    std::vector<std::string> texts;
    for (int row = 1; row < form->fgFill.Rows(); ++row) texts.push_back(form->fgFill.Text(row, column));
    return texts;
  }

  test::ScratchFolder folder;
  HeadlessPlatform platform;
  std::unique_ptr<PrintPreview> writer;
  std::unique_ptr<frmPartialMix> form;
};

TEST_F(Mixer, OpensOnAFillThatMakesSense) {
  for (const bool metric : {true, false}) {
    frmPartialMix& f = Open(metric);
    EXPECT_TRUE(f.Check1.Value);
    EXPECT_EQ(f.CurFill.Text.Get(), metric ? "1" : "14.7");
    EXPECT_EQ(f.CurO2.Text.Get() + " " + f.CurHe.Text.Get() + " " + f.CurN2.Text.Get(), "21 0 79");
    EXPECT_EQ(f.DesFill.Text.Get(), metric ? "200" : "2940");
    EXPECT_EQ(f.DesO2.Text.Get() + " " + f.DesHe.Text.Get() + " " + f.DesN2.Text.Get(), "32 0 68");
    EXPECT_EQ(f.tbTopO2.Text.Get() + " " + f.tbTopHe.Text.Get() + " " + f.tbCelsius.Text.Get(), "21 0 20");
    EXPECT_EQ(f.Label20.Caption.Get(), metric ? "bar" : "psi");
    EXPECT_EQ(f.tbRated.Visible.Get(), !metric);
    EXPECT_EQ(f.Combo1.Text(), "EAN32");
    EXPECT_THAT(Column(1), metric ? ElementsAre("1", "28", "200") : ElementsAre("14.7", "410", "2940"));
    EXPECT_FALSE(f.lbHindrance.Visible || f.lbMisses.Visible || f.lbAboutAirTop.Visible || f.lbAboutReal.Visible);
    EXPECT_TRUE(f.Command1.Enabled);
    EXPECT_THAT(platform.settings, IsEmpty()) << "opening stores nothing";
  }
}

TEST_F(Mixer, ShowsBothResultsAndTheListToFillBy) {
  frmPartialMix& f = Open();
  f.DesO2.Type("18");
  f.DesHe.Type("45");
  EXPECT_EQ(f.DesN2.Text.Get(), "37");
  EXPECT_EQ(f.AirTopO2.Caption.Get() + " " + f.AirTopHe.Caption.Get() + " " + f.AirTopAir.Caption.Get(),
            "16.3 90.0 92.7");
  EXPECT_EQ(f.IdealTopO2.Caption.Get() + " " + f.IdealTopHe.Caption.Get() + " " + f.IdealTopN2.Caption.Get(),
            "15.2 80.5 102.3");
  EXPECT_THAT(Column(0), ElementsAre("Start", "Helium", "Oxygen", "Air"));
  EXPECT_THAT(Column(1), ElementsAre("1", "85", "102", "200"));
  EXPECT_THAT(Column(2), ElementsAre("1", "91", "107", "200"));
  EXPECT_THAT(f.lbOutcome.Caption.Get(), HasSubstr("gives 18.1 % O2, 44.8 % He; MOD 67 m"));
  EXPECT_THAT(f.lbIfIdeal.Caption.Get(), HasSubstr("you would get 17.0 % O2, 48.0 % He"));
  EXPECT_EQ(f.lbHindrance.Caption.Get() + f.lbMisses.Caption.Get(), "");
  EXPECT_TRUE(f.Command1.Enabled);

  f.tbCylinder.Type("12");
  EXPECT_EQ(f.fgFill.Text(0, 3), "Amount (l)");
  const double helium = ParseLenient(f.fgFill.Text(2, 3));
  EXPECT_GT(helium, 12 * 75);
  EXPECT_LT(helium, 12 * 86);
  f.tbCylinder.Type("twelve");
  EXPECT_EQ(f.fgFill.Columns(), 3);
  EXPECT_EQ(f.tbCylinder.ForeColor.Get(), kRed);
}

TEST_F(Mixer, FillsWithAGasFromABankIntoAWarmCylinder) {
  frmPartialMix& f = Open();
  f.CurFill.Type("70");
  f.CurO2.Type("32");
  f.DesFill.Type("210");
  f.tbTopO2.Type("32");
  EXPECT_THAT(Column(0), ElementsAre("Start", "EAN32"));
  EXPECT_EQ(f.lbAboutAirTop.Caption.Get(), "Worked out with air on top.");
  f.tbFilledAt.Type("45");
  EXPECT_EQ(f.fgFill.Text(0, 2), "At 45 °C (bar)");
  EXPECT_EQ(f.lbWarm.Caption.Get(), "Filled warm, at 45 °C: fill to 236 bar; it settles to 210 bar at 20 °C.");
  f.tbCelsius.Type("10");
  EXPECT_THAT(f.lbPressures.Caption.Get(), HasSubstr("are for 10 °C"));
  const struct {
    TextBox frmPartialMix::*box;
    const char* typed;
    const char* words;
  } cases[] = {{&frmPartialMix::tbFilledAt, "hot", "Filled warm, at must be from -20 to 80."},
               {&frmPartialMix::tbCelsius, "293", "Gauge read at must be from -20 to 80."},
               {&frmPartialMix::tbCelsius, "", "Gauge read at is missing."},
               {&frmPartialMix::tbTopHe, "-3", "Gas on top, He must be from 0 to 100."},
               {&frmPartialMix::tbTopO2, "100", "100/0: the gas on top must hold nitrogen"}};
  for (const auto& [box, typed, words] : cases) {
    const std::string before = (f.*box).Text;
    (f.*box).Type(typed);
    EXPECT_THAT(f.lbHindrance.Caption.Get(), StartsWith(words));
    EXPECT_FALSE(f.Command1.Enabled);
    EXPECT_EQ((f.*box).ForeColor.Get(), kRed);
    EXPECT_EQ((f.*box).ToolTipText.Get(), f.lbHindrance.Caption.Get());
    (f.*box).Type(before);
    EXPECT_EQ((f.*box).ForeColor.Get(), -1);
    EXPECT_EQ(f.lbHindrance.Caption.Get(), "");
  }
  f.tbTopO2.Type("0");
  EXPECT_THAT(f.lbHindrance.Caption.Get(), testing::Not(HasSubstr("must be from")));
  EXPECT_EQ(Open().tbTopO2.Text.Get(), "21") << "the next fill is with air again";
}

TEST_F(Mixer, TellsWhatCameOutOfAFillAndWhatMendsIt) {
  frmPartialMix& f = Open();
  f.DesFill.Type("220");
  f.DesO2.Type("21");
  f.DesHe.Type("35");
  EXPECT_FALSE(f.cbMend.Enabled || f.lbStepsGive.Visible);
  f.tbSteps.Type("he@67 o2@60");
  EXPECT_EQ(f.lbStepsGive.Caption.Get(), "\"o2@60\": the pressure must be above 67 and at most 1000");
  EXPECT_EQ(f.lbStepsGive.ForeColor.Get(), kRed);
  EXPECT_FALSE(f.cbMend.Enabled);
  f.tbSteps.Type("he@66.9 o2@86.4 air@220");
  EXPECT_THAT(f.lbStepsGive.Caption.Get(), StartsWith("These steps give 21.3 % O2, 32.2 % He; MOD 55 m"));
  f.cbMend.Press();
  EXPECT_EQ(f.CurFill.Text.Get() + " " + f.CurO2.Text.Get() + " " + f.CurHe.Text.Get(), "220 21.3 32.2");
  EXPECT_FALSE(f.Check1.Value);
  EXPECT_EQ(f.tbSteps.Text.Get(), "");
  EXPECT_THAT(f.lbHindrance.Caption.Get(), HasSubstr("Drain to 205 bar first, then the fill works."));
  EXPECT_THAT(Column(0), ElementsAre("Drain to", "Helium", "Oxygen", "Air"));
  EXPECT_THAT(f.lbOutcome.Caption.Get(), StartsWith("This fill gives 21.0 % O2, 35.2 % He"));
}

TEST_F(Mixer, TheEmptyCylinderAndWhatIsTypedDoNotContradictEachOther) {
  for (TextBox frmPartialMix::*box : {&frmPartialMix::CurFill, &frmPartialMix::CurO2, &frmPartialMix::CurHe}) {
    frmPartialMix& f = Open();
    f.Check1.Set(true);
    (f.*box).Type("50");
    EXPECT_FALSE(f.Check1.Value);
    EXPECT_EQ((f.*box).Text.Get(), "50");
    EXPECT_EQ(Setting("AirCylinder"), "0");
    f.Check1.Set(true);
    EXPECT_EQ(f.CurFill.Text.Get() + " " + f.CurO2.Text.Get() + " " + f.CurHe.Text.Get(), "1 21 0");
  }
}

// 80 cubic feet at 3000 psi are 11.1 litres of water.
TEST_F(Mixer, TellsAmountsInCubicFeetOfARatedCylinder) {
  frmPartialMix& f = Open(false);
  f.DesO2.Type("32");
  f.DesHe.Type("0");
  f.DesFill.Type("3000");
  f.tbCylinder.Type("80");
  EXPECT_THAT(Column(0), ElementsAre("Start", "Oxygen", "Air"));
  const double oxygen = ParseLenient(f.fgFill.Text(2, 3));
  f.tbRated.Type("1500");
  EXPECT_NEAR(ParseLenient(f.fgFill.Text(2, 3)), 2 * oxygen, 0.11);
  EXPECT_NEAR(oxygen, 80.0 * (410 - 14.7) / 3000, 1.0);
  f.tbRated.Type("");
  EXPECT_EQ(f.fgFill.Columns(), 3);
}

// The guide shows what the program tells.
TEST_F(Mixer, FillsTheExamplesOfTheGuide) {
  const std::string guide = ReadTextFile(SourceFolder() / "lang/TAV_uk.hlp");
  const struct {
    const char* chapter;
    FillRequest request;
    std::optional<CylinderSize> cylinder;
  } examples[] = {{"mixer-trimix", {MixOf(21, 0), 1, MixOf(18, 45), 200}, CylinderSize{12, 0}},
                  {"mixer-topping-up", {MixOf(18, 45), 70, MixOf(21, 35), 220}, {}}};
  const FillWords words(English(), {}, true);
  for (const auto& each : examples) {
    const std::size_t from = guide.find(std::string("name=\"") + each.chapter);
    ASSERT_NE(from, std::string::npos) << each.chapter;
    const std::string chapter = guide.substr(from, guide.find("<h2>", from) - from);
    const FillAdvice advice(each.request, 1);
    const auto rows = words.Rows(advice, each.cylinder);
    for (std::size_t i = 1; i < rows.size(); ++i) {
      std::string row = "<tr><td>" + rows[i][0] + "</td>";
      for (std::size_t j = 1; j < rows[i].size(); ++j) row += "<td align=\"right\">" + rows[i][j] + "</td>";
      EXPECT_THAT(chapter, HasSubstr(row + "</tr>"));
    }
    EXPECT_THAT(chapter, HasSubstr("gives " + FormatFixed(advice.list.comesOut.O2, 1) + " % oxygen"));
  }
}

struct FieldCase {
  TextBox frmPartialMix::*box;
  const char* typed;
  const char* shown;
  bool computed;
  const char* words;
};

TEST_F(Mixer, ComputesFromNumbersAloneAndSaysWhichFieldItLacks) {
  const FieldCase cases[] = {
      {&frmPartialMix::CurFill, "", "", false, "Current Fill is missing."},
      {&frmPartialMix::CurFill, " ", " ", false, "Current Fill is missing."},
      {&frmPartialMix::CurO2, "", "", false, "Current O2 is missing."},
      {&frmPartialMix::CurHe, "", "", false, "Current He is missing."},
      {&frmPartialMix::DesFill, "2oo", "2oo", false, "Desired Fill is not a number."},
      {&frmPartialMix::DesO2, "", "", false, "Desired O2 is missing."},
      {&frmPartialMix::DesHe, "-", "-", false, "Desired He is not a number."},
      {&frmPartialMix::DesFill, "3000", "3000", false, "Desired Fill must be above 0 and at most 1000 bar."},
      {&frmPartialMix::DesFill, "-5", "0", false, "Desired Fill must be above 0 and at most 1000 bar."},
      {&frmPartialMix::CurFill, "1e30", "1e30", false, "Current Fill must be at most 1000 bar."},
      {&frmPartialMix::CurFill, "-5", "0", true, ""},
      {&frmPartialMix::DesO2, "100.1", "0", true, "Too much: Oxygen. Draining does not help: "},
      {&frmPartialMix::DesHe, "-1", "0", true, ""},
      {&frmPartialMix::DesHe, "1e999", "0", true, ""},
      {&frmPartialMix::DesO2, "32.", "32.", true, ""}};
  for (const FieldCase& each : cases) {
    SCOPED_TRACE(std::string(each.typed) + " " + each.words);
    platform.settings.clear();
    frmPartialMix& f = Open();
    f.DesO2.Type("32");
    f.DesHe.Type("0");
    ASSERT_EQ(f.AirTopO2.Caption.Get(), "27.8");
    const auto before = platform.settings;
    TextBox& box = f.*each.box;
    box.Type(each.typed);
    EXPECT_EQ(box.Text.Get(), each.shown);
    EXPECT_THAT(f.lbHindrance.Caption.Get(), StartsWith(each.words));
    EXPECT_EQ(f.lbHindrance.Caption.Get().empty(), *each.words == '\0');
    EXPECT_EQ(f.AirTopAir.Caption.Get() != "", each.computed);
    EXPECT_EQ(f.IdealTopO2.Caption.Get() != "", each.computed);
    EXPECT_EQ(f.fgFill.Rows() > 1, each.computed && *each.words == '\0');
    EXPECT_EQ(f.Command1.Enabled.Get(), each.computed && *each.words == '\0');
    if (TrimBlanks(each.typed).empty()) {
      EXPECT_EQ(platform.settings, before) << "a blank is no change to store";
      EXPECT_NE(f.CurN2.Text.Get() + f.DesN2.Text.Get(), "100") << "and no 0 %";
    }
    EXPECT_THAT(platform.boxes, IsEmpty());
  }
}

TEST_F(Mixer, SaysThatMoreThanAHundredPercentCannotBeWithoutABox) {
  frmPartialMix& f = Open();
  f.CurHe.Type("80");
  EXPECT_EQ(f.CurN2.Text.Get(), "-1");
  EXPECT_EQ(f.lbHindrance.Caption.Get(), "Current Cylinder data: Oxygen and helium together are more than 100 %.");
  f.CurHe.Type("79");
  EXPECT_EQ(f.CurN2.Text.Get(), "0");
  f.DesO2.Type("60");
  f.DesHe.Type("50");
  EXPECT_EQ(f.lbHindrance.Caption.Get(), "Desired Cylinder data: Oxygen and helium together are more than 100 %.");
  EXPECT_EQ(f.lbHindrance.ForeColor.Get(), kRed);
  EXPECT_FALSE(f.Command1.Enabled);
  EXPECT_THAT(platform.boxes, IsEmpty());
}

TEST_F(Mixer, PresetsABlendWithoutPassingThroughAnImpossibleOne) {
  frmPartialMix& f = Open();
  const auto choose = [&](const std::string& name) {
    const auto& names = f.Combo1.Items.Get();
    f.Combo1.Select(static_cast<int>(std::find(names.begin(), names.end(), name) - names.begin()));
    return f.DesO2.Text.Get() + "/" + f.DesHe.Text.Get() + "/" + f.DesN2.Text.Get();
  };
  EXPECT_EQ(choose("Oxygen"), "100/0/0");
  EXPECT_EQ(choose("Tx10/70"), "10/70/20");
  EXPECT_EQ(choose("Air"), "21/0/79");
  EXPECT_EQ(f.AirTopAir.Caption.Get(), "199.0");
  EXPECT_EQ(f.Combo1.Text(), "Air");
  f.setmix(50, 12.5);
  EXPECT_EQ(f.Combo1.Text(), "") << "no gas of the list";
  EXPECT_EQ(f.DesN2.Text.Get(), "37.5");
  EXPECT_EQ(Setting("sDesHe"), "12.5");
  EXPECT_THAT(platform.boxes, IsEmpty());
}

TEST_F(Mixer, KeepsItsFieldsOverARestart) {
  frmPartialMix& f = Open();
  f.Check1.Set(false);
  EXPECT_EQ(f.CurFill.Text.Get() + f.CurO2.Text.Get() + f.CurHe.Text.Get() + f.CurN2.Text.Get(), "")
      << "nothing was stored for a part-full cylinder";
  f.CurFill.Type("60");
  f.CurO2.Type("32");
  f.CurHe.Type("0");
  f.DesFill.Type("220");
  f.DesO2.Type("36");
  f.DesHe.Type("0");
  f.tbCylinder.Type("15");
  EXPECT_EQ(Setting("AirCylinder") + " " + Setting("sCurFill") + " " + Setting("sCurO2") + " " + Setting("sCurN2") +
                " " + Setting("sDesFill") + " " + Setting("sDesO2") + " " + Setting("sDesN2") + " " + Setting("sDesHe"),
            "0 60 32 68 220 36 64 0");

  frmPartialMix& again = Open();
  EXPECT_FALSE(again.Check1.Value);
  EXPECT_EQ(again.CurFill.Text.Get() + " " + again.CurO2.Text.Get(), "1 36") << "the wanted mix, as it was left";
  EXPECT_EQ(again.DesFill.Text.Get() + " " + again.DesO2.Text.Get() + " " + again.DesN2.Text.Get(), "200 36 64");
  EXPECT_EQ(again.tbCylinder.Text.Get(), "15");
  again.Check1.Set(true);
  EXPECT_EQ(again.CurO2.Text.Get(), "21");
  EXPECT_EQ(Setting("AirCylinder"), "1");
  again.Command2.Press();
  EXPECT_FALSE(again.IsLoaded());
}

TEST_F(Mixer, TakesNumbersAsTheLocaleWritesThem) {
  platform.separators = {",", "."};
  frmPartialMix& f = Open(false);
  EXPECT_EQ(f.CurFill.Text.Get(), "14,7");
  f.DesO2.Type("32,5");
  f.DesHe.Type("10.5");
  EXPECT_EQ(f.DesN2.Text.Get(), "57");
  EXPECT_THAT(f.AirTopO2.Caption.Get(), HasSubstr(","));
  EXPECT_THAT(f.lbOutcome.Caption.Get(), HasSubstr("10,"));
  EXPECT_EQ(Setting("sDesO2"), "32.5") << "read by any locale";
  platform.separators = {".", ","};
  EXPECT_EQ(Open().DesO2.Text.Get(), "32.5");
  platform.separators = {",", "."};
  EXPECT_EQ(Open().DesO2.Text.Get(), "32,5");
}

TEST_F(Mixer, SaysInWordsWhatCannotBeReachedAndPrintsNoSheetOfIt) {
  frmPartialMix& f = Open();
  f.Check1.Set(false);
  f.CurFill.Type("150");
  f.CurO2.Type("50");
  f.CurHe.Type("0");
  f.DesO2.Type("32");
  f.DesHe.Type("0");
  EXPECT_EQ(f.Command1.Caption.Get(), "Not possible");
  EXPECT_FALSE(f.Command1.Enabled);
  EXPECT_EQ(f.lbHindrance.Caption.Get(),
            "Too much: Oxygen. Drain to 72 bar first, then the fill works. Nearest without "
            "draining: 43.3 % O2, 0.0 % He.");
  EXPECT_EQ(f.lbHindrance.ForeColor.Get(), kRed);
  EXPECT_EQ(f.AirTopO2.Caption.Get(), "-27.2");
  EXPECT_THAT(f.lbAboutAirTop.Caption.Get(), HasSubstr("too much: Oxygen."));
  EXPECT_EQ(f.lbAboutReal.Caption.Get(), "You can't fill to a pressure below 0: fill by the list.");
  f.CurFill.Type("72");
  EXPECT_EQ(f.lbHindrance.Caption.Get() + f.lbAboutAirTop.Caption.Get(), "");
  EXPECT_EQ(f.Command1.Caption.Get(), "Print");
  f.CurFill.Type("1");
  f.DesFill.Type("10");
  f.DesO2.Type("25");
  f.DesHe.Type("25");
  EXPECT_THAT(f.lbMisses.Caption.Get(), AllOf(HasSubstr("Oxygen is off by -"), HasSubstr("Helium is off by +")));
}

// Oxygen for a stage cylinder is the simplest of fills, whatever the arithmetic with air on top says to it.
TEST_F(Mixer, PrintsTheSheetOfAFillThatTheListCanDo) {
  frmPartialMix& f = Open();
  f.DesO2.Type("100");
  EXPECT_EQ(f.AirTopO2.Caption.Get(), "");
  EXPECT_THAT(f.lbAboutAirTop.Caption.Get(), HasSubstr("too much: Nitrogen."));
  EXPECT_THAT(f.lbOutcome.Caption.Get(), StartsWith("This fill gives 99.6 % O2"));
  EXPECT_TRUE(f.Command1.Enabled);
}

TEST_F(Mixer, PrintsASheetWithTheListAndALineForTheAnalysis) {
  frmPartialMix& f = Open(false);
  f.DesO2.Type("32");
  f.DesHe.Type("0");
  f.Command1.Press();
  ASSERT_EQ(writer->Pages().Pages(), 1);
  RecordingSurface surface(16839.9, 11907);
  PagePlayer(writer->Pages()).tempshow(1, surface, 1);
  std::vector<std::string> texts;
  const auto at = [&](double x, double y) {
    for (const auto& stroke : surface.Of(RecordingSurface::Kind::PageText)) {
      if (std::abs(stroke.x0 - x * 567) < 1 && std::abs(stroke.y0 - y * 567) < 1) return stroke.text;
    }
    return std::string("nothing");
  };
  for (const auto& stroke : surface.Of(RecordingSurface::Kind::PageText)) texts.push_back(stroke.text);
  EXPECT_EQ(at(2.0, 5.0) + ", " + at(4.5, 6.0) + ", " + at(4.5, 6.5), "Current Cylinder data, 14.7 psi, 21.0%");
  EXPECT_EQ(at(17.5, 6.0) + ", " + at(17.5, 6.5) + ", " + at(17.5, 7.5), "2940.0 psi, 32.0%, 68.0%");
  EXPECT_EQ(at(2.0, 12.0) + ", " + at(4.5, 13.5) + ", " + at(4.5, 14.0) + ", " + at(4.5, 14.5),
            "Gas to add (ideal), 409.4 psi, 0.0 psi, 2515.9 psi");
  EXPECT_THAT(texts, Contains("410"));
  std::string all;
  for (const std::string& text : texts) all += text + " ";
  EXPECT_THAT(all, HasSubstr("20 °C (68 °F)"));
  for (const char* told : {"Fill Sheet", "Fill by the gauge", "Oxygen", "Analysed:", "O2 %", "He %", "Date", "Name"}) {
    EXPECT_THAT(texts, Contains(told));
  }
  EXPECT_THAT(texts, Contains(HasSubstr("This fill gives 32.")));
}

}  // namespace
}  // namespace tav
