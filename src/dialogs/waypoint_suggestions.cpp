// The suggestions of the waypoint dialog: what it offers, how the user changes it, and what the panel tells of it.

#include <algorithm>

#include "dialogs/waypoint_form.h"
#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {
namespace {

std::string Percent(Single fraction) { return FormatFixed(Single(fraction * 100), 0); }

Single Clamped(double fraction, double most) { return std::clamp(fraction, 0.0, most); }

constexpr double kMostOfASecondGas = 0.99;

}  // namespace

void frmWaypointForm::Suggest() {
  nitrox_ = SuggestNitrox(Depth(), Template());
  trimix_ = SuggestTrimix(Depth(), Template());
  heliox_ = SuggestHeliox(Depth(), Template());
  overtyped_ = false;
  for (const Kind kind : {Kind::Nitrox, Kind::Trimix, Kind::Heliox}) ShowMix(kind);
  if (told_) ShowInfo(*told_, false);
}

void frmWaypointForm::ShowMix(Kind kind) {
  switch (kind) {
    case Kind::Nitrox:
      ShowPair(nitrox_, &MixFractions::N2, Text1, Text2, cbNitroxAdd);
      break;
    case Kind::Heliox:
      ShowPair(heliox_, &MixFractions::He, Text9, Text7, cbHelioxAdd);
      break;
    case Kind::Trimix:
      Text6.Text = Percent(trimix_.O2);
      Text5.Text = Percent(trimix_.N2);
      Text4.Text = Percent(trimix_.He);
      cbTrimixAdd.Visible = true;
      break;
  }
}

void frmWaypointForm::ShowPair(const std::optional<MixFractions>& mix, Single MixFractions::*other, TextBox& o2,
                               TextBox& rest, Button& add) {
  o2.Text = mix ? Percent(mix->O2) : "n/a";
  rest.Text = mix ? Percent((*mix).*other) : "n/a";
  add.Visible = mix.has_value();
}

void frmWaypointForm::Overtyped(Kind kind, TextBox& field, Button& add) {
  field.Text = NumericInput(field.Text);
  if (field.Text.Get().empty()) {
    add.Visible = false;
    return;
  }
  const double typed = Number(field.Text) / 100;
  if (kind == Kind::Trimix) {
    const Single o2 = Clamped(Number(Text6.Text) / 100, 1.0);
    const Single he = Clamped(Number(Text4.Text) / 100, 1.0);
    trimix_ = o2 + he < 1 ? MixFractions{o2, 1 - o2 - he, he} : MixFractions{o2, 0, 1 - o2};
  } else {
    const bool oxygen = &field == &Text1 || &field == &Text9;
    const Single o2 = oxygen ? Clamped(typed, 1.0) : Single(1 - Clamped(typed, kMostOfASecondGas));
    if (kind == Kind::Nitrox) {
      nitrox_ = MixFractions{o2, 1 - o2, 0};
    } else {
      heliox_ = MixFractions{o2, 0, 1 - o2};
    }
  }
  overtyped_ = true;
  ShowMix(kind);
  ShowInfo(kind, true);
}

void frmWaypointForm::AddMix(const std::string& name, Single o2, Single n2, Single he) {
  DiveTemplate& t = Template();
  auto index = FindBlend(name, t);
  if (!index) {
    t.Blends.push_back({name, o2, n2, he});
    MarkChanged(documentIndex_);
    index = static_cast<std::int16_t>(t.Blends.size() - 1);
  }
  FillCombo();
  Combo1.ListIndex = *index;
  Combo1_Click();
  const GasMix& chosen = t.Blends[static_cast<std::size_t>(*index)];
  if (chosen.O2 != o2 || chosen.He != he) {
    Box(T(Text::GasOfNameDiffers, {name, Plain(chosen.O2), Plain(chosen.He)}), Caption, BoxIcon::Exclamation);
  }
}

void frmWaypointForm::ShowInfo(Kind kind, bool edited) {
  const DiveTemplate& t = Template();
  const std::optional<MixFractions> shown = kind == Kind::Nitrox ? nitrox_ : kind == Kind::Heliox ? heliox_ : trimix_;
  const MixFractions mix = shown.value_or(MixFractions{});
  const MixInformation told = InformationOf(kind, mix, Depth(), t, edited);
  const std::string heading = T(kind == Kind::Nitrox   ? Text::Nitrox
                                : kind == Kind::Trimix ? Text::Trimix
                                                       : Text::Heliox);
  told_ = kind;
  ShowInfoLines(true);
  if (!shown || !told.possible) {
    Text10.Caption = heading + "\r\n Gas N/A";
    Text11.Caption = "";
    Text12.Caption = "";
    return;
  }
  Text10.Caption = heading + "\r\n" + Percent(mix.O2) + "/" + Percent(mix.He) + "/" + Percent(mix.N2) + "\r\n";
  Text11.Caption = "    " + T(Text::ReportEND) + ":  " + (told.narcotic ? Fixed(told.END, 1) : std::string("INF ")) +
                   (t.Metric ? "m" : "ft");
  Text11.ForeColor = told.endTooDeep ? kRed : kBlack;
  Text12.Caption = T(Text::ReportPPO2) + ":  " + Fixed(told.PPO2, 2) + (t.Metric ? " bar" : " ata") +
                   (t.O2Narcotic ? "\r\n" + T(Text::ReportO2Narcotic) : "");
  Text12.ForeColor = told.ppo2TooHigh ? kRed : kBlack;
}

void frmWaypointForm::HideInfo() {
  told_.reset();
  ShowInfoLines(false);
}

void frmWaypointForm::ShowInfoLines(bool shown) {
  lbInformation.Visible = !shown;
  for (Label* line : {&Text10, &Text11, &Text12}) line->Visible = shown;
}

}  // namespace tav
