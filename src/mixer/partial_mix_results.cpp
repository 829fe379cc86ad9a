// What the fields of the mixer tell, and what it shows of it.
#include <algorithm>
#include <utility>

#include "mixer/fill_steps.h"
#include "mixer/partial_mix_form.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// A line that takes no room when there is nothing to say.
void Say(Label& line, const std::string& text) {
  line.Caption = text;
  line.Visible = !text.empty();
}

}  // namespace

frmPartialMix::Wrong frmPartialMix::WhatIsWrong() {
  const std::pair<TextBox*, const Label*> fields[] = {
      {&CurFill, &Label1}, {&CurO2, &Label2},    {&CurHe, &Label3},    {&DesFill, &Label14},    {&DesO2, &Label13},
      {&DesHe, &Label12},  {&tbTopO2, &lbTopO2}, {&tbTopHe, &lbTopHe}, {&tbCelsius, &lbCelsius}};
  const auto named = [this](int id, const Label& label) { return ReplaceAll(T(id), "%1", FieldName(label)); };
  for (const auto& [box, label] : fields) {
    if (TrimBlanks(box->Text.Get()).empty()) return {{box}, named(Text::IsMissing, *label)};
    if (!NumberIn(box->Text)) return {{box}, named(Text::IsNoNumber, *label)};
  }
  const double highest = HighestFill(template_.Metric);
  for (const auto& [box, label] : {fields[0], fields[3]}) {
    const double value = Number(box->Text);
    const bool filled = box == &DesFill;
    if (value <= highest && !(filled && value <= 0)) continue;
    const std::string why = named(filled ? Text::MixerMustBeAbove0 : Text::MixerMustBeAtMost, *label);
    return {{box}, ReplaceAll(ReplaceAll(why, "%2", Plain(highest)), "%3", words_.Unit())};
  }
  if (Number(CurN2.Text) < 0) return {{&CurO2, &CurHe}, Frame1.Caption.Get() + ": " + T(Text::MixerOver100)};
  if (Number(DesN2.Text) < 0) return {{&DesO2, &DesHe}, Frame4.Caption.Get() + ": " + T(Text::MixerOver100)};
  return WrongWay();
}

frmPartialMix::Wrong frmPartialMix::WrongWay() {
  const auto outside = [this](TextBox& box, const Label& label, double least, double most) -> Wrong {
    const auto value = NumberIn(box.Text);
    if (value && *value >= least && *value <= most) return {};
    return {{&box}, texts_.Filled(Text::MixerOutside, {FieldName(label), Plain(least), Plain(most)})};
  };
  Wrong wrong = outside(tbTopO2, lbTopO2, 0, 100);
  if (wrong.why.empty()) wrong = outside(tbTopHe, lbTopHe, 0, 100);
  if (wrong.why.empty() && Number(tbTopO2.Text) + Number(tbTopHe.Text) > 100 - kLeastNitrogen) {
    wrong = {{&tbTopO2, &tbTopHe},
             texts_.Filled(Text::FillNoNitrogen, {tbTopO2.Text.Get() + "/" + tbTopHe.Text.Get()})};
  }
  if (wrong.why.empty()) wrong = outside(tbCelsius, lbCelsius, kColdestFill, kWarmestFill);
  if (wrong.why.empty() && !TrimBlanks(tbFilledAt.Text.Get()).empty()) {
    wrong = outside(tbFilledAt, lbFilledAt, kColdestFill, kWarmestFill);
  }
  return wrong;
}

void frmPartialMix::Mark(const Wrong& wrong) {
  for (TextBox* box :
       {&CurFill, &CurO2, &CurHe, &DesFill, &DesO2, &DesHe, &tbTopO2, &tbTopHe, &tbCelsius, &tbFilledAt}) {
    const bool marked = std::ranges::find(wrong.fields, box) != wrong.fields.end();
    box->ForeColor = marked ? kRed : -1;
    box->ToolTipText = marked ? wrong.why : box == &tbFilledAt ? T(Text::MixerWarmHelp) : "";
  }
}

FillRequest frmPartialMix::Request() {
  FillRequest request{MixOf(Number(CurO2.Text), Number(CurHe.Text)), Number(CurFill.Text),
                      MixOf(Number(DesO2.Text), Number(DesHe.Text)), Number(DesFill.Text), template_.Metric};
  request.top = MixOf(Number(tbTopO2.Text), Number(tbTopHe.Text));
  request.celsius = Number(tbCelsius.Text);
  if (const auto warm = NumberIn(tbFilledAt.Text)) request.warm = *warm;
  return request;
}

