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
  dive.Template.Texts = {};  // a series has them in its first dive
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
  document.UserActions = dive.UserActions;
  frmWaypointEditor& window = (*this)(number);
  const std::int16_t next = before.NextDocument;
  window.setPrevNext(previous, next);
  for (std::int16_t i = next; i != -1; i = (*this)(i).NextProfile) (*this)(i).UpdateSurfProfiles();
  services_.documents(window.getFirstProfile()).Modified = true;
  window.ReEvaluateUserEnteredWaypoints();
  Activate(number);
  services_.display.StateChanged(previous);  // it has a number now
  return number;
}

void DocumentForms::Link(std::int16_t document, std::int16_t previous, std::int16_t next) {
  DocumentStore& documents = services_.documents;
  const auto join = [&](std::int16_t first, std::int16_t second) {
    if (first != -1) documents(first).NextDocument = second;
    if (second != -1) documents(second).PreviousDocument = first;
  };
  join(documents(document).PreviousDocument, documents(document).NextDocument);
  documents(document).PreviousDocument = -1;
  documents(document).NextDocument = -1;
  if (previous != -1) join(previous, document);
  if (next != -1) join(document, next);
}

std::vector<SeriesDive> DocumentForms::Series(std::int16_t document, bool whole) {
  std::vector<SeriesDive> dives;
  int number = 0;
  const std::int16_t first = (*this)(document).getFirstProfile();
  for (std::int16_t n = first; n != -1; n = (*this)(n).NextProfile) {
    ++number;
    if (!whole && n != document) continue;
    DocumentState& state = services_.documents(n);
    dives.push_back({(*this)(n).Planned(), state.Template, state.ProfileName, number});
  }
  for (SeriesDive& dive : dives) {
    dive.ofDives = number;
    dive.texts = services_.documents(first).Template.Texts;
  }
  return dives;
}

std::string DocumentForms::Caption(std::int16_t document) {
  const DocumentState& state = services_.documents(document);
  const bool alone = state.PreviousDocument == -1 && state.NextDocument == -1;
  return DocumentCaption(services_.texts, state, alone ? 0 : (*this)(document).DiveNumber);
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
