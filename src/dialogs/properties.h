#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "dialogs/dialog_form.h"

namespace tav {

/// All settings of a template, in eight frames of which one is seen. The fields stand as text in the units shown; the
/// record is touched by OK alone, but for a gas that is added and for "already adapted", which count at once.
class frmProperties : public DialogForm {
 public:
  explicit frmProperties(const DialogServices& services);

  Label lbNewPlans{*this, "lbNewPlans"};  ///< the settings are those of new plans
  Label Label23{*this, "Label23"};
  ListView ListView1{*this, "ListView1"};
  // Rates.
  Frame Frame13{*this, "Frame13"};
  Frame Frame7{*this, "Frame7"};
  Grid fgDescend{*this, "fgDescend"};
  Button cbAddDescend{*this, "cbAddDescend"};
  Button cbDelDescend{*this, "cbDelDescend"};
  Frame Frame6{*this, "Frame6"};
  Grid fgAscend{*this, "fgAscend"};
  Button cbAddAscend{*this, "cbAddAscend"};
  Button cbDelAscend{*this, "cbDelAscend"};
  // Decompression.
  Frame Frame15{*this, "Frame15"};
  Frame Frame5{*this, "Frame5"};
  Label Label7{*this, "Label7"};
  TextBox tbStepSize{*this, "tbStepSize"};
  Label lbStepUnit{*this, "lbStepUnit"};
  Label Label15{*this, "Label15"};
  TextBox tbLastStop{*this, "tbLastStop"};
  Label lbLastStopUnit{*this, "lbLastStopUnit"};
  Frame Frame16{*this, "Frame16"};
  Label Label20{*this, "Label20"};
  TextBox Text7{*this, "Text7"};  ///< deco PPO2
  Label Label17{*this, "Label17"};
  Label Label21{*this, "Label21"};
  TextBox Text8{*this, "Text8"};  ///< deco RMV
  Label Label22{*this, "Label22"};
  Frame Frame3{*this, "Frame3"};
  CheckBox cbAutoDecoGas{*this, "cbAutoDecoGas"};
  Grid fgGasChange{*this, "fgGasChange"};
  Button cbAddChange{*this, "cbAddChange"};
  Button cbDelChange{*this, "cbDelChange"};
  // Units.
  Frame Frame2{*this, "Frame2"};
  OptionButton Option1_1{*this, "Option1_1"};  ///< metric
  OptionButton Option1_0{*this, "Option1_0"};  ///< imperial
  // Gases.
  Frame Frame4{*this, "Frame4"};
  Grid FgGas{*this, "FgGas"};
  Button cbCustomBlend{*this, "cbCustomBlend"};
  Button cbDelGas{*this, "cbDelGas"};
  Button Command1{*this, "Command1"};  ///< the mixer, for the gas that was chosen last
  // Altitude.
  Frame Frame1{*this, "Frame1"};
  Frame Frame12{*this, "Frame12"};
  Label lbStartAltitude{*this, "lbStartAltitude"};
  TextBox Text2{*this, "Text2"};  ///< start altitude
  Label Label11{*this, "Label11"};
  Label lbStartPressure{*this, "lbStartPressure"};
  TextBox Text4{*this, "Text4"};  ///< its pressure
  Label Label13{*this, "Label13"};
  CheckBox Check1{*this, "Check1"};
  Label Label10{*this, "Label10"};
  TextBox Text1{*this, "Text1"};  ///< time to altitude
  Label Label12{*this, "Label12"};
  Frame Frame11{*this, "Frame11"};
  Label lbEndAltitude{*this, "lbEndAltitude"};
  TextBox Text5{*this, "Text5"};  ///< end altitude
  Label Label18{*this, "Label18"};
  Label Label14{*this, "Label14"};
  TextBox Text3{*this, "Text3"};  ///< its pressure
  Label Label16{*this, "Label16"};
  // Rebreather.
  Frame Frame8{*this, "Frame8"};
  Label Label1{*this, "Label1"};
  TextBox SetPoint{*this, "SetPoint"};
  Label lBarAta{*this, "lBarAta"};
  Label Label19{*this, "Label19"};
  TextBox Text6{*this, "Text6"};  ///< deco setpoint
  Label Label5{*this, "Label5"};
  CheckBox Check2{*this, "Check2"};
  CheckBox cbKeepsDiluent{*this, "cbKeepsDiluent"};
  CheckBox cbIntervalOnAir{*this, "cbIntervalOnAir"};
  // Limits.
  Frame Frame14{*this, "Frame14"};
  Frame Frame17{*this, "Frame17"};
  Label Label3{*this, "Label3"};
  TextBox tbMinPPO{*this, "tbMinPPO"};
  Label Label6{*this, "Label6"};
  Label Label4{*this, "Label4"};
  TextBox tbMaxPPO{*this, "tbMaxPPO"};
  Label lbMaxPPOUnit{*this, "lbMaxPPOUnit"};
  Frame Frame18{*this, "Frame18"};
  Label lbRMV{*this, "lbRMV"};
  TextBox tbRMV{*this, "tbRMV"};
  Label Label2{*this, "Label2"};
  Frame Frame19{*this, "Frame19"};
  CheckBox cbONarcotic{*this, "cbONarcotic"};
  Label Label8{*this, "Label8"};
  TextBox tbMaximalEND{*this, "tbMaximalEND"};
  Label Label9{*this, "Label9"};
  // Warnings.
  Frame Frame9{*this, "Frame9"};
  CheckBox cbWarnPPOLow{*this, "cbWarnPPOLow"};
  CheckBox cbWarnPPOHigh{*this, "cbWarnPPOHigh"};
  CheckBox cbWarnMaxEND{*this, "cbWarnMaxEND"};

