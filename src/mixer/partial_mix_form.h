#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "controls/text_form.h"
#include "mixer/mix_report.h"
#include "model/dive_template.h"

namespace tav {

/// The gas mixer: what is in a cylinder, what shall be in it, and what to fill. Nothing is computed from a field that
/// is blank or no number: the results are empty then, and a line says which field it is.
///
/// Pressures are in bar, or in psi when the template that it is made with is not metric, for as long as it is open. The
/// fields are stored on every accepted change, and not while they load.
class frmPartialMix : public TextForm {
 public:
  /// `diveTemplate` gives unit and gases, and is copied. The writer takes the sheet, and outlives the window.
  frmPartialMix(Platform platform, PrintPreview& writer, DiveTemplate diveTemplate);

  Frame Frame1{*this, "Frame1"};  ///< the current cylinder
  CheckBox Check1{*this, "Check1"};
  Label Label1{*this, "Label1"};
  TextBox CurFill{*this, "CurFill"};
  Label Label15{*this, "Label15"};
  Label Label2{*this, "Label2"};
  TextBox CurO2{*this, "CurO2"};
  Label Label3{*this, "Label3"};
  TextBox CurHe{*this, "CurHe"};
  Label Label4{*this, "Label4"};
  TextBox CurN2{*this, "CurN2"};

  Frame Frame4{*this, "Frame4"};  ///< the desired cylinder
  Label Label29{*this, "Label29"};
  ComboBox Combo1{*this, "Combo1"};
  Label Label14{*this, "Label14"};
  TextBox DesFill{*this, "DesFill"};
  Label Label16{*this, "Label16"};
  Label Label13{*this, "Label13"};
  TextBox DesO2{*this, "DesO2"};
  Label Label12{*this, "Label12"};
  TextBox DesHe{*this, "DesHe"};
  Label Label11{*this, "Label11"};
  TextBox DesN2{*this, "DesN2"};

  Frame Frame6{*this, "Frame6"};  ///< how it is filled
  Label lbTopO2{*this, "lbTopO2"};
  TextBox tbTopO2{*this, "tbTopO2"};
  Label lbTopHe{*this, "lbTopHe"};
  TextBox tbTopHe{*this, "tbTopHe"};
  Label lbCelsius{*this, "lbCelsius"};
  TextBox tbCelsius{*this, "tbCelsius"};  ///< temperature at which the gauge is read
  Label lbCelsiusUnit{*this, "lbCelsiusUnit"};
  Label lbFilledAt{*this, "lbFilledAt"};
  TextBox tbFilledAt{*this, "tbFilledAt"};  ///< that of the cylinder while it is filled; may be blank
  Label lbFilledAtUnit{*this, "lbFilledAtUnit"};

  Frame Frame3{*this, "Frame3"};  ///< ideal gases: what to add
  Label lbAirTopO2{*this, "lbAirTopO2"};
  Label AirTopO2{*this, "AirTopO2"};
  Label Label17{*this, "Label17"};
  Label lbAirTopHe{*this, "lbAirTopHe"};
  Label AirTopHe{*this, "AirTopHe"};
  Label Label18{*this, "Label18"};
  Label lbAirTopAir{*this, "lbAirTopAir"};
  Label AirTopAir{*this, "AirTopAir"};
  Label Label19{*this, "Label19"};
  Label lbAboutAirTop{*this, "lbAboutAirTop"};  ///< what can't be reached

  Frame Frame2{*this, "Frame2"};  ///< real gases
  Label lbIdealTopO2{*this, "lbIdealTopO2"};
  Label IdealTopO2{*this, "IdealTopO2"};
  Label Label20{*this, "Label20"};
  Label lbIdealTopHe{*this, "lbIdealTopHe"};
  Label IdealTopHe{*this, "IdealTopHe"};
  Label Label22{*this, "Label22"};
  Label lbIdealTopN2{*this, "lbIdealTopN2"};
  Label IdealTopN2{*this, "IdealTopN2"};
  Label Label26{*this, "Label26"};
  Label lbAboutReal{*this, "lbAboutReal"};  ///< that a figure below 0 is no pressure

