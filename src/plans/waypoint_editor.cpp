#include "plans/waypoint_editor.h"

#include <stdexcept>
#include <utility>

#include "model/numbers.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "model/units.h"
#include "plans/captions.h"
#include "plans/document_forms.h"

namespace tav {

frmWaypointEditor::frmWaypointEditor(DocumentForms& forms, std::int16_t documentNumber)
    : UserActions(forms.Services().documents(documentNumber).UserActions),
      PrevProfile(forms.Services().documents(documentNumber).PreviousDocument),
      NextProfile(forms.Services().documents(documentNumber).NextDocument),
      forms_(forms),
      documentNumber_(documentNumber) {}

const PlanServices& frmWaypointEditor::Services() const { return forms_.Services(); }

DocumentState& frmWaypointEditor::Document() const { return Services().documents(documentNumber_); }

PlannedDive frmWaypointEditor::Planned() const {
  return {Document(), computed_, PrevProfile == -1 ? nullptr : &Services().documents(PrevProfile)};
}

void frmWaypointEditor::Form_Load() {
  DiveNumber = 1;
  forms_.Link(documentNumber_, -1, -1);
  UserActions.clear();
  wantsAscent_ = true;
  ++opening_;
  ComputedPlan empty;
  empty.model = Services().model;
  Take(std::move(empty));
  setNullWaypoint();
}

void frmWaypointEditor::SetTemplate() { Services().display.StateChanged(documentNumber_); }

void frmWaypointEditor::setNullWaypoint() {
  FillStartRow(Document().Template, computed_.startCNS, computed_.startOTU, computed_.rows);
}

void frmWaypointEditor::SaveUserEnteredWaypoints(Single duration, Single depth, std::int16_t mix, bool isAscent) {
  UserActions.NewAction();
  const std::int16_t last = UserActions.GetLength();
  UserActions.setuser(last, depth, duration, mix);
  if (isAscent) UserActions.setdeco(last);
}

void frmWaypointEditor::ConvertDepths(bool toMetres) {
  const double factor = toMetres ? kMetresPerFoot : kFeetPerMetre;
  for (int i = 1; i <= UserActions.GetLength(); ++i) {
    const auto action = static_cast<std::int16_t>(i);
    if (UserActions.getaction(action) != ClassUseractions::kLeg) continue;
    UserActions.setuser(action, RoundSingle(UserActions.getDepth(action) * factor, 1), UserActions.gettime(action),
                        UserActions.getmixnumber(action));
  }
}

void frmWaypointEditor::ReEvaluateUserEnteredWaypoints() {
  Evaluate();
  SurfStartDeco();
}

PlanState frmWaypointEditor::PresentState() const { return {Document(), computed_}; }

void frmWaypointEditor::PutBack(const PlanState& state) {
  ++evaluation_;
  computed_ = state.plan;
  // Its place in the series is the present one.
  const std::int16_t previous = PrevProfile;
  const std::int16_t next = NextProfile;
  Document() = state.document;
  Document().PreviousDocument = previous;
  Document().NextDocument = next;
  FollowAscent();
}

std::vector<PlanState> frmWaypointEditor::StatesFromHere() const {
  std::vector<PlanState> states;
  for (std::int16_t n = documentNumber_; n != -1; n = forms_(n).NextProfile) states.push_back(forms_(n).PresentState());
  return states;
}

void frmWaypointEditor::PutBack(const std::vector<PlanState>& states) {
  std::int16_t n = documentNumber_;
  for (const PlanState& state : states) {
    forms_(n).PutBack(state);
    n = forms_(n).NextProfile;
    if (n == -1) break;
  }
  // Shown when all of them are back: a window may look at the dive before.
  for (n = documentNumber_; n != -1; n = forms_(n).NextProfile) forms_(n).ShowEvaluation();
}

bool frmWaypointEditor::TryActions(const ClassUseractions& actions, const std::function<bool()>& accepts) {
  const PlanState former = PresentState();
  UserActions = actions;
  Compute();
  if (!accepts()) {
    PutBack(former);
    return false;
  }
  ShowEvaluation();
  SurfStartDeco();
  return true;
}

void frmWaypointEditor::Evaluate() {
  Compute();
  ShowEvaluation();
}

void frmWaypointEditor::Take(ComputedPlan plan) {
  ++evaluation_;
  computed_ = std::move(plan);
  DocumentState& document = Document();
  static_cast<EndState&>(document) = computed_.end;
  document.StartCNS = computed_.startCNS;
  document.StartOTU = computed_.startOTU;
  FollowAscent();
}

void frmWaypointEditor::FollowAscent() {
  const std::int16_t last = UserActions.GetLength();
  if (last > 0) wantsAscent_ = UserActions.getaction(last) != ClassUseractions::kLeg;
}

std::int16_t frmWaypointEditor::LastRowOfLegs() const {
  const auto last = static_cast<std::int16_t>(UserActions.GetLength() - 1);
  return State() == EditState::Ascent ? LastRowOf(last) : InputProfile.GetLength();
}

void frmWaypointEditor::Compute() {
  const PlannedDive dive = Planned();
  ObserverRelay observer(Services().observer, documentNumber_);
  Services().display.ShowStatus(Text::Calculating);
  Take(tav::Compute(dive.record, Services().model, dive.before, observer));
  Services().display.ShowStatus(Text::Ready);
}

void frmWaypointEditor::ShowEvaluation() { Services().display.StateChanged(documentNumber_); }

bool frmWaypointEditor::StartDeco() {
  const PlanServices& services = Services();
  try {
    UserActions.NewAction();
  } catch (const std::length_error&) {
    services.boxes.Show(services.texts.GetResString(Text::TooManyRows), "", BoxIcon::Stop, BoxButtons::OK);
    return false;
  }
  UserActions.setdeco(UserActions.GetLength());
  services.display.ShowHourglass(true);
  ObserverRelay observer(services.observer, documentNumber_);
  const PlannedDive dive = Planned();
  ComputedPlan plan = computed_;
  services.display.ShowStatus(Text::Calculating);
  if (plan.fault.IsEmpty()) plan = WithAscent(std::move(plan), dive.record, services.model, dive.before, observer);
  services.display.ShowStatus(Text::Ready);
  if (!plan.fault.IsEmpty()) {
    UserActions.DeleteLast();
    services.display.ShowHourglass(false);
    services.boxes.Show(services.texts.Words(plan.fault), "", BoxIcon::Stop, BoxButtons::OK);
    return false;
  }
  MarkModified();
  Take(std::move(plan));
  UpdateSurfProfiles();
  ShowEvaluation();
  services.display.ShowHourglass(false);
  SurfStartDeco();
  return true;
}

bool frmWaypointEditor::AddLeg(Single depth, Single segmentTime, std::int16_t mix, bool withAscent) {
  const PlanServices& services = Services();
  std::string refusal = services.texts.Words(LegFault(segmentTime, depth, mix, Document().Template));
  if (depth < InputProfile.GetCeiling(withAscent ? LastRowOfLegs() : InputProfile.GetLength()))
    refusal = services.texts.GetResString(Text::AboveCeiling);
  if (refusal.empty()) {
    const ClassUseractions before = UserActions;
    try {
      if (withAscent && UserActions.GetLength() > 0) UserActions.DeleteLast();
      SaveUserEnteredWaypoints(segmentTime, depth, mix, false);
      if (withAscent) SaveUserEnteredWaypoints(0, 0, 0, true);
    } catch (const std::length_error&) {
      UserActions = before;
      refusal = services.texts.GetResString(Text::TooManyRows);
    }
  }
  if (!refusal.empty()) {
    services.boxes.Show(refusal, "", BoxIcon::Stop, BoxButtons::OK);
    return false;
  }
  MarkModified();
  ReEvaluateUserEnteredWaypoints();
  return true;
}

void frmWaypointEditor::mnucleardecopoints() {
  MarkModified();
  if (State() != EditState::Ascent) return;
  UserActions.DeleteLast();
  ReEvaluateUserEnteredWaypoints();
}

void frmWaypointEditor::mnuclearlastwaypoint() {
  MarkModified();
  UserActions.DeleteLast();
  ReEvaluateUserEnteredWaypoints();
}

void frmWaypointEditor::mnuclearallwaypoints() {
  MarkModified();
  UserActions.clear();
  ReEvaluateUserEnteredWaypoints();
}

void frmWaypointEditor::MarkModified() {
  Document().Modified = true;
  Services().documents(getFirstProfile()).Modified = true;
}

bool frmWaypointEditor::ConfirmClose(const std::function<bool()>& saveAs, const std::string& lost) {
  const PlanServices& services = Services();
  if (PrevProfile != -1 || !Document().Modified) return true;
  const TextSource& texts = services.texts;
  const std::string question = texts.GetResString(Text::UnsavedName) + DocumentCaption(texts, Document(), 0) +
                               "]?\r\n" + texts.GetResString(Text::UnsavedQuestion) +
                               (lost.empty() ? "" : "\r\n\r\n" + lost);
  const BoxAnswer answer = services.boxes.Show(question, texts.GetResString(Text::UnsavedTitle), BoxIcon::Exclamation,
                                               BoxButtons::YesNoCancel);
  // A save that failed or was given up must not cost the plan.
  return answer == BoxAnswer::No || (answer == BoxAnswer::Yes && saveAs());
}

void frmWaypointEditor::LeaveDocument(bool closedByUser) {
  DocumentState& document = Document();
  if (document.Modified) {
    document.TotalCNS = 0;
    document.TotalOTU = 0;
    document.SurfaceInterval = 0;
    document.N2Compartments = {};
    document.HeCompartments = {};
  }
  if (closedByUser) SurfDeleteProfile();
}

bool frmWaypointEditor::Form_QueryUnload(bool closedByUser, const std::function<bool()>& saveAs,
                                         const std::string& lost) {
  if (!ConfirmClose(saveAs, lost)) return false;
  LeaveDocument(closedByUser);
  return true;
}

}  // namespace tav
