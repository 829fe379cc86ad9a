#include "dialogs/properties_rates.h"

#include <algorithm>

#include "model/text_id.h"

namespace tav {

RatesPage::RatesPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame13", Text::TemplateRates) {
  Texts({{&Frame7, Text::TemplateDescentRates}, {&Frame6, Text::TemplateAscentRates}});
  Wire(fgDescend, descend_);
  Wire(fgAscend, ascend_);
  descend_.WireRows(&cbAddDescend, cbDelDescend);
  ascend_.WireRows(&cbAddAscend, cbDelAscend);
}

void RatesPage::Wire(Grid& grid, TemplateTable& table) {
  using Kind = Grid::Editor::Kind;
  grid.EditorOf = [](int row, int) { return Grid::Editor{row > 0 ? Kind::Text : Kind::None, {}}; };
  grid.Commit = [this, &table](int row, int column, const std::string& text) {
    // The tables begin at the surface.
    if (row == 1 && column == 0 && TemplateTable::PurgeNumericInput(text, platform_.separators) != "0") {
      table.Refuse(Text::TemplateDepthStays);
    } else {
      table.CommitNumber(row, column, text);
    }
  };
}

void RatesPage::Fill() {
  const auto fill = [](Grid& grid, const TemplateTable& table, const std::vector<RateEntry>& rates) {
    std::vector<std::vector<std::string>> rows{{"", ""}};
    for (const RateEntry& entry : rates) rows.push_back({table.Cell(entry.Depth), table.Cell(entry.Rate)});
    grid.SetRows(rows);
  };
  fill(fgDescend, descend_, sheet_.Template().DescendRates);
  fill(fgAscend, ascend_, sheet_.Template().AscendRates);
}

void RatesPage::ShowUnits() {
  const std::string depth = " " + T(sheet_.metric ? Text::InMetres : Text::InFeet);
  const std::string rate = " " + T(sheet_.metric ? Text::InMetresPerMin : Text::InFeetPerMin);
  for (const auto& [grid, head] :
       {std::pair(&fgDescend, Text::TemplateDepth), std::pair(&fgAscend, Text::TemplateAscentDepth)}) {
    grid->SetText(0, 0, T(head) + depth);
    grid->SetText(0, 1, T(Text::TemplateRate) + rate);
  }
}

void RatesPage::Convert(double length) {
  descend_.Scale(length, 2, false);
  ascend_.Scale(length, 2, true);
}

std::string RatesPage::Fault() const {
  const std::string fault = descend_.Fault(Frame7.Caption);
  return fault.empty() ? ascend_.Fault(Frame6.Caption) : fault;
}

std::vector<RateEntry> RatesPage::Rates(const Grid& grid, const TemplateTable& table) {
  std::vector<RateEntry> rates;
  for (int row = 1; row < grid.Rows(); ++row) rates.push_back({table.Stored(row, 1), table.Stored(row, 0)});
  // Of two rows of one depth none is ahead: they are refused.
  std::stable_sort(rates.begin(), rates.end(), [](const auto& a, const auto& b) { return a.Depth < b.Depth; });
  return rates;
}

void RatesPage::Store(DiveTemplate& t) {
  t.DescendRates = Rates(fgDescend, descend_);
  t.AscendRates = Rates(fgAscend, ascend_);
}

}  // namespace tav
