#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <regex>

#include "app/error_report.h"
#include "app/languages_form.h"
#include "model/text_id.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "start/language_table.h"
#include "support/program_fixture.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = SourceFolder();

void WriteFile(const fs::path& file, const std::string& text) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << text;
}

TEST(LanguageTable, ReadsEscapesAndKeepsBlanks) {
  const test::ScratchFolder folder;
  const fs::path file = folder.Path() / "TAV_xx.dll";
  WriteFile(file, "# comment\n\n1\t a\\tb\\r\\nc\\\\n \n999\tTest\n");
  const LanguageTable table = LanguageTable::Read(file);
  EXPECT_EQ(table.GetResString(1), " a\tb\r\nc\\n ");
  EXPECT_EQ(table.GetResString(1234), "*StringID 1234*");
  WriteFile(file, "1\tgood\nno number\n");
  try {
    LanguageTable::Read(file);
    FAIL() << "a line without a number was accepted";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Line(), 2);
  }
}

TEST(LoadLanguage, FallsBackOnEnglishAndEndsWithoutIt) {
  const test::ScratchFolder folder;
  WriteFile(folder.Path() / "lang/TAV_uk.dll", "1\tone\n");
  WriteFile(folder.Path() / "lang/TAV_uk.hlp", "help");
  WriteFile(folder.Path() / "lang/TAV_de.hlp", "Hilfe");
  struct {
    std::string name;
    bool loaded;
    std::size_t boxes;
    std::string help;
  } const cases[] = {{"TAV_uk.dll", true, 0, "TAV_uk.hlp"},
                     {"TAV_de.dll", true, 1, "TAV_de.hlp"},
                     {"TAV_fr.dll", true, 1, "TAV_uk.hlp"},
                     {"x", true, 1, "TAV_uk.hlp"}};
  for (const auto& each : cases) {
    HeadlessPlatform platform;
    LanguageTable table;
    const Language language = LoadLanguage(folder.Path(), each.name, table, platform.Services().boxes);
    EXPECT_EQ(language.loaded, each.loaded) << each.name;
    EXPECT_EQ(platform.boxes.size(), each.boxes) << each.name;
    EXPECT_EQ(language.helpFile.filename(), each.help) << each.name;
    EXPECT_EQ(table.GetResString(1), "one");
  }
  HeadlessPlatform platform;
  LanguageTable table;
  EXPECT_FALSE(LoadLanguage(folder.Path() / "lang", "TAV_uk.dll", table, platform.Services().boxes).loaded);
  EXPECT_EQ(platform.boxes.size(), 2U);
}

TEST(FirstStart, SpeaksTheLanguageOfTheDesktopUntilOneIsChosen) {
  struct {
    std::string locale;
    std::string stored;
    std::string loaded;
  } const cases[] = {{"de_AT", "", "TAV_de.dll"},
                     {"nl-BE", "", "TAV_nl.dll"},
                     {"en_GB", "", "TAV_uk.dll"},
                     {"xx_XX", "", "TAV_uk.dll"},
                     {"C", "", "TAV_uk.dll"},
                     {"", "", "TAV_uk.dll"},
                     {"../x", "", "TAV_uk.dll"},
                     {"de_DE", "TAV_fr.dll", "TAV_fr.dll"},
                     {"de_DE", "TAV_uk.dll", "TAV_uk.dll"}};
  for (const auto& each : cases) {
    test::HeadlessProgram p;
    p.platform.locale = each.locale;
    if (!each.stored.empty()) p.platform.settings[{"", "Language"}] = each.stored;
    ASSERT_TRUE(p.Start());
    const LanguageTable wanted = LanguageTable::Read(kSource / "lang" / each.loaded);
    EXPECT_EQ(p.program.Texts().GetResString(Text::LanguageName), wanted.GetResString(Text::LanguageName))
        << each.locale << " " << each.stored;
    EXPECT_TRUE(p.platform.boxes.empty());
    frmLanguages dialog(p.platform, p.program.Texts(), kSource / "lang");
    dialog.Load();
    const auto chosen = static_cast<std::size_t>(dialog.Option1.SelectedItem.Get());
    EXPECT_EQ(dialog.Option1.Items.Get().at(chosen), wanted.GetResString(Text::LanguageName));
  }
}