  Button cbDefault{*this, "cbDefault"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};
  MenuItem AddRow{*this, "AddRow"};
  MenuItem DelRow{*this, "DelRow"};

  /// The user left by OK: false; by anything else: true.
  [[nodiscard]] bool Cancelled() const { return cancelled_; }

  /// What stands in a file for a depth or a rate that has not been given yet; its cell is empty.
  static constexpr double kNotGiven = 1000000;

  /// A value at or below `low` becomes `lowValue`, then one at or above `high` becomes `highValue`; the result as text
  /// with so many decimals.
  static std::string Between(Single& value, Single low, Single high, Single lowValue, Single highValue, int decimals);
  /// What a cell shows of a typed text: the number that is left when all but digits and separators are taken out, in
  /// plain form; what is left, if that is no number; "10" if nothing is left; a blank text is that of a value not
  /// given.
  static std::string PurgeNumericInput(const std::string& text, const LocaleSeparators& separators);
  /// O2 in percent of the gas of that name in the list of gases; -1 when there is none.
  [[nodiscard]] double GetPercentO2(const std::string& name) const;

  void SetDocument(std::int16_t index);
  void Option1_Click(int index);
  void cbAutoDecoGas_Click();
  void cbDefault_Click();
  void cbOK_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  // properties.cpp
  void Wire();
  void SetCaptions();
  void InitFrames();
  void InitConstPPOFrame();
  void InitAltitudeFrame();
  void InitGasAvailableFrame();
  [[nodiscard]] std::vector<std::string> GasRow(const GasMix& mix) const;
  void InitGasSettingsFrame();
  void InitDecoStepsFrame();
  void InitUnitsFrame();
  void InitWarningsFrame();
  void ShowFrame(int index);
  void ShowUnitLabels();
  void ShowAdapted();
  void Check1_Click();

  // properties_document.cpp
  /// All that stands in the dialog and is stored by OK, the fields of NumberFields first.
  [[nodiscard]] std::vector<std::string> Entries();
  [[nodiscard]] bool IsChanged() { return Entries() != filled_; }
  void OfferToKeep();

  // properties_fields.cpp
  std::array<TextBox*, 13> NumberFields();
  void FieldChanged(TextBox& field);
  /// Brings in line what is worked out from a field.
  void ShowWhatFollows(const TextBox& field);
  void FieldLeft(TextBox& field);
  void Validate(TextBox& field);
  [[nodiscard]] bool Metric() const { return unitsAreMetric_; }
  [[nodiscard]] Single Rounded(const TextBox& field, int places) const;
  /// So many decimals, or as many as the number has.
  [[nodiscard]] std::string Whole(Single value, int decimals) const;
  /// Stores a field that has another text than at first.
  void Store(Single& value, const TextBox& field, int places);
  void Store(Single& value, TextBox& field, double low, double high, double lowValue, double highValue, int shown);
  /// The text was filled in; what it tells is kept as it is.
  [[nodiscard]] bool IsFilledIn(const TextBox& field);
  void StoreFields(DiveTemplate& t);
  void StoreGrids(DiveTemplate& t) const;

  // properties_units.cpp
  void ConvertFields(bool toImperial);
  void ConvertGrid(Grid& grid, bool toImperial, bool bothColumns, bool rounded);
  void ShowPressures();

  // properties_grids.cpp
  void WireGrids();
  void WireRows(Grid& grid, Button* add, Button& remove);
  /// A depth or a rate as its cell shows it; nothing for one that has not been given.
  [[nodiscard]] std::string Cell(Single value) const { return value == kNotGiven ? "" : Whole(value, 0); }
  void FillRates(Grid& grid, const std::vector<RateEntry>& rates);
  void ShowHeads();
  void InitDecoGasFrame();
  [[nodiscard]] Single DepthOfPPO2(Single ppo2, const std::string& gas);
  void ShowAutoDepths();
  void ShowChangesEditable();
  void saveDecoGasSettings();
  void loadDecoGasSettings();
  void CommitNumber(Grid& grid, int row, int column, const std::string& text);
  /// What the shares of a gas come to, in percent.
  [[nodiscard]] Single SharesOf(int row) const;
  void MarkGas(int row);
  /// Why a row, or the first row of all tables that has a fault, can't be stored; empty when all can.
  [[nodiscard]] std::string CellFault(const Grid& grid, int row) const;
  [[nodiscard]] std::string GridFault() const;
  void FgGas_MouseDown();
  void OpenRowMenu(Grid& grid);
  void AppendRow(Grid& grid);
  void DeleteRow(Grid& grid);
  void RemoveRow(Grid& grid, int row);
  void DeleteBlend(int row);
  void Refuse(int text);

  [[nodiscard]] DiveTemplate& Template() const { return TemplateOf(documentIndex_); }

  /// A depth at which a gas is changed, as the user typed it.
  struct DecoDepth {
    std::string metric;
    std::string imperial;
  };

  static constexpr int kOxygen = 1;  ///< columns of the table of gases
  static constexpr int kHelium = 2;
  static constexpr int kNitrogen = 3;

  bool cancelled_ = true;
  std::int16_t documentIndex_ = 0;
  double MixerO2_ = 0;
  double MixerHe_ = 0;
  bool unitsAreMetric_ = true;
  std::vector<DecoDepth> decoGasSettings_;
  Grid* menuGrid_ = nullptr;
  std::vector<std::string> filled_;              ///< the entries as they were filled in
  bool endFollowsStart_ = false;                 ///< one altitude was set for both, and its change is one of both
  std::set<const TextBox*> changed_;             ///< fields that the user has changed since they were judged
  std::optional<std::int16_t> adaptedDocument_;  ///< the document whose "already adapted" was clicked
};

}  // namespace tav
