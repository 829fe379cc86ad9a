#include "app/margins_pane.h"

#include <utility>

#include "model/text_id.h"

namespace tav {

frmMarginsPane::frmMarginsPane(const DialogServices& services, MarginActs acts)
    : PaneForm("frmMarginsPane", services), acts_(std::move(acts)) {
  fgLegend.HasHeader = false;
  fgLegend.TextColumns = {0, 1};
  cmMap.Click = [this] { ShowCell(); };
  cmMap.Chosen = [this] { ShowLook(); };
  cmMap.Return = [this] {
    if (!work_.CanCompare(cmMap.Selected)) return;
    if (const auto plan = work_.PlanOf(cmMap.Selected)) acts_.compare(*plan);
  };
  cmMap.More = [this] {
    work_.GoOn();
    ShowMap();
  };
}

void frmMarginsPane::Form_Load() {
  ShowHead();
  lbStay.Caption = T(Text::LongestTitle);
  lbStay.Bold = true;
  cmMap.SpokenName = T(Text::MarginsTitle);
  fgLegend.SpokenName = T(Text::MarginsLimits);
}

void frmMarginsPane::ShowDocument(std::optional<std::int16_t> document) {
  const int opening = document ? services_.forms(*document).Opening() : 0;
  if (document != document_ || opening != opening_) cmMap.Selected = -1;
  document_ = document;
  opening_ = opening;
  const int rows = work_.Grid().Rows();
  work_.Begin(document);
  if (work_.Grid().Rows() != rows) cmMap.Selected = -1;  // other units
  ShowHead();
  cmMap.Enabled = work_.IsThere();
  ShowMap();
  ShowLook();
}

void frmMarginsPane::Hidden() {
  work_.Begin({});
  cmMap.Selected = -1;
  ShowMap();
  ShowLook();
}

void frmMarginsPane::ShowHead() {
  const AdviceWords words = work_.Words();
  Caption =
      T(Text::MarginsTitle) + (work_.IsThere() ? ": " + words.Depth(work_.Of().LegDepth()) + ", " +
                                                     words.Short(work_.Of().LegTime()) + " " + T(Text::WhatIfMinutes)
                                               : "");
}

void frmMarginsPane::ShowMap() {
  cmMap.WantsMore = !work_.IsDone();
  cmMap.Map = work_.Map();
  fgLegend.Cells = work_.Legend();
  lbStay.Visible = lbLongest.Visible = fgLegend.Visible = work_.IsThere();
  lbLongest.Caption = work_.StayText();
  lbState.Caption = work_.State();
  ShowCell();
}

void frmMarginsPane::ShowCell() {
  const int cell = cmMap.Pointed >= 0 ? cmMap.Pointed : cmMap.Selected;
  cmMap.ToolTipText = lbCell.Caption = work_.CellText(cell);
}

void frmMarginsPane::ShowLook() {
  const bool other = cmMap.Selected >= 0 && cmMap.Selected != cmMap.Map.Get().marked;
  if (other || std::exchange(looks_, false)) acts_.look(other ? work_.PlanOf(cmMap.Selected) : std::nullopt);
  looks_ = other;
}

}  // namespace tav
