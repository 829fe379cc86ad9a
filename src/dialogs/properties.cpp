#include "dialogs/properties.h"

#include <utility>

#include "dialogs/unit_change.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "model/units.h"

namespace tav {

frmProperties::frmProperties(const DialogServices& services) : DialogForm("frmProperties", services) {
  ListView1.ItemClick = [this] { ShowPage(); };
  units.Option1_0.Click = [this] { Option1_Click(0); };
  units.Option1_1.Click = [this] { Option1_Click(1); };
  gases.Changed = altitude.Changed = [this] { stops.ShowAutoDepths(); };
  gases.Release = [this](const std::string& gas) { return stops.DeleteChangeTo(gas); };
  cbDefault.Click = [this] { cbDefault_Click(); };
  cbOK.Default = true;
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] {
    cancelled_ = true;
    Unload();
  };
  const std::pair<Control*, int> captions[] = {{&lbNewPlans, Text::TemplateOfNewPlans},
                                               {&Label23, Text::TemplateCategory},
                                               {&cbOK, Text::TemplateOK},
                                               {&cbCancel, Text::TemplateCancel},
                                               {&cbDefault, Text::TemplateDefault}};
  for (const auto& [control, id] : captions) control->Tag = std::to_string(id);
}

void frmProperties::Form_Load() {
  AddRow.Caption = std::to_string(Text::TemplateAddRow);
  DelRow.Caption = std::to_string(Text::TemplateDeleteRow);
  Localize();
  // The letters of the menu would be those of all buttons.
  for (Button* add : {&rates.cbAddDescend, &rates.cbAddAscend, &stops.cbAddChange}) {
    add->Caption = ReplaceAll(T(Text::TemplateAddRow), "&", "");
  }
  for (Button* remove : {&rates.cbDelDescend, &rates.cbDelAscend, &stops.cbDelChange, &gases.cbDelGas}) {
    remove->Caption = ReplaceAll(T(Text::TemplateDeleteRow), "&", "");
  }
  SetDocument(services_.ActiveOrDefault());
  std::vector<std::string> items;
  for (std::size_t i = 0; i < pages_.size(); ++i) items.push_back(T(Text::TemplateCategories + static_cast<int>(i)));
  ListView1.Items = items;
  ListView1.SelectedItem = 0;
  ShowPage();
}

void frmProperties::ShowPage() {
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    pages_.at(i)->frame.Visible = static_cast<int>(i) == ListView1.SelectedItem;
  }
}

void frmProperties::SetDocument(std::int16_t index) {
  sheet_.BeginFilling(index);
  ForEachPage([](TemplatePage& page) { page.Fill(); });
  ShowUnits();
  sheet_.EndFilling();
  const DocumentState& document = services_.Documents()(index);
  Caption = T(sheet_.IsOfNewPlans() ? Text::SettingsOfNewPlans : Text::SettingsOfThisPlan) + T(Text::TemplateDash) +
            (document.ProfileFolder.empty() ? document.TemplateTitle : document.ProfileName);
  lbNewPlans.Visible = sheet_.IsOfNewPlans();
  cbDefault.Enabled = !sheet_.IsOfNewPlans();
}

void frmProperties::Option1_Click(int index) {
  const bool toImperial = index == 0;
  const bool isChange = toImperial == sheet_.metric;
  sheet_.metric = !toImperial;
  ShowUnits();
  if (!isChange) return;
  // What is shown is converted, not the record.
  sheet_.Convert(toImperial);
  ForEachPage([&](TemplatePage& page) { page.Convert(toImperial ? kFeetPerMetre : kMetresPerFoot); });
}

void frmProperties::ShowUnits() {
  sheet_.ShowUnits();
  ForEachPage([](TemplatePage& page) { page.ShowUnits(); });
}

void frmProperties::cbDefault_Click() {
  if (sheet_.IsChanged() &&
      Box(T(Text::TemplateDropEntries), Caption, BoxIcon::Question, BoxButtons::YesNo) != BoxAnswer::Yes) {
    return;
  }
  SetDocument(DocumentStore::DefaultDocument);
}

void frmProperties::cbOK_Click() {
  // Return presses OK without leaving the field.
  sheet_.JudgeEmptyFields();
  std::string fault;
  for (const TemplatePage* page : pages_) {
    if (fault.empty()) fault = page->Fault();
  }
  const bool unkept = sheet_.IsChanged() || sheet_.Template().TemplateChanged;
  DiveTemplate t = sheet_.Template();
  if (fault.empty()) {
    t.CeilingOverride = false;
    t.Metric = sheet_.metric;
    sheet_.Store(t);
    ForEachPage([&](TemplatePage& page) { page.Store(t); });
    fault = T(JoinFaults(TemplateFaults(t)));
  }
  if (!fault.empty()) {
    Box(fault, T(Text::TemplateTitle), BoxIcon::Stop);
    return;
  }
  const std::int16_t document = sheet_.document;
  const bool wasMetric = sheet_.Template().Metric;
  sheet_.Template() = std::move(t);
  MarkChanged(document);
  // The default template is no part of the plan in the active window.
  if (document == services_.ActiveOrDefault()) {
    if (!sheet_.IsOfNewPlans()) OfferToConvertDepths(services_, document, wasMetric);
    if (services_.applyToProfile) services_.applyToProfile();
  }
  if (sheet_.IsOfNewPlans() && unkept) OfferToKeep();
  cancelled_ = false;
  Unload();
}

void frmProperties::OfferToKeep() {
  if (!services_.keepDefaultTemplate) return;
  const std::string question = T(Text::TemplateKeepForLater, {services_.defaultTemplateFile});
  if (Box(question, T(Text::TemplateTitle), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes)
    services_.keepDefaultTemplate();
}

void frmProperties::Form_Unload() {
  // OK computes the plan anew; else "already adapted" is left as a change of its own, which the plan must follow.
  const bool stored = !cancelled_ && !sheet_.IsOfNewPlans();
  const auto adapted = altitude.AdaptedDocument();
  if (!stored && adapted) services_.forms(*adapted).ReEvaluateUserEnteredWaypoints();
}

}  // namespace tav
