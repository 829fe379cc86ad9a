// What stands in the menus and on the tool bar of the main window, and in which order.

#include "app/main_form.h"

namespace tav {
namespace {

struct MenuRow {
  MenuItem frmMain::*item;
  int level;
  const char* caption;  // a string ID; "-" for a rule
  const char* shortcut;
};

constexpr const char* kRule = "-";

constexpr MenuRow kMenu[] = {
    {&frmMain::mnuFile, 0, "1000", ""},
    {&frmMain::mnuNewProfile, 1, "1001", "Ctrl+N"},
    {&frmMain::mnuOpen, 1, "1002", "Ctrl+O"},
    {&frmMain::mnuRecent, 1, "7000", ""},
    {&frmMain::mnuClearRecent, 2, "7038", ""},
    {&frmMain::mnuClose, 1, "1003", "Ctrl+W"},
    {&frmMain::mnuFileBar1, 1, kRule, ""},
    {&frmMain::mnuLoadTemplate, 1, "1004", ""},
    {&frmMain::mnuSaveTemplate, 1, "1005", "Ctrl+Y"},
    {&frmMain::mnuFileBar2, 1, kRule, ""},
    {&frmMain::mnuSaveProfile, 1, "1006", "Ctrl+S"},
    {&frmMain::mnuSaveProfileAs, 1, "1007", "Ctrl+L"},
    {&frmMain::mnuFuleBar3, 1, kRule, ""},
    {&frmMain::mnuImport, 1, "7800", ""},
    {&frmMain::mnuExport, 1, "7801", ""},
    {&frmMain::mnuFileBar5, 1, kRule, ""},
    {&frmMain::mnuTemplate, 1, "1008", "Ctrl+T"},
    {&frmMain::mnuFileBar4, 1, kRule, ""},
    {&frmMain::mnuExit, 1, "1011", "Ctrl+Q"},
    {&frmMain::mnuEdit, 0, "7003", ""},
    {&frmMain::mnuUndo, 1, "7001", "Ctrl+Z"},
    {&frmMain::mnuRedo, 1, "7002", "Ctrl+Shift+Z"},
    {&frmMain::mnuEditBar1, 1, kRule, ""},
    {&frmMain::mnuAddWaypoint, 1, "7004", "Ins"},
    {&frmMain::mnuEditBar2, 1, kRule, ""},
    {&frmMain::mnucleardecopoints, 1, "1054", ""},
    {&frmMain::mnuclearlastwaypoint, 1, "1055", ""},
    {&frmMain::mnuclearallwaypoints, 1, "1056", ""},
    {&frmMain::mnuView, 0, "7508", ""},
    {&frmMain::mnuPlanPane, 1, "7509", "F11"},
    {&frmMain::mnuCheckPane, 1, "7691", "Shift+F11"},
    {&frmMain::mnuGoToPlan, 1, "7510", "F12"},
    {&frmMain::mnuViewCeiling, 1, "7761", ""},
    {&frmMain::mnuViewStopMinutes, 1, "7762", ""},
    {&frmMain::mnuViewDepths, 1, "7763", ""},
    {&frmMain::mnuViewTissues, 1, "7764", "F7"},
    {&frmMain::mnuDefault, 0, "1020", ""},
    {&frmMain::mnuAlgorithm, 1, "1021", ""},
    {&frmMain::mnuBulhmannB, 2, "1022", ""},
    {&frmMain::mnuBulhmannC, 2, "1023", ""},
    {&frmMain::mnualgsep, 2, kRule, ""},
    {&frmMain::mnuVPM, 2, "1025", ""},
    {&frmMain::mnuHybrid, 2, "1026", ""},
    {&frmMain::mnusep, 1, kRule, ""},
    {&frmMain::mnuConservatism, 1, "1024", "Ctrl+R"},
    {&frmMain::mnuCylinders, 1, "7659", "Ctrl+U"},
    {&frmMain::mnuOC, 1, "1107", "F4"},
    {&frmMain::mnuStartAscent, 1, "1105", "F8"},
    {&frmMain::mnuspe10, 1, kRule, ""},
    {&frmMain::mnuSurface, 1, "3029", "Ctrl+G"},
    {&frmMain::mnuWhatIf, 1, "7700", "Ctrl+Shift+W"},
    {&frmMain::mnulangsep, 1, kRule, ""},
    {&frmMain::mnuLanguages, 1, "1038", ""},
    {&frmMain::mnuReport, 0, "1030", ""},
    {&frmMain::mnuDiveInformation, 1, "1106", "Ctrl+F"},
    {&frmMain::mnuGeneralReport, 1, "1031", "Ctrl+I"},
    {&frmMain::mnuSlate, 1, "7732", "Ctrl+Shift+I"},
    {&frmMain::mnuBailoutReport, 1, "1032", "Ctrl+B"},
    {&frmMain::mnuGenerateTables, 1, "1033", "Ctrl+E"},
    {&frmMain::mnuTools, 0, "1035", ""},
    {&frmMain::mnuMixer, 1, "6318", "Ctrl+M"},
    {&frmMain::mnuWindow, 0, "1040", ""},
    {&frmMain::mnuWindowCascade, 1, "1041", ""},
    {&frmMain::mnuWindowTileHorizontal, 1, "1042", "F6"},
    {&frmMain::mnuWindowTileVertical, 1, "1043", "Shift+F6"},
    {&frmMain::mnuWindowArrangeIcons, 1, "1044", ""},
    {&frmMain::mnuWindowBar1, 1, kRule, ""},
    {&frmMain::mnuFitPlan, 1, "7102", "F9"},
    {&frmMain::mnuWindowBar2, 1, kRule, ""},
    {&frmMain::mnuHelp, 0, "1050", ""},
    {&frmMain::mnuHelpContents, 1, "1051", "F1"},
    {&frmMain::mnuHelpSearch, 1, "1052", ""},
    {&frmMain::mmmabout1, 1, kRule, ""},
    {&frmMain::mnuSystemInformation, 1, "7012", ""},
    {&frmMain::mnuContributors, 1, "7013", ""},
    {&frmMain::mnuHelpAbout, 1, "1053", ""},
};

// Items that hang in no menu: the pop-up of the graph, and the second key of the conservatism dialog.
constexpr MenuRow kHidden[] = {
    {&frmMain::mnuPopupAddWaypoint, 0, "7004", ""},
    {&frmMain::popup0, 0, kRule, ""},
    {&frmMain::popup1, 0, kRule, ""},
    {&frmMain::popup2, 0, kRule, ""},
    {&frmMain::mnuResetZoom, 0, "7025", ""},
    {&frmMain::mnuExportPng, 0, "7005", ""},
    {&frmMain::mnuExportSvg, 0, "7006", ""},
    {&frmMain::ShowConservatism, 0, "1071", "Shift+F1"},
};

struct ToolRow {
  ToolButton frmMain::*button;  // nullptr for a separator
  const char* image;
  const char* toolTip;  // a string ID
};

constexpr ToolRow kToolBar[] = {
    {&frmMain::toolNew, "new", "1100"},
    {&frmMain::toolOpen, "open", "1101"},
    {&frmMain::toolSave, "save", "1102"},
    {nullptr, "", ""},
    {&frmMain::toolConservatism, "conservatism", "1104"},
    {&frmMain::toolAscent, "ascent", "1105"},
    {&frmMain::toolAscentInfo, "ascentinfo", "1106"},
    {nullptr, "", ""},
    {&frmMain::toolOpenCircuit, "opencircuit", "1107"},
    {nullptr, "", ""},
    {&frmMain::toolTemplate, "template", "1111"},
    {nullptr, "", ""},
    {&frmMain::toolReport, "report", "1109"},
    {&frmMain::toolBailout, "bailout", "1110"},
    {&frmMain::toolTableExpert, "tableexpert", "1112"},
    {&frmMain::toolMultilevel, "multilevel", "6333"},
    {nullptr, "", ""},
    {&frmMain::toolMixer, "mixer", "7767"},
    {nullptr, "", ""},
    {&frmMain::toolFitPlan, "fit", "7103"},
};

}  // namespace

void frmMain::BuildMenu() {
  const auto fill = [this](const MenuRow& row) -> MenuItem& {
    MenuItem& item = this->*row.item;
    item.Caption = row.caption;
    item.Shortcut = row.shortcut;
    return item;
  };
  for (const MenuRow& row : kMenu) menu_.push_back({&fill(row), row.level});
  for (const MenuRow& row : kHidden) fill(row);

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
    button->ToolTipText = row.toolTip;
  }
}

std::vector<MenuEntry> frmMain::Menu() {
  std::vector<MenuEntry> menu;
  const auto add = [&menu](const MenuItems& items, int level) {
    for (const auto& item : items) menu.push_back({item.get(), level});
  };
  for (const MenuEntry& entry : menu_) {
    if (entry.item == &mnuClearRecent) add(recent_.Items(), 2);
    menu.push_back(entry);
    if (entry.item == &mnuWindowBar2) add(plans_.Items(), 1);
  }
  return menu;
}

}  // namespace tav
