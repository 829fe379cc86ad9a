#include "graph/profile_graph.h"

#include <algorithm>
#include <cmath>

#include "figures/advice_words.h"
#include "graph/leg_preview.h"
#include "model/text_id.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

/// Draws in exclusive-or mode while it lives.
class ExclusiveOr {
 public:
  explicit ExclusiveOr(DrawingSurface& surface) : surface_(surface) { surface_.SetExclusiveOr(true); }
  ~ExclusiveOr() { surface_.SetExclusiveOr(false); }

 private:
  DrawingSurface& surface_;
};

/// The moment nearest to a run time, of several at one time the first; nullptr outside of the dive.
const DiveMoment* MomentNear(const std::vector<DiveMoment>& moments, Single time) {
  if (moments.empty() || time < moments.front().time || time > moments.back().time) return nullptr;
  const auto after = std::ranges::lower_bound(moments, time, {}, &DiveMoment::time);
  if (after == moments.begin() || after->time - time <= time - std::prev(after)->time) return &*after;
  return &*std::ranges::lower_bound(moments, std::prev(after)->time, {}, &DiveMoment::time);
}

ScreenPoint PlaceOf(const Waypoint& row, const GraphScale& scale) {
  return scale.WorldToScreen(row.RunTime, -row.Depth);
}

}  // namespace

void ProfileGraph::RedrawProfile(DrawingSurface& container, DrawingSurface& grid, DrawingSurface& bars,
                                 const PlotView& view) {
  // The line of the moment goes with what the surface had.
  if (std::exchange(read_, std::nullopt)) window_.HideReadOut();
  const DrawnPlan plan = plan_();
  const PlanPicture picture(plan);
  const ClassProfile& rows = plan.rows;
  const bool fit = view.fitPlan && rows.GetLength() > 0;
  const ProfilePlot::Reach reach = fit ? Including(overlay_, rows, ProfilePlot::kFitted) : ProfilePlot::kRoomToGrow;
  scale_ = picture.DrawPlot(container, grid, reach, view.timeZoom, view.extras);
  DrawOverlayLine(grid, scale_, overlay_);
  lastPoint_ = PlaceOf(rows.Row(rows.GetLength()), scale_);
  dragPoint_ = lastPoint_;
  MarkSelected(rows, grid);
  if (rows.GetLength() == 0 && plan.notice.empty()) ShowHint(plan.texts, container.Width() - kPlotPlaceX, grid);
  picture.DrawBars(bars);
  const PlanPicture::ColouredText ceiling = picture.LastCeiling();
  window_.ShowCeiling(ceiling.text, ceiling.colour);
}

bool ProfileGraph::SetOverlay(const std::vector<PlotPoint>& line) {
  if (line == overlay_) return false;
  overlay_ = line;
  return true;
}

std::optional<std::pair<double, double>> ProfileGraph::SelectedSpan() const {
  const DrawnPlan plan = plan_();
  const std::int16_t last = std::min(selected_.second, plan.rows.GetLength());
  if (selected_.first < 1 || selected_.first > last) return std::nullopt;
  const auto x = [&](int row) { return PlaceOf(plan.rows.Row(static_cast<std::int16_t>(row)), scale_).x; };
  return std::pair<double, double>(x(selected_.first - 1), x(last));
}

void ProfileGraph::MarkSelected(const ClassProfile& rows, DrawingSurface& grid) const {
  const auto span = SelectedSpan();
  if (!span) return;
  constexpr double kRing = 75;
  constexpr double kPixel = 15;
  for (const double x : {span->first, span->second}) {
    grid.Line(x, scale_.PlotTop, x, scale_.PlotBottom, graph::kYellow, DrawingSurface::LineStyle::Dotted);
  }
  for (std::int16_t row = selected_.first; row <= std::min(selected_.second, rows.GetLength()); ++row) {
    const ScreenPoint at = PlaceOf(rows.Row(row), scale_);
    // Rings stand out on every colour of a row, and from the points of rows, which are full.
    grid.Circle(at.x, at.y, kRing, graph::kYellow);
    grid.Circle(at.x, at.y, kRing + kPixel, kBlack);
  }
}

void ProfileGraph::ShowHint(const TextSource& texts, double visibleWidth, DrawingSurface& grid) const {
  const std::string hint = texts.GetResString(Text::GraphHint);
  const double y = scale_.PlotTop + (scale_.PlotBottom - scale_.PlotTop) / 3;
  grid.Text(std::max(0.0, (visibleWidth - grid.TextWidth(hint)) / 2), y, hint, graph::kGrey);
}

std::optional<std::int16_t> ProfileGraph::RowAt(Single x, Single y) const {
  const WorldPoint at = scale_.ScreenToWorld(x, y);
  const DrawnPlan plan = plan_();
  for (int i = 0; i <= plan.rows.GetLength(); ++i) {
    const Waypoint& row = plan.rows.Row(static_cast<std::int16_t>(i));
    if (std::fabs(row.RunTime - at.time) <= 0.5 && std::fabs(row.Depth + at.y) <= 0.5) {
      return static_cast<std::int16_t>(i);
    }
  }
  return std::nullopt;
}

