#include "reports/information_text.h"

#include <array>
#include <cmath>

#include "model/number_text.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"

namespace tav {
namespace {

constexpr std::size_t kColumns = 80;
constexpr std::size_t kCells = 13;
constexpr std::array<std::size_t, kCells> kWidths{6, 5, 7, 4, 3, 5, 5, 5, 3, 7, 6, 6, 4};
constexpr std::size_t kStatusColumn = 12;

using Cells = std::array<std::string, kCells>;

std::string Rule(std::size_t length) { return std::string(length, '_') + "\r\n"; }

std::string Centred(const std::string& text) {
  const std::size_t length = Letters(text);
  if (length > kColumns) return text + "\r\n";
  const auto before = static_cast<std::size_t>(std::nearbyint(static_cast<double>(kColumns - length) / 2.0));
  return std::string(before + 1, ' ') + text + std::string(kColumns - before + 1, ' ') + "\r\n";
}

std::string Title(const std::string& title) { return Rule(kColumns + 1) + Centred(title) + Rule(kColumns + 1); }

std::string ThreeColumns(const std::string& first, const std::string& second, const std::string& third) {
  constexpr std::size_t kSecondAt = 19;
  constexpr std::size_t kThirdAt = 50;
  return AtLeft(AtLeft(first, kSecondAt) + second, kThirdAt) + third + "\r\n";
}

std::string TableRow(const Cells& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) line += AtLeft(cells[i], kWidths[i] + 1);
  return line + "\r\n";
}

/// A label and its value: one ": " between them, also behind a label that ends in a colon.
std::string Labelled(const std::string& label, const std::string& value) {
  return label + (label.ends_with(':') ? " " : ": ") + value;
}

/// Tables that are wider than 80 columns: a line for each gas and each leg, "Cylinders: 2 x 12 l, Fill: 200 bar, ...".
std::string SupplyText(const SupplyTables& supply) {
  std::string text;
  const auto add = [&](const SupplyTables::Table& table, const std::string& title) {
    text += Title(title + ":   ");
    for (std::size_t row = 1; row < table.size(); ++row) {
      std::string line;
      for (std::size_t i = 0; i < table[row].size(); ++i) {
        const std::string piece =
            Labelled(table[0][i].text, table[row][i].text) + (i + 1 < table[row].size() ? "," : "");
        if (Letters(line) + Letters(piece) + 1 > kColumns) {
          text += line + "\r\n";
          line = "   ";
        }
        if (!line.empty()) line += " ";
        line += piece;
      }
      text += line + "\r\n";
    }
  };
  add(supply.gases, supply.gasTitle);
  if (supply.legs.size() > 1) add(supply.legs, supply.legTitle);
  if (!supply.note.empty()) text += ReplaceAll(Wrapped(supply.note, 0, kColumns), "\n", "\r\n");
  return text + Rule(kColumns);
}

}  // namespace

std::string InformationText(const ShownInformation& shown, const TextSource& texts) {
  const auto T = [&texts](int id) { return texts.GetResString(id); };
  const DiveInformation::Block& info = shown.info;
  std::string text = Title(T(Text::ReportTitle) + ":   " + shown.planCaption);
  if (!shown.notice.empty()) text += Centred("! " + shown.notice);
  text += Centred(T(Text::InfoTitle));
  text += T(Text::ReportInterval) + shown.surfaceInterval + "\r\n\r\n";

  text += ThreeColumns(Labelled(T(Text::InfoModelHead), info.model), Labelled(T(Text::InfoUnits), info.units),
                       Labelled(T(Text::ReportApparatus), info.apparatus));
  text += "\r\n";
  text += ThreeColumns(T(Text::ReportDecoSteps), T(Text::ReportConservatism), T(Text::ReportAltitude));
  text += ThreeColumns(Labelled(T(Text::TemplateStepSize), info.stepSize), " " + info.depthConservatism,
                       " " + T(Text::InfoStart) + info.startAltitude);
  text += ThreeColumns(Labelled(T(Text::InfoLastStop), info.lastStop), " " + info.gfConservatism,
                       "   " + info.startPressure);
  const std::string lowGF = info.showsGF ? "   " + Labelled(T(Text::InfoLowGF), info.lowGF) : "";
  const std::string highGF = info.showsGF ? "   " + Labelled(T(Text::InfoHighGF), info.highGF) : "";
  text += ThreeColumns("", lowGF, " " + T(Text::InfoSurface) + info.endAltitude);
  text += ThreeColumns("", highGF, "    " + info.endPressure);
  text += Labelled(T(Text::ReportO2Narcotic), info.o2Narcotic) + "\r\n\r\n\r\n";

  text += Title(T(Text::InfoProfile));
  text += TableRow({T(Text::ReportDepth), T(Text::CopiedTime), T(Text::InfoRunTime), "%O2", "%He", T(Text::ReportPPO2),
                    T(Text::ReportCNS), T(Text::ReportOTU), T(Text::ReportEND), T(Text::InfoUsed), T(Text::InfoMValue),
                    T(Text::InfoGF), T(Text::InfoModelHead)});
  const auto rows = [](const DiveInformation::Table& table, auto cellsOf) {
    std::string lines;
    for (std::size_t row = 1; row < table.size(); ++row) lines += TableRow(cellsOf(table[row]));
    return lines;
  };
  text += rows(shown.profile, [](const std::vector<GridCell>& row) {
    Cells cells;
    std::size_t at = 0;
    for (std::size_t column = 0; column < row.size(); ++column) {
      if (column != kStatusColumn) cells.at(at++) = row[column].text;
    }
    return cells;
  });

  text += Title(T(Text::TemplateDecoStep) + ":   ");
  text += TableRow({T(Text::ReportDepth), T(Text::CopiedTime), T(Text::InfoRunTime), "%O2", "%He"});
  text += rows(shown.decoStops, [](const std::vector<GridCell>& row) {
    Cells cells;
    for (std::size_t column = 0; column < row.size(); ++column) cells.at(column) = row[column].text;
    return cells;
  });
  text += Rule(kColumns);

  text += Title(T(Text::InfoGasUse) + ":   ");
  text += TableRow({T(Text::InfoGas), "", T(Text::ReportTotal)});
  text += rows(shown.gas, [](const std::vector<GridCell>& row) { return Cells{row[0].text, "", row[1].text}; });
  text += Rule(kColumns);
  if (!shown.supply.gases.empty()) text += SupplyText(shown.supply);
  return text;
}

}  // namespace tav
