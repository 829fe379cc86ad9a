#include "dialogs/properties_limits.h"

#include "model/text_id.h"

namespace tav {

LimitsPage::LimitsPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame14", Text::TemplateGasSettings) {
  Texts({{&Frame17, Text::TemplatePPO2},
         {&Label3, Text::TemplateMinPPO2},
         {&Label4, Text::TemplateMaxPPO2},
         {&Frame18, Text::TemplateGasUse},
         {&lbRMV, Text::TemplateRMV},
         {&Frame19, Text::TemplateNarcotic},
         {&cbONarcotic, Text::TemplateO2Narcotic},
         {&Label8, Text::TemplateMaxEND}});
  const Limits minPPO{3, 0.16, 2};
  const Limits maxPPO{3, 1.6, 3};
  sheet.Add(tbMinPPO, {&DiveTemplate::MinPPO2, Quantity::Pressure, 2, 2, minPPO, minPPO},
            {Text::TemplateBadMinPPO2, "0.16", " Bar", "0.16", " Ata"});
  sheet.Add(tbMaxPPO, {&DiveTemplate::MaxPPO2, Quantity::Pressure, 2, 2, maxPPO, maxPPO},
            {Text::TemplateBadMaxPPO2, "1.4", " Bar", "1.4", " Ata"});
  sheet.AddRate(tbRMV, &DiveTemplate::RMV);
  sheet.Add(tbMaximalEND,
            {&DiveTemplate::MaximalEND, Quantity::Length, 0, 2, Limits{500, 0, 500}, Limits{500, 1.6, 500}},
            {Text::TemplateBadMaxEND, "30", " Meters", "100", " Feet"});
  sheet.AddUnits({&Label6, &lbMaxPPOUnit}, Text::TemplateBar, Text::TemplateAta);
  sheet.AddUnits({&Label2}, Text::TemplateLitresPerMin, Text::TemplateCubicFeetPerMin);
  sheet.AddUnits({&Label9}, Text::TemplateMetres, Text::TemplateFeet);
  sheet.Add(cbONarcotic, &DiveTemplate::O2Narcotic);
}

WarningsPage::WarningsPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame9", Text::TemplateWarnings) {
  Texts({{&cbWarnPPOLow, Text::TemplateWarnPPO2Low},
         {&cbWarnPPOHigh, Text::TemplateWarnPPO2High},
         {&cbWarnMaxEND, Text::TemplateWarnEND},
         {&Frame20, Text::TemplateDiveLimits},
         {&lbRun, Text::MarginsRun},
         {&lbStops, Text::MarginsStops},
         {&lbCNS, Text::MarginsCNS},
         {&ckGas, Text::MarginsGas}});
  sheet.Add(cbWarnPPOLow, &DiveTemplate::PPO2Low);
  sheet.Add(cbWarnPPOHigh, &DiveTemplate::PPO2High);
  sheet.Add(cbWarnMaxEND, &DiveTemplate::MaxEnd);
  for (const TextBox* field : {&tbRun, &tbStops, &tbCNS}) sheet.Watch(*field);
  sheet.Watch(ckGas);
}

void WarningsPage::Fill() { limits_.Show(LimitsOf(sheet_.Template())); }

std::string WarningsPage::Fault() const {
  return limits_.Read(LimitsOf(sheet_.Template())).sound ? ""
                                                         : Frame20.Caption.Get() + ": " + T(Text::MarginsLimitFault);
}

void WarningsPage::Store(DiveTemplate& t) {
  const DiveLimits limits = limits_.Read(LimitsOf(t)).limits;
  if (limits != LimitsOf(t)) t.Limits = limits;
}

}  // namespace tav
