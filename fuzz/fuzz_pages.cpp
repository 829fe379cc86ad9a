#include <cmath>

#include "fuzz_support.h"
#include "platform/headless/recording_surface.h"
#include "report/page_player.h"

using namespace tav;

// Any text draws something within bounds, or nothing: a page file lies where others may write.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RecordingSurface surface(16839.9, 11907);
  PlayPage(fuzz::Text(data, size), surface, 0.65);
  constexpr double kFar = 1e9;
  for (const RecordingSurface::Stroke& stroke : surface.strokes) {
    for (const double value : {stroke.x0, stroke.y0, stroke.x1, stroke.y1, stroke.font.points}) {
      fuzz::Require(std::isfinite(value) && std::fabs(value) < kFar, "what is drawn has a place");
    }
    fuzz::Require(stroke.colour >= 0 && stroke.colour <= RGB(255, 255, 255), "a colour is one");
  }
  return 0;
}
