// Whole outputs as the program gave them when they were last renewed. TAV_WRITE_FIGURES=1 renews them.
#include <filesystem>
#include <regex>

#include "cli/tavplan_fixture.h"
#include "support/kept.h"

namespace tav {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPages = "PAGES";  ///< stands for the pictures of the case

struct Case {
  std::string name;
  std::vector<std::string> arguments;  ///< one that ends in .tav is a plan of the test, or a shipped dive
};

/// What does not differ from machine to machine and from day to day.
std::string Lasting(const std::string& text) {
  static const std::regex kDay("[0-9]{4}-[0-9]{2}-[0-9]{2}(T[0-9:]+Z)?");
  static const std::regex kUser("Printed by: [^<]*");
  return std::regex_replace(std::regex_replace(text, kDay, "DAY"), kUser, "Printed by: USER");
}

std::vector<Case> Cases() {
  return {
      {"plan.json", {"plan", "full.tav", "--json", "--shown"}},
      {"plan.csv", {"plan", "full.tav", "--csv"}},
      {"plan-feet.txt", {"plan", "feet.tav", "--why", "--moments", "--sort-out", "4"}},
      {"plan-loop.json", {"plan", "rebreather.tav", "--json"}},
      {"plan-series.txt", {"plan", "lake-series.tav"}},
      {"plan-hybrid.txt", {"plan", "trimix-100.tav", "--hybrid"}},
      {"edit.json", {"edit", "full.tav", "--json", "--shown"}},
      {"edit-feet.json", {"edit", "feet.tav", "--set", "# Team=9/ 10/ 30/ half/", "--json"}},
      {"edit-loop.json",
       {"edit", "full.tav", "--set", "# Team=1/ 1/ 0/ all/", "--circuit", "closed", "--altitude", "1200", "--json"}},
      {"whatif.json", {"whatif", "full.tav", "--json"}},
      {"whatif-feet.txt", {"whatif", "feet.tav"}},
      {"whatif-loop.txt", {"whatif", "rebreather.tav"}},
      {"compare.json", {"compare", "full.tav", "trimix-100.tav", "--json", "--shown"}},
      {"bailout.json", {"bailout", "full.tav", "--leg-ends", "--json"}},
      {"bailout-feet.txt", {"bailout", "feet.tav", "--interval", "10"}},
      {"bailout-loop.txt", {"bailout", "rebreather.tav", "--interval", "10"}},
      {"tables.json", {"tables", "--gas", "EAN32", "--depths", "21:30:9", "--times", "20:40:20", "--json", "--shown"}},
      {"tables-feet.txt",
       {"tables", "--gas", "Air", "--depths", "60:100:20", "--times", "20:60:20", "--template", "Imperial"}},
      {"margins.json", {"margins", "full.tav", "--longer", "0:10:5", "--deeper", "0:6:3", "--json", "--shown"}},
      {"longest.json", {"longest", "full.tav", "--json", "--shown"}},
      {"mix.json", {"mix", "--have", "21/35@80", "--want", "18/45@220", "--json", "--shown"}},
      {"mix-done.txt", {"mix", "--have", "21/0@1", "--steps", "he@67 o2@86 air@220", "--want", "21/35@230"}},
      {"mix-psi.txt", {"mix", "--have", "21/0@14.7", "--want", "32/0@3000", "--imperial"}},
      {"check.json", {"check", "full.tav", "feet.tav", "rebreather.tav", "--json"}},
      {"graph.svg", {"graph", "full.tav", "-o", kPages}},
      {"graph-feet.svg", {"graph", "feet.tav", "--tissues", "-o", kPages}},
      {"graph-series.svg", {"graph", "lake-series.tav", "-o", kPages}},
      {"margins.svg", {"margins", "full.tav", "--longer", "0:10:5", "--deeper", "0:6:3", "--svg", kPages}},
      {"report.svg", {"report", "full.tav", "--svg", kPages}},
      {"sheet.svg", {"report", "full.tav", "--sheet", "--paper", "a4", "--margins", "--svg", kPages}},
      {"sheet-feet.svg", {"report", "feet.tav", "--sheet", "--paper", "letter", "--svg", kPages}},
      {"sheet-loop.svg", {"report", "rebreather.tav", "--sheet", "--paper", "a4", "--svg", kPages}},
      {"slate.svg", {"report", "full.tav", "--slate", "--svg", kPages}},
      {"slate-lake.svg", {"report", "lake.tav", "--slate", "--svg", kPages}},
      {"compare-gases.txt", {"compare", "full.tav", "lake.tav"}},
      {"compare-circuits.txt", {"compare", "full.tav", "loop.tav", "feet.tav"}},
      {"longest-ceiling.txt", {"longest", "levels.tav", "--leg", "1", "--no-gas"}},
      {"longest-stops.txt", {"longest", "wreck.tav", "--no-gas", "--max-stops", "50"}},
      {"longest-run.json", {"longest", "wreck.tav", "--no-gas", "--max-run", "80", "--json"}},
      {"longest-loop.txt", {"longest", "loop.tav"}},
      {"no-stop.txt", {"longest", "wreck.tav", "--no-stop"}},
      {"margins-levels.txt", {"margins", "levels.tav", "--leg", "1", "--longer", "0:20:5", "--deeper", "0:6:3"}},
      {"margins-loop.txt", {"margins", "loop.tav", "--longer", "0:10:5", "--deeper", "0:3:3"}},
      {"whatif-vpm.txt", {"whatif", "full.tav", "--vpm"}},
      {"whatif-factors.txt", {"whatif", "levels.tav", "--gf", "20/80", "--longer", "3"}},
      {"check-many.txt", {"check", "many.tav", "levels.tav"}},
      {"plan-many.txt", {"plan", "many.tav"}},
      {"report-many.svg", {"report", "many.tav", "--svg", kPages}},
      {"report-loops.svg", {"report", "loops.tav", "--svg", kPages}},
      {"slate-loops.svg", {"report", "loops.tav", "--slate", "--svg", kPages}},
      {"sheet-series.svg", {"report", "lake-series.tav", "--sheet", "--paper", "letter", "--svg", kPages}},
      {"sheet-many.svg", {"report", "many.tav", "--sheet", "--paper", "a4", "--svg", kPages}},
      {"slate-many.svg", {"report", "many.tav", "--slate", "--svg", kPages}},
      {"graph-many.svg", {"graph", "many.tav", "-o", kPages}},
      {"plan.uddf", {"export", "lake-series.tav", "--uddf", kPages}},
      {"loop.uddf", {"export", "loop.tav", "--uddf", kPages}},
  };
}

TEST_F(Tavplan, PrintsAndDrawsWhatIsKept) {
  ASSERT_EQ(
      Run({"edit", Dive("wreck.tav"), "--cylinder", "Tx18/45:2/12/210/50", "--cylinder", "EAN50:1/7/200/20/bail-out",
           "--cylinder", "Oxygen:1/10/200/20/bail-out", "--set", "# Team=3/ 2/ 2/ thirds/", "--set",
           "# Plan name=Wreck of the \"Anna\"", "--set", "# Notes=Shot line\\nTwo lamps", "-o", Scratch("full.tav")}),
      ExitStatus::kFine)
      << Err();
  ASSERT_EQ(Run({"new", "--template", "Imperial", "--leg", "120:25@EAN32", "--leg", "70:10@EAN32", "--cylinder",
                 "EAN32:2/100/3000/2640/500", "--cylinder", "EAN50:1/40/3000/2900/200", "-o", Scratch("feet.tav")}),
            ExitStatus::kFine)
      << Err();
  ASSERT_EQ(Run({"edit", Scratch("full.tav"), "--gas", "EAN50:51/0", "--altitude", "1200", "--end-altitude", "2500",
                 "-o", Scratch("lake.tav")}),
            ExitStatus::kFine)
      << Err();
  ASSERT_EQ(Run({"new", "--leg", "45:25", "--leg", "9:30", "-o", Scratch("levels.tav")}), ExitStatus::kFine);
  ASSERT_EQ(Run({"edit", Dive("rebreather.tav"), "--cylinder", "Tx21/35:1/11/200/30/bail-out", "--cylinder",
                 "EAN50:1/11/200/30/bail-out", "--cylinder", "Oxygen:1/11/200/30/bail-out", "-o", Scratch("loop.tav")}),
            ExitStatus::kFine)
      << Err();
  ASSERT_EQ(Run({"edit", Scratch("loop.tav"), "--add-dive", "90", "--add-leg", "20:15", "-o", Scratch("loops.tav")}),
            ExitStatus::kFine)
      << Err();
  // More gases, cylinders and legs than a page takes.
  std::vector<std::string> many{"edit", Dive("trimix-100.tav"), "-o", Scratch("many.tav")};
  for (int i = 0; i < 40; ++i) {
    const std::string gas = "Tx" + std::to_string(18 + i % 20) + "/" + std::to_string(20 + i % 20);
    many.insert(many.end(), {"--add-leg", std::to_string(40 - i / 2) + ":2@" + gas, "--cylinder", gas + ":1/7/200/20"});
  }
  ASSERT_EQ(Run(many), ExitStatus::kFine) << Err();
  for (const auto& [name, given] : Cases()) {
    SCOPED_TRACE(name);
    std::vector<std::string> arguments = given;
    for (std::string& argument : arguments) {
      if (argument == kPages) argument = Scratch("page");
      if (!argument.ends_with(".tav")) continue;
      argument = fs::exists(Scratch(argument)) ? Scratch(argument) : Dive(argument.c_str());
    }
    EXPECT_EQ(Run(arguments), ExitStatus::kFine) << Err();
    std::string text = Out() + Err();
    for (const std::string file :
         {"page", "page-1.svg", "page-2.svg", "page-3.svg", "page-4.svg", "page-5.svg", "page-6.svg", "page-7.svg"}) {
      if (!fs::exists(Scratch(file))) continue;
      text += ReadTextFile(Scratch(file));
      fs::remove(Scratch(file));
    }
    for (const std::string& folder : {Scratch(""), Dive("")}) text = ReplaceAll(text, folder, "");
    if (name.ends_with(".json")) text = ReplaceAll(text, "},", "},\n");
    test::ExpectKept(name, Lasting(text));
  }
}

}  // namespace
}  // namespace tav
