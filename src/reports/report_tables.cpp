// The tables of the long report: the profile, the bottom segments and the stops.

#include <array>

#include "figures/model_name.h"
#include "model/numbers.h"
#include "reports/long_report.h"

namespace tav {
namespace {

constexpr std::array<double, 21> kProfileCols{2.0,  3.4,  4.4,  5.6,  6.8,  7.4,  9.4,  10.5, 11.4, 13.4, 15.2,
                                              16.4, 17.4, 18.4, 19.4, 20.4, 21.8, 22.8, 24.4, 25.0, 27.0};
constexpr std::array<double, 13> kDecoCols{2.0, 3.0, 4.5, 7.0, 8.8, 9.8, 10.8, 12.0, 15.0, 17.5, 19.5, 22.0, 24.0};

constexpr StatusTexts kStatus{6004, 6010, 6011, 6012};
constexpr double kRow = 0.5;
constexpr double kTopOfPage = 5.0;

double EdgeOf(int cell) { return kProfileCols[static_cast<std::size_t>(cell - 1)]; }
double MiddleOf(int cell) { return (EdgeOf(cell) + EdgeOf(cell + 1)) / 2; }

/// Cells of the profile table that stand on black.
bool IsWhite(int cell) { return cell <= 4 || (cell >= 11 && cell <= 14); }

}  // namespace

void GeneralReport::PrintCellRight(int cell, Single y, const std::string& text, bool bold) {
  out_.SetForeColor(IsWhite(cell) ? RGB(255, 255, 255) : kBlack);
  Right(MiddleOf(cell), y, text, bold);
}

void GeneralReport::PrintCellLeft(int cell, Single y, const std::string& text, bool bold) {
  out_.SetForeColor(IsWhite(cell) ? RGB(255, 255, 255) : kBlack);
  Left(EdgeOf(cell), y, text, 10, bold);
}

void GeneralReport::ProfileHead() {
  const bool metric = Template().Metric;
  const Single y = TableY_;
  out_.SetForeColor(kBlack);
  TitleBand(y, 0.8, 6057, 13.5);
  struct Group {
    int text;
    double x;
  };
  for (const Group& group : {Group{6059, EdgeOf(1) + 0.5}, Group{6035, EdgeOf(6) + 0.6}, Group{6040, EdgeOf(11) + 0.4},
                             Group{6075, EdgeOf(16) + 1.3}}) {
    Left(group.x, y + 1.0, T(group.text), 10, true);
  }
  struct Head {
    int cell;
    int head;
    int unit;  // 0: none
  };
  for (const Head& head :
       {Head{1, 6060, metric ? 6061 : 6062}, Head{2, 6063, metric ? 6064 : 6065}, Head{3, 6066, 6067},
        Head{4, 6068, 6067}, Head{6, 6069, 0}, Head{7, 6070, 0}, Head{8, 6071, 0}, Head{9, 6072, 0}, Head{11, 6073, 0},
        Head{12, 6074, 0}, Head{13, 6044, 0}, Head{14, 6041, 0}, Head{16, 6069, 0}, Head{17, 6076, 0},
        Head{18, 6077, 0}, Head{19, 6078, metric ? 6079 : 6080}}) {
    const double x = EdgeOf(head.cell);
    constexpr int kRateCell = 2;
    const bool rate = head.cell == kRateCell;
    Left(rate ? x - 0.3 : x, y + 1.5, T(head.head), 8, true);
    if (head.unit != 0) Left(rate ? x - 0.2 : x, y + 1.9, T(head.unit), 8);
  }
  TableY_ += 2.3;
  TableTop_ = TableY_;
}

void GeneralReport::ProfileTable() {
  Step(6003);
  ProfileHead();
  const std::int16_t last = Profile().GetLength();
  const auto close = [this] { Outline(TableTop_ - 0.04, TableY_); };
  for (std::int16_t row = 0; row <= last; ++row) {
    ProfileRow(row);
    TableY_ += kRow;
    constexpr double kPageEnd = 17.0;
    if (row == last || TableY_ <= kPageEnd) continue;
    close();
    TableY_ = kTopOfPage;
    NewPage();
    Step(6003);
    ProfileHead();
  }
  if (last == 0) {
    constexpr int kStatusCell = 9;
    PrintCellLeft(kStatusCell, TableY_, T(6013));
    TableY_ += kRow;
  }
  close();
}

void GeneralReport::ProfileRow(std::int16_t index) {
  const Waypoint& row = Profile().Row(index);
  const Single y = TableY_;
  RowBand(y, index, {{1.9, 6.9}, {14.5, 19.5}});
  PrintCellRight(1, y, numbers_.Plain(row.Depth));
  PrintCellRight(2, y, numbers_.Plain(row.Rate));
  PrintCellRight(3, y, numbers_.Fixed(row.SegmentTime, 1));
  PrintCellRight(4, y, numbers_.Fixed(row.RunTime, 1));

  const bool planned = row.Status >= 0 && row.Status <= RowStatus::kAscentBand;
  const bool named = !planned && row.DoShow && row.Rate == 0;
  PrintCellLeft(6, y, named ? ModelOfRow(row, model_).value_or("") : "--");
  if (row.MaxMValue == 0) {
    PrintCellLeft(7, y, "--");
  } else {
    PrintCellRight(7, y, numbers_.Fixed(Single(row.MaxMValue * 100), 1));
  }
  PrintCellLeft(8, y, FactorOf(row));
  const auto status = StatusTextOf(row, kStatus);
  PrintCellLeft(9, y, status ? T(*status) : "");

  PrintCellRight(11, y, numbers_.Fixed(Single(row.CNS * 100), 1));
  PrintCellRight(12, y, numbers_.Fixed(row.OTU, 1));
  PrintCellRight(13, y, numbers_.Fixed(row.END, 1));
  PrintCellRight(14, y, numbers_.Fixed(row.PPO2, 2), row.PPO2 >= Template().MaxPPO2);

  out_.SetForeColor(kBlack);
  Fitted(EdgeOf(16), y, row.GasMixName, 1.5);
  PrintCellRight(17, y, numbers_.Fixed(row.GasMixO2, 0));
  PrintCellLeft(18, y, numbers_.Fixed(row.GasMixHe, 0));
  PrintCellRight(19, y, numbers_.Fixed(row.GasUsed, 1));
}

void GeneralReport::DecoHead(DecoTable table) {
  const bool bottom = table == DecoTable::Bottom;
  // A head is never alone on its page: a row of stops must end above the footer.
  constexpr double kLowestBottomHead = 15.5;
  constexpr double kLowestStopHead = 14.6;
  if (bottom && DecoY_ > kLowestBottomHead) {
    NewPage();
    DecoY_ = 3.0;
  } else if (!bottom && DecoY_ > kLowestStopHead) {
    NewPage();
    DecoY_ = kTopOfPage;
  }
  const bool metric = Template().Metric;
  const int length = metric ? 6061 : 6062;
  const Single y = DecoY_;
  out_.PrintFilledBox(1.9, y, 27.1, y + 0.8, RGB(160, 160, 160));
  Outline(y, y + 0.8);
  if (bottom) {
    out_.PrintInCen(12.5, y, T(6088), "Arial", 18, 1);
  } else {
    Left(12.5, y, T(6096), 18, true);
  }
  Left(kDecoCols[3] + 1.2, y + 0.82, T(6093), 10, true);
  Left(kDecoCols[8] + 2.0, y + 0.82, T(6095), 10, true);
  struct Head {
    std::size_t column;
    int head;
    int unit;  // 0: none
  };
  const Head second = bottom ? Head{1, 6063, metric ? 6064 : 6065} : Head{1, 6060, 6092};
  const Head third{2, bottom ? 6091 : 6068, 6092};
  for (const Head& head :
       {Head{0, 6060, length}, second, third, Head{3, 6069, 0}, Head{4, 6076, 0}, Head{5, 6077, 0},
        Head{6, 6094, metric ? 6079 : 6080}, Head{8, 6069, 0}, Head{9, 6071, 0}, Head{10, 6070, 0}}) {
    Left(kDecoCols[head.column], y + 1.21, T(head.head), 8, true);
    if (head.unit != 0) Left(kDecoCols[head.column], y + 1.54, T(head.unit), 8);
  }
  Outline(y, y + 2.6);
  DecoY_ += 2.1;
  TableTop_ = DecoY_;
}

void GeneralReport::DecoRows(DecoTable table, int step) {
  Step(step);
  const bool bottom = table == DecoTable::Bottom;
  std::vector<const Waypoint*> rows;
  for (std::int16_t i = 0; i <= Profile().GetLength(); ++i) {
    const Waypoint& row = Profile().Row(i);
    if (bottom ? row.Status == RowStatus::kLeg : row.StopDepth != 0) rows.push_back(&row);
  }
  const auto close = [this] { Outline(TableTop_, DecoY_); };
  for (std::size_t i = 0; i < rows.size(); ++i) {
    RowBand(DecoY_, static_cast<int>(i), {{1.9, 2.8}, {4.3, 6.0}, {8.7, 9.6}, {10.6, 12.0}, {17.2, 19.0}});
    DecoRow(table, *rows[i]);
    DecoY_ += kRow;
    constexpr double kPageEnd = 15.8;
    if (i + 1 == rows.size() || DecoY_ <= kPageEnd) continue;
    close();
    DecoY_ = kTopOfPage;
    NewPage();
    Step(step);
    DecoHead(DecoTable::Bottom);
    // Bottom segments go on under their own head.
    if (!bottom) {
      DecoY_ -= 0.2;
      DecoHead(DecoTable::Stops);
    }
  }
  if (rows.empty()) {
    const int noStops = LacksAscent(Profile()) ? kLacksAscent : 6016;
    Left(kDecoCols[6], DecoY_, T(bottom ? 6013 : noStops));
    DecoY_ += kRow;
  }
  close();
}

std::string GeneralReport::FactorOf(const Waypoint& row) const {
  const std::string factor = numbers_.Fixed(Single(row.GF * 100), 0);
  return row.GF == 1.0 || factor == "100" || !GradientFactorsAct(Template(), model_) ? "--" : factor;
}

void GeneralReport::DecoRow(DecoTable table, const Waypoint& row) {
  const bool bottom = table == DecoTable::Bottom;
  const Single y = DecoY_;
  InWhite([&] {
    Right(kDecoCols[0] + 0.7, y, numbers_.Plain(RoundSingle(bottom ? row.Depth : row.StopDepth, 1)));
    Right(kDecoCols[2] + 1.3, y, numbers_.Fixed(row.RunTime, bottom ? 1 : 0));
    Right(kDecoCols[4] + 0.7, y, numbers_.Fixed(row.GasMixO2, 0));
    Right(kDecoCols[6] + 1.0, y, numbers_.Fixed(row.GasUsed, 0));
    Left(kDecoCols[9], y, bottom ? "--" : FactorOf(row));
  });
  Right(kDecoCols[1] + 0.7, y, numbers_.Fixed(bottom ? row.Rate : row.StopTime, 0));
  Fitted(kDecoCols[3], y, row.GasMixName, 1.6);
  Right(kDecoCols[5] + 0.5, y, numbers_.Fixed(row.GasMixHe, 0));
  Fitted(kDecoCols[8], y, bottom ? ModelName(model_) : ModelOfRow(row, model_).value_or(""), 2.1);
  Left(kDecoCols[10], y, bottom ? "--" : numbers_.Fixed(Single(row.MaxMValue * 100), 1));
}

}  // namespace tav
