#include "pages/page_player.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "model/number_text.h"
#include "model/single.h"
#include "pages/page_units.h"
#include "persist/line_reader.h"

namespace tav {
namespace {

constexpr double kFarOff = 1e6;  ///< page units; nothing of a page lies beyond
constexpr double kLargestFont = 1000;
constexpr double kRotation = 45;

double Bounded(double value, double low, double high) { return std::isnan(value) ? 0.0 : std::clamp(value, low, high); }

/// A number in either notation: "737.1" or "737,1".
Single ValComma(std::string_view text) { return Bounded(ParseLenient(ReplaceAll(text, ",", ".")), -kFarOff, kFarOff); }

Colour ColourIn(std::string_view text) {
  return static_cast<Colour>(std::nearbyint(Bounded(ParseLenient(ReplaceAll(text, ",", ".")), 0, RGB(255, 255, 255))));
}

/// One pass over the lines of a page.
class Pass {
 public:
  Pass(std::string_view lines, DrawingSurface& target, double zoom) : lines_(lines), target_(target), zoom_(zoom) {}

  void Play() {
    while (const auto line = lines_.Next()) Command(*line);
  }

 private:
  /// The next argument; empty at the end of the page.
  std::string_view Argument() { return lines_.Next().value_or(std::string_view()); }

  void Command(std::string_view keyword) {
    if (keyword == "#fn") {
      font_.name = Argument();
    } else if (keyword == "#fs") {
      font_.points = Bounded(std::nearbyint(ParseLenient(Argument())), 0, kLargestFont) * zoom_;
    } else if (keyword == "#fb") {
      font_.bold = Argument() != "0";
    } else if (keyword == "#x") {
      x_ = ValComma(Argument());
    } else if (keyword == "#y") {
      y_ = ValComma(Argument());
    } else if (keyword == "#txt_l" || keyword == "#txt_c") {
      Print(std::string(Argument()), 0);
    } else if (keyword == "#txt_r") {
      const std::string text(Argument());
      x_ -= target_.PageTextWidth(text, font_);
      Print(text, 0);
    } else if (keyword == "#txt_VERT") {
      Print(std::string(Argument()), kRotation);
    } else if (keyword == "#ForeColor") {
      ink_ = ColourIn(Argument());
    } else if (keyword == "#fill" || keyword == "#color") {
      Argument();  // no box is filled by them
    } else if (keyword == PageFile::kPaper) {
      Argument();  // what draws knows it
      Argument();
    } else if (keyword == "#line") {
      Line();
    } else if (keyword == "#img") {
      Image();
    }
  }

  void Print(const std::string& text, double angle) { target_.PageText(x_, y_, text, font_, ink_, angle); }

  void Line() {
    const Single x1 = ValComma(Argument());
    const Single y1 = ValComma(Argument());
    const Single x2 = ValComma(Argument());
    const Single y2 = ValComma(Argument());
    const std::string_view colour = Argument();
    const std::string_view style = Argument();
    if (!colour.empty()) {
      target_.FilledBox(x1, y1, x2, y2, ColourIn(colour));
    } else if (!style.empty()) {
      target_.Box(x1, y1, x2, y2, ink_);
    } else {
      target_.Line(x1, y1, x2, y2, ink_);
    }
  }

  void Image() {
    const std::filesystem::path file(Argument());
    const Single x = ValComma(Argument());
    const Single y = ValComma(Argument());
    const Single width = ValComma(Argument());
    const Single height = ValComma(Argument());
    // A picture that is missing leaves its place to the one before.
    if (target_.Picture(file, x, y, width, height)) {
      picture_ = file;
    } else if (!picture_.empty()) {
      target_.Picture(picture_, x, y, width, height);
    }
  }

  LineReader lines_;
  DrawingSurface& target_;
  double zoom_;
  TextFont font_;
  Single x_;
  Single y_;
  Colour ink_ = kBlack;
  std::filesystem::path picture_;
};

}  // namespace

void PlayPage(std::string_view lines, DrawingSurface& target, double ZoomScale) {
  Pass(lines, target, ZoomScale).Play();
}

void PagePlayer::tempshow(int page, DrawingSurface& target, double ZoomScale) const {
  target.Clear(RGB(255, 255, 255));
  PlayPage(file_.Page(page), target, ZoomScale);
}

PageSize PagePlayer::SizeOf(int page) const {
  const std::string text = file_.Page(page);
  LineReader lines(text);
  if (lines.Next() != PageFile::kPaper) return {};
  const double width = Bounded(ParseLenient(lines.Next().value_or("")), 0, kFarOff);
  const double height = Bounded(ParseLenient(lines.Next().value_or("")), 0, kFarOff);
  constexpr double kLeast = 5 * page::kUnitsPerCm;
  constexpr double kMost = 120 * page::kUnitsPerCm;
  const bool real = std::min(width, height) >= kLeast && std::max(width, height) <= kMost;
  return real ? PageSize{width, height} : PageSize();
}

void PagePlayer::PrintPages(int firstPage, int lastPage, PrintJob& job, const PrintProgress& progress) const {
  const int last = std::min(lastPage, file_.Pages());
  for (int page = std::max(firstPage, 1); page <= last && !progress.CancelPrint(); ++page) {
    progress.SistemaBarra(page);
    PlayPage(file_.Page(page), job.Sheet(), 1.0);
    if (progress.CancelPrint()) break;
    if (page < last) job.NewSheet(SizeOf(page + 1));
  }
  job.EndDoc();
}

}  // namespace tav
