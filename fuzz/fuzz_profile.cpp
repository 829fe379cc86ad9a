#include <cmath>

#include "fuzz_support.h"
#include "model/template_faults.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"

using namespace tav;

namespace {

/// Run times never go back, and every number that a reader sees is one.
void RequireSoundRows(const ClassProfile& rows) {
  for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
    const Waypoint& row = rows.Row(i);
    fuzz::Require(row.RunTime >= rows.GetRunTime(static_cast<std::int16_t>(i - 1)), "run times do not go back");
    fuzz::Require(std::isfinite(row.SegmentTime) && row.SegmentTime >= 0, "a segment has a length");
    fuzz::Require(std::isfinite(row.Depth) && row.Depth >= 0, "a row has a depth");
    for (const Single value :
         {row.PPO2, row.TotalCNS, row.TotalOTU, row.END, row.GasUsed, row.Ceiling, row.MaxMValue}) {
      fuzz::Require(std::isfinite(value), "what a row tells is a number");
    }
  }
}

void Evaluate(const ProfileText& profile) {
  test::Plans plans;
  for (const std::int16_t number : OpenProfile(plans.forms, "input.tav", profile)) {
    const frmWaypointEditor& dive = plans.forms(number);
    fuzz::Require(TemplateFaults(plans.documents(number).Template).empty(), "what is read can be planned on");
    RequireSoundRows(dive.InputProfile);
  }
}

}  // namespace

// Any text gives dives or an error; what was read is written and read again unchanged, and can be computed or not with
// a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = ToUtf8(std::string(fuzz::Text(data, size)));
  const auto read = [](std::string_view from) {
    return fuzz::ReadBothWays([&](FormatFaults& faults) { return ReadProfileText(from, faults); });
  };
  const auto profile = read(text);
  if (!profile) return 0;
  fuzz::Require(!profile->dives.empty() && profile->dives.size() == profile->lines.size(), "a profile has dives");
  const std::string written = WriteProfileText(profile->dives);
  const auto again = read(written);
  fuzz::Require(again.has_value(), "a written profile opens");
  fuzz::Require(WriteProfileText(again->dives) == written, "a profile is written as it was read");
  if (fuzz::IsSmall(profile->dives, 40)) Evaluate(*profile);
  return 0;
}
