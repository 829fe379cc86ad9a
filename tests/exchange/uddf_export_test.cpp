#include "exchange/uddf_export.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <set>

#include "exchange/import.h"
#include "model/number_text.h"
#include "persist/template_file.h"
#include "support/random_plan.h"
#include "support/random_records.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

const UddfOrigin kOrigin{"1.2.3", std::chrono::sys_days(std::chrono::year(2026) / 5 / 31) + std::chrono::hours(23)};

std::string Text(const ProfileText& profile) { return WriteProfileText(profile.dives); }

std::vector<ComputedPlan> Computed(const ProfileText& profile, const ModelChoice& model = {}) {
  EngineObserver silent;
  return ComputeSeries(profile.dives, model, silent);
}

std::string Uddf(const ProfileText& profile, const ModelChoice& model = {}) {
  const std::vector<ComputedPlan> plans = Computed(profile, model);
  return WriteUddf(PlannedSeries(profile.dives, plans), kOrigin);
}

std::string Back(const std::string& uddf) {
  return Text(ImportUddf("plan.uddf", uddf, ShippedDefaultTemplate(), 0, TextSource()).profile);
}

TEST(UddfExport, EveryPlanComesBackAsItWas) {
  for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / "tests/data/vectors")) {
    if (entry.path().extension() != kProfileExtension) continue;
    const ProfileText profile = ReadProfileFile(entry.path());
    EXPECT_EQ(Back(Uddf(profile)), Text(profile)) << entry.path();
  }
  std::mt19937 random(14);
  for (int i = 0; i < 100; ++i) {
    ProfileText profile;
    for (std::size_t dives = 1 + random() % 3; dives > 0; --dives) {
      const test::RandomPlan plan = test::MakePlan(random);
      profile.dives.push_back({plan.settings, static_cast<double>(random() % 500), plan.actions});
    }
    EXPECT_EQ(Back(Uddf(profile)), Text(profile));
  }
}

