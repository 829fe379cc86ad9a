#include "mixer/fill_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mixer/gauge_list.h"
#include "start/language_table.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

const LanguageTable& German() {
  static const LanguageTable table = LanguageTable::Read(SourceFolder() / "lang/TAV_de.dll");
  return table;
}

FillRequest Empty() {
  FillRequest request{kAir, 1, {}, 0};
  request.top = {32, 0, 68};
  return request;
}

TEST(FillSteps, AreReadAsDiversWriteThem) {
  const struct {
    const char* text;
    const char* read;
  } cases[] = {
      {"he@67 o2@86.5 air@220", "0/100@67 100/0@86.5 21/0@220"},
      {" He@67;O2@86,air@220, ", "0/100@67 100/0@86 21/0@220"},
      {"he@66,9 o2@86,4,air@220", "0/100@66.9 100/0@86.4 21/0@220"},  // decimal commas
      {"Helium@67 Sauerstoff@86 Luft@220", "0/100@67 100/0@86 21/0@220"},
      {"top@100 ean36@150 Tx18/45@200 20,5/30@210", "32/0@100 36/0@150 18/45@200 20.5/30@210"},
      {"he@67 o2@60", Numbered("{StepsMustRise} (o2@60, 67, 1000)")},
      {"he@1", Numbered("{StepsMustRise} (he@1, 1, 1000)")},
      {"air@1001", Numbered("{StepsMustRise} (air@1001, 1, 1000)")},
      {"air@nan", Numbered("{StepsForm} (air@nan)")},
      {"neon@50", Numbered("{StepsForm} (neon@50)")},
      {"60/50@50", Numbered("{StepsForm} (60/50@50)")},
      {"he 67", Numbered("{StepsForm} (he)")},
      {"he@", Numbered("{StepsForm} (he@)")},
      {" , ", Numbered("{StepsForm} ( , )")},
  };
  for (const auto& [text, read] : cases) {
    std::string told;
    try {
      for (const DoneStep& step : ParseSteps(text, Empty(), German(), {",", "."})) {
        told += (told.empty() ? "" : " ") + FormatPlain(step.gas.O2) + "/" + FormatPlain(step.gas.He) + "@" +
                FormatPlain(step.to);
      }
    } catch (const MessageError& error) {
      told = error.Reason().Raw();
    }
    EXPECT_EQ(told, read) << text;
  }
}

// The steps of the list, done, give what the list says; those of another equation do not.
TEST(FillSteps, GiveWhatTheListSays) {
  FillRequest request{kAir, 1, {21, 35, 44}, 220};
  const GaugeList list = GaugeListOf(request, 1);
  const auto mixAfter = [&](const std::string& steps) {
    return MixesAfter(ParseSteps(steps, request, German(), {}), request).back();
  };
  const MixShares done = mixAfter("he@73 o2@93 air@220");
  EXPECT_NEAR(done.O2, list.comesOut.O2, 1e-3);
  EXPECT_NEAR(done.He, list.comesOut.He, 1e-3);
  const MixShares short_ = mixAfter("he@66.9 o2@86.4 air@220");
  EXPECT_NEAR(short_.O2, 21.3, 0.05);
  EXPECT_NEAR(short_.He, 32.2, 0.05);
}

}  // namespace
}  // namespace tav
