// The long report as a reader of the PDF gets it: made by tavplan and the desktop program, read back by pdftotext.

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <sstream>

#include "cli/commands.h"
#include "model/number_text.h"
#include "model/single.h"
#include "support/random_plan.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

const fs::path kRoot = SourceFolder();

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
  std::string text;
  std::array<char, 4096> part{};
  while (std::fgets(part.data(), part.size(), pipe.get()) != nullptr) text += part.data();
  return text;
}

using Words = std::vector<std::string>;

std::set<Words> LinesOf(const std::string& text) {
  std::set<Words> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    std::istringstream words(line);
    lines.insert(Words(std::istream_iterator<std::string>(words), {}));
  }
  return lines;
}

std::string Fixed(const json& number, int decimals) { return FormatFixed(Single(number.get<double>()), decimals); }
std::string Plain(const json& number) { return FormatPlain(Single(number.get<double>())); }

/// Whether a line begins with these words, and has all of the others behind them.
bool HasLine(const std::set<Words>& lines, const Words& start, const Words& others) {
  return std::any_of(lines.begin(), lines.end(), [&](const Words& line) {
    return line.size() >= start.size() && std::equal(start.begin(), start.end(), line.begin()) &&
           std::all_of(others.begin(), others.end(), [&](const std::string& other) {
             return std::find(line.begin(), line.end(), other) != line.end();
           });
  });
}

std::string Told(const Words& words) {
  std::string text;
  for (const std::string& word : words) text += word + " ";
  return text;
}

class ReportPdfFile : public testing::Test {
 protected:
  int Run(const std::vector<std::string>& arguments) {
    out_.str("");
    err_.str("");
    ::setenv("LC_ALL", "C", 1);  // NOLINT(concurrency-mt-unsafe): the results are in English
    return RunTavplan(arguments, {kRoot, scratch_.Path() / "user"}, out_, err_);
  }
  test::ScratchFolder scratch_;
  std::ostringstream out_;
  std::ostringstream err_;
};

class ReportPdf : public ReportPdfFile, public testing::WithParamInterface<fs::path> {};

TEST_P(ReportPdf, TellsEveryRowStopGasAndTotalOfThePlan) {
  const fs::path pdf = scratch_.Path() / "plan.pdf";
  ASSERT_EQ(Run({"report", GetParam().string(), "--pdf", pdf.string()}), ExitStatus::kFine) << err_.str();
  EXPECT_EQ(out_.str() + err_.str(), "");
  const std::set<Words> lines = LinesOf(OutputOf("pdftotext -layout " + pdf.string() + " -"));
  ASSERT_EQ(Run({"plan", "--json", GetParam().string()}), ExitStatus::kFine);
  const json dives = json::parse(out_.str()).at("dives");
  for (const json& dive : dives) {
    std::map<std::string, double> used;
    double stops = 0;
    for (const json& row : dive.at("rows")) {
      const std::string mix = row.at("mix");
      const Words profile{Plain(row.at("depth")), Plain(row.at("rate")), Fixed(row.at("segment_time"), 1),
                          Fixed(row.at("run_time"), 1)};
      EXPECT_TRUE(HasLine(lines, profile, {Fixed(row.at("ppo2"), 2), mix, Fixed(row.at("gas_used"), 1)}))
          << Told(profile);
      used[mix] += row.at("gas_used").get<double>();
      if (row.at("stop_depth") == 0) continue;
      stops += row.at("stop_time").get<double>();
      const Words stop{Fixed(row.at("stop_depth"), 0), Fixed(row.at("stop_time"), 0), Fixed(row.at("run_time"), 0),
                       mix};
      EXPECT_TRUE(HasLine(lines, stop, {})) << Told(stop);
    }
    for (const auto& [mix, total] : used) {
      if (total == 0) continue;
      EXPECT_TRUE(HasLine(lines, {mix}, {FormatFixed(Single(total), 1), FormatFixed(Single(total * 1.5), 1)})) << mix;
    }
    const Words totals{Fixed(dive.at("rows").back().at("run_time"), 1), FormatFixed(Single(stops), 1)};
    EXPECT_TRUE(HasLine(lines, totals, {})) << Told(totals);
  }
}

std::vector<fs::path> Examples() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(kRoot / "dives")) {
    if (entry.path().extension() == ".tav") files.push_back(entry.path());
  }
  return files;
}

INSTANTIATE_TEST_SUITE_P(, ReportPdf, testing::ValuesIn(Examples()),
                         [](const auto& dive) { return ReplaceAll(dive.param.stem().string(), "-", "_"); });

