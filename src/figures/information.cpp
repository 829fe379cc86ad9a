#include "figures/information.h"

#include "figures/model_name.h"
#include "figures/settings_words.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr StatusTexts kStatus{Text::InfoKinds, {}, Text::InfoAscent, Text::InfoDescent};

GridCell Plain(std::string text) { return {std::move(text)}; }

GridCell Marked(std::string text, bool mark) {
  GridCell cell{std::move(text)};
  if (mark) {
    cell.colour = kRed;
    cell.bold = true;
  }
  return cell;
}

}  // namespace

std::vector<GridCell> DiveInformation::Heads(const std::vector<std::string>& heads) const {
  std::vector<GridCell> cells;
  cells.reserve(heads.size());
  for (const std::string& head : heads) cells.push_back({head});
  return cells;
}

GridCell DiveInformation::PPO2Cell(const Waypoint& row, bool deco) const {
  const Single highest = deco ? template_.DecoPPO2 : template_.MaxPPO2;
  GridCell cell = Marked(numbers_.Fixed(row.PPO2, 2), row.PPO2 > highest || row.PPO2 < template_.MinPPO2);
  cell.italic = cell.bold && deco;
  return cell;
}

DiveInformation::Table DiveInformation::Profile() const {
  const Single kENDNoise = 0.1;
  Table table{Heads({T(Text::InfoDepth), T(Text::InfoTime), T(Text::InfoRun), "%O2", "%He", T(Text::ReportPPO2),
                     T(Text::InfoCNS), T(Text::InfoOTU), T(Text::InfoEND), T(Text::InfoUsed), T(Text::InfoMValue),
                     T(Text::InfoGF), T(Text::InfoStatus), T(Text::InfoModelHead)})};
  bool deco = false;
  std::string model;
  for (std::int16_t i = 0; i <= profile_.GetLength(); ++i) {
    const Waypoint& row = profile_.Row(i);
    deco = deco || IsStop(row);
    const Single cns = row.CNS * 100;
    const bool showsGF = GradientFactorsAct(template_, model_) && row.GF != 1.0;
    const bool highGF = showsGF && row.GF > 1.0;
    if (const auto own = ModelOfRow(row, model_)) model = *own;
    const auto status = StatusTextOf(row, kStatus);
    table.push_back({Plain(numbers_.Fixed(row.Depth, 1)), Plain(numbers_.Fixed(row.SegmentTime, 1)),
                     Plain(numbers_.Fixed(row.RunTime, 1)), Plain(numbers_.Fixed(row.GasMixO2, 0)),
                     Plain(numbers_.Fixed(row.GasMixHe, 0)), PPO2Cell(row, deco),
                     Marked(numbers_.Fixed(cns, 1), cns > 100), Plain(numbers_.Fixed(row.OTU, 1)),
                     Marked(numbers_.Fixed(row.END, 0), RoundSingle(row.END - template_.MaximalEND, 3) > kENDNoise),
                     Plain(template_.OpenCircuit ? numbers_.Fixed(row.GasUsed, 1) : "--   "),
                     Plain(row.MaxMValue == 0 ? "" : numbers_.Fixed(Single(row.MaxMValue * 100), 1)),
                     Marked(showsGF ? numbers_.Fixed(Single(row.GF * 100), highGF ? 0 : 1) : "", highGF),
                     Plain(status ? T(*status) : ""), Plain(model)});
  }
  return table;
}

DiveInformation::Table DiveInformation::DecoStops() const {
  Table table{Heads({T(Text::InfoDepth), T(Text::InfoStop), T(Text::InfoRun), "O2%", "He%"})};
  for (std::int16_t i = 1; i <= profile_.GetLength(); ++i) {
    const Waypoint& row = profile_.Row(i);
    if (!IsStop(row)) continue;
    table.push_back({Plain(numbers_.Fixed(row.StopDepth, 1)), Plain(numbers_.Fixed(row.StopTime, 1)),
                     Plain(numbers_.Fixed(row.RunTime, 0)), Plain(numbers_.Fixed(row.GasMixO2, 0)),
                     Plain(numbers_.Fixed(row.GasMixHe, 0))});
  }
  return table;
}

