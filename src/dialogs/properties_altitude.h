#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/template_page.h"

namespace tav {

/// The altitudes of start and end. "Already adapted" counts at once, also when the dialog is cancelled in the end.
class AltitudePage : public TemplatePage {
 public:
  explicit AltitudePage(TemplateSheet& sheet);

  Frame Frame12{form_, "Frame12"};
  Label lbStartAltitude{form_, "lbStartAltitude"};
  TextBox Text2{form_, "Text2"};  ///< start altitude
  Label Label11{form_, "Label11"};
  Label lbStartPressure{form_, "lbStartPressure"};
  TextBox Text4{form_, "Text4"};  ///< its pressure
  Label Label13{form_, "Label13"};
  CheckBox Check1{form_, "Check1"};
  Label Label10{form_, "Label10"};
  TextBox Text1{form_, "Text1"};  ///< time to altitude
  Label Label12{form_, "Label12"};
  Frame Frame11{form_, "Frame11"};
  Label lbEndAltitude{form_, "lbEndAltitude"};
  TextBox Text5{form_, "Text5"};  ///< end altitude
  Label Label18{form_, "Label18"};
  Label Label14{form_, "Label14"};
  TextBox Text3{form_, "Text3"};  ///< its pressure
  Label Label16{form_, "Label16"};

  /// An altitude has changed.
  Event Changed;
  /// At the end.
  [[nodiscard]] Single EndPressure() const;
  /// The document whose "already adapted" was clicked.
  [[nodiscard]] std::optional<std::int16_t> AdaptedDocument() const { return adaptedDocument_; }

  void Fill() override;
  void Convert(double /*length*/) override { ShowPressures(); }
  void Store(DiveTemplate& t) override;

 private:
  void AltitudeChanged(bool ofStart);
  void ShowPressures();
  void ShowAdapted();
  void Check1_Click();

  bool endFollowsStart_ = false;  ///< one altitude was set for both, and its change is one of both
  std::optional<std::int16_t> adaptedDocument_;
};

}  // namespace tav
