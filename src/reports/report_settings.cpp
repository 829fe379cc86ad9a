// The blocks of the long report that tell settings and sums: the settings of the plan, the summary, the gas.

#include <array>

#include "figures/model_name.h"
#include "model/altitude.h"
#include "model/numbers.h"
#include "reports/long_report.h"

namespace tav {
namespace {

using Boxes = std::vector<std::pair<double, double>>;

constexpr std::array<double, 16> kSettingsCols{2.0,  3.3,  4.4,  5.9,  7.5,  8.8,  10.5, 13.0,
                                               15.0, 17.0, 18.0, 19.0, 20.0, 22.0, 24.0, 27.1};
constexpr std::array<double, 12> kGasCols{2.0, 4.0, 5.3, 7.5, 9.5, 11.0, 12.5, 15.0, 16.6, 17.9, 21.0, 24.0};
constexpr std::array<double, 16> kSummaryCols{2.0,  3.5,  5.2,  8.0,  9.5,  11.0, 12.5, 14.0,
                                              16.0, 17.5, 19.0, 20.5, 21.0, 22.0, 24.0, 27.1};

const Boxes kSettingsBoxes{{1.9, 7.4}, {10.4, 16.9}, {21.9, 27.1}};
const Boxes kSummaryBoxes{{1.9, 7.3}, {15.3, 22.0}};
const Boxes kGasBoxes{{1.9, 6.8}, {10.3, 14.9}};

constexpr double kTitleX = 12.5;
constexpr double kBand = 0.76;

bool OnBlack(const Boxes& boxes, double x) {
  for (const auto& [from, to] : boxes) {
    if (x >= from && x < to) return true;
  }
  return false;
}

}  // namespace

void GeneralReport::PrintInfoHeader() {
  if (dive_->showSeries) SeriesBand();
  SettingsTable();
}

void GeneralReport::SeriesBand() {
  constexpr double kHeight = 2.0;
  const Single y = SectionY_;
  RowBand(y + 1.5, 1, {kSettingsBoxes.front()});
  TitleBand(y, kBand, 6019, kTitleX);
  Left(kSettingsCols[0], y + 1.0, T(6021), 10, true);
  InWhite([&] { Left(kSettingsCols[0], y + 1.5, std::to_string(dive_->diveNumber)); });
  Left(kSettingsCols[4], y + 1.0, T(6022), 10, true);
  Left(kSettingsCols[4], y + 1.5, out_.Texts().Words(FormatMinutes(dive_->surfaceInterval)));
  Outline(y, y + kHeight);
  SectionY_ += 3.0;
}

void GeneralReport::SettingsTable() {
  DiveTemplate& t = Template();
  // The altitude that belongs to the pressure, which is what counts.
  if (const auto altitude = PressureToAltitude(t.EndPressure, t.Metric)) t.EndAltitude = *altitude;
  const std::string pressure = T(t.Metric ? 6028 : 6030);
  const std::string length = T(t.Metric ? 6027 : 6029);
  const bool veryHighGF = GradientFactorsAct(t, model_) && t.GFHigh > 1.0;
  const std::string factors =
      GradientFactorsAct(t, model_) ? numbers_.Fixed(t.GFLow, 2) + "-" + numbers_.Fixed(t.GFHigh, 2) : T(6050);

  struct Setting {
    int group;  // 0: no text
    double groupOffset;
    int head;
    double headOffset;
    std::string second;
    double secondOffset;
    std::string value;
  };
  const std::array<Setting, 15> settings{{
      {6025, 1.0, 6026, 0.5, pressure, 0, numbers_.Fixed(t.StartPressure, 3)},
      {0, 0, 0, 0, length, 0, numbers_.Fixed(t.StartAltitude, 0)},
      {0, 0, 6031, 0.5, pressure, 0, numbers_.Fixed(t.EndPressure, 3)},
      {0, 0, 0, 0, length, 0, numbers_.Fixed(t.EndAltitude, 0)},
      {6032, 0.3, 6033, 0, length, 0.1, numbers_.Plain(RoundSingle(t.StepSize, 1))},
      {0, 0, 6034, 0, length, 0.1, numbers_.Plain(RoundSingle(t.LastStop, 1))},
      {6035, 0.5, 6036, 0, "", 0, ModelName(model_)},
      {0, 0, 6037, 1.0, T(6038), 0, factors},
      {0, 0, 0, 0, T(6039), 0, T(t.DepthAdjust ? 6049 : 6050)},
      {6040, 1.1, 6041, 0.5, T(6042), 0, numbers_.Fixed(t.MinPPO2, 2)},
      {0, 0, 0, 0, T(6043), 0, numbers_.Fixed(t.MaxPPO2, 2)},
      {0, 0, 6044, 0, T(6043), 0, numbers_.Fixed(t.MaximalEND, 0)},
      {0, 0, 6045, 0, "", 0, T(t.O2Narcotic ? 6051 : 6052)},
      {6046, 0.7, 6047, 0, "", 0, T(t.Metric ? 6053 : 6054)},
      {0, 0, 6048, 0, "", 0, T(t.OpenCircuit ? 6055 : 6056)},
  }};

  const Single y = SectionY_;
  TitleBand(y, kBand, 6023, kTitleX);
  RowBand(y + 2.5, 1, kSettingsBoxes);
  for (std::size_t i = 0; i < settings.size(); ++i) {
    const Setting& setting = settings[i];
    const double x = kSettingsCols[i];
    if (setting.group != 0) Left(x + setting.groupOffset, y + 1.0, T(setting.group), 10, true);
    if (setting.head != 0) Left(x + setting.headOffset, y + 1.5, T(setting.head), 8, true);
    if (!setting.second.empty()) Left(x + setting.secondOffset, y + 2.0, setting.second, 8);
    constexpr std::size_t kFactors = 7;
    const Colour ink = i == kFactors && veryHighGF ? kRed : OnBlack(kSettingsBoxes, x) ? RGB(255, 255, 255) : kBlack;
    out_.SetForeColor(ink);
    Fitted(x, y + 2.5, setting.value, kSettingsCols[i + 1] - x - 0.1);
    out_.SetForeColor(kBlack);
  }
  Outline(y, y + 3.0);
  SectionY_ += dive_->showSeries ? 2.8 : 3.8;  // the band of a series has moved it by 3.0
}

void GeneralReport::PrintDiveInfoHeader() {
  const DiveTemplate& t = Template();
  const DiveFigures figures = FiguresOf(Profile());
  struct Figure {
    int head;
    int unit;  // 0: none
    std::string value;
  };
  const std::array<Figure, 12> row{{
      {6115, 6118, numbers_.Fixed(figures.runTime, 1)},
      {6116, 6118, numbers_.Fixed(figures.stopTime, 1)},
      {6117, t.Metric ? 6119 : 6120, numbers_.Fixed(figures.deepest, 1)},
      {6121, 0, numbers_.Fixed(Single(figures.CNS * 100), 1)},
      {6122, 0, numbers_.Fixed(figures.OTU, 1)},
      {6123, 0, numbers_.Fixed(figures.lowestPPO2Below, 2)},
      {6124, 0, numbers_.Fixed(figures.highestPPO2, 2)},
      {6125, 0, numbers_.Fixed(figures.highestEND, 1)},
      {6127, 0, T(t.Metric ? 6053 : 6054)},
      {6128, 0, t.OpenCircuit ? "No" : numbers_.Fixed(t.Setpoint, 2)},
      {6103, 0, numbers_.Fixed(t.RMV, 1)},
      {6106, 0, numbers_.Fixed(t.DecoRMV, 1)},
  }};
  TitleBand(4.0, kBand, 6112, kTitleX);
  Left(kSummaryCols[0], 5.0, T(6114), 10, true);
  Left(kSummaryCols[3], 5.0, T(6040), 10, true);
  Left(kSummaryCols[8], 5.0, T(6126), 10, true);
  SectionY_ = 6.5;
  const Single y = SectionY_ + 0.5;
  RowBand(y, 1, kSummaryBoxes);
  const bool any = Profile().GetLength() > 0;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const double x = kSummaryCols[i];
    Left(x, 5.5, T(row[i].head), 8, true);
    if (row[i].unit != 0) Left(x, 5.9, T(row[i].unit), 8);
    if (!any) continue;
    if (OnBlack(kSummaryBoxes, x)) {
      InWhite([&] { Left(x, y, row[i].value); });
    } else {
      Left(x, y, row[i].value);
    }
  }
  if (!any) Left(kSummaryCols[5], y, T(6013));
  Outline(4.0, y + 0.5);
  SectionY_ += 2.0;
}

