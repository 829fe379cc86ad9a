// What a dive comes to in the long report: its sums and extremes, and its gases.

#include <array>

#include "model/text_id.h"
#include "reports/report_blocks.h"

namespace tav {
namespace {

constexpr std::array<double, 12> kGasCols{2.0, 4.0, 5.3, 7.5, 9.5, 11.0, 12.5, 15.0, 16.6, 17.9, 21.0, 24.0};
constexpr std::array<double, 16> kSummaryCols{2.0,  3.5,  5.2,  8.0,  9.5,  11.0, 12.5, 14.0,
                                              16.0, 17.5, 19.0, 20.5, 21.0, 22.0, 24.0, 27.1};

const ReportPages::Boxes kSummaryBoxes{{1.9, 7.3}, {15.3, 22.0}};
const ReportPages::Boxes kGasBoxes{{1.9, 6.8}, {10.3, 14.9}};
constexpr double kTitleX = 12.5;

class GasTable {
 public:
  GasTable(ReportPages& pages, Single y) : pages_(pages), y_(y), top_(y) {}

  Single Write() {
    Head();
    const DiveTemplate& settings = pages_.Template();
    const NumberTexts& numbers = pages_.Numbers();
    const auto totals = GasTotals(pages_.Profile(), settings);
    for (std::size_t i = 0; i < totals.size(); ++i) {
      if (y_ + ReportPages::kRow > ReportPages::kEnd) {
        pages_.Outline(top_, y_);
        pages_.NewPage();
        y_ = 4.0;
        Head();
      }
      const GasTotal& gas = totals[i];
      constexpr double kReserve = 1.5;
      pages_.RowBand(y_, static_cast<int>(i), kGasBoxes);
      pages_.InWhite([&] {
        pages_.Fitted(kGasCols[0], y_, gas.Name, 1.9, true);
        pages_.Right(kGasCols[1] + 0.6, y_, numbers.Fixed(gas.O2, 0));
        pages_.Right(kGasCols[2] + 0.5, y_, numbers.Fixed(gas.He, 0));
        pages_.Figure(kGasCols[5] + 1.2, y_, numbers.Fixed(gas.total, 1), 1.7);
        pages_.Figure(kGasCols[6] + 1.4, y_, numbers.Fixed(gas.total * kReserve, 1), 1.6);
      });
      pages_.Left(kGasCols[3], y_, numbers.Fixed(settings.RMV, 1));
      pages_.Left(kGasCols[4], y_, numbers.Fixed(settings.DecoRMV, 1));
      y_ += ReportPages::kRow;
    }
    if (totals.empty()) {
      pages_.RowBand(y_, 0, {});
      pages_.Left(kGasCols[5], y_, pages_.T(Text::ReportNoData));
      y_ += ReportPages::kRow;
    }
    pages_.Outline(top_, y_);
    return y_;
  }

 private:
  void Head() {
    const bool metric = pages_.Template().Metric;
    pages_.TitleBand(y_, 0.8, pages_.T(Text::ReportGasUse), kTitleX);
    pages_.Left(kGasCols[0] + 1.5, y_ + 1.0, pages_.T(Text::ReportGases), 10, true);
    const int rate = metric ? Text::ReportLitresPerMin : Text::ReportCubicFeetPerMin;
    const int volume = metric ? Text::ReportTotalLitres : Text::ReportTotalCubicFeet;
    pages_.Heads({{kGasCols[0], Text::ReportName},
                  {kGasCols[1] + 0.6, Text::ReportO2, 0, true},
                  {kGasCols[2] + 0.5, Text::ReportHe, 0, true},
                  {kGasCols[3], Text::ReportRMV, rate},
                  {kGasCols[4], Text::ReportDecoRMV, rate},
                  {kGasCols[5] + 1.2, Text::ReportTotal, volume, true},
                  {kGasCols[6] + 1.4, Text::ReportTotalAndHalf, volume, true}},
                 y_ + 1.5, y_ + 1.9);
    top_ = y_ + 0.8;
    y_ += 2.3;
  }

