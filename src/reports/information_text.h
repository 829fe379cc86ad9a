#pragma once

#include <string>

#include "figures/information.h"
#include "supply/supply_text.h"

namespace tav {

/// What the information window shows, for a text of it.
struct ShownInformation {
  std::string planCaption;      ///< of the window of the plan
  std::string surfaceInterval;  ///< empty on a dive that stands alone
  DiveInformation::Block info;
  DiveInformation::Table profile;
  DiveInformation::Table decoStops;
  DiveInformation::Table gas;
  SupplyTables supply = {};  ///< without rows when no cylinders are told
  std::string notice = {};   ///< what must be read ahead of all figures
};

/// The information of a dive as plain text of 80 columns, with CR LF at the ends of lines.
std::string InformationText(const ShownInformation& shown, const TextSource& texts);

}  // namespace tav