void GeneralReport::GasHead() {
  const bool metric = Template().Metric;
  const Single y = SectionY_;
  TitleBand(y, 0.8, 6100, kTitleX);
  Left(kGasCols[0] + 1.5, y + 1.0, T(6102), 10, true);
  const int rate = metric ? 6104 : 6105;
  const int volume = metric ? 6109 : 6110;
  struct Head {
    double x;
    int head;
    int unit;    // 0: none
    bool right;  // as the figures under it
  };
  for (const Head& head : {Head{kGasCols[0], 6069, 0, false}, Head{kGasCols[1] + 0.6, 6076, 0, true},
                           Head{kGasCols[2] + 0.5, 6077, 0, true}, Head{kGasCols[3], 6103, rate, false},
                           Head{kGasCols[4], 6106, rate, false}, Head{kGasCols[5] + 1.2, 6108, volume, true},
                           Head{kGasCols[6] + 1.4, 6111, volume, true}}) {
    const auto write = [&](Single at, int text, bool bold) {
      if (head.right) {
        out_.PrintTextRight(head.x, at, T(text), "Arial", 8, bold ? 1 : 0);
      } else {
        Left(head.x, at, T(text), 8, bold);
      }
    };
    write(y + 1.5, head.head, true);
    if (head.unit != 0) write(y + 1.9, head.unit, false);
  }
  TableTop_ = y + 0.8;
  SectionY_ += 2.3;
}

