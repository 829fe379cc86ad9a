// Whose settings the template dialog shows: those of the active plan, or those that new plans begin with.

#include "dialogs/properties.h"

namespace tav {
namespace {

constexpr int kTitle = 1600;
constexpr int kDash = 1653;
constexpr int kDropEntries = 8101;
constexpr int kKeepForLater = 8102;

}  // namespace

void frmProperties::SetDocument(std::int16_t index) {
  documentIndex_ = index;
  unitsAreMetric_ = Template().Metric;
  changed_.clear();
  filled_.clear();
  InitFrames();
  filled_ = Entries();
  Caption = T(kTitle) + T(kDash) + services_.Documents()(documentIndex_).TemplateTitle;
  lbNewPlans.Visible = documentIndex_ == DocumentStore::DefaultDocument;
  cbDefault.Enabled = documentIndex_ != DocumentStore::DefaultDocument;
}

std::vector<std::string> frmProperties::Entries() {
  std::vector<std::string> entries;
  for (const TextBox* field : NumberFields()) entries.push_back(field->Text);
  for (const CheckBox* box : {&cbAutoDecoGas, &Check2, &cbONarcotic, &cbWarnPPOLow, &cbWarnPPOHigh, &cbWarnMaxEND}) {
    entries.emplace_back(box->Value ? "1" : "0");
  }
  entries.emplace_back(Metric() ? "1" : "0");
  for (const Grid* grid : {&fgDescend, &fgAscend, &fgGasChange, &FgGas}) {
    entries.push_back(std::to_string(grid->Rows()));
    for (int row = 1; row < grid->Rows(); ++row) {
      for (int column = 0; column < grid->Columns(); ++column) entries.push_back(grid->Text(row, column));
    }
  }
  return entries;
}

void frmProperties::cbDefault_Click() {
  if (IsChanged() && Box(T(kDropEntries), Caption, BoxIcon::Question, BoxButtons::YesNo) != BoxAnswer::Yes) return;
  SetDocument(DocumentStore::DefaultDocument);
}

void frmProperties::OfferToKeep() {
  if (!services_.keepDefaultTemplate) return;
  const std::string question = T(kKeepForLater, {services_.defaultTemplateFile});
  if (Box(question, T(kTitle), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes) services_.keepDefaultTemplate();
}

void frmProperties::Form_Unload() {
  // OK computes the plan anew; else "already adapted" is left as a change of its own, which the plan must follow.
  const bool stored = !cancelled_ && documentIndex_ != DocumentStore::DefaultDocument;
  if (!stored && adaptedDocument_) services_.forms(*adaptedDocument_).ReEvaluateUserEnteredWaypoints();
}

}  // namespace tav
