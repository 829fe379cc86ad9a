#pragma once

#include <cstdint>
#include <optional>

#include "app/margin_work.h"
#include "controls/cell_map.h"
#include "controls/grid.h"
#include "dialogs/pane_form.h"

namespace tav {

/// The map of margins and the longest stay of the deepest leg beside the graph of the plan in front.
class frmMarginsPane : public PaneForm {
 public:
  frmMarginsPane(const DialogServices& services, MarginActs acts);

  CellMap cmMap{*this, "cmMap"};
  Label lbCell{*this, "lbCell"};    ///< the dive of the cell that is looked at
  Label lbState{*this, "lbState"};  ///< computing; what can't be; what is not judged
  Label lbStay{*this, "lbStay"};
  Label lbLongest{*this, "lbLongest"};
  ResultGrid fgLegend{*this, "fgLegend"};

  void ShowDocument(std::optional<std::int16_t> document) override;
  void Hidden() override;
  void TakeFocus() override { cmMap.SetFocus(); }

 protected:
  void Form_Load() override;

 private:
  /// The title names the leg.
  void ShowHead();
  void ShowMap();
  void ShowCell();
  void ShowLook();

  MarginActs acts_;
  MarginWork work_{services_, MarginWork::Extent::MapAndStay};
  std::optional<std::int16_t> document_;
  int opening_ = 0;
  bool looks_ = false;  ///< a dive of the map is drawn over the plan
};

}  // namespace tav
