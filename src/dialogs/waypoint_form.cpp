#include "dialogs/waypoint_form.h"

#include <algorithm>
#include <cctype>

#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {
namespace {

std::string KeepOnly(const std::string& text, const char* others) {
  std::string kept;
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [others](char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0 || std::string_view(others).find(c) != std::string::npos;
  });
  return kept;
}

}  // namespace

std::string frmWaypointForm::NumericInput(const std::string& text) { return KeepOnly(text, ""); }

std::string frmWaypointForm::AlphaNumericInput(const std::string& text) { return KeepOnly(text, ".,"); }

frmWaypointForm::frmWaypointForm(const DialogServices& services) : DialogForm("frmWaypointForm", services) { Wire(); }

void frmWaypointForm::Wire() {
  cbEdit.Visible = false;
  cbEdit.Click = [this] {
    editWanted_ = true;
    Unload();
  };
  tbDepth.Change = [this] { DepthTyped(); };
  tbDepth.KeyReturn = [this] { DepthConfirmed(); };
  tbTime.Change = [this] {
    tbTime.Text = AlphaNumericInput(tbTime.Text);
    ShowLeg();
  };
  udDepthSpin.Buddy = "tbDepth";
  udDepthSpin.UpClick = [this] { Step(tbDepth, 1); };
  udDepthSpin.DownClick = [this] { Step(tbDepth, -1); };
  udTimeSpin.Buddy = "tbTime";
  udTimeSpin.UpClick = [this] { Step(tbTime, 1); };
  udTimeSpin.DownClick = [this] { Step(tbTime, -1); };
  Combo1.TakesText = true;
  Combo1.Click = [this] { Combo1_Click(); };
  for (TextBox* box : {&tbO2, &tbN2, &tbHe, &Text5}) box->Locked = true;

  for (TextBox* field : {&Text1, &Text2}) WireSuggestion(Kind::Nitrox, *field, cbNitroxAdd);
  for (TextBox* field : {&Text6, &Text4}) WireSuggestion(Kind::Trimix, *field, cbTrimixAdd);
  for (TextBox* field : {&Text9, &Text7}) WireSuggestion(Kind::Heliox, *field, cbHelioxAdd);
  Frame4.MouseMove = [this] { ShowInfo(Kind::Nitrox, false); };
  Frame5.MouseMove = [this] { ShowInfo(Kind::Trimix, false); };
  Frame6.MouseMove = [this] { ShowInfo(Kind::Heliox, false); };
  for (Frame* frame : {&Frame1, &Frame2, &Frame3}) frame->MouseMove = [this] { HideInfo(); };
  MouseMove = [this] { HideInfo(); };

  cbNitroxAdd.Click = [this] { AddMix("EAN" + Text1.Text.Get(), Number(Text1.Text), Number(Text2.Text), 0); };
  cbHelioxAdd.Click = [this] { AddMix("H" + Text7.Text.Get(), Number(Text9.Text), 0, Number(Text7.Text)); };
  cbTrimixAdd.Click = [this] {
    AddMix("Tx" + Text6.Text.Get() + "/" + Text4.Text.Get(), Number(Text6.Text), Number(Text5.Text),
           Number(Text4.Text));
  };
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { cbCancel_Click(); };
}

void frmWaypointForm::WireSuggestion(Kind kind, TextBox& field, Button& add) {
  field.GotFocus = [&field, &add] {
    if (field.Locked) return;
    field.Text = "";
    add.Visible = false;
  };
  field.Change = [this, kind, &field, &add] { Overtyped(kind, field, add); };
  // Left empty, the field shows again what stood in it.
  field.LostFocus = [this, kind, &field] {
    if (field.Text.Get().empty()) ShowMix(kind);
  };
}

void frmWaypointForm::data(ClassProfile& profile, std::int16_t entry) {
  profile_ = &profile;
  row_ = profile.GetLength();
  viewer_ = entry == 0;
  cbOK.Default = !viewer_;
  cbCancel.Default = viewer_;
}

