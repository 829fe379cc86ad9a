#include "plans/document_forms.h"

#include "plans/captions.h"

namespace tav {

frmWaypointEditor& DocumentForms::operator()(std::int16_t document) {
  const auto index = static_cast<std::size_t>(document);
  if (index >= forms_.size()) forms_.resize(index + 1);
  if (!forms_[index]) forms_[index] = std::make_unique<frmWaypointEditor>(*this, document);
  return *forms_[index];
}

std::int16_t DocumentForms::NewDocument() {
  const std::int16_t number = services_.documents.AllocateDocumentSlot();
  services_.documents(number) = {};
  (*this)(number).Form_Load();
  return number;
}

std::int16_t DocumentForms::LoadNewDoc() {
  const std::int16_t number = NewDocument();
  DocumentState& document = services_.documents(number);
  CopyDiveTemplate(services_.documents(DocumentStore::DefaultDocument).Template, document.Template);
  SetUpNewPlan(document.Template);
  document.TemplateTitle = document.Template.Templatename;
  document.ProfileName = UntitledName(services_.texts, number);
  frmWaypointEditor& window = (*this)(number);
  window.setNullWaypoint();
  window.setPrevNext(-1, -1);
  Activate(number);
  return number;
}

std::int16_t DocumentForms::AddRepetitiveDive(std::int16_t previous, Single surfaceInterval, bool intervalOnAir) {
  DiveRecord dive{services_.documents(previous).Template, surfaceInterval, {}};
  dive.Template.IntervalOnAir = intervalOnAir;
  // The new dive itself has no changes yet, but its series has.
  return InsertDive(previous, dive);
}

std::int16_t DocumentForms::InsertDive(std::int16_t previous, const DiveRecord& dive) {
  const std::int16_t number = NewDocument();
  DocumentState& document = services_.documents(number);
  const DocumentState& before = services_.documents(previous);
  document.Template = dive.Template;
  document.TemplateTitle = dive.Template.Templatename;
  document.ProfileName = before.ProfileName;
  document.ProfileFolder = before.ProfileFolder;
  document.SurfaceInterval = dive.SurfaceInterval;
  document.PreviousDocument = previous;
  frmWaypointEditor& window = (*this)(number);
  window.UserActions = dive.UserActions;
  const std::int16_t next = (*this)(previous).NextProfile;
  window.setPrevNext(previous, next);
  (*this)(previous).setNext(number);
  if (next != -1) {
    (*this)(next).PrevProfile = number;
    services_.documents(next).PreviousDocument = number;
  }
  for (std::int16_t i = next; i != -1; i = (*this)(i).NextProfile) (*this)(i).UpdateSurfProfiles();
  services_.documents(window.getFirstProfile()).Modified = true;
  window.ReEvaluateUserEnteredWaypoints();
  Activate(number);
  return number;
}

std::string DocumentForms::Caption(std::int16_t document) {
  const DocumentState& state = services_.documents(document);
  const frmWaypointEditor& window = (*this)(document);
  return window.PrevProfile == -1 ? DocumentCaption(services_.texts, state)
                                  : RepetitiveCaption(services_.texts, state, window.DiveNumber);
}

std::optional<std::int16_t> DocumentForms::Active() const {
  if (activated_.empty()) return std::nullopt;
  return activated_.back();
}

void DocumentForms::Activate(std::int16_t document) {
  if (services_.documents(document).SlotFree) return;
  std::erase(activated_, document);
  activated_.push_back(document);
  services_.display.StateChanged(document);
}

void DocumentForms::Unload(std::int16_t document) {
  services_.documents(document).SlotFree = true;
  std::erase(activated_, document);
  services_.display.StateChanged(document);
}

}  // namespace tav
