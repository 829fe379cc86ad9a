#include <algorithm>
#include <set>

#include "cli/tavplan_fixture.h"

/// "shown" tells what the text output of the same call tells, word by word and in the same order.
namespace tav {
namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

void AddWords(const std::string& text, Words& words) {
  std::istringstream in(text);
  for (std::string word; in >> word;) words.push_back(word);
}

/// The map tells a figure over each fifth column alone.
bool IsLeftOut(const json& table, std::size_t column) {
  return (table["id"] == "map" && column % 5 != 1 && column > 0) ||
         (table["id"] == "legs" && column + 1 == table["heads"][0].size());
}

void AddTable(const json& table, Words& words) {
  for (const json& head : table["heads"]) {
    for (std::size_t i = 0; i < head.size(); ++i) {
      if (!IsLeftOut(table, i)) AddWords(head[i], words);
    }
  }
  for (const json& row : table["rows"]) {
    for (const json& cell : row["cells"]) AddWords(cell, words);
    EXPECT_EQ(row.value("marks", row["cells"]).size(), row["cells"].size());
    for (const json& head : table["heads"]) EXPECT_EQ(head.size(), row["cells"].size());
  }
}

/// The words of the blocks, behind the sign that the text output has for their severity.
Words WordsOf(const json& shown, bool signs) {
  Words words;
  for (const json& block : shown) {
    if (block.contains("table")) {
      AddTable(block["table"], words);
      continue;
    }
    if (signs && block.contains("severity")) words.emplace_back(block["severity"] == "note" ? "-" : "!");
    AddWords(block.value("text", block.value("heading", "")), words);
  }
  return words;
}

/// The same of the text output, without lines that begin with `title`, and the brackets round the planned dive.
Words WordsOf(const std::string& text, const std::string& title) {
  Words words;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (title.empty() || !line.starts_with(title)) AddWords(ReplaceAll(ReplaceAll(line, "[", " "), "]", " "), words);
  }
  return words;
}

json ShownIn(const json& document) {
  if (!document.contains("dives")) return document.at("shown");
  json all = json::array();
  for (const json& dive : document["dives"]) all.insert(all.end(), dive.at("shown").begin(), dive.at("shown").end());
  return all;
}

TEST_F(Tavplan, ShowsInJsonAllThatTheTextTells) {
  struct Case {
    Words arguments;
    std::string title = {};  ///< a line that the text has alone
    bool isWide = false;     ///< the table is broken into parts, whose heads stand there again
  };
  std::vector<Case> cases{
      {{"new", "--depth", "45", "--time", "20", "--cylinder", "Air:2/12/200/50", "--cylinder", "EAN50:1/7/200/20"},
       "New plan"},
      {{"new", "--depth", "45", "--time", "20", "--template", "Imperial", "--moments", "--cylinder",
        "Air:2/80/3000/3000/500"},
       "New plan"},
      {{"compare", Dive("wreck.tav"), Dive("nitrox.tav")}},
      {{"compare", Dive("wreck.tav"), Dive("nitrox.tav"), Dive("rebreather.tav"), Dive("trimix-100.tav")}, "", true},
      {{"tables", "--gas", "Air", "--depths", "30:60:30", "--times", "5:35:10"}},
      {{"tables", "--gas", "Air", "--depths", "60:60:3", "--times", "5:90:5", "--without", "EAN50"}, "", true},
      {{"check", Dive("wreck.tav"), Changed("wreck.tav", "LastStop= 3", "LastStop= x"),
        (SourceFolder() / "template" / "Imperial.tpl").string()}},
      {{"mix", "--have", "21/35@80", "--want", "18/45@220"}},
      {{"mix", "--have", "21/0@1", "--want", "18/45@210", "--warm", "45"}},
      {{"mix", "--have", "32/0@150", "--want", "21/0@160"}},
      {{"mix", "--have", "21/0@1", "--steps", "he@67 o2@86 air@220"}},
      {{"mix", "--have", "21/0@1", "--steps", "he@67 o2@86 air@220", "--want", "21/35@230"}},
  };
  const std::string wreck = Dive("wreck.tav");
  cases.insert(cases.end(), {{{"plan", Dive("air-no-stop.tav")}, Dive("air-no-stop.tav")},
                             {{"plan", "--why", Dive("lake-series.tav")}, Dive("lake-series.tav")},
                             {{"whatif", wreck, "--column", "longer"}, wreck},
                             {{"longest", wreck, "--max-run", "75"}},
                             {{"longest", wreck, "--no-stop"}},
                             {{"margins", wreck, "--longer", "-2:8:2", "--deeper", "-3:6:3"}},
                             {{"bailout", wreck, "--leg-ends"}},
                             {{"bailout", wreck, "--interval", "3"}, "", true}});
  for (const char* name : {"rebreather.tav", "trimix-100.tav", "wreck.tav"}) {
    const std::string dive = Dive(name);
    cases.insert(cases.end(), {{{"plan", "--why", "--moments", dive}, dive}, {{"whatif", dive}, dive, true}});
  }
  for (const char* language : {"C", "de"}) {
    Speak(language);
    for (const auto& [arguments, title, isWide] : cases) {
      std::string call;
      for (const std::string& argument : arguments) call += argument + " ";
      SCOPED_TRACE(call + language);
      const int status = Run(arguments);
      const Words text = WordsOf(Out(), std::string(language) == "de" && title == "New plan" ? "Neuer Plan" : title);
      Words withShown = arguments;
      withShown.insert(withShown.end(), {"--json", "--shown"});
      EXPECT_EQ(Run(withShown), status);
      ASSERT_TRUE(json::accept(Out())) << Err();
      json document = OutJson();
      const Words shown = WordsOf(ShownIn(document), arguments[0] != "check");
      ASSERT_GT(text.size(), 3U);
      if (isWide) {
        EXPECT_EQ(std::set(shown.begin(), shown.end()), std::set(text.begin(), text.end()));
      } else {
        EXPECT_EQ(shown, text);
      }
      if (std::string(language) == "de") continue;
      // The rest of the document is as without it.
      withShown.pop_back();
      Run(withShown);
      document.erase("shown");
      if (document.contains("dives")) {
        for (json& dive : document["dives"]) dive.erase("shown");
      }
      EXPECT_EQ(document, OutJson());
    }
  }
}

