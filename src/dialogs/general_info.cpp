#include "dialogs/general_info.h"

#include "advice/stop_reason.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "reports/information_text.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

const std::string kSection = "Information";

/// Column widths as the settings keep them: "60,72,...".
std::vector<int> WidthsIn(std::string_view text) {
  std::vector<int> widths;
  while (!text.empty()) {
    const std::size_t comma = text.find(',');
    widths.push_back(static_cast<int>(ParseLenient(text.substr(0, comma))));
    text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
  }
  return widths;
}

std::string WidthsText(const std::vector<int>& widths) {
  std::string text;
  for (const int width : widths) text += (text.empty() ? "" : ",") + std::to_string(width);
  return text;
}

}  // namespace

frmGeneralInfo::frmGeneralInfo(const DialogServices& services) : DialogForm("frmGeneralInfo", services) {
  RemembersPlace = true;
  TabStrip1.Click = [this] { TabStrip1_Click(); };
  TabStrip2.Click = [this] { ShowTab(); };
  Command1.Cancel = true;
  Command1.Click = [this] { Unload(); };
  GeneralInfo.Click = cbCopy.Click = [this] { GeneralInfo_Click(); };
  ContextMenu = [this] { services_.platform.windows.PopupMenu({&GeneralInfo}); };
  constexpr int kStatusColumn = 12;
  constexpr int kModelColumn = 13;
  fginfo.TextColumns = {kStatusColumn, kModelColumn};
  fgGasConsumption.TextColumns = {0};
  fgSummary.HasHeader = false;
  fgSummary.TextColumns = {0, 2};
  fgSupply.TextColumns = kSupplyTextColumns;
  fgLegs.TextColumns = kLegTextColumns;
}

std::optional<std::int16_t> frmGeneralInfo::FirstDive() const {
  const auto active = services_.ActiveDocument();
  if (!active) return std::nullopt;
  return services_.forms(*active).getFirstProfile();
}

std::int16_t frmGeneralInfo::getNumberofSeries() const {
  const auto first = FirstDive();
  if (!first) return -1;
  std::int16_t count = 0;
  for (std::int16_t dive = *first; dive != -1; dive = services_.forms(dive).NextProfile) ++count;
  return count;
}

void frmGeneralInfo::Form_Load() { setthefirstprofile(); }

void frmGeneralInfo::setthefirstprofile() {
  const auto first = FirstDive();
  if (!first) return;
  SetUpControls();
  setInfo(*first, false);
}

