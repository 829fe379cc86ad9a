#include "model/gas_name.h"

#include <gtest/gtest.h>

#include "model/text_id.h"

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

TEST(GasName, IsTypedInShortOrInWords) {
  for (const auto& [typed, name] :
       {std::pair("28", "EAN28"), std::pair(" ean 28 ", "EAN28"), std::pair("Nitrox 32.5", "EAN32.5"),
        std::pair("21", "Air"), std::pair("100%", "Oxygen"), std::pair("o2", "Oxygen"), std::pair("20/40", "Tx20/40"),
        std::pair("trimix 18 / 45", "Tx18/45"), std::pair("Heliox 21/79", "H79"), std::pair("32/0", "EAN32"),
        std::pair("Tx21/79", "Tx21/79")}) {
    const auto gas = GasFromName(typed);
    EXPECT_TRUE(gas && TypedGasFault(typed).IsEmpty()) << typed;
    EXPECT_EQ(gas.value_or(GasMix{}).Name, name);
  }
  for (const auto& [typed, why] : {std::pair("20/90", Text::GasOverHundred), std::pair("EAN101", Text::GasOverHundred),
                                   std::pair("0/50", Text::GasWithoutOxygen), std::pair("EAN32,5", Text::GasNameFault),
                                   std::pair("20:40", Text::GasNameFault), std::pair("bottom gas", Text::NoSuchGas),
                                   std::pair("20/-5", Text::NoSuchGas), std::pair("Tx18", Text::NoSuchGas),
                                   std::pair("heliox 21", Text::NoSuchGas), std::pair("", Text::NoSuchGas)}) {
    EXPECT_FALSE(GasFromName(typed)) << typed;
    EXPECT_EQ(TypedGasFault(typed).text, why) << typed;
  }
}

TEST(GasName, ThatOfAPlanComesFirstAndOthersAreAdded) {
  const std::vector<GasMix> had = {AirMix(), {"EAN032", 32, 68, 0}, {"Deep", 12, 28, 60}, {"EAN50", 50, 50, 0}};
  for (const auto& [typed, number] :
       {std::pair("EAN032", 1), std::pair("ean032", 1), std::pair("deep", 2), std::pair("AIR", 0),
        std::pair("ean050.0", 3), std::pair("50", 3), std::pair("20/40", 4)}) {
    std::vector<GasMix> gases = had;
    EXPECT_EQ(TakeGas(typed, gases, GasFromName), number) << typed;
    EXPECT_EQ(gases.size(), number == 4 ? 5U : 4U) << typed;
  }
  std::vector<GasMix> gases = had;
  EXPECT_FALSE(TakeGas("other", gases) || TakeGas("20/40", gases));
}

}  // namespace
}  // namespace tav