void frmWaypointForm::Form_Load() {
  Localize();
  documentIndex_ = services_.ActiveOrDefault();
  SetCaptions();
  FillCombo();
  if (Row().Depth < 0) Row().Depth = 0;
  tbDepth.Text = FormatFixed(Row().Depth, 0);
  tbTime.Text = FormatFixed(Row().SegmentTime, 0);
  HideInfo();
  if (viewer_) {
    ShowAsViewer();
  } else {
    if (Number(tbTime.Text) <= 0) tbTime.Text = "0";
    Combo1.ListIndex = Row().MixNumber;
    Combo1_Click();
    Suggest();
    ShowLeg();
    tbDepth.SelectAll();
  }
}

void frmWaypointForm::SetCaptions() {
  const bool metric = Template().Metric;
  Caption = T(Text::WaypointTitle);
  cbEdit.Caption = T(Text::WaypointEditLeg);
  Label3.Caption = T(Text::WaypointDepth);
  Label2.Caption = T(Text::WaypointTime);
  Label2.ToolTipText = tbTime.ToolTipText = T(Text::PaneTimeMeans);
  Label5.Caption = T(Text::WaypointMinutes);
  lbInformation.Caption = T(Text::WaypointPointAtGas);
  lbMixName.Visible = false;
  lbGasAtDepth.Bold = true;
  lbDepthUnit.Caption = T(metric ? Text::MetresWord : Text::FeetWord);
  Frame2.Caption = T(Text::WaypointGas);
  Frame3.Caption = T(Text::WaypointOptimalGases);
  Frame4.Caption = "Nitrox";
  Frame5.Caption = "Trimix";
  Frame6.Caption = "Heliox";
  for (Label* label : {&lbO2, &lbNitroxO2, &lbTrimixO2, &lbHelioxO2}) label->Caption = "% O2";
  for (Label* label : {&lbN2, &lbNitroxN2, &lbTrimixN2}) label->Caption = "% N2";
  for (Label* label : {&lbHe, &lbTrimixHe, &lbHelioxHe}) label->Caption = "% He";
  for (Button* button : {&cbNitroxAdd, &cbTrimixAdd, &cbHelioxAdd}) {
    button->Caption = std::string(TrimBlanks(T(Text::WaypointMakeGas)));
  }
  cbOK.Caption = T(Text::OK);
  cbCancel.Caption = T(Text::Cancel);
}

void frmWaypointForm::ShowAsViewer() {
  Caption = T(Text::WaypointOfPlan);
  Label2.Caption = T(Text::RunTime);
  Label2.ToolTipText = tbTime.ToolTipText = "";
  cbCancel.Caption = T(Text::Close);
  Combo1.ListIndex = FindBlendIndex(Row().GasMixName, Template());
  FitsContent = true;
  lbMixName.Caption = Row().GasMixName;
  lbGasAtDepth.Caption = T(Text::GasAtDepth, {Row().GasMixName, Length(Fixed(Row().Depth, 1))});
  const GasMix& mix = Template().Blends.at(static_cast<std::size_t>(Combo1.ListIndex.Get()));
  tbO2.Text = Plain(mix.O2);
  tbN2.Text = Plain(mix.N2);
  tbHe.Text = Plain(mix.He);
  tbDepth.Text = Fixed(Row().Depth, 1);
  tbTime.Text = Fixed(Row().SegmentTime, 1);
  lbPPO2.Caption = T(Text::ReportPPO2) + ": " + Pressure(Row().PPO2);
  lbEND.Caption = T(Text::ReportEND) + ": " + Length(Fixed(Row().END, 1));
  lbMOD.Visible = false;
  lbCeiling.Caption = T(Text::Ceiling) + ": " + Length(Fixed(Row().Ceiling, 1));
  tbDepth.Locked = tbTime.Locked = true;
  for (Control* control :
       std::initializer_list<Control*>{&Combo1, &cbOK, &udDepthSpin, &udTimeSpin, &Frame3, &lbLegTime, &lbInformation,
                                       &cbNitroxAdd, &cbTrimixAdd, &cbHelioxAdd}) {
    control->Enabled = false;
    control->Visible = false;
  }
  lbMixName.Visible = true;
  cbCancel.SetFocus();
}

void frmWaypointForm::FillCombo() {
  std::vector<std::string> names;
  for (const GasMix& mix : Template().Blends) names.push_back(mix.Name);
  Combo1.Items = names;
}