TEST_F(ReportPdfFile, HasItsTitleAndNumberedPages) {
  const fs::path pdf = scratch_.Path() / "second.pdf";
  ASSERT_EQ(Run({"report", (kRoot / "dives/lake-series.tav").string(), "--dive", "2", "--pdf", pdf.string()}),
            ExitStatus::kFine)
      << err_.str();
  const std::string information = OutputOf("pdfinfo " + pdf.string());
  EXPECT_NE(information.find("lake-series"), std::string::npos) << information;
  EXPECT_NE(information.find("842 x 595 pts (A4)"), std::string::npos) << information;
  std::ifstream file(pdf, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  EXPECT_NE(bytes.find("/PageLabels << /Nums [ 0 << /S /D >> ] >>"), std::string::npos);
  // Every font is embedded and has a table that leads back to its letters.
  std::istringstream fonts(OutputOf("pdffonts " + pdf.string()));
  std::string line;
  std::getline(fonts, line);
  std::getline(fonts, line);
  int count = 0;
  for (; std::getline(fonts, line); ++count) EXPECT_NE(line.find("yes no  yes"), std::string::npos) << line;
  EXPECT_EQ(count, 2);
}

TEST_F(ReportPdfFile, OfABailoutHasEveryCellOfItsTables) {
  const std::string plan = (kRoot / "dives/nitrox.tav").string();
  const fs::path pdf = scratch_.Path() / "bailout.pdf";
  ASSERT_EQ(Run({"bailout", plan, "--interval", "12", "--pdf", pdf.string()}), ExitStatus::kFine) << err_.str();
  std::set<std::string> words;
  for (const Words& line : LinesOf(OutputOf("pdftotext -layout " + pdf.string() + " -"))) words.insert(Told(line));
  ASSERT_EQ(Run({"bailout", plan, "--interval", "12", "--json"}), ExitStatus::kFine);
  const json told = json::parse(out_.str());
  for (const json& scenario : told.at("scenarios")) {
    for (const json& row : scenario.at("cells")) {
      Words cells;
      for (const std::string text : row) {
        if (!text.empty()) cells.push_back(text);
      }
      // Tables stand beside each other, so a row is a part of a line.
      const std::string part = Told(cells);
      EXPECT_TRUE(std::any_of(words.begin(), words.end(), [&](const std::string& line) {
        return line.find(part) != std::string::npos;
      })) << part;
    }
  }
}

TEST_F(ReportPdfFile, OfASlateHasEveryStopInLargeType) {
  const std::string plan = (kRoot / "dives/trimix-100.tav").string();
  const fs::path pdf = scratch_.Path() / "slate.pdf";
  ASSERT_EQ(Run({"report", plan, "--slate", "--pdf", pdf.string()}), ExitStatus::kFine) << err_.str();
  EXPECT_NE(OutputOf("pdfinfo " + pdf.string()).find("Pages:           1\n"), std::string::npos);
  std::string text;
  for (const Words& line : LinesOf(OutputOf("pdftotext -layout " + pdf.string() + " -"))) text += Told(line) + "\n";
  ASSERT_EQ(Run({"plan", plan, "--json"}), ExitStatus::kFine);
  const json told = json::parse(out_.str());
  for (const json& row : told.at("dives")[0].at("rows")) {
    if (row.at("stop_time") == 0) continue;
    const std::string mix = row.at("mix") == "Oxygen" ? "O2" : row.at("mix").get<std::string>();
    // Columns stand beside each other, so a row is a part of a line.
    const std::string part =
        Told({Fixed(row.at("stop_depth"), 0), Fixed(row.at("stop_time"), 0), Fixed(row.at("run_time"), 0), mix});
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
}

/// Reads back the sheets of a plan. Figures stand there as `plan` prints them: "22.5", "30".
class PlanSheetPdf : public ReportPdfFile {
 protected:
  void ExpectAllOf(const fs::path& plan) {
    SCOPED_TRACE(plan);
    ASSERT_LE(Run({"plan", "--json", plan.string()}), ExitStatus::kDoesNotDecompress) << err_.str();
    const json dives = json::parse(out_.str()).at("dives");
    for (std::size_t dive = 1; dive <= dives.size(); ++dive) {
      const fs::path pdf = scratch_.Path() / "sheet.pdf";
      ASSERT_LE(Run({"report", plan.string(), "--sheet", "--dive", std::to_string(dive), "--pdf", pdf.string()}),
                ExitStatus::kDoesNotDecompress)
          << err_.str();
      const std::string information = OutputOf("pdfinfo " + pdf.string());
      EXPECT_TRUE(information.find("Pages:           1\n") != std::string::npos ||
                  information.find("Pages:           2\n") != std::string::npos)
          << information;
      EXPECT_NE(information.find("595 x 842 pts (A4)"), std::string::npos) << information;
      ExpectRows(dives[dive - 1].at("rows"), pdf);
    }
  }

 private:
  static std::string Short(const json& number) {
    const std::string text = Fixed(number, 1);
    return text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
  }

  static void ExpectRows(const json& rows, const fs::path& pdf) {
    // The schedule stands in the left part of the page.
    const std::set<Words> schedule =
        LinesOf(OutputOf("pdftotext -layout -x 0 -y 0 -W 341 -H 842 " + pdf.string() + " -"));
    double stops = 0;
    for (const json& row : rows) {
      if (row.at("stop_depth") == 0) continue;
      stops += row.at("stop_time").get<double>();
      const auto on = [&](const Words& circuit) {
        Words line{"stop", Short(row.at("depth")), Short(row.at("stop_time")), Short(row.at("run_time")),
                   row.at("mix")};
        line.insert(line.end(), circuit.begin(), circuit.end());
        line.push_back(Fixed(row.at("ppo2"), 2));
        return line;
      };
      EXPECT_TRUE(HasLine(schedule, on({}), {}) || HasLine(schedule, on({"loop"}), {}) ||
                  HasLine(schedule, on({"open"}), {}))
          << Told(on({}));
    }
    const std::string minutes = FormatPlain(Single(stops));
    const Words totals{"Run", "time", Short(rows.back().at("run_time")), "min,", "stops", minutes, "min,"};
    EXPECT_TRUE(HasLine(schedule, totals, {})) << Told(totals);
    const std::set<Words> lines = LinesOf(OutputOf("pdftotext -layout " + pdf.string() + " -"));
    const Words planned{"planned", Short(rows.back().at("run_time")), minutes};
    EXPECT_TRUE(HasLine(lines, planned, {}) || HasLine(lines, {"planned", "no", "end"}, {})) << Told(planned);
  }
};

TEST_F(PlanSheetPdf, HasEveryStopAndSumOfThePlan) {
  for (const fs::path& plan : Examples()) ExpectAllOf(plan);
  std::mt19937 random(24);
  for (int i = 0; i < 50; ++i) {
    const fs::path plan = scratch_.Path() / ("random" + std::to_string(i) + ".tav");
    std::ofstream(plan, std::ios::binary) << test::File(test::MakePlan(random));
    ExpectAllOf(plan);
    if (HasFailure()) FAIL() << std::ifstream(plan).rdbuf();
  }
}

TEST_F(PlanSheetPdf, IsOnThePaperThatIsAskedForWithItsTextsAndTheMapBehindIt) {
  const fs::path plan = scratch_.Path() / "named.tav";
  std::stringstream text;
  text << std::ifstream(kRoot / "dives/air-deco.tav", std::ios::binary).rdbuf();
  std::ofstream(plan, std::ios::binary) << ReplaceAll(
      text.str(), "Templatename=",
      "# Plan name=North wall\r\n# Place=Mooring 3\r\n# Notes=slack 11:30\\nchannel 72\r\nTemplatename=");
  const fs::path pdf = scratch_.Path() / "named.pdf";
  ASSERT_EQ(Run({"report", plan.string(), "--sheet", "--margins", "--paper", "letter", "--pdf", pdf.string()}),
            ExitStatus::kFine)
      << err_.str();
  const std::string pages = OutputOf("pdfinfo -f 1 -l 9 " + pdf.string());
  EXPECT_NE(pages.find("1 size:  612 x 792 pts (letter)"), std::string::npos) << pages;
  EXPECT_NE(pages.find("842 x 595 pts (A4)"), std::string::npos) << pages;
  const std::set<Words> lines = LinesOf(OutputOf("pdftotext -layout " + pdf.string() + " -"));
  EXPECT_TRUE(HasLine(lines, {"North", "wall"}, {}));
  for (const Words& line : {Words{"Mooring", "3"}, {"slack", "11:30"}, {"channel", "72"}, {"The", "longest", "stay"}}) {
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const Words& each) {
      return std::search(each.begin(), each.end(), line.begin(), line.end()) != each.end();
    })) << Told(line);
  }
}

TEST_F(ReportPdfFile, ThatCanNotBeWrittenLeavesTheOldOneAndOneLine) {
  const fs::path folder = scratch_.Path() / "plan.pdf";
  fs::create_directory(folder);  // a folder of the name of the file
  EXPECT_EQ(Run({"report", (kRoot / "dives/nitrox.tav").string(), "--pdf", folder.string()}),
            ExitStatus::kUnusableInput);
  const std::string error = err_.str();
  EXPECT_NE(error.find("plan.pdf"), std::string::npos) << error;
  EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
  EXPECT_TRUE(fs::is_directory(folder));
}

}  // namespace
}  // namespace tav