TEST_F(Tavplan, ShowsHowSevereAFindingIsAndWhatIsMarked) {
  EXPECT_EQ(Run({"plan", "--shown", Dive("wreck.tav")}), ExitStatus::kUnusableInput) << "it needs --json";

  const auto severities = [](const json& list) {
    Words found;
    for (const json& block : list) {
      if (block.contains("severity")) found.push_back(block["severity"]);
    }
    return found;
  };
  const auto tableOf = [this](const std::string& id) {
    for (const json& block : ShownIn(OutJson())) {
      if (block.contains("table") && block["table"]["id"] == id) return block["table"];
    }
    ADD_FAILURE() << id;
    return json();
  };
  const Words dive{"new",        "--depth",          "60",     "--time", "20", "--cylinder", "Air:1/10/200/50",
                   "--cylinder", "EAN50:1/7/200/20", "--json", "--shown"};
  ASSERT_EQ(Run(dive), ExitStatus::kFine) << Err();
  const json plan = OutJson()["dives"][0];
  EXPECT_EQ(severities(plan["shown"]), severities(plan["findings"]));
  EXPECT_THAT(severities(plan["shown"]), testing::IsSupersetOf({"danger", "caution"}));
  const json air = tableOf("supply")["rows"][0];
  EXPECT_EQ(air["cells"][0], "Air");
  EXPECT_EQ(air["marks"].back(), "bad") << "too little air";
  Words kinds;
  const json schedule = tableOf("schedule");
  for (const json& row : schedule["rows"]) kinds.push_back(row["kind"]);
  EXPECT_THAT(kinds, testing::IsSupersetOf({"descent", "level", "stop", "surface"}));

  ASSERT_EQ(Run({"margins", Dive("wreck.tav"), "--longer", "-2:8:2", "--deeper", "-3:3:3", "--json", "--shown"}),
            ExitStatus::kFine);
  const json map = tableOf("map");
  EXPECT_EQ(map["heads"][0][2], "0");
  EXPECT_EQ(map["rows"][1]["cells"][0], "0 m");
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 7; ++column) {
      EXPECT_EQ(map["rows"][row]["marks"][column], row == 1 && column == 2 ? "planned" : "");
    }
  }
  ASSERT_EQ(Run({"compare", Dive("wreck.tav"), Dive("wreck.tav"), Dive("nitrox.tav"), "--json", "--shown"}),
            ExitStatus::kFine);
  std::set<std::string> same;
  std::set<std::string> other;
  const json columns = tableOf("columns");
  for (const json& row : columns["rows"]) {
    same.insert(row["marks"][2]);
    other.insert(row["marks"][3]);
  }
  EXPECT_THAT(same, testing::ElementsAre(""));
  EXPECT_TRUE(other.contains("differs"));

  const std::string faulty = Changed("wreck.tav", "LastStop= 3", "LastStop= x");
  EXPECT_EQ(Run({"check", faulty, "--json", "--shown"}), ExitStatus::kUnusableInput);
  const json checked = OutJson();
  ASSERT_EQ(checked["files"][0]["faults"].size(), 1U);
  EXPECT_EQ(checked["files"][0]["faults"][0]["error"], true);
  EXPECT_EQ(severities(checked["shown"]), Words{"danger"});
}

}  // namespace
}  // namespace tav
