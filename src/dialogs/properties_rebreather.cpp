#include "dialogs/properties_rebreather.h"

#include "model/text_id.h"

namespace tav {

RebreatherPage::RebreatherPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame8", Text::TemplateLoop) {
  Texts({{&Label1, Text::TemplateSetpoint},
         {&Label19, Text::TemplateDecoSetpoint},
         {&Check2, Text::TemplateOpenForDeco},
         {&cbKeepsDiluent, Text::TemplateKeepsDiluent},
         {&cbIntervalOnAir, Text::IntervalOnAir}});
  sheet.Add(SetPoint, {&DiveTemplate::Setpoint, Quantity::Pressure, 0, 3},
            {Text::TemplateBadSetpoint, "1.4", " Bar", "1.4", " Ata"});
  sheet.Add(Text6, {&DiveTemplate::DecoSetpoint, Quantity::Pressure, 0, 3},
            {Text::TemplateBadDecoSetpoint, "1.4", " Bar", "1.4", " Ata"});
  sheet.AddUnits({&lBarAta, &Label5}, Text::TemplateBar, Text::TemplateAta);
  sheet.Add(Check2, &DiveTemplate::OCDeco);
  sheet.Add(cbKeepsDiluent, &DiveTemplate::KeepsDiluent);
  sheet.Add(cbIntervalOnAir, &DiveTemplate::IntervalOnAir);
}

void RebreatherPage::Fill() {
  const bool onLoop = !sheet_.Template().OpenCircuit;
  for (Control* control : std::initializer_list<Control*>{&SetPoint, &Text6, &Check2}) control->Enabled = onLoop;
  for (CheckBox* box : {&cbKeepsDiluent, &cbIntervalOnAir}) {
    box->Enabled = onLoop && !sheet_.IsOfNewPlans();
    // A new plan always keeps its diluent and spends its interval on air.
    if (sheet_.IsOfNewPlans()) box->Value = true;
  }
}

}  // namespace tav
