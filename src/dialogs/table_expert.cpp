#include "dialogs/table_expert.h"

#include <algorithm>

#include "model/numbers.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "tables/table_print.h"

namespace tav {
namespace {

const std::string kSection = "TableExpert";

/// The number of the field that a fault is told of, as they stand in the window.
std::size_t FieldOf(AxesFault fault, const TableAxes& axes) {
  switch (fault) {
    case AxesFault::EndDepthNegative:
      return 1;
    case AxesFault::DepthStepNotPositive:
    case AxesFault::TooManyDives:
      return 2;
    case AxesFault::StartTimeBeyondEnd:
    case AxesFault::StartTimeNegative:
      return 3;
    case AxesFault::EndTimeNegative:
      return 4;
    case AxesFault::TimeStepNotPositive:
      return 5;
    case AxesFault::OutOfReach:
      return axes.EndDepth > kMaximumDepth ? 1 : 4;
    default:
      return 0;
  }
}

}  // namespace

frmTableExpert::frmTableExpert(const DialogServices& services, PrintPreview& report, LongRuns& runs)
    : DialogForm("frmTableExpert", services), report_(report), runs_(runs) {
  if (const auto active = services.ActiveDocument()) plan_.emplace(services, *active);
  cbStart.Default = true;
  cbStart.Click = [this] { cbStart_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { cbCancel_Click(); };
  Combo1.Click = [this] { ShowMixDetails(); };
}

std::array<frmTableExpert::Field, 6> frmTableExpert::Fields() {
  return {{{Label1, tbSD, "StartDepthM", "StartDepthF", "9", "30"},
           {Label2, tbED, "EndDepthM", "EndDepthF", "54", "180"},
           {Label3, tbDI, "StepM", "StepF", "3", "10"},
           {Label4, tbST, "TimeStart", "TimeStart", "5", "5"},
           {Label5, tbET, "TimeEnd", "TimeEnd", "45", "45"},
           {Label6, tbTI, "TimeInterval", "TimeInterval", "5", "5"}}};
}

void frmTableExpert::Form_Load() {
  Localize();
  Caption = T(Text::TablesTitle);
  Label* const labels[] = {&Label1, &Label2, &Label3, &Label4, &Label5, &Label6};
  int id = Text::TablesFields;
  for (Label* label : labels) label->Caption = T(id++);
  Frame2.Caption = T(Text::TablesGasUsed);
  Label8.Caption = T(Text::TablesMix);
  Label12.Caption = T(Text::TablesTemplate);
  Label9.Caption = T(Text::TablesProgress);
  cbCancel.Caption = T(Text::TablesCancel);
  cbStart.Caption = T(Text::TablesStart);
  Check1.Caption = T(Text::TablesFastDescent);
  Label14.Caption = T(Text::TablesFastDescentMeans);
  Frame3.Caption = T(Text::TablesDecoGasesUsed);
  Label10.Caption = T(Text::ReportMinutes);

  ShowGases();
  ShowFields();
  const std::string fast = platform_.settings.ReadSetting(kSection, "FastDescent");
  Check1.Value = fast.empty() || Number(fast) != 0;
  Label13.Caption = TemplateOf(TableDocument()).Templatename;
  tbSD.SelectAll();
}

void frmTableExpert::ShowGases() {
  std::vector<std::string> gases;
  for (const GasMix& blend : TemplateOf(TableDocument()).Blends) gases.push_back(blend.Name);
  Combo1.Items = gases;
  Combo1.ListIndex = 0;
  ShowMixDetails();
  const DiveTemplate& settings = TemplateOf(TableDocument());
  const std::string unit = " " + T(settings.Metric ? Text::ReportMetres : Text::ReportFeet);
  deco_ = settings.ChangeGasMixes;
  std::vector<CheckList::Item> deco;
  for (const GasChange& change : deco_) {
    deco.push_back({T(Text::TablesGasFrom, {change.Name, Plain(change.Depth) + unit})});
  }
  ckDeco.Items = deco;
}

DiveTemplate frmTableExpert::Chosen() const {
  DiveTemplate chosen = TemplateOf(TableDocument());
  const std::vector<CheckList::Item>& items = ckDeco.Items;
  for (std::size_t i = items.size(); i-- > 0;) {
    if (!items[i].on) chosen.ChangeGasMixes.erase(chosen.ChangeGasMixes.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return chosen;
}

void frmTableExpert::ShowFields() {
  metric_ = TemplateOf(TableDocument()).Metric;
  Label11.Caption = T(metric_ ? Text::ReportMetres : Text::ReportFeet);
  const auto show = [this](bool kept) {
    for (const Field& field : Fields()) {
      const std::string text = platform_.settings.ReadSetting(kSection, metric_ ? field.metricKey : field.imperialKey);
      field.box.Text = kept && !text.empty() ? text : metric_ ? field.metricDefault : field.imperialDefault;
    }
  };
  show(true);
  // The settings are a text file that anyone may edit.
  const auto axes = Axes();
  if (!axes || FindAxesFault(*axes) != AxesFault::None) show(false);
}

void frmTableExpert::ShowMixDetails() {
  const DiveTemplate& settings = TemplateOf(TableDocument());
  const auto mix = FindBlend(Combo1.Text(), settings);
  if (!mix) return;
  const GasMix& gas = settings.Blends[static_cast<std::size_t>(*mix)];
  Label7.Caption = Plain(gas.O2) + "/" + Plain(gas.He);
}

void frmTableExpert::SaveTableSettings() {
  SettingsStore& store = platform_.settings;
  for (const Field& field : Fields()) {
    store.WriteSetting(kSection, metric_ ? field.metricKey : field.imperialKey, field.box.Text);
  }
  store.WriteSetting(kSection, "FastDescent", Check1.Value ? "1" : "0");
}

void frmTableExpert::SetRunning(bool running) {
  cbStart.Enabled = !running;
  Combo1.Enabled = !running;
  Check1.Enabled = !running;
  ckDeco.Enabled = !running;
  for (const Field& field : Fields()) field.box.Enabled = !running;
  cbCancel.Bold = running;
  cbCancel.Caption = T(running ? Text::Abort : Text::TablesCancel);
}

bool frmTableExpert::CanStart() {
  const auto refuse = [this](int reason) {
    Box(T(reason), T(Text::TablesTitle), BoxIcon::Exclamation);
    return false;
  };
  // The window stands beside the plan, which may have been closed or changed meanwhile.
  if (plan_ && !plan_->IsOpen()) {
    refuse(Text::PlanClosed);
    Unload();
    return false;
  }
  if (runs_.IsRunning()) return refuse(Text::TablesBusy);
  if (TemplateOf(TableDocument()).Metric == metric_) return true;
  ShowFields();
  return refuse(Text::TablesOtherUnits);
}

void frmTableExpert::cbStart_Click() {
  const auto self = weak_from_this().lock();  // closing the window must not end what is at work
  if (!CanStart()) return;
  const auto axes = ReadAxes();
  if (!axes) return;
  const auto mix = FindBlend(Combo1.Text(), TemplateOf(TableDocument()));
  const bool sameDeco = std::ranges::equal(
      deco_, TemplateOf(TableDocument()).ChangeGasMixes,
      [](const GasChange& one, const GasChange& other) { return one.Name == other.Name && one.Depth == other.Depth; });
  if (!mix || !sameDeco) {
    Box(T(Text::GasGone), T(Text::TablesTitle), BoxIcon::Exclamation);
    ShowGases();
    return;
  }
  const PlanServices& plans = services_.forms.Services();
  SquareDives dives(Chosen(), plans.model, {*mix, Check1.Value, *axes}, plans.observer);
  if (!dives.Fault().IsEmpty()) {
    Box(texts_.Words(dives.Fault()), T(Text::TablesTitle), BoxIcon::Stop);
    return;
  }
  SetRunning(true);
  SaveTableSettings();
  GenerateTables(dives);
  SetRunning(false);
  Unload();
}

void frmTableExpert::cbCancel_Click() { Unload(); }

bool frmTableExpert::Form_QueryUnload(bool /*byUser*/) {
  // The run is still at work in this window; it ends at once, and then the window goes.
  if (run_ != nullptr) run_->Cancel();
  return run_ == nullptr;
}

std::optional<TableAxes> frmTableExpert::Axes() {
  std::vector<Single> numbers;
  for (const Field& field : Fields()) {
    const auto value = NumberIn(field.box.Text);
    if (!value) return std::nullopt;
    numbers.emplace_back(RoundSingle(*value, 0));
  }
  return TableAxes{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
}

std::optional<TableAxes> frmTableExpert::ReadAxes() {
  std::string rounded;
  for (const Field& field : Fields()) {
    const auto value = NumberIn(field.box.Text);
    if (!value) {
      RefuseEntry(field.label, field.box, T(Text::NoNumber), T(Text::TablesTitle));
      return std::nullopt;
    }
    const Single whole = RoundSingle(*value, 0);
    if (whole == *value) continue;
    rounded += T(Text::TablesRounded, {FieldName(field.label), field.box.Text, Plain(whole)}) + "\r\n";
  }
  const auto axes = Axes();
  const AxesFault fault = FindAxesFault(*axes);
  if (fault != AxesFault::None) {
    const Field field = Fields().at(FieldOf(fault, *axes));
    RefuseEntry(field.label, field.box, rounded + T(TextOf(fault)), T(Text::TablesTitle));
    return std::nullopt;
  }
  if (!rounded.empty()) Box(rounded, T(Text::TablesTitle), BoxIcon::Information);
  return axes;
}

void frmTableExpert::GenerateTables(SquareDives& dives) {
  std::string fault;
  {
    LongRun run(platform_.screen, runs_, TableDocument(), pbProgress);
    run_ = &run;
    try {
      TablePrintModule print(report_);
      print.StartTableOutput();
      while (const auto table = dives.Next([&](int done, int of) { return run.GoOn(done, of); })) {
        print.PrintTableSet(*table);
      }
      if (!dives.Cancelled()) print.EndTableOutput();
    } catch (const std::exception& error) {
      fault = texts_.Words(error);
    }
    run_ = nullptr;
  }
  if (!fault.empty()) Box(fault, T(Text::TablesTitle), BoxIcon::Stop);
}

}  // namespace tav
