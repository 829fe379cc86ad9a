#include "dialogs/properties.h"

#include <utility>

#include "dialogs/gas_blend.h"

namespace tav {

frmProperties::frmProperties(const DialogServices& services) : DialogForm("frmProperties", services) {
  Wire();
  WireGrids();
}

void frmProperties::Wire() {
  for (TextBox* field : NumberFields()) {
    field->Change = [this, field] { FieldChanged(*field); };
    field->LostFocus = [this, field] { FieldLeft(*field); };
  }
  Text4.Locked = true;
  Text3.Locked = true;
  ListView1.ItemClick = [this] { ShowFrame(ListView1.SelectedItem); };
  Option1_0.Click = [this] { Option1_Click(0); };
  Option1_1.Click = [this] { Option1_Click(1); };
  Check1.Click = [this] { Check1_Click(); };
  cbAutoDecoGas.Click = [this] { cbAutoDecoGas_Click(); };
  cbCustomBlend.Click = FgGas.InsertKey = [this] {
    const bool changed = IsChanged();
    const std::size_t gases = Template().Blends.size();
    frmGasBlend dialog(services_);
    dialog.SetTemplate(documentIndex_);
    services_.platform.windows.ShowModal(dialog);
    // The other rows keep what has been typed into them.
    for (std::size_t i = gases; i < Template().Blends.size(); ++i) FgGas.AddRow(GasRow(Template().Blends[i]));
    if (!changed) filled_ = Entries();  // the new gas is stored, and nothing else has been entered
  };
  Command1.Visible = false;
  Command1.Click = [this] {
    if (services_.openMixer) services_.openMixer(MixerO2_, MixerHe_);
  };
  cbDefault.Click = [this] { cbDefault_Click(); };
  cbOK.Default = true;
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] {
    cancelled_ = true;
    decoGasSettings_.clear();
    Unload();
  };
}

void frmProperties::Form_Load() {
  AddRow.Caption = "1625";
  DelRow.Caption = "1626";
  Localize();
  SetCaptions();
  SetDocument(services_.ActiveOrDefault());
  std::vector<std::string> items;
  for (int id = 3034; id <= 3041; ++id) items.push_back(T(id));
  ListView1.Items = items;
  ListView1.SelectedItem = 0;
  ShowFrame(0);
}

void frmProperties::SetCaptions() {
  const std::pair<Control*, int> captions[] = {
      {&lbNewPlans, 8100},    {&Label23, 5003},       {&Frame13, 3069},         {&Frame7, 1603},
      {&Frame6, 1604},        {&Frame15, 3070},       {&Frame5, 1605},          {&Label7, 1643},
      {&Label15, 1644},       {&Frame16, 3071},       {&Label20, 3072},         {&Label21, 3073},
      {&Frame3, 1606},        {&cbAutoDecoGas, 1652}, {&Frame2, 1602},          {&Option1_1, 1631},
      {&Option1_0, 1632},     {&Frame4, 1607},        {&cbCustomBlend, 1611},   {&Command1, 6318},
      {&Frame1, 1645},        {&Frame12, 1646},       {&lbStartAltitude, 1645}, {&lbStartPressure, 3043},
      {&lbEndAltitude, 1645}, {&Check1, 1647},        {&Label10, 5004},         {&Label12, 3042},
      {&Frame11, 1648},       {&Label14, 3043},       {&Frame8, 1650},          {&Label1, 1651},
      {&Label19, 3074},       {&Check2, 3075},        {&cbKeepsDiluent, 8305},  {&cbIntervalOnAir, 8306},
      {&Frame14, 3076},       {&Frame17, 3077},       {&Label3, 1639},          {&Label4, 1640},
      {&Frame18, 3079},       {&lbRMV, 1638},         {&Frame19, 3078},         {&cbONarcotic, 1642},
      {&Label8, 1641},        {&Frame9, 1633},        {&cbWarnPPOLow, 1634},    {&cbWarnPPOHigh, 1635},
      {&cbWarnMaxEND, 1636},  {&cbOK, 1610},          {&cbCancel, 1609},        {&cbDefault, 1608}};
  for (const auto& [control, id] : captions) control->Caption = T(id);
  // The letters of the menu would be those of all buttons.
  for (Button* add : {&cbAddDescend, &cbAddAscend, &cbAddChange}) add->Caption = ReplaceAll(T(1625), "&", "");
  for (Button* remove : {&cbDelDescend, &cbDelAscend, &cbDelChange, &cbDelGas}) {
    remove->Caption = ReplaceAll(T(1626), "&", "");
  }
}