  Frame Frame5{*this, "Frame5"};  ///< the list to fill by
  Label lbCylinder{*this, "lbCylinder"};
  TextBox tbCylinder{*this, "tbCylinder"};  ///< litres of water, or rated cubic feet; may be blank
  Label lbCylinderUnit{*this, "lbCylinderUnit"};
  Label lbRated{*this, "lbRated"};
  TextBox tbRated{*this, "tbRated"};  ///< pressure that the cubic feet are rated at; with psi alone
  Label lbRatedUnit{*this, "lbRatedUnit"};
  Grid fgFill{*this, "fgFill"};
  Label lbHindrance{*this, "lbHindrance"};  ///< what is missing, or keeps the fill from being possible
  Label lbMisses{*this, "lbMisses"};        ///< how far the list misses the mix
  Label lbOutcome{*this, "lbOutcome"};      ///< the mix that the list gives
  Label lbWarm{*this, "lbWarm"};            ///< to what a warm cylinder is filled
  Label lbIfIdeal{*this, "lbIfIdeal"};      ///< what simple arithmetic would give
  Label lbPressures{*this, "lbPressures"};

  Frame Frame7{*this, "Frame7"};  ///< what came out of a fill as it was done
  Label lbSteps{*this, "lbSteps"};
  TextBox tbSteps{*this, "tbSteps"};
  Button cbMend{*this, "cbMend"};  ///< its outcome becomes the current cylinder
  Label lbStepsGive{*this, "lbStepsGive"};

  Button Command1{*this, "Command1"};  ///< print
  Button Command2{*this, "Command2"};  ///< close

  /// Presets the desired mix, in percent.
  void setmix(Single o2, Single he);

  void Check1_Click();
  void Combo1_Click();
  void Command1_Click();
  void Command2_Click();
  void cbMend_Click();

 protected:
  void Form_Load() override;

 private:
  /// The fields of one of the two cylinders.
  struct Cylinder {
    TextBox& fill;
    TextBox& o2;
    TextBox& he;
    TextBox& n2;
  };

  void Wire();
  void SetCaptions();
  void SetUnits();
  /// The rule of a pressure field: not below 0.
  void FillTyped(TextBox& fill);
  /// The rules of a mix: shares outside 0 to 100 become 0, nitrogen is the rest.
  void MixTyped(const Cylinder& cylinder, const TextBox& typed);
  /// Recomputes after typing into a field; one that is no number stores nothing.
  void Typed(const TextBox& box);
  /// Brings the fields of a mix in line with its rules.
  void ApplyMixRules(const Cylinder& cylinder);
  void ShowMix(const Cylinder& cylinder, const std::string& o2, const std::string& he);
  void UseEmptyCylinder();
  /// The list of gases names the one that the fields hold.
  void ShowBlend();
  void UpdateDesiredMix(const TextBox& typed);
  void Recalculate(bool store = true);
  void ShowResults(const FillRequest& request);
  void ShowFillList();
  void ShowSteps();
  /// The current cylinder and how it is filled, as far as the fields tell.
  [[nodiscard]] FillRequest Request();
  /// The fields that keep the mixer from computing, and the reason in words; none, and no words, when it can compute.
  struct Wrong {
    std::vector<TextBox*> fields;
    std::string why;
  };
  void ClearResults(const std::string& why);
  [[nodiscard]] Wrong WhatIsWrong();
  /// The same for the fields of how it is filled.
  [[nodiscard]] Wrong WrongWay();
  /// Marks the fields in place.
  void Mark(const Wrong& wrong);
  [[nodiscard]] std::optional<CylinderSize> SizeOfCylinder();
  void Save();
  [[nodiscard]] std::string Saved(const std::string& name) const;
  [[nodiscard]] std::string UnitName() const { return template_.Metric ? "bar" : "psi"; }
  [[nodiscard]] double FillScale() const { return template_.Metric ? 1.0 : kPsiPerBar; }

  PrintPreview& writer_;
  DiveTemplate template_;
  FillWords words_;
  Cylinder current_{CurFill, CurO2, CurHe, CurN2};
  Cylinder desired_{DesFill, DesO2, DesHe, DesN2};
  std::optional<FillRequest> mended_;  ///< what came out of the steps, as current cylinder
  std::optional<MixReport> report_;    ///< of the last Recalculate; nothing while a field is missing
  bool loading_ = false;
};

}  // namespace tav