void frmPartialMix::Recalculate(bool store) {
  const Wrong wrong = WhatIsWrong();
  Mark(wrong);
  if (wrong.why.empty()) {
    ShowResults(Request());
  } else {
    ClearResults(wrong.why);
  }
  if (store) Save();
}

void frmPartialMix::ShowResults(const FillRequest& request) {
  const FillResult result = tav::Recalculate(request);
  AirTopO2.Caption = Written(result.AirTopO2);
  AirTopHe.Caption = Written(result.AirTopHe);
  AirTopAir.Caption = Written(result.AirTopAir);
  IdealTopO2.Caption = Written(result.IdealTopO2);
  IdealTopHe.Caption = Written(result.IdealTopHe);
  IdealTopN2.Caption = Written(result.IdealTopN2);
  Say(lbAboutAirTop, words_.AboutAirTop(result, request));
  Say(lbAboutReal, words_.AboutVanDerWaals(result, request));
  report_ = MixReport{request, result, {}};
  ShowFillList();
  ShowSteps();
}

void frmPartialMix::ShowFillList() {
  const auto size = SizeOfCylinder();
  if (!report_) return;
  report_->cylinder = size;
  const FillAdvice advice(report_->request, GaugeMark(template_.Metric));
  const bool possible = advice.AsAsked().possible;
  fgFill.SetRows(words_.Rows(advice, size));
  Say(lbHindrance, words_.Hindrance(advice));
  lbHindrance.ForeColor = possible ? -1 : kRed;
  Say(lbMisses, words_.Misses(advice));
  Say(lbOutcome, words_.Outcome(advice));
  Say(lbWarm, words_.Warm(advice));
  Say(lbIfIdeal, words_.IfIdeal(advice));
  Say(lbPressures, words_.AboutPressures(advice.asked));
  Command1.Caption = T(possible ? Text::MixerPrint : Text::MixerNotPossible);
  Command1.Enabled = possible;
}

void frmPartialMix::ShowSteps() {
  mended_.reset();
  std::string text;
  bool wrong = false;
  if (report_ && !TrimBlanks(tbSteps.Text.Get()).empty()) {
    try {
      FillRequest request = report_->request;
      const auto steps = ParseSteps(tbSteps.Text, request, texts_, platform_.separators);
      request.current = MixesAfter(steps, request).back();
      request.currentFill = steps.back().to;
      text = words_.OutcomeOfSteps(request.current);
      mended_ = request;
    } catch (const MessageError& error) {
      text = texts_.Words(error);
      wrong = true;
    }
  }
  Say(lbStepsGive, text);
  lbStepsGive.ForeColor = wrong ? kRed : -1;
  cbMend.Enabled = mended_.has_value();
}

void frmPartialMix::cbMend_Click() {
  if (!mended_) return;
  const FillRequest from = *mended_;
  const auto tenths = [this](Single share) { return Written(FormatFixed(share, 1)); };
  Check1.Value = false;
  tbSteps.Text = "";
  CurFill.Text = Plain(from.currentFill);
  ShowMix(current_, tenths(from.current.O2), tenths(from.current.He));
  Recalculate();
}

void frmPartialMix::ClearResults(const std::string& why) {
  report_.reset();
  for (Label* label : {&AirTopO2, &AirTopHe, &AirTopAir, &IdealTopO2, &IdealTopHe, &IdealTopN2}) label->Caption = "";
  for (Label* label : {&lbMisses, &lbOutcome, &lbIfIdeal, &lbWarm, &lbAboutAirTop, &lbAboutReal, &lbPressures}) {
    Say(*label, "");
  }
  fgFill.SetRows({words_.Heads({}, false)});
  Say(lbHindrance, why);
  lbHindrance.ForeColor = kRed;
  Command1.Caption = T(Text::MixerPrint);
  Command1.Enabled = false;
  ShowSteps();
}

std::optional<CylinderSize> frmPartialMix::SizeOfCylinder() {
  bool usable = true;
  const auto positive = [&](TextBox& box) -> Single {
    const auto value = NumberIn(box.Text);
    const bool good = value && *value > 0 && *value <= HighestFill(false);
    box.ForeColor = good || TrimBlanks(box.Text.Get()).empty() ? -1 : kRed;  // it may be blank
    usable = usable && good;
    return value.value_or(0);
  };
  CylinderSize size{positive(tbCylinder), 1};
  if (!template_.Metric) size.ratedPressure = positive(tbRated);
  return usable ? std::optional(size) : std::nullopt;
}

}  // namespace tav
