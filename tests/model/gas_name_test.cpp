#include "model/gas_name.h"

#include <gtest/gtest.h>

namespace tav {
namespace {

TEST(GasName, IsKnownInAnyCaseAndFormOfItsNumbers) {
  struct {
    const char* typed;
    const char* name;
    double o2, he;
  } const cases[] = {{"air", "Air", 21, 0},
                     {"OXYGEN", "Oxygen", 100, 0},
                     {"ean32", "EAN32", 32, 0},
                     {"EAN032", "EAN32", 32, 0},
                     {"Ean32.50", "EAN32.5", 32.5, 0},
                     {"TX18/45", "Tx18/45", 18, 45},
                     {"tx018/045", "Tx18/45", 18, 45},
                     {"h85", "H85", 15, 85}};
  for (const auto& each : cases) {
    const auto mix = MixOfName(each.typed);
    ASSERT_TRUE(mix) << each.typed;
    EXPECT_EQ(mix->Name, each.name);
    EXPECT_EQ(double{mix->O2}, each.o2);
    EXPECT_EQ(double{mix->He}, each.he);
    EXPECT_EQ(double{mix->O2 + mix->He + mix->N2}, 100);
  }
  for (const char* none : {"", "ean", "EAN0", "EAN101", "Tx18", "Tx60/50", "h100", "bottom gas"}) {
    EXPECT_FALSE(MixOfName(none)) << none;
  }
}

TEST(GasName, ThatOfATemplateComesFirst) {
  DiveTemplate t;
  t.Blends = {AirMix(), {"EAN032", 32, 68, 0}, {"Deep", 12, 28, 60}};
  for (const auto& [typed, name] :
       {std::pair("EAN032", "EAN032"), std::pair("ean032", "EAN032"), std::pair("deep", "Deep"),
        std::pair("AIR", "Air"), std::pair("ean050", "EAN50"), std::pair("other", "other")}) {
    EXPECT_EQ(NameInTemplate(typed, t), name);
  }
}

}  // namespace
}  // namespace tav