  ReportPages& pages_;
  Single y_;    ///< of the next row
  Single top_;  ///< of the table on this page
};

}  // namespace

Single WriteSummary(ReportPages& pages, Single y) {
  const NumberTexts& numbers = pages.Numbers();
  const DiveTemplate& t = pages.Template();
  const DiveFigures figures = FiguresOf(pages.Profile());
  struct Figure {
    int head;
    int unit;  // 0: none
    std::string value;
  };
  const std::array<Figure, 12> row{{
      {Text::ReportRunTime, Text::ReportSummaryMin, numbers.Fixed(figures.runTime, 1)},
      {Text::ReportStopTime, Text::ReportSummaryMin, numbers.Fixed(figures.stopTime, 1)},
      {Text::ReportMaxDepth, t.Metric ? Text::ReportSummaryMetres : Text::ReportSummaryFeet,
       numbers.Fixed(figures.deepest, 1)},
      {Text::ReportTotalCNS, 0, numbers.Fixed(Single(figures.CNS * 100), 1)},
      {Text::ReportTotalOTU, 0, numbers.Fixed(figures.OTU, 1)},
      {Text::ReportMinPPO2, 0, numbers.Fixed(figures.lowestPPO2Below, 2)},
      {Text::ReportMaxPPO2, 0, numbers.Fixed(figures.highestPPO2, 2)},
      {Text::ReportMaxEND, 0, numbers.Fixed(figures.highestEND, 1)},
      {Text::ReportSummaryUnits, 0, pages.T(t.Metric ? Text::ReportMetric : Text::ReportImperial)},
      {Text::ReportSetpoint, 0, t.OpenCircuit ? pages.T(Text::ReportNo) : numbers.Fixed(t.Setpoint, 2)},
      {Text::ReportRMV, 0, numbers.Fixed(t.RMV, 1)},
      {Text::ReportDecoRMV, 0, numbers.Fixed(t.DecoRMV, 1)},
  }};
  pages.TitleBand(y, 0.76, pages.T(Text::ReportSummary), kTitleX);
  pages.Left(kSummaryCols[0], y + 1.0, pages.T(Text::ReportDive), 10, true);
  pages.Left(kSummaryCols[3], y + 1.0, pages.T(Text::ReportOxygen), 10, true);
  pages.Left(kSummaryCols[8], y + 1.0, pages.T(Text::ReportSummarySettings), 10, true);
  const Single valuesY = y + 3.0;
  pages.RowBand(valuesY, 1, kSummaryBoxes);
  const bool any = pages.Profile().GetLength() > 0;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const double x = kSummaryCols[i];
    const double next = i + 1 < row.size() ? kSummaryCols[i + 1] : kSummaryBoxes.back().second;
    const double room = next - x - 0.1;
    pages.SmallHead(x, y + 1.5, pages.T(row[i].head), next, true);
    if (row[i].unit != 0) pages.Left(x, y + 1.9, pages.T(row[i].unit), 8);
    if (!any) continue;
    if (ReportPages::OnBlack(kSummaryBoxes, x)) {
      pages.InWhite([&] { pages.Fitted(x, valuesY, row[i].value, room); });
    } else {
      pages.Fitted(x, valuesY, row[i].value, room);
    }
  }
  if (!any) pages.Left(kSummaryCols[5], valuesY, pages.T(Text::ReportNoData));
  pages.Outline(y, valuesY + 0.5);
  if (any && CarriesDoses(figures)) {
    pages.Left(kSummaryCols[3], valuesY + 0.6,
               pages.Out().Texts().Filled(Text::DosesCarried, {numbers.Fixed(Single(figures.carriedCNS * 100), 1),
                                                               numbers.Fixed(figures.carriedOTU, 1)}),
               8);
  }
  return y + 4.5;
}

Single WriteGases(ReportPages& pages, Single y) { return GasTable(pages, y).Write(); }

}  // namespace tav
