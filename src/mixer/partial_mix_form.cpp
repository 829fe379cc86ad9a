#include "mixer/partial_mix_form.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "model/text_id.h"

namespace tav {
namespace {

const std::string kSection = "Mix";

}  // namespace

frmPartialMix::frmPartialMix(Platform platform, PrintPreview& writer, DiveTemplate diveTemplate)
    : TextForm("frmPartialMix", std::move(platform), writer.Texts()),
      writer_(writer),
      template_(std::move(diveTemplate)),
      words_(writer.Texts(), platform_.separators, template_.Metric) {
  Wire();
}

void frmPartialMix::Wire() {
  CurFill.Change = [this] {
    Check1.Value = false;
    FillTyped(CurFill);
  };
  DesFill.Change = [this] { FillTyped(DesFill); };
  for (TextBox* box : {&CurO2, &CurHe}) {
    box->Change = [this, box] {
      Check1.Value = false;
      MixTyped(current_, *box);
    };
  }
  for (TextBox* box : {&DesO2, &DesHe}) {
    box->Change = [this, box] { UpdateDesiredMix(*box); };
  }
  for (TextBox* box : {&tbTopO2, &tbTopHe, &tbCelsius}) {
    box->Change = [this, box] { Typed(*box); };
  }
  tbFilledAt.Change = [this] { Recalculate(); };
  tbSteps.Change = [this] { ShowSteps(); };
  for (TextBox* box : {&CurFill, &CurO2, &CurHe, &DesFill, &DesO2, &DesHe, &tbTopO2, &tbTopHe, &tbCelsius, &tbFilledAt,
                       &tbCylinder, &tbRated}) {
    box->GotFocus = [box] {
      if (box->SelectWanted) box->SelectWanted();
    };
  }
  lbMisses.ForeColor = kRed;
  CurN2.Locked = true;
  DesN2.Locked = true;
  tbCylinder.Change = tbRated.Change = [this] {
    ShowFillList();
    Save();
  };
  Check1.Click = [this] { Check1_Click(); };
  Combo1.Click = [this] { Combo1_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Cancel = true;
  Command2.Click = [this] { Command2_Click(); };
  cbMend.Click = [this] { cbMend_Click(); };
}

void frmPartialMix::Form_Load() {
  loading_ = true;
  Localize();
  SetCaptions();
  SetUnits();
  Check1.Value = Saved("AirCylinder") != "0";
  if (Check1.Value) {
    UseEmptyCylinder();
  } else {
    CurFill.Text = Plain(FillScale());
    ShowMix(current_, Saved("sDesO2"), Saved("sDesHe"));
  }
  constexpr double kUsualBar = 200;
  DesFill.Text = Plain(FillScale() * kUsualBar);
  // The first time with what most divers fill first.
  const bool first = Saved("sDesO2").empty() && Saved("sDesHe").empty();
  ShowMix(desired_, first ? "32" : Saved("sDesO2"), first ? "0" : Saved("sDesHe"));
  // A gas from a bank, or a cold day, is nothing to find unawares on the next one.
  tbTopO2.Text = Plain(kAir.O2);
  tbTopHe.Text = Plain(kAir.He);
  tbCelsius.Text = Plain(FillRequest{}.celsius);
  tbCylinder.Text = Saved(template_.Metric ? "CylinderLitres" : "CylinderCuFt");
  const std::string rated = Saved("CylinderPsi");
  tbRated.Text = rated.empty() ? "3000" : rated;
  std::vector<std::string> names;
  for (const GasMix& mix : template_.Blends) names.push_back(mix.Name);
  Combo1.Items = names;
  ShowBlend();
  if (Combo1.ListIndex == -1 && !names.empty()) Combo1.ListIndex = 0;
  Recalculate();
  loading_ = false;
}

void frmPartialMix::SetCaptions() {
  Caption = T(Text::MixerTitle);
  const std::pair<Control*, int> captions[] = {
      {&Frame1, Text::MixerCurrent},      {&Check1, Text::MixerUseEmpty},
      {&Label1, Text::MixerCurrentFill},  {&Label2, Text::MixerCurrentO2},
      {&Label3, Text::MixerCurrentHe},    {&Label4, Text::MixerCurrentN2},
      {&Frame4, Text::MixerDesired},      {&Label29, Text::TemplateGases},
      {&Label14, Text::MixerDesiredFill}, {&Label13, Text::MixerDesiredO2},
      {&Label12, Text::MixerDesiredHe},   {&Label11, Text::MixerDesiredN2},
      {&Frame3, Text::MixerAirTop},       {&lbAirTopO2, Text::MixerO2},
      {&lbAirTopHe, Text::MixerHe},       {&lbAirTopAir, Text::MixerAir},
      {&Frame2, Text::MixerVanDerWaals},  {&lbIdealTopO2, Text::MixerO2},
      {&lbIdealTopHe, Text::MixerHe},     {&lbIdealTopN2, Text::MixerAir},
      {&Frame5, Text::FillTitle},         {&lbCylinder, Text::MixerCylinder},
      {&lbRated, Text::MixerRated},       {&Command1, Text::MixerPrint},
      {&Command2, Text::MixerClose},      {&Frame6, Text::MixerHowFilled},
      {&lbTopO2, Text::MixerTopO2},       {&lbTopHe, Text::MixerTopHe},
      {&lbCelsius, Text::MixerGaugeAt},   {&lbCelsiusUnit, Text::MixerCelsius},
      {&lbFilledAt, Text::MixerWarmAt},   {&lbFilledAtUnit, Text::MixerCelsius},
      {&Frame7, Text::MixerCameOut},      {&lbSteps, Text::MixerSteps},
      {&cbMend, Text::MixerGoOn}};
  for (const auto& [control, id] : captions) control->Caption = T(id);
  for (Label* label : {&AirTopO2, &AirTopHe, &AirTopAir}) label->ToolTipText = T(Text::MixerAmountHelp);
  IdealTopHe.ToolTipText = T(Text::MixerHeliumHelp);
  IdealTopO2.ToolTipText = T(Text::MixerOxygenHelp);
  IdealTopN2.ToolTipText = T(Text::MixerTopHelp);
  tbSteps.ToolTipText = T(Text::MixerStepsHelp);
  cbMend.ToolTipText = T(Text::MixerMendHelp);
}

void frmPartialMix::SetUnits() {
  for (Label* label : {&Label15, &Label16, &Label17, &Label18, &Label19, &Label20, &Label22, &Label26, &lbRatedUnit}) {
    label->Caption = words_.Unit();
  }
  lbCylinderUnit.Caption = T(template_.Metric ? Text::Litres : Text::CubicFeet);
  for (Control* control : std::initializer_list<Control*>{&lbRated, &tbRated, &lbRatedUnit}) {
    control->Visible = !template_.Metric;
  }
}

void frmPartialMix::UseEmptyCylinder() {
  CurFill.Text = Plain(FillScale());
  ShowMix(current_, "21", "0");
}

void frmPartialMix::ShowMix(const Cylinder& cylinder, const std::string& o2, const std::string& he) {
  cylinder.o2.Text = o2;
  cylinder.he.Text = he;
  ApplyMixRules(cylinder);
}

void frmPartialMix::setmix(Single o2, Single he) {
  ShowMix(desired_, Plain(o2), Plain(he));
  UpdateDesiredMix(DesO2);
}

void frmPartialMix::Check1_Click() {
  if (Check1.Value) {
    UseEmptyCylinder();
  } else {
    // A pressure in the other unit is no pressure of this cylinder.
    const bool sameUnit = Saved("sCurFillUnit").empty() || Saved("sCurFillUnit") == UnitName();
    CurFill.Text = sameUnit ? Saved("sCurFill") : Plain(FillScale());
    ShowMix(current_, Saved("sCurO2"), Saved("sCurHe"));
  }
  Recalculate();
}

void frmPartialMix::Combo1_Click() {
  const auto index = static_cast<std::size_t>(Combo1.ListIndex.Get());
  // Both at once: on the way from one mix to the next the two may be more than 100 %.
  setmix(template_.Blends.at(index).O2, template_.Blends.at(index).He);
}

void frmPartialMix::Typed(const TextBox& box) { Recalculate(NumberIn(box.Text).has_value()); }

void frmPartialMix::FillTyped(TextBox& fill) {
  const auto value = NumberIn(fill.Text);
  if (value && *value < 0) fill.Text = "0";
  Typed(fill);
}

void frmPartialMix::ApplyMixRules(const Cylinder& cylinder) {
  const bool whole = NumberIn(cylinder.o2.Text) && NumberIn(cylinder.he.Text);
  const auto number = [this](const TextBox& box) { return NumberIn(box.Text) ? box.Text.Get() : ""; };
  const PercentageFields fields = UpdateMix(number(cylinder.o2), number(cylinder.he), platform_.separators);
  if (fields.o2Reset) cylinder.o2.Text = "0";
  if (fields.heReset) cylinder.he.Text = "0";
  cylinder.n2.Text = whole ? Plain(fields.mix.N2) : "";
}

void frmPartialMix::MixTyped(const Cylinder& cylinder, const TextBox& typed) {
  ApplyMixRules(cylinder);
  Typed(typed);
}

void frmPartialMix::ShowBlend() {
  const auto o2 = NumberIn(DesO2.Text);
  const auto he = NumberIn(DesHe.Text);
  const auto& blends = template_.Blends;
  const auto found = std::ranges::find_if(blends, [&](const GasMix& mix) { return o2 == mix.O2 && he == mix.He; });
  Combo1.ListIndex = found == blends.end() ? -1 : static_cast<int>(found - blends.begin());
}

void frmPartialMix::UpdateDesiredMix(const TextBox& typed) {
  ShowBlend();
  MixTyped(desired_, typed);
}

std::string frmPartialMix::Saved(const std::string& name) const {
  const std::string text = platform_.settings.ReadSetting(kSection, name);
  return ParseStrict(text) ? Written(text) : text;
}

void frmPartialMix::Save() {
  if (loading_) return;
  const auto save = [this](const char* name, const std::string& text) {
    // Numbers with a point and without groups in every locale, so that another one reads the same.
    const auto number = NumberIn(text);
    platform_.settings.WriteSetting(kSection, name, number ? FormatPlain(*number) : text);
  };
  save("AirCylinder", Check1.Value ? "1" : "0");
  save("sCurFill", CurFill.Text);
  save("sCurFillUnit", UnitName());
  save("sCurHe", CurHe.Text);
  save("sCurN2", CurN2.Text);
  save("sCurO2", CurO2.Text);
  save("sDesFill", DesFill.Text);
  save("sDesO2", DesO2.Text);
  save("sDesN2", DesN2.Text);
  save("sDesHe", DesHe.Text);
  save(template_.Metric ? "CylinderLitres" : "CylinderCuFt", tbCylinder.Text);
  if (!template_.Metric) save("CylinderPsi", tbRated.Text);
}

void frmPartialMix::Command1_Click() {
  if (report_) PrintMixReport(*report_, writer_);
}

void frmPartialMix::Command2_Click() {
  Save();
  Unload();
}

}  // namespace tav
