#include "plans/waypoint_editor.h"

#include <stdexcept>
#include <utility>

#include "compute/leg_expansion.h"
#include "engine/oxygen_dose.h"
#include "model/numbers.h"
#include "model/template_faults.h"
#include "model/units.h"
#include "plans/captions.h"
#include "plans/document_forms.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kUnsavedName = 3057;
constexpr int kUnsavedQuestion = 3058;
constexpr int kUnsavedTitle = 3059;
constexpr int kAboveCeiling = 3061;
constexpr int kTooManyRows = 7507;
constexpr int kNotComputed = 7885;

}  // namespace

frmWaypointEditor::frmWaypointEditor(DocumentForms& forms, std::int16_t documentNumber)
    : forms_(forms), documentNumber_(documentNumber) {}

const PlanServices& frmWaypointEditor::Services() const { return forms_.Services(); }

DocumentState& frmWaypointEditor::Document() const { return Services().documents(documentNumber_); }

void frmWaypointEditor::Form_Load() {
  DiveNumber = 1;
  PrevProfile = -1;
  NextProfile = -1;
  InputProfile.Class_Initialize();
  resultProfile_.Class_Initialize();
  savedProfile_.Class_Initialize();
  UserActions.clear();
  currentRunTime_ = 0;
  editState_ = EditState::Empty;
  ++opening_;
  BeginEvaluation();
  evaluationFault_.clear();
  actionResults_.assign(1, {});
  setNullWaypoint();
}

std::optional<std::int16_t> frmWaypointEditor::LegAt(std::int16_t row) const {
  for (std::size_t i = 1; i < actionResults_.size() && row > 0; ++i) {
    const auto action = static_cast<std::int16_t>(i);
    if (row > actionResults_[i].lastRow) continue;
    return UserActions.getaction(action) == ClassUseractions::kLeg ? std::optional(action) : std::nullopt;
  }
  return std::nullopt;
}

void frmWaypointEditor::SetTemplate() { Services().display.StateChanged(documentNumber_); }

void frmWaypointEditor::CarryDoses() {
  DocumentState& document = Document();
  document.StartCNS = 0;
  document.StartOTU = 0;
  if (PrevProfile != -1) {
    const DocumentState& before = Services().documents(PrevProfile);
    document.StartCNS = CNSAfterSurfaceInterval(before.TotalCNS, document.SurfaceInterval);
    document.StartOTU = before.TotalOTU;
  }
  document.TotalCNS = document.StartCNS;
  document.TotalOTU = document.StartOTU;
}

