#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "dialogs/dialog_form.h"
#include "dialogs/properties_altitude.h"
#include "dialogs/properties_gases.h"
#include "dialogs/properties_limits.h"
#include "dialogs/properties_rates.h"
#include "dialogs/properties_rebreather.h"
#include "dialogs/properties_stops.h"
#include "dialogs/properties_units.h"

namespace tav {

/// All settings of a template, in eight pages of which one is seen. The fields stand as text in the units shown; the
/// record is touched by OK alone, but for a gas that is added and for "already adapted", which count at once.
class frmProperties : public DialogForm {
 public:
  explicit frmProperties(const DialogServices& services);

  MenuItem AddRow{*this, "AddRow"};
  MenuItem DelRow{*this, "DelRow"};

 private:
  TemplateSheet sheet_{*this, services_, AddRow, DelRow};

 public:
  Label lbNewPlans{*this, "lbNewPlans"};  ///< the settings are those of new plans
  Label Label23{*this, "Label23"};
  ListView ListView1{*this, "ListView1"};
  RatesPage rates{sheet_};
  GasesPage gases{sheet_};
  AltitudePage altitude{sheet_};
  StopsPage stops{sheet_, gases, altitude};
  RebreatherPage rebreather{sheet_};
  LimitsPage limits{sheet_};
  WarningsPage warnings{sheet_};
  UnitsPage units{sheet_};
  Button cbDefault{*this, "cbDefault"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  /// The user left by OK: false; by anything else: true.
  [[nodiscard]] bool Cancelled() const { return cancelled_; }

  void SetDocument(std::int16_t index);
  void Option1_Click(int index);
  void cbDefault_Click();
  void cbOK_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void ShowPage();
  void ShowUnits();
  void OfferToKeep();
  /// From the last page to the first: the stops look at the gases and the altitude.
  template <class Act>
  void ForEachPage(Act act) {
    std::for_each(pages_.rbegin(), pages_.rend(), [&](TemplatePage* page) { act(*page); });
  }

  /// As the list has them.
  const std::array<TemplatePage*, 8> pages_{&rates, &stops, &units, &gases, &altitude, &rebreather, &limits, &warnings};
  bool cancelled_ = true;
};

}  // namespace tav
