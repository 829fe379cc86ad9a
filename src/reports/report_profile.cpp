// Every row of a dive in the long report.

#include <algorithm>
#include <array>
#include <cmath>

#include "model/text_id.h"
#include "reports/report_blocks.h"

namespace tav {
namespace {

constexpr std::array<double, 21> kProfileCols{2.0,  3.4,  4.4,  5.6,  6.8,  7.4,  9.4,  10.5, 11.4, 13.4, 15.2,
                                              16.4, 17.4, 18.4, 19.4, 20.4, 21.8, 22.8, 24.4, 25.0, 27.0};

constexpr StatusTexts kStatus{Text::ReportKinds, Text::ReportFreeAscent, Text::ReportAscent, Text::ReportDescent};

double EdgeOf(int cell) { return kProfileCols[static_cast<std::size_t>(cell - 1)]; }
double MiddleOf(int cell) { return (EdgeOf(cell) + EdgeOf(cell + 1)) / 2; }

/// How wide a figure of a cell may be, cm: it stays clear of what stands left of it.
double RoomOf(int cell) {
  switch (cell) {
    case 1:
      return 0.75;  // the black box begins
    case 7:
    case 17:
      return 1.0;  // behind the names of model and gas
    case 11:
      return 1.2;  // the black box begins
    case 19:
      return 1.25;  // behind the helium
    default:
      return MiddleOf(cell) - MiddleOf(cell - 1) - 0.1;
  }
}

/// Cells of the profile table that stand on black.
bool IsWhite(int cell) { return cell <= 4 || (cell >= 11 && cell <= 14); }

class ProfileTable {
 public:
  ProfileTable(ReportPages& pages, Single y)
      : pages_(pages), numbers_(pages.Numbers()), y_(y), top_(y), spare_(pages.Dive().showSeries ? 0.5 : 1.0) {}

  bool Write(const std::function<bool()>& goOn) {
    const std::int16_t last = pages_.Profile().GetLength();
    Begin(last + 1);
    for (std::int16_t row = 0; row <= last; ++row) {
      if (!goOn()) return false;
      Row(row);
      y_ += ReportPages::kRow;
      if (row == last || y_ + ReportPages::kRow <= ReportPages::kEnd) continue;
      Close();
      y_ = kTopOfPage;
      spare_ = kTopOfPage - kHighest;
      pages_.NewPage();
      Begin(last - row);
    }
    if (last == 0) {
      constexpr int kStatusCell = 9;
      PrintCellLeft(kStatusCell, y_, pages_.T(Text::ReportNoData));
      y_ += ReportPages::kRow;
    }
    Close();
    return true;
  }

 private:
  static constexpr double kTopOfPage = 5.0;
  static constexpr double kHighest = 4.0;
  static constexpr double kHead = 2.3;

  void Close() { pages_.Outline(top_ - 0.04, y_); }

  static double RowsFrom(double y) { return std::floor((ReportPages::kEnd - kHead - y) / ReportPages::kRow); }

  /// Begins the table on a page, as high as it may where that saves a page of a few rows.
  void Begin(int rows) {
    const auto further = [&](double here, double top) { return std::ceil(std::max(0.0, rows - here) / RowsFrom(top)); };
    const double high = y_ - spare_;
    if (further(RowsFrom(high), kHighest) < further(RowsFrom(y_), kTopOfPage)) y_ = high;
    Head();
  }

  void Head() {
    const bool metric = pages_.Template().Metric;
    pages_.Out().SetForeColor(kBlack);
    pages_.TitleBand(y_, 0.8, pages_.T(Text::ReportProfile), 13.5);
    struct Group {
      int text;
      double x;
    };
    for (const Group& group : {Group{Text::ReportSegment, EdgeOf(1) + 0.5}, Group{Text::ReportModel, EdgeOf(6) + 0.6},
                               Group{Text::ReportOxygen, EdgeOf(11) + 0.4}, Group{Text::ReportGas, EdgeOf(16) + 1.3}}) {
      pages_.Left(group.x, y_ + 1.0, pages_.T(group.text), 10, true);
    }
    pages_.Heads(
        {{EdgeOf(1), Text::ReportDepth, metric ? Text::ReportDepthMetres : Text::ReportDepthFeet},
         {EdgeOf(2) - 0.3, Text::ReportRate, metric ? Text::ReportMetresPerMin : Text::ReportFeetPerMin, false, 0.1},
         {EdgeOf(3), Text::ReportTime, Text::ReportMin},
         {EdgeOf(4), Text::ReportRun, Text::ReportMin},
         {EdgeOf(6), Text::ReportName},
         {EdgeOf(7), Text::ReportMValue},
         {EdgeOf(8), Text::ReportGF},
         {EdgeOf(9), Text::ReportStatus},
         {EdgeOf(11), Text::ReportCNS},
         {EdgeOf(12), Text::ReportOTU},
         {EdgeOf(13), Text::ReportEND},
         {EdgeOf(14), Text::ReportPPO2},
         {EdgeOf(16), Text::ReportName},
         {EdgeOf(17), Text::ReportO2},
         {EdgeOf(18), Text::ReportHe},
         {EdgeOf(19), Text::ReportUsed, metric ? Text::ReportLitres : Text::ReportCubicFeet}},
        y_ + 1.5, y_ + 1.9);
    y_ += kHead;
    top_ = y_;
  }