TEST(UddfExport, NamesThatXmlCanNotHoldComeBack) {
  for (const std::string name :
       {"a?>b", "<&>\"'", "50% off", "%3F", "Tx 18/45 ö€", "\x01\x1F\x7F", "a\t?b", "\xEF\xBF\xBF", "]]>", "--"}) {
    ProfileText profile;
    DiveRecord& dive = profile.dives.emplace_back();
    dive.Template = ShippedDefaultTemplate();
    dive.Template.Blends[1].Name = name;
    dive.Template.Cylinders.push_back({name, 2, 12, 0, 200, 50});
    dive.UserActions.NewAction();
    dive.UserActions.setuser(1, 20, 20, 1);
    const std::string uddf = Uddf(profile);
    EXPECT_EQ(Back(uddf), Text(profile)) << name;
    // Tab and line end alone of the control characters are in XML.
    const auto forbidden = [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t'; };
    EXPECT_TRUE(std::none_of(uddf.begin(), uddf.end(), forbidden)) << name;
    EXPECT_TRUE(pugi::xml_document().load_string(uddf.c_str())) << name;
  }
}

TEST(UddfExport, TellsPlaceAndNotesToThoseWhoDoNotKnowPlans) {
  ProfileText profile = ReadProfileFile(SourceFolder() / "dives/lake-series.tav");
  profile.dives.front().Template.Texts = {"North <wall>", "Blue hole & reef", "slack at 11:30\nkeys: C:\\n"};
  std::string uddf = Uddf(profile);
  for (std::size_t at = 0; (at = uddf.find("<?tav-plan")) != std::string::npos;) {
    uddf.erase(at, uddf.find("?>", at) + 2 - at);
  }
  const auto dives = ImportUddf("log.uddf", uddf, ShippedDefaultTemplate(), 0, TextSource()).profile.dives;
  EXPECT_EQ(dives.front().Template.Texts,
            (PlanTexts{"", "Blue hole & reef", "North <wall>\nslack at 11:30\nkeys: C:\\n"}));
  EXPECT_EQ(dives.back().Template.Texts, PlanTexts());
}

TEST(UddfExport, APlanOfMonthsComesBackWithTimesOfSevenDigits) {
  ProfileText profile;
  DiveRecord& dive = profile.dives.emplace_back();
  dive.Template = ShippedDefaultTemplate();
  for (int leg = 0; leg < 3; ++leg) {
    dive.UserActions.NewAction();
    dive.UserActions.setuser(dive.UserActions.GetLength(), 5, 99991.37, 0);
  }
  EXPECT_EQ(Back(Uddf(profile)), Text(profile));
}

TEST(UddfExport, AGasOfMoreThanAllComesBackWithItsPlan) {
  ProfileText profile = ReadProfileFile(SourceFolder() / "dives/nitrox.tav");
  for (GasMix& blend : profile.dives.front().Template.Blends) blend.He = blend.He + 0.4;
  EXPECT_EQ(Back(Uddf(profile)), Text(profile));
}

TEST(UddfExport, APlanGivesWayToSamplesThatContradictIt) {
  const ProfileText series = ReadProfileFile(SourceFolder() / "dives/lake-series.tav");
  const std::vector<ComputedPlan> plans = Computed(series);
  const std::string both = Uddf(series);
  const std::string second = WriteUddf({PlannedSeries(series.dives, plans).back()}, kOrigin);
  const ClassProfile& rows = plans.front().rows;
  const auto depth = [](double metres) { return "<depth>" + FormatPlain(Single(metres)) + "</depth>"; };
  const auto changed = [](std::string text, const std::string& find, const std::string& replacement) {
    const std::size_t at = text.find(find);
    EXPECT_NE(at, std::string::npos) << find;
    return at == std::string::npos ? text : text.replace(at, find.size(), replacement);
  };
  const std::string bottom = depth(rows.getDepth(1));
  const double last = rows.getDepth(static_cast<std::int16_t>(rows.GetLength() - 1));
  const struct {
    std::string uddf;
    int told;  // dives whose plan is left out
  } cases[] = {
      {both, 0},
      {second, 0},  // its stops come of loads that its file does not hold
      {changed(both, bottom, depth(rows.getDepth(1) + 0.09)), 0},
      {changed(both, bottom, depth(rows.getDepth(1) + 0.3)), 1},
      {changed(both, bottom, "<depth>deep</depth>"), 1},
      {changed(both, depth(last), depth(last + 1)), 1},
      {changed(both, "<samples>", "<samples><waypoint><depth>0</depth><divetime>0</divetime></waypoint>"), 1},
      {changed(second, "<samples>", "<samples><waypoint><depth>0</depth><divetime>0</divetime></waypoint>"), 1},
  };
  for (const auto& each : cases) {
    ImportedDives imported;
    try {
      imported = ImportUddf("plan.uddf", each.uddf, ShippedDefaultTemplate(), 0, TextSource());
    } catch (const FileError& error) {
      // A logged dive has depths that are numbers.
      EXPECT_NE(each.uddf.find("deep"), std::string::npos) << error.what();
      continue;
    }
    const auto told =
        std::count(imported.remarks.begin(), imported.remarks.end(), Numbered("<ImportPlanContradicted>"));
    EXPECT_EQ(told, each.told);
    EXPECT_EQ(Text(imported.profile) == Text(series), each.told == 0 && &each != &cases[1]);
  }
  // The models differ in their stops, and the plan does not tell which was in force.
  const ModelChoice models[] = {
      {.VPMMode = true}, {.HybridMode = true}, {.ZHL16C = true}, {.HybridMode = true, .ZHL16C = true}};
  const ProfileText deep = ReadProfileFile(SourceFolder() / "dives/trimix-100.tav");
  std::set<std::string> files{Uddf(deep)};
  for (const ModelChoice& model : models) {
    const std::string uddf = Uddf(deep, model);
    EXPECT_TRUE(files.insert(uddf).second);
    EXPECT_EQ(Back(uddf), Text(deep));
  }
}

/// The order in which the schema wants the children of an element.
void ExpectOrder(pugi::xml_node node, const std::vector<std::string>& order) {
  std::size_t at = 0;
  for (const pugi::xml_node child : node.children()) {
    if (child.type() != pugi::node_element) continue;
    while (at < order.size() && order[at] != child.name()) ++at;
    EXPECT_LT(at, order.size()) << node.path() << ": " << child.name() << " is not there, or out of order";
  }
}

class WrittenFile : public testing::Test {
 protected:
  void Load(const char* file) { Load(ReadProfileFile(SourceFolder() / file)); }
  void Load(const ProfileText& profile) {
    plans_ = Computed(profile);
    ASSERT_TRUE(file_.load_string(Uddf(profile).c_str()));
  }
  [[nodiscard]] pugi::xml_node Root() const { return file_.child("uddf"); }
  [[nodiscard]] std::vector<pugi::xml_node> Dives() const {
    const auto dives = Root().child("profiledata").child("repetitiongroup").children("dive");
    return {dives.begin(), dives.end()};
  }
  [[nodiscard]] std::string MixName(const std::string& id) const {
    return Root().child("gasdefinitions").find_child_by_attribute("mix", "id", id.c_str()).child_value("name");
  }

  std::vector<ComputedPlan> plans_;
  pugi::xml_document file_;
};

TEST_F(WrittenFile, KeepsTheOrderOfTheSchema) {
  for (const char* file : {"dives/trimix-100.tav", "dives/rebreather.tav", "dives/lake-series.tav"}) {
    Load(file);
    EXPECT_STREQ(Root().attribute("xmlns").value(), "http://www.streit.cc/uddf/3.2/");
    ExpectOrder(Root(), {"generator", "gasdefinitions", "profiledata"});
    for (const pugi::xml_node dive : Dives()) {
      ExpectOrder(dive, {"informationbeforedive", "tankdata", "samples", "informationafterdive"});
      ExpectOrder(dive.child("informationbeforedive"),
                  {"datetime", "surfaceintervalbeforedive", "altitude", "apparatus", "surfacepressure"});
      for (const pugi::xml_node sample : dive.child("samples").children()) {
        ExpectOrder(sample,
                    {"decostop", "calculatedpo2", "depth", "divetime", "otu", "setpo2", "switchmix", "divemode"});
      }
      for (const char* required : {"greatestdepth", "diveduration"}) {
        EXPECT_TRUE(dive.child("informationafterdive").child(required)) << required;
      }
    }
  }
}

TEST_F(WrittenFile, HasASampleForEveryRowInSiWithItsGas) {
  Load("tests/data/vectors/feet-air.tav");
  const ClassProfile& rows = plans_.front().rows;
  std::string gas;
  std::int16_t row = 0;
  for (const pugi::xml_node sample : Dives().front().child("samples").children()) {
    EXPECT_NEAR(sample.child("depth").text().as_double(), rows.getDepth(row) * 0.3048, 1e-4) << row;
    EXPECT_NEAR(sample.child("divetime").text().as_double(), rows.GetRunTime(row) * 60, 1e-2) << row;
    if (row > 0) {
      EXPECT_NEAR(sample.child("calculatedpo2").text().as_double(), rows.GetPPO2(row) * 101325, 0.1) << row;
      EXPECT_EQ(gas, rows.GetGasMixName(row)) << row;
    }
    if (sample.child("switchmix")) gas = MixName(sample.child("switchmix").attribute("ref").value());
    const auto next = static_cast<std::int16_t>(row + 1);
    const bool stop = row < rows.GetLength() && rows.GetStatus(next) == RowStatus::kStop;
    ASSERT_EQ(!sample.child("decostop").empty(), stop) << row;
    if (stop) {
      EXPECT_NEAR(sample.child("decostop").attribute("duration").as_double(), rows.getStopTime(next) * 60, 1e-3);
    }
    ++row;
  }
  EXPECT_EQ(row, rows.GetLength() + 1);
}

TEST_F(WrittenFile, TellsSetpointsAndTheChangeToOpenCircuit) {
  ProfileText profile = ReadProfileFile(SourceFolder() / "dives/rebreather.tav");
  DiveTemplate& settings = profile.dives.front().Template;
  settings.Setpoint = 1.2;
  settings.DecoSetpoint = 1.4;
  for (const bool ocDeco : {false, true}) {
    settings.OCDeco = ocDeco;
    Load(profile);
    std::string told;
    for (const pugi::xml_node sample : Dives().front().child("samples").children()) {
      told += sample.child("setpo2") ? std::string(sample.child_value("setpo2")) + " " : "";
      told += sample.child("divemode") ? std::string(sample.child("divemode").attribute("type").value()) + " " : "";
    }
    const std::string start = "120000 closedcircuit ";
    EXPECT_EQ(told.substr(0, start.size()), start);
    EXPECT_EQ(told.find("140000") != std::string::npos, !ocDeco) << told;
    EXPECT_EQ(told.find("opencircuit") != std::string::npos, ocDeco) << told;
  }
}

TEST_F(WrittenFile, TellsCylindersByTheWaterThatTheyHold) {
  ProfileText profile = ReadProfileFile(SourceFolder() / "dives/nitrox.tav");
  // An 80 cubic foot cylinder rated at 3000 psi holds 11.097 l of water.
  profile.dives.front().Template.Cylinders = {{"EAN32", 2, 12, 0, 200, 50}, {"Air", 1, 80, 3000, 2900, 500}};
  Load(profile);
  std::vector<std::string> tanks;
  for (const pugi::xml_node tank : Dives().front().children("tankdata")) {
    tanks.push_back(MixName(tank.child("link").attribute("ref").value()) + " " +
                    FormatFixed(tank.child("tankvolume").text().as_double() * 1000, 3) + " " +
                    FormatFixed(tank.child("tankpressurebegin").text().as_double() / 100000, 1));
  }
  EXPECT_EQ(tanks, (std::vector<std::string>{"EAN32 12.000 200.0", "EAN32 12.000 200.0", "Air 11.097 199.9"}));
}

TEST_F(WrittenFile, ALaterDiveFollowsItsSurfaceInterval) {
  Load("dives/lake-series.tav");
  const auto before = [&](std::size_t i) { return Dives().at(i).child("informationbeforedive"); };
  EXPECT_STREQ(before(0).child_value("datetime"), "2026-05-31T23:00:00Z");
  EXPECT_TRUE(before(0).child("surfaceintervalbeforedive").child("infinity"));
  EXPECT_STREQ(before(1).child("surfaceintervalbeforedive").child_value("passedtime"), "7200");
  const ClassProfile& first = plans_.front().rows;
  EXPECT_EQ(FormatFixed(first.GetRunTime(first.GetLength()), 0), "42");
  EXPECT_STREQ(before(1).child_value("datetime"), "2026-06-01T01:42:00Z");
}

}  // namespace
}  // namespace tav
