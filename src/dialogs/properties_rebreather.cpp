#include "dialogs/properties_rebreather.h"

namespace tav {

RebreatherPage::RebreatherPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame8", 1650) {
  Texts({{&Label1, 1651}, {&Label19, 3074}, {&Check2, 3075}, {&cbKeepsDiluent, 8305}, {&cbIntervalOnAir, 8306}});
  sheet.Add(SetPoint, {&DiveTemplate::Setpoint, Quantity::Pressure, 0, 3}, {3055, "1.4", " Bar", "1.4", " Ata"});
  sheet.Add(Text6, {&DiveTemplate::DecoSetpoint, Quantity::Pressure, 0, 3}, {3056, "1.4", " Bar", "1.4", " Ata"});
  sheet.AddUnits({&lBarAta, &Label5}, 1629, 1630);
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
