#include "fuzz_support.h"
#include "model/template_faults.h"
#include "persist/template_file.h"

using namespace tav;

// Any text gives a template or an error, and what was read of a template is written and read again unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = ToUtf8(std::string(fuzz::Text(data, size)));
  const auto read = [](std::string_view from) {
    return fuzz::ReadBothWays([&](FormatFaults& faults) {
      DiveTemplate record = ShippedDefaultTemplate();
      ReadTemplateText(record, from, faults);
      return record;
    });
  };
  const auto record = read(text);
  if (!record) return 0;
  const std::string written = WriteTemplateBlock(*record);
  const auto again = read(written);
  fuzz::Require(again.has_value(), "a written template opens");
  fuzz::Require(WriteTemplateBlock(*again) == written, "a template is written as it was read");
  fuzz::Require(TemplateFaults(*record).empty(), "what is read can be planned on");
  return 0;
}
