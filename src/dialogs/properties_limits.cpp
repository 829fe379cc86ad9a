#include "dialogs/properties_limits.h"

namespace tav {

LimitsPage::LimitsPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame14", 3076) {
  Texts({{&Frame17, 3077},
         {&Label3, 1639},
         {&Label4, 1640},
         {&Frame18, 3079},
         {&lbRMV, 1638},
         {&Frame19, 3078},
         {&cbONarcotic, 1642},
         {&Label8, 1641}});
  const Limits minPPO{3, 0.16, 2};
  const Limits maxPPO{3, 1.6, 3};
  sheet.Add(tbMinPPO, {&DiveTemplate::MinPPO2, Quantity::Pressure, 2, 2, minPPO, minPPO},
            {3050, "0.16", " Bar", "0.16", " Ata"});
  sheet.Add(tbMaxPPO, {&DiveTemplate::MaxPPO2, Quantity::Pressure, 2, 2, maxPPO, maxPPO},
            {3051, "1.4", " Bar", "1.4", " Ata"});
  sheet.AddRate(tbRMV, &DiveTemplate::RMV);
  sheet.Add(tbMaximalEND,
            {&DiveTemplate::MaximalEND, Quantity::Length, 0, 2, Limits{500, 0, 500}, Limits{500, 1.6, 500}},
            {3052, "30", " Meters", "100", " Feet"});
  sheet.AddUnits({&Label6, &lbMaxPPOUnit}, 1629, 1630);
  sheet.AddUnits({&Label2}, 1628, 1627);
  sheet.AddUnits({&Label9}, 1619, 1620);
  sheet.Add(cbONarcotic, &DiveTemplate::O2Narcotic);
}

WarningsPage::WarningsPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame9", 1633) {
  Texts({{&cbWarnPPOLow, 1634}, {&cbWarnPPOHigh, 1635}, {&cbWarnMaxEND, 1636}});
  sheet.Add(cbWarnPPOLow, &DiveTemplate::PPO2Low);
  sheet.Add(cbWarnPPOHigh, &DiveTemplate::PPO2High);
  sheet.Add(cbWarnMaxEND, &DiveTemplate::MaxEnd);
}

}  // namespace tav
