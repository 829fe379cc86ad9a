#include "dialogs/bailout_start.h"

#include "model/numbers.h"

namespace tav {
namespace {

constexpr int kTitle = 2600;
constexpr int kAbort = 2711;
constexpr int kOK = 1210;
constexpr int kCancel = 1215;
constexpr int kBelow0 = 3000;
constexpr int kAbove99 = 3001;
constexpr int kFaultTitle = 3002;
constexpr int kNoPlan = 3003;
constexpr int kPlanClosed = 7327;
constexpr int kBusy = 7332;
constexpr int kRounded = 7987;
constexpr int kNoNumber = 7326;
const std::string kSection = "Bailout";

}  // namespace

frmBailoutStart::frmBailoutStart(const DialogServices& services, PrintPreview& report, LongRuns& runs)
    : DialogForm("frmBailoutStart", services), report_(report), runs_(runs) {
  if (const auto active = services.ActiveDocument()) plan_.emplace(services, *active);
  cbOK.Default = true;
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { cbCancel_Click(); };
  Check1.Click = Check2.Click = [this] { ChooseParts(); };
}

void frmBailoutStart::Form_Load() {
  Localize();
  Caption = T(kTitle);
  Label1.Caption = T(6092);
  lbtime.Caption = T(2603);
  cbOK.Caption = T(kOK);
  cbCancel.Caption = T(kCancel);
  Frame1.Caption = T(2602);
  Frame2.Caption = T(2601);
  Label2.Caption = T(2605);
  Label4.Caption = T(2604);
  Check1.Caption = T(7324);
  Check2.Caption = T(7325);
  tbTime.Text = "5";
  const SettingsStore& settings = platform_.settings;
  Check1.Value = settings.ReadSetting(kSection, "Tables") != "0";
  Check2.Value = settings.ReadSetting(kSection, "Cards") != "0";
  if (plan_) {
    Label3.Caption = TemplateOf(plan_->Number()).Templatename;
    tbTime.SelectAll();
  } else {
    Box(T(kNoPlan), "", BoxIcon::None);
  }
}

void frmBailoutStart::ChooseParts() {
  // Nothing at all is no choice.
  cbOK.Enabled = Check1.Value || Check2.Value;
}

void frmBailoutStart::SetRunning(bool running) {
  cbCancel.Bold = running;
  cbCancel.Caption = T(running ? kAbort : kCancel);
  cbOK.Enabled = !running;
  tbTime.Enabled = !running;
  Check1.Enabled = !running;
  Check2.Enabled = !running;
}

std::optional<Single> frmBailoutStart::ReadInterval() {
  const auto typed = NumberIn(tbTime.Text);
  const Single interval = RoundSingle(typed.value_or(0), 0);
  if (typed && interval >= 0 && interval <= BailoutCuts::kLongestInterval) return interval;
  RefuseEntry(lbtime, tbTime, T(!typed ? kNoNumber : *typed < 0 ? kBelow0 : kAbove99), T(kFaultTitle));
  return std::nullopt;
}

void frmBailoutStart::cbOK_Click() {
  const auto self = weak_from_this().lock();  // closing the window must not end what is at work
  if (runs_.IsRunning()) {
    Box(T(kBusy), T(kFaultTitle), BoxIcon::Exclamation);
    return;
  }
  const auto interval = ReadInterval();
  if (!interval) return;
  if (!plan_) {
    Unload();
    return;
  }
  if (!plan_->IsOpen()) {
    Box(T(kPlanClosed), T(kFaultTitle), BoxIcon::Exclamation);
    Unload();
    return;
  }
  const PlanServices& plans = services_.forms.Services();
  const BailoutCuts cuts(services_.forms(plan_->Number()).Planned(), plans.model, *interval, plans.observer);
  if (cuts.IntervalIsAtFault()) {
    RefuseEntry(lbtime, tbTime, texts_.Words(cuts.Fault()), T(kFaultTitle));
    return;
  }
  if (!cuts.Fault().IsEmpty()) {
    Box(texts_.Words(cuts.Fault()), T(kFaultTitle), BoxIcon::Exclamation);
    Unload();
    return;
  }
  if (cuts.Interval() != NumberIn(tbTime.Text)) {
    Box(T(kRounded, {FieldName(lbtime), tbTime.Text, Plain(cuts.Interval())}), T(kFaultTitle), BoxIcon::Information);
  }
  SettingsStore& settings = platform_.settings;
  settings.WriteSetting(kSection, "Tables", Check1.Value ? "1" : "0");
  settings.WriteSetting(kSection, "Cards", Check2.Value ? "1" : "0");
  SetRunning(true);
  Bailoutproc(cuts);
  SetRunning(false);
  Unload();
}

void frmBailoutStart::cbCancel_Click() { Unload(); }

bool frmBailoutStart::Form_QueryUnload(bool /*byUser*/) {
  // The run is still at work in this window; it ends at once, and then the window goes.
  if (run_ != nullptr) run_->Cancel();
  return run_ == nullptr;
}

void frmBailoutStart::Bailoutproc(const BailoutCuts& cuts) {
  const std::int16_t document = plan_->Number();
  LongRun run(platform_.screen, runs_, document, pbProgress);
  run_ = &run;
  std::string fault;
  try {
    TablePrintModule print(report_, services_.forms.Caption(document), {Check1.Value, Check2.Value});
    print.StartTableOutput();
    report_.documentName = services_.Documents()(document).ProfileName;
    bool whole = true;
    for (int i = 0; i < cuts.Scenarios() && whole; ++i) {
      const auto scenario =
          cuts.Compute(i, [&](int done, int of) { return run.GoOn(i * of + done, cuts.Scenarios() * of); });
      whole = scenario.has_value();
      if (scenario) print.PrintTableSet(*scenario);
    }
    if (whole) print.EndTableOutput([&] { return run.GoOn(1, 1); });
  } catch (const std::exception& error) {
    fault = texts_.Words(error);
  }
  run_ = nullptr;
  if (!fault.empty()) Box(fault, T(kFaultTitle), BoxIcon::Stop);
}

}  // namespace tav
