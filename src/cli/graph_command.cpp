#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_session.h"
#include "figures/dive_figures.h"
#include "picture/plan_picture.h"
#include "picture/svg_surface.h"
#include "plans/compute_profile.h"
#include "start/user_texts.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kOutside = 7960;
constexpr int kDiveOf = 7962;
constexpr int kNoLength = 8600;

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
  if (!number) throw OptionError({kNoLength, {option, text}});
  const double units = *number * (millimetres ? kMillimetre : kPixel);
  if (units < kLeast || units > kMost) throw OptionError({kOutside, {option, text, "400px", "10000px"}});
  return {units, millimetres};
}

/// Of 1000 pixels by 700, or as high as wide with the tissues, in so far as nothing else is told.
SvgSurface SurfaceOf(Length width, Length height, bool tissues) {
  const double share = tissues ? 1 : 0.7;
  const double usual = height.units > 0 ? height.units / share : 1000 * kPixel;
  const double wide = width.units > 0 ? width.units : std::clamp(usual, kLeast, kMost);
  return {wide, height.units > 0 ? height.units : std::clamp(wide * share, kLeast, kMost)};
}

}  // namespace

int GraphCommand(const GraphOptions& options, const OutputOptions& model, const ProgramFolders& folders,
                 std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    RefuseOwnInput(options.file, options.svg);
    const Length width = LengthOf(options.width, "--width");
    const Length height = LengthOf(options.height, "--height");
    PlanSession session(texts);
    session.Model() = model.Model();
    const auto documents = OpenProfile(session.Forms(), options.file, ReadPlannable(options.file, texts, err));
    const std::int16_t document = ChosenDive(options.dive, documents);
    const frmWaypointEditor& dive = session.Forms()(document);
    if (!dive.EvaluationFault().empty()) throw FileError(options.file, 0, dive.EvaluationFault());
    const DocumentState& state = session.Documents()(document);
    const auto moments = dive.Planned().Moments();
    const auto notice = NoticeOf(dive.InputProfile, state.Decompresses);
    const PlanPicture picture(
        {dive.InputProfile, state.Template, moments, texts, {".", ""}, notice ? texts.GetResString(*notice) : ""});
    SvgSurface surface = SurfaceOf(width, height, options.tissues);
    GraphExtras extras;
    extras.tissues = options.tissues;
    picture.Draw(surface, extras);
    std::string title = std::filesystem::path(options.file).stem().string();
    if (documents.size() > 1) {
      const auto number = std::find(documents.begin(), documents.end(), document) - documents.begin() + 1;
      title = texts.Filled(kDiveOf, {title, std::to_string(number), std::to_string(documents.size())});
    }
    const auto unit = width.millimetres || height.millimetres ? SvgSurface::Unit::Millimetre : SvgSurface::Unit::Pixel;
    TellNotes(options.svg, WriteTextFile(options.svg, surface.File(title, picture.Description(), unit)), texts, err);
    return state.Decompresses ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    return Refused(error, "graph", texts, err);
  }
}

}  // namespace tav