void frmWaypointForm::Combo1_Click() {
  const int index = Combo1.ListIndex;
  if (index < 0) {
    const auto typed = GasFromName(Combo1.Text());
    tbO2.Text = typed ? Plain(typed->O2) : "";
    tbN2.Text = typed ? Plain(typed->N2) : "";
    tbHe.Text = typed ? Plain(typed->He) : "";
    return ShowGas();
  }
  const GasMix& mix = Template().Blends.at(static_cast<std::size_t>(index));
  Row().GasMixName = mix.Name;
  Row().MixNumber = static_cast<std::int16_t>(index);
  tbO2.Text = Plain(mix.O2);
  tbN2.Text = Plain(mix.N2);
  tbHe.Text = Plain(mix.He);
  ShowGas();
}

void frmWaypointForm::DepthTyped() {
  const std::string& text = tbDepth.Text.Get();
  const bool hasSign = !text.empty() && (text.front() == '-' || text.front() == '+');
  if (!hasSign) tbDepth.Text = AlphaNumericInput(text);
  DepthChanged();
}

void frmWaypointForm::DepthChanged() {
  Suggest();
  ShowGas();
  ShowLeg();
}

void frmWaypointForm::DepthConfirmed() {
  // Mixes that were overtyped are worked out again; else there is nothing left to do but to take the waypoint.
  if (!overtyped_) {
    cbOK.Press();
    return;
  }
  Suggest();
}

void frmWaypointForm::Step(TextBox& field, int by) {
  // An empty field counts as the number from which the step leads to 2 or 1.
  const double value = field.Text.Get().empty() ? (by > 0 ? 1 : 2) : double{Number(field.Text)};
  field.Text = FormatFixed(std::max(0.0, value + by), 0);
  if (&field == &tbDepth) {
    DepthChanged();
  } else {
    ShowLeg();
  }
}

void frmWaypointForm::cbOK_Click() {
  // A field without a number counts as an empty one.
  const auto entered = NumberIn(tbDepth.Text);
  const auto time = NumberIn(tbTime.Text);
  if (!entered || !time) {
    Box(T(Text::WaypointIncomplete), Caption, BoxIcon::Stop);
    (entered ? tbTime : tbDepth).SelectAll();
    return;
  }
  if (*entered < 0) {
    Box(T(Text::DepthNegative), Caption, BoxIcon::Stop);
    tbDepth.SelectAll();
    return;
  }
  const bool metric = Template().Metric;
  const double deepest = metric ? 500 : 1600;
  if (*entered > deepest)
    Box(T(metric ? Text::WaypointDeepestMetres : Text::WaypointDeepestFeet), Caption, BoxIcon::Stop);
  const Single depth = std::min(*entered, deepest);
  if (const std::string refusal = Refusal(depth, *time); !refusal.empty()) {
    Box(refusal, Caption, BoxIcon::Stop);
    (depth < Ceiling() ? tbDepth : tbTime).SelectAll();
    return;
  }
  const auto index = ChosenGas();
  if (!index) {
    Box(T(TypedGasFault(Combo1.Text())), Caption, BoxIcon::Stop);
    Combo1.SetFocus();
    return;
  }
  Row().Depth = depth;
  Row().SegmentTime = *time;
  const GasMix& mix = Template().Blends.at(static_cast<std::size_t>(*index));
  Row().GasMixName = mix.Name;
  Row().MixNumber = *index;
  Row().GasMixO2 = mix.O2;
  Row().GasMixN2 = mix.N2;
  Row().GasMixHe = mix.He;
  accepted_ = true;
  Unload();
}

std::optional<std::int16_t> frmWaypointForm::ChosenGas() {
  if (Combo1.ListIndex >= 0) return static_cast<std::int16_t>(Combo1.ListIndex.Get());
  std::vector<GasMix>& gases = Template().Blends;
  const std::size_t had = gases.size();
  const auto chosen = TakeGas(Combo1.Text(), gases, GasFromName);
  if (gases.size() > had) MarkChanged(documentIndex_);
  return chosen;
}

void frmWaypointForm::cbCancel_Click() { Unload(); }

void frmWaypointForm::Form_Unload() {
  if (!accepted_) Row().Depth = kCancelled;
}

}  // namespace tav
