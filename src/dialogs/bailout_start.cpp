#include "dialogs/bailout_start.h"

#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

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
  Check3.Click = [this] { ChooseMoments(); };
}

void frmBailoutStart::Form_Load() {
  Localize();
  Caption = T(Text::BailoutTitle);
  Label1.Caption = T(Text::ReportMinutes);
  lbtime.Caption = T(Text::BailoutInterval);
  cbOK.Caption = T(Text::OK);
  cbCancel.Caption = T(Text::Cancel);
  Frame1.Caption = T(Text::BailoutSettings);
  Frame2.Caption = T(Text::BailoutGenerate);
  Label2.Caption = T(Text::BailoutTemplate);
  Label4.Caption = T(Text::Progress);
  Check1.Caption = T(Text::BailoutPrintTables);
  Check2.Caption = T(Text::BailoutPrintCards);
  Check3.Caption = T(Text::BailoutLegEnds);
  tbTime.Text = "5";
  const SettingsStore& settings = platform_.settings;
  Check1.Value = settings.ReadSetting(kSection, "Tables") != "0";
  Check2.Value = settings.ReadSetting(kSection, "Cards") != "0";
  Check3.Value = settings.ReadSetting(kSection, "LegEnds") == "1";
  ChooseMoments();
  if (plan_) {
    Label3.Caption = TemplateOf(plan_->Number()).Templatename;
    tbTime.SelectAll();
  } else {
    Box(T(Text::BailoutNoPlan), "", BoxIcon::None);
  }
}

void frmBailoutStart::ChooseParts() {
  // Nothing at all is no choice.
  cbOK.Enabled = Check1.Value || Check2.Value;
}

void frmBailoutStart::ChooseMoments() { tbTime.Enabled = !Check3.Value; }

void frmBailoutStart::SetRunning(bool running) {
  cbCancel.Bold = running;
  cbCancel.Caption = T(running ? Text::Abort : Text::Cancel);
  cbOK.Enabled = !running;
  tbTime.Enabled = !running && !Check3.Value;
  Check1.Enabled = !running;
  Check2.Enabled = !running;
  Check3.Enabled = !running;
}

std::optional<Single> frmBailoutStart::ReadInterval() {
  if (Check3.Value) return Single(1);  // none is asked for
  const auto typed = NumberIn(tbTime.Text);
  const Single interval = RoundSingle(typed.value_or(0), 0);
  if (typed && interval >= 0 && interval <= BailoutCuts::kLongestInterval) return interval;
  RefuseEntry(lbtime, tbTime,
              T(!typed       ? Text::NoNumber
                : *typed < 0 ? Text::BailoutBelow0
                             : Text::BailoutAbove99),
              T(Text::BailoutFaultTitle));
  return std::nullopt;
}

void frmBailoutStart::cbOK_Click() {
  const auto self = weak_from_this().lock();  // closing the window must not end what is at work
  if (runs_.IsRunning()) {
    Box(T(Text::TablesBusy), T(Text::BailoutFaultTitle), BoxIcon::Exclamation);
    return;
  }
  const auto interval = ReadInterval();
  if (!interval) return;
  if (!plan_) {
    Unload();
    return;
  }
  if (!plan_->IsOpen()) {
    Box(T(Text::PlanClosed), T(Text::BailoutFaultTitle), BoxIcon::Exclamation);
    Unload();
    return;
  }
  const PlanServices& plans = services_.forms.Services();
  const BailoutCuts cuts(services_.forms(plan_->Number()).Planned(), plans.model, *interval, plans.observer,
                         Check3.Value ? CutMoments::LegEnds : CutMoments::Regular);
  if (cuts.IntervalIsAtFault()) {
    RefuseEntry(lbtime, tbTime, texts_.Words(cuts.Fault()), T(Text::BailoutFaultTitle));
    return;
  }
  if (!cuts.Fault().IsEmpty()) {
    Box(texts_.Words(cuts.Fault()), T(Text::BailoutFaultTitle), BoxIcon::Exclamation);
    Unload();
    return;
  }
  if (!Check3.Value && cuts.Interval() != NumberIn(tbTime.Text)) {
    Box(T(Text::TablesRounded, {FieldName(lbtime), tbTime.Text, Plain(cuts.Interval())}), T(Text::BailoutFaultTitle),
        BoxIcon::Information);
  }
  SettingsStore& settings = platform_.settings;
  settings.WriteSetting(kSection, "Tables", Check1.Value ? "1" : "0");
  settings.WriteSetting(kSection, "Cards", Check2.Value ? "1" : "0");
  settings.WriteSetting(kSection, "LegEnds", Check3.Value ? "1" : "0");
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
    bool whole =
        print.PrintWaysOut(services_.forms(document).Planned(), [&](int done, int of) { return run.GoOn(done, of); });
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
  if (!fault.empty()) Box(fault, T(Text::BailoutFaultTitle), BoxIcon::Stop);
}

}  // namespace tav
