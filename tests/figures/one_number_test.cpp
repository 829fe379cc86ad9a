#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/commands.h"
#include "dialogs/general_info.h"
#include "dialogs/plan_pane.h"
#include "model/text_id.h"
#include "pages/page_player.h"
#include "reports/dive_report.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;

/// The shipped dives, those with known results, and a repetitive dive without its ascent.
std::vector<fs::path> Plans(const fs::path& scratch) {
  std::vector<fs::path> files;
  for (const char* folder : {"dives", "tests/data/vectors"}) {
    for (const auto& entry : fs::directory_iterator(SourceFolder() / folder)) {
      if (entry.path().extension() == ".tav") files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  std::string series = test::FileText(SourceFolder() / "dives/lake-series.tav");
  const std::string ascent = "-1,-1,0,1,\r\n";
  series.erase(series.rfind(ascent), ascent.size());
  files.push_back(scratch / "open-series.tav");
  std::ofstream(files.back(), std::ios::binary) << series;
  return files;
}

/// What `plan` prints of a plan: one text for each wish, of which the last is JSON.
std::vector<std::string> Printed(const fs::path& plan, const std::string& model, const fs::path& user) {
  std::vector<std::string> printed;
  for (const char* form : {"", "--json"}) {
    std::vector<std::string> arguments{"plan", plan.string()};
    for (const std::string& option : {model, std::string(form)}) {
      if (!option.empty()) arguments.push_back(option);
    }
    std::ostringstream out;
    std::ostringstream err;
    RunTavplan(arguments, {SourceFolder(), user}, out, err);
    printed.push_back(out.str());
  }
  return printed;
}

/// One dive in the words of each place; all figures are those of the JSON.
class ToldDive {
 public:
  ToldDive(test::HeadlessProgram& program, std::int16_t document, const json& dive)
      : p_(program), document_(document), dive_(dive), totals_(dive["totals"]) {}

  void ExpectInTerminalAndPane(const std::string& terminal) {
    const bool metric = dive_["metric"];
    const std::string totals = "Run time " + Short("run_time") + " min, stops " + Short("stops") + " min, CNS " +
                               Fixed("cns", 0, 100) + " %, OTU " + Fixed("otu", 0);
    std::string gases;
    for (const json& gas : totals_["gas"]) {
      if (gas["used"] == 0) continue;
      gases += (gases.empty() ? "" : ", ") + gas["mix"].get<std::string>() + " " +
               numbers_.Fixed(Single(gas["used"].get<double>()), metric ? 0 : 1) + (metric ? " l" : " cu ft");
    }
    EXPECT_THAT(terminal, HasSubstr(totals));
    EXPECT_THAT(terminal, HasSubstr(gases));
    p_.Main().Activate(document_);
    frmPlanPane& pane = p_.Main().Panes().PlanPane();
    EXPECT_THAT(pane.schedule.lbTotals.Caption.Get(), HasSubstr(totals));
    EXPECT_THAT(pane.schedule.lbTotals.Caption.Get(), HasSubstr(gases));
    // The stops that stand above the total add up to it.
    double stops = 0;
    for (const auto& row : pane.schedule.fgSchedule.Cells.Get()) {
      if (row[0].text == "stop") stops += ParseLenient(row[2].text);
    }
    EXPECT_EQ(numbers_.Short(stops), Short("stops"));
  }

  void ExpectInWindow(frmGeneralInfo& window) {
    const auto& summary = window.fgSummary.Cells.Get();
    EXPECT_EQ(summary[0][1].text, Fixed("run_time", 1));
    EXPECT_EQ(summary[0][3].text, Fixed("stops", 1));
    EXPECT_EQ(summary[1][1].text, Fixed("cns", 1, 100));
    EXPECT_EQ(summary[1][3].text, Fixed("otu", 1));
    double stops = 0;
    for (const auto& row : window.fgDecoStop.Cells.Get()) stops += ParseLenient(row[1].text);
    EXPECT_EQ(numbers_.Short(stops), Short("stops"));
    window.cbCopy.Press();
    for (std::size_t i = 1; i < window.fgGasConsumption.Cells.Get().size(); ++i) {
      const auto& row = window.fgGasConsumption.Cells.Get()[i];
      EXPECT_EQ(row[1].text, Gases()[row[0].text]) << row[0].text;
      EXPECT_THAT(p_.platform.clipboardText, HasSubstr(row[1].text));
    }
  }

  void ExpectOnPaper() {
    PrintPreview writer(p_.platform.Services(), p_.program.Texts());
    GeneralReport report(writer);
    WriteLongReport(report, p_.program.Forms().Series(document_, false));
    std::vector<std::string> texts;
    for (int page = 1; page <= writer.Pages().Pages(); ++page) {
      RecordingSurface surface(16839.9, 11907);
      PagePlayer(writer.Pages()).tempshow(page, surface, 1);
      for (const auto& stroke : surface.strokes) texts.push_back(stroke.text);
    }
    const auto t = [&](int id) { return p_.program.Texts().GetResString(id); };
    const auto behind = [&](std::size_t from, const std::string& head, std::size_t texts_) {
      const auto at = std::find(texts.begin() + static_cast<std::ptrdiff_t>(from), texts.end(), head);
      const auto place = static_cast<std::size_t>(at - texts.begin()) + texts_;
      return place < texts.size() ? texts[place] : "no " + head;
    };
    // Behind a head stand its unit, where it has one, and the figure.
    const auto summary =
        static_cast<std::size_t>(std::find(texts.begin(), texts.end(), t(Text::ReportSummary)) - texts.begin());
    EXPECT_EQ(behind(summary, t(Text::ReportRunTime), 2), Fixed("run_time", 1));
    EXPECT_EQ(behind(summary, t(Text::ReportStopTime), 2), Fixed("stops", 1));
    EXPECT_EQ(behind(summary, t(Text::ReportTotalCNS), 1), Fixed("cns", 1, 100));
    EXPECT_EQ(behind(summary, t(Text::ReportTotalOTU), 1), Fixed("otu", 1));
    const auto gases = static_cast<std::size_t>(std::find(texts.begin(), texts.end(), t(6100)) - texts.begin());
    for (const auto& [name, used] : Gases()) {
      if (used == "0.0") continue;
      EXPECT_EQ(behind(gases, name, 3), used) << name;
    }
  }

 private:
  [[nodiscard]] Single Figure(const char* name, double factor = 1) const {
    return Single(Single(totals_[name].get<double>()) * factor);
  }
  [[nodiscard]] std::string Short(const char* name) const { return numbers_.Short(Figure(name)); }
  [[nodiscard]] std::string Fixed(const char* name, int decimals, double factor = 1) const {
    return numbers_.Fixed(Figure(name, factor), decimals);
  }
  [[nodiscard]] std::map<std::string, std::string> Gases() const {
    std::map<std::string, std::string> gases;
    for (const json& gas : totals_["gas"]) {
      gases[gas["mix"]] = numbers_.Fixed(Single(gas["used"].get<double>()), 1);
    }
    return gases;
  }

  test::HeadlessProgram& p_;
  std::int16_t document_;
  const json& dive_;
  const json& totals_;
  NumberTexts numbers_;
};

TEST(AFigure, IsTheSameNumberWhereverItIsTold) {
  const test::ScratchFolder scratch;
  int dives = 0;
  for (const fs::path& plan : Plans(scratch.Path())) {
    SCOPED_TRACE(plan.filename());
    fs::path arguments = plan;
    std::string model = fs::exists(arguments.replace_extension(".args")) ? test::FileText(arguments) : "";
    model.erase(model.find_last_not_of(" \r\n") + 1);
    const auto printed = Printed(plan, model, scratch.Path() / "user");
    const json told = json::parse(printed.back(), nullptr, false);
    ASSERT_TRUE(told.is_object()) << printed.back();

    test::HeadlessProgram p;
    ASSERT_TRUE(p.Start({"/vpm", "/hybrid"}));
    if (model == "--vpm") p.Main().mnuVPM.Choose();
    if (model == "--hybrid") p.Main().mnuHybrid.Choose();
    ASSERT_TRUE(p.Main().OpenFile(plan));
    std::int16_t document = p.Editor().getFirstProfile();
    std::vector<ToldDive> series;
    std::size_t at = 0;
    for (const json& dive : told["dives"]) {
      ++dives;
      SCOPED_TRACE(at);
      // The totals of a dive stand behind those of the dives before it.
      at = printed[0].find("Run time ", at) + 1;
      const std::size_t end = printed[0].find("\n\n", at);
      ToldDive& one = series.emplace_back(p, document, dive);
      one.ExpectInTerminalAndPane(printed[0].substr(at - 1, end - at));
      one.ExpectOnPaper();
      document = p.program.Forms()(document).NextProfile;
    }
    p.platform.onModal = {[&](Form& form) {
      auto& window = dynamic_cast<frmGeneralInfo&>(form);
      for (std::size_t i = 0; i < series.size(); ++i) {
        SCOPED_TRACE(i);
        if (i > 0) window.TabStrip1.Select(static_cast<int>(i));
        series[i].ExpectInWindow(window);
      }
      window.Command1.Press();
    }};
    p.Main().mnuDiveInformation.Choose();
  }
  EXPECT_GT(dives, 50);
}

}  // namespace
}  // namespace tav
