#include <cmath>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "engine/breathing_gas.h"
#include "engine/oxygen_dose.h"
#include "engine/vpm.h"
#include "model/altitude.h"
#include "model/numbers.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using nlohmann::json;

struct SmallFunction {
  const char* name;
  std::function<double(const json&)> compute;  // from the arguments, which stand first in the list
};

double N(const json& arguments, std::size_t i) { return arguments[i].get<double>(); }
bool B(const json& arguments, std::size_t i) { return arguments[i].get<bool>(); }

const SmallFunction kFunctions[] = {
    {"altitude_to_pressure", [](const json& a) { return AltitudeToPressure(N(a, 0), B(a, 1)); }},
    {"pressure_to_altitude", [](const json& a) { return PressureToAltitude(N(a, 0), B(a, 1)).value(); }},
    {"round_minutes", [](const json& a) { return RoundMinutes(N(a, 0)); }},
    {"round_single", [](const json& a) { return RoundSingle(N(a, 0), a[1].get<int>()); }},
    {"cns_for_ppo2", [](const json& a) { return CNSForPPO2(N(a, 0), N(a, 1), B(a, 2)); }},
    {"otu_for_ppo2", [](const json& a) { return OTUForPPO2(N(a, 0), N(a, 1), B(a, 2)); }},
    {"cns_on_ramp", [](const json& a) { return CNSOnRamp(N(a, 0), N(a, 1), N(a, 2), N(a, 3), N(a, 4), B(a, 5)); }},
    {"otu_on_ramp", [](const json& a) { return OTUOnRamp(N(a, 0), N(a, 1), N(a, 2), N(a, 3), N(a, 4), B(a, 5)); }},
    {"gas_used_on_ramp",
     [](const json& a) { return GasUsedOnRamp(N(a, 0), N(a, 1), N(a, 2), N(a, 3), N(a, 4), B(a, 5)); }},
    {"vpm_grad_f",
     [](const json& a) {
       ClassVPMGF vpm;
       vpm.SetVPMValues(0.0179, 0.257, 1.0, N(a, 1), B(a, 2));
       vpm.VPMStart(N(a, 0));
       return double{vpm.GetGradF()};
     }},
};

TEST(SmallFunctions, GiveTheKnownValues) {
  const json units = json::parse(std::ifstream(SourceFolder() / "tests/data/vectors/units.json"));
  for (const SmallFunction& function : kFunctions) {
    const json& cases = units[function.name];
    ASSERT_FALSE(cases.empty()) << function.name;
    for (const json& known : cases) {
      const double expected = known.back().get<double>();
      EXPECT_NEAR(function.compute(known), expected, std::max(1e-6, 1e-6 * std::fabs(expected)))
          << function.name << known.dump();
    }
  }
}

}  // namespace
}  // namespace tav
