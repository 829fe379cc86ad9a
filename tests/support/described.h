#pragma once

#include <string>
#include <vector>

#include "controls/cell_map.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/text_form.h"

namespace tav::test {

inline std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : " | ") + text;
  return joined;
}

inline std::string Rows(const std::vector<std::vector<GridCell>>& cells) {
  std::string lines;
  for (const auto& row : cells) {
    lines += "   ";
    std::string tip;  // often that of the whole row
    for (const GridCell& cell : row) {
      lines += " [" + cell.text;
      if (cell.colour != -1) lines += " #" + std::to_string(cell.colour);
      if (cell.fill != -1) lines += " fill " + std::to_string(cell.fill);
      if (cell.bold) lines += " bold";
      if (cell.italic) lines += " italic";
      if (cell.tick) lines += *cell.tick ? " on" : " off";
      for (const std::string& more : {cell.spoken, cell.fault, cell.tip == tip ? "" : cell.tip}) {
        lines += more.empty() ? "" : " (" + more + ")";
      }
      tip = cell.tip;
      lines += "]";
    }
    lines += "\n";
  }
  return lines;
}

inline std::string Columns(const std::string& name, const std::vector<int>& columns) {
  std::string text = name;
  for (const int column : columns) text += " " + std::to_string(column);
  return columns.empty() ? "" : text;
}

template <class C, class Describe>
void IfIs(const Control& control, Describe describe) {
  if (const auto* one = dynamic_cast<const C*>(&control)) describe(*one);
}

inline std::string Described(const CellMap& control) {
  const CellMap::Content& map = control.Map;
  std::string lines = ": " + Joined(map.columnHeads) + " by " + Joined(map.rowHeads) + ", " + map.overColumns +
                      ", marked " + std::to_string(map.marked) + ", selected " + std::to_string(control.Selected) +
                      "\n   ";
  for (const CellMap::Cell& cell : map.cells) {
    lines += std::string(1, cell.letter) + (cell.edgeAtLeft ? "|" : "") + (cell.edgeAbove ? "-" : "");
  }
  return lines;
}

/// What a user can see of a control, or reach by a key.
inline std::string Described(const Control& control) {
  std::string line = "  " + control.Name() + " \"" + control.Caption.Get() + "\"";
  const auto add = [&](bool is, const std::string& what) { line += is ? ", " + what : ""; };
  add(!control.ToolTipText.Get().empty(), "tip \"" + control.ToolTipText.Get() + "\"");
  add(!control.SpokenName.Get().empty(), "spoken \"" + control.SpokenName.Get() + "\"");
  add(!control.Enabled, "disabled");
  add(!control.Visible, "hidden");
  add(control.Bold, "bold");
  add(control.ForeColor != -1, "#" + std::to_string(control.ForeColor));
  IfIs<Button>(control, [&](const Button& c) { add(c.Default, "Return"), add(c.Cancel, "Escape"); });
  IfIs<CheckBox>(control, [&](const CheckBox& c) { add(c.Value, "on"); });
  IfIs<OptionButton>(control, [&](const OptionButton& c) { add(c.Value, "on"); });
  IfIs<TextBox>(control, [&](const TextBox& c) { line += ": " + c.Text.Get(), add(c.Locked, "locked"); });
  IfIs<TextView>(control, [&](const TextView& c) { line += ": " + c.Text.Get(); });
  IfIs<ComboBox>(control, [&](const ComboBox& c) {
    line += ": " + c.Text() + " of " + Joined(c.Items);
    add(c.TakesText, "or typed");
  });
  IfIs<SpinButton>(control, [&](const SpinButton& c) { line += " steps " + c.Buddy; });
  IfIs<ProgressBar>(control, [&](const ProgressBar& c) {
    line += ": " + std::to_string(c.Value) + " of " + std::to_string(c.Maximum);
  });
  IfIs<ListView>(control,
                 [&](const ListView& c) { line += ": " + std::to_string(c.SelectedItem) + " of " + Joined(c.Items); });
  IfIs<TabStrip>(control,
                 [&](const TabStrip& c) { line += ": " + std::to_string(c.SelectedItem) + " of " + Joined(c.Tabs); });
  IfIs<Picture>(control, [&](const Picture& c) { line += ": " + c.Image.Get(); });
  IfIs<MenuItem>(control, [&](const MenuItem& c) { add(!c.Shortcut.empty(), c.Shortcut), add(c.Checked, "on"); });
  IfIs<ToolButton>(control, [&](const ToolButton& c) { line += " " + c.Image.Get(), add(c.Checked, "on"); });
  IfIs<CheckList>(control, [&](const CheckList& c) {
    for (const CheckList::Item& item : c.Items.Get()) line += " | " + item.text + (item.on ? " on" : " off");
  });
  IfIs<CellMap>(control, [&](const CellMap& c) { line += Described(c); });
  IfIs<Grid>(control, [&](const Grid& c) { line += Columns(", right", c.RightColumns) + "\n" + Rows(c.Cells); });
  IfIs<ResultGrid>(control, [&](const ResultGrid& c) {
    add(!c.HasHeader, "no head");
    line += Columns(", left", c.TextColumns) + Columns(", widths", c.ColumnWidths) + "\n" + Rows(c.Cells);
  });
  return line + "\n";
}

inline std::string Described(const Form& form) {
  std::string lines = form.Name() + " \"" + form.Caption.Get() + "\"\n";
  for (const Control* control : form.Controls()) lines += Described(*control);
  return lines;
}

}  // namespace tav::test
