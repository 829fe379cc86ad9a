#pragma once

#include <string>
#include <vector>

#include "dialogs/properties_altitude.h"
#include "dialogs/properties_gases.h"

namespace tav {

/// How the ascent is decompressed: stops, the gas at them, and the depths at which gases are changed, which may follow
/// from the gases and the surface.
class StopsPage : public TemplatePage {
 public:
  StopsPage(TemplateSheet& sheet, const GasesPage& gases, const AltitudePage& altitude);

  Frame Frame5{form_, "Frame5"};
  Label Label7{form_, "Label7"};
  TextBox tbStepSize{form_, "tbStepSize"};
  Label lbStepUnit{form_, "lbStepUnit"};
  Label Label15{form_, "Label15"};
  TextBox tbLastStop{form_, "tbLastStop"};
  Label lbLastStopUnit{form_, "lbLastStopUnit"};
  Frame Frame16{form_, "Frame16"};
  Label Label20{form_, "Label20"};
  TextBox Text7{form_, "Text7"};  ///< deco PPO2
  Label Label17{form_, "Label17"};
  Label Label21{form_, "Label21"};
  TextBox Text8{form_, "Text8"};  ///< deco RMV
  Label Label22{form_, "Label22"};
  Frame Frame3{form_, "Frame3"};
  CheckBox cbAutoDecoGas{form_, "cbAutoDecoGas"};
  Grid fgGasChange{form_, "fgGasChange"};
  Button cbAddChange{form_, "cbAddChange"};
  Button cbDelChange{form_, "cbDelChange"};

  /// Brings depths that follow from the gases in line with them.
  void ShowAutoDepths();
  /// Deletes the change to a gas; false when it is the only one.
  bool DeleteChangeTo(const std::string& gas);

  /// The page looks at those of the gases and the altitude, which are to be filled and converted before.
  void Fill() override;
  void ShowUnits() override;
  void Convert(double length) override;
  [[nodiscard]] std::string Fault() const override { return changes_.Fault(Frame3.Caption); }
  /// After the gases.
  void Store(DiveTemplate& t) override;

 private:
  void WireChanges();
  void FillChanges();
  [[nodiscard]] Single DepthOfPPO2(Single ppo2, const std::string& gas) const;
  void cbAutoDecoGas_Click();
  void ShowChangesEditable();
  void saveDecoGasSettings();
  void loadDecoGasSettings();
  void DeleteChange(int row);

  /// A depth at which a gas is changed, as the user typed it.
  struct DecoDepth {
    std::string metric;
    std::string imperial;
  };

  const GasesPage& gases_;
  const AltitudePage& altitude_;
  TemplateTable changes_{sheet_, fgGasChange, 0, 1};
  std::vector<DecoDepth> decoGasSettings_;  ///< by row, while the depths follow from the gases
};

}  // namespace tav