void ProfileGraph::MouseDown(bool right, Single x, Single y, DrawingSurface& grid) {
  HideMoment(grid);
  const auto row = right ? std::nullopt : RowAt(x, y);
  if (row) {
    // Who only looks at a row changes nothing.
    window_.ViewRow(*row);
    return;
  }
  window_.MarkModified();
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
    HideMoment(grid);
    return;
  }
  window_.ShowCross(x + 887 < visibleWidth);
  dragging_ ? DragTo({x, y}, grid) : ShowMoment({x, y}, grid);
}

void ProfileGraph::ShowMoment(ScreenPoint at, DrawingSurface& grid) {
  constexpr double kBeside = 150;
  const DrawnPlan plan = plan_();
  const DiveMoment* moment = MomentNear(plan.moments, scale_.ScreenToWorld(at.x, at.y).time);
  if (moment == nullptr || plan.rows.GetLength() == 0) return HideMoment(grid);
  if (!read_ || read_->time != moment->time) {
    if (read_) DrawMomentLine(grid);
    std::string text = PlanPicture(plan).FiguresAt(*moment);
    if (leaving) {
      text += "\n" + TextOf(leaving(moment->time), AdviceWords(plan.texts, plan.separators, plan.settings.Metric));
    }
    read_ = {moment->time, scale_.WorldToScreen(moment->time, 0).x, std::move(text)};
    DrawMomentLine(grid);
  }
  window_.ShowReadOut(at.x + kBeside, at.y + kBeside, read_->text);
}

void ProfileGraph::HideMoment(DrawingSurface& grid) {
  if (!read_) return;
  DrawMomentLine(grid);
  read_.reset();
  window_.HideReadOut();
}

void ProfileGraph::DrawMomentLine(DrawingSurface& grid) const {
  const ExclusiveOr mode(grid);
  grid.Line(read_->x, scale_.PlotTop, read_->x, scale_.PlotBottom, graph::kWhite);
}

void ProfileGraph::DrawPreview(const DiveTemplate& settings, DrawingSurface& grid) const {
  const ExclusiveOr mode(grid);
  DrawSegmentedLine(grid, scale_, settings, lastPoint_, dragPoint_);
}

void ProfileGraph::DragTo(ScreenPoint at, DrawingSurface& grid) {
  const DrawnPlan plan = plan_();
  DrawPreview(plan.settings, grid);
  dragPoint_ = at;
  DrawPreview(plan.settings, grid);
  UpdateReadOut(plan);
}

WorldPoint ProfileGraph::BelowSurface(ScreenPoint at) const {
  WorldPoint world = scale_.ScreenToWorld(at.x, at.y);
  if (world.y > 0) world.y = 0;
  return world;
}

void ProfileGraph::UpdateReadOut(const DrawnPlan& plan) {
  const WorldPoint world = BelowSurface(dragPoint_);
  const auto tenths = [&](Single value) { return WriteLocaleNumber(FormatFixed(value, 1), plan.separators); };
  window_.ShowReadOut(dragPoint_.x + 50, dragPoint_.y + 50,
                      tenths(-world.y) + (plan.settings.Metric ? " m, " : " ft, ") + tenths(world.time) + " min");
}

void ProfileGraph::MouseUp(DrawingSurface& grid) {
  if (!dragging_) return;
  const WorldPoint released = BelowSurface(dragPoint_);
  CancelDrag(grid);
  const DrawnPlan plan = plan_();
  window_.NewWaypoint(-released.y, released.time - plan.rows.GetRunTime(plan.rows.GetLength()));
}

void ProfileGraph::CancelDrag(DrawingSurface& grid) {
  if (!dragging_) return;
  dragging_ = false;
  window_.HideReadOut();
  DrawPreview(plan_().settings, grid);
  dragPoint_ = lastPoint_;
}

std::string ProfileGraph::TipAt(Single x, Single y) const {
  constexpr double kNear = 130;
  const DrawnPlan plan = plan_();
  std::int16_t nearest = 0;
  double least = kNear;
  for (int i = 1; i <= plan.rows.GetLength(); ++i) {
    const ScreenPoint at = PlaceOf(plan.rows.Row(static_cast<std::int16_t>(i)), scale_);
    const double distance = std::hypot(at.x - x, at.y - y);
    if (distance < least) {
      least = distance;
      nearest = static_cast<std::int16_t>(i);
    }
  }
  if (nearest == 0) return {};
  const std::string remark = rowRemark ? rowRemark(nearest) : std::string();
  return PlanPicture(plan).FiguresOf(plan.rows.Row(nearest), "\n") + (remark.empty() ? "" : "\n" + remark);
}

}  // namespace tav
