#include <algorithm>
#include <filesystem>

#include "cli/command_frame.h"
#include "cli/option_values.h"
#include "figures/dive_figures.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/text_file.h"
#include "picture/plan_picture.h"
#include "picture/svg_surface.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Writes the graph of a plan as an SVG picture, as the desktop program exports it: rows, gases, ceiling, stops and "
    "the "
    "loads of the compartments, with the plan in words for those who do not see it. A plan that has no ascent, or does "
    "not decompress, says so in the picture.\n"
    "Sizes are in pixels of 1/96 inch or in millimetres, such as 1000px or 180mm, from 400 to 10,000 pixels; the "
    "letters "
    "keep their size of 9 points. Without them the picture is 1000 pixels wide and 700 high, with the tissues as high "
    "as "
    "wide; one alone keeps these proportions.";

constexpr const char* kExamples = R"(
  tavplan graph dives/wreck.tav -o wreck.svg
  tavplan graph dives/lake-series.tav --dive 2 --tissues -o second.svg
  tavplan graph dives/wreck.tav --width 180mm -o handout.svg
)";

struct Given {
  std::string file;
  std::string svg;
  std::string dive;
  std::string width;
  std::string height;
  bool tissues = false;
};

constexpr double kPixel = 15;  // drawing units
constexpr double kMillimetre = 1440 / 25.4;
constexpr double kLeast = 400 * kPixel;
constexpr double kMost = 10000 * kPixel;

struct Length {
  double units = 0;  ///< drawing units; 0 for none
  bool millimetres = false;
};

/// "1000px", "1000" or "180mm"; none for an empty text.
Length LengthOf(const std::string& text, const char* option) {
  if (text.empty()) return {};
  const bool millimetres = text.ends_with("mm");
  const std::size_t unit = millimetres || text.ends_with("px") ? 2 : 0;
  const auto number = ParseStrict(text.substr(0, text.size() - unit));
  if (!number) throw OptionError({Text::OptionNoSize, {option, text}});
  const double units = *number * (millimetres ? kMillimetre : kPixel);
  if (units < kLeast || units > kMost) throw OptionError({Text::OptionOutside, {option, text, "400px", "10000px"}});
  return {units, millimetres};
}

/// Of 1000 pixels by 700, or as high as wide with the tissues, in so far as nothing else is told.
SvgSurface SurfaceOf(Length width, Length height, bool tissues) {
  const double share = tissues ? 1 : 0.7;
  const double usual = height.units > 0 ? height.units / share : 1000 * kPixel;
  const double wide = width.units > 0 ? width.units : std::clamp(usual, kLeast, kMost);
  return {wide, height.units > 0 ? height.units : std::clamp(wide * share, kLeast, kMost)};
}

void Run(const Given& given, CommandFrame& frame) {
  const TextSource& texts = frame.Texts();
  const Length width = LengthOf(given.width, "--width");
  const Length height = LengthOf(given.height, "--height");
  const OpenedPlan& plan = frame.OpenPlan(given.file);
  const std::size_t number = CommandFrame::OneDive(given.dive, plan);
  frame.CheckComputed(plan, number);
  const PlannedDive dive = plan.Planned(number);
  const auto moments = dive.Moments();
  const auto notice = NoticeOf(dive.plan.rows, dive.plan.end.Decompresses);
  GraphExtras extras;
  extras.tissues = given.tissues;
  extras.paper = true;
  const PlanPicture picture(
      {dive.plan.rows, dive.record.Template, moments, texts, {".", ""}, notice ? texts.GetResString(*notice) : ""},
      extras);
  SvgSurface surface = SurfaceOf(width, height, given.tissues);
  picture.Draw(surface);
  std::string title = std::filesystem::path(given.file).stem().string();
  if (plan.Dives() > 1) {
    title = texts.Filled(Text::HeadDiveOf, {title, std::to_string(number + 1), std::to_string(plan.Dives())});
  }
  const auto unit = width.millimetres || height.millimetres ? SvgSurface::Unit::Millimetre : SvgSurface::Unit::Pixel;
  frame.Save(given.svg, [&] { return WriteTextFile(given.svg, surface.File(title, picture.Description(), unit)); });
}

}  // namespace

Command GraphCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"graph", "Write the graph of a plan as an SVG picture", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      {.name = "--svg",
       .value = "FILE",
       .text = "The picture to write",
       .place = &given->svg,
       .required = true,
       .role = Option::Role::FileToWrite,
       .offers = "svg",
       .shortName = "-o"},
      DiveOption(given->dive, "the last"),
      {"--tissues", "", "Add the map of the loads of the 16 compartments over time", &given->tissues},
      {"--width", "SIZE", "Width of the picture, such as 1000px or 180mm", &given->width},
      {"--height", "SIZE", "Its height", &given->height},
  };
  command.AddModel();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