/// Two words in quotes are a text that somebody reads, and belong into the tables.
TEST(English, StandsInTheTablesAndNotInTheCode) {
  const std::map<std::string, std::string> allowed = {
      {" not found using default language", "the table of the user is missing, and with it his language"},
      {" not found. Default language is also not found", "there is no table at all"},
      {"AL40 (40 cu ft)", "what divers call a cylinder everywhere"},
      {"AL80 (77.4 cu ft)", "what divers call a cylinder everywhere"},
      {"the form ", "a form and its looks do not match, which the tests find"},
      {"the control ", "a form and its looks do not match, which the tests find"},
      {"the widget ", "a form and its looks do not match, which the tests find"},
      {" is of the wrong kind", "a form and its looks do not match, which the tests find"},
      {" has no w", "a form and its looks do not match, which the tests find"},
      {" has no control", "a form and its looks do not match, which the tests find"},
      {"lost all", "the name of a column in files for scripts"},
      {"/PageLabels", "an object of a PDF file"},
      {"font-weight", "a style sheet"},
      {"border: 1px", "a style sheet"},
  };
  const std::regex literal(R"re("((?:[^"\\\n]|\\.)*)")re");
  const std::regex words(R"([A-Za-z]{2,}[,.:]? +[a-z]{2,})");
  int texts = 0;
  for (const char* folder : {"advice", "app", "desktop", "dialogs", "graph", "mixer", "picture"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kSource / "src" / folder)) {
      if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
      const std::string source = ReadTextFile(entry.path());
      LineReader lines(source);
      while (const auto line = lines.Next()) {
        const std::string code(line->substr(0, line->find("//")));
        for (std::sregex_iterator it(code.begin(), code.end(), literal), end; it != end; ++it) {
          const std::string text = (*it)[1].str();
          ++texts;
          const bool known = std::any_of(allowed.begin(), allowed.end(),
                                         [&](const auto& each) { return text.find(each.first) != std::string::npos; });
          EXPECT_TRUE(known || !std::regex_search(text, words))
              << entry.path() << ":" << lines.LineNumber() << ": \"" << text << "\" has no number in the tables";
        }
      }
    }
  }
  EXPECT_GT(texts, 1000);
}

TEST(LanguageDialog, ListsEveryTableAndStoresTheChoice) {
  const test::ScratchFolder folder;
  WriteFile(folder.Path() / "TAV_uk.dll", "999\tEnglish\n");
  WriteFile(folder.Path() / "TAV_nl.dll", "999\tNederlands\n");
  WriteFile(folder.Path() / "other.dll", "999\tOther\n");
  HeadlessPlatform platform;
  const TextSource texts;
  frmLanguages dialog(platform, texts, folder.Path());
  dialog.Load();
  EXPECT_EQ(dialog.Option1.Items.Get(), (std::vector<std::string>{"Nederlands", "English"}));
  EXPECT_EQ(dialog.Option1.SelectedItem, 1);
  dialog.Option1.Select(0);
  dialog.Command1.Press();
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_EQ((platform.settings[{"", "Language"}]), "TAV_nl.dll");
}

TEST(FrmLanguages, PutTheLanguageInForceAtOnceAndKeepWhatIsEntered) {
  test::HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 25, 0));
  frmPartialMix& mixer = p.Main().Dialogs().ShowMixer();
  mixer.DesFill.Type("232");
  p.Main().mnuViewLanguage.Choose();
  auto& dialog = dynamic_cast<frmLanguages&>(*p.platform.modeless.back());
  const auto& names = dialog.Option1.Items.Get();
  dialog.Option1.Select(static_cast<int>(std::ranges::find(names, "Deutsch") - names.begin()));
  dialog.Command1.Press();
  EXPECT_EQ(p.Main().mnuFile.Caption.Get(), "&Datei");
  EXPECT_EQ(p.Main().toolSave.ToolTipText.Get(), p.program.Texts().GetResString(Text::ToolSave));
  EXPECT_EQ(p.Main().sbStatusBar.Caption.Get(), "Bereit");
  const frmCheckPane& check = p.Main().Panes().CheckPane();
  EXPECT_THAT(check.Caption.Get(), testing::StartsWith("Prüfung: "));
  EXPECT_THAT(check.fgFindings.Cells.Get()[0][0].spoken, testing::StartsWith("Gefahr: "));
  EXPECT_EQ(mixer.Caption.Get(), "Gasmischer - Partialdruck");
  EXPECT_EQ(mixer.DesFill.Text.Get(), "232");
  EXPECT_THAT(mixer.lbOutcome.Caption.Get(), testing::HasSubstr("ergibt"));
  p.Main().mnuHelpContents.Choose();
  EXPECT_EQ(p.platform.helpShown.back().file.filename(), "TAV_de.hlp");
}

TEST(ErrorReport, NamesNumberSourceAndDescription) {
  HeadlessPlatform platform;
  const LanguageTable english = LanguageTable::Read(kSource / "lang/TAV_uk.dll");
  ReportRunTimeError({}, platform.Services().boxes, english);
  EXPECT_TRUE(platform.boxes.empty());
  ReportRunTimeError({13, "X", "type mismatch"}, platform.Services().boxes, english);
  EXPECT_EQ(platform.LastBox().text,
            "Error #  13 was generated by X\rtype mismatch\r\nPlease contact author with this information");
  EXPECT_EQ(platform.LastBox().title, "Error");
}

TEST(EngineWarnings, TellValueLimitAndPlaceAsTheUserWritesNumbers) {
  HeadlessPlatform platform;
  const TextSource numbers;  // every text is its number
  const DocumentStore documents;
  EngineWarnings warnings(platform.Services().boxes, numbers, documents, {",", "."});
  warnings.WarnEND({0, 35.4, 30, 42.3, "Air", true});
  EXPECT_EQ(platform.LastBox().text,
            Numbered("<WarningEND>35<WarningDeeperMetres>30<WarningMetres>\r\n<Depth>: 42,3 m, <Gas>: Air"));
  EXPECT_EQ(platform.LastBox().title, Numbered("<ENDTooDeep>"));
  warnings.WarnPPO2High({0, 1.614, 1.4, 20, "Oxygen", false});
  EXPECT_EQ(platform.LastBox().text,
            Numbered("<WarningPPO2>1,61<WarningAboveAta>1,40<WarningAta>\r\n<Depth>: 20,0 ft, <Gas>: Oxygen"));
  warnings.WarnPPO2Low({0, 0.15, 0.18, 0, "Tx10/70", true});
  EXPECT_EQ(platform.LastBox().text,
            Numbered("<WarningPPO2>0,15<WarningBelowBar>0,18<WarningBar>\r\n<Depth>: 0,0 m, <Gas>: Tx10/70"));
  warnings.StopHitLimit({0, true, 57, "Air", Text::GasKeepsCeiling});
  EXPECT_THAT(platform.LastBox().text, testing::EndsWith(Numbered("<GasKeepsCeiling>\r\n<Depth>: 57,0 m, <Gas>: Air")));
}

}  // namespace
}  // namespace tav
