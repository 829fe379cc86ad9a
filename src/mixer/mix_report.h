#pragma once

#include <optional>

#include "mixer/fill_words.h"
#include "pages/print_preview.h"

namespace tav {

/// What the mixer has worked out, for its sheet.
struct MixReport {
  FillRequest request;
  FillResult result;
  std::optional<CylinderSize> cylinder;
};

/// The fill sheet, one page: both cylinders, what to add by ideal gases, the list to fill by with what comes out of it,
/// and a line for the analysed mix that is filled in by hand. Shows it in the preview.
void PrintMixReport(const MixReport& report, PrintPreview& writer);

}  // namespace tav