DiveInformation::Table DiveInformation::Gas() const {
  Table table{Heads({T(Text::InfoGas), T(Text::InfoUsed)})};
  for (const GasTotal& gas : GasTotals(profile_, template_)) {
    table.push_back({Plain(gas.Name), Plain(numbers_.Fixed(gas.total, 1))});
  }
  return table;
}

DiveInformation::Table DiveInformation::Summary() const {
  const auto row = [](const std::string& left, GridCell leftValue, const std::string& right, GridCell rightValue) {
    return std::vector<GridCell>{{left, -1, true}, std::move(leftValue), {right, -1, true}, std::move(rightValue)};
  };
  const DiveFigures figures = FiguresOf(profile_);
  const bool any = profile_.GetLength() > 0;
  const auto value = [&](Single number, int decimals, bool mark = false) {
    return any ? Marked(numbers_.Fixed(number, decimals), mark) : GridCell();
  };
  Table table{
      row(T(Text::InfoRunTime), value(figures.runTime, 1), T(Text::InfoStopTime), value(figures.stopTime, 1)),
      row(T(Text::InfoTotalCNS), value(figures.CNS * 100, 1), T(Text::InfoTotalOTU), value(figures.OTU, 1)),
      row(T(Text::InfoMaxPPO2), value(figures.highestPPO2, 2, figures.highestPPO2 > template_.MaxPPO2),
          T(Text::InfoMinPPO2), value(figures.lowestPPO2, 2, figures.lowestPPO2 < template_.MinPPO2)),
      row(T(Text::InfoMaxEND), value(figures.highestEND, 1, figures.highestEND > template_.MaximalEND),
          T(Text::InfoSetpoint), value(template_.Setpoint, 1)),
      row(T(Text::InfoRMV), value(template_.RMV, 1), T(Text::InfoMaxDepth), value(figures.deepest, 1)),
      row(T(Text::InfoDecoRMV), value(template_.DecoRMV, 1), T(Text::InfoDecoPPO2), value(template_.DecoPPO2, 2))};
  if (any && CarriesDoses(figures)) {
    table.insert(table.begin() + 2, row(T(Text::InfoCarried), value(figures.carriedCNS * 100, 1), T(Text::InfoCarried),
                                        value(figures.carriedOTU, 1)));
  }
  return table;
}

DiveInformation::Block DiveInformation::Info() const {
  const DiveTemplate& t = template_;
  const auto onOff = [this](bool on) { return on ? T(Text::InfoOn) + " " : T(Text::InfoOff); };
  const std::string length = t.Metric ? " m" : " ft";
  const std::string pressure = t.Metric ? " bar" : " ata";
  Block block;
  const bool actingGF = GradientFactorsAct(t, model_);
  block.model = ModelName(model_);
  block.depthConservatism = T(Text::InfoOfDepth) + " " + T(Text::InfoConservatism) + ": " + onOff(t.DepthAdjust);
  block.gfConservatism = T(Text::InfoOfGF) + " " + T(Text::InfoConservatism) + ": " + onOff(actingGF);
  block.showsGF = actingGF;
  block.highGF = numbers_.Fixed(t.GFHigh, 2);
  block.lowGF = numbers_.Fixed(t.GFLow, 2);
  block.highGFAboveOne = t.GFHigh > 1.0;
  block.units = T(t.Metric ? Text::InfoMetric : Text::InfoImperial);
  block.startAltitude = numbers_.Fixed(t.StartAltitude, 0) + length;
  block.endAltitude = numbers_.Fixed(t.EndAltitude, 0) + length;
  block.startPressure = numbers_.Fixed(t.StartPressure, 3) + pressure;
  block.endPressure = numbers_.Fixed(t.EndPressure, 3) + pressure;
  block.stepSize = numbers_.Plain(RoundSingle(t.StepSize, 1)) + length;
  block.lastStop = numbers_.Plain(RoundSingle(t.LastStop, 1)) + length;
  block.apparatus =
      t.OpenCircuit ? T(Text::InfoOpenCircuit) : T(Text::InfoConstantPPO2) + ", " + LoopState(t, repetitive_, texts_);
  block.o2Narcotic = T(t.O2Narcotic ? Text::Yes : Text::No);
  return block;
}

}  // namespace tav