void GeneralReport::GasTable() {
  GasHead();
  const auto totals = GasTotals(Profile(), Template());
  const auto close = [this] { Outline(TableTop_, SectionY_); };
  for (std::size_t i = 0; i < totals.size(); ++i) {
    constexpr double kPageEnd = 16.8;
    if (SectionY_ > kPageEnd) {
      close();
      NewPage();
      SectionY_ = 4.0;
      GasHead();
    }
    const GasTotal& gas = totals[i];
    const Single y = SectionY_;
    constexpr double kReserve = 1.5;
    RowBand(y, static_cast<int>(i), kGasBoxes);
    InWhite([&] {
      Fitted(kGasCols[0], y, gas.Name, 2.0, true);
      Right(kGasCols[1] + 0.6, y, numbers_.Fixed(gas.O2, 0));
      Right(kGasCols[2] + 0.5, y, numbers_.Fixed(gas.He, 0));
      Right(kGasCols[5] + 1.2, y, numbers_.Fixed(gas.total, 1));
      Right(kGasCols[6] + 1.4, y, numbers_.Fixed(Single(gas.total * kReserve), 1));
    });
    Left(kGasCols[3], y, numbers_.Fixed(Template().RMV, 1));
    Left(kGasCols[4], y, numbers_.Fixed(Template().DecoRMV, 1));
    SectionY_ += 0.5;
  }
  if (totals.empty()) {
    RowBand(SectionY_, 0, {});
    Left(kGasCols[5], SectionY_, T(6013));
    SectionY_ += 0.5;
  }
  close();
}

}  // namespace tav
