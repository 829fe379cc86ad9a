// The settings of the plan in the long report.

#include <array>

#include "figures/model_name.h"
#include "figures/settings_words.h"
#include "model/altitude.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "reports/report_blocks.h"

namespace tav {
namespace {

constexpr std::array<double, 16> kSettingsCols{2.0,  3.3,  4.4,  5.9,  7.5,  8.8,  10.5, 13.0,
                                               15.0, 17.0, 18.0, 19.0, 20.0, 22.0, 24.0, 27.1};
const ReportPages::Boxes kSettingsBoxes{{1.9, 7.4}, {10.4, 16.9}, {21.9, 27.1}};
constexpr double kTitleX = 12.5;
constexpr double kBand = 0.76;

void SeriesBand(ReportPages& pages, Single y) {
  constexpr double kHeight = 2.0;
  pages.RowBand(y + 1.5, 1, {kSettingsBoxes.front()});
  pages.TitleBand(y, kBand, pages.T(Text::ReportRepetitiveDive), kTitleX);
  pages.Left(kSettingsCols[0], y + 1.0, pages.T(Text::ReportDiveNumber), 10, true);
  pages.InWhite([&] { pages.Left(kSettingsCols[0], y + 1.5, std::to_string(pages.Dive().diveNumber)); });
  pages.Left(kSettingsCols[4], y + 1.0, pages.T(Text::ReportInterval), 10, true);
  pages.Left(kSettingsCols[4], y + 1.5, pages.Out().Texts().Words(FormatMinutes(pages.Dive().surfaceInterval)));
  pages.Outline(y, y + kHeight);
}

void SettingsTable(ReportPages& pages, Single y) {
  DiveTemplate& t = pages.Dive().diveTemplate;
  const NumberTexts& numbers = pages.Numbers();
  // The altitude that belongs to the pressure, which is what counts.
  if (const auto altitude = PressureToAltitude(t.EndPressure, t.Metric)) t.EndAltitude = *altitude;
  const std::string pressure = pages.T(t.Metric ? Text::ReportBar : Text::ReportAta);
  const std::string length = pages.T(t.Metric ? Text::ReportMetres : Text::ReportFeet);
  const bool veryHighGF = GradientFactorsAct(t, pages.Model()) && t.GFHigh > 1.0;
  const std::string factors = GradientFactorsAct(t, pages.Model()) ? FactorRange(t, numbers) : pages.T(Text::ReportOff);

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
      {Text::ReportAltitude, 1.0, Text::ReportStart, 0.5, pressure, 0, numbers.Fixed(t.StartPressure, 3)},
      {0, 0, 0, 0, length, 0, numbers.Fixed(t.StartAltitude, 0)},
      {0, 0, Text::ReportSurface, 0.5, pressure, 0, numbers.Fixed(t.EndPressure, 3)},
      {0, 0, 0, 0, length, 0, numbers.Fixed(t.EndAltitude, 0)},
      {Text::ReportDecoSteps, 0.3, Text::ReportStep, 0, length, 0.1, numbers.Plain(RoundSingle(t.StepSize, 1))},
      {0, 0, Text::ReportLastStop, 0, length, 0.1, numbers.Plain(RoundSingle(t.LastStop, 1))},
      {Text::ReportModel, 0.5, Text::ReportAlgorithm, 0, "", 0, ModelName(pages.Model())},
      {0, 0, Text::ReportConservatism, 1.0, pages.T(Text::ReportFactors), 0, factors},
      {0, 0, 0, 0, pages.T(Text::ReportAdjustDepth), 0, pages.T(t.DepthAdjust ? Text::ReportOn : Text::ReportOff)},
      {Text::ReportOxygen, 1.1, Text::ReportPPO2, 0.5, pages.T(Text::ReportLowest), 0, numbers.Fixed(t.MinPPO2, 2)},
      {0, 0, 0, 0, pages.T(Text::ReportHighest), 0, numbers.Fixed(t.MaxPPO2, 2)},
      {0, 0, Text::ReportEND, 0, pages.T(Text::ReportHighest), 0, numbers.Fixed(t.MaximalEND, 0)},
      {0, 0, Text::ReportO2Narcotic, 0, "", 0, pages.T(t.O2Narcotic ? Text::ReportYes : Text::ReportNo)},
      {Text::ReportGeneral, 0.7, Text::ReportUnits, 0, "", 0,
       pages.T(t.Metric ? Text::ReportMetric : Text::ReportImperial)},
      {0, 0, Text::ReportApparatus, 0, "", 0,
       pages.T(t.OpenCircuit ? Text::ReportOpenCircuit : Text::ReportConstantPPO2)},
  }};

  pages.TitleBand(y, kBand, pages.T(Text::ReportSettings), kTitleX);
  pages.RowBand(y + 2.5, 1, kSettingsBoxes);
  for (std::size_t i = 0; i < settings.size(); ++i) {
    const Setting& setting = settings[i];
    const double x = kSettingsCols[i];
    if (setting.group != 0) pages.Left(x + setting.groupOffset, y + 1.0, pages.T(setting.group), 10, true);
    const auto next = [&](const auto& has, double Setting::*offset) {
      std::size_t other = i + 1;
      while (other < settings.size() && !has(settings[other])) ++other;
      return kSettingsCols[other] + (other < settings.size() ? settings[other].*offset : 0.0);
    };
    if (setting.head != 0) {
      const double end = next([](const Setting& s) { return s.head != 0; }, &Setting::headOffset);
      pages.SmallHead(x + setting.headOffset, y + 1.5, pages.T(setting.head), end, true);
    }
    if (!setting.second.empty()) {
      const double end = next([](const Setting& s) { return !s.second.empty(); }, &Setting::secondOffset);
      pages.SmallHead(x + setting.secondOffset, y + 2.0, setting.second, end, false);
    }
    constexpr std::size_t kFactors = 7;
    const Colour ink = i == kFactors && veryHighGF               ? kRed
                       : ReportPages::OnBlack(kSettingsBoxes, x) ? RGB(255, 255, 255)
                                                                 : kBlack;
    pages.Out().SetForeColor(ink);
    pages.Fitted(x, y + 2.5, setting.value, kSettingsCols[i + 1] - x - 0.1);
    pages.Out().SetForeColor(kBlack);
  }
  pages.Outline(y, y + 3.0);
}

}  // namespace

Single WriteSettings(ReportPages& pages, Single y) {
  constexpr double kSeriesBand = 3.0;
  const bool series = pages.Dive().showSeries;
  if (series) SeriesBand(pages, y);
  SettingsTable(pages, series ? y + kSeriesBand : double{y});
  return y + (series ? 5.8 : 3.8);
}

}  // namespace tav