void frmWaypointEditor::setNullWaypoint() {
  const DocumentState& document = Document();
  Waypoint& start = InputProfile.Row(0);
  start.PPO2 = document.Template.EndPressure * start.GasMixO2 / 100;
  start.CNS = document.StartCNS;
  start.OTU = document.StartOTU;
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

EngineRun frmWaypointEditor::Run(bool loadOnly) const { return {documentNumber_, PrevProfile, loadOnly, false}; }

std::string frmWaypointEditor::PreviousDiveFault() const {
  if (PrevProfile == -1 || forms_(PrevProfile).State() == EditState::Ascent) return {};
  // A later dive starts from the loads at the end of the one before: without an ascent there are none.
  return Services().texts.Filled(kNotComputed,
                                 {std::to_string(DiveNumber), std::to_string(forms_(PrevProfile).DiveNumber)});
}

void frmWaypointEditor::ReEvaluateUserEnteredWaypoints() {
  Evaluate();
  SurfStartDeco();
}

PlanState frmWaypointEditor::PresentState() const {
  return {UserActions, InputProfile,   resultProfile_,  savedProfile_,    actionResults_,
          editState_,  evaluatedWith_, currentRunTime_, evaluationFault_, Document()};
}

void frmWaypointEditor::PutBack(const PlanState& state) {
  ++evaluation_;
  UserActions = state.actions;
  InputProfile = state.rows;
  resultProfile_ = state.loadedRows;
  savedProfile_ = state.rowsBeforeAscent;
  actionResults_ = state.actionResults;
  editState_ = state.editState;
  evaluatedWith_ = state.model;
  currentRunTime_ = state.runTime;
  evaluationFault_ = state.fault;
  Document() = state.document;
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

void frmWaypointEditor::BeginEvaluation() {
  ++evaluation_;
  evaluatedWith_ = Services().model;
}

void frmWaypointEditor::Compute() {
  BeginEvaluation();
  InputProfile.clear();
  resultProfile_.clear();
  actionResults_.assign(1, {});
  CarryDoses();
  setNullWaypoint();
  Document().Decompresses = true;
  editState_ = EditState::Empty;
  std::string& fault = evaluationFault_;
  fault = PreviousDiveFault();
  // Legs are expanded by the rate tables before the engine sees them: a table without entries would be no table.
  const TextSource& texts = Services().texts;
  if (fault.empty() && UserActions.GetLength() > 0)
    fault = texts.Words(JoinFaults(TemplateFaults(Document().Template)));
  if (fault.empty()) fault = texts.Words(Message::List(PlanFaults(UserActions, Document().Template)));

  Single endTime = 0;
  Single startTime = 0;
  Single startDepth = 0;
  ReplayMemory memory;
  for (int n = 1; n <= UserActions.GetLength() && fault.empty(); ++n) {
    const auto action = static_cast<std::int16_t>(n);
    const Single ceiling = InputProfile.GetCeiling(InputProfile.GetLength());
    if (UserActions.getaction(action) == ClassUseractions::kLeg) {
      if (!EvaluateLeg(action, endTime, startTime, startDepth, memory)) break;
      editState_ = EditState::Legs;
    } else {
      if (!EvaluateAscent(endTime, startTime, startDepth)) break;
      editState_ = EditState::Ascent;
      memory.Forget();
    }
    actionResults_.push_back({InputProfile.GetLength(), ceiling});
  }
  if (!fault.empty()) {
    InputProfile.clear();
    resultProfile_.clear();
    actionResults_.assign(1, {});
    editState_ = EditState::Empty;
  }
  currentRunTime_ = InputProfile.GetRunTime(InputProfile.GetLength());
}

void frmWaypointEditor::ShowEvaluation() { Services().display.StateChanged(documentNumber_); }

bool frmWaypointEditor::EvaluateLeg(std::int16_t action, Single& endTime, Single& startTime, Single& startDepth,
                                    ReplayMemory& memory) {
  endTime += UserActions.gettime(action);
  Leg leg{startTime, startDepth, endTime, UserActions.getDepth(action), UserActions.getmixnumber(action)};
  const std::int16_t known = InputProfile.GetLength();
  try {
    GetSegmentedProfile(leg, Document().Template, InputProfile);
  } catch (const std::length_error&) {
    evaluationFault_ = Services().texts.GetResString(kTooManyRows);
    return false;
  }
  endTime = leg.endTime;
  startTime = endTime;
  startDepth = UserActions.getDepth(action);
  const bool continued = memory.Remembers();
  evaluationFault_ = ComputeProfile(Services(), Run(true), InputProfile, resultProfile_, &memory);
  // A continued replay has left the rows before this leg as they were, but for the mark of the last one.
  InputProfile.CopyFrom(resultProfile_, continued ? known : std::int16_t{0});
  return evaluationFault_.empty();
}

bool frmWaypointEditor::EvaluateAscent(Single& endTime, Single& startTime, Single& startDepth) {
  evaluationFault_ = ComputeProfile(Services(), Run(false), InputProfile, resultProfile_);
  if (!evaluationFault_.empty()) return false;
  InputProfile.Copy(resultProfile_);
  const std::int16_t last = InputProfile.GetLength();
  endTime = InputProfile.GetRunTime(last);
  startTime = endTime;
  startDepth = InputProfile.getDepth(last);
  return true;
}

bool frmWaypointEditor::StartDeco() {
  const PlanServices& services = Services();
  try {
    UserActions.NewAction();
  } catch (const std::length_error&) {
    services.boxes.Show(services.texts.GetResString(kTooManyRows), "", BoxIcon::Stop, BoxButtons::OK);
    return false;
  }
  UserActions.setdeco(UserActions.GetLength());
  services.display.ShowHourglass(true);
  savedProfile_.Copy(InputProfile);
  Document().Decompresses = true;
  std::string fault = evaluationFault_;
  ClassProfile computed;
  if (fault.empty()) fault = ComputeProfile(services, Run(false), InputProfile, computed);
  if (!fault.empty()) {
    UserActions.DeleteLast();
    services.display.ShowHourglass(false);
    services.boxes.Show(fault, "", BoxIcon::Stop, BoxButtons::OK);
    return false;
  }
  MarkModified();
  const Single ceiling = InputProfile.GetCeiling(InputProfile.GetLength());
  BeginEvaluation();
  resultProfile_ = std::move(computed);
  InputProfile.Copy(resultProfile_);
  actionResults_.push_back({InputProfile.GetLength(), ceiling});
  currentRunTime_ = InputProfile.GetRunTime(InputProfile.GetLength());
  editState_ = EditState::Ascent;
  UpdateSurfProfiles();
  ShowEvaluation();
  services.display.ShowHourglass(false);
  SurfStartDeco();
  return true;
}

bool frmWaypointEditor::AddUserWaypoint(Single depth, Single segmentTime, std::int16_t mix) {
  const PlanServices& services = Services();
  std::string refusal = services.texts.Words(LegFault(segmentTime, depth, mix, Document().Template));
  if (depth < InputProfile.GetCeiling(InputProfile.GetLength())) refusal = services.texts.GetResString(kAboveCeiling);
  if (refusal.empty()) {
    try {
      SaveUserEnteredWaypoints(segmentTime, depth, mix, false);
    } catch (const std::length_error&) {
      refusal = services.texts.GetResString(kTooManyRows);
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
  if (editState_ != EditState::Ascent) return;
  editState_ = EditState::Legs;
  InputProfile.Copy(savedProfile_);
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
  InputProfile.clear();
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
  const std::string question = texts.GetResString(kUnsavedName) + DocumentCaption(texts, Document()) + "]?\r\n" +
                               texts.GetResString(kUnsavedQuestion) + (lost.empty() ? "" : "\r\n\r\n" + lost);
  const BoxAnswer answer =
      services.boxes.Show(question, texts.GetResString(kUnsavedTitle), BoxIcon::Exclamation, BoxButtons::YesNoCancel);
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
