// The unit switch of the template dialog: it converts what is shown, not the record.

#include <cmath>
#include <utility>

#include "dialogs/properties.h"
#include "model/altitude.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/units.h"

namespace tav {
namespace {

constexpr double kAtmospheresPerBar = 0.9887;
constexpr double kBarPerAtmosphere = 1.01325;
constexpr double kCubicFeetPerLitre = 0.0353157;
constexpr double kLitresPerCubicFoot = 28.316017;

}  // namespace

void frmProperties::Option1_Click(int index) {
  const bool toImperial = index == 0;
  Option1_0.Value = toImperial;
  Option1_1.Value = !toImperial;
  if (toImperial != Metric()) return;
  unitsAreMetric_ = !toImperial;
  ShowUnitLabels();
  ConvertFields(toImperial);
}

void frmProperties::ConvertFields(bool toImperial) {
  const double length = toImperial ? kFeetPerMetre : kMetresPerFoot;
  const double pressure = toImperial ? kAtmospheresPerBar : kBarPerAtmosphere;
  const double volume = toImperial ? kCubicFeetPerLitre : kLitresPerCubicFoot;
  const auto scale = [this](TextBox& field, double factor, int decimals) {
    field.Text = Fixed(Number(field.Text) * factor, decimals);
  };
  const auto scaleBetween = [this](TextBox& field, double factor, double high, double lowValue, double highValue,
                                   int decimals) {
    Single value = Rounded(field, 2) * factor;
    field.Text = Written(Between(value, 0, high, lowValue, highValue, decimals));
  };
  scale(tbStepSize, length, 0);
  scale(tbLastStop, length, 0);
  scale(Text7, pressure, 2);
  const int volumeDecimals = toImperial ? 1 : 0;
  // What takes the place of a breathing rate of 0 or less.
  const double leastVolume = 1;
  scaleBetween(Text8, volume, 200, leastVolume, 200, volumeDecimals);
  ConvertGrid(fgAscend, toImperial, true, true);
  ConvertGrid(fgDescend, toImperial, true, false);
  scaleBetween(tbRMV, volume, 200, leastVolume, 200, volumeDecimals);
  scaleBetween(tbMinPPO, pressure, 3, 0.16, 2, 2);
  scaleBetween(tbMaxPPO, pressure, 3, 1.6, 3, 2);
  scaleBetween(tbMaximalEND, length, 500, 0, 500, 0);
  scale(SetPoint, pressure, 2);
  scale(Text6, pressure, 2);
  scale(Text2, length, 0);
  scale(Text5, length, 0);
  ShowPressures();
  if (cbAutoDecoGas.Value) {
    ShowAutoDepths();
  } else {
    ConvertGrid(fgGasChange, toImperial, false, false);
  }
}

void frmProperties::ConvertGrid(Grid& grid, bool toImperial, bool bothColumns, bool rounded) {
  const double length = toImperial ? kFeetPerMetre : kMetresPerFoot;
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 0; column < (bothColumns ? 2 : 1); ++column) {
      const auto value = NumberIn(grid.Text(row, column));
      if (!value) continue;  // not given yet
      const double from = rounded ? std::nearbyint(*value) : *value;
      const double to = rounded ? std::nearbyint(from * length) : from * length;
      grid.SetText(row, column, FormatFixed(Single(to), 0));
    }
  }
}

void frmProperties::ShowPressures() {
  for (const auto& [altitude, pressure] : {std::pair(&Text2, &Text4), std::pair(&Text5, &Text3)}) {
    const bool known = NumberIn(altitude->Text).has_value();
    pressure->Text = known ? Fixed(AltitudeToPressure(Rounded(*altitude, 0), Metric()), 3) : "";
  }
}

}  // namespace tav
