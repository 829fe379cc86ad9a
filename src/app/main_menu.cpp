// What stands in the menus and on the tool bar of the main window, and in which order.

#include <span>

#include "app/main_form.h"
#include "app/menu_letters.h"
#include "controls/localize_form.h"
#include "model/text_id.h"

namespace tav {
namespace {

struct MenuRow {
  MenuItem frmMain::*item;
  int level;
  int caption;  // a text; 0 for a rule
  const char* shortcut;
};

constexpr int kRule = 0;

constexpr MenuRow kMenu[] = {
    {&frmMain::mnuFile, 0, Text::MenuFile, ""},
    {&frmMain::mnuNewProfile, 1, Text::MenuNew, "Ctrl+N"},
    {&frmMain::mnuOpen, 1, Text::MenuOpen, "Ctrl+O"},
    {&frmMain::mnuRecent, 1, Text::MenuRecent, ""},
    {&frmMain::mnuClearRecent, 2, Text::MenuClearRecent, ""},
    {&frmMain::mnuExamples, 1, Text::MenuExamples, ""},
    {&frmMain::mnuClose, 1, Text::MenuClose, "Ctrl+W"},
    {&frmMain::mnuFileBar1, 1, kRule, ""},
    {&frmMain::mnuLoadTemplate, 1, Text::MenuLoadTemplate, ""},
    {&frmMain::mnuSaveTemplate, 1, Text::MenuSaveTemplate, "Ctrl+Y"},
    {&frmMain::mnuFileBar2, 1, kRule, ""},
    {&frmMain::mnuSaveProfile, 1, Text::MenuSave, "Ctrl+S"},
    {&frmMain::mnuSaveProfileAs, 1, Text::MenuSaveAs, "Ctrl+L"},
    {&frmMain::mnuFuleBar3, 1, kRule, ""},
    {&frmMain::mnuImport, 1, Text::MenuImport, ""},
    {&frmMain::mnuExport, 1, Text::MenuExport, ""},
    {&frmMain::mnuFileBar5, 1, kRule, ""},
    {&frmMain::mnuTemplate, 1, Text::MenuTemplate, "Ctrl+T"},
    {&frmMain::mnuReopen, 1, Text::MenuReopen, ""},
    {&frmMain::mnuFileBar4, 1, kRule, ""},
    {&frmMain::mnuExit, 1, Text::MenuExit, "Ctrl+Q"},
    {&frmMain::mnuEdit, 0, Text::MenuEdit, ""},
    {&frmMain::mnuUndo, 1, Text::MenuUndo, "Ctrl+Z"},
    {&frmMain::mnuRedo, 1, Text::MenuRedo, "Ctrl+Shift+Z"},
    {&frmMain::mnuEditBar1, 1, kRule, ""},
    {&frmMain::mnuAddWaypoint, 1, Text::MenuAddWaypoint, "Ins"},
    {&frmMain::mnuEditBar2, 1, kRule, ""},
    {&frmMain::mnucleardecopoints, 1, Text::MenuClearAscent, ""},
    {&frmMain::mnuclearlastwaypoint, 1, Text::MenuClearLastWaypoint, ""},
    {&frmMain::mnuclearallwaypoints, 1, Text::MenuClearWaypoints, ""},
    {&frmMain::mnuView, 0, Text::MenuView, ""},
    {&frmMain::mnuPlanPane, 1, Text::MenuPlanPane, "F11"},
    {&frmMain::mnuCheckPane, 1, Text::MenuCheckPane, "Shift+F11"},
    {&frmMain::mnuMarginsPane, 1, Text::MenuMarginsPane, "Ctrl+F11"},
    {&frmMain::mnuGoToPlan, 1, Text::MenuGoToPlan, "F12"},
    {&frmMain::mnuDefaultLayout, 1, Text::MenuDefaultLayout, ""},
    {&frmMain::mnuViewCeiling, 1, Text::MenuViewCeiling, ""},
    {&frmMain::mnuViewStopMinutes, 1, Text::MenuViewStopMinutes, ""},
    {&frmMain::mnuViewDepths, 1, Text::MenuViewDepths, ""},
    {&frmMain::mnuViewTissues, 1, Text::MenuViewTissues, "F7"},
    {&frmMain::mnuViewLight, 1, Text::MenuViewLight, ""},
    {&frmMain::mnuViewBar1, 1, kRule, ""},
    {&frmMain::mnuViewLanguage, 1, Text::Language, ""},
    {&frmMain::mnuDefault, 0, Text::MenuDive, ""},
    {&frmMain::mnuAlgorithm, 1, Text::MenuAlgorithm, ""},
    {&frmMain::mnuBulhmannB, 2, Text::MenuZHL16B, ""},
    {&frmMain::mnuBulhmannC, 2, Text::MenuZHL16C, ""},
    {&frmMain::mnualgsep, 2, kRule, ""},
    {&frmMain::mnuVPM, 2, Text::MenuVPM, ""},
    {&frmMain::mnuHybrid, 2, Text::MenuHybrid, ""},
    {&frmMain::mnusep, 1, kRule, ""},
    {&frmMain::mnuConservatism, 1, Text::MenuConservatism, "Ctrl+R"},
    {&frmMain::mnuCylinders, 1, Text::MenuCylinders, "Ctrl+U"},
    {&frmMain::mnuDiveSettings, 1, Text::MenuTemplate, "Ctrl+,"},
    {&frmMain::mnuOC, 1, Text::OpenCircuit, "F4"},
    {&frmMain::mnuStartAscent, 1, Text::ComputeAscent, "F8"},
    {&frmMain::mnuspe10, 1, kRule, ""},
    {&frmMain::mnuSurface, 1, Text::MenuInterval, "Ctrl+G"},
    {&frmMain::mnuRepetitive, 1, Text::MenuRepetitive, ""},
    {&frmMain::mnuWhatIf, 1, Text::MenuWhatIf, "Ctrl+Shift+W"},
    {&frmMain::mnuMargins, 1, Text::MenuMargins, "Ctrl+Shift+M"},
    {&frmMain::mnuKeepPlan, 1, Text::MenuKeepPlan, "Ctrl+K"},
    {&frmMain::mnuCompare, 1, Text::MenuCompare, "Ctrl+Shift+K"},
    {&frmMain::mnuClearKept, 1, Text::MenuClearKept, ""},
    {&frmMain::mnuClearLine, 1, Text::MenuClearLine, "Ctrl+Shift+L"},
    {&frmMain::mnulangsep, 1, kRule, ""},
    {&frmMain::mnuLanguages, 1, Text::Language, ""},
    {&frmMain::mnuReport, 0, Text::MenuReport, ""},
    {&frmMain::mnuDiveInformation, 1, Text::DiveInformation, "Ctrl+F"},
    {&frmMain::mnuGeneralReport, 1, Text::MenuGeneralReport, "Ctrl+I"},
    {&frmMain::mnuPlanSheet, 1, Text::MenuPlanSheet, ""},
    {&frmMain::mnuSlate, 1, Text::MenuSlate, "Ctrl+Shift+I"},
    {&frmMain::mnuBailoutReport, 1, Text::MenuBailout, "Ctrl+B"},
    {&frmMain::mnuGenerateTables, 1, Text::MenuDecoTables, "Ctrl+E"},
    {&frmMain::mnuReportBar1, 1, kRule, ""},
    {&frmMain::mnuPrint, 1, Text::MenuPrint, "Ctrl+P"},
    {&frmMain::mnuTools, 0, Text::MenuTools, ""},
    {&frmMain::mnuMixer, 1, Text::MixerTitle, "Ctrl+M"},
    {&frmMain::mnuWindow, 0, Text::MenuWindow, ""},
    {&frmMain::mnuWindowCascade, 1, Text::MenuCascade, ""},
    {&frmMain::mnuWindowTileHorizontal, 1, Text::MenuTileHorizontally, "F6"},
    {&frmMain::mnuWindowTileVertical, 1, Text::MenuTileVertically, "Shift+F6"},
    {&frmMain::mnuWindowArrangeIcons, 1, Text::MenuArrangeIcons, ""},
    {&frmMain::mnuWindowBar1, 1, kRule, ""},
    {&frmMain::mnuFitPlan, 1, Text::MenuFitPlan, "F9"},
    {&frmMain::mnuWindowBar2, 1, kRule, ""},
    {&frmMain::mnuHelp, 0, Text::MenuHelp, ""},
    {&frmMain::mnuHelpContents, 1, Text::MenuContents, "F1"},
    {&frmMain::mnuHelpSearch, 1, Text::MenuSearch, ""},
    {&frmMain::mnuCommandSearch, 1, Text::MenuCommandSearch, "Ctrl+Shift+P"},
    {&frmMain::mmmabout1, 1, kRule, ""},
    {&frmMain::mnuSystemInformation, 1, Text::MenuSystem, ""},
    {&frmMain::mnuContributors, 1, Text::MenuContributors, ""},
    {&frmMain::mnuHelpAbout, 1, Text::MenuAbout, ""},
};

// Items that hang in no menu: the pop-up of the graph, and the second key of the conservatism dialog.
constexpr MenuRow kHidden[] = {
    {&frmMain::mnuPopupAddWaypoint, 0, Text::MenuAddWaypoint, ""},
    {&frmMain::popup0, 0, kRule, ""},
    {&frmMain::popup1, 0, kRule, ""},
    {&frmMain::popup2, 0, kRule, ""},
    {&frmMain::mnuResetZoom, 0, Text::MenuResetZoom, ""},
    {&frmMain::mnuExportPng, 0, Text::ExportPng, ""},
    {&frmMain::mnuExportSvg, 0, Text::ExportSvg, ""},
    {&frmMain::ShowConservatism, 0, Text::ConservatismByKey, "Shift+F1"},
};

struct ToolRow {
  ToolButton frmMain::*button;  // nullptr for a separator
  const char* image;
  int toolTip;  // a text
};

constexpr ToolRow kToolBar[] = {
    {&frmMain::toolNew, "new", Text::ToolNew},
    {&frmMain::toolOpen, "open", Text::ToolOpen},
    {&frmMain::toolSave, "save", Text::ToolSave},
    {nullptr, "", 0},
    {&frmMain::toolConservatism, "conservatism", Text::ToolConservatism},
    {&frmMain::toolAscent, "ascent", Text::ComputeAscent},
    {&frmMain::toolAscentInfo, "ascentinfo", Text::DiveInformation},
    {nullptr, "", 0},
    {&frmMain::toolOpenCircuit, "opencircuit", Text::OpenCircuit},
    {nullptr, "", 0},
    {&frmMain::toolTemplate, "template", Text::ToolTemplate},
    {nullptr, "", 0},
    {&frmMain::toolReport, "report", Text::ToolReport},
    {&frmMain::toolBailout, "bailout", Text::ToolBailout},
    {&frmMain::toolTableExpert, "tableexpert", Text::ToolDecoTables},
    {&frmMain::toolMultilevel, "multilevel", Text::ToolInterval},
    {nullptr, "", 0},
    {&frmMain::toolMixer, "mixer", Text::ToolMixer},
    {nullptr, "", 0},
    {&frmMain::toolFitPlan, "fit", Text::ToolFitPlan},
};

}  // namespace

void frmMain::BuildMenu() {
  for (const MenuRow& row : kMenu) menu_.push_back({&(this->*row.item), row.level});
  for (const auto& rows : {std::span<const MenuRow>(kMenu), std::span<const MenuRow>(kHidden)}) {
    for (const MenuRow& row : rows) (this->*row.item).Shortcut = row.shortcut;
  }

  mnuBulhmannB.Checked = true;
  mnualgsep.Visible = services_.switches.SwitchVPM || services_.switches.SwitchHybrid;
  mnuVPM.Visible = mnuVPM.Enabled = services_.switches.SwitchVPM;
  mnuHybrid.Visible = mnuHybrid.Enabled = services_.switches.SwitchHybrid;
}

void frmMain::BuildToolBar() {
  for (const ToolRow& row : kToolBar) {
    ToolButton* button = row.button == nullptr ? nullptr : &(this->*row.button);
    toolBar_.push_back(button);
    if (button == nullptr) continue;
    button->Image = row.image;
  }
}

void frmMain::SetTexts() {
  for (const auto& rows : {std::span<const MenuRow>(kMenu), std::span<const MenuRow>(kHidden)}) {
    for (const MenuRow& row : rows) {
      (this->*row.item).Caption = row.caption == kRule ? "-" : std::to_string(row.caption);
    }
  }
  for (const ToolRow& row : kToolBar) {
    if (row.button != nullptr) (this->*row.button).ToolTipText = std::to_string(row.toolTip);
  }
  LocalizeForm(*this, services_.texts);
  // Their texts name windows and buttons, too.
  for (MenuItem* opens : {&mnuSurface, &mnuDiveInformation, &mnuMixer, &mnuLanguages, &mnuViewLanguage}) {
    if (!opens->Caption.Get().ends_with("...")) opens->Caption = opens->Caption.Get() + "...";
  }
  Caption = "TAV";
  toolSearch.Caption = services_.texts.Filled(Text::SearchHint, {mnuCommandSearch.Shortcut});
  examples_.SetTexts();
  SetBreathingMode(OpenCircuitMode, false);
  GiveLetters(menu_);
  GiveLetters(GraphMenu());
}

std::vector<MenuEntry> frmMain::GraphMenu() {
  std::vector<MenuEntry> menu;
  for (MenuItem* item : {&mnuPopupAddWaypoint, &popup0, &mnucleardecopoints, &popup1, &mnuclearlastwaypoint,
                         &mnuclearallwaypoints, &popup2, &mnuResetZoom, &mnuFitPlan, &mnuExportPng, &mnuExportSvg}) {
    menu.push_back({item, 0});
  }
  return menu;
}

std::vector<MenuEntry> frmMain::Menu() {
  std::vector<MenuEntry> menu;
  const auto add = [&menu](const MenuItems& items, int level) {
    for (const auto& item : items) menu.push_back({item.get(), level});
  };
  for (const MenuEntry& entry : menu_) {
    if (entry.item == &mnuClearRecent) add(recent_.Items(), 2);
    menu.push_back(entry);
    if (entry.item == &mnuExamples) add(examples_.Items(), 2);
    if (entry.item == &mnuWindowBar2) add(plans_.Items(), 1);
  }
  return menu;
}

}  // namespace tav
