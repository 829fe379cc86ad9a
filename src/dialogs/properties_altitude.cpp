#include "dialogs/properties_altitude.h"

#include <algorithm>

#include "model/altitude.h"
#include "model/text_id.h"

namespace tav {

AltitudePage::AltitudePage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame1", Text::TemplateAltitude) {
  Texts({{&Frame12, Text::TemplateStartAltitude},
         {&lbStartAltitude, Text::TemplateAltitude},
         {&lbStartPressure, Text::Pressure},
         {&lbEndAltitude, Text::TemplateAltitude},
         {&Check1, Text::TemplateAdapted},
         {&Label10, Text::TemplateTimeToAdapt},
         {&Label12, Text::TemplateMinutes},
         {&Frame11, Text::TemplateSurfacePressure},
         {&Label14, Text::Pressure}});
  const TemplateSheet::Remedy altitude{Text::TemplateBadAltitude, "1", " Meters", "1", " Feet"};
  sheet.Add(Text2, {&DiveTemplate::StartAltitude, Quantity::Length, 0, 0}, altitude, [this] { AltitudeChanged(true); });
  sheet.Add(Text5, {&DiveTemplate::EndAltitude, Quantity::Length, 0, 0}, altitude, [this] { AltitudeChanged(false); });
  sheet.Add(Text1, {}, {Text::TemplateBadTimeToAdapt, "1", " Minutes", "1", " Minutes"});
  sheet.AddUnits({&Label11, &Label18}, Text::MetresWord, Text::FeetWord);
  sheet.AddUnits({&Label13, &Label16}, Text::BarWord, Text::AtaWord);
  Frame11.ToolTipText = Text5.ToolTipText = T(Text::TemplateSurfacePressureMeans);
  Text4.Locked = true;
  Text3.Locked = true;
  Check1.Click = [this] { Check1_Click(); };
}

void AltitudePage::Fill() {
  const DiveTemplate& t = sheet_.Template();
  Text1.Text = Fixed(Single(t.TimeToHeight), 0);
  Check1.Value = t.AdeptedToHeight;
  endFollowsStart_ = t.StartAltitude == t.EndAltitude && t.StartPressure == t.EndPressure;
  ShowPressures();
  ShowAdapted();
}

void AltitudePage::AltitudeChanged(bool ofStart) {
  // Who dives at an altitude comes up there, unless told otherwise.
  if (ofStart && endFollowsStart_) Text5.Text = Text2.Text;
  if (!ofStart) endFollowsStart_ = NumberIn(Text5.Text) == NumberIn(Text2.Text);
  ShowPressures();
  Changed();
}

void AltitudePage::ShowPressures() {
  for (const auto& [altitude, pressure] : {std::pair(&Text2, &Text4), std::pair(&Text5, &Text3)}) {
    const bool known = NumberIn(altitude->Text).has_value();
    pressure->Text = known ? Fixed(AltitudeToPressure(sheet_.Rounded(*altitude, 0), sheet_.metric), 3) : "";
  }
}

void AltitudePage::ShowAdapted() {
  for (Control* control : std::initializer_list<Control*>{&Text1, &Label10, &Label12}) {
    control->Visible = !Check1.Value;
  }
}

void AltitudePage::Check1_Click() {
  sheet_.Template().AdeptedToHeight = Check1.Value;
  sheet_.services.MarkChanged(sheet_.document);
  if (!sheet_.IsOfNewPlans()) adaptedDocument_ = sheet_.document;
  ShowAdapted();
}

Single AltitudePage::EndPressure() const {
  return sheet_.IsFilledIn(Text5) ? sheet_.Template().EndPressure
                                  : AltitudeToPressure(sheet_.Rounded(Text5, 0), sheet_.metric);
}

void AltitudePage::Store(DiveTemplate& t) {
  t.AdeptedToHeight = Check1.Value;
  t.TimeToHeight = static_cast<std::int16_t>(std::clamp<double>(sheet_.Rounded(Text1, 0), 1, INT16_MAX));
  t.StartPressure = AltitudeToPressure(t.StartAltitude, t.Metric);
  t.EndPressure = AltitudeToPressure(t.EndAltitude, t.Metric);
}

}  // namespace tav
