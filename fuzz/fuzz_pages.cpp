#include <cmath>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "fuzz_support.h"
#include "headless/recording_surface.h"
#include "pages/page_player.h"

using namespace tav;

namespace {

void RequireWithinBounds(const RecordingSurface& surface) {
  constexpr double kFar = 1e9;
  for (const RecordingSurface::Stroke& stroke : surface.strokes) {
    for (const double value : {stroke.x0, stroke.y0, stroke.x1, stroke.y1, stroke.font.points}) {
      fuzz::Require(std::isfinite(value) && std::fabs(value) < kFar, "what is drawn has a place");
    }
    fuzz::Require(stroke.colour >= 0 && stroke.colour <= RGB(255, 255, 255), "a colour is one");
  }
}

}  // namespace

// Any file draws something within bounds, or nothing: a page file lies where others may write. Its pages do not reach
// into each other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("tav-fuzz-pages-" + std::to_string(::getpid()));
  const std::string text(fuzz::Text(data, size));
  std::ofstream(path, std::ios::binary) << text;
  PageFile file;
  file.Open(path);
  for (int page = 0; page <= std::min(file.Pages() + 1, 20); ++page) {
    fuzz::Require(file.Page(page).find("\n#startpage\n") == std::string::npos, "a page ends where the next begins");
    RecordingSurface surface(16839.9, 11907);
    PagePlayer(file).tempshow(page, surface, 0.65);
    RequireWithinBounds(surface);
  }
  RecordingSurface surface(16839.9, 11907);
  PlayPage(text, surface, 0.65);
  RequireWithinBounds(surface);
  return 0;
}
