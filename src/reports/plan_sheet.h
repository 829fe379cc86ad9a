#pragma once

#include <vector>

#include "compute/series_dive.h"
#include "pages/paper.h"
#include "pages/print_preview.h"

namespace tav {

/// How a plan sheet is wished.
struct PlanSheetWish {
  Paper paper = Paper::A4;
  bool margins = false;  ///< the map of margins stands behind it
};

/// A whole report: for each dive the sheet that it is briefed from and filed by, on upright pages that can be read
/// without colours. It tells what the diver says of the plan, the settings in words, the profile as a picture, the
/// schedule, what the check finds, gas with cylinders, minimum gas and turn pressures, what becomes of the dive when it
/// is longer or deeper or loses a gas, on a rebreather the bail-out that asks for most gas, and has a line to sign.
void PrintPlanSheets(PrintPreview& out, const std::vector<SeriesDive>& dives, const PlanSheetWish& wish);

}  // namespace tav
