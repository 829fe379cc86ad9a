// The bottom segments and the stops in the long report.

#include <array>

#include "figures/model_name.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "reports/report_blocks.h"

namespace tav {
namespace {

constexpr std::array<double, 13> kCols{2.0, 3.0, 4.5, 7.0, 8.8, 9.8, 10.8, 12.0, 15.0, 17.5, 19.5, 22.0, 24.0};

constexpr double kTopOfPage = 5.0;

class StopTables {
 public:
  StopTables(ReportPages& pages, Single y) : pages_(pages), numbers_(pages.Numbers()), y_(y), top_(y) {}

  void Write() {
    for (const Table table : {Table::Bottom, Table::Stops}) {
      Head(table);
      Rows(table);
    }
  }

 private:
  enum class Table { Bottom, Stops };

  void Head(Table table) {
    const bool bottom = table == Table::Bottom;
    // A head is never alone on its page: a row of stops must end above the footer.
    constexpr double kLowestBottomHead = 15.5;
    constexpr double kLowestStopHead = 14.6;
    if (bottom && y_ > kLowestBottomHead) {
      pages_.NewPage();
      y_ = 3.0;
    } else if (!bottom && y_ > kLowestStopHead) {
      pages_.NewPage();
      y_ = kTopOfPage;
    }
    const bool metric = pages_.Template().Metric;
    const Single y = y_;
    pages_.Band(y, 0.8);
    if (bottom) {
      pages_.Out().PrintInCen(12.5, y, pages_.T(Text::ReportBottom), "Arial", 18, 1);
    } else {
      pages_.Left(12.5, y, pages_.T(Text::ReportStops), 18, true);
    }
    pages_.Left(kCols[3] + 1.2, y + 0.82, pages_.T(Text::ReportStopGas), 10, true);
    pages_.Left(kCols[8] + 2.0, y + 0.82, pages_.T(Text::ReportStopModel), 10, true);
    using ReportHead = ReportPages::Head;
    const ReportHead second =
        bottom ? ReportHead{kCols[1], Text::ReportRate, metric ? Text::ReportMetresPerMin : Text::ReportFeetPerMin}
               : ReportHead{kCols[1], Text::CardStop, Text::ReportMinutes};
    pages_.Heads({{kCols[0], Text::ReportDepth, metric ? Text::ReportDepthMetres : Text::ReportDepthFeet},
                  second,
                  {kCols[2], bottom ? Text::ReportBottomRun : Text::ReportRun, Text::ReportMinutes},
                  {kCols[3], Text::ReportName},
                  {kCols[4], Text::ReportO2},
                  {kCols[5], Text::ReportHe},
                  {kCols[6], Text::ReportStopUsed, metric ? Text::ReportLitres : Text::ReportCubicFeet},
                  {kCols[8], Text::ReportName},
                  {kCols[9], Text::ReportGF},
                  {kCols[10], Text::ReportMValue}},
                 y + 1.21, y + 1.54);
    pages_.Outline(y, y + 2.6);
    y_ += 2.1;
    top_ = y_;
  }

  void Rows(Table table) {
    const bool bottom = table == Table::Bottom;
    std::vector<const Waypoint*> rows;
    for (std::int16_t i = 0; i <= pages_.Profile().GetLength(); ++i) {
      const Waypoint& row = pages_.Profile().Row(i);
      if (bottom ? row.Status == RowStatus::kLeg : IsStop(row)) rows.push_back(&row);
    }
    const auto close = [this] { pages_.Outline(top_, y_); };
    for (std::size_t i = 0; i < rows.size(); ++i) {
      pages_.RowBand(y_, static_cast<int>(i), {{1.9, 2.8}, {4.3, 6.0}, {8.7, 9.6}, {10.6, 12.0}, {17.2, 19.0}});
      Row(table, *rows[i]);
      y_ += ReportPages::kRow;
      constexpr double kPageEnd = 15.8;
      const std::size_t rest = rows.size() - i - 1;
      // One row or two have no page of their own while there is room here.
      const bool fits = rest <= 2 && y_ + static_cast<double>(rest) * ReportPages::kRow <= ReportPages::kEnd;
      if (y_ <= kPageEnd || fits) continue;
      close();
      y_ = kTopOfPage;
      pages_.NewPage();
      Head(table);
    }
    if (rows.empty()) {
      const int noStops = LacksAscent(pages_.Profile()) ? Text::LacksAscent : Text::ReportNoStops;
      pages_.Left(kCols[6], y_, pages_.T(bottom ? Text::ReportNoData : noStops));
      y_ += ReportPages::kRow;
    }
    close();
  }

  void Row(Table table, const Waypoint& row) {
    const bool bottom = table == Table::Bottom;
    const Single y = y_;
    pages_.InWhite([&] {
      pages_.Right(kCols[0] + 0.7, y, numbers_.Plain(RoundSingle(bottom ? row.Depth : row.StopDepth, 1)));
      pages_.Right(kCols[2] + 1.3, y, numbers_.Fixed(row.RunTime, bottom ? 1 : 0));
      pages_.Right(kCols[4] + 0.7, y, numbers_.Fixed(row.GasMixO2, 0));
      pages_.Figure(kCols[6] + 1.0, y, numbers_.Fixed(row.GasUsed, 0), 1.4);
      pages_.Left(kCols[9], y, bottom ? "--" : pages_.FactorOf(row));
    });
    pages_.Right(kCols[1] + 0.7, y, numbers_.Fixed(bottom ? row.Rate : row.StopTime, 0));
    pages_.Fitted(kCols[3], y, row.GasMixName, 1.6);
    pages_.Right(kCols[5] + 0.5, y, numbers_.Fixed(row.GasMixHe, 0));
    pages_.Fitted(kCols[8], y, bottom ? ModelName(pages_.Model()) : ModelOfRow(row, pages_.Model()).value_or(""), 2.1);
    pages_.Left(kCols[10], y, bottom ? "--" : numbers_.Fixed(Single(row.MaxMValue * 100), 1));
  }

  ReportPages& pages_;
  const NumberTexts& numbers_;
  Single y_;    ///< of the next head or row
  Single top_;  ///< of the table on this page
};

}  // namespace

void WriteStops(ReportPages& pages, Single y) { StopTables(pages, y).Write(); }

}  // namespace tav
