#include "graph/profile_graph.h"

#include <algorithm>
#include <cmath>

#include "graph/leg_preview.h"
#include "picture/compartment_bars.h"
#include "picture/graph_colours.h"
#include "picture/offset_surface.h"
#include "picture/plot_labels.h"
#include "picture/tissue_map.h"
#include "plans/compute_profile.h"

namespace tav {
namespace {

constexpr int kCompartmentTitle = 1308;
constexpr int kTimeTitle = 1501;
constexpr int kDepthTitle = 1502;
constexpr int kCeilingTitle = 1503;
constexpr int kMetres = 1222;
constexpr int kFeet = 1223;
constexpr int kTipDepth = 7028;
constexpr int kTipRunTime = 7029;
constexpr int kTipGas = 7030;
constexpr int kTipPPO2 = 7031;
constexpr int kTipCeiling = 7032;
constexpr int kHint = 7101;
constexpr int kTissueTitle = 7765;
constexpr int kTissuesOver = 7766;

/// Draws in exclusive-or mode while it lives.
class ExclusiveOr {
 public:
  explicit ExclusiveOr(DrawingSurface& surface) : surface_(surface) { surface_.SetExclusiveOr(true); }
  ~ExclusiveOr() { surface_.SetExclusiveOr(false); }

 private:
  DrawingSurface& surface_;
};

}  // namespace

void ProfileGraph::RedrawProfile(DrawingSurface& container, DrawingSurface& grid, DrawingSurface& bars,
                                 const PlotView& view) {
  const ClassProfile& rows = Editor().InputProfile;
  ProfilePlot plot(container, grid);
  const bool fit = view.fitPlan && rows.GetLength() > 0;
  const ProfilePlot::Reach reach = fit ? Including(overlay_, rows, ProfilePlot::kFitted) : ProfilePlot::kRoomToGrow;
  plot.Redraw(rows, reach, view.timeZoom, view.extras.ceiling ? Moments() : std::vector<DiveMoment>());
  WriteFigures(grid, plot, rows, view.extras, {LengthUnit(), separators_});
  scale_ = plot.Scale();
  scale_.TransformRates(Template());
  DrawOverlayLine(grid, scale_, overlay_);
  const Waypoint& last = rows.Row(rows.GetLength());
  lastPoint_ = scale_.WorldToScreen(last.RunTime, -last.Depth);
  dragPoint_ = lastPoint_;
  MarkSelected(grid);
  if (Editor().UserActions.GetLength() == 0) ShowHint(container.Width() - kPlotPlaceX, grid);
  ShowCompartmentLoad(bars, last.PercentCompartments, T(kCompartmentTitle));
  const CeilingText ceiling = LastCeiling();
  window_.ShowCeiling(ceiling.text, ceiling.colour);
}

const std::vector<DiveMoment>& ProfileGraph::Moments() const {
  const frmWaypointEditor& editor = Editor();
  if (momentsOf_ != editor.Evaluation()) {
    momentsOf_ = editor.Evaluation();
    moments_ = ReplayMoments(forms_.Services(), {document_, editor.PrevProfile}, editor.EvaluatedWith(),
                             editor.LoadedProfile());
  }
  return moments_;
}

void ProfileGraph::DrawTissues(DrawingSurface& tissues, double scroll) const { DrawTissues(tissues, scale_, scroll); }

void ProfileGraph::DrawTissues(DrawingSurface& tissues, const GraphScale& scale, double scroll) const {
  DrawTissueMap(tissues, Moments(), scale, {kPlotPlaceX, scroll, T(kTissueTitle), T(kTissuesOver)});
}

bool ProfileGraph::SetOverlay(const std::vector<PlotPoint>& line) {
  if (line == overlay_) return false;
  overlay_ = line;
  return true;
}

std::optional<std::pair<double, double>> ProfileGraph::SelectedSpan() const {
  const ClassProfile& rows = Editor().InputProfile;
  const std::int16_t last = std::min(selected_.second, rows.GetLength());
  if (selected_.first < 1 || selected_.first > last) return std::nullopt;
  const auto x = [&](int row) { return scale_.WorldToScreen(rows.GetRunTime(static_cast<std::int16_t>(row)), 0).x; };
  return std::pair<double, double>(x(selected_.first - 1), x(last));
}

void ProfileGraph::MarkSelected(DrawingSurface& grid) const {
  const auto span = SelectedSpan();
  if (!span) return;
  constexpr double kRing = 75;
  constexpr double kPixel = 15;
  const ClassProfile& rows = Editor().InputProfile;
  for (const double x : {span->first, span->second}) {
    grid.Line(x, scale_.PlotTop, x, scale_.PlotBottom, graph::kYellow, DrawingSurface::LineStyle::Dotted);
  }
  for (std::int16_t row = selected_.first; row <= std::min(selected_.second, rows.GetLength()); ++row) {
    const Waypoint& end = rows.Row(row);
    const ScreenPoint at = scale_.WorldToScreen(end.RunTime, -end.Depth);
    // Rings stand out on every colour of a row, and from the points of rows, which are full.
    grid.Circle(at.x, at.y, kRing, graph::kYellow);
    grid.Circle(at.x, at.y, kRing + kPixel, kBlack);
  }
}

void ProfileGraph::ShowHint(double visibleWidth, DrawingSurface& grid) const {
  const std::string hint = T(kHint);
  const double y = scale_.PlotTop + (scale_.PlotBottom - scale_.PlotTop) / 3;
  grid.Text(std::max(0.0, (visibleWidth - grid.TextWidth(hint)) / 2), y, hint, graph::kGrey);
}

ProfileGraph::CeilingText ProfileGraph::LastCeiling() const {
  const ClassProfile& rows = Editor().InputProfile;
  if (rows.GetLength() == 0) return {"0", kBlack};
  const Single ceiling = rows.GetCeiling(rows.GetLength());
  return {Fixed(ceiling, 1) + LengthUnit(), std::nearbyint(ceiling) == 0 ? kBlack : graph::kYellow};
}

void ProfileGraph::DrawPicture(DrawingSurface& picture, const GraphExtras& extras) const {
  constexpr double kMargin = 100;
  const double width = picture.Width();
  const double barsTop = 0.75 * picture.Height();
  const double plotBottom = extras.tissues ? 0.5 * picture.Height() : barsTop;
  picture.Clear(graph::kBackground);
  OffsetSurface container(picture, 0, 0, width, plotBottom);
  OffsetSurface grid(picture, kPlotPlaceX, kPlotPlaceY, width - kPlotPlaceX - kMargin, plotBottom - kPlotPlaceY);
  OffsetSurface bars(picture, kMargin, barsTop, width - 2 * kMargin, picture.Height() - barsTop);
  const ClassProfile& rows = Editor().InputProfile;
  ProfilePlot plot(container, grid);
  plot.Redraw(rows, ProfilePlot::kJustThePlan, 1, extras.ceiling ? Moments() : std::vector<DiveMoment>());
  WriteFigures(grid, plot, rows, extras, {LengthUnit(), separators_});
  if (extras.tissues) {
    OffsetSurface tissues(picture, 0, plotBottom, width - kMargin, barsTop - plotBottom);
    DrawTissues(tissues, plot.Scale(), 0);
  }
  ShowCompartmentLoad(bars, rows.Row(rows.GetLength()).PercentCompartments, T(kCompartmentTitle));

  const std::string ceilingTitle = T(kCeilingTitle) + " ";
  const CeilingText ceiling = LastCeiling();
  picture.Text(kMargin, kMargin, ceilingTitle, kBlack);
  picture.Text(kMargin + picture.TextWidth(ceilingTitle), kMargin, ceiling.text, ceiling.colour, true);
  picture.Text(width / 2, kMargin, T(kTimeTitle), kBlack);
  const std::vector<std::string> letters = DepthLetters();
  double y = (plotBottom - picture.TextHeight() * static_cast<double>(letters.size())) / 2;
  for (const std::string& letter : letters) {
    picture.Text(1.5 * kMargin - picture.TextWidth(letter) / 2, y, letter, kBlack);
    y += picture.TextHeight();
  }
}

std::optional<std::int16_t> ProfileGraph::RowAt(Single x, Single y) const {
  const WorldPoint at = scale_.ScreenToWorld(x, y);
  const ClassProfile& rows = Editor().InputProfile;
  for (int i = 0; i <= rows.GetLength(); ++i) {
    const Waypoint& row = rows.Row(static_cast<std::int16_t>(i));
    if (std::fabs(row.RunTime - at.time) <= 0.5 && std::fabs(row.Depth + at.y) <= 0.5) {
      return static_cast<std::int16_t>(i);
    }
  }
  return std::nullopt;
}

void ProfileGraph::MouseDown(bool right, Single x, Single y, DrawingSurface& grid) {
  const auto row = right ? std::nullopt : RowAt(x, y);
  if (row) {
    // Who only looks at a row changes nothing.
    window_.ViewRow(*row);
    return;
  }
  Editor().MarkModified();
  if (right) {
    CancelDrag(grid);
    window_.ShowPopup();
    return;
  }
  dragging_ = true;
  DragTo(scale_.OntoPlot({x, y}), grid);
}

void ProfileGraph::MouseMove(Single x, Single y, double visibleWidth, DrawingSurface& grid) {
  if (!scale_.InsidePlot(x + 3, y + 50)) {
    window_.ShowCross(false);
    return;
  }
  window_.ShowCross(x + 887 < visibleWidth);
  if (dragging_) DragTo({x, y}, grid);
}

void ProfileGraph::DragTo(ScreenPoint at, DrawingSurface& grid) {
  const ExclusiveOr mode(grid);
  DrawSegmentedLine(grid, Template(), lastPoint_, dragPoint_);
  dragPoint_ = at;
  DrawSegmentedLine(grid, Template(), lastPoint_, dragPoint_);
  UpdateReadOut(dragPoint_);
}

WorldPoint ProfileGraph::BelowSurface(ScreenPoint at) const {
  WorldPoint world = scale_.ScreenToWorld(at.x, at.y);
  if (world.y > 0) world.y = 0;
  return world;
}

void ProfileGraph::UpdateReadOut(ScreenPoint at) {
  const WorldPoint world = BelowSurface(at);
  window_.ShowReadOut(at.x + 50, at.y + 50,
                      Fixed(-world.y, 1) + (Template().Metric ? " m. " : " ft. ") + Fixed(world.time, 1) + " Min.");
}

void ProfileGraph::MouseUp(DrawingSurface& grid) {
  if (!dragging_) return;
  const WorldPoint released = BelowSurface(dragPoint_);
  CancelDrag(grid);
  window_.NewWaypoint(-released.y, released.time - Editor().CurrentRunTime());
}

void ProfileGraph::CancelDrag(DrawingSurface& grid) {
  if (!dragging_) return;
  dragging_ = false;
  window_.HideReadOut();
  const ExclusiveOr mode(grid);
  DrawSegmentedLine(grid, Template(), lastPoint_, dragPoint_);
  dragPoint_ = lastPoint_;
}

std::string ProfileGraph::TipAt(Single x, Single y) const {
  constexpr double kNear = 130;
  const ClassProfile& rows = Editor().InputProfile;
  std::int16_t nearest = 0;
  double least = kNear;
  for (int i = 1; i <= rows.GetLength(); ++i) {
    const Waypoint& row = rows.Row(static_cast<std::int16_t>(i));
    const ScreenPoint at = scale_.WorldToScreen(row.RunTime, -row.Depth);
    const double distance = std::hypot(at.x - x, at.y - y);
    if (distance < least) {
      least = distance;
      nearest = static_cast<std::int16_t>(i);
    }
  }
  if (nearest == 0) return {};
  const std::string remark = rowRemark ? rowRemark(nearest) : std::string();
  return FiguresOf(rows.Row(nearest), "\n") + (remark.empty() ? "" : "\n" + remark);
}

std::string ProfileGraph::Description() const {
  std::string text;
  const ClassProfile& rows = Editor().InputProfile;
  for (int i = 1; i <= rows.GetLength(); ++i) text += FiguresOf(rows.Row(static_cast<std::int16_t>(i)), ", ") + "\n";
  return text;
}

std::string ProfileGraph::FiguresOf(const Waypoint& row, std::string_view between) const {
  const std::string pressure = Template().Metric ? " bar" : " ata";
  std::string text;
  const auto add = [&](int title, const std::string& figure) {
    if (!text.empty()) text += between;
    text += T(title) + ": " + figure;
  };
  add(kTipDepth, Fixed(row.Depth, 1) + LengthUnit());
  add(kTipRunTime, Fixed(row.RunTime, 1) + " min");
  add(kTipGas, row.GasMixName);
  add(kTipPPO2, Fixed(row.PPO2, 2) + pressure);
  add(kTipCeiling, Fixed(row.Ceiling, 1) + LengthUnit());
  return text;
}

std::vector<std::string> ProfileGraph::DepthLetters() const {
  std::vector<std::string> letters;
  for (const char byte : T(kDepthTitle)) {
    // The bytes of one UTF-8 letter stay together.
    const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    if (letters.empty() || !continues) letters.emplace_back();
    letters.back() += byte;
  }
  letters.push_back(T(Template().Metric ? kMetres : kFeet));
  return letters;
}

}  // namespace tav
