#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/grid.h"
#include "dialogs/dialog_form.h"
#include "figures/information.h"
#include "supply/supply_text.h"

namespace tav {

/// The information window: settings, summary, stops, rows and gas of one dive of the active series at a time, and all
/// of it as text for the clipboard. It reads the plan and never writes it.
class frmGeneralInfo : public DialogForm {
 public:
  explicit frmGeneralInfo(const DialogServices& services);

  TabStrip TabStrip1{*this, "TabStrip1"};  ///< the dives of a series
  TabStrip TabStrip2{*this, "TabStrip2"};  ///< the dive, and its gas supply where cylinders are told
  Label Label16{*this, "Label16"};
  Label Label17{*this, "Label17"};  ///< surface interval
  Frame Frame2{*this, "Frame2"};    ///< what the dive is
  Label Label1{*this, "Label1"};
  ResultGrid fgSummary{*this, "fgSummary"};
  Label Label2{*this, "Label2"};
  ResultGrid fgDecoStop{*this, "fgDecoStop"};
  Label Label3{*this, "Label3"};
  ResultGrid fginfo{*this, "fginfo"};
  Label Label4{*this, "Label4"};
  ResultGrid fgGasConsumption{*this, "fgGasConsumption"};
  // The info block.
  Frame Frame3{*this, "Frame3"};
  Label Label6{*this, "Label6"};
  Label lbModel{*this, "lbModel"};
  Label Label5{*this, "Label5"};
  Label lbDepthConservatism{*this, "lbDepthConservatism"};
  Label lbGFConservatism{*this, "lbGFConservatism"};
  Label lbHiGF{*this, "lbHiGF"};
  Label lbHiGFValue{*this, "lbHiGFValue"};
  Label lbLoGF{*this, "lbLoGF"};
  Label lbLoGFValue{*this, "lbLoGFValue"};
  Label Label7{*this, "Label7"};
  Label Label11{*this, "Label11"};
  Label lbAFrom{*this, "lbAFrom"};
  Label lbStartPres{*this, "lbStartPres"};
  Label Label12{*this, "Label12"};
  Label lbATo{*this, "lbATo"};
  Label lbStopPres{*this, "lbStopPres"};
  Label Label8{*this, "Label8"};
  Label Label9{*this, "Label9"};
  Label lbStep{*this, "lbStep"};
  Label Label10{*this, "Label10"};
  Label lbLastStep{*this, "lbLastStep"};
  Label Label13{*this, "Label13"};
  Label lbUnits{*this, "lbUnits"};
  Label Label14{*this, "Label14"};
  Label lbAparatus{*this, "lbAparatus"};
  Label lbO2Narcotic{*this, "lbO2Narcotic"};
  Label Label15{*this, "Label15"};

  Frame frSupply{*this, "frSupply"};
  Label lbGases{*this, "lbGases"};
  ResultGrid fgSupply{*this, "fgSupply"};
  Label lbLegs{*this, "lbLegs"};
  ResultGrid fgLegs{*this, "fgLegs"};
  Label lbLoop{*this, "lbLoop"};  ///< what the loop of a rebreather itself uses

  Label lbNotice{*this, "lbNotice"};  ///< the plan does not decompress, or has no ascent
  Button cbCopy{*this, "cbCopy"};
  Button Command1{*this, "Command1"};          ///< close
  MenuItem GeneralInfo{*this, "GeneralInfo"};  ///< of the pop-up mnuCopyInfo

  /// Shows the first dive of the active series; nothing without one. To be called before the window is shown.
  void setthefirstprofile();
  /// The number of dives in the active series; -1 without an active document.
  [[nodiscard]] std::int16_t getNumberofSeries() const;
  void TabStrip1_Click();
  void GeneralInfo_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void SetUpControls();
  void setInfo(std::int16_t dive, bool showInterval);
  [[nodiscard]] DiveInformation InformationOf(std::int16_t dive) const;
  void ShowSupply(std::int16_t dive);
  void ShowTab();
  void TellStops();
  void ShowBlock(const DiveInformation::Block& block);
  [[nodiscard]] std::optional<std::int16_t> FirstDive() const;

  std::int16_t dive_ = -1;  ///< the dive that is shown
  SupplyTables supply_;     ///< its gas supply
};

}  // namespace tav
