#include "tables/table_info.h"

#include <algorithm>

#include "model/text_id.h"
#include "pages/wrapped_text.h"

namespace tav {
namespace {

constexpr Colour kGrey = RGB(200, 200, 200);
constexpr double kX = 0.8;  // cm, the column's left edge
constexpr double kY = 4.5;  // and the top of its texts
constexpr double kRatesTop = 8.5;
constexpr double kRateHeight = 0.4;
constexpr double kMostOfRates = 7.0;  // what the lines below leave of the page

class Column {
 public:
  Column(PrintPreview& writer, const TableInfo& info) : writer_(writer), info_(info), template_(info.diveTemplate) {}

  double Print() {
    Head();
    Limits();
    RatesFrame();
    Rates(0, Text::ReportAscent, template_.AscendRates);
    Rates(2.5, Text::ReportDescent, template_.DescendRates);
    return Gases(Units(kRatesTop + RateRows() * RateHeight() + 0.15));
  }

 private:
  [[nodiscard]] std::string T(int id) const { return writer_.Texts().GetResString(id); }
  void Text(double x, double y, const std::string& text, int size = 8, int bold = 0) {
    writer_.PrintTextLeft(x, y, text, "Arial", size, bold);
  }

  [[nodiscard]] const NumberTexts& Numbers() const { return writer_.Services().numbers; }
  /// A name too long for the column ends in dots, so that it does not run into the tables.
  [[nodiscard]] std::string Cut(const std::string& text) const {
    return FittedText(text, 4.85, {"Arial", 8, false}, writer_.Services().measure);
  }

  void Head() {
    const Environment& environment = writer_.Services().environment;
    Text(0.85, 1.0, T(info_.bailout ? Text::BailoutTables : Text::DecoTables), 14, 1);
    writer_.PrintPicture(environment.Logo(), kX, 2.0, 5.05, 2.0);
    if (info_.bailout)
      Text(0.9, 5.4, Cut(T(Text::TableProfile) + ": " + info_.caption.substr(0, info_.caption.find(" ["))));
    writer_.PrintBoxOutline(kX, kY, 5.8, 5.9);
    Text(0.9, 4.6, T(Text::ReportPrintedBy) + environment.UserName());
    Text(0.9, 5.0, T(Text::ReportDate) + environment.Today());
    Text(0.9, 0.6, T(Text::ReportAid) + T(Text::ReportRisk), 7);
    Text(0.9, 6.0, Cut(info_.model));
  }

  void Limits() {
    writer_.PrintBoxOutline(kX, 6.5, 5.8, 7.3);
    writer_.PrintFilledBox(0.81, 6.91, 5.75, 7.28, kGrey);
    Text(kX + 0.1, kY + 2.0, T(Text::ReportEND));
    Text(kX + 1.15, kY + 2.0, Numbers().Fixed(template_.MaximalEND, 0));
    Text(kX + 0.15, kY + 2.4, "PPO2");
    Text(kX + 1.15, kY + 2.4, Numbers().Fixed(template_.MaxPPO2, 2));
    Text(kX + 2.7, kY + 2.0, T(Text::ReportRMV));
    // Cubic feet in whole numbers would be 1 for any diver.
    const int decimals = template_.Metric ? 0 : 2;
    Text(kX + 4.2, kY + 2.0, Numbers().Fixed(template_.RMV, decimals));
    Text(kX + 2.7, kY + 2.4, T(Text::ReportDecoRMV));
    Text(kX + 4.2, kY + 2.4, Numbers().Fixed(template_.DecoRMV, decimals));
  }

  [[nodiscard]] int RateRows() const {
    return static_cast<int>(std::max(template_.AscendRates.size(), template_.DescendRates.size()));
  }
  [[nodiscard]] double RateHeight() const { return std::min(kRateHeight, kMostOfRates / std::max(1, RateRows())); }
  /// In points.
  [[nodiscard]] int RateSize() const {
    constexpr double kCmOfPoint = 0.041;
    return std::clamp(static_cast<int>(RateHeight() / kCmOfPoint), 1, 7);
  }

  void RatesFrame() {
    writer_.PrintBoxOutline(kX, 7.5, 5.8, 7.9);
    writer_.PrintBoxOutline(kX, 7.9, 5.8, 8.3);
    const double height = RateHeight();
    writer_.PrintBoxOutline(kX, 8.3, 5.8, kRatesTop + RateRows() * height);
    for (int i = 0; i < RateRows(); i += 2) {
      writer_.PrintFilledBox(0.81, kRatesTop + i * height, 5.75, kRatesTop + (i + 1) * height - 0.02, kGrey);
    }
  }

  void Rates(double half, int title, const std::vector<RateEntry>& rates) {
    const double x = kX + 0.2 + half;
    Text(x, kY + 3.0, T(title));
    Text(x, kY + 3.5, T(Text::InfoDepth));
    Text(x + 1.0, kY + 3.5, T(Text::ReportRate));
    double y = kRatesTop;
    for (const RateEntry& entry : rates) {
      Text(x, y, Numbers().Plain(entry.Depth), RateSize());
      Text(x + 1.0, y, Numbers().Plain(entry.Rate), RateSize());
      y += RateHeight();
    }
  }

  /// Lines from y on; returns where they end.
  double Lines(double y, const std::string& text) {
    constexpr int kSize = 7;
    constexpr double kLine = 0.33;
    for (const std::string& line : WrappedText(text, 4.85, {"Arial", kSize, false}, writer_.Services().measure)) {
      Text(0.9, y, line, kSize);
      y += kLine;
    }
    return y;
  }

  double Units(double y) {
    const bool metric = template_.Metric;
    return Lines(y, writer_.Texts().Filled(Text::TableUnits,
                                           {T(metric ? Text::ReportMetres : Text::ReportFeet),
                                            T(metric ? Text::ReportBar : Text::ReportAta),
                                            T(metric ? Text::ReportLitresPerMin : Text::ReportCubicFeetPerMin)}));
  }

  /// What the times of deco tables are, and the gases; those of a bail-out lack one in turn.
  double Gases(double y) {
    if (info_.bailout) return y;
    std::string gases;
    for (const GasChange& change : template_.ChangeGasMixes) {
      if (change.Name.empty()) continue;
      const std::string depth =
          Numbers().Short(change.Depth) + " " + T(template_.Metric ? Text::ReportMetres : Text::ReportFeet);
      gases += (gases.empty() ? "" : ", ") + writer_.Texts().Filled(Text::TablesGasFrom, {change.Name, depth});
    }
    y = Lines(y + 0.1, T(info_.descentCounts ? Text::TablesDescentCounts : Text::TablesDescentLeftOut));
    return Lines(y + 0.1,
                 gases.empty() ? T(Text::TableNoDecoGas) : writer_.Texts().Filled(Text::TableDecoGases, {gases}));
  }

  PrintPreview& writer_;
  const TableInfo& info_;
  const DiveTemplate& template_;
};

}  // namespace

double PrintTableInfo(PrintPreview& writer, const TableInfo& info) { return Column(writer, info).Print(); }

}  // namespace tav
