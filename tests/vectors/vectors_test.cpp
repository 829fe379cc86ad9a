#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

#include "compute/compute.h"
#include "persist/profile_file.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::vector<fs::path> Dives() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(SourceFolder() / "tests/data/vectors")) {
    // The plans of bail-out tables have results of another kind.
    const bool bailout = entry.path().parent_path().filename() == "bailout";
    if (entry.path().extension() == ".tav" && !bailout) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string Name(const testing::TestParamInfo<fs::path>& info) {
  std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
  for (char& c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  }
  return name;
}

/// Times and depths 0.001, ceilings 0.002, all else 2 parts in 10,000 or 0.0001.
double Tolerance(const std::string& field, double expected) {
  if (field == "depth" || field == "segment_time" || field == "run_time") return 0.001;
  if (field == "ceiling") return 0.002;
  return std::max(1e-4, 2e-4 * std::fabs(expected));
}

void ExpectNear(const std::string& field, double computed, const json& expected) {
  EXPECT_NEAR(computed, expected.get<double>(), Tolerance(field, expected.get<double>())) << field;
}

void ExpectNear(const std::string& field, const Compartments& computed, const json& expected) {
  ASSERT_EQ(expected.size(), computed.size());
  for (std::size_t i = 0; i < computed.size(); ++i) {
    SCOPED_TRACE("compartment " + std::to_string(i + 1));
    ExpectNear(field, computed[i], expected[i]);
  }
}

void ExpectRow(const Waypoint& row, const json& expected) {
  ExpectNear("depth", row.Depth, expected["depth"]);
  ExpectNear("segment_time", row.SegmentTime, expected["segment_time"]);
  ExpectNear("run_time", row.RunTime, expected["run_time"]);
  ExpectNear("rate", row.Rate, expected["rate"]);
  EXPECT_EQ(json(row.Status), expected["status"]);
  EXPECT_EQ(json(row.GasMixName), expected["mix"]);
  EXPECT_EQ(row.MixNumber, expected["mix_number"]);
  ExpectNear("o2", row.GasMixO2, expected["o2"]);
  ExpectNear("he", row.GasMixHe, expected["he"]);
  EXPECT_EQ(double{row.StopDepth}, expected["stop_depth"]);
  EXPECT_EQ(double{row.StopTime}, expected["stop_time"]);
  ExpectNear("ppo2", row.PPO2, expected["ppo2"]);
  ExpectNear("cns", row.CNS, expected["cns"]);
  ExpectNear("otu", row.OTU, expected["otu"]);
  ExpectNear("total_cns", row.TotalCNS, expected["total_cns"]);
  ExpectNear("total_otu", row.TotalOTU, expected["total_otu"]);
  ExpectNear("end", row.END, expected["end"]);
  ExpectNear("gas_used", row.GasUsed, expected["gas_used"]);
  ExpectNear("ceiling", row.Ceiling, expected["ceiling"]);
  ExpectNear("gf", row.GF, expected["gf"]);
  ExpectNear("max_m_value", row.MaxMValue, expected["max_m_value"]);
  EXPECT_EQ(row.ModelControl, expected["model_control"]);
  EXPECT_EQ(row.DoShow, expected["do_show"]);
  EXPECT_EQ(row.EndUserProfile, expected["end_user_profile"]);
  ExpectNear("percent_compartments", row.PercentCompartments, expected["percent_compartments"]);
}

void ExpectDive(const DiveRecord& dive, const ComputedPlan& plan, const json& expected) {
  const ClassProfile& rows = plan.rows;
  EXPECT_EQ(json(dive.Template.Templatename), expected["template"]);
  EXPECT_EQ(dive.Template.Metric, expected["metric"]);
  ExpectNear("surface_interval", dive.SurfaceInterval, expected["surface_interval"]);
  ExpectNear("total_cns", plan.end.TotalCNS, expected["total_cns"]);
  ExpectNear("total_otu", plan.end.TotalOTU, expected["total_otu"]);
  ExpectNear("n2_compartments", plan.end.N2Compartments, expected["n2_compartments"]);
  ExpectNear("he_compartments", plan.end.HeCompartments, expected["he_compartments"]);
  EXPECT_EQ(plan.end.Decompresses, expected["decompresses"]);
  ASSERT_EQ(static_cast<std::size_t>(rows.GetLength()) + 1, expected["rows"].size());
  for (std::int16_t i = 0; i <= rows.GetLength(); ++i) {
    SCOPED_TRACE("row " + std::to_string(i));
    ExpectRow(rows.Row(i), expected["rows"][static_cast<std::size_t>(i)]);
  }
}

ModelChoice ModelOf(fs::path dive) {
  std::ifstream file(dive.replace_extension(".args"));
  const std::set<std::string> words{std::istream_iterator<std::string>(file), {}};
  return {words.contains("--vpm"), words.contains("--hybrid")};
}

class KnownDives : public testing::TestWithParam<fs::path> {};

TEST_P(KnownDives, AreComputedAsKnown) {
  EngineObserver silent;
  const std::vector<DiveRecord> dives = ReadProfileFile(GetParam()).dives;
  const std::vector<ComputedPlan> plans = ComputeSeries(dives, ModelOf(GetParam()), silent);
  fs::path expectedFile = GetParam();
  const json expected = json::parse(std::ifstream(expectedFile.replace_extension(".expected.json")))["dives"];
  ASSERT_EQ(plans.size(), expected.size());
  for (std::size_t i = 0; i < plans.size(); ++i) {
    SCOPED_TRACE("dive " + std::to_string(i + 1));
    ExpectDive(dives[i], plans[i], expected[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(, KnownDives, testing::ValuesIn(Dives()), Name);

}  // namespace
}  // namespace tav
