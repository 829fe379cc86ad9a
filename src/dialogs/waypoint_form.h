#pragma once

#include <algorithm>
#include <optional>
#include <string>

#include "dialogs/dialog_form.h"
#include "dialogs/mix_information.h"
#include "model/profile.h"
#include "model/template_faults.h"

namespace tav {

/// Depth, time and gas of one waypoint, with suggestions for the best gases. The result goes into the last row of the
/// profile given by `data`; a depth of -100 there means that the user gave up.
class frmWaypointForm : public DialogForm {
 public:
  static constexpr double kCancelled = -100;

  explicit frmWaypointForm(const DialogServices& services);

  Label Label3{*this, "Label3"};
  TextBox tbDepth{*this, "tbDepth"};
  SpinButton udDepthSpin{*this, "udDepthSpin"};
  Label lbDepthUnit{*this, "lbDepthUnit"};
  Label Label2{*this, "Label2"};
  TextBox tbTime{*this, "tbTime"};
  SpinButton udTimeSpin{*this, "udTimeSpin"};
  Label Label5{*this, "Label5"};
  Label lbLegTime{*this, "lbLegTime"};  ///< how the time divides between the move and the depth
  Label lbCeiling{*this, "lbCeiling"};  ///< at the end of the plan, where there is one
  Frame Frame2{*this, "Frame2"};
  ComboBox Combo1{*this, "Combo1"};
  Label lbMixName{*this, "lbMixName"};  ///< in its place in a viewer
  Label lbO2{*this, "lbO2"};
  TextBox tbO2{*this, "tbO2"};
  Label lbN2{*this, "lbN2"};
  TextBox tbN2{*this, "tbN2"};
  Label lbHe{*this, "lbHe"};
  TextBox tbHe{*this, "tbHe"};
  Frame Frame3{*this, "Frame3"};
  Frame Frame4{*this, "Frame4"};  ///< nitrox
  Label lbNitroxO2{*this, "lbNitroxO2"};
  TextBox Text1{*this, "Text1"};
  Label lbNitroxN2{*this, "lbNitroxN2"};
  TextBox Text2{*this, "Text2"};
  Button cbNitroxAdd{*this, "cbNitroxAdd"};
  Frame Frame5{*this, "Frame5"};  ///< trimix
  Label lbTrimixO2{*this, "lbTrimixO2"};
  TextBox Text6{*this, "Text6"};
  Label lbTrimixN2{*this, "lbTrimixN2"};
  TextBox Text5{*this, "Text5"};
  Label lbTrimixHe{*this, "lbTrimixHe"};
  TextBox Text4{*this, "Text4"};
  Button cbTrimixAdd{*this, "cbTrimixAdd"};
  Frame Frame6{*this, "Frame6"};  ///< heliox
  Label lbHelioxO2{*this, "lbHelioxO2"};
  TextBox Text9{*this, "Text9"};
  Label lbHelioxHe{*this, "lbHelioxHe"};
  TextBox Text7{*this, "Text7"};
  Button cbHelioxAdd{*this, "cbHelioxAdd"};
  Frame Frame1{*this, "Frame1"};              ///< the information panel
  Label lbGasAtDepth{*this, "lbGasAtDepth"};  ///< the chosen gas, and below it its figures
  Label lbPPO2{*this, "lbPPO2"};
  Label lbEND{*this, "lbEND"};
  Label lbMOD{*this, "lbMOD"};
  Label lbInformation{*this, "lbInformation"};  ///< what the panel is for, while it shows no mix
  Label Text10{*this, "Text10"};
  Label Text11{*this, "Text11"};
  Label Text12{*this, "Text12"};
  Button cbEdit{*this, "cbEdit"};  ///< in the viewer of a row that belongs to a leg
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  /// Must be called ahead of showing. entry 0 makes the dialog a viewer of the row; any other value takes a new one.
  void data(ClassProfile& profile, std::int16_t entry);

  /// The viewer offers to go to the leg of its row.
  void OfferEdit() { cbEdit.Visible = true; }
  /// The user has taken that offer.
  [[nodiscard]] bool EditWanted() const { return editWanted_; }

  void cbOK_Click();
  void cbCancel_Click();

  /// Only the digits of a text; only digits, "." and ",".
  static std::string NumericInput(const std::string& text);
  static std::string AlphaNumericInput(const std::string& text);

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  using Kind = MixInformation::Kind;

  void Wire();
  void WireSuggestion(Kind kind, TextBox& field, Button& add);
  void SetCaptions();
  void FillCombo();
  void Combo1_Click();
  /// The number of the gas of the dialog; one that was typed by its name is added to the plan. Nothing for no gas.
  std::optional<std::int16_t> ChosenGas();
  void ShowAsViewer();
  void DepthChanged();
  void DepthConfirmed();
  void ShowGas();
  void ShowLeg();
  [[nodiscard]] std::string TimesText(Single depth, Single time) const;
  [[nodiscard]] std::string Length(const std::string& number) const;
  [[nodiscard]] std::string Pressure(Single ppo2) const;
  [[nodiscard]] Single Ceiling() const;
  /// Why the plan can't take such a leg; empty when it can.
  [[nodiscard]] std::string Refusal(Single depth, Single time) const;
  void DepthTyped();
  void Step(TextBox& field, int by);
  void Suggest();
  void ShowMix(Kind kind);
  void ShowPair(const std::optional<MixFractions>& mix, Single MixFractions::*other, TextBox& o2, TextBox& rest,
                Button& add);
  void Overtyped(Kind kind, TextBox& field, Button& add);
  void AddMix(const std::string& name, Single o2, Single n2, Single he);
  void ShowInfo(Kind kind, bool edited);
  void HideInfo();
  void ShowInfoLines(bool shown);
  [[nodiscard]] const frmWaypointEditor* Plan() const;
  /// The depth in its field, as far as it is one.
  [[nodiscard]] Single Depth() const { return std::clamp<double>(Number(tbDepth.Text), 0, kMaximumDepth); }
  [[nodiscard]] DiveTemplate& Template() const { return TemplateOf(documentIndex_); }
  [[nodiscard]] Waypoint& Row() const { return profile_->Row(row_); }

  ClassProfile* profile_ = nullptr;
  std::int16_t row_ = 0;
  std::int16_t documentIndex_ = 0;
  bool viewer_ = false;
  bool accepted_ = false;
  bool editWanted_ = false;
  std::optional<MixFractions> nitrox_;  ///< as suggested or typed; nothing when no such mix keeps the limits
  MixFractions trimix_;
  std::optional<MixFractions> heliox_;
  bool overtyped_ = false;    ///< a mix is not the one that was suggested
  std::optional<Kind> told_;  ///< the mix that the panel tells of
};

}  // namespace tav