  void Row(std::int16_t index) {
    const Waypoint& row = pages_.Profile().Row(index);
    const Single y = y_;
    pages_.RowBand(y, index, {{1.9, 6.9}, {14.5, 19.5}});
    PrintCellRight(1, y, Exact(row.Depth, RoomOf(1)));
    PrintCellRight(2, y, Exact(row.Rate, RoomOf(2)));
    PrintCellRight(3, y, numbers_.Fixed(row.SegmentTime, 1));
    PrintCellRight(4, y, numbers_.Fixed(row.RunTime, 1));

    const bool planned = row.Status >= 0 && row.Status <= RowStatus::kAscentBand;
    const bool named = !planned && row.DoShow && row.Rate == 0;
    PrintCellLeft(6, y, named ? ModelOfRow(row, pages_.Model()).value_or("") : "--");
    if (row.MaxMValue == 0) {
      PrintCellLeft(7, y, "--");
    } else {
      PrintCellRight(7, y, numbers_.Fixed(Single(row.MaxMValue * 100), 1));
    }
    PrintCellLeft(8, y, pages_.FactorOf(row));
    const auto status = StatusTextOf(row, kStatus);
    pages_.Out().SetForeColor(kBlack);
    pages_.Fitted(EdgeOf(9), y, status ? pages_.T(*status) : "", 3.0);

    PrintCellRight(11, y, numbers_.Fixed(Single(row.CNS * 100), 1));
    PrintCellRight(12, y, numbers_.Fixed(row.OTU, 1));
    PrintCellRight(13, y, numbers_.Fixed(row.END, 1));
    PrintCellRight(14, y, numbers_.Fixed(row.PPO2, 2), row.PPO2 >= pages_.Template().MaxPPO2);

    pages_.Out().SetForeColor(kBlack);
    const std::string oxygen = numbers_.Fixed(row.GasMixO2, 0);
    pages_.Fitted(EdgeOf(16), y, row.GasMixName, MiddleOf(17) - pages_.WidthOf(oxygen) - 0.1 - EdgeOf(16));
    PrintCellRight(17, y, oxygen);
    PrintCellLeft(18, y, numbers_.Fixed(row.GasMixHe, 0));
    PrintCellRight(19, y, numbers_.Fixed(row.GasUsed, 1));
  }

  /// The number in full, or to a tenth where that is too long for its cell.
  [[nodiscard]] std::string Exact(Single value, double cm) const {
    const std::string text = numbers_.Plain(value);
    return pages_.WidthOf(text) <= cm ? text : numbers_.Short(value);
  }

  void PrintCellRight(int cell, Single y, const std::string& text, bool bold = false) {
    pages_.Out().SetForeColor(IsWhite(cell) ? RGB(255, 255, 255) : kBlack);
    pages_.Figure(MiddleOf(cell), y, text, RoomOf(cell), bold);
  }

  void PrintCellLeft(int cell, Single y, const std::string& text, bool bold = false) {
    pages_.Out().SetForeColor(IsWhite(cell) ? RGB(255, 255, 255) : kBlack);
    pages_.Left(EdgeOf(cell), y, text, 10, bold);
  }

  ReportPages& pages_;
  const NumberTexts& numbers_;
  Single y_;      ///< of the next row
  Single top_;    ///< of the table on this page
  double spare_;  ///< what is blank above the table, cm
};

}  // namespace

bool WriteProfile(ReportPages& pages, Single y, const std::function<bool()>& goOn) {
  return ProfileTable(pages, y).Write(goOn);
}

}  // namespace tav