void frmProperties::ShowUnitLabels() {
  const bool metric = Metric();
  for (Label* label : {&Label2, &Label22}) label->Caption = T(metric ? 1628 : 1627);
  for (Label* label : {&Label5, &Label6, &lBarAta, &Label17, &lbMaxPPOUnit}) label->Caption = T(metric ? 1629 : 1630);
  for (Label* label : {&Label9, &lbStepUnit, &lbLastStopUnit}) label->Caption = T(metric ? 1619 : 1620);
  for (Label* label : {&Label11, &Label18}) label->Caption = T(metric ? 1219 : 1216);
  for (Label* label : {&Label13, &Label16}) label->Caption = T(metric ? 1220 : 1221);
  ShowHeads();
}

void frmProperties::InitFrames() {
  InitConstPPOFrame();
  InitAltitudeFrame();
  InitGasAvailableFrame();
  InitGasSettingsFrame();
  InitDecoStepsFrame();
  InitUnitsFrame();
  FillRates(fgDescend, Template().DescendRates);
  FillRates(fgAscend, Template().AscendRates);
  InitDecoGasFrame();
  ShowHeads();
  InitWarningsFrame();
}

void frmProperties::InitConstPPOFrame() {
  const DiveTemplate& t = Template();
  SetPoint.Text = Plain(t.Setpoint);
  Text6.Text = Plain(t.DecoSetpoint);
  Check2.Value = t.OCDeco;
  for (Control* control : std::initializer_list<Control*>{&SetPoint, &Text6, &Check2}) {
    control->Enabled = !t.OpenCircuit;
  }
  // A new plan always keeps its diluent and spends its interval on air.
  const bool ofNewPlans = documentIndex_ == DocumentStore::DefaultDocument;
  cbKeepsDiluent.Value = ofNewPlans || t.KeepsDiluent;
  cbIntervalOnAir.Value = ofNewPlans || t.IntervalOnAir;
  for (CheckBox* box : {&cbKeepsDiluent, &cbIntervalOnAir}) box->Enabled = !t.OpenCircuit && !ofNewPlans;
}

void frmProperties::InitAltitudeFrame() {
  const DiveTemplate& t = Template();
  Text2.Text = Whole(t.StartAltitude, 0);
  Text5.Text = Whole(t.EndAltitude, 0);
  Text1.Text = Fixed(Single(t.TimeToHeight), 0);
  Check1.Value = t.AdeptedToHeight;
  endFollowsStart_ = t.StartAltitude == t.EndAltitude && t.StartPressure == t.EndPressure;
  ShowPressures();
  ShowAdapted();
}

void frmProperties::ShowAdapted() {
  for (Control* control : std::initializer_list<Control*>{&Text1, &Label10, &Label12}) {
    control->Visible = !Check1.Value;
  }
}

void frmProperties::Check1_Click() {
  // Counts at once, also when the dialog is cancelled in the end.
  Template().AdeptedToHeight = Check1.Value;
  MarkChanged(documentIndex_);
  if (documentIndex_ != DocumentStore::DefaultDocument) adaptedDocument_ = documentIndex_;
  ShowAdapted();
}

std::vector<std::string> frmProperties::GasRow(const GasMix& mix) const {
  return {mix.Name, Plain(mix.O2), Plain(mix.He), Plain(mix.N2)};
}

void frmProperties::InitGasAvailableFrame() {
  std::vector<std::vector<std::string>> rows{{T(1618), "% O2", "% He", "% N2"}};
  for (const GasMix& mix : Template().Blends) {
    rows.push_back(GasRow(mix));
  }
  FgGas.SetRows(rows);
  for (int row = 1; row < FgGas.Rows(); ++row) MarkGas(row);
}

void frmProperties::InitGasSettingsFrame() {
  const DiveTemplate& t = Template();
  tbMinPPO.Text = Whole(t.MinPPO2, 2);
  tbMaxPPO.Text = Whole(t.MaxPPO2, 2);
  tbRMV.Text = Plain(t.RMV);
  tbMaximalEND.Text = Whole(t.MaximalEND, 0);
  cbONarcotic.Value = t.O2Narcotic;
}

void frmProperties::InitDecoStepsFrame() {
  const DiveTemplate& t = Template();
  tbStepSize.Text = Whole(t.StepSize, 0);
  tbLastStop.Text = Whole(t.LastStop, 0);
  Text7.Text = Whole(t.DecoPPO2, 2);
  Text8.Text = Plain(t.DecoRMV);
}

void frmProperties::InitUnitsFrame() {
  Option1_1.Value = Metric();
  Option1_0.Value = !Metric();
  ShowUnitLabels();
}

void frmProperties::InitWarningsFrame() {
  const DiveTemplate& t = Template();
  cbWarnPPOLow.Value = t.PPO2Low;
  cbWarnPPOHigh.Value = t.PPO2High;
  cbWarnMaxEND.Value = t.MaxEnd;
}

void frmProperties::ShowFrame(int index) {
  Frame* const frames[] = {&Frame13, &Frame15, &Frame2, &Frame4, &Frame1, &Frame8, &Frame14, &Frame9};
  int i = 0;
  for (Frame* frame : frames) frame->Visible = i++ == index;
}

}  // namespace tav