void frmGeneralInfo::SetUpControls() {
  const auto first = FirstDive();
  Caption = T(Text::InfoTitle) + ": " + services_.Documents()(*first).ProfileName;
  const std::int16_t dives = getNumberofSeries();
  TabStrip1.Visible = dives > 1;
  std::vector<std::string> tabs{T(Text::InfoFirstDive)};
  for (int i = 2; i <= dives; ++i) {
    tabs.push_back(std::string(TrimBlanks(T(Text::DiveNumber))) + " " + std::to_string(i));
  }
  TabStrip1.Tabs = tabs;
  TabStrip1.SelectedItem = 0;
  const std::pair<Control*, int> captions[] = {{&Label1, Text::InfoSummary},
                                               {&Label2, Text::InfoStops},
                                               {&Label3, Text::InfoProfile},
                                               {&Label4, Text::InfoGasUse},
                                               {&Frame3, Text::InfoSettings},
                                               {&Label5, Text::InfoConservatism},
                                               {&Label6, Text::InfoModel},
                                               {&Label7, Text::InfoAltitude},
                                               {&Label8, Text::InfoDecoSteps},
                                               {&Label9, Text::InfoStopSize},
                                               {&Label10, Text::InfoLastStop},
                                               {&Label11, Text::InfoStart},
                                               {&Label12, Text::InfoSurface},
                                               {&Label13, Text::InfoUnits},
                                               {&Label14, Text::InfoApparatus},
                                               {&lbHiGF, Text::InfoHighGF},
                                               {&lbO2Narcotic, Text::InfoO2Narcotic},
                                               {&lbLoGF, Text::InfoLowGF},
                                               {&Label16, Text::InfoInterval},
                                               {&Command1, Text::PreviewClose},
                                               {&cbCopy, Text::InfoCopy},
                                               {&GeneralInfo, Text::InfoCopy},
                                               {&lbGases, Text::SupplyTitle}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  for (Label* head : {&Label1, &Label2, &Label3, &Label4, &Label5, &Label6, &Label7, &Label8, &Label13, &Label14,
                      &lbGases, &lbLegs}) {
    head->Bold = true;
  }
  for (ResultGrid* grid : {&fginfo, &fgDecoStop, &fgGasConsumption, &fgSummary, &fgSupply, &fgLegs}) {
    grid->ColumnWidths = WidthsIn(services_.platform.settings.ReadSetting(kSection, grid->Name()));
  }
}

void frmGeneralInfo::Form_Unload() {
  for (const ResultGrid* grid : {&fginfo, &fgDecoStop, &fgGasConsumption, &fgSummary, &fgSupply, &fgLegs}) {
    services_.platform.settings.WriteSetting(kSection, grid->Name(), WidthsText(grid->ColumnWidths));
  }
}

void frmGeneralInfo::TabStrip1_Click() {
  auto dive = FirstDive();
  if (!dive) return;
  for (int k = 0; k < TabStrip1.SelectedItem; ++k) {
    const std::int16_t next = services_.forms(*dive).NextProfile;
    if (next == -1) break;
    dive = next;
  }
  setInfo(*dive, true);
}

void frmGeneralInfo::setInfo(std::int16_t dive, bool showInterval) {
  dive_ = dive;
  const DocumentState& document = services_.Documents()(dive);
  // The first dive has no interval before it.
  const bool interval = showInterval && services_.forms(dive).PrevProfile != -1;
  Label16.Visible = Label17.Visible = interval;
  Label16.Caption = T(Text::CaptionInterval);
  Label17.Caption = interval ? T(FormatMinutes(document.SurfaceInterval)) : "";
  const auto notice = NoticeOf(services_.forms(dive).InputProfile, document.Decompresses);
  lbNotice.Visible = notice.has_value();
  lbNotice.Caption = notice ? T(*notice) : "";
  lbNotice.ForeColor = kRed;
  lbNotice.Bold = true;

  const DiveInformation information = InformationOf(dive);
  fginfo.Cells = information.Profile();
  fgDecoStop.Cells = information.DecoStops();
  TellStops();
  fgGasConsumption.Cells = information.Gas();
  fgSummary.Cells = information.Summary();
  ShowBlock(information.Info());
  ShowSupply(dive);
}

/// Why each stop lasts as long as it does, in the tool tips of its rows.
void frmGeneralInfo::TellStops() {
  const PlannedDive planned = services_.forms(dive_).Planned();
  const CheckedDive dive(planned);
  const auto reasons = StopReasonTexts(
      dive, AdviceWords(services_.texts, services_.platform.separators, planned.record.Template.Metric));
  auto rows = fginfo.Cells.Get();
  auto stops = fgDecoStop.Cells.Get();
  std::size_t stop = 0;
  for (std::int16_t i = 1; i <= planned.plan.rows.GetLength(); ++i) {
    if (!IsStop(planned.plan.rows.Row(i))) continue;
    ++stop;
    const auto reason = reasons.find(i);
    if (reason == reasons.end()) continue;
    for (GridCell& cell : rows.at(static_cast<std::size_t>(i) + 1)) cell.tip = reason->second;
    for (GridCell& cell : stops.at(stop)) cell.tip = reason->second;
  }
  fginfo.Cells = std::move(rows);
  fgDecoStop.Cells = std::move(stops);
}

DiveInformation frmGeneralInfo::InformationOf(std::int16_t dive) const {
  const frmWaypointEditor& editor = services_.forms(dive);
  return {editor.InputProfile,      TemplateOf(dive), editor.EvaluatedWith(),
          editor.PrevProfile != -1, services_.texts,  services_.platform.separators};
}

void frmGeneralInfo::ShowSupply(std::int16_t dive) {
  supply_ = SupplyTablesOf(services_.forms(dive).Planned(), services_.texts, services_.platform.separators);
  fgSupply.Cells = supply_.gases;
  fgLegs.Cells = supply_.legs;
  lbLegs.Caption = supply_.legTitle;
  lbLoop.Caption = supply_.note;
  const bool told = !supply_.gases.empty();
  TabStrip2.Tabs = {T(Text::InfoDive), T(Text::SupplyTitle)};
  TabStrip2.Visible = told;
  if (!told) TabStrip2.SelectedItem = 0;
  ShowTab();
}

void frmGeneralInfo::ShowTab() {
  const bool supply = TabStrip2.SelectedItem == 1;
  Frame2.Visible = !supply;
  frSupply.Visible = supply;
}

void frmGeneralInfo::ShowBlock(const DiveInformation::Block& block) {
  const std::pair<Label*, const std::string*> texts[] = {{&lbModel, &block.model},
                                                         {&lbDepthConservatism, &block.depthConservatism},
                                                         {&lbGFConservatism, &block.gfConservatism},
                                                         {&lbHiGFValue, &block.highGF},
                                                         {&lbLoGFValue, &block.lowGF},
                                                         {&lbUnits, &block.units},
                                                         {&lbAFrom, &block.startAltitude},
                                                         {&lbATo, &block.endAltitude},
                                                         {&lbStartPres, &block.startPressure},
                                                         {&lbStopPres, &block.endPressure},
                                                         {&lbStep, &block.stepSize},
                                                         {&lbLastStep, &block.lastStop},
                                                         {&lbAparatus, &block.apparatus},
                                                         {&Label15, &block.o2Narcotic}};
  for (const auto& [label, text] : texts) label->Caption = *text;
  for (Label* label : {&lbHiGF, &lbHiGFValue, &lbLoGF, &lbLoGFValue}) label->Visible = block.showsGF;
  lbHiGFValue.ForeColor = block.highGFAboveOne ? kRed : -1;
}

void frmGeneralInfo::GeneralInfo_Click() {
  if (dive_ == -1) return;
  const DiveInformation information = InformationOf(dive_);
  services_.platform.clipboard.SetText(
      InformationText({services_.forms.Caption(dive_), Label17.Caption, information.Info(), fginfo.Cells,
                       fgDecoStop.Cells, fgGasConsumption.Cells, supply_, lbNotice.Caption},
                      services_.texts));
  Box(T(Text::InfoCopied), "", BoxIcon::None);
}

}  // namespace tav
