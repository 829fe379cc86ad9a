#include <functional>
#include <tuple>

#include "dialogs/gas_blend.h"
#include "dialogs/properties_fixture.h"
#include "support/text_names.h"

namespace tav {
namespace {

TEST_F(Properties, ARowNotGivenYetIsEmptyAndRefused) {
  frmProperties& f = Show();
  f.rates.fgDescend.Select(1, 0);
  f.rates.fgDescend.OpenMenu();
  f.AddRow.Choose();
  EXPECT_EQ(f.rates.fgDescend.Text(2, 0) + f.rates.fgDescend.Text(2, 1), "");
  EXPECT_EQ(f.rates.fgDescend.SelectedRow, 2);
  f.units.Option1_0.Choose();
  EXPECT_EQ(f.rates.fgDescend.Text(2, 0), "");
  f.cbOK.Press();
  EXPECT_TRUE(f.IsLoaded());
  EXPECT_EQ(d.platform.LastBox().icon, BoxIcon::Stop);
  EXPECT_EQ(d.platform.LastBox().text, Numbered("<TemplateDescentRates>, 2: <CellNotGiven>"));
  EXPECT_TRUE(Template().Metric) << "nothing is stored";
  f.rates.fgDescend.Edit(2, 0, "66 ft");
  f.rates.fgDescend.Edit(2, 1, "30");
  f.cbOK.Press();
  EXPECT_FALSE(f.IsLoaded());
  ASSERT_EQ(Template().DescendRates.size(), 2U);
  EXPECT_EQ(double{Template().DescendRates[1].Depth}, 66);
}

TEST_F(Properties, AFileMayHoldAMarkInPlaceOfANumber) {
  Template().DescendRates.push_back({kNotGiven, kNotGiven});
  Template().ChangeGasMixes[0].Depth = kNotGiven;
  frmProperties& f = Show();
  EXPECT_EQ(f.rates.fgDescend.Text(2, 0) + f.rates.fgDescend.Text(2, 1) + f.stops.fgGasChange.Text(1, 0), "");
  f.stops.cbAutoDecoGas.Set(true);
  f.stops.cbAutoDecoGas.Set(false);
  EXPECT_EQ(f.stops.fgGasChange.Text(1, 0), "");
}

TEST_F(Properties, RowsAreAddedAndRemovedByButtonsAndKeys) {
  frmProperties& f = Show();
  struct {
    Grid& grid;
    std::function<void()> add, remove;
  } const cases[] = {
      {f.rates.fgDescend, [&] { f.rates.cbAddDescend.Press(); }, [&] { f.rates.cbDelDescend.Press(); }},
      {f.rates.fgAscend, [&] { f.rates.cbAddAscend.Press(); }, [&] { f.rates.cbDelAscend.Press(); }},
      {f.stops.fgGasChange, [&] { f.stops.cbAddChange.Press(); }, [&] { f.stops.cbDelChange.Press(); }},
      {f.rates.fgAscend, [&] { f.rates.fgAscend.PressInsert(); }, [&] { f.rates.fgAscend.PressDelete(); }},
      {f.stops.fgGasChange, [&] { f.stops.fgGasChange.PressInsert(); }, [&] { f.stops.fgGasChange.PressDelete(); }}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.grid.Name());
    const int rows = each.grid.Rows();
    each.grid.Select(1, 0);
    each.add();
    EXPECT_EQ(each.grid.Rows(), rows + 1);
    EXPECT_EQ(each.grid.SelectedRow, rows) << "the new row is the one to type into";
    each.remove();
    EXPECT_EQ(each.grid.Rows(), rows);
  }
  f.stops.cbAutoDecoGas.Set(true);
  EXPECT_FALSE(f.stops.cbAddChange.Enabled || f.stops.cbDelChange.Enabled);
  const int changes = f.stops.fgGasChange.Rows();
  f.stops.fgGasChange.PressInsert();
  f.stops.fgGasChange.PressDelete();
  EXPECT_EQ(f.stops.fgGasChange.Rows(), changes);
  const int gases = f.gases.FgGas.Rows();
  f.gases.FgGas.Select(FindBlendIndex("EAN32", Template()) + 1, 0);
  f.gases.cbDelGas.Press();
  EXPECT_EQ(f.gases.FgGas.Rows(), gases - 1);
}

TEST_F(Properties, RowsArePutInOrderAtOK) {
  frmProperties& f = Show();
  for (const auto& [depth, rate] : {std::pair("40", "15"), std::pair("20", "12")}) {
    f.rates.cbAddDescend.Press();
    f.rates.fgDescend.Edit(f.rates.fgDescend.Rows() - 1, 0, depth);
    f.rates.fgDescend.Edit(f.rates.fgDescend.Rows() - 1, 1, rate);
  }
  f.stops.cbAddChange.Press();
  f.stops.fgGasChange.Edit(f.stops.fgGasChange.Rows() - 1, 0, "12");
  f.cbOK.Press();
  ASSERT_FALSE(f.IsLoaded()) << d.platform.LastBox().text;
  std::string order;
  for (const RateEntry& entry : Template().DescendRates)
    order += FormatPlain(entry.Depth) + ":" + FormatPlain(entry.Rate) + " ";
  for (const GasChange& change : Template().ChangeGasMixes)
    order += FormatPlain(change.Depth) + " " + change.Name + " ";
  EXPECT_EQ(order, "0:18 20:12 40:15 6 Oxygen 12 Air 21 EAN50 ");
  // Two rates for one depth are no order.
  Show().rates.fgDescend.Edit(2, 0, "40");
  form->cbOK.Press();
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(Properties, HeadsTellTheUnits) {
  frmProperties& f = Show();
  const auto heads = [&] {
    std::string all;
    for (const Grid* grid : {&f.rates.fgDescend, &f.rates.fgAscend, &f.stops.fgGasChange})
      all += grid->Text(0, 0) + grid->Text(0, 1);
    return all;
  };
  EXPECT_EQ(heads(), Numbered("<TemplateDepth> <InMetres><TemplateRate> <InMetresPerMin>"
                              "<TemplateAscentDepth> <InMetres><TemplateRate> <InMetresPerMin>"
                              "<TemplateDepth> <InMetres><TemplateGasMix>"));
  f.units.Option1_0.Choose();
  EXPECT_EQ(heads(), Numbered("<TemplateDepth> <InFeet><TemplateRate> <InFeetPerMin>"
                              "<TemplateAscentDepth> <InFeet><TemplateRate> <InFeetPerMin>"
                              "<TemplateDepth> <InFeet><TemplateGasMix>"));
}

TEST_F(Properties, ACellThatIsSetToSomethingElseIsTold) {
  frmProperties& f = Show();
  for (const auto& [typed, becomes, told] :
       {std::tuple("8", "8", false), std::tuple("8 m/min", "8", false), std::tuple("", "", false),
        std::tuple("fast", "10", true), std::tuple("-7", "7", true)}) {
    d.platform.boxes.clear();
    f.rates.fgAscend.Edit(2, 1, typed);
    EXPECT_EQ(f.rates.fgAscend.Text(2, 1), becomes);
    const std::string& fault = f.rates.fgAscend.Cells.Get()[2][1].fault;
    EXPECT_EQ(!fault.empty(), told) << typed;
    EXPECT_TRUE(d.platform.boxes.empty()) << "in place, until OK";
    if (!told) continue;
    f.cbOK.Press();
    EXPECT_TRUE(f.IsLoaded());
    EXPECT_NE(d.platform.LastBox().text.find(fault), std::string::npos);
  }
}

TEST_F(Properties, FirstRowsStay) {
  frmProperties& f = Show();
  f.rates.fgAscend.Edit(1, 0, "3");
  EXPECT_EQ(f.rates.fgAscend.Text(1, 0), "0");
  EXPECT_EQ(d.platform.boxes.size(), 1U);
  for (Grid* grid : {&f.rates.fgDescend, &f.rates.fgAscend, &f.stops.fgGasChange, &f.gases.FgGas}) {
    const int rows = grid->Rows();
    grid->Select(1, 0);
    grid->OpenMenu();
    f.DelRow.Choose();
    EXPECT_EQ(grid->Rows(), rows) << grid->Name();
  }
  EXPECT_EQ(d.platform.boxes.size(), 5U);
  f.rates.fgAscend.Select(2, 0);
  f.rates.fgAscend.OpenMenu();
  f.DelRow.Choose();
  EXPECT_EQ(f.rates.fgAscend.Rows(), 2);
}

TEST_F(Properties, AGasGoesWithItsChangeUnlessThePlanOrTheLastChangeNeedsIt) {
  frmProperties& f = Show();
  const auto remove = [&](const std::string& name) {
    for (int row = 1; row < f.gases.FgGas.Rows(); ++row) {
      if (f.gases.FgGas.Text(row, 0) == name) f.gases.FgGas.Select(row, 0);
    }
    f.gases.FgGas.OpenMenu();
    f.DelRow.Choose();
  };
  EXPECT_FALSE(f.AddRow.Visible && f.gases.FgGas.Rows() == 0);
  const int gases = f.gases.FgGas.Rows();
  remove("EAN50");
  EXPECT_EQ(f.gases.FgGas.Rows(), gases - 1);
  EXPECT_EQ(f.stops.fgGasChange.Rows(), 2);
  remove("Oxygen");
  EXPECT_EQ(f.gases.FgGas.Rows(), gases - 1) << "the only gas change names it";
  ASSERT_TRUE(d.forms(d.Active()).AddUserWaypoint(30, 20, 0));
  remove("EAN32");
  EXPECT_EQ(f.gases.FgGas.Rows(), gases - 1) << "the plan holds numbers of gases";
}

TEST_F(Properties, HandsTheChosenGasToTheMixerAsTheListShowsIt) {
  std::vector<std::pair<double, double>> handed;
  DialogServices services = d.Services();
  services.openMixer = [&](Single o2, Single he) { handed.emplace_back(o2, he); };
  frmProperties f(services);
  f.Load();
  EXPECT_FALSE(f.gases.Command1.Visible);
  const int row = FindBlendIndex("Tx18/45", Template()) + 1;
  f.gases.FgGas.Select(row, 0);
  f.gases.Command1.Press();
  f.gases.FgGas.Edit(row, 1, "20");
  f.gases.Command1.Press();
  EXPECT_EQ(handed, (std::vector<std::pair<double, double>>{{18, 45}, {20, 45}}));
}

TEST_F(Properties, AutomaticDepthsFollowTheDecoPPO2) {
  frmProperties& f = Show();
  const std::string before = f.stops.fgGasChange.Text(1, 0);
  f.stops.cbAutoDecoGas.Set(true);
  // 1.6 bar of EAN50 is 3.2 bar of ambient pressure, 1.6 of oxygen 1.6: (p - 1.01325) * 10 metres.
  const auto row = [&](const std::string& gas) { return f.stops.fgGasChange.Text(1, 1) == gas ? 1 : 2; };
  EXPECT_EQ(f.stops.fgGasChange.Text(row("EAN50"), 0), "22");
  EXPECT_EQ(f.stops.fgGasChange.Text(row("Oxygen"), 0), "6");
  f.altitude.Text2.Type("3000");
  EXPECT_EQ(f.stops.fgGasChange.Text(row("EAN50"), 0), "25") << "where it is 0.715 bar";
  f.altitude.Text2.Type("0");
  f.stops.Text7.Type("1.4");
  EXPECT_EQ(f.stops.fgGasChange.Text(row("EAN50"), 0), "18");
  f.units.Option1_0.Choose();
  f.stops.fgGasChange.Edit(1, 0, "3");
  EXPECT_NE(f.stops.fgGasChange.Text(1, 0), "3") << "the depths are not typed while they are automatic";
  f.units.Option1_1.Choose();
  f.stops.cbAutoDecoGas.Set(false);
  EXPECT_EQ(f.stops.fgGasChange.Text(1, 0), before);
}

TEST_F(Properties, PercentagesAreEditedButNotThoseOfAirNorNames) {
  frmProperties& f = Show();
  f.stops.cbAutoDecoGas.Set(true);
  const int row = FindBlendIndex("EAN50", Template()) + 1;
  f.gases.FgGas.Edit(1, 1, "30");
  f.gases.FgGas.Edit(row, 0, "a:b");
  f.gases.FgGas.Edit(row, 1, "40 %");
  const int change = f.stops.fgGasChange.Text(1, 1) == "EAN50" ? 1 : 2;
  EXPECT_EQ(f.stops.fgGasChange.Text(change, 0), "30") << "1.6 bar of 40 %";
  f.cbOK.Press();
  ASSERT_FALSE(f.IsLoaded()) << d.platform.LastBox().text;
  EXPECT_EQ(double{Template().Blends[0].O2}, 21);
  const GasMix& mix = Template().Blends[static_cast<std::size_t>(row - 1)];
  EXPECT_EQ(mix.Name, "EAN50");
  EXPECT_EQ(double{mix.O2}, 40);
  EXPECT_EQ(double{Template().ChangeGasMixes[static_cast<std::size_t>(change - 1)].N2}, 60);
}

TEST_F(Properties, AMixIsAHundredPercent) {
  struct {
    std::string o2, he, n2, refusal;
  } const cases[] = {{"36", "0", "64", ""},
                     {"20", "50", "30", ""},
                     {"36", "68", "-4", Numbered("<SharesNot100>104 %")},
                     {"140", "0", "-40", Numbered("<SharesNot100>140 %")},
                     {"36,0", "1.2.3", "64", Numbered("<CellNoNumber>36,0")}};
  const int row = FindBlendIndex("EAN32", Template()) + 1;
  const std::string place = Numbered("<TemplateGases>, ") + std::to_string(row) + ": ";
  for (const auto& each : cases) {
    SCOPED_TRACE(each.o2 + " " + each.he);
    const GasMix before = Template().Blends[static_cast<std::size_t>(row - 1)];
    frmProperties& f = Show();
    f.gases.FgGas.Edit(row, 1, each.o2);
    f.gases.FgGas.Edit(row, 2, each.he);
    f.gases.FgGas.Edit(row, 3, "12");
    const bool refused = !each.refusal.empty();
    EXPECT_TRUE(refused || f.gases.FgGas.Text(row, 3) == each.n2);
    EXPECT_EQ(f.gases.FgGas.Cells.Get()[static_cast<std::size_t>(row)][1].colour, refused ? kRed : -1);
    f.cbOK.Press();
    EXPECT_EQ(f.IsLoaded(), refused);
    const GasMix& after = Template().Blends[static_cast<std::size_t>(row - 1)];
    EXPECT_EQ(double{after.N2}, refused ? double{before.N2} : std::stod(each.n2));
    EXPECT_EQ(refused ? d.platform.LastBox().text : "", refused ? place + each.refusal : "");
  }
  // A file may hold such a gas.
  Template().Blends[static_cast<std::size_t>(row - 1)] = {"EAN32", 36, 68, 0};
  Show();
  EXPECT_EQ(form->gases.FgGas.Cells.Get()[static_cast<std::size_t>(row)][1].colour, kRed);
  form->cbOK.Press();
  EXPECT_EQ(d.platform.LastBox().text, place + Numbered("<SharesNot100>104 %"));
}

TEST_F(Properties, DepthsThatAreKeptStayWithTheirGases) {
  Template().ChangeGasMixes = {{"EAN32", 0, 0, 0, 33}, {"EAN50", 0, 0, 0, 21}, {"Oxygen", 0, 0, 0, 5}};
  frmProperties& f = Show();
  f.stops.cbAutoDecoGas.Set(true);
  f.stops.fgGasChange.OpenMenu();
  EXPECT_FALSE(f.AddRow.Enabled || f.DelRow.Enabled) << "depths that follow from the gases are read only";
  f.gases.FgGas.Select(FindBlendIndex("EAN50", Template()) + 1, 0);
  f.gases.FgGas.OpenMenu();
  EXPECT_FALSE(f.AddRow.Visible);
  f.DelRow.Choose();
  f.units.Option1_0.Choose();
  f.stops.cbAutoDecoGas.Set(false);
  ASSERT_EQ(f.stops.fgGasChange.Rows(), 3);
  EXPECT_EQ(f.stops.fgGasChange.Text(1, 0), "108");
  EXPECT_EQ(f.stops.fgGasChange.Text(2, 1), "Oxygen");
  EXPECT_EQ(f.stops.fgGasChange.Text(2, 0), "16");
}

TEST_F(Properties, ATemplateWithAutomaticDepthsKeepsThoseOfTheFile) {
  Template().ChangeGasMixes = {{"EAN50", 0, 0, 0, 20}, {"Oxygen", 0, 0, 0, 0}};
  Template().AutoDecoGas = true;
  frmProperties& f = Show();
  EXPECT_EQ(f.stops.fgGasChange.Text(1, 0), "22") << "1.6 bar";
  f.stops.cbAutoDecoGas.Set(false);
  EXPECT_EQ(f.stops.fgGasChange.Text(1, 0), "20");
  EXPECT_EQ(f.stops.fgGasChange.Text(2, 0), "4") << "a depth of 0 is replaced by that of the highest PPO2, 1.4 bar";
}

TEST_F(Properties, TheRowMenuFollowsTheSelectionAfterARemoval) {
  frmProperties& f = Show();
  f.rates.fgAscend.Select(1, 0);
  f.rates.fgAscend.OpenMenu();
  f.AddRow.Choose();
  f.rates.fgAscend.Select(3, 0);
  f.DelRow.Choose();
  f.DelRow.Choose();
  EXPECT_EQ(f.rates.fgAscend.Rows(), 2) << "the row that moved into place is the selected one";
}

TEST_F(Properties, GasesOfAPlanThatCanNotBeComputedStay) {
  frmWaypointEditor& editor = d.forms(d.Active());
  ASSERT_TRUE(editor.AddUserWaypoint(30, 20, FindBlendIndex("EAN32", Template())));
  Template().StepSize = 0;
  editor.ReEvaluateUserEnteredWaypoints();
  ASSERT_EQ(editor.InputProfile.GetLength(), 0);
  frmProperties& f = Show();
  const int gases = f.gases.FgGas.Rows();
  f.gases.FgGas.Select(FindBlendIndex("EAN32", Template()) + 1, 0);
  f.gases.FgGas.OpenMenu();
  f.DelRow.Choose();
  EXPECT_EQ(f.gases.FgGas.Rows(), gases);
}

TEST_F(Properties, ACustomBlendJoinsTheGasesAtOnce) {
  frmProperties& f = Show();
  d.platform.onModal.emplace_back([](Form& shown) {
    auto& blend = dynamic_cast<frmGasBlend&>(shown);
    blend.tbBlendName.Type("Deep");
    blend.tbO2.Type("12");
    blend.tbO2.Leave();
    blend.tbHe.Type("60");
    blend.tbHe.Leave();
    blend.cbOK.Press();
  });
  const int row = FindBlendIndex("EAN32", Template()) + 1;
  f.gases.FgGas.Edit(row, 1, "36");
  f.gases.cbCustomBlend.Press();
  EXPECT_EQ(f.gases.FgGas.Text(row, 1), "36") << "what was typed stays";
  const int last = f.gases.FgGas.Rows() - 1;
  EXPECT_EQ(f.gases.FgGas.Text(last, 0) + f.gases.FgGas.Text(last, 1) + f.gases.FgGas.Text(last, 2) +
                f.gases.FgGas.Text(last, 3),
            "Deep126028");
  EXPECT_EQ(f.stops.fgGasChange.EditorOf(1, 1).entries.back(), "Deep");
  f.cbCancel.Press();
  EXPECT_EQ(Template().Blends.back().Name, "Deep");
}

TEST(PurgeNumericInput, KeepsTheNumberOfATypedText) {
  const LocaleSeparators english{".", ","};
  const LocaleSeparators german{",", "."};
  struct {
    std::string typed;
    LocaleSeparators separators;
    std::string kept;
  } const cases[] = {{"18 m/min", english, "18"}, {"word", english, "10"},    {"  ", english, ""},
                     {"-4.5", english, "4.5"},    {"1,500", english, "1500"}, {"1,5", english, "1,5"},
                     {"1.500", german, "1500"},   {"2.6", german, "2,6"},     {"2,6", german, "2,6"}};
  for (const auto& each : cases) {
    EXPECT_EQ(TemplateTable::PurgeNumericInput(each.typed, each.separators), each.kept) << each.typed;
  }
}

}  // namespace
}  // namespace tav
