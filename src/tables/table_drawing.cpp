#include "tables/table_drawing.h"

#include <algorithm>

#include "figures/dive_figures.h"
#include "figures/model_name.h"
#include "figures/settings_words.h"
#include "model/text_id.h"
#include "pages/page_units.h"

namespace tav {
namespace {

constexpr Colour kGrey = RGB(200, 200, 200);
constexpr int kSize = 7;  // points
const std::string kArial = "Arial";

class Drawing {
 public:
  Drawing(PrintPreview& writer, const SmallTable& table, const TablePlace& place)
      : writer_(writer), table_(table), f_(table, place) {}

  void Draw(const std::string& title, int firstStopRow) {
    writer_.PrintBoxOutline(f_.left + 0.7, f_.top + 0.4, f_.left + 1.6, f_.Bottom());
    writer_.PrintBoxOutline(f_.left, f_.top, f_.Right(), f_.top + 0.4);
    for (int dive = 1; dive < f_.columns; dive += 2) {
      writer_.PrintFilledBox(f_.Column(dive), f_.top + 0.43, f_.Column(dive) + 0.55, f_.Bottom() - 0.02, kGrey);
    }
    writer_.PrintBoxOutline(f_.left, f_.top, f_.Right(), f_.Bottom());
    GasRules();
    writer_.PrintTextFitted(f_.left + 0.1, f_.top, title, f_.TitleWidth(), kArial, kSize, 1);
    Text(f_.left + 0.8, f_.top + 0.4, Cell(0, TableColumn::kDepth));
    for (int row = 1; row <= f_.rows; ++row) {
      const std::string& depth = table_.depths[static_cast<std::size_t>(row)];
      Text(f_.left + 0.9, f_.Text(row), writer_.Services().numbers.Written(depth));
    }
    for (int dive = 0; dive < f_.columns; ++dive) {
      Centred(dive, f_.top + 0.4, DiveCell(0, dive));
      Centred(dive, f_.Text(f_.rows + 1), table_.totals[static_cast<std::size_t>(dive)]);
    }
    writer_.PrintBoxOutline(f_.left, f_.Row(f_.rows + 1), f_.Right(), f_.End());
    Text(f_.left + 0.2, f_.Text(f_.rows + 1), writer_.Texts().GetResString(Text::InfoRunTime));
    Stops(firstStopRow);
    Text(f_.left + 0.1, f_.top + 0.4, Cell(0, TableColumn::kMix));
    for (int row = 1; row <= f_.rows; ++row) {
      writer_.PrintTextLeft(f_.left + 0.05, f_.Text(row), Cell(row, TableColumn::kMix), kArial, 6, 1);
    }
  }

 private:
  [[nodiscard]] const std::string& Cell(int row, std::size_t column) const {
    return table_.cells[static_cast<std::size_t>(row)][column];
  }
  [[nodiscard]] const std::string& DiveCell(int row, int dive) const {
    return Cell(row, TableColumn::kFirstDive + static_cast<std::size_t>(dive));
  }
  void Text(double x, double y, const std::string& text, int bold = 0) {
    writer_.PrintTextLeft(x, y, text, kArial, kSize, bold);
  }
  void Centred(int dive, double y, const std::string& text) {
    // Four figures would touch those beside them.
    constexpr double kRoom = 0.5 * page::kUnitsPerCm;
    const bool wide = writer_.Services().measure.TextWidth(text, {kArial, kSize, false}) > kRoom;
    writer_.PrintInCen(f_.Column(dive) + 0.27, y, text, kArial, wide ? kSize - 1 : kSize, 0);
  }

  /// A black rule above each change of gas.
  void GasRules() {
    std::string mix;
    for (int row = 1; row <= f_.rows; ++row) {
      if (row == 1 || Cell(row, TableColumn::kMix) != mix) {
        writer_.PrintFilledBox(f_.left, f_.Row(row), f_.Right(), f_.Row(row) + 0.02, kBlack);
      }
      mix = Cell(row, TableColumn::kMix);
    }
  }

  void Stops(int first) {
    for (int row = first; row <= f_.rows; ++row) {
      writer_.PrintBoxOutline(f_.left + 0.7, f_.Row(row), f_.Right(), f_.Row(row) + 0.5);
      for (int dive = 0; dive < f_.columns; ++dive) {
        if (!DiveCell(row, dive).empty()) Centred(dive, f_.Text(row), DiveCell(row, dive));
      }
    }
  }

  PrintPreview& writer_;
  const SmallTable& table_;
  TableFrame f_;
};

}  // namespace

std::string ModelLine(const TableDives& profiles, const PrintPreview& writer) {
  const DiveTemplate& settings = profiles.diveTemplate;
  const NumberTexts& numbers = writer.Services().numbers;
  std::string line = ModelName(profiles.model);
  if (GradientFactorsAct(settings, profiles.model)) {
    line += "  GF " + FactorRange(settings, numbers);
  } else if (!profiles.model.VPMMode) {
    line += "  GF " + writer.Texts().GetResString(Text::InfoOff);
  }
  return line;
}

std::string TableTitle(const TableDives& profiles, const PrintPreview& writer) {
  const ClassProfile& last = profiles.dives.back().profile;
  // A bail-out is an ascent on open circuit, whatever the plan is dived on.
  const bool open = profiles.bailout || profiles.diveTemplate.OpenCircuit;
  return ModelLine(profiles, writer) + "  " + MixLabel(last.Row(std::min<std::int16_t>(2, last.GetLength()))) +
         (open ? "  OC" : "  RB");
}

std::string TableCaption(const TableDives& profiles, const TextSource& texts) {
  const DiveTemplate& settings = profiles.diveTemplate;
  const std::string unit = texts.GetResString(settings.Metric ? Text::Metres : Text::Feet);
  if (profiles.bailout) return texts.Filled(Text::TableBailout, {unit});
  if (settings.OpenCircuit) return texts.Filled(Text::TableOpen, {unit});
  return texts.Filled(settings.OCDeco ? Text::TableLoopStopsOpen : Text::TableLoop, {unit}) + "; " +
         LoopState(settings, false, texts);
}

void DrawTable(PrintPreview& writer, const SmallTable& table, const TablePlace& place, const std::string& title,
               int firstStopRow) {
  Drawing(writer, table, place).Draw(title, firstStopRow);
}

}  // namespace tav
