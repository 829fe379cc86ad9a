#include "mixer/mix_report.h"

#include <utility>
#include <vector>

#include "model/text_id.h"
#include "pages/wrapped_text.h"

namespace tav {
namespace {

const std::string kArial = "Arial";
constexpr int kTitleSize = 18;
constexpr int kTextSize = 10;
constexpr double kRow = 0.5;  // cm

/// Writes the sheet; lengths in cm.
class Sheet {
 public:
  Sheet(const MixReport& report, PrintPreview& writer)
      : report_(report),
        writer_(writer),
        words_(writer.Texts(), writer.Services().numbers, report.request.metric),
        advice_(report.request, GaugeMark(report.request.metric)) {}

  void Write() {
    const FillRequest& request = report_.request;
    Cylinder(2.0, T(Text::MixerCurrent), request.currentFill, request.current);
    Cylinder(15.0, T(Text::MixerDesired), request.desiredFill, request.desired);
    ToAdd();
    List();
    Sentences();
    Analysis();
  }

 private:
  [[nodiscard]] std::string T(int id) const { return writer_.Texts().GetResString(id); }
  [[nodiscard]] std::string Number(Single value) const { return writer_.Services().numbers.Fixed(value, 1); }
  [[nodiscard]] std::string Pressure(Single value) const { return Number(value) + " " + words_.Unit(); }
  void Text(double x, double y, const std::string& text, int size = kTextSize, int bold = 0) {
    writer_.PrintTextLeft(x, y, text, kArial, size, bold);
  }

  void Block(double x, double y, const std::string& title, double top, double bottom,
             const std::vector<std::pair<std::string, std::string>>& rows) {
    constexpr double kWidth = 5.0;
    constexpr double kLabel = 0.5;
    constexpr double kValue = 2.5;
    Text(x, y, title, kTitleSize);
    writer_.PrintBoxOutline(x, top, x + kWidth, bottom);
    double row = top;
    for (const auto& [label, value] : rows) {
      Text(x + kLabel, row, label);
      Text(x + kValue, row, value);
      row += kRow;
    }
  }

  void Cylinder(double x, const std::string& title, Single fill, const MixShares& mix) {
    Block(x, 5.0, title, 6.0, 8.0,
          {{T(Text::Pressure), Pressure(fill)},
           {T(Text::MixerO2), Number(mix.O2) + "%"},
           {T(Text::MixerHe), Number(mix.He) + "%"},
           {T(Text::MixerN2), Number(mix.N2) + "%"}});
  }

  void ToAdd() {
    const auto shown = [this](Single percentBar) {
      return Pressure(percentBar / 100 * (report_.request.metric ? 1.0 : kPsiPerBar));
    };
    const FillResult& result = report_.result;
    Block(2.0, 12.0, T(Text::MixerToAdd), 13.5, 15.0,
          {{T(Text::MixerO2), shown(result.AirO2)},
           {T(Text::MixerHe), shown(result.Heneed)},
           {T(Text::MixerAir), shown(result.Air)}});
    constexpr double kWords = 15.05;
    constexpr double kWidth = 6.7;
    Lines(2.0, kWords, kWidth, words_.AboutAirTop(result, report_.request));
  }

  /// Writes a sentence in lines of a width, and tells where the next one begins.
  double Lines(double x, double y, double width, const std::string& sentence) {
    constexpr int kSmall = 9;
    constexpr double kLine = 0.42;
    if (sentence.empty()) return y;
    for (const std::string& line : WrappedText(sentence, width, {kArial, kSmall, false}, writer_.Services().measure)) {
      Text(x, y, line, kSmall);
      y += kLine;
    }
    return y;
  }

  void List() {
    constexpr double kLeft = 9.0;
    const auto rows = words_.Rows(advice_, report_.cylinder);
    // Right edges.
    const std::vector<double> columns =
        rows.front().size() > 4 ? std::vector{15.0, 19.5, 24.0, 28.0} : std::vector{15.0, 20.5, 26.0};
    constexpr int kSize = 12;  // to be read at arm's length
    constexpr double kListRow = 0.6;
    constexpr double kTop = 9.9;
    Text(kLeft, 9.0, T(Text::FillTitle), kTitleSize);
    double y = kTop;
    for (const auto& row : rows) {
      const int bold = y == kTop ? 1 : 0;
      Text(kLeft, y, row.front(), kSize, bold);
      for (std::size_t i = 1; i < row.size(); ++i) {
        writer_.PrintTextRight(columns.at(i - 1), y, row[i], kArial, kSize, bold);
      }
      y += kListRow;
      if (bold != 0) writer_.PrintBoxOutline(kLeft, y - 0.05, columns.at(row.size() - 2), y - 0.05);
    }
  }

  void Sentences() {
    constexpr double kLeft = 9.0;
    constexpr double kWidth = 19.3;  // to the edge of the title's band
    double y = 12.95;
    for (const std::string& sentence :
         {words_.Hindrance(advice_), words_.Misses(advice_), words_.Outcome(advice_), words_.Warm(advice_),
          words_.IfIdeal(advice_), words_.AboutPressures(report_.request)}) {
      y = Lines(kLeft, y, kWidth, sentence);
    }
  }

  void Analysis() {
    constexpr double kTop = 16.2;
    constexpr double kRule = 16.6;
    Text(2.0, kTop, T(Text::SheetAnalysed), kTextSize, 1);
    const struct {
      int label;
      double x;
      double from;
      double to;
    } blanks[] = {{Text::SheetO2, 5.0, 6.2, 8.5},
                  {Text::SheetHe, 9.0, 10.2, 12.5},
                  {Text::SheetDate, 13.0, 14.5, 18.5},
                  {Text::SheetName, 19.0, 20.6, 28.0}};
    for (const auto& blank : blanks) {
      Text(blank.x, kTop, T(blank.label));
      writer_.PrintBoxOutline(blank.from, kRule, blank.to, kRule);
    }
  }

  const MixReport& report_;
  PrintPreview& writer_;
  FillWords words_;
  FillAdvice advice_;
};

}  // namespace

void PrintMixReport(const MixReport& report, PrintPreview& writer) {
  const auto text = [&writer](int id) { return writer.Texts().GetResString(id); };
  const Environment& environment = writer.Services().environment;
  writer.InitPreview();
  writer.documentName = text(Text::MixerSheet);
  writer.PrintHeader(text(Text::MixerTitle), text(Text::MixerSheet), text(Text::MixerDate) + environment.Today());
  Sheet(report, writer).Write();
  writer.PrintFooter(text(Text::ReportPrintedBy) + environment.UserName(), text(Text::ReportAid),
                     text(Text::ReportRisk), text(Text::ReportPage) + "1");
  writer.EndReport(text(Text::MixerReport));
}

}  // namespace tav
