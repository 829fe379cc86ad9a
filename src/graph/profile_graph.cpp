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

std::vector<PlotPoint> LineOf(const WayOut& way) {
  std::vector<PlotPoint> line;
  for (const WayOut::Place& place : way.places) line.push_back({place.runTime, place.depth});
  return line;
}

}  // namespace

void ProfileGraph::RedrawProfile(DrawingSurface& container, DrawingSurface& grid, DrawingSurface& bars,
                                 const PlotView& view) {
  // The line of the moment goes with what the surface had; so does what was told of another plan.
  read_.reset();
  window_.HideReadOut();
  const DrawnPlan plan = plan_();
  const PlanPicture picture(plan, view.extras);
  const ClassProfile& rows = plan.rows;
  light_ = view.extras.light;
  if (!moving_) {
    std::vector<PlotPoint> beside = overlay_;
    for (const KeptLine& kept : kept_) beside.insert(beside.end(), kept.line.begin(), kept.line.end());
    const bool fit = view.fitPlan && rows.GetLength() > 0;
    corner_ = fit ? Fitted(rows, plan.settings.StepSize, beside) : RoomToGrow(rows);
  }
  scale_ = picture.DrawPlot(container, grid, corner_, [&](const GraphScale& scale) {
    DrawKeptLines(grid, scale, kept_, graph::SchemeOf(light_));
  });
  DrawOverlayLine(grid, scale_, overlay_, graph::SchemeOf(light_).overlay);
  lastPoint_ = PlaceOf(rows.Row(rows.GetLength()), scale_);
  dragPoint_ = lastPoint_;
  MarkSelected(plan, grid);
  if (rows.GetLength() == 0 && plan.notice.empty()) ShowHint(plan.texts, container.Width() - kPlotPlaceX, grid);
  picture.DrawBars(bars);
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

void ProfileGraph::MarkSelected(const DrawnPlan& plan, DrawingSurface& grid) const {
  const auto span = SelectedSpan();
  if (!span) return;
  constexpr double kRing = 75;
  constexpr double kPixel = 15;
  const graph::Scheme& colours = graph::SchemeOf(light_);
  const bool waypoint = SelectedWaypoint().has_value();
  for (const double x : {span->first, span->second}) {
    if (waypoint) break;
    grid.Line(x, scale_.PlotTop, x, scale_.PlotBottom, colours.selected, DrawingSurface::LineStyle::Dotted);
  }
  for (std::int16_t row = selected_.first; row <= std::min(selected_.second, plan.rows.GetLength()); ++row) {
    const ScreenPoint at = PlaceOf(plan.rows.Row(row), scale_);
    // Rings stand out on every colour of a row, and from the points of rows, which are full.
    for (const double more : {0.0, 2 * kPixel}) {
      if (more == 0 || waypoint) grid.Circle(at.x, at.y, kRing + more, colours.selected);
      grid.Circle(at.x, at.y, kRing + more + kPixel, colours.ground);
    }
  }
  if (!waypoint) return;
  const std::string step = FormatFixed(DepthStep(), 0) + (plan.settings.Metric ? " m" : " ft");
  const std::string hint = plan.texts.Filled(Text::GraphMoveHint, {step});
  const double left = std::min(span->second + 2 * kRing, scale_.PlotRight - grid.TextWidth(hint));
  grid.Text(left, PlaceOf(plan.rows.Row(selected_.second), scale_).y + 2 * kRing, hint, colours.selected);
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

std::optional<std::int16_t> ProfileGraph::WaypointAt(ScreenPoint at) const {
  if (legs == nullptr) return std::nullopt;
  constexpr double kReach = 120;
  const ClassProfile& rows = plan_().rows;
  std::optional<std::int16_t> nearest;
  double least = kReach;
  for (std::int16_t row = 1; row <= rows.GetLength(); ++row) {
    const ScreenPoint place = PlaceOf(rows.Row(row), scale_);
    const double distance = std::hypot(place.x - at.x, place.y - at.y);
    if (distance > least || !legs->EndsLeg(row)) continue;
    least = distance;
    nearest = row;
  }
  return nearest;
}

std::int16_t ProfileGraph::SegmentAt(ScreenPoint at) const {
  constexpr double kReach = 200;
  const ClassProfile& rows = plan_().rows;
  for (std::int16_t row = 1; row <= rows.GetLength(); ++row) {
    const ScreenPoint from = PlaceOf(rows.Row(static_cast<std::int16_t>(row - 1)), scale_);
    const ScreenPoint to = PlaceOf(rows.Row(row), scale_);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double along =
        ((at.x - from.x) * (to.x - from.x) + (at.y - from.y) * (to.y - from.y)) / std::max(length, 1.0);
    const double across =
        ((at.x - from.x) * (to.y - from.y) - (at.y - from.y) * (to.x - from.x)) / std::max(length, 1.0);
    if (along >= 0 && along <= length && std::fabs(across) <= kReach) return row;
  }
  return 0;
}

std::optional<std::int16_t> ProfileGraph::SelectedWaypoint() const {
  const auto [first, last] = selected_;
  const bool one = legs != nullptr && first == last && first > 0 && first <= plan_().rows.GetLength();
  return one && legs->EndsLeg(first) ? std::optional(first) : std::nullopt;
}

void ProfileGraph::MouseDown(bool right, Single x, Single y, DrawingSurface& grid) {
  HideMoment(grid);
  const ScreenPoint at{x, y};
  if (right) {
    window_.MarkModified();
    CancelDrag(grid);
    window_.ShowPopup();
    return;
  }
  window_.HideReadOut();
  if (const auto waypoint = WaypointAt(at)) {
    grip_ = {at, plan_().rows.Row(*waypoint), *waypoint, 0, 0, {}};
    return;
  }
  const auto row = RowAt(x, y);
  if (legs != nullptr && legs->HasAscent()) return legs->Select(row && *row > 0 ? *row : SegmentAt(at));
  // Who only looks at a row changes nothing.
  if (row) return window_.ViewRow(*row);
  window_.MarkModified();
  dragging_ = true;
  DragTo(scale_.OntoPlot(at), grid);
}

void ProfileGraph::DoubleClick(Single x, Single y, DrawingSurface& grid) {
  const ScreenPoint at{x, y};
  if (const auto waypoint = WaypointAt(at)) return window_.EditRow(*waypoint);
  if (legs == nullptr || !legs->HasAscent()) return MouseDown(false, x, y, grid);
  if (const auto row = RowAt(x, y)) return window_.ViewRow(*row);
  const WorldPoint world = BelowSurface(scale_.OntoPlot(at));
  const double step = DepthStep();
  Tell(legs->Add(std::round(-world.y / step) * step, std::round(world.time)), at);
}

void ProfileGraph::MouseMove(Single x, Single y, double visibleWidth, DrawingSurface& grid, bool wayOut) {
  constexpr double kBegin = 60;  // a hand that only clicks moves a little
  if (grip_ && !moving_ && std::hypot(x - grip_->at.x, y - grip_->at.y) >= kBegin) {
    moving_ = legs->BeginMove(grip_->number);
    if (!moving_) {
      grip_.reset();
      return Tell(legs->Refusal(), ScreenPoint{x, y});
    }
  }
  if (moving_ && !legs->IsMoving()) {
    moving_ = false;
    grip_.reset();
    window_.HideReadOut();
  }
  if (moving_) return MoveTo(scale_.OntoPlot({x, y}));
  if (grip_) return;
  if (!scale_.InsidePlot(x + 3, y + 50)) {
    window_.ShowCross(false);
    HideMoment(grid);
    return;
  }
  window_.ShowCross(x + 887 < visibleWidth);
  dragging_ ? DragTo({x, y}, grid) : ShowMoment({x, y}, grid, wayOut);
}

void ProfileGraph::MoveTo(ScreenPoint at) {
  const double step = DepthStep();
  const double perDepth = scale_.Ddepth(1) - scale_.Ddepth(0);
  const double perMinute = scale_.WorldToScreen(1, 0).x - scale_.WorldToScreen(0, 0).x;
  // Never above the surface.
  const Single depth =
      std::max<double>(std::round((at.y - grip_->at.y) / perDepth / step) * step, -double{grip_->row.Depth});
  const Single minutes = std::round((at.x - grip_->at.x) / perMinute);
  if (depth == grip_->depth && minutes == grip_->minutes) return;
  grip_->depth = depth;
  grip_->minutes = minutes;
  grip_->refusal = legs->Move(depth, minutes);
  ReadMove();
}

void ProfileGraph::ReadMove() {
  const DrawnPlan plan = plan_();
  const NumberTexts numbers(plan.separators);
  const std::string unit = plan.settings.Metric ? " m" : " ft";
  const Single depth = grip_->row.Depth + grip_->depth;
  const Single time = grip_->row.RunTime + grip_->minutes;
  const std::string total = plan.texts.GetResString(Text::RunTime) + " " +
                            numbers.Short(plan.rows.GetRunTime(plan.rows.GetLength())) + " min";
  const ScreenPoint at = scale_.OntoPlot(scale_.WorldToScreen(time, -depth));
  window_.ShowReadOut(at.x + 150, at.y + 150,
                      numbers.Short(depth) + unit + ", " + numbers.Short(time) + " min\n" +
                          (grip_->refusal.empty() ? total : grip_->refusal));
}

void ProfileGraph::Tell(const std::string& refusal, std::optional<ScreenPoint> at) {
  if (refusal.empty()) return window_.HideReadOut();
  if (!at) at = PlaceOf(plan_().rows.Row(selected_.second), scale_);
  window_.ShowReadOut(at->x + 150, at->y + 150, refusal);
}

bool ProfileGraph::Nudge(int steps, int minutes) {
  const auto row = SelectedWaypoint();
  if (!row || Dragging()) return false;
  if (!legs->BeginMove(*row)) {
    Tell(legs->Refusal());
    return true;
  }
  const std::string refusal = legs->Move(steps * DepthStep(), minutes);
  legs->EndMove(refusal.empty());
  Tell(refusal);
  return true;
}

bool ProfileGraph::RemoveSelected() {
  const auto row = SelectedWaypoint();
  if (!row || Dragging()) return false;
  Tell(legs->Remove(*row));
  return true;
}

bool ProfileGraph::SelectNext(int by) {
  if (legs == nullptr || Dragging()) return false;
  const int length = plan_().rows.GetLength();
  for (int row = selected_.second == 0 && by < 0 ? length : selected_.second + by; row >= 1 && row <= length;
       row += by) {
    if (!legs->EndsLeg(static_cast<std::int16_t>(row))) continue;
    legs->Select(static_cast<std::int16_t>(row));
    return true;
  }
  return false;
}

void ProfileGraph::ShowMoment(ScreenPoint at, DrawingSurface& grid, bool wayOut) {
  constexpr double kBeside = 150;
  const DrawnPlan plan = plan_();
  const DiveMoment* moment = MomentNear(plan.moments, scale_.ScreenToWorld(at.x, at.y).time);
  if (moment == nullptr || plan.rows.GetLength() == 0) return HideMoment(grid);
  if (!read_ || read_->time != moment->time || read_->onWayOut != wayOut) {
    if (read_) DrawMoment(grid);
    read_ = {moment->time, scale_.WorldToScreen(moment->time, 0).x, PlanPicture(plan).FiguresAt(*moment), {}, wayOut};
    if (leaving) {
      const Surfacing up = leaving(moment->time);
      read_->text += "\n" + TextOf(up, AdviceWords(plan.texts, plan.separators, plan.settings.Metric)) + "\n" +
                     plan.texts.GetResString(Text::GraphShiftHint);
      // A diver on the loop goes up on it.
      const std::optional<WayOut>& way = up.loop ? up.loop : up.open;
      if (way && wayOut) read_->wayOut = LineOf(*way);
    }
    DrawMoment(grid);
  }
  window_.ShowReadOut(at.x + kBeside, at.y + kBeside, read_->text);
}

void ProfileGraph::HideMoment(DrawingSurface& grid) {
  if (!read_) return;
  DrawMoment(grid);
  read_.reset();
  window_.HideReadOut();
}

void ProfileGraph::DrawMoment(DrawingSurface& grid) const {
  const ExclusiveOr mode(grid);
  grid.Line(read_->x, scale_.PlotTop, read_->x, scale_.PlotBottom, graph::kWhite);
  DrawDottedLine(grid, scale_, read_->wayOut, graph::kWhite);
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
  if (std::exchange(moving_, false)) {
    const std::string refusal = grip_->refusal;
    grip_.reset();
    legs->EndMove(refusal.empty());
    return Tell(refusal);
  }
  if (const auto grip = std::exchange(grip_, std::nullopt)) {
    return legs->HasAscent() ? legs->Select(grip->number) : window_.ViewRow(grip->number);
  }
  if (!dragging_) return;
  const WorldPoint released = BelowSurface(dragPoint_);
  CancelDrag(grid);
  const DrawnPlan plan = plan_();
  window_.NewWaypoint(-released.y, released.time - plan.rows.GetRunTime(plan.rows.GetLength()));
}

void ProfileGraph::CancelDrag(DrawingSurface& grid) {
  grip_.reset();
  if (Dragging()) window_.HideReadOut();
  if (std::exchange(moving_, false)) legs->EndMove(false);
  if (!std::exchange(dragging_, false)) return;
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
