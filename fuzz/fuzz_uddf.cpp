#include <cmath>

#include "exchange/import.h"
#include "exchange/uddf_export.h"
#include "fuzz_support.h"
#include "model/template_faults.h"
#include "persist/template_file.h"

using namespace tav;

namespace {

std::optional<ImportedDives> Read(const std::string& text, bool csv) {
  const TextSource texts;
  const DiveTemplate settings = ShippedDefaultTemplate();
  try {
    return csv ? ImportCsv("input.csv", text, settings, texts) : ImportUddf("input.uddf", text, settings, 0, texts);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

}  // namespace

// Any text gives plans that can be planned, or an error; what comes out is written as UDDF and read again unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const bool csv = data[0] >= '0' && data[0] <= '9';
  const auto imported = Read(ToUtf8(std::string(fuzz::Text(data, size))), csv);
  if (!imported) return 0;
  fuzz::Require(!imported->profile.dives.empty(), "an import has dives");
  for (const DiveRecord& dive : imported->profile.dives) {
    fuzz::Require(TemplateFaults(dive.Template).empty(), "its settings can be planned on");
    fuzz::Require(PlanFaults(dive.UserActions, dive.Template).empty(), "its legs can be planned");
  }
  if (!fuzz::IsSmall(imported->profile.dives, 20)) return 0;
  EngineObserver silent;
  const std::vector<ComputedPlan> plans = ComputeSeries(imported->profile.dives, {}, silent);
  const std::string uddf = WriteUddf(PlannedSeries(imported->profile.dives, plans), {"", {}});
  const auto again = Read(uddf, false);
  fuzz::Require(again.has_value(), "what is written is read");
  fuzz::Require(WriteProfileText(again->profile.dives) == WriteProfileText(imported->profile.dives), "it is the same");
  return 0;
}
