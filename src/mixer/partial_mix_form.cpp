#include "mixer/partial_mix_form.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace tav {
namespace {

constexpr int kTitle = 6318;
constexpr int kOver100 = 6335;
constexpr int kWantedOver100 = 7770;
constexpr int kPrint = 6310;
constexpr int kNotPossible = 3033;
constexpr int kMissing = 7430;
constexpr int kNoNumber = 7431;
constexpr int kNoFill = 7427;
constexpr int kTooMuch = 7428;

const std::string kSection = "Mix";

/// A line that takes no room when there is nothing to say.
void Say(Label& line, const std::string& text) {
  line.Caption = text;
  line.Visible = !text.empty();
}

}  // namespace

frmPartialMix::frmPartialMix(Platform platform, PrintPreview& writer, DiveTemplate diveTemplate)
    : TextForm("frmPartialMix", std::move(platform), writer.Texts()),
      writer_(writer),
      template_(std::move(diveTemplate)),
      words_(writer.Texts(), platform_.separators, template_.Metric) {
  Wire();
}

void frmPartialMix::Wire() {
  CurFill.Change = [this] { FillTyped(CurFill); };
  DesFill.Change = [this] { FillTyped(DesFill); };
  for (TextBox* box : {&CurO2, &CurHe}) {
    box->Change = [this, box] { UpdateCurrentMix(*box); };
  }
  for (TextBox* box : {&DesO2, &DesHe}) {
    box->Change = [this, box] { UpdateDesiredMix(*box); };
  }
  for (TextBox* box : {&CurFill, &CurO2, &CurHe, &DesFill, &DesO2, &DesHe, &tbCylinder, &tbRated}) {
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
  ShowMix(desired_, Saved("sDesO2"), Saved("sDesHe"));
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
  Caption = T(kTitle);
  const std::pair<Control*, int> captions[] = {
      {&Frame1, 6304},      {&Check1, 6334},     {&Label1, 6300},       {&Label2, 6301},       {&Label3, 6302},
      {&Label4, 6303},      {&Frame4, 6305},     {&Label29, 1607},      {&Label14, 6306},      {&Label13, 6307},
      {&Label12, 6308},     {&Label11, 6309},    {&Frame3, 6313},       {&lbAirTopO2, 6402},   {&lbAirTopHe, 6404},
      {&lbAirTopAir, 6405}, {&Frame2, 6312},     {&lbIdealTopO2, 6402}, {&lbIdealTopHe, 6404}, {&lbIdealTopN2, 6405},
      {&Frame5, 7400},      {&lbCylinder, 7433}, {&lbRated, 7434},      {&Command1, kPrint},   {&Command2, 6311}};
  for (const auto& [control, id] : captions) control->Caption = T(id);
  for (Label* label : {&AirTopO2, &AirTopHe, &AirTopAir}) label->ToolTipText = T(7435);
  IdealTopHe.ToolTipText = T(7436);
  IdealTopO2.ToolTipText = T(7437);
  IdealTopN2.ToolTipText = T(7438);
  lbPressures.Caption = words_.AboutPressures();
}

void frmPartialMix::SetUnits() {
  for (Label* label : {&Label15, &Label16, &Label17, &Label18, &Label19, &Label20, &Label22, &Label26, &lbRatedUnit}) {
    label->Caption = words_.Unit();
  }
  lbCylinderUnit.Caption = T(template_.Metric ? 7423 : 7424);
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

void frmPartialMix::FillTyped(TextBox& fill) {
  const auto value = NumberIn(fill.Text);
  if (value && *value < 0) fill.Text = "0";
  if (value) {
    Recalculate();
  } else {
    ClearResults(MissingField());
  }
}

bool frmPartialMix::ApplyMixRules(const Cylinder& cylinder) {
  const bool whole = NumberIn(cylinder.o2.Text) && NumberIn(cylinder.he.Text);
  const auto number = [this](const TextBox& box) { return NumberIn(box.Text) ? box.Text.Get() : ""; };
  const PercentageFields fields = UpdateMix(number(cylinder.o2), number(cylinder.he), platform_.separators);
  if (fields.o2Reset) cylinder.o2.Text = "0";
  if (fields.heReset) cylinder.he.Text = "0";
  cylinder.n2.Text = whole ? Plain(fields.mix.N2) : "";
  return !(whole && fields.over100);
}

void frmPartialMix::MixTyped(const Cylinder& cylinder, const TextBox& typed, const std::string& over100) {
  if (!ApplyMixRules(cylinder)) Box(over100, T(kTitle), BoxIcon::Stop);
  if (NumberIn(typed.Text)) {
    Recalculate();
  } else {
    ClearResults(MissingField());
  }
}

void frmPartialMix::UpdateCurrentMix(const TextBox& typed) { MixTyped(current_, typed, T(kOver100)); }

void frmPartialMix::ShowBlend() {
  const auto o2 = NumberIn(DesO2.Text);
  const auto he = NumberIn(DesHe.Text);
  const auto& blends = template_.Blends;
  const auto found = std::ranges::find_if(blends, [&](const GasMix& mix) { return o2 == mix.O2 && he == mix.He; });
  Combo1.ListIndex = found == blends.end() ? -1 : static_cast<int>(found - blends.begin());
}

void frmPartialMix::UpdateDesiredMix(const TextBox& typed) {
  ShowBlend();
  MixTyped(desired_, typed, T(kWantedOver100));
}

std::string frmPartialMix::MissingField() const {
  const std::pair<const TextBox*, const Label*> fields[] = {{&CurFill, &Label1}, {&CurO2, &Label2},
                                                            {&CurHe, &Label3},   {&DesFill, &Label14},
                                                            {&DesO2, &Label13},  {&DesHe, &Label12}};
  const auto named = [this](int id, const Label& label) { return ReplaceAll(T(id), "%1", FieldName(label)); };
  for (const auto& [box, label] : fields) {
    if (TrimBlanks(box->Text.Get()).empty()) return named(kMissing, *label);
    if (!NumberIn(box->Text)) return named(kNoNumber, *label);
  }
  const double highest = HighestFill(template_.Metric);
  for (const auto& [box, label] : {fields[0], fields[3]}) {
    const double value = Number(box->Text);
    const bool filled = box == &DesFill;
    if (value <= highest && !(filled && value <= 0)) continue;
    return ReplaceAll(ReplaceAll(named(filled ? kNoFill : kTooMuch, *label), "%2", Plain(highest)), "%3",
                      words_.Unit());
  }
  if (Number(CurN2.Text) < 0 || Number(DesN2.Text) < 0) return T(kOver100);
  return "";
}

void frmPartialMix::Recalculate() {
  const std::string missing = MissingField();
  if (missing.empty()) {
    ShowResults({MixOf(Number(CurO2.Text), Number(CurHe.Text)), Number(CurFill.Text),
                 MixOf(Number(DesO2.Text), Number(DesHe.Text)), Number(DesFill.Text), template_.Metric});
  } else {
    ClearResults(missing);
  }
  Save();
}

void frmPartialMix::ShowResults(const FillRequest& request) {
  const FillResult result = tav::Recalculate(request);
  AirTopO2.Caption = Written(result.AirTopO2);
  AirTopHe.Caption = Written(result.AirTopHe);
  AirTopAir.Caption = Written(result.AirTopAir);
  IdealTopO2.Caption = Written(result.IdealTopO2);
  IdealTopHe.Caption = Written(result.IdealTopHe);
  IdealTopN2.Caption = Written(result.IdealTopN2);
  Command1.Caption = T(result.AirImpossible ? kNotPossible : kPrint);
  Command1.Enabled = !result.AirImpossible;
  report_ = MixReport{request, result, {}};
  ShowFillList();
}

void frmPartialMix::ShowFillList() {
  const auto size = SizeOfCylinder();
  if (!report_) return;
  report_->cylinder = size;
  const FillRequest& request = report_->request;
  const GaugeList list = GaugeListOf(request, GaugeMark(request.metric));
  fgFill.SetRows(words_.Rows(request, list, size));
  Say(lbHindrance, words_.Hindrance(request, list));
  lbHindrance.ForeColor = list.Possible() ? -1 : kRed;
  Say(lbMisses, words_.Misses(request, list));
  Say(lbOutcome, words_.Outcome(list));
  Say(lbIfIdeal, words_.IfIdeal(list));
}

void frmPartialMix::ClearResults(const std::string& why) {
  report_.reset();
  for (Label* label : {&AirTopO2, &AirTopHe, &AirTopAir, &IdealTopO2, &IdealTopHe, &IdealTopN2}) label->Caption = "";
  for (Label* label : {&lbMisses, &lbOutcome, &lbIfIdeal}) Say(*label, "");
  fgFill.SetRows({words_.Heads(false)});
  Say(lbHindrance, why);
  lbHindrance.ForeColor = kRed;
  Command1.Caption = T(kPrint);
  Command1.Enabled = false;
}

std::optional<CylinderSize> frmPartialMix::SizeOfCylinder() {
  bool usable = true;
  const auto positive = [&](TextBox& box) -> Single {
    const auto value = NumberIn(box.Text);
    const bool good = value && *value > 0 && *value <= HighestFill(false);
    box.ForeColor = good ? -1 : kRed;
    usable = usable && good;
    return value.value_or(0);
  };
  CylinderSize size{positive(tbCylinder), 1};
  if (!template_.Metric) size.ratedPressure = positive(tbRated);
  return usable ? std::optional(size) : std::nullopt;
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
